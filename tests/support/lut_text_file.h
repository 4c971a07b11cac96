#pragma once
/// @file  Files of look-up tables for tests.

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include <windows.h>

namespace kolmfluxor::test {

/// A file in the temporary folder, as long as the object lives.
class CLutTextFile {
public:
    explicit CLutTextFile(const std::string& content) {
        std::array<char, MAX_PATH> folder{};
        std::array<char, MAX_PATH> path{};
        ::GetTempPathA(static_cast<DWORD>(folder.size()), folder.data());
        EXPECT_NE(::GetTempFileNameA(folder.data(), "lut", 0, path.data()), 0U);
        m_path = path.data();
        std::ofstream file(m_path, std::ios::binary);
        file << content;
        EXPECT_TRUE(file.flush().good());
    }
    ~CLutTextFile() { EXPECT_TRUE(::DeleteFileA(m_path.c_str())); }
    CLutTextFile(const CLutTextFile&) = delete;
    CLutTextFile& operator=(const CLutTextFile&) = delete;

    [[nodiscard]] const std::string& Path() const { return m_path; }

private:
    std::string m_path;
};

/// The text of a file with a header and `rows` lines.
inline std::string LutText(const std::vector<std::string>& names, std::size_t rows,
                           const std::function<unsigned(std::size_t row, std::size_t lut)>& value) {
    std::string text = "In";
    for (const std::string& name : names)
        text += ',' + name;
    for (std::size_t row = 0; row < rows; ++row) {
        text += '\n' + std::to_string(row);
        for (std::size_t lut = 0; lut < names.size(); ++lut)
            text += ',' + std::to_string(value(row, lut));
    }
    return text + '\n';
}

}  // namespace kolmfluxor::test
