#include "base/unknown.h"

#include <gtest/gtest.h>

#include <memory>
#include <new>

#include <objidl.h>
#include <ocidl.h>

#include "support/outer_object.h"

namespace kolmfluxor {
namespace {

/// Two interfaces, and a flag that tells when it dies.
class CProbe final : public Implements<ISpecifyPropertyPages, IPersist> {
public:
    CProbe(IUnknown* outer, bool* alive) : Implements(outer), m_alive(alive) { *m_alive = true; }
    ~CProbe() override { *m_alive = false; }

    HRESULT STDMETHODCALLTYPE GetPages(CAUUID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetClassID(CLSID*) override { return E_NOTIMPL; }

private:
    bool* m_alive;
};

/// Counts itself up and down in its destructor, as an object does that lets an own interface go.
class CSelfCounting final : public Implements<IPersist> {
public:
    CSelfCounting(IUnknown* outer, int* destructions) : Implements(outer), m_destructions(destructions) {}
    ~CSelfCounting() override {
        ++*m_destructions;
        AddRef();
        Release();
    }
    HRESULT STDMETHODCALLTYPE GetClassID(CLSID*) override { return E_NOTIMPL; }

private:
    int* m_destructions;
};

class Unknown : public ::testing::Test {
protected:
    ~Unknown() override { EXPECT_EQ(CBaseObject::ObjectsActive(), 0) << "objects were left behind"; }

    bool m_alive = false;
};

TEST_F(Unknown, counts_from_zero_and_dies_with_the_last_release) {
    auto* const probe = new CProbe(nullptr, &m_alive);
    EXPECT_EQ(CBaseObject::ObjectsActive(), 1);

    EXPECT_EQ(probe->Inner()->AddRef(), 1u);
    EXPECT_EQ(probe->Inner()->AddRef(), 2u);
    EXPECT_EQ(probe->Inner()->Release(), 1u);
    EXPECT_TRUE(m_alive);
    EXPECT_EQ(probe->Inner()->Release(), 0u);

    EXPECT_FALSE(m_alive);
}

TEST_F(Unknown, has_the_same_identity_whichever_way_it_is_asked) {
    auto* const probe = new CProbe(nullptr, &m_alive);
    probe->Inner()->AddRef();
    ISpecifyPropertyPages* pages = nullptr;
    IPersist* persist = nullptr;
    IUnknown* byInner = nullptr;
    IUnknown* byPages = nullptr;
    IUnknown* byPersist = nullptr;

    ASSERT_EQ(probe->Inner()->QueryInterface(IID_PPV_ARGS(&pages)), S_OK);
    ASSERT_EQ(pages->QueryInterface(IID_PPV_ARGS(&persist)), S_OK);
    ASSERT_EQ(probe->Inner()->QueryInterface(IID_PPV_ARGS(&byInner)), S_OK);
    ASSERT_EQ(pages->QueryInterface(IID_PPV_ARGS(&byPages)), S_OK);
    ASSERT_EQ(persist->QueryInterface(IID_PPV_ARGS(&byPersist)), S_OK);

    EXPECT_EQ(byInner, probe->Inner());
    EXPECT_EQ(byPages, probe->Inner());
    EXPECT_EQ(byPersist, probe->Inner());
    EXPECT_EQ(static_cast<void*>(pages), static_cast<ISpecifyPropertyPages*>(probe));
    EXPECT_EQ(static_cast<void*>(persist), static_cast<IPersist*>(probe));
    for (ULONG left = 5; left > 0; --left)
        EXPECT_EQ(pages->Release(), left);
    EXPECT_EQ(probe->Inner()->Release(), 0u);
    EXPECT_FALSE(m_alive);
}

TEST_F(Unknown, refuses_other_interfaces_and_clears_the_output) {
    auto* const probe = new CProbe(nullptr, &m_alive);
    probe->Inner()->AddRef();

    for (const IID& absent : {IID_IDispatch, IID_IClassFactory, IID_IStream, IID_IPersistStream}) {
        void* out = reinterpret_cast<void*>(0xDEADBEEF);
        EXPECT_EQ(probe->Inner()->QueryInterface(absent, &out), E_NOINTERFACE);
        EXPECT_EQ(out, nullptr);
    }

    EXPECT_EQ(probe->Inner()->Release(), 0u);
}

TEST_F(Unknown, refuses_a_null_output) {
    auto* const probe = new CProbe(nullptr, &m_alive);
    probe->Inner()->AddRef();

    EXPECT_EQ(probe->Inner()->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
    EXPECT_EQ(probe->Inner()->QueryInterface(IID_IPersist, nullptr), E_POINTER);

    EXPECT_EQ(probe->Inner()->Release(), 0u);
}

TEST_F(Unknown, aggregated_interfaces_delegate_to_the_outer_object) {
    test::COuterObject outer;
    auto* const probe = new CProbe(outer.Unknown(), &m_alive);
    IUnknown* const inner = probe->Inner();
    inner->AddRef();
    outer.Aggregate(inner);
    IPersist* persist = nullptr;

    ASSERT_EQ(inner->QueryInterface(IID_PPV_ARGS(&persist)), S_OK);
    EXPECT_EQ(outer.References(), 2u) << "an interface of the inner object counts on the outer one";
    EXPECT_EQ(persist->AddRef(), 3u);
    EXPECT_EQ(persist->Release(), 2u);

    IUnknown* identity = nullptr;
    ASSERT_EQ(persist->QueryInterface(IID_PPV_ARGS(&identity)), S_OK);
    EXPECT_EQ(identity, outer.Unknown());
    identity->Release();
    persist->Release();
    EXPECT_EQ(outer.References(), 1u);
    EXPECT_EQ(inner->AddRef(), 2u) << "the outer count must not have moved the inner one";
    inner->Release();
    EXPECT_EQ(inner->Release(), 0u);
    EXPECT_FALSE(m_alive);
    EXPECT_EQ(outer.References(), 1u);
}

TEST_F(Unknown, aggregated_inner_unknown_is_not_the_outer_object) {
    test::COuterObject outer;
    auto* const probe = new CProbe(outer.Unknown(), &m_alive);
    IUnknown* unknown = nullptr;

    probe->Inner()->AddRef();
    ASSERT_EQ(probe->Inner()->QueryInterface(IID_PPV_ARGS(&unknown)), S_OK);

    EXPECT_EQ(unknown, probe->Inner());
    EXPECT_NE(unknown, outer.Unknown());
    EXPECT_EQ(outer.References(), 1u);
    unknown->Release();
    EXPECT_EQ(probe->Inner()->Release(), 0u);
}

TEST_F(Unknown, counting_in_a_destructor_does_not_delete_twice) {
    int destructions = 0;
    auto* const object = new CSelfCounting(nullptr, &destructions);

    object->Inner()->AddRef();
    EXPECT_EQ(object->Inner()->Release(), 0u);

    EXPECT_EQ(destructions, 1);
}

}  // namespace
}  // namespace kolmfluxor
