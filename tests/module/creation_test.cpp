/// @file  The property-set object: its creation inside a filter, its interfaces, its pages.

#include <vector>

#include <objidl.h>
#include <ocidl.h>
#include <vfwmsgs.h>

#include "support/failing_task_memory.h"
#include "support/property_set_test.h"

namespace kolmfluxor::test {
namespace {

/// A filter whose `IKsObject` can't be had.
class CRefusingFilter final : public COuterObject {
public:
    explicit CRefusingFilter(HRESULT code) : m_code(code) {}

protected:
    HRESULT QueryOwn(REFIID, void** out) override {
        *out = nullptr;
        return m_code;
    }

private:
    HRESULT m_code;
};

class Creation : public ::testing::Test {
protected:
    ~Creation() override { EXPECT_EQ(m_module.CanUnloadNow(), S_OK) << "objects were left behind"; }

    /// The result of creating the object; its output must be null after a failure.
    HRESULT ResultOf(IUnknown* outer, REFIID riid = IID_IUnknown) {
        auto* object = reinterpret_cast<IUnknown*>(0xDEADBEEF);
        const HRESULT hr = m_module.Create(CLSID_KolmFluxorPropertySet, outer, riid, reinterpret_cast<void**>(&object));
        if (FAILED(hr)) {
            EXPECT_EQ(object, nullptr);
        } else {
            EXPECT_EQ(object->Release(), 0u);
        }
        return hr;
    }

    const CModule& m_module = CModule::Get();
};

TEST_F(Creation, needs_an_owner) {
    EXPECT_EQ(ResultOf(nullptr), VFW_E_NEED_OWNER);
}

TEST_F(Creation, gives_an_owner_its_inner_unknown_only) {
    CCameraFilter filter(reinterpret_cast<HANDLE>(0x1234));

    EXPECT_EQ(ResultOf(filter.Unknown()), S_OK);
    EXPECT_EQ(ResultOf(filter.Unknown(), IID_IKolmFluxorPropertySet), E_NOINTERFACE);
    EXPECT_EQ(ResultOf(filter.Unknown(), IID_ISpecifyPropertyPages), E_NOINTERFACE);
}

TEST_F(Creation, passes_on_why_the_owner_has_no_device) {
    for (const HRESULT code : {E_NOINTERFACE, E_ACCESSDENIED, E_OUTOFMEMORY}) {
        CRefusingFilter filter(code);
        EXPECT_EQ(ResultOf(filter.Unknown()), code);
        EXPECT_EQ(filter.References(), 1u);
    }
}

TEST_F(Creation, fails_without_a_device_handle) {
    CCameraFilter filter(nullptr);

    EXPECT_EQ(ResultOf(filter.Unknown()), E_UNEXPECTED);
    EXPECT_EQ(filter.References(), 1u) << "the filter's interface must be given back all the same";
}

TEST_F(Creation, keeps_no_reference_on_its_owner) {
    CCameraFilter filter(reinterpret_cast<HANDLE>(0x1234));
    IUnknown* inner = nullptr;
    ASSERT_EQ(
        m_module.Create(CLSID_KolmFluxorPropertySet, filter.Unknown(), IID_IUnknown, reinterpret_cast<void**>(&inner)),
        S_OK);

    EXPECT_EQ(filter.References(), 1u);
    EXPECT_EQ(inner->Release(), 0u);
}

TEST_F(Creation, sends_nothing_to_the_camera) {
    const CPropertySetObject object(L"color");

    EXPECT_EQ(object.Camera().RequestCount(), 0u);
}

TEST_F(Creation, never_closes_the_filters_handle) {
    kolmsim::ISimulatedCamera* const camera = m_module.OpenCamera(L"mono");
    CCameraFilter filter(camera->Handle());

    EXPECT_EQ(ResultOf(filter.Unknown()), S_OK);

    DWORD flags = 0;
    EXPECT_TRUE(::GetHandleInformation(camera->Handle(), &flags));
    camera->Close();
}

TEST_F(Creation, fetches_the_device_handle_once) {
    CPropertySetObject object(L"color");
    ULONG value = 0;

    EXPECT_EQ(object->GetFeatureValue(256, &value), S_OK);
    EXPECT_EQ(object->GetFeatureValue(257, &value), S_OK);

    EXPECT_EQ(object.Filter().HandleCalls(), 1);
}

TEST_F(Creation, several_objects_live_side_by_side) {
    CPropertySetObject first(L"color");
    CPropertySetObject second(L"mono");
    ULONG value = 0;

    EXPECT_EQ(first->SetFeatureValue(256, 200), S_OK);
    EXPECT_EQ(second->SetFeatureValue(256, 100), S_OK);

    EXPECT_EQ(first->GetFeatureValue(256, &value), S_OK);
    EXPECT_EQ(value, 200u);
}

using Interfaces = PropertySetTest;

TEST_F(Interfaces, lead_to_one_another_and_to_the_filter) {
    for (const IID& riid : {IID_IKolmFluxorPropertySet, IID_ISpecifyPropertyPages}) {
        for (IUnknown* from : {Object().Filter().Unknown(), static_cast<IUnknown*>(Object().Get())}) {
            IUnknown* found = nullptr;
            IUnknown* identity = nullptr;
            ASSERT_EQ(from->QueryInterface(riid, reinterpret_cast<void**>(&found)), S_OK);
            ASSERT_EQ(found->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(&identity)), S_OK);
            EXPECT_EQ(identity, Object().Filter().Unknown()) << "callers must see the filter";
            identity->Release();
            found->Release();
        }
    }
}

TEST_F(Interfaces, count_on_the_filter) {
    const ULONG before = Object().Filter().References();

    EXPECT_EQ(Object()->AddRef(), before + 1);
    EXPECT_EQ(Object()->Release(), before);
}

TEST_F(Interfaces, are_these_two_and_no_others) {
    for (const IID& absent : {IID_IDispatch, IID_IPersist, IID_IPropertyPage, IID_IClassFactory, IID_IKolmStillImage}) {
        auto* out = reinterpret_cast<void*>(0xDEADBEEF);
        EXPECT_EQ(Object().Inner()->QueryInterface(absent, &out), E_NOINTERFACE);
        EXPECT_EQ(out, nullptr);
    }
    EXPECT_EQ(Object().Inner()->QueryInterface(IID_IKolmFluxorPropertySet, nullptr), E_POINTER);
}

class Pages : public PropertySetTest {
protected:
    ISpecifyPropertyPages* Specify() {
        ISpecifyPropertyPages* pages = nullptr;
        EXPECT_EQ(Object().Inner()->QueryInterface(IID_ISpecifyPropertyPages, reinterpret_cast<void**>(&pages)), S_OK);
        pages->Release();  // the filter's reference holds it
        return pages;
    }

