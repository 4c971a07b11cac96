#include "filter/capture_filter.h"

#include <algorithm>
#include <cwchar>
#include <iterator>

#include <vfwmsgs.h>

#include "base/boundary.h"
#include "base/handles.h"
#include "filter/enumerators.h"
#include "kolmfluxor/identifiers.h"

namespace kolmsim {

CCaptureFilter::CCaptureFilter(IUnknown* outer, const CameraClass& cameraClass, HRESULT* hr)
    : Implements(outer), m_class(cameraClass), m_opened(OpenVariant(cameraClass.variant, hr)), m_pin(*this) {}

CCaptureFilter::~CCaptureFilter() {
    // Whoever released the last reference without stopping must not leave a thread behind.
    m_pin.Deactivate();
}

void CCaptureFilter::LoadPlugInsOnce() {
    if (!m_plugInsLoaded) {
        m_plugInsLoaded = true;  // first: the plug-in's own queries come back here
        m_plugIns.Load(Owner(), kolmfluxor::PROPSETID_KolmFluxor);
    }
}

HRESULT CCaptureFilter::NonDelegatingQueryInterface(REFIID riid, void** out) {
    if (out == nullptr) {
        return E_POINTER;
    }
    *out = nullptr;
    return kolmfluxor::AtBoundary([&]() -> HRESULT {
        LoadPlugInsOnce();
        if (riid == __uuidof(IPersist) || riid == __uuidof(IMediaFilter)) {
            return Implements::NonDelegatingQueryInterface(__uuidof(IBaseFilter), out);
        }
        const HRESULT hr = Implements::NonDelegatingQueryInterface(riid, out);
        return hr == E_NOINTERFACE ? m_plugIns.Query(riid, out) : hr;
    });
}

HRESULT CCaptureFilter::GetClassID(CLSID* classId) {
    if (classId == nullptr) {
        return E_POINTER;
    }
    *classId = *m_class.classId;
    return S_OK;
}

HRESULT CCaptureFilter::Stop() {
    const std::scoped_lock lock(m_lock);
    m_pin.Deactivate();
    m_state = State_Stopped;
    return S_OK;
}

HRESULT CCaptureFilter::Pause() {
    const std::scoped_lock lock(m_lock);
    // The thread is only held, not ended: it may wait in a renderer that was paused before this filter.
    m_pin.SetRunning(false);
    const HRESULT hr = m_pin.Activate();
    if (SUCCEEDED(hr)) {
        m_state = State_Paused;
    }
    return hr;
}

HRESULT CCaptureFilter::Run(REFERENCE_TIME) {
    const std::scoped_lock lock(m_lock);
    const HRESULT hr = m_pin.Activate();
    if (SUCCEEDED(hr)) {
        m_state = State_Running;
        m_pin.SetRunning(true);
    }
    return hr;
}

HRESULT CCaptureFilter::GetState(DWORD, FILTER_STATE* state) {
    if (state == nullptr) {
        return E_POINTER;
    }
    const std::scoped_lock lock(m_lock);
    *state = m_state;
    return m_state == State_Paused ? VFW_S_CANT_CUE : S_OK;  // a live source has nothing to show while paused
}

HRESULT CCaptureFilter::SetSyncSource(IReferenceClock* clock) {
    const std::scoped_lock lock(m_lock);
    m_clock = clock;
    return S_OK;
}

HRESULT CCaptureFilter::GetSyncSource(IReferenceClock** clock) {
    if (clock == nullptr) {
        return E_POINTER;
    }
    const std::scoped_lock lock(m_lock);
    return m_clock.CopyTo(clock);
}

HRESULT CCaptureFilter::EnumPins(IEnumPins** out) {
    if (out == nullptr) {
        return E_POINTER;
    }
    *out = nullptr;
    return kolmfluxor::AtBoundary([&] {
        auto* pins = new CEnumPins({Microsoft::WRL::ComPtr<IPin>(&m_pin)});
        pins->AddRef();
        *out = pins;
        return S_OK;
    });
}

HRESULT CCaptureFilter::FindPin(LPCWSTR id, IPin** pin) {
    if (pin == nullptr) {
        return E_POINTER;
    }
    *pin = nullptr;
    if (id == nullptr || std::wcscmp(id, L"Capture") != 0) {
        return VFW_E_NOT_FOUND;
    }
    m_pin.AddRef();
    *pin = &m_pin;
    return S_OK;
}

HRESULT CCaptureFilter::QueryFilterInfo(FILTER_INFO* info) {
    if (info == nullptr) {
        return E_POINTER;
    }
    *info = {};
    const std::scoped_lock lock(m_lock);
    m_name.copy(info->achName, std::size(info->achName) - 1);
    info->pGraph = m_graph;
    if (m_graph != nullptr) {
        m_graph->AddRef();
    }
    return S_OK;
}

HRESULT CCaptureFilter::JoinFilterGraph(IFilterGraph* graph, LPCWSTR name) {
    const std::scoped_lock lock(m_lock);
    return kolmfluxor::AtBoundary([&] {
        m_name = name != nullptr ? name : L"";
        m_graph = graph;
        return S_OK;
    });
}

HRESULT CCaptureFilter::QueryVendorInfo(LPWSTR*) {
    return E_NOTIMPL;
}

HANDLE CCaptureFilter::KsGetObjectHandle() noexcept {
    return m_opened.camera->Handle();
}

HRESULT CCaptureFilter::GetPages(CAUUID* pages) {
    if (pages == nullptr) {
        return E_POINTER;
    }
    *pages = {};
    return kolmfluxor::AtBoundary([&] {
        std::vector<GUID> list = m_plugIns.Pages();
        if (list.empty()) {
            list = RegisteredPages(kolmfluxor::PROPSETID_KolmFluxor);
        }
        if (list.empty()) {
            return S_OK;
        }
        pages->pElems = static_cast<GUID*>(::CoTaskMemAlloc(list.size() * sizeof(GUID)));
        if (pages->pElems == nullptr) {
            return E_OUTOFMEMORY;
        }
        std::ranges::copy(list, pages->pElems);
        pages->cElems = static_cast<ULONG>(list.size());
        return S_OK;
    });
}

ULONG CCaptureFilter::GetMiscFlags() {
    return AM_FILTER_MISC_FLAGS_IS_SOURCE;
}

}  // namespace kolmsim
