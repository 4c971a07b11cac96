#include "driver/property_set.h"

#include <algorithm>
#include <new>
#include <tuple>

#include <vfwmsgs.h>

#include <wrl/client.h>

#include <kolmfluxor/features.h>
#include <kolmfluxor/identifiers.h>

#include "base/handles.h"
#include "driver/kernel_streaming.h"

namespace kolmfluxor {
namespace {

/// The pages in the order in which the property frame shows them; the last one is for color cameras only.
constexpr const CLSID* kPages[] = {
    &CLSID_KolmFluxorPage_Format,       &CLSID_KolmFluxorPage_Exposure, &CLSID_KolmFluxorPage_Trigger,
    &CLSID_KolmFluxorPage_DirectAccess, &CLSID_KolmFluxorPage_Info,     &CLSID_KolmFluxorPage_Lut,
    &CLSID_KolmFluxorPage_Smart01,      &CLSID_KolmFluxorPage_Color,
};
constexpr ULONG kColorPageCount = std::size(kPages);
constexpr ULONG kMonoPageCount = kColorPageCount - 1;

/// The device handle of the filter, or null with the reason in `hr`.
HANDLE DeviceOf(IUnknown* filter, HRESULT* hr) {
    if (FAILED(*hr)) return nullptr;
    if (filter == nullptr) {
        *hr = VFW_E_NEED_OWNER;
        return nullptr;
    }
    Microsoft::WRL::ComPtr<IKsObject> object;
    const HRESULT query = filter->QueryInterface(__uuidof(IKsObject), reinterpret_cast<void**>(object.GetAddressOf()));
    if (FAILED(query)) {
        *hr = query;
        return nullptr;
    }
    HANDLE const device = object != nullptr ? object->KsGetObjectHandle() : nullptr;
    if (device == nullptr) *hr = E_UNEXPECTED;
    return device;
}

}  // namespace

CUnknown* CKolmFluxorPropertySet::CreateInstance(IUnknown* outer, HRESULT* hr) {
    auto* const object = new (std::nothrow) CKolmFluxorPropertySet(outer, hr);
    if (object == nullptr) *hr = E_OUTOFMEMORY;
    return object;
}

CKolmFluxorPropertySet::CKolmFluxorPropertySet(IUnknown* outer, HRESULT* hr)
    : Implements(outer),
      m_transport(DeviceOf(outer, hr)),
      m_features(m_transport),
      m_properties(m_transport),
      m_registers(m_transport) {}

HRESULT CKolmFluxorPropertySet::GetPages(CAUUID* pages) {
    if (pages == nullptr) return E_POINTER;
    *pages = {};

    BOOL color = FALSE;
    std::ignore = IsFeaturePresent(static_cast<ULONG>(FeatureId::whiteBalanceUB), &color);  // no answer: no color page
    const ULONG count = color ? kColorPageCount : kMonoPageCount;

    auto* const list = static_cast<GUID*>(::CoTaskMemAlloc(count * sizeof(GUID)));
    if (list == nullptr) return E_OUTOFMEMORY;
    std::transform(kPages, kPages + count, list, [](const CLSID* page) { return *page; });
    *pages = {.cElems = count, .pElems = list};
    return S_OK;
}

}  // namespace kolmfluxor
