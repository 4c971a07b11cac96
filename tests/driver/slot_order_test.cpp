/// @file  The binary contract: each method of `IKolmFluxorPropertySet` stands in its slot.

#include <gtest/gtest.h>

#include <iterator>

#include <kolmfluxor/property_set.h>

#include "support/slots.h"

namespace kolmfluxor {
namespace {

using test::SlotOf;

struct SlotRow {
    int slot;
    const char* name;
    int actual;
};

#define KOLM_SLOT(number, method) SlotRow{number, #method, SlotOf(&IKolmFluxorPropertySet::method)},

const SlotRow kSlots[] = {KOLM_PROPERTY_SET_SLOTS(KOLM_SLOT)};

#undef KOLM_SLOT

TEST(SlotOrder, every_method_stands_in_its_slot) {
    EXPECT_EQ(std::size(kSlots), 117u);
    int expected = 3;
    for (const SlotRow& row : kSlots) {
        EXPECT_EQ(row.slot, expected++) << row.name;
        EXPECT_EQ(row.actual, row.slot) << row.name;
    }
}

TEST(SlotOrder, the_interface_adds_nothing_but_its_slots) {
    EXPECT_EQ(sizeof(IKolmFluxorPropertySet), sizeof(void*));
    using Query = HRESULT (STDMETHODCALLTYPE IUnknown::*)(REFIID, void**);
    EXPECT_EQ(SlotOf(static_cast<Query>(&IKolmFluxorPropertySet::QueryInterface)), 0);
    EXPECT_EQ(SlotOf(&IKolmFluxorPropertySet::AddRef), 1);
    EXPECT_EQ(SlotOf(&IKolmFluxorPropertySet::Release), 2);
}

}  // namespace
}  // namespace kolmfluxor
