#pragma once
/// @file  The driver's properties: size of each record and what answers it.

#include <cstddef>
#include <cstdint>

#include "model/camera_state.h"
#include "model/record.h"
#include "model/status.h"

namespace kolmsim {

/// One driver property.
struct PropertyRow {
    std::uint32_t id;
    std::size_t recordBytes;  ///< the only size that its record may have, data apart

    /// Where the record tells how many bytes of data follow it; 0 for a record without data.
    std::size_t dataBytesOffset = 0;

    /// Answers in place; the header and the size have been checked.
    Status (*answer)(CameraState& state, Record record) = nullptr;
};

/// The property with this id as the camera has it, or null where it lacks it.
[[nodiscard]] const PropertyRow* FindProperty(const CameraState& state, std::uint32_t id);

}  // namespace kolmsim
