#pragma once
/// @file  The simulated camera's capture filter, in the place of the kernel-streaming proxy.

// NOLINTNEXTLINE(bugprone-reserved-identifier): the platform's own name
#define __STREAMS__  // the platform's header hides IKsObject without it

#include <array>
#include <mutex>
#include <string>

#include <windows.h>

#include <strmif.h>

#include <ks.h>

#include <ksproxy.h>
#include <ocidl.h>
#include <wrl/client.h>

#include "base/unknown.h"
#include "filter/capture_pin.h"
#include "filter/class_ids.h"
#include "filter/plug_ins.h"
#include "filter/simulator_library.h"

namespace kolmsim {

/// A live video source with one output pin, backed by a simulated camera. Any thread may call.
///
/// Like the proxy, it aggregates the object registered for the driver's property set and passes on to it every query
/// for an interface that it does not know; the object finds the camera through IKsObject. Without such an object the
/// filter works all the same.
class CCaptureFilter final
    : public kolmfluxor::Implements<IBaseFilter, IKsObject, ISpecifyPropertyPages, IAMFilterMiscFlags>,
      private IPinHost {
public:
    /// @param hr  set to a failure when the camera cannot be opened
    CCaptureFilter(IUnknown* outer, const CameraClass& cameraClass, HRESULT* hr);
    ~CCaptureFilter() override;

    // IPersist
    HRESULT STDMETHODCALLTYPE GetClassID(CLSID* classId) override;

    // IMediaFilter
    HRESULT STDMETHODCALLTYPE Stop() override;
    HRESULT STDMETHODCALLTYPE Pause() override;
    HRESULT STDMETHODCALLTYPE Run(REFERENCE_TIME start) override;
    HRESULT STDMETHODCALLTYPE GetState(DWORD timeoutMs, FILTER_STATE* state) override;
    HRESULT STDMETHODCALLTYPE SetSyncSource(IReferenceClock* clock) override;
    HRESULT STDMETHODCALLTYPE GetSyncSource(IReferenceClock** clock) override;

    // IBaseFilter
    HRESULT STDMETHODCALLTYPE EnumPins(IEnumPins** out) override;
    HRESULT STDMETHODCALLTYPE FindPin(LPCWSTR id, IPin** pin) override;
    HRESULT STDMETHODCALLTYPE QueryFilterInfo(FILTER_INFO* info) override;
    HRESULT STDMETHODCALLTYPE JoinFilterGraph(IFilterGraph* graph, LPCWSTR name) override;
    HRESULT STDMETHODCALLTYPE QueryVendorInfo(LPWSTR* info) override;

    // IKsObject
    HANDLE STDMETHODCALLTYPE KsGetObjectHandle() noexcept override;

    // ISpecifyPropertyPages
    HRESULT STDMETHODCALLTYPE GetPages(CAUUID* pages) override;

    // IAMFilterMiscFlags
    ULONG STDMETHODCALLTYPE GetMiscFlags() override;

protected:
    HRESULT NonDelegatingQueryInterface(REFIID riid, void** out) override;

private:
    // IPinHost
    IBaseFilter* Filter() override { return this; }
    bool IsStopped() override { return m_state == State_Stopped; }
    IFilterGraph* Graph() override { return m_graph; }
    ISimulatedCamera* Camera() override { return m_opened.camera.get(); }
    std::recursive_mutex& Lock() override { return m_lock; }

    /// Creates the plug-ins with the first query, which is part of every creation: by then somebody holds the filter,
    /// so that a plug-in may query it and let go again while it is being created.
    void LoadPlugInsOnce();

    const CameraClass& m_class;
    OpenedCamera m_opened;  ///< outlives the plug-ins, which keep its handle
    PlugIns m_plugIns;
    bool m_plugInsLoaded = false;

    std::recursive_mutex m_lock;  ///< guards all below and the pin
    FILTER_STATE m_state = State_Stopped;
    Microsoft::WRL::ComPtr<IReferenceClock> m_clock;
    IFilterGraph* m_graph = nullptr;  ///< not counted: the graph holds the filter
    std::wstring m_name;
    CCapturePin m_pin;
};

}  // namespace kolmsim
