#pragma once
/// @file  The camera's look-up tables: which one is on, how large they are.

#include <cstddef>
#include <cstdint>

#include <kolmfluxor/property_set.h>

#include "output.h"

namespace kolmctl {

struct LutState {
    bool on;
    ULONG current;  ///< number of the table in use, from 0
    ULONG count;
    ULONG sizeBytes;  ///< of each table
    ULONG bitsPerValue;

    [[nodiscard]] std::size_t BytesPerValue() const { return bitsPerValue > 8 ? 2 : 1; }
    [[nodiscard]] std::size_t Values() const { return sizeBytes / BytesPerValue(); }
    [[nodiscard]] std::uint32_t HighestValue() const { return (std::uint32_t{1} << bitsPerValue) - 1; }
};

/// @throws CallError when the camera refuses, or tells a width that no table can have
[[nodiscard]] LutState ReadLutState(kolmfluxor::IKolmFluxorPropertySet& camera);

/// @param intention  what is refused, as in "cannot enable table 3"
/// @throws CallError when the camera has no table of this number
void CheckLutNumber(const LutState& state, ULONG number, const std::string& intention);

[[nodiscard]] Table LutTable(const LutState& state);

}  // namespace kolmctl
