#include "model/feature_coupling.h"

#include <algorithm>

#include "model/feature_behavior.h"
#include "model/render_settings.h"

namespace kolmsim {
namespace {

constexpr std::uint32_t kWhiteBalanceUb = 1;
constexpr std::uint32_t kWhiteBalanceVr = 2;
constexpr std::uint32_t kShutter = 5;
constexpr std::uint32_t kTimeBase = 6;
constexpr std::uint32_t kExtendedShutter = 7;

/// The value nearest to `value` inside a property's range; the minimum where the range is empty.
std::uint32_t InRange(const PropertyState& property, std::uint64_t value) {
    const std::uint64_t min = property.At(kOffsetMin);
    const std::uint64_t max = property.At(kOffsetMax);
    return static_cast<std::uint32_t>(std::max(min, std::min(value, max)));
}

}  // namespace

void CoupleValue(CameraState& state, std::uint32_t id) {
    PropertyState& shutter = state.properties[kShutter];
    PropertyState& extended = state.properties[kExtendedShutter];
    const std::uint64_t unitUs = TimeBaseUs(state.properties[kTimeBase].At(kOffsetValue));

    if (id == kShutter || id == kTimeBase) {
        extended.At(kOffsetValue) = InRange(extended, shutter.At(kOffsetValue) * unitUs);
    } else if (id == kExtendedShutter) {
        shutter.At(kOffsetValue) = InRange(shutter, extended.At(kOffsetValue) / unitUs);
    }
}

void CoupleMode(CameraState& state, std::uint32_t id) {
    if (id == kWhiteBalanceUb || id == kWhiteBalanceVr) {
        const std::uint32_t other = kWhiteBalanceUb + kWhiteBalanceVr - id;
        EnterMode(state.properties[other], state.properties[id].At(kOffsetMode));
    }
}

}  // namespace kolmsim
