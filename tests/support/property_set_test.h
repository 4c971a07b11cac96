#pragma once
/// @file  A property-set object on a simulated camera, created as the kernel-streaming proxy creates it.

#include <gtest/gtest.h>

#include <optional>

#include <kolmfluxor/identifiers.h>
#include <kolmfluxor/property_set.h>

#include "driver/kernel_streaming.h"
#include "support/module.h"
#include "support/outer_object.h"
#include "support/wire.h"

namespace kolmfluxor::test {

/// What no method ever writes: tells "preset", "written" and "left alone" apart.
inline constexpr ULONG kPoison = 0xDEADBEEF;

/// A capture filter as far as the property-set object looks at it: `IKsObject` with the camera's handle.
class CCameraFilter : public COuterObject {
public:
    explicit CCameraFilter(HANDLE device) : m_ksObject(*this, device) {}

    /// How often the device handle was asked for.
    [[nodiscard]] int HandleCalls() const { return m_ksObject.calls; }

    /// Answers queries for one more interface with `object`, which has counts of its own; null takes it away.
    void Offer(REFIID riid, IUnknown* object) {
        m_offeredId = riid;
        m_offered = object;
    }

protected:
    HRESULT QueryOwn(REFIID riid, void** out) override {
        *out = nullptr;
        if (m_offered != nullptr && riid == m_offeredId) {
            m_offered->AddRef();
            *out = m_offered;
            return S_OK;
        }
        if (riid != __uuidof(IKsObject)) return E_NOINTERFACE;
        AddReference();
        *out = static_cast<IKsObject*>(&m_ksObject);
        return S_OK;
    }

private:
    class CKsObject final : public IKsObject {
    public:
        CKsObject(CCameraFilter& filter, HANDLE device) : m_filter(filter), m_device(device) {}
        HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** out) override {
            return m_filter.Unknown()->QueryInterface(riid, out);
        }
        ULONG STDMETHODCALLTYPE AddRef() override { return m_filter.Unknown()->AddRef(); }
        ULONG STDMETHODCALLTYPE Release() override { return m_filter.Unknown()->Release(); }
        HANDLE STDMETHODCALLTYPE KsGetObjectHandle() noexcept override {
            ++calls;
            return m_device;
        }

        int calls = 0;

    private:
        CCameraFilter& m_filter;
        HANDLE m_device;
    };

    CKsObject m_ksObject;
    IID m_offeredId{};
    IUnknown* m_offered = nullptr;
};

/// A simulated camera, a filter for it, and the property-set object in that filter.
class CPropertySetObject {
public:
    /// @param variant  L"mono" or L"color"
    explicit CPropertySetObject(const wchar_t* variant);
    /// Everything is released; a reference that is left over fails the test.
    ~CPropertySetObject();
    CPropertySetObject(const CPropertySetObject&) = delete;
    CPropertySetObject& operator=(const CPropertySetObject&) = delete;

    [[nodiscard]] kolmsim::ISimulatedCamera& Camera() const { return *m_camera; }
    [[nodiscard]] CCameraFilter& Filter() { return *m_filter; }
    [[nodiscard]] IUnknown* Inner() const { return m_inner; }
    IKolmFluxorPropertySet* operator->() const { return m_propertySet; }
    [[nodiscard]] IKolmFluxorPropertySet* Get() const { return m_propertySet; }

    /// The requests since the last call of `Sent` or `Forget`, which clears the log.
    [[nodiscard]] Wire Sent();
    void Forget() { m_camera->ClearLog(); }

    /// The n-th matching request from now on fails with `code`.
    void FailNth(int nth, HRESULT code) const;
    /// Every answer to a property carries `word` at `offset`; the request returns `code`.
    void Patch(std::uint32_t id, std::uint32_t offset, std::uint32_t word, HRESULT code = S_OK) const;

private:
    kolmsim::ISimulatedCamera* m_camera;
    std::optional<CCameraFilter> m_filter;
    IUnknown* m_inner = nullptr;
    IKolmFluxorPropertySet* m_propertySet = nullptr;
};

/// Tests on a color camera.
class PropertySetTest : public ::testing::Test {
protected:
    PropertySetTest() : m_object(std::in_place, L"color") {}
    ~PropertySetTest() override;

    CPropertySetObject& Object() { return *m_object; }
    kolmsim::ISimulatedCamera& Camera() { return m_object->Camera(); }
    /// Starts again with a new object on a new camera.
    void Renew(const wchar_t* variant) { m_object.emplace(variant); }

private:
    std::optional<CPropertySetObject> m_object;
};

}  // namespace kolmfluxor::test
