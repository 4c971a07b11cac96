#pragma once
/// @file  Files with one look-up table: binary (.bin) or text (.txt).

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace kolmctl {

/// The bytes of a file. @param path  in UTF-8 @throws UsageError when it cannot be read
[[nodiscard]] std::string ReadFile(const std::string& path);

/// The content of a file. The name's ending tells the form:
///
/// - ".bin": the values one after another, little-endian, each in the bytes that the camera's tables need for a value
///   (one byte up to 8 bits, two bytes from 9 to 16 bits);
/// - ".txt": one value a line, decimal or 0x...; blanks around it and empty lines do not count.
class LutFile {
public:
    /// Reads the whole file.
    ///
    /// @param path  in UTF-8
    /// @throws UsageError when the ending is another one, the file cannot be read, or a line is no number
    explicit LutFile(const std::string& path);

    /// The bytes that the file's values take in a table of `bytesPerValue` bytes each.
    [[nodiscard]] std::size_t SizeBytes(std::size_t bytesPerValue) const;

    /// What the file holds, in its own unit: "4096 values" of a text, "8192 bytes" of a binary file.
    [[nodiscard]] std::string SizeText() const;

    /// The values; an incomplete one at the end of a binary file is left out.
    [[nodiscard]] std::vector<std::uint32_t> Values(std::size_t bytesPerValue) const;

private:
    bool m_binary = false;
    std::vector<std::uint8_t> m_bytes;    ///< of a binary file
    std::vector<std::uint32_t> m_values;  ///< of a text
};

}  // namespace kolmctl
