#pragma once
/// @file  The table of creatable classes, and the class factory that serves its rows.

#include <span>

#include <unknwn.h>

#include "base/module_state.h"
#include "base/unknown.h"

namespace kolmfluxor {

/// One creatable class: a row of the class table.
struct CFactoryTemplate {
    /// Makes an object with a count of 0.
    ///
    /// @param outer  the object that aggregates it, or null
    /// @param hr     `S_OK` on entry; set to a failure to have the object destroyed and the code returned
    /// @return  the object, or null
    using CreateFunction = CUnknown* (*)(IUnknown* outer, HRESULT* hr);
    /// Called for each row when the module is loaded (`loading` TRUE) and unloaded (FALSE).
    using InitRoutine = void (*)(BOOL loading, const CLSID* classId);

    const wchar_t* name;  ///< friendly name, as the registry keeps it
    const CLSID* classId;
    CreateFunction create;
    InitRoutine initialize = nullptr;  ///< none, usually
};

/// Makes an object of a row and queries it for `riid` through its inner unknown: `IClassFactory::CreateInstance`.
///
/// An exception on the way becomes `E_OUTOFMEMORY` (allocation) or `E_FAIL`.
/// @return  `E_POINTER` for a null `out`; `E_NOINTERFACE` when aggregated and asked for anything but `IUnknown`; the
///          creation's code (`E_OUTOFMEMORY` when it gave neither object nor code); else the query's result
[[nodiscard]] HRESULT CreateObject(const CFactoryTemplate& row, IUnknown* outer, REFIID riid, void** out) noexcept;

/// Makes the class factory for `classId`: `DllGetClassObject` of a module with this class table.
///
/// @return  `E_POINTER`; `E_NOINTERFACE` when `riid` is neither `IUnknown` nor `IClassFactory`;
///          `CLASS_E_CLASSNOTAVAILABLE` for a class without a row; `E_OUTOFMEMORY`
[[nodiscard]] HRESULT GetClassObject(std::span<const CFactoryTemplate> classes, REFCLSID classId, REFIID riid,
                                     void** out) noexcept;

/// Calls the initialization routine of every row that has one.
void InitializeClasses(std::span<const CFactoryTemplate> classes, BOOL loading) noexcept;

/// Serves one row of the class table. Counts as a living object. Any thread may call.
class CClassFactory final : private CBaseObject, public IClassFactory {
public:
    explicit CClassFactory(const CFactoryTemplate& row) noexcept : m_row(row) {}

    // IUnknown
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** out) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    // IClassFactory
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID riid, void** out) override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

private:
    ~CClassFactory() = default;

    const CFactoryTemplate& m_row;
    std::atomic<ULONG> m_references{0};
};

}  // namespace kolmfluxor
