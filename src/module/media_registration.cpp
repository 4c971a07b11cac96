#include "module/media_registration.h"

#include <string>
#include <string_view>
#include <tuple>

#include <kolmfluxor/identifiers.h>

#include "base/errors.h"
#include "base/handles.h"
#include "module/class_table.h"
#include "module/guid_text.h"

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

/// The opened or new key; null when it can't be created.
UniqueRegistryKey CreateKey(const std::wstring& path) {
    HKEY key = nullptr;
    const LSTATUS status = ::RegCreateKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                                             KEY_ALL_ACCESS, nullptr, &key, nullptr);
    return UniqueRegistryKey(status == ERROR_SUCCESS ? key : nullptr);
}

/// Stores a key's default value without its NUL.
bool SetName(HKEY key, std::wstring_view name) {
    // The registry adds a NUL that stands right behind the counted bytes: let another character stand there.
    const std::wstring unterminated = std::wstring(name) + L'#';
    return ::RegSetValueExW(key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(unterminated.data()),
                            static_cast<DWORD>(name.size() * sizeof(wchar_t))) == ERROR_SUCCESS;
}

HRESULT RegisterPage(const CFactoryTemplate& page) {
    const UniqueRegistryKey key = CreateKey(PagesKey() + GuidText(*page.classId));
    // Compatibility: a page that can't be registered is skipped. The camera stays usable without its page.
    if (key == nullptr) return S_OK;
    return SetName(key.get(), page.name) ? S_OK : HResultFromLastError();
}

HRESULT RegisterMediaInterface() {
    const UniqueRegistryKey key = CreateKey(MediaInterfaceKey());
    HRESULT hr = key != nullptr ? S_OK : HResultFromLastError();

    // Compatibility: without the key both writes are tried all the same, on no handle, and fail.
    bool written = SetName(key.get(), ClassRow(CLSID_KolmFluxorPropertySet).name);
    if (!written) hr = HResultFromLastError();
    if (written || key == nullptr) {
        written = ::RegSetValueExW(key.get(), L"IID", 0, REG_BINARY,
                                   reinterpret_cast<const BYTE*>(&IID_IKolmFluxorPropertySet),
                                   sizeof IID_IKolmFluxorPropertySet) == ERROR_SUCCESS;
        if (!written) hr = HResultFromLastError();
    }
    return hr;
}

HRESULT DeleteKey(const std::wstring& path) {
    return ::RegDeleteKeyW(HKEY_LOCAL_MACHINE, path.c_str()) == ERROR_SUCCESS ? S_OK : HResultFromLastError();
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
        if (const HRESULT hr = DeleteKey(key); hr != S_OK) return hr;
    }
    return S_OK;
}

}  // namespace kolmfluxor
