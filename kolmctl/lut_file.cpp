#include "lut_file.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

#include "errors.h"
#include "text.h"

namespace kolmctl {
namespace {

constexpr char kBlanks[] = " \t\r";

std::vector<std::uint32_t> ParseText(const std::string& path, const std::string& content) {
    std::vector<std::uint32_t> values;
    std::istringstream lines(content);
    std::string line;
    for (std::size_t number = 1; std::getline(lines, line); ++number) {
        const std::size_t start = line.find_first_not_of(kBlanks);
        if (start == std::string::npos) {
            continue;
        }
        const std::string text = line.substr(start, line.find_last_not_of(kBlanks) + 1 - start);
        const auto value = ParseNumber(text);
        if (!value) {
            throw UsageError("\"" + path + "\", line " + std::to_string(number) + ": not a number: \"" + text + "\"",
                             "a text file has one value a line, decimal or 0x...");
        }
        values.push_back(*value);
    }
    return values;
}

bool EndsWith(const std::string& path, std::wstring_view ending) {
    const std::wstring wide = ToUtf16(path);
    return wide.size() > ending.size() &&
           EqualWithoutCase(std::wstring_view(wide).substr(wide.size() - ending.size()), ending);
}

}  // namespace

std::string ReadFile(const std::string& path) {
    errno = 0;
    std::ifstream file(std::filesystem::path(ToUtf16(path)), std::ios::binary);
    std::string content{std::istreambuf_iterator<char>(file), {}};
    if (!file.is_open() || file.bad()) {
        throw UsageError("cannot read \"" + path + "\"" + (errno != 0 ? std::string(": ") + std::strerror(errno) : ""));
    }
    return content;
}

LutFile::LutFile(const std::string& path) : m_binary(EndsWith(path, L".bin")) {
    if (!m_binary && !EndsWith(path, L".txt")) {
        throw UsageError("\"" + path + "\" is neither a .bin nor a .txt file",
                         ".bin holds little-endian values, .txt one value a line; for .csv there is kolmctl lut load");
    }
    const std::string content = ReadFile(path);
    if (m_binary) {
        m_bytes.assign(content.begin(), content.end());
    } else {
        m_values = ParseText(path, content);
    }
}

std::size_t LutFile::SizeBytes(std::size_t bytesPerValue) const {
    return m_binary ? m_bytes.size() : m_values.size() * bytesPerValue;
}

std::string LutFile::SizeText() const {
    return m_binary ? std::to_string(m_bytes.size()) + " bytes" : std::to_string(m_values.size()) + " values";
}

std::vector<std::uint32_t> LutFile::Values(std::size_t bytesPerValue) const {
    if (!m_binary) {
        return m_values;
    }
    std::vector<std::uint32_t> values(m_bytes.size() / bytesPerValue);
    for (std::size_t i = 0; i < values.size() * bytesPerValue; ++i) {
        values[i / bytesPerValue] |= std::uint32_t{m_bytes[i]} << (8 * (i % bytesPerValue));
    }
    return values;
}

}  // namespace kolmctl
