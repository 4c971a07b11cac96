#pragma once
/// @file  What a register does when it is read and written.

#include <cstdint>

#include "model/camera_state.h"

namespace kolmsim {

/// What a register shows, for registers that show more than their stored word.
using RegisterRead = std::uint32_t (*)(const CameraState& state, std::uint32_t address);

/// What a write does, for registers where it does more than store.
using RegisterWrite = void (*)(CameraState& state, std::uint32_t address, std::uint32_t word);

/// What looking at a register lets happen.
using RegisterLook = void (*)(CameraState& state, std::uint32_t address);

/// A regular run of registers that behave alike.
///
/// A rule with neither `read` nor `write` is a stored word of which a write changes the bits `writable`; with `read`
/// alone it can only be read. A write of what cannot be written changes nothing and is no error, as on the bus.
struct RegisterRule {
    std::uint32_t first;       ///< address
    std::uint32_t count = 1;   ///< so many registers, 4 bytes apart
    std::uint32_t blocks = 1;  ///< so many times
    std::uint32_t blockStep = 0;
    std::uint32_t reset = 0;  ///< the word stored at the factory
    std::uint32_t writable = 0;
    RegisterRead read = nullptr;
    RegisterWrite write = nullptr;
    RegisterLook look = nullptr;

    /// Lies between named registers and answers, but has no name of its own.
    bool nameless = false;
};

}  // namespace kolmsim
