#pragma once
/// @file  A video format as the command line names it.

#include <optional>
#include <string>

#include "capture_pin.h"

namespace kolmctl {

/// Words that a format must all fit: its index, "f7m0" for IIDC Format 7 mode 0, "640x480" for a fixed mode of that
/// size, or a pixel format such as "Mono8".
class FormatChoice {
public:
    /// @throws UsageError for a word that is none of these, or no word at all
    explicit FormatChoice(const std::string& text);

    /// The one format that fits. Of several, the current one comes first, then one with the current pixel format.
    ///
    /// @throws CallError when none fits, or several do
    [[nodiscard]] CaptureFormat& Choose(CaptureFormats& formats) const;

private:
    /// Takes one word. @return  false when it says nothing
    [[nodiscard]] bool Take(const std::string& word);
    [[nodiscard]] bool Fits(const CaptureFormat& format) const;

    std::string m_text;
    std::optional<int> m_index;
    std::optional<IidcMode> m_mode;
    std::optional<SIZE> m_size;
    std::optional<GUID> m_pixels;
};

}  // namespace kolmctl
