#include "base/class_factory.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include <objidl.h>

#include "support/outer_object.h"

namespace kolmfluxor {
namespace {

constexpr CLSID kGood = {0x11111111, 0, 0, {0, 0, 0, 0, 0, 0, 0, 1}};
constexpr CLSID kMissing = {0x22222222, 0, 0, {0, 0, 0, 0, 0, 0, 0, 2}};

class CProbe final : public Implements<IPersist> {
public:
    using Implements::Implements;
    HRESULT STDMETHODCALLTYPE GetClassID(CLSID*) override { return E_NOTIMPL; }
};

IUnknown* g_outerSeen = nullptr;
HRESULT g_slotSeen = E_FAIL;

CUnknown* CreateProbe(IUnknown* outer, HRESULT* hr) {
    g_outerSeen = outer;
    g_slotSeen = *hr;
    return new CProbe(outer);
}

template <HRESULT code> CUnknown* CreateFailed(IUnknown* outer, HRESULT* hr) {
    *hr = code;
    return new CProbe(outer);
}

template <HRESULT code> CUnknown* CreateNothing(IUnknown*, HRESULT* hr) {
    *hr = code;
    return nullptr;
}

template <class E> CUnknown* CreateThrowing(IUnknown*, HRESULT*) {
    throw E{};
}

struct RuntimeError : std::runtime_error {
    RuntimeError() : std::runtime_error("creation failed") {}
};

CFactoryTemplate Row(CFactoryTemplate::CreateFunction create) {
    return {.name = L"Probe", .classId = &kGood, .create = create};
}

class ClassFactory : public ::testing::Test {
protected:
    ~ClassFactory() override {
        EXPECT_EQ(CBaseObject::ObjectsActive(), 0) << "objects were left behind";
        EXPECT_TRUE(CanUnload());
    }

