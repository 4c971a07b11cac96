#include "format_choice.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <limits>
#include <sstream>
#include <vector>

#include "errors.h"
#include "pixel_format.h"
#include "text.h"

namespace kolmctl {
namespace {

constexpr std::uint32_t kMostPixels = 0xFFFF;  // in a row or a column of an IIDC camera

/// A mode as in "f7m0".
std::optional<IidcMode> ParseMode(const std::string& word) {
    const auto digit = [&](std::size_t at) { return std::isdigit(static_cast<unsigned char>(word[at])) != 0; };
    const auto letter = [&](std::size_t at) { return std::tolower(static_cast<unsigned char>(word[at])); };
    if (word.size() != 4 || letter(0) != 'f' || !digit(1) || letter(2) != 'm' || !digit(3)) {
        return std::nullopt;
    }
    return IidcMode{.format = static_cast<std::uint32_t>(word[1] - '0'),
                    .mode = static_cast<std::uint32_t>(word[3] - '0')};
}

/// A size as in "640x480".
std::optional<SIZE> ParseSize(const std::string& word) {
    const std::size_t x = std::min(word.find_first_of("xX"), word.size());
    const auto width = ParseNumber(word.substr(0, x));
    const auto height = ParseNumber(word.substr(std::min(x + 1, word.size())));
    if (!width || !height || *width > kMostPixels || *height > kMostPixels) {
        return std::nullopt;
    }
    return SIZE{static_cast<LONG>(*width), static_cast<LONG>(*height)};
}

}  // namespace

FormatChoice::FormatChoice(const std::string& text) : m_text(text) {
    std::istringstream words(text);
    std::string word;
    bool any = false;
    while (words >> word) {
        any = true;
        if (!Take(word)) {
            throw UsageError("unknown format \"" + text + "\"",
                             "a format is an index of \"kolmctl formats\", or words such as f7m0, 640x480 or Mono8;\n"
                             "pixels are " +
                                 PixelFormatNames());
        }
    }
    if (!any) {
        throw UsageError("no format is named");
    }
}

bool FormatChoice::Take(const std::string& word) {
    const auto number = ParseNumber(word);
    if (number && *number <= static_cast<std::uint32_t>(std::numeric_limits<int>::max())) {
        m_index = static_cast<int>(*number);
    } else if (const auto mode = ParseMode(word)) {
        m_mode = mode;
    } else if (const auto size = ParseSize(word)) {
        m_size = size;
    } else if (const GUID* pixels = FindPixelFormat(word); pixels != nullptr) {
        m_pixels = *pixels;
    } else {
        return false;
    }
    return true;
}

bool FormatChoice::Fits(const CaptureFormat& format) const {
    const SIZE whole = format.WholeSize();
    return (!m_index || *m_index == format.Index()) && (!m_mode || format.Mode() == m_mode) &&
           (!m_size || (!format.IsScalable() && whole.cx == m_size->cx && whole.cy == m_size->cy)) &&
           (!m_pixels || format.Type().subtype == *m_pixels);
}

CaptureFormat& FormatChoice::Choose(CaptureFormats& formats) const {
    std::vector<CaptureFormat*> fitting;
    std::vector<CaptureFormat*> alike;
    const bool hasCurrent = formats.current < formats.offered.size();
    for (CaptureFormat& format : formats.offered) {
        if (!Fits(format)) {
            continue;
        }
        if (hasCurrent && &format == &formats.Current()) {
            return format;
        }
        fitting.push_back(&format);
        if (hasCurrent && format.Type().subtype == formats.Current().Type().subtype) {
            alike.push_back(&format);
        }
    }
    if (fitting.size() == 1 || alike.size() == 1) {
        return fitting.size() == 1 ? *fitting.front() : *alike.front();
    }
    const std::string intention = "cannot set the format to \"" + m_text + "\"";
    if (fitting.empty()) {
        throw CallError(intention, E_INVALIDARG,
                        "none of the camera's formats is like this; \"kolmctl formats\" shows them");
    }
    std::vector<std::string> lines;
    std::ranges::transform(fitting, std::back_inserter(lines), [](const CaptureFormat* format) {
        return std::to_string(format->Index()) + "  " + format->ModeText() + " " + format->PixelText();
    });
    throw CallError(intention, E_INVALIDARG,
                    "several formats are like this; name more of one, or its index:\n" + Join(lines, "\n"));
}

}  // namespace kolmctl
