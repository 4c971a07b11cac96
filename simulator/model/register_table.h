#pragma once
/// @file  All registers of the camera, expanded from rules.

#include <cstddef>
#include <cstdint>
#include <span>

#include "model/register_rule.h"

namespace kolmsim {

/// One register.
struct RegisterEntry {
    std::uint32_t address;
    const RegisterRule* rule;
};

/// All registers by address; the position of an entry is that of its cell in the camera's memory.
[[nodiscard]] std::span<const RegisterEntry> RegisterTable();

/// How many of them have a name.
[[nodiscard]] std::size_t NamedRegisterCount();

/// The register at an address, or null.
[[nodiscard]] const RegisterEntry* FindRegister(std::uint32_t address);

/// The cell of a register that must exist.
[[nodiscard]] std::uint32_t& StoredWord(CameraState& state, std::uint32_t address);
[[nodiscard]] std::uint32_t StoredWord(const CameraState& state, std::uint32_t address);

/// Puts the factory's words into all cells.
void ResetRegisters(CameraState& state);

}  // namespace kolmsim