    /// The result of creating an object of a row; the output must be null whenever it fails.
    static HRESULT ResultOf(CFactoryTemplate::CreateFunction create, REFIID riid = IID_IPersist) {
        const CFactoryTemplate row = Row(create);
        auto* out = reinterpret_cast<IUnknown*>(0xDEADBEEF);
        const HRESULT hr = CreateObject(row, nullptr, riid, reinterpret_cast<void**>(&out));
        if (FAILED(hr)) {
            EXPECT_EQ(out, nullptr);
        } else {
            EXPECT_EQ(out->Release(), 0u);
        }
        return hr;
    }
};

TEST_F(ClassFactory, creates_with_a_slot_that_starts_at_success) {
    g_slotSeen = E_FAIL;
    EXPECT_EQ(ResultOf(CreateProbe), S_OK);
    EXPECT_EQ(g_slotSeen, S_OK);
    EXPECT_EQ(g_outerSeen, nullptr);
}

TEST_F(ClassFactory, destroys_an_object_that_lacks_the_interface) {
    EXPECT_EQ(ResultOf(CreateProbe, IID_IStream), E_NOINTERFACE);
}

TEST_F(ClassFactory, destroys_an_object_whose_slot_failed) {
    EXPECT_EQ(ResultOf(CreateFailed<E_ACCESSDENIED>), E_ACCESSDENIED);
}

TEST_F(ClassFactory, takes_a_success_code_in_the_slot_for_success) {
    EXPECT_EQ(ResultOf(CreateFailed<S_FALSE>), S_OK);
}

TEST_F(ClassFactory, without_an_object_returns_the_slots_failure) {
    EXPECT_EQ(ResultOf(CreateNothing<E_ACCESSDENIED>), E_ACCESSDENIED);
}

TEST_F(ClassFactory, without_object_and_failure_is_out_of_memory) {
    EXPECT_EQ(ResultOf(CreateNothing<S_OK>), E_OUTOFMEMORY);
    EXPECT_EQ(ResultOf(CreateNothing<S_FALSE>), E_OUTOFMEMORY);
}

TEST_F(ClassFactory, turns_exceptions_of_a_creation_into_codes) {
    EXPECT_EQ(ResultOf(CreateThrowing<std::bad_alloc>), E_OUTOFMEMORY);
    EXPECT_EQ(ResultOf(CreateThrowing<RuntimeError>), E_FAIL);
    EXPECT_EQ(ResultOf(CreateThrowing<int>), E_FAIL);
}

TEST_F(ClassFactory, refuses_a_null_output_before_creating) {
    g_slotSeen = E_ABORT;
    EXPECT_EQ(CreateObject(Row(CreateProbe), nullptr, IID_IUnknown, nullptr), E_POINTER);
    EXPECT_EQ(g_slotSeen, E_ABORT) << "the creation function was called";
}

TEST_F(ClassFactory, aggregated_gives_the_inner_unknown_only) {
    const CFactoryTemplate row = Row(CreateProbe);
    test::COuterObject outer;
    IUnknown* inner = nullptr;
    auto* persist = reinterpret_cast<IPersist*>(0xDEADBEEF);

    EXPECT_EQ(CreateObject(row, outer.Unknown(), IID_IPersist, reinterpret_cast<void**>(&persist)), E_NOINTERFACE);
    EXPECT_EQ(persist, nullptr);
    ASSERT_EQ(CreateObject(row, outer.Unknown(), IID_PPV_ARGS(&inner)), S_OK);

    EXPECT_EQ(g_outerSeen, outer.Unknown());
    EXPECT_NE(inner, outer.Unknown());
    EXPECT_EQ(outer.References(), 1u);
    EXPECT_EQ(inner->Release(), 0u);
}

TEST_F(ClassFactory, class_object_is_found_by_class_and_interface) {
    const CFactoryTemplate rows[] = {Row(CreateProbe)};
    for (const IID& riid : {IID_IUnknown, IID_IClassFactory}) {
        IClassFactory* factory = nullptr;
        ASSERT_EQ(GetClassObject(rows, kGood, riid, reinterpret_cast<void**>(&factory)), S_OK);
        EXPECT_FALSE(CanUnload()) << "a class factory counts as a living object";
        EXPECT_EQ(factory->Release(), 0u);
    }
}

TEST_F(ClassFactory, class_object_refuses_other_interfaces_before_it_looks_for_the_class) {
    const CFactoryTemplate rows[] = {Row(CreateProbe)};
    void* out = reinterpret_cast<void*>(0xDEADBEEF);

    EXPECT_EQ(GetClassObject(rows, kGood, IID_IDispatch, &out), E_NOINTERFACE);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(GetClassObject(rows, kMissing, IID_IDispatch, &out), E_NOINTERFACE);
    EXPECT_EQ(GetClassObject(rows, kMissing, IID_IUnknown, &out), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(GetClassObject(rows, kGood, IID_IUnknown, nullptr), E_POINTER);
}

TEST_F(ClassFactory, class_object_hands_out_itself_and_counts_it) {
    const CFactoryTemplate rows[] = {Row(CreateProbe)};
    IClassFactory* factory = nullptr;
    ASSERT_EQ(GetClassObject(rows, kGood, IID_IClassFactory, reinterpret_cast<void**>(&factory)), S_OK);

    for (const IID& present : {IID_IUnknown, IID_IClassFactory}) {
        auto* out = reinterpret_cast<IUnknown*>(0xDEADBEEF);
        ASSERT_EQ(factory->QueryInterface(present, reinterpret_cast<void**>(&out)), S_OK);
        EXPECT_EQ(out, factory);
        EXPECT_EQ(out->Release(), 1u);
    }
    EXPECT_EQ(factory->Release(), 0u);
}

TEST_F(ClassFactory, class_object_has_no_other_interfaces) {
    const CFactoryTemplate rows[] = {Row(CreateProbe)};
    IClassFactory* factory = nullptr;
    ASSERT_EQ(GetClassObject(rows, kGood, IID_IClassFactory, reinterpret_cast<void**>(&factory)), S_OK);

    for (const IID& absent : {IID_IDispatch, IID_IPersist, IID_IMarshal}) {
        void* out = reinterpret_cast<void*>(0xDEADBEEF);
        EXPECT_EQ(factory->QueryInterface(absent, &out), E_NOINTERFACE);
        EXPECT_EQ(out, nullptr);
    }
    EXPECT_EQ(factory->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
    EXPECT_EQ(factory->Release(), 0u);
}

TEST_F(ClassFactory, server_locks_keep_the_module) {
    const CFactoryTemplate rows[] = {Row(CreateProbe)};
    IClassFactory* factory = nullptr;
    ASSERT_EQ(GetClassObject(rows, kGood, IID_IClassFactory, reinterpret_cast<void**>(&factory)), S_OK);

    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    EXPECT_EQ(factory->LockServer(FALSE), S_OK);
    EXPECT_EQ(factory->Release(), 0u);
    EXPECT_FALSE(CanUnload()) << "one lock is left";
    ChangeServerLocks(-1);
    EXPECT_TRUE(CanUnload());
}

TEST_F(ClassFactory, an_unlocking_too_many_does_not_keep_the_module) {
    ChangeServerLocks(-1);
    EXPECT_TRUE(CanUnload());
    ChangeServerLocks(+1);
    EXPECT_TRUE(CanUnload());
}

int g_loadings = 0;
int g_unloadings = 0;

TEST_F(ClassFactory, initialization_routines_run_for_the_rows_that_have_one) {
    const CFactoryTemplate rows[] = {
        Row(CreateProbe),
        {.name = L"Probe",
         .classId = &kGood,
         .create = CreateProbe,
         .initialize =
             [](BOOL loading, const CLSID* id) {
                 EXPECT_EQ(id, &kGood);
                 ++(loading ? g_loadings : g_unloadings);
             }},
    };

    InitializeClasses(rows, TRUE);
    EXPECT_EQ(g_loadings, 1);
    EXPECT_EQ(g_unloadings, 0);
    InitializeClasses(rows, FALSE);
    EXPECT_EQ(g_loadings, 1);
    EXPECT_EQ(g_unloadings, 1);
}

}  // namespace
}  // namespace kolmfluxor
