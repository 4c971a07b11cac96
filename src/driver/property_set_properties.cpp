/// @file  `IKolmFluxorPropertySet` on direct properties: one row of the property table and one line each.

#include "driver/property_set.h"
#include "driver/property_table.h"

namespace kolmfluxor {

// ---- Test images

HRESULT CKolmFluxorPropertySet::GetTestImage(ULONG* value) {
    return m_properties.Get(property::kTestImage, {value});
}

HRESULT CKolmFluxorPropertySet::SetTestImage(ULONG value) {
    return m_properties.Set(property::kTestImage, {value});
}

HRESULT CKolmFluxorPropertySet::GetTestImageInquiry(ULONG* value) {
    return m_properties.Get(property::kTestImageInquiry, {value});
}

// ---- Video modes and Format 7

HRESULT CKolmFluxorPropertySet::GetProperty12Value(ULONG* value) {
    return m_properties.Get(property::kProperty12, {value});
}

HRESULT CKolmFluxorPropertySet::GetFormat7Info(ULONG mode, ULONG* out1, ULONG* out2, ULONG* out3, ULONG* out4,
                                               ULONG* out5, ULONG* out6, ULONG* out7, ULONG* out8, ULONG* out9,
                                               ULONG* out10, ULONG* out11) {
    return m_properties.Get(property::kGetFormat7, {out1, out2, out3, out4, out5, out6, out7, out8, out9, out10, out11},
                            {mode});
}

HRESULT CKolmFluxorPropertySet::SetFormat7Info(ULONG mode, ULONG in1, ULONG in2, ULONG in3, ULONG in4, ULONG in5,
                                               ULONG in6, ULONG /*in7*/) {
    const HRESULT hr = SelectFormat7Mode(mode);
    if (FAILED(hr)) return hr;
    return m_properties.Set(property::kSetFormat7, {mode, in1, in2, in3, in4, in5, in6});
}

HRESULT CKolmFluxorPropertySet::SetProperty14(ULONG index) {
    return m_properties.Set(property::kProperty14, {index});
}

HRESULT CKolmFluxorPropertySet::GetProperty14(ULONG* index, ULONG* value) {
    return m_properties.Get(property::kProperty14, {index, value});
}

HRESULT CKolmFluxorPropertySet::SelectFormat7Mode(ULONG mode) {
    return m_properties.Set(property::kFormat7Mode, {mode});
}

HRESULT CKolmFluxorPropertySet::SetProperty16(ULONG value) {
    return m_properties.Set(property::kProperty16, {value});
}

HRESULT CKolmFluxorPropertySet::GetProperty16(ULONG* value) {
    return m_properties.Get(property::kProperty16, {value});
}

HRESULT CKolmFluxorPropertySet::SetProperty17(ULONG mode, ULONG in1, ULONG in2, ULONG in3, ULONG in4, ULONG in5,
                                              ULONG in6, ULONG in7, ULONG /*in8*/) {
    return m_properties.Set(property::kProperty17, {mode, in1, in2, in3, in4, in5, in6, in7});
}

HRESULT CKolmFluxorPropertySet::GetProperty18(ULONG mode, ULONG* out1, ULONG* out2) {
    if (out1 == nullptr || out2 == nullptr) return E_POINTER;
    const HRESULT hr = SelectFormat7Mode(mode);
    if (FAILED(hr)) return hr;
    return m_properties.Get(property::kProperty18, {out1, out2});
}

HRESULT CKolmFluxorPropertySet::CalculateProperty20(ULONG mode, ULONG in1, ULONG in2, ULONG in3, ULONG in4, ULONG in5,
                                                    ULONG* out1, ULONG* out2) {
    return m_properties.Set(property::kProperty20, {mode, in1, in2, in3, in4, in5}, {out1, out2});
}

// ---- Driver properties 24 to 30

HRESULT CKolmFluxorPropertySet::GetProperty24(ULONG* a, ULONG* b) {
    return m_properties.Get(property::kProperty24, {a, b});
}

HRESULT CKolmFluxorPropertySet::SetProperty24(ULONG a, ULONG b) {
    return m_properties.Set(property::kProperty24, {a, b});
}

HRESULT CKolmFluxorPropertySet::GetProperty25(ULONG* a, ULONG* b) {
    return m_properties.Get(property::kProperty25, {a, b});
}

HRESULT CKolmFluxorPropertySet::SetProperty25(ULONG a, ULONG b) {
    return m_properties.Set(property::kProperty25, {a, b});
}

HRESULT CKolmFluxorPropertySet::GetProperty26(ULONG* out1, ULONG* out2, ULONG* out3, ULONG* out4, ULONG* out5,
                                              ULONG* out6) {
    return m_properties.Get(property::kProperty26, {out1, out2, out3, out4, out5, out6});
}

HRESULT CKolmFluxorPropertySet::SetProperty26(ULONG in1, ULONG in2, ULONG in3, ULONG in4, ULONG in5, ULONG in6) {
    return m_properties.Set(property::kProperty26, {in1, in2, in3, in4, in5, in6});
}

HRESULT CKolmFluxorPropertySet::GetProperty28(ULONG* value) {
    return m_properties.Get(property::kProperty28, {value});
}

HRESULT CKolmFluxorPropertySet::ExecuteProperty28() {
    return m_properties.Set(property::kProperty28, {});
}

HRESULT CKolmFluxorPropertySet::ExecuteProperty29() {
    return m_properties.Set(property::kProperty29, {});
}

HRESULT CKolmFluxorPropertySet::GetProperty30(BOOL* f1, BOOL* f2, BOOL* f3, BOOL* f4, BOOL* f5, ULONG* value) {
    return m_properties.GetFlags(property::kProperty30, {f1, f2, f3, f4, f5}, {value});
}

HRESULT CKolmFluxorPropertySet::SetProperty30(BOOL on, BOOL f2, BOOL f3, ULONG /*ignored1*/, ULONG /*ignored2*/,
                                              ULONG value) {
    const ULONG word = (on ? flag::kOn : flag::kOff) | (f2 ? 0x80U : 0U) | (f3 ? 0x2000U : 0U);
    return m_properties.Set(property::kProperty30, {value, word});
}

// ---- Look-up table control

HRESULT CKolmFluxorPropertySet::GetLutControl(BOOL* on, ULONG* lutNumber, ULONG* numberOfLuts, ULONG* maxLutSize) {
    return m_properties.GetFlags(property::kLutControl, {on}, {lutNumber, numberOfLuts, maxLutSize});
}

HRESULT CKolmFluxorPropertySet::SetLutControl(ULONG on, ULONG lutNumber) {
    return m_properties.Set(property::kLutControl, {lutNumber, on ? flag::kOn : flag::kOff});
}

// ---- Driver properties 32 to 42

namespace {

/// The flag word that the setters of properties 32 and 33 send; each argument counts when exactly 1.
ULONG SwitchWord(BOOL on, BOOL f2, BOOL f3, BOOL f4, BOOL f5) {
    // Compatibility: getters report 0x4000 where these write 0x8000, 0x100 or 0x800. The driver works this way.
    const ULONG action = f3 == 1 ? 0x8000U : f4 == 1 ? 0x100U : f5 == 1 ? 0x800U : 0U;
    return (on == 1 ? flag::kOn : flag::kOff) | (f2 == 1 ? 0x80U : 0U) | action;
}

constexpr ULONG kLastIndexedProperty = 3;  // driver ids 34 to 37

}  // namespace

HRESULT CKolmFluxorPropertySet::SetProperty32(BOOL on, BOOL f2, BOOL f3, BOOL f4, BOOL f5, ULONG value) {
    return m_properties.Set(property::kProperty32, {value, SwitchWord(on, f2, f3, f4, f5)});
}

HRESULT CKolmFluxorPropertySet::GetProperty32(BOOL* f1, BOOL* f2, BOOL* f3, BOOL* f4, ULONG* value) {
    return m_properties.GetFlags(property::kProperty32, {f1, f2, f3, f4}, {value});
}

HRESULT CKolmFluxorPropertySet::SetProperty33(BOOL on, BOOL f2, BOOL f3, BOOL f4, BOOL f5, ULONG value) {
    return m_properties.Set(property::kProperty33, {value, SwitchWord(on, f2, f3, f4, f5)});
}

HRESULT CKolmFluxorPropertySet::GetProperty33(BOOL* f1, BOOL* f2, BOOL* f3, BOOL* f4, ULONG* value) {
    return m_properties.GetFlags(property::kProperty33, {f1, f2, f3, f4}, {value});
}

HRESULT CKolmFluxorPropertySet::SetProperty34(ULONG /*unused*/, ULONG value) {
    return m_properties.Set(property::kProperty34, {value});
}

HRESULT CKolmFluxorPropertySet::GetProperty34(BOOL* on, ULONG* value, ULONG* b) {
    return m_properties.GetFlags(property::kProperty34, {on}, {value, b});
}

HRESULT CKolmFluxorPropertySet::SetIndexedProperty34(ULONG index, ULONG value) {
    if (index > kLastIndexedProperty) return E_INVALIDARG;
    return m_properties.Set({.id = property::kProperty34.id + index, .in = {24}}, {value});
}

HRESULT CKolmFluxorPropertySet::GetIndexedProperty34(ULONG index, ULONG* value) {
    if (value == nullptr) return E_POINTER;
    if (index > kLastIndexedProperty) return E_INVALIDARG;
    return m_properties.Get({.id = property::kProperty34.id + index, .out = {24}}, {value});
}

HRESULT CKolmFluxorPropertySet::SetProperty39(ULONG /*unused*/, ULONG value) {
    return m_properties.Set(property::kProperty39, {value});
}

HRESULT CKolmFluxorPropertySet::GetProperty39(BOOL* on, ULONG* value) {
    return m_properties.GetFlags(property::kProperty39, {on}, {value});
}

HRESULT CKolmFluxorPropertySet::SetProperty40(ULONG /*unused*/, ULONG value) {
    return m_properties.Set(property::kProperty40, {value});
}

HRESULT CKolmFluxorPropertySet::GetProperty40(BOOL* on, ULONG* value) {
    return m_properties.GetFlags(property::kProperty40, {on}, {value});
}

HRESULT CKolmFluxorPropertySet::SetProperty41(ULONG /*unused*/, ULONG value) {
    return m_properties.Set(property::kProperty41, {value});
}

HRESULT CKolmFluxorPropertySet::GetProperty41(BOOL* on, ULONG* value) {
    return m_properties.GetFlags(property::kProperty41, {on}, {value});
}

HRESULT CKolmFluxorPropertySet::SetProperty42(ULONG /*unused1*/, ULONG /*unused2*/, ULONG /*unused3*/, ULONG value) {
    return m_properties.Set(property::kProperty42, {value});
}

HRESULT CKolmFluxorPropertySet::GetProperty42(BOOL* f1, BOOL* f2, BOOL* f3, ULONG* value, ULONG* b) {
    return m_properties.GetFlags(property::kProperty42, {f1, f2, f3}, {value, b});
}

// ---- Any property, and properties 51 and 52

HRESULT CKolmFluxorPropertySet::SetPropertyById(ULONG id, BOOL flagA, ULONG value, BOOL flagB) {
    const ULONG word = (flagA ? 0x10000U : 0U) | (flagB ? 0x20000U : 0U);
    return m_properties.Set(property::Any(id), {value, word});
}

HRESULT CKolmFluxorPropertySet::GetPropertyById(ULONG id, ULONG* a, ULONG* value, ULONG* b) {
    return m_properties.Get(property::Any(id), {a, value, b});
}

HRESULT CKolmFluxorPropertySet::GetProperty51(ULONG* value) {
    return m_properties.Get(property::kProperty51, {value});
}

HRESULT CKolmFluxorPropertySet::GetProperty52(ULONG selector, ULONG* out1, ULONG* out2, ULONG* out3, ULONG* out4) {
    return m_properties.Get(property::kProperty52, {out1, out2, out3, out4}, {selector});
}

// ---- Isochronous transfer, media types

HRESULT CKolmFluxorPropertySet::GetIsoSpeed(ULONG* value) {
    return m_properties.Get(property::kIsoSpeed, {value});
}

HRESULT CKolmFluxorPropertySet::GetIsoSpeedRange(ULONG* min, ULONG* max) {
    return m_properties.Get(property::kIsoSpeedRange, {min, max});
}

HRESULT CKolmFluxorPropertySet::SetIsoSpeed(ULONG value) {
    return m_properties.Set(property::kIsoSpeed, {value});
}

HRESULT CKolmFluxorPropertySet::GetProperty61(ULONG* value) {
    return m_properties.Get(property::kProperty61, {value});
}

HRESULT CKolmFluxorPropertySet::SetProperty61(ULONG value) {
    return m_properties.Set(property::kProperty61, {value});
}

}  // namespace kolmfluxor
