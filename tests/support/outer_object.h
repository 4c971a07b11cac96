#pragma once
/// @file  An outer object for tests of aggregation; it lives on the stack and counts its references.

#include <atomic>

#include <unknwn.h>

namespace kolmfluxor::test {

/// Starts with one reference, which stands for its own life. Queries go on to the object that it aggregates.
class COuterObject {
public:
    COuterObject() : m_unknown(*this) {}
    virtual ~COuterObject() = default;
    COuterObject(const COuterObject&) = delete;
    COuterObject& operator=(const COuterObject&) = delete;

    [[nodiscard]] IUnknown* Unknown() noexcept { return &m_unknown; }
    [[nodiscard]] ULONG References() const noexcept { return m_references; }
    /// Takes queries to `inner` from now on. Not counted here: the test holds it.
    void Aggregate(IUnknown* inner) noexcept { m_inner = inner; }

protected:
    /// Interfaces of the outer object's own, counted; a code and a null output for any other.
    virtual HRESULT QueryOwn(REFIID /*riid*/, void** out) {
        *out = nullptr;
        return E_NOINTERFACE;
    }

    void AddReference() noexcept { ++m_references; }

private:
    class COuterUnknown final : public IUnknown {
    public:
        explicit COuterUnknown(COuterObject& object) : m_object(object) {}
        HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** out) override {
            if (out == nullptr) return E_POINTER;
            *out = nullptr;
            if (riid == IID_IUnknown) {
                AddRef();
                *out = this;
                return S_OK;
            }
            const HRESULT hr = m_object.QueryOwn(riid, out);
            if (hr == S_OK || m_object.m_inner == nullptr) return hr;
            return m_object.m_inner->QueryInterface(riid, out);
        }
        ULONG STDMETHODCALLTYPE AddRef() override { return ++m_object.m_references; }
        ULONG STDMETHODCALLTYPE Release() override { return --m_object.m_references; }

    private:
        COuterObject& m_object;
    };

    COuterUnknown m_unknown;
    std::atomic<ULONG> m_references{1};
    IUnknown* m_inner = nullptr;
};

}  // namespace kolmfluxor::test
