#pragma once
/// @file  The base of every COM object here: reference count, aggregation, and the query for interfaces.

#include <atomic>

#include <unknwn.h>

#include "base/module_state.h"

namespace kolmfluxor {

/// A COM object with two identities: the one that callers see, and its own.
///
/// Callers see the *owner*: the outer object when this one is aggregated, else the object itself. All interfaces that
/// the object hands out delegate `IUnknown` to the owner. The *inner* unknown never delegates: whoever aggregates the
/// object, and the class factory, hold that one.
///
/// A new object has a count of 0. The last release through the inner unknown deletes it. Any thread may count.
class CUnknown : private CBaseObject {
public:
    /// @param outer  the object that aggregates this one, or null; not counted
    explicit CUnknown(IUnknown* outer) noexcept;
    virtual ~CUnknown();

    /// The object's own `IUnknown`, which never delegates.
    [[nodiscard]] IUnknown* Inner() noexcept { return &m_inner; }
    /// The `IUnknown` that callers see. Not counted.
    [[nodiscard]] IUnknown* Owner() const noexcept { return m_owner; }

protected:
    /// Answers a query for one of the object's own interfaces; `*out` is null on every failure.
    ///
    /// This one knows `IUnknown` (the inner one) only. Overrides end in their base's.
    virtual HRESULT NonDelegatingQueryInterface(REFIID riid, void** out);

private:
    class CInnerUnknown final : public IUnknown {
    public:
        explicit CInnerUnknown(CUnknown& object) noexcept : m_object(object) {}

        // IUnknown
        HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** out) override;
        ULONG STDMETHODCALLTYPE AddRef() override;
        ULONG STDMETHODCALLTYPE Release() override;

    private:
        CUnknown& m_object;
        std::atomic<ULONG> m_references{0};
    };

    CInnerUnknown m_inner;
    IUnknown* m_owner;
};

/// `CUnknown` with a list of interfaces: their `IUnknown` methods delegate to the owner, and a query finds each of
/// them.
template <class... Interfaces> class Implements : public CUnknown, public Interfaces... {
public:
    using CUnknown::CUnknown;

    // IUnknown, of every interface in the list
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** out) final {
        return Owner()->QueryInterface(riid, out);
    }
    ULONG STDMETHODCALLTYPE AddRef() final { return Owner()->AddRef(); }
    ULONG STDMETHODCALLTYPE Release() final { return Owner()->Release(); }

protected:
    HRESULT NonDelegatingQueryInterface(REFIID riid, void** out) override {
        void* found = nullptr;
        ((riid == __uuidof(Interfaces) ? void(found = static_cast<Interfaces*>(this)) : void()), ...);
        if (out == nullptr || found == nullptr) return CUnknown::NonDelegatingQueryInterface(riid, out);
        *out = found;
        Owner()->AddRef();
        return S_OK;
    }
};

}  // namespace kolmfluxor
