#pragma once
/// @file  The few camera registers that the property-set object itself uses, with their fields.
///
/// Addresses are the low 32 bits of the 1394 address above 0xFFFF 0000 0000. No Windows header.

#include <cstdint>

#include "base/bit_field.h"

namespace kolmfluxor::camera_register {

inline constexpr std::uint32_t kKolmVesrionInfo1 = 0xF1000010;  // spelled as in the catalogue
inline constexpr std::uint32_t kKolmVersionInfo3 = 0xF1000018;
inline constexpr std::uint32_t kKolmAdvInq1 = 0xF1000040;

/// Look-up tables.
inline constexpr std::uint32_t kKolmLUTCtrl = 0xF1000240;
inline constexpr std::uint32_t kKolmLUTMemCtrl = 0xF1000244;
inline constexpr std::uint32_t kKolmLUTInfo = 0xF1000248;

namespace lut_mem_ctrl {
inline constexpr BitRange kEnableMemWr{26, 26};
inline constexpr BitRange kLutNr{23, 16};
inline constexpr BitRange kAddressOffset{15, 0};
}  // namespace lut_mem_ctrl

namespace lut_info {
inline constexpr BitRange kBitsPerValue{28, 24};
inline constexpr BitRange kNumberOfLuts{23, 16};
inline constexpr BitRange kMaxLutSize{15, 0};  // in bytes
}  // namespace lut_info

/// Shading images.
inline constexpr std::uint32_t kKolmShadingMemCtrl = 0xF1000254;
inline constexpr std::uint32_t kKolmShadingInfo = 0xF1000258;

namespace shading_mem_ctrl {
inline constexpr BitRange kEnableMemWrite{26, 26};
inline constexpr BitRange kAddressOffset{23, 0};
}  // namespace shading_mem_ctrl

namespace shading_info {
inline constexpr BitRange kMaxMemChannel{27, 24};
inline constexpr BitRange kMaxImageSize{23, 0};  // in bytes
}  // namespace shading_info

/// The general-purpose buffer, the camera's door for blocks of data.
inline constexpr std::uint32_t kGpBufferInfo = 0xF1000FFC;
inline constexpr std::uint32_t kGpBuffer = 0xF1001000;

namespace gp_buffer_info {
inline constexpr BitRange kBufferSize{15, 0};  // in bytes
}  // namespace gp_buffer_info

}  // namespace kolmfluxor::camera_register