    std::vector<CLSID> List() {
        CAUUID pages = {0xDEAD, reinterpret_cast<GUID*>(0xDEADBEEF)};
        EXPECT_EQ(Specify()->GetPages(&pages), S_OK);
        const std::vector<CLSID> list(pages.pElems, pages.pElems + pages.cElems);
        ::CoTaskMemFree(pages.pElems);
        return list;
    }

    static std::vector<CLSID> MonoPages() {
        return {CLSID_KolmFluxorPage_Format,       CLSID_KolmFluxorPage_Exposure, CLSID_KolmFluxorPage_Trigger,
                CLSID_KolmFluxorPage_DirectAccess, CLSID_KolmFluxorPage_Info,     CLSID_KolmFluxorPage_Lut,
                CLSID_KolmFluxorPage_Smart01};
    }
};

TEST_F(Pages, of_a_color_camera_are_eight_with_color_last) {
    std::vector<CLSID> expected = MonoPages();
    expected.push_back(CLSID_KolmFluxorPage_Color);

    EXPECT_EQ(List(), expected);
    EXPECT_EQ(Object().Sent(), Wire{Get(1)}) << "white balance UB tells a color camera";
    EXPECT_EQ(List(), expected);
    EXPECT_EQ(Object().Sent(), Wire{}) << "the answer is kept";
}

TEST_F(Pages, of_a_monochrome_camera_are_seven) {
    Renew(L"mono");

    EXPECT_EQ(List(), MonoPages());
}

TEST_F(Pages, are_seven_and_a_success_when_the_driver_fails) {
    Object().FailNth(1, E_ACCESSDENIED);

    EXPECT_EQ(List(), MonoPages());
}

TEST_F(Pages, need_somewhere_to_go) {
    EXPECT_EQ(Specify()->GetPages(nullptr), E_POINTER);
    EXPECT_EQ(Object().Sent(), Wire{});
}

TEST_F(Pages, out_of_memory_leaves_an_empty_list) {
    CAUUID pages = {0xDEAD, reinterpret_cast<GUID*>(0xDEADBEEF)};
    {
        const CFailingTaskMemory failing;
        EXPECT_EQ(Specify()->GetPages(&pages), E_OUTOFMEMORY);
    }
    EXPECT_EQ(pages.cElems, 0u);
    EXPECT_EQ(pages.pElems, nullptr);
}

}  // namespace
}  // namespace kolmfluxor::test
