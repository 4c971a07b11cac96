#include "model/correction.h"

#include <algorithm>
#include <bit>
#include <iterator>

#include "model/bits.h"
#include "model/feature_behavior.h"
#include "model/record.h"
#include "model/register_map.h"
#include "model/register_table.h"
#include "model/test_image.h"

namespace kolmsim {
namespace {

constexpr CorrectionRow kCorrections[] = {
    {.id = 30, .address = kShadingControl, .compute = 0x2000, .load = 0, .zero = 0, .save = 0, .error = 0x1000},
    {.id = 32, .address = kDsnuControl, .compute = 0x8000, .load = 0x100, .zero = 0x800, .save = 0, .error = 0x4000},
    {.id = 33,
     .address = kBlemishControl,
     .compute = 0x8000,
     .load = 0x100,
     .zero = 0x800,
     .save = 0x200,
     .error = 0x4000},
};

/// Fields that all three control registers share.
constexpr unsigned kError = 30;
constexpr unsigned kShowImage = 27;
constexpr unsigned kCompute = 26;
constexpr unsigned kOnOff = 25;
constexpr unsigned kBusy = 24;
constexpr unsigned kSaveData = 23;
constexpr unsigned kLoadData = 22;
constexpr unsigned kZeroData = 21;

/// What shading data looks like for a lens that darkens nothing.
constexpr std::uint8_t kEvenShading = 0x80;

constexpr std::uint32_t kShadingId = 30;

/// The stored word of a correction's register, which nothing else uses: 1 while it has no data.
std::uint32_t& DataIsGone(CameraState& state, const CorrectionRow& row) {
    return StoredWord(state, row.address);
}

const CorrectionRow& CorrectionAt(std::uint32_t address) {
    return *std::ranges::find(kCorrections, address, &CorrectionRow::address);
}

}  // namespace

const CorrectionRow* FindCorrection(std::uint32_t id) {
    const auto found = std::ranges::find(kCorrections, id, &CorrectionRow::id);
    return found != std::end(kCorrections) ? found : nullptr;
}

bool IsCorrectionCommand(const CorrectionRow& row, std::uint32_t word) {
    const std::uint32_t onOff = word & (kModeManual | kModeOff);
    const std::uint32_t command = word & (row.compute | row.load | row.zero | row.save);
    return std::has_single_bit(onOff) && std::popcount(command) <= 1 &&
           (word & ~(onOff | command | kModeShowImage)) == 0;
}

void RunCorrectionCommand(CameraState& state, const CorrectionRow& row, std::uint32_t word) {
    PropertyState& property = state.properties[row.id];
    const std::uint32_t lasting = word & (kModeManual | kModeOff | kModeShowImage);
    EnterMode(property, lasting);
    if ((word & (row.load | row.zero)) != 0) {
        DataIsGone(state, row) = (word & row.zero) != 0 ? 1 : 0;
    }
    if ((word & row.compute) == 0) {
        return;
    }
    if (CurrentTestImage(state) != 0) {
        property.At(kOffsetMode) = lasting | row.error;
    } else {
        property.At(kOffsetMode) = lasting | kModeBusy;
        property.onePushLooks = kOnePushLooks + 1;
    }
}

void PassCorrectionTime(CameraState& state, const CorrectionRow& row) {
    PropertyState& property = state.properties[row.id];
    std::uint32_t& mode = property.At(kOffsetMode);
    if (mode == kModeLoadData || mode == kModeSaveData || mode == kModeClearData) {
        if (mode != kModeSaveData) {
            DataIsGone(state, row) = mode == kModeClearData ? 1 : 0;
        }
        EnterMode(property, kModeManual);
    } else if (property.onePushLooks != 0 && --property.onePushLooks == 0) {
        mode &= ~kModeBusy;
        DataIsGone(state, row) = 0;
        if (row.id == kShadingId) {
            state.shadingMemory.fill(kEvenShading);
        }
    }
}

CorrectionStatus StatusOfCorrection(const CameraState& state, std::uint32_t id) {
    const CorrectionRow* row = FindCorrection(id);
    if (row == nullptr || state.properties[id].present == 0) {
        return {};
    }
    const std::uint32_t mode = state.properties[id].At(kOffsetMode);
    const bool hasData = StoredWord(state, row->address) == 0;
    return {
        .hasData = hasData, .corrects = hasData && (mode & kModeOff) == 0, .showsData = (mode & kModeShowImage) != 0};
}

std::uint32_t ReadCorrection(const CameraState& state, std::uint32_t address) {
    const CorrectionRow& row = CorrectionAt(address);
    const PropertyState& property = state.properties[row.id];
    const std::uint32_t mode = property.At(kOffsetMode);
    return BitIf(true, kPresence) | BitIf((mode & row.error) != 0, kError) |
           BitIf((mode & kModeShowImage) != 0, kShowImage) | BitIf((mode & kModeOff) == 0, kOnOff) |
           BitIf((mode & kModeBusy) != 0, kBusy) | Place(property.At(kOffsetValue), 7, 0);
}

void WriteCorrection(CameraState& state, std::uint32_t address, std::uint32_t word) {
    const CorrectionRow& row = CorrectionAt(address);
    if (const std::uint32_t pictures = Field(word, 7, 0); pictures != 0) {
        state.properties[row.id].At(kOffsetValue) = pictures;
    }
    std::uint32_t command = Bit(word, kOnOff) ? kModeManual : kModeOff;
    command |= Bit(word, kShowImage) ? kModeShowImage : 0;
    if (Bit(word, kCompute)) {
        command |= row.compute;
    } else if (Bit(word, kLoadData)) {
        command |= row.load;
    } else if (Bit(word, kZeroData)) {
        command |= row.zero;
    } else if (Bit(word, kSaveData)) {
        command |= row.save;
    }
    RunCorrectionCommand(state, row, command);
}

void LookAtCorrection(CameraState& state, std::uint32_t address) {
    LookAtFeature(state, CorrectionAt(address).id);
}

}  // namespace kolmsim
