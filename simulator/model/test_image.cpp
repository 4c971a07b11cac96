#include "model/test_image.h"

#include <bit>
#include <tuple>

#include "model/bits.h"
#include "model/feature_behavior.h"
#include "model/register_map.h"

namespace kolmsim {
namespace {

constexpr std::uint32_t kId = 3;
constexpr std::size_t kOffsetMask = kOffsetModeCaps;

bool Select(CameraState& state, std::uint32_t number) {
    PropertyState& property = state.properties[kId];
    if (number > 32 || (number != 0 && !Bit(property.At(kOffsetMask), number - 1))) {
        return false;
    }
    property.At(kOffsetValue) = number;
    return true;
}

}  // namespace

std::uint32_t CurrentTestImage(const CameraState& state) {
    return state.properties[kId].At(kOffsetValue);
}

Status AnswerTestImage(CameraState& state, Record record) {
    if (record.IsSet() && !Select(state, record.Word(kOffsetValue))) {
        return Status::invalidParameter;
    }
    FillFromProperty(state.properties[kId], record);
    return Status::ok;
}

std::uint32_t ReadTestImage(const CameraState& state, std::uint32_t /*address*/) {
    // Image 1 is the lowest bit of the mask and the highest of the register's field, b23 to b17.
    const std::uint32_t mask = state.properties[kId].At(kOffsetMask);
    std::uint32_t inquiry = 0;
    for (unsigned image = 0; image < 7; ++image) {
        inquiry |= BitIf(Bit(mask, image), 23 - image);
    }
    return BitIf(true, kPresence) | inquiry | Place(CurrentTestImage(state), 3, 0);
}

void WriteTestImage(CameraState& state, std::uint32_t /*address*/, std::uint32_t word) {
    std::ignore = Select(state, Field(word, 3, 0));
}

void ResetTestImage(CameraState& state) {
    PropertyState& property = state.properties[kId];
    property.present = 1;
    property.At(kOffsetMask) = kTestImages;
    property.At(kOffsetMax) = static_cast<std::uint32_t>(std::bit_width(kTestImages));
}

}  // namespace kolmsim
