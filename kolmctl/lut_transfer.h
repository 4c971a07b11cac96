#pragma once
/// @file  A look-up table on its way into the camera.

#include <cstdint>
#include <string>
#include <vector>

#include <kolmfluxor/property_set.h>

#include "lut_state.h"
#include "output.h"

namespace kolmctl {

/// What is sent, where to, and how to speak of it.
struct LutTransfer {
    std::vector<std::uint32_t> values;
    std::string source;     ///< where the values come from, as in "\"gamma.txt\""
    ULONG number;           ///< of the camera's table
    std::string intention;  ///< what is refused when it is, as in "cannot upload table 1"
};

/// Uploads values, as many as the camera's tables have.
///
/// @return  what was sent, to be printed
/// @throws CallError when a value has too many bits, the tables are no whole quadlets, or the camera refuses
[[nodiscard]] Table UploadTable(kolmfluxor::IKolmFluxorPropertySet& camera, const LutState& state,
                                const LutTransfer& transfer);

}  // namespace kolmctl
