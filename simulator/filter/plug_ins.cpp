#include "filter/plug_ins.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "base/guid_text.h"
#include "base/handles.h"

namespace kolmsim {
namespace {

using kolmfluxor::GuidText;
using kolmfluxor::UniqueRegistryKey;
using Microsoft::WRL::ComPtr;

constexpr wchar_t kMediaInterfaces[] = L"System\\CurrentControlSet\\Control\\MediaInterfaces\\";
constexpr wchar_t kMediaSets[] = L"System\\CurrentControlSet\\Control\\MediaSets\\";

UniqueRegistryKey OpenKey(const std::wstring& path) {
    HKEY key = nullptr;
    return UniqueRegistryKey(
        ::RegOpenKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, KEY_READ, &key) == ERROR_SUCCESS ? key : nullptr);
}

/// Whether the key names an interface: a value "IID" with the 16 bytes of a GUID.
bool NamesInterface(HKEY key) {
    GUID interfaceId{};
    DWORD size = sizeof interfaceId;
    DWORD type = REG_NONE;
    const LSTATUS status =
        ::RegQueryValueExW(key, L"IID", nullptr, &type, reinterpret_cast<BYTE*>(&interfaceId), &size);
    return status == ERROR_SUCCESS && type == REG_BINARY && size == sizeof interfaceId;
}

}  // namespace

void PlugIns::Load(IUnknown* outer, REFGUID propertySet) {
    const UniqueRegistryKey key = OpenKey(kMediaInterfaces + GuidText(propertySet));
    if (key == nullptr || !NamesInterface(key.get())) {
        return;
    }
    ComPtr<IUnknown> inner;
    const HRESULT hr = ::CoCreateInstance(propertySet, outer, CLSCTX_INPROC_SERVER, IID_IUnknown,
                                          reinterpret_cast<void**>(inner.GetAddressOf()));
    if (hr == S_OK && inner != nullptr) {
        m_inner.push_back(std::move(inner));
    }
}

HRESULT PlugIns::Query(REFIID riid, void** out) const {
    for (const ComPtr<IUnknown>& inner : m_inner) {
        if (const HRESULT hr = inner->QueryInterface(riid, out); SUCCEEDED(hr)) {
            return hr;
        }
    }
    *out = nullptr;
    return E_NOINTERFACE;
}

std::vector<GUID> PlugIns::Pages() const {
    std::vector<GUID> pages;
    for (const ComPtr<IUnknown>& inner : m_inner) {
        ComPtr<ISpecifyPropertyPages> specify;
        CAUUID list{};
        if (FAILED(inner.As(&specify)) || FAILED(specify->GetPages(&list))) {
            continue;
        }
        const kolmfluxor::UniqueCoTaskMem<GUID> owned(list.pElems);
        for (ULONG i = 0; i < list.cElems; ++i) {
            if (std::ranges::find(pages, list.pElems[i]) == pages.end()) {
                pages.push_back(list.pElems[i]);
            }
        }
    }
    return pages;
}

std::vector<GUID> RegisteredPages(REFGUID propertySet) {
    std::vector<GUID> pages;
    const UniqueRegistryKey key = OpenKey(kMediaSets + GuidText(propertySet) + L"\\PropertyPages");
    if (key == nullptr) {
        return pages;
    }
    wchar_t name[64];
    for (DWORD i = 0;; ++i) {
        auto length = static_cast<DWORD>(std::size(name));
        const LSTATUS status = ::RegEnumKeyExW(key.get(), i, name, &length, nullptr, nullptr, nullptr, nullptr);
        GUID page{};
        if (status == ERROR_SUCCESS && ::CLSIDFromString(name, &page) == S_OK) {
            pages.push_back(page);
        } else if (status != ERROR_SUCCESS && status != ERROR_MORE_DATA) {
            return pages;  // the end, as a rule; a name too long for a GUID is skipped
        }
    }
}

}  // namespace kolmsim
