#pragma once
/// @file  How page "Info" writes its figures. Portable: no Windows header.

#include <cstdint>
#include <span>

namespace kolmfluxor {

/// Writes a figure as text into a buffer; cut to what fits, always with a NUL. An empty buffer stays as it is.
/// `FormatBits` is the exception: it leaves a buffer of less than 33 characters alone.
using FigureFormatter = void (*)(std::span<char> buffer, std::uint32_t figure);

/// "%d": signed.
void FormatDecimal(std::span<char> buffer, std::uint32_t figure);

/// "%08d": signed, eight digits with leading zeros.
void FormatSerialNumber(std::span<char> buffer, std::uint32_t figure);

/// Three pairs of hexadecimal digits with dots between them: 0x01020304 gives "12.03.04".
void FormatVersion(std::span<char> buffer, std::uint32_t figure);

/// 32 characters '1' and '0', the most significant bit first. A buffer of less than 33 characters is left alone; a
/// larger one is filled up with NULs.
void FormatBits(std::span<char> buffer, std::uint32_t figure);

}  // namespace kolmfluxor
