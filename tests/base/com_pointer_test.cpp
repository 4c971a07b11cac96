#include "base/com_pointer.h"

#include <gtest/gtest.h>

#include <unknwn.h>

namespace kolmfluxor::test {
namespace {

class CCounting final : public IUnknown {
public:
    ULONG references = 1;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }
};

TEST(ComPointer, TakeOver_counts_nothing_and_releases_once) {
    CCounting object;
    {
        const Microsoft::WRL::ComPtr<CCounting> owner = TakeOver(&object);
        EXPECT_EQ(owner.Get(), &object);
        EXPECT_EQ(object.references, 1u);
    }
    EXPECT_EQ(object.references, 0u);
}

TEST(ComPointer, TakeOver_of_null_is_empty) {
    EXPECT_EQ(TakeOver<CCounting>(nullptr).Get(), nullptr);
}

}  // namespace
}  // namespace kolmfluxor::test
