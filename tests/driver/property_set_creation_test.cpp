#include "driver/property_set.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "base/class_factory.h"
#include "support/patched_import.h"
#include "support/property_set_test.h"
#include "support/thrown_text.h"

extern "C" void* __imp_CreateMutexA;

namespace kolmfluxor {
namespace {

HANDLE const kDevice = reinterpret_cast<HANDLE>(0x1234);

TEST(PropertySetCreation, keeps_a_failure_that_is_there_already_and_does_not_ask_the_filter) {
    test::CCameraFilter filter(kDevice);
    HRESULT hr = E_ABORT;
    {
        const std::unique_ptr<CUnknown> object(CKolmFluxorPropertySet::CreateInstance(filter.Unknown(), &hr));
        EXPECT_NE(object, nullptr);
    }

    EXPECT_EQ(hr, E_ABORT);
    EXPECT_EQ(filter.HandleCalls(), 0);
    EXPECT_EQ(filter.References(), 1u);
    EXPECT_EQ(CBaseObject::ObjectsActive(), 0);
}

HANDLE WINAPI NoMutex(LPSECURITY_ATTRIBUTES, BOOL, LPCSTR) {
    return INVALID_HANDLE_VALUE;
}

TEST(PropertySetCreation, lets_the_exception_of_a_cache_that_cannot_be_built_pass) {
    const test::CPatchedImport patch(&__imp_CreateMutexA, reinterpret_cast<void*>(&NoMutex));
    test::CCameraFilter filter(kDevice);
    HRESULT hr = S_OK;

    const std::string text =
        test::ThrownText([&] { delete CKolmFluxorPropertySet::CreateInstance(filter.Unknown(), &hr); });

    EXPECT_NE(text.find("could not create mutex"), std::string::npos) << text;
    EXPECT_EQ(filter.References(), 1u);
    EXPECT_EQ(CBaseObject::ObjectsActive(), 0);
}

TEST(PropertySetCreation, through_the_factory_fails_when_the_cache_cannot_be_built) {
    const test::CPatchedImport patch(&__imp_CreateMutexA, reinterpret_cast<void*>(&NoMutex));
    test::CCameraFilter filter(kDevice);
    const CFactoryTemplate row{
        .name = L"", .classId = &CLSID_KolmFluxorPropertySet, .create = CKolmFluxorPropertySet::CreateInstance};
    void* out = reinterpret_cast<void*>(0xDEADBEEF);

    EXPECT_EQ(CreateObject(row, filter.Unknown(), IID_IUnknown, &out), E_FAIL);

    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(filter.References(), 1u);
    EXPECT_EQ(CBaseObject::ObjectsActive(), 0);
}

/// A filter that claims to have `IKsObject` and gives none.
class CEmptyHandedFilter final : public test::COuterObject {
protected:
    HRESULT QueryOwn(REFIID, void** out) override {
        *out = nullptr;
        return S_OK;
    }
};

TEST(PropertySetCreation, fails_when_the_filter_answers_without_an_interface) {
    CEmptyHandedFilter filter;
    HRESULT hr = S_OK;

    const std::unique_ptr<CUnknown> object(CKolmFluxorPropertySet::CreateInstance(filter.Unknown(), &hr));

    EXPECT_EQ(hr, E_UNEXPECTED);
    EXPECT_EQ(filter.References(), 1u);
}

}  // namespace
}  // namespace kolmfluxor
