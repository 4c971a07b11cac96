#pragma once
/// @file  Every GUID of KolmFluxor: the vendor property set, the ten creatable classes, the two interfaces, the type
/// library.

#include <guiddef.h>

namespace kolmfluxor {

/// {BE226229-D865-4F2E-AB89-13F359E8F46A}  The vendor property set.
///
/// One value in three roles that must stay identical: the kernel-streaming property set that every driver request
/// names, the interface id of `IKolmFluxorPropertySet`, and the class id of `CKolmFluxorPropertySet`.
inline constexpr GUID PROPSETID_KolmFluxor = {
    0xBE226229, 0xD865, 0x4F2E, {0xAB, 0x89, 0x13, 0xF3, 0x59, 0xE8, 0xF4, 0x6A}};

/// The vendor property set in its role as an interface id.
inline constexpr const IID& IID_IKolmFluxorPropertySet = PROPSETID_KolmFluxor;

/// The interface's name, as logs and type information show it.
inline constexpr wchar_t kPropertySetInterfaceName[] = L"IKolmFluxorPropertySet";

/// The vendor property set in its role as a class id: the object that the kernel-streaming proxy aggregates.
inline constexpr const CLSID& CLSID_KolmFluxorPropertySet = PROPSETID_KolmFluxor;

/// {48AB0603-9373-4E62-BA8A-A2DBF6CD38ED}  The still-image interface.
inline constexpr IID IID_IKolmStillImage = {
    0x48AB0603, 0x9373, 0x4E62, {0xBA, 0x8A, 0xA2, 0xDB, 0xF6, 0xCD, 0x38, 0xED}};

/// {A918C124-11AA-4F1B-863B-D677A3FF51C9}  The still-image grabber.
inline constexpr CLSID CLSID_KolmStillImage = {
    0xA918C124, 0x11AA, 0x4F1B, {0x86, 0x3B, 0xD6, 0x77, 0xA3, 0xFF, 0x51, 0xC9}};

/// {CE276B19-CC72-472D-8B2E-25486BFC3C1D}  Property page "Color".
inline constexpr CLSID CLSID_KolmFluxorPage_Color = {
    0xCE276B19, 0xCC72, 0x472D, {0x8B, 0x2E, 0x25, 0x48, 0x6B, 0xFC, 0x3C, 0x1D}};

/// {B06116DA-98BA-476B-9B26-1D4D46416A75}  Property page "Trigger".
inline constexpr CLSID CLSID_KolmFluxorPage_Trigger = {
    0xB06116DA, 0x98BA, 0x476B, {0x9B, 0x26, 0x1D, 0x4D, 0x46, 0x41, 0x6A, 0x75}};

/// {C1266BEE-5A52-433B-9C29-7F64EB5EAA44}  Property page "Info".
inline constexpr CLSID CLSID_KolmFluxorPage_Info = {
    0xC1266BEE, 0x5A52, 0x433B, {0x9C, 0x29, 0x7F, 0x64, 0xEB, 0x5E, 0xAA, 0x44}};

/// {6A890ED5-28D7-4C52-9EBE-57E4B2C4ED2F}  Property page "Format".
inline constexpr CLSID CLSID_KolmFluxorPage_Format = {
    0x6A890ED5, 0x28D7, 0x4C52, {0x9E, 0xBE, 0x57, 0xE4, 0xB2, 0xC4, 0xED, 0x2F}};

/// {C5DF43B3-0F1C-4A35-BABF-6D9040B127C2}  Property page "Exposure".
inline constexpr CLSID CLSID_KolmFluxorPage_Exposure = {
    0xC5DF43B3, 0x0F1C, 0x4A35, {0xBA, 0xBF, 0x6D, 0x90, 0x40, 0xB1, 0x27, 0xC2}};

/// {060BAF79-3243-4CA7-968A-3E03AC700749}  Property page "Direct access".
inline constexpr CLSID CLSID_KolmFluxorPage_DirectAccess = {
    0x060BAF79, 0x3243, 0x4CA7, {0x96, 0x8A, 0x3E, 0x03, 0xAC, 0x70, 0x07, 0x49}};

/// {AA5B8CE1-6548-44E2-B0A6-1800C33F48A0}  Property page "Smart feat. 1".
inline constexpr CLSID CLSID_KolmFluxorPage_Smart01 = {
    0xAA5B8CE1, 0x6548, 0x44E2, {0xB0, 0xA6, 0x18, 0x00, 0xC3, 0x3F, 0x48, 0xA0}};

/// {970F6EA8-4BF6-4347-9231-A36AA09BA754}  Property page "LUT".
inline constexpr CLSID CLSID_KolmFluxorPage_Lut = {
    0x970F6EA8, 0x4BF6, 0x4347, {0x92, 0x31, 0xA3, 0x6A, 0xA0, 0x9B, 0xA7, 0x54}};

/// {F13AE5F4-AEFC-4E7D-8AC1-BF9C96FE9CF3}  The type library: both interfaces for clients that bind early.
inline constexpr GUID LIBID_KolmFluxor = {0xF13AE5F4, 0xAEFC, 0x4E7D, {0x8A, 0xC1, 0xBF, 0x9C, 0x96, 0xFE, 0x9C, 0xF3}};

/// Version of the type library, not of the module: it changes only when something is added to the library.
inline constexpr unsigned short kTypeLibraryMajor = 1;
inline constexpr unsigned short kTypeLibraryMinor = 0;

}  // namespace kolmfluxor
