#include "model/camera.h"

#include <algorithm>

#include "model/feature_behavior.h"
#include "model/feature_coupling.h"
#include "model/picture_settings.h"
#include "model/property_table.h"
#include "model/record.h"
#include "model/register_map.h"
#include "model/register_memory.h"
#include "model/register_table.h"
#include "model/trigger.h"

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
    const std::size_t dataBytes = property->dataBytesOffset != 0 ? ReadWord(record, property->dataBytesOffset) : 0;
    const std::size_t bytesBehind = record.size() - property->recordBytes;
    if (bytesBehind < dataBytes) {
        return {Status::insufficientBuffer, "record too short for the data that it announces"};
    }
    if (bytesBehind > dataBytes) {
        return {Status::invalidParameter, "record too long for the property"};
    }
    return {};
}

Status Camera::Answer(std::span<std::uint8_t> record) {
    if (const ContractCheck check = Check(record); check.status != Status::ok) {
        return check.status;
    }
    const Record fields(record);
    return FindProperty(m_state, fields.Id())->answer(m_state, fields);
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
    if (offset == kOffsetValue) {
        CoupleValue(m_state, id);
    }
    return true;
}

bool Camera::SetPropertyPresent(std::uint32_t id, bool present) {
    if (FindFeature(id) == nullptr && id != kTriggerProperty) {
        return false;
    }
    m_state.properties[id].present = present ? 1 : 0;
    return true;
}

std::optional<std::uint32_t> Camera::Register(std::uint32_t address) const {
    return ReadRegister(m_state, address);
}

bool Camera::SetRegister(std::uint32_t address, std::uint32_t word) {
    return ForceRegister(m_state, address, word);
}

std::span<const std::uint8_t> Camera::Lut(std::uint32_t number) const {
    return number < m_state.lutMemory.size() ? std::span<const std::uint8_t>(m_state.lutMemory[number])
                                             : std::span<const std::uint8_t>();
}

void Camera::CountPicture() {
    ++StoredWord(m_state, kFrameCounter);
}

RenderSettings Camera::PictureSettings() const {
    return SettingsOf(m_state);
}

}  // namespace kolmsim
