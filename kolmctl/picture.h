#pragma once
/// @file  Pictures, and files of them.

#include <cstddef>
#include <string>
#include <vector>

#include <windows.h>

namespace kolmctl {

/// A 24-bit BGR picture, top row first, each row filled up to a multiple of 4 bytes.
struct Picture {
    UINT width = 0;
    UINT height = 0;
    std::vector<BYTE> pixels;

    [[nodiscard]] std::size_t RowBytes() const { return (std::size_t{width} * 3 + 3) / 4 * 4; }
    /// Whether all pixels are the same, as in a picture of a window that is not painted.
    [[nodiscard]] bool IsBlank() const;
};

/// How GDI is told of a picture's pixels: 24 bits, top row first.
[[nodiscard]] BITMAPINFO FormatOf(const Picture& picture);

enum class PictureFile { png, bmp };

/// Writes a picture; an existing file is replaced. @throws CallError
void WritePicture(const Picture& picture, PictureFile kind, const std::wstring& file);

}  // namespace kolmctl
