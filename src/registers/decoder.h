#pragma once
/// @file  Register decoders: turn a 32-bit register value into a small tree of labelled lines. No Windows header.

#include <cstdint>

namespace kolmfluxor {

/// Where decoded lines go.
class RegisterLineSink {
public:
    /// A line that was inserted; null means none. What it points to is the sink's own affair.
    using Line = void*;

    /// Inserts a line as the last child of `parent`.
    ///
    /// @param text  at most 254 bytes, in Windows code page 1252 (the micro sign is byte 0xB5); gone after the call
    /// @return      the line; null when it cannot be inserted
    virtual Line Insert(Line parent, const char* text) = 0;

protected:
    ~RegisterLineSink() = default;
};

/// Decodes the value of a register.
///
/// Under `parent` come the line "Value: 0x..." and after it a heading, which names the register's layout; each field is
/// a line under "Value: 0x...". An address without a layout of its own has a default one. Nothing is read from a
/// camera.
///
/// @return  false as soon as a line cannot be inserted (the earlier ones stay), and for an address inside a Format 7
///          block whose low byte is above 0x7C or no multiple of 4 (after the line "Value: 0x...")
[[nodiscard]] bool DecodeRegister(std::uint32_t address, std::uint32_t value, RegisterLineSink::Line parent,
                                  RegisterLineSink& sink);

}  // namespace kolmfluxor
