#include "driver/property_set.h"

#include <gtest/gtest.h>

#include <memory>

#include "support/property_set_test.h"

namespace kolmfluxor {
namespace {

TEST(PropertySetCreation, keeps_a_failure_that_is_there_already_and_does_not_ask_the_filter) {
    test::CCameraFilter filter(reinterpret_cast<HANDLE>(0x1234));
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

}  // namespace
}  // namespace kolmfluxor
