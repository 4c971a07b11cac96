#include "model/camera.h"

#include <algorithm>

#include "model/feature_behavior.h"
#include "model/property_table.h"
#include "model/record.h"
#include "model/register_memory.h"

namespace kolmsim {
namespace {

bool IsRecordWord(std::uint32_t id, std::size_t offset) {
    return id < kPropertyIds && offset >= kHeaderBytes && offset < kFeatureRecordBytes && offset % 4 == 0;
}

}  // namespace

ContractCheck CheckHeader(std::span<const std::uint8_t> record) {
    if (record.size() < kHeaderBytes) {
        return {Status::insufficientBuffer, "record shorter than its header"};
    }
    if (!std::ranges::equal(record.first(kPropertySet.size()), kPropertySet)) {
        return {Status::setNotFound, "not the vendor property set"};
    }
    const std::uint32_t flags = ReadWord(record, kOffsetFlags);
    if (flags != static_cast<std::uint32_t>(Direction::get) && flags != static_cast<std::uint32_t>(Direction::set)) {
        return {Status::invalidParameter, "neither GET nor SET"};
    }
    return {};
}

ContractCheck Camera::Check(std::span<const std::uint8_t> record) const {
    if (const ContractCheck header = CheckHeader(record); header.status != Status::ok) {
        return header;
    }
    const PropertyRow* property = FindProperty(m_state, ReadWord(record, kOffsetId));
    if (property == nullptr) {
        return {Status::propertyNotFound, nullptr};  // asking is how a caller learns of it: no breach
    }
    if (record.size() < property->recordBytes) {
        return {Status::insufficientBuffer, "record too short for the property"};
    }
    if (record.size() > property->recordBytes) {
        return {Status::invalidParameter, "record too long for the property"};
    }
    return {};
}

Status Camera::Answer(std::span<std::uint8_t> bytes) {
    if (const ContractCheck check = Check(bytes); check.status != Status::ok) {
        return check.status;
    }
    const Record record(bytes);
    return FindProperty(m_state, record.Id())->answer(m_state, record);
}

std::optional<std::uint32_t> Camera::PropertyWord(std::uint32_t id, std::size_t offset) const {
    if (!IsRecordWord(id, offset)) {
        return std::nullopt;
    }
    return m_state.properties[id].At(offset);
}

bool Camera::SetPropertyWord(std::uint32_t id, std::size_t offset, std::uint32_t word) {
    if (!IsRecordWord(id, offset)) {
        return false;
    }
    PropertyState& property = m_state.properties[id];
    if (offset == kOffsetMode) {
        EnterMode(property, word);
    } else {
        property.At(offset) = word;
    }
    return true;
}

bool Camera::SetPropertyPresent(std::uint32_t id, bool present) {
    if (FindFeature(id) == nullptr) {
        return false;
    }
    m_state.properties[id].present = present ? 1 : 0;
    return true;
}

std::optional<std::uint32_t> Camera::Register(std::uint32_t address) const {
    const std::uint32_t* word = FindRegister(m_state, address);
    return word != nullptr ? std::optional(*word) : std::nullopt;
}

bool Camera::SetRegister(std::uint32_t address, std::uint32_t word) {
    std::uint32_t* target = FindRegister(m_state, address);
    if (target == nullptr) {
        return false;
    }
    *target = word;
    return true;
}

RenderSettings Camera::PictureSettings() const {
    constexpr std::uint32_t kGain = 0;
    constexpr std::uint32_t kBrightness = 4;
    constexpr std::uint32_t kShutter = 5;
    constexpr std::uint32_t kTimeBase = 6;
    constexpr std::uint32_t kGamma = 8;
    const auto value = [this](std::uint32_t id) { return m_state.properties[id].At(kOffsetValue); };

    return {
        .brightness = value(kBrightness),
        .gain = value(kGain),
        .exposureUs = std::uint64_t{value(kShutter)} * TimeBaseUs(value(kTimeBase)),
        .gammaOn = m_state.properties[kGamma].At(kOffsetMode) == kModeManual,
    };
}

}  // namespace kolmsim
