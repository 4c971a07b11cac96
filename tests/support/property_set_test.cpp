#include "support/property_set_test.h"

namespace kolmfluxor::test {

CPropertySetObject::CPropertySetObject(const wchar_t* variant) : m_camera(CModule::Get().OpenCamera(variant)) {
    m_filter.emplace(m_camera->Handle());
    EXPECT_EQ(CModule::Get().Create(CLSID_KolmFluxorPropertySet, m_filter->Unknown(), IID_IUnknown,
                                    reinterpret_cast<void**>(&m_inner)),
              S_OK);
    m_filter->Aggregate(m_inner);
    EXPECT_EQ(
        m_filter->Unknown()->QueryInterface(__uuidof(IKolmFluxorPropertySet), reinterpret_cast<void**>(&m_propertySet)),
        S_OK);
}

CPropertySetObject::~CPropertySetObject() {
    EXPECT_EQ(m_propertySet->Release(), 1u) << "references to the filter are left over";
    EXPECT_EQ(m_inner->Release(), 0u) << "references to the object are left over";
    m_camera->Close();
}

Wire CPropertySetObject::Sent() {
    Wire wire = SentTo(*m_camera);
    m_camera->ClearLog();
    return wire;
}

void CPropertySetObject::FailNth(int nth, HRESULT code) const {
    m_camera->AddFault({.nth = nth, .action = kolmsim::SimFaultAction::fail, .code = code});
}

void CPropertySetObject::Patch(std::uint32_t id, std::uint32_t offset, std::uint32_t word, HRESULT code) const {
    m_camera->AddFault({.nth = 0,
                        .id = id,
                        .action = kolmsim::SimFaultAction::patchAnswer,
                        .code = code,
                        .offset = offset,
                        .word = word});
}

PropertySetTest::~PropertySetTest() {
    EXPECT_TRUE(::HeapValidate(::GetProcessHeap(), 0, nullptr)) << "the heap was damaged";
    m_object.reset();
    EXPECT_EQ(CModule::Get().CanUnloadNow(), S_OK) << "objects were left behind";
}

}  // namespace kolmfluxor::test
