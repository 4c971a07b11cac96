/// @file  Trigger state: two words, of which a capability counts only when both have it.

#include <string>

#include "support/property_set_test.h"

namespace kolmfluxor::test {
namespace {

constexpr ULONG kTriggerId = 53;
constexpr ULONG kState = 28;
constexpr ULONG kInquiry = 32;

class Trigger : public PropertySetTest {
protected:
    struct State {
        ULONG mode = kPoison;
        ULONG on = kPoison;
        ULONG polarity = kPoison;
        ULONG valueFlag = kPoison;
        bool operator==(const State&) const = default;
    };

    State Read(ULONG inquiry, ULONG state) {
        Renew(L"color");
        Object().Patch(kTriggerId, kInquiry, inquiry);
        Object().Patch(kTriggerId, kState, state);
        State read;
        EXPECT_EQ(Object()->GetTrigger(&read.mode, &read.on, &read.polarity, &read.valueFlag), S_OK);
        EXPECT_EQ(Object().Sent(), Wire{Get(kTriggerId)});
        return read;
    }
};

TEST_F(Trigger, is_on_unless_it_can_be_switched_off_and_is) {
    EXPECT_EQ(Read(0x00, 0x00).on, 1u);
    EXPECT_EQ(Read(0x00, 0x20).on, 1u);
    EXPECT_EQ(Read(0x20, 0x20).on, 1u);
    EXPECT_EQ(Read(0x20, 0x00).on, 0u);
}

TEST_F(Trigger, polarity_and_value_count_only_when_both_words_hold_them) {
    for (const ULONG bit : {0x40u, 0x80u}) {
        SCOPED_TRACE(bit);
        const auto told = [&](ULONG inquiry, ULONG state) {
            const State read = Read(inquiry, state);
            EXPECT_EQ(bit == 0x40 ? read.valueFlag : read.polarity, 0u) << "the other one";
            return bit == 0x40 ? read.polarity : read.valueFlag;
        };
        EXPECT_EQ(told(0, 0), 0u);
        EXPECT_EQ(told(bit, 0), 0u);
        EXPECT_EQ(told(0, bit), 0u);
        EXPECT_EQ(told(bit, bit), 1u);
    }
}

TEST_F(Trigger, mode_is_the_first_mask_that_both_words_hold) {
    constexpr ULONG masks[] = {0x10000, 0x20000, 0x40000, 0x80000, 0x100000, 0x200000, 0x40000000, 0x80000000};
    for (const ULONG mask : masks) {
        EXPECT_EQ(Read(mask, mask).mode, mask);
        EXPECT_EQ(Read(mask, 0).mode, kPoison) << "none: left alone";
        EXPECT_EQ(Read(0, mask).mode, kPoison);
    }
    for (std::size_t first = 0; first < std::size(masks); ++first) {
        ULONG rest = 0;
        for (std::size_t i = first; i < std::size(masks); ++i)
            rest |= masks[i];
        EXPECT_EQ(Read(0xFFFFFFFF, rest).mode, masks[first]);
        EXPECT_EQ(Read(rest, 0xFFFFFFFF).mode, masks[first]);
    }
    EXPECT_EQ(Read(0x3FC0FFFF, 0x3FC0FFFF).mode, kPoison) << "bits between the masks are no modes";
}

TEST_F(Trigger, null_outputs_are_skipped) {
    Object().Patch(kTriggerId, kInquiry, 0x200E0);
    Object().Patch(kTriggerId, kState, 0x200E0);
    ULONG mode = kPoison;
    ULONG on = kPoison;
    ULONG polarity = kPoison;
    ULONG valueFlag = kPoison;

    EXPECT_EQ(Object()->GetTrigger(nullptr, nullptr, nullptr, nullptr), S_OK);
    EXPECT_EQ(Object()->GetTrigger(&mode, nullptr, nullptr, nullptr), S_OK);
    EXPECT_EQ(mode, 0x20000u);
    EXPECT_EQ(Object()->GetTrigger(nullptr, &on, nullptr, nullptr), S_OK);
    EXPECT_EQ(on, 1u);
    EXPECT_EQ(Object()->GetTrigger(nullptr, nullptr, &polarity, nullptr), S_OK);
    EXPECT_EQ(polarity, 1u);
    EXPECT_EQ(Object()->GetTrigger(nullptr, nullptr, nullptr, &valueFlag), S_OK);
    EXPECT_EQ(valueFlag, 1u);
    EXPECT_EQ(Object().Sent().size(), 5u) << "one request a call";
}

TEST_F(Trigger, a_failed_request_writes_nothing) {
    Object().FailNth(1, E_ACCESSDENIED);
    State read;

    EXPECT_EQ(Object()->GetTrigger(&read.mode, &read.on, &read.polarity, &read.valueFlag), E_ACCESSDENIED);
    EXPECT_EQ(read, State{});
}

TEST_F(Trigger, another_success_code_is_a_success_and_passes_through) {
    Object().Patch(kTriggerId, kInquiry, 0x20, S_FALSE);
    Object().Patch(kTriggerId, kState, 0, S_FALSE);
    ULONG on = kPoison;

    EXPECT_EQ(Object()->GetTrigger(nullptr, &on, nullptr, nullptr), S_FALSE);
    EXPECT_EQ(on, 0u);
}

TEST_F(Trigger, set_counts_on_and_polarity_only_when_exactly_1) {
    Camera().AddFault({.nth = 0, .action = kolmsim::SimFaultAction::answer, .code = S_OK});
    EXPECT_EQ(Object()->SetTrigger(0x40000000, 1, 1, 5), S_OK);
    EXPECT_EQ(Object()->SetTrigger(0x10000, 1, 0, 5), S_OK);
    EXPECT_EQ(Object()->SetTrigger(0x10000, 0, 1, 5), S_OK);
    EXPECT_EQ(Object()->SetTrigger(0x10000, 2, 0xFFFFFFFF, 5), S_OK);

    const auto set = [](ULONG word) { return Set(kTriggerId).With(24, 5).With(28, word); };
    EXPECT_EQ(Object().Sent(), (Wire{set(0x40000060), set(0x10020), set(0x10040), set(0x10000)}));
}

TEST_F(Trigger, of_the_simulated_camera_can_be_set_and_read_back) {
    ULONG inquiry = 0;
    ASSERT_EQ(Object()->GetTriggerInquiry(&inquiry), S_OK);
    for (const ULONG mask : {0x10000u, 0x20000u, 0x80000000u}) {
        if ((inquiry & mask) == 0) continue;
        SCOPED_TRACE(mask);
        for (const ULONG on : {0u, 1u}) {
            State read;
            ASSERT_EQ(Object()->SetTrigger(mask, on, on, 1), S_OK);
            ASSERT_EQ(Object()->GetTrigger(&read.mode, &read.on, &read.polarity, &read.valueFlag), S_OK);
            EXPECT_EQ(read.mode, mask);
            EXPECT_EQ(read.on, on);
            EXPECT_EQ(read.polarity, on);
        }
    }
    EXPECT_NE(inquiry & 0x10000, 0u) << "mode 0 is there at least";
}

}  // namespace
}  // namespace kolmfluxor::test
