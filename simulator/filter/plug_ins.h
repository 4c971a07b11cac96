#pragma once
/// @file  Plug-ins of the kernel-streaming proxy: objects aggregated into the filter for a driver's property set.

#include <vector>

#include <windows.h>

#include <ocidl.h>
#include <wrl/client.h>

namespace kolmsim {

/// The plug-ins of one filter, found in the registry by property set.
class PlugIns {
public:
    /// Creates the plug-in of a property set, if one is registered under MediaInterfaces and can be created.
    ///
    /// During the creation the plug-in queries `outer` and lets go of it again: the caller keeps `outer` alive.
    void Load(IUnknown* outer, REFGUID propertySet);

    /// Asks each plug-in for an interface; `E_NOINTERFACE` when none has it.
    HRESULT Query(REFIID riid, void** out) const;

    /// The property pages that the plug-ins list, in order and each once.
    [[nodiscard]] std::vector<GUID> Pages() const;

private:
    /// Inner unknowns: holding them does not count on the filter.
    std::vector<Microsoft::WRL::ComPtr<IUnknown>> m_inner;
};

/// The property pages registered for a property set under MediaSets, in the order in which the registry lists them.
[[nodiscard]] std::vector<GUID> RegisteredPages(REFGUID propertySet);

}  // namespace kolmsim
