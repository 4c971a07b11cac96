/// @file  `IKolmFluxorPropertySet` on what takes more than one line: information, registers, uploads, trigger, types.

#include <algorithm>
#include <array>
#include <tuple>

#include "base/handles.h"
#include "driver/camera_info.h"
#include "driver/camera_registers.h"
#include "driver/gp_buffer_upload.h"
#include "driver/media_type_properties.h"
#include "driver/property_set.h"
#include "driver/property_table.h"

namespace kolmfluxor {

// ---- Camera information

HRESULT CKolmFluxorPropertySet::GetCameraInfo(char** text1, char** text2, char** text3, ULONG* number) {
    return ReadCameraInfo(m_transport, {text1, text2, text3}, number);
}

HRESULT CKolmFluxorPropertySet::GetCameraInfoEx(char** text1, char** text2, char** text3, ULONG* number,
                                                char** version1, char** version2) {
    if (text1 == nullptr || text2 == nullptr || text3 == nullptr || number == nullptr || version1 == nullptr ||
        version2 == nullptr)
        return E_POINTER;
    const HRESULT info = ReadCameraInfo(m_transport, {text1, text2, text3}, number);

    ULONG first = 0;
    ULONG second = 0;
    const HRESULT hr = m_properties.Get(property::kDriverVersion, {&first, &second});
    if (FAILED(hr)) return hr;
    UniqueCoTaskMem<char> firstText(NewVersionText(first));
    UniqueCoTaskMem<char> secondText(NewVersionText(second));
    if (firstText == nullptr || secondText == nullptr) return E_OUTOFMEMORY;
    *version1 = firstText.release();
    *version2 = secondText.release();
    return info;
}

HRESULT CKolmFluxorPropertySet::Reserved30() {
    return E_NOTIMPL;
}

HRESULT CKolmFluxorPropertySet::GetProperty10Block(ULONG* out1, ULONG* out2, ULONG* out3, ULONG* out4, ULONG* out5,
                                                   ULONG* out6, ULONG* out7, ULONG* out8, ULONG* out9, ULONG* out10,
                                                   ULONG* out11, ULONG* out12, ULONG* out13) {
    const std::array<ULONG*, 13> outputs = {out1, out2, out3,  out4,  out5,  out6, out7,
                                            out8, out9, out10, out11, out12, out13};
    if (std::ranges::find(outputs, nullptr) != outputs.end()) return E_POINTER;

    std::array<ULONG, 7> w{};
    if (SUCCEEDED(m_properties.Get(property::kProperty10, {&w[0], &w[1], &w[2], &w[3], &w[4], &w[5], &w[6]}))) {
        for (std::size_t i = 0; i < 12; ++i)
            *outputs[i] = w[i % 6];
        *out13 = w[6];
    }
    // Compatibility: never a success, whatever came back. Callers do not look at the result.
    return E_NOTIMPL;
}

// ---- Registers and blocks

HRESULT CKolmFluxorPropertySet::ReadRegister(ULONG address, ULONG* value) {
    return m_registers.Read(address, value);
}

HRESULT CKolmFluxorPropertySet::WriteRegister(ULONG address, ULONG value) {
    return m_registers.Write(address, value);
}

HRESULT CKolmFluxorPropertySet::WriteBlock(ULONG address, const void* data, ULONG quadlets, ULONG elementBits,
                                           ULONG mode) {
    return m_registers.WriteBlock(address, data, quadlets, elementBits, mode);
}

HRESULT CKolmFluxorPropertySet::ReadBlock(ULONG address, void* data, ULONG quadlets, ULONG /*elementBits*/, ULONG mode,
                                          ULONG flag) {
    return m_registers.ReadBlock(address, data, quadlets, mode, flag);
}

// ---- Uploads through the GP buffer

HRESULT CKolmFluxorPropertySet::GetRegisterComposite72(ULONG* a, ULONG* b) {
    return ReadShadingInfo(m_registers, a, b);
}

HRESULT CKolmFluxorPropertySet::SetRegisterComposite73(ULONG* a, ULONG b) {
    return UploadShading(m_registers, a, b);
}

HRESULT CKolmFluxorPropertySet::UploadLut(const ULONG* data, ULONG quadlets, ULONG lutNumber) {
    return kolmfluxor::UploadLut(m_registers, data, quadlets, lutNumber);
}

// ---- Information that takes several registers

HRESULT CKolmFluxorPropertySet::GetProperty56Composite(ULONG selector, ULONG* value) {
    if (value == nullptr) return E_POINTER;
    ULONG features = 0;
    ULONG version1 = 0;
    ULONG version3 = 0;
    std::ignore = m_registers.Read(camera_register::kKolmAdvInq1, &features);  // a failure leaves all ones
    std::ignore = m_registers.Read(camera_register::kKolmVesrionInfo1, &version1);
    std::ignore = m_registers.Read(camera_register::kKolmVersionInfo3, &version3);
    return m_properties.Get(property::kProperty56, {value}, {selector, features, version1, version3});
}

// ---- Trigger

namespace trigger {

constexpr ULONG kOn = 0x20;
constexpr ULONG kPolarity = 0x40;
constexpr ULONG kValue = 0x80;
/// Modes 0 to 5, 14 and 15.
constexpr ULONG kModes[] = {0x10000, 0x20000, 0x40000, 0x80000, 0x100000, 0x200000, 0x40000000, 0x80000000};

}  // namespace trigger

HRESULT CKolmFluxorPropertySet::GetTriggerInquiry(ULONG* value) {
    if (value == nullptr) return E_POINTER;
    *value = 0;
    ULONG inquiry = 0;
    const HRESULT hr = m_properties.Get(property::kTrigger, {&inquiry});
    if (SUCCEEDED(hr)) *value = inquiry;
    return hr;
}

HRESULT CKolmFluxorPropertySet::GetTrigger(ULONG* mode, ULONG* on, ULONG* polarity, ULONG* valueFlag) {
    ULONG inquiry = 0;
    ULONG state = 0;
    const HRESULT hr = m_properties.Get(property::kTrigger, {&inquiry, &state});
    if (FAILED(hr)) return hr;

    const ULONG both = inquiry & state;  // a capability counts only where the camera has it and has it on
    if (on != nullptr) *on = (inquiry & ~state & trigger::kOn) != 0 ? 0 : 1;
    if (polarity != nullptr) *polarity = (both & trigger::kPolarity) != 0 ? 1 : 0;
    if (valueFlag != nullptr) *valueFlag = (both & trigger::kValue) != 0 ? 1 : 0;
    if (mode != nullptr) {
        for (const ULONG mask : trigger::kModes) {
            if ((both & mask) == 0) continue;
            *mode = mask;
            break;
        }
    }
    return hr;
}

HRESULT CKolmFluxorPropertySet::SetTrigger(ULONG mode, ULONG on, ULONG polarity, ULONG parameter) {
    const ULONG state = mode | (on == 1 ? trigger::kOn : 0) | (polarity == 1 ? trigger::kPolarity : 0);
    return m_properties.Set(property::kTrigger, {parameter, state});
}

// ---- Media types

HRESULT CKolmFluxorPropertySet::ApplyMediaTypeComposite(IUnknown* pin, AM_MEDIA_TYPE* mt,
                                                        VIDEO_STREAM_CONFIG_CAPS* caps) {
    return ApplyMediaType(m_properties, pin, mt, caps);
}

HRESULT CKolmFluxorPropertySet::GetImagePositionForMediaType(ULONG* a, ULONG* b, AM_MEDIA_TYPE* mt) {
    return GetImagePosition(m_properties, a, b, mt);
}

HRESULT CKolmFluxorPropertySet::SetImagePositionForMediaType(ULONG a, ULONG b, AM_MEDIA_TYPE* mt) {
    return SetImagePosition(m_properties, a, b, mt);
}

}  // namespace kolmfluxor
