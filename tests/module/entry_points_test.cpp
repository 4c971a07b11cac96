/// @file  The four exports: class objects, the class table, and the two counts that keep the module loaded.

#include <gtest/gtest.h>

#include <vector>

#include <objbase.h>
#include <vfwmsgs.h>

#include <kolmfluxor/identifiers.h>

#include "support/module.h"

namespace kolmfluxor::test {
namespace {

struct ClassRow {
    const char* name;
    const CLSID& classId;
};

const ClassRow kClasses[] = {
    {"CKolmFluxorPropertySet", CLSID_KolmFluxorPropertySet},
    {"CKolmFluxorPage_Color", CLSID_KolmFluxorPage_Color},
    {"CKolmFluxorPage_Trigger", CLSID_KolmFluxorPage_Trigger},
    {"CKolmStillImage", CLSID_KolmStillImage},
    {"CKolmFluxorPage_Info", CLSID_KolmFluxorPage_Info},
    {"CKolmFluxorPage_Format", CLSID_KolmFluxorPage_Format},
    {"CKolmFluxorPage_Exposure", CLSID_KolmFluxorPage_Exposure},
    {"CKolmFluxorPage_DirectAccess", CLSID_KolmFluxorPage_DirectAccess},
    {"CKolmFluxorPage_Smart01", CLSID_KolmFluxorPage_Smart01},
    {"CKolmFluxorPage_Lut", CLSID_KolmFluxorPage_Lut},
};

class EntryPoints : public ::testing::Test {
protected:
    ~EntryPoints() override { EXPECT_EQ(CModule::Get().CanUnloadNow(), S_OK) << "objects were left behind"; }

    const CModule& m_module = CModule::Get();
};

TEST_F(EntryPoints, every_class_has_a_class_object) {
    EXPECT_EQ(std::size(kClasses), 10u);
    for (const ClassRow& row : kClasses) {
        for (const IID& riid : {IID_IUnknown, IID_IClassFactory}) {
            SCOPED_TRACE(row.name);
            IUnknown* factory = nullptr;
            ASSERT_EQ(m_module.GetClassObject(row.classId, riid, reinterpret_cast<void**>(&factory)), S_OK);
            EXPECT_EQ(m_module.CanUnloadNow(), S_FALSE);
            EXPECT_EQ(factory->Release(), 0u);
        }
    }
}

TEST_F(EntryPoints, every_class_can_be_created) {
    for (const ClassRow& row : kClasses) {
        if (row.classId == CLSID_KolmFluxorPropertySet) continue;  // needs a filter around it
        SCOPED_TRACE(row.name);
        IUnknown* object = nullptr;
        ASSERT_EQ(m_module.Create(row.classId, nullptr, IID_IUnknown, reinterpret_cast<void**>(&object)), S_OK);
        EXPECT_EQ(m_module.CanUnloadNow(), S_FALSE);
        EXPECT_EQ(object->Release(), 0u);
    }
}

TEST_F(EntryPoints, an_unknown_class_is_not_available) {
    constexpr CLSID unknown = {0x12345678, 0x1234, 0x1234, {1, 2, 3, 4, 5, 6, 7, 8}};
    auto* out = reinterpret_cast<void*>(0xDEADBEEF);

    EXPECT_EQ(m_module.GetClassObject(unknown, IID_IClassFactory, &out), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(out, nullptr);
    out = reinterpret_cast<void*>(0xDEADBEEF);
    EXPECT_EQ(m_module.GetClassObject(IID_IKolmStillImage, IID_IClassFactory, &out), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(out, nullptr);
}

TEST_F(EntryPoints, a_known_class_asked_for_IDispatch_has_no_such_interface) {
    for (const ClassRow& row : kClasses) {
        SCOPED_TRACE(row.name);
        auto* out = reinterpret_cast<void*>(0xDEADBEEF);
        EXPECT_EQ(m_module.GetClassObject(row.classId, IID_IDispatch, &out), E_NOINTERFACE);
        EXPECT_EQ(out, nullptr);
    }
}

TEST_F(EntryPoints, a_null_output_is_refused) {
    EXPECT_EQ(m_module.GetClassObject(CLSID_KolmFluxorPropertySet, IID_IClassFactory, nullptr), E_POINTER);
}

TEST_F(EntryPoints, server_locks_and_class_objects_keep_the_module_loaded) {
    EXPECT_EQ(m_module.CanUnloadNow(), S_OK);
    IClassFactory* factory = nullptr;
    ASSERT_EQ(
        m_module.GetClassObject(CLSID_KolmFluxorPropertySet, IID_IClassFactory, reinterpret_cast<void**>(&factory)),
        S_OK);
    EXPECT_EQ(m_module.CanUnloadNow(), S_FALSE);

    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    EXPECT_EQ(factory->Release(), 0u);
    EXPECT_EQ(m_module.CanUnloadNow(), S_FALSE) << "two locks are left";

    ASSERT_EQ(
        m_module.GetClassObject(CLSID_KolmFluxorPropertySet, IID_IClassFactory, reinterpret_cast<void**>(&factory)),
        S_OK);
    EXPECT_EQ(factory->LockServer(FALSE), S_OK);
    EXPECT_EQ(factory->LockServer(FALSE), S_OK);
    EXPECT_EQ(factory->Release(), 0u);
    EXPECT_EQ(m_module.CanUnloadNow(), S_OK);
}

TEST_F(EntryPoints, the_property_set_is_one_guid_in_three_roles) {
    EXPECT_EQ(IID_IKolmFluxorPropertySet, PROPSETID_KolmFluxor);
    EXPECT_EQ(CLSID_KolmFluxorPropertySet, PROPSETID_KolmFluxor);
    EXPECT_STREQ(kPropertySetInterfaceName, L"IKolmFluxorPropertySet");
}

TEST_F(EntryPoints, all_class_ids_differ) {
    for (std::size_t i = 0; i < std::size(kClasses); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            EXPECT_NE(kClasses[i].classId, kClasses[j].classId) << kClasses[i].name << ", " << kClasses[j].name;
        }
    }
}

}  // namespace
}  // namespace kolmfluxor::test
