#include "module/media_registration.h"

#include <string>
#include <string_view>
#include <tuple>

#include <kolmfluxor/identifiers.h>

#include "base/errors.h"
#include "base/guid_text.h"
#include "base/handles.h"
#include "module/class_table.h"

namespace kolmfluxor {
namespace {

constexpr const CLSID* kRegistrationOrder[] = {
    &CLSID_KolmFluxorPage_Exposure,     &CLSID_KolmFluxorPage_Format, &CLSID_KolmFluxorPage_Color,
    &CLSID_KolmFluxorPage_Trigger,      &CLSID_KolmFluxorPage_Info,   &CLSID_KolmFluxorPage_Smart01,
    &CLSID_KolmFluxorPage_DirectAccess, &CLSID_KolmFluxorPage_Lut,
};

constexpr const CLSID* kUnregistrationOrder[] = {
    &CLSID_KolmFluxorPage_Color,   &CLSID_KolmFluxorPage_Trigger,  &CLSID_KolmFluxorPage_Info,
    &CLSID_KolmFluxorPage_Format,  &CLSID_KolmFluxorPage_Exposure, &CLSID_KolmFluxorPage_DirectAccess,
    &CLSID_KolmFluxorPage_Smart01, &CLSID_KolmFluxorPage_Lut,
};

constexpr wchar_t kMediaInterfaces[] = L"System\\CurrentControlSet\\Control\\MediaInterfaces\\";
constexpr wchar_t kMediaSets[] = L"System\\CurrentControlSet\\Control\\MediaSets\\";

std::wstring MediaInterfaceKey() {
    return kMediaInterfaces + GuidText(PROPSETID_KolmFluxor);
}

std::wstring MediaSetKey() {
    return kMediaSets + GuidText(PROPSETID_KolmFluxor);
}

std::wstring PagesKey() {
    return MediaSetKey() + L"\\PropertyPages\\";
}

// Compatibility: a failed registry call is reported as the thread's last error, not as the call's own result. Registry
// functions leave the last error alone, so whether a call failed must be told by its own result all the same.

/// Opens or creates a key.
///
/// @param key  null after a failure
/// @return  `S_OK`, or the last error when the call failed
HRESULT CreateKey(const std::wstring& path, UniqueRegistryKey& key) {
    HKEY created = nullptr;
    const LSTATUS status = ::RegCreateKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                                             KEY_ALL_ACCESS, nullptr, &created, nullptr);
    if (status != ERROR_SUCCESS) return HResultFromLastError();
    key.reset(created);
    return S_OK;
}

/// Stores a value. @param hr  set to the last error when the call failed, left alone else
/// @return  whether it was stored
bool SetValue(HKEY key, const wchar_t* name, DWORD type, const void* bytes, std::size_t size, HRESULT* hr) {
    const LSTATUS status =
        ::RegSetValueExW(key, name, 0, type, static_cast<const BYTE*>(bytes), static_cast<DWORD>(size));
    if (status != ERROR_SUCCESS) *hr = HResultFromLastError();
    return status == ERROR_SUCCESS;
}

/// Stores a key's default value without its NUL; as `SetValue`.
bool SetName(HKEY key, std::wstring_view name, HRESULT* hr) {
    // The registry adds a NUL that stands right behind the counted bytes: let another character stand there.
    const std::wstring unterminated = std::wstring(name) + L'#';
    return SetValue(key, nullptr, REG_SZ, unterminated.data(), name.size() * sizeof(wchar_t), hr);
}

HRESULT RegisterPage(const CFactoryTemplate& page) {
    UniqueRegistryKey key;
    std::ignore = CreateKey(PagesKey() + GuidText(*page.classId), key);
    // Compatibility: a page that can't be registered is skipped. The camera stays usable without its page.
    if (key == nullptr) return S_OK;
    HRESULT hr = S_OK;
    SetName(key.get(), page.name, &hr);
    return hr;
}

HRESULT RegisterMediaInterface() {
    UniqueRegistryKey key;
    HRESULT hr = CreateKey(MediaInterfaceKey(), key);
    // Compatibility: without the key both writes are tried all the same, on no handle, and fail.
    const bool named = SetName(key.get(), ClassRow(CLSID_KolmFluxorPropertySet).name, &hr);
    if (named || key == nullptr) {
        SetValue(key.get(), L"IID", REG_BINARY, &IID_IKolmFluxorPropertySet, sizeof IID_IKolmFluxorPropertySet, &hr);
    }
    return hr;
}

bool DeleteKey(const std::wstring& path) {
    return ::RegDeleteKeyW(HKEY_LOCAL_MACHINE, path.c_str()) == ERROR_SUCCESS;
}

}  // namespace

HRESULT RegisterMediaInterfaces() {
    for (const CLSID* page : kRegistrationOrder) {
        if (const HRESULT hr = RegisterPage(ClassRow(*page)); hr != S_OK) return hr;
    }
    return RegisterMediaInterface();
}

HRESULT UnregisterMediaInterfaces() {
    for (const CLSID* page : kUnregistrationOrder) {
        std::ignore = DeleteKey(PagesKey() + GuidText(*page));
    }
    for (const std::wstring& key : {PagesKey(), MediaSetKey(), MediaInterfaceKey()}) {
        if (!DeleteKey(key)) return HResultFromLastError();
    }
    return S_OK;
}

}  // namespace kolmfluxor
