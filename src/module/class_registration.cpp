#include "module/class_registration.h"

#include <array>
#include <string>
#include <tuple>

#include <strmif.h>
#include <uuids.h>

#include <wrl/client.h>

#include "base/errors.h"
#include "base/guid_text.h"
#include "base/handles.h"
#include "base/module_state.h"

namespace kolmfluxor {
namespace {

std::string Narrow(const std::wstring& text) {
    const int size =
        ::WideCharToMultiByte(CP_ACP, 0, text.data(), static_cast<int>(text.size()), nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(size), '\0');
    ::WideCharToMultiByte(CP_ACP, 0, text.data(), static_cast<int>(text.size()), narrow.data(), size, nullptr, nullptr);
    return narrow;
}

/// The key of a class below HKEY_CLASSES_ROOT.
std::wstring ClassKey(REFCLSID classId) {
    return L"CLSID\\" + GuidText(classId);
}

/// The module's file path; a path that does not fit the customary 260 characters is a failure.
HRESULT ModulePath(std::string& path) {
    std::array<char, MAX_PATH> buffer{};
    const DWORD length = ::GetModuleFileNameA(ModuleInstance(), buffer.data(), static_cast<DWORD>(buffer.size()));
    if (length == 0) return HResultFromLastError();
    if (length >= buffer.size()) return HResultFromWin32(ERROR_INSUFFICIENT_BUFFER);
    path.assign(buffer.data(), length);
    return S_OK;
}

LSTATUS CreateKey(HKEY parent, const std::string& name, UniqueRegistryKey& key) {
    HKEY created = nullptr;
    const LSTATUS status = ::RegCreateKeyExA(parent, name.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS,
                                             nullptr, &created, nullptr);
    if (status == ERROR_SUCCESS) key.reset(created);
    return status;
}

/// @param name  null for the key's default value
LSTATUS SetText(const UniqueRegistryKey& key, const char* name, const std::string& text) {
    return ::RegSetValueExA(key.get(), name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                            static_cast<DWORD>(text.size() + 1));
}

LSTATUS RegisterClass(const CFactoryTemplate& row, const std::string& modulePath) {
    UniqueRegistryKey classKey;
    UniqueRegistryKey serverKey;
    LSTATUS status = CreateKey(HKEY_CLASSES_ROOT, Narrow(ClassKey(*row.classId)), classKey);
    if (status == ERROR_SUCCESS) status = SetText(classKey, nullptr, Narrow(row.name));
    if (status == ERROR_SUCCESS) status = CreateKey(classKey.get(), "InprocServer32", serverKey);
    if (status == ERROR_SUCCESS) status = SetText(serverKey, nullptr, modulePath);
    if (status == ERROR_SUCCESS) status = SetText(serverKey, "ThreadingModel", "Both");
    return status;
}

/// Deletes a key depth first and tells whether it went; one that can't be opened or deleted is left behind.
///
/// Wide functions: a foreign subkey may have a name outside the ANSI code page, which could be listed but not opened.
bool DeleteKeyTree(HKEY parent, const wchar_t* name) {
    HKEY opened = nullptr;
    if (::RegOpenKeyExW(parent, name, 0, KEY_ALL_ACCESS, &opened) != ERROR_SUCCESS) return false;
    UniqueRegistryKey key(opened);

    DWORD leftBehind = 0;  // these come first when the subkeys are counted
    for (;;) {
        std::array<wchar_t, MAX_PATH> subkey{};
        auto length = static_cast<DWORD>(subkey.size());
        if (::RegEnumKeyExW(key.get(), leftBehind, subkey.data(), &length, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS)
            break;
        if (!DeleteKeyTree(key.get(), subkey.data())) ++leftBehind;
    }
    key.reset();
    return ::RegDeleteKeyW(parent, name) == ERROR_SUCCESS;
}

/// Creates the filter mapper, the newer one or else the older, and lets it go again.
///
/// No class here is a filter of its own, so there is nothing to tell it; a machine without one has no DirectShow.
HRESULT RequireFilterMapper() {
    const bool initialized = SUCCEEDED(::CoInitialize(nullptr));
    const ScopeExit uninitialize([&] {
        ::CoFreeUnusedLibraries();
        if (initialized) ::CoUninitialize();
    });
    Microsoft::WRL::ComPtr<IUnknown> mapper;
    HRESULT hr = ::CoCreateInstance(CLSID_FilterMapper2, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IFilterMapper2),
                                    reinterpret_cast<void**>(mapper.ReleaseAndGetAddressOf()));
    if (FAILED(hr)) {
        hr = ::CoCreateInstance(CLSID_FilterMapper, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IFilterMapper),
                                reinterpret_cast<void**>(mapper.ReleaseAndGetAddressOf()));
    }
    mapper.Reset();
    return FAILED(hr) ? hr : S_OK;
}

}  // namespace

HRESULT RegisterClasses(std::span<const CFactoryTemplate> classes) {
    std::string path;
    if (const HRESULT hr = ModulePath(path); FAILED(hr)) return hr;
    for (const CFactoryTemplate& row : classes) {
        if (const LSTATUS status = RegisterClass(row, path); status != ERROR_SUCCESS) return HResultFromWin32(status);
    }
    return RequireFilterMapper();
}

HRESULT UnregisterClasses(std::span<const CFactoryTemplate> classes) {
    std::string path;
    if (const HRESULT hr = ModulePath(path); FAILED(hr)) return hr;
    if (const HRESULT hr = RequireFilterMapper(); FAILED(hr)) return hr;
    for (const CFactoryTemplate& row : classes) {
        std::ignore = DeleteKeyTree(HKEY_CLASSES_ROOT, ClassKey(*row.classId).c_str());  // gone already, or it stays
    }
    return S_OK;
}

}  // namespace kolmfluxor
