/// @file  The simulated camera's external trigger.

#include <cstdint>
#include <utility>

#include <gtest/gtest.h>

#include "sim_fixture.h"

namespace kolmsim {
namespace {

class SimTrigger : public test::SimTest {
protected:
    static constexpr std::uint32_t kControl = 0xF0F00830;
};

constexpr std::uint32_t kInquiry = 0xC03F0FE0;

/// Mode numbers and their bits in the record.
constexpr std::pair<std::uint32_t, std::uint32_t> kModes[] = {{0, 0x10000},     {1, 0x20000},    {2, 0x40000},
                                                              {3, 0x80000},     {4, 0x100000},   {5, 0x200000},
                                                              {14, 0x40000000}, {15, 0x80000000}};

TEST_F(SimTrigger, starts_off_in_mode_0_at_source_0) {
    ASSERT_EQ(Get(53), Status::ok);
    EXPECT_EQ(Word(32), kInquiry);
    EXPECT_EQ(Word(28), 0x10100U);
    EXPECT_EQ(Word(24), 1U);
    EXPECT_EQ(ReadRegister(kControl), 0x80000001U);
}

TEST_F(SimTrigger, inquiry_register_tells_what_the_record_tells) {
    EXPECT_EQ(ReadRegister(0xF0F00530), 0x8FF1FC03U);
    ASSERT_TRUE(m_camera.SetPropertyWord(53, 32, 0x20 | 0x200 | 0x40000));
    EXPECT_EQ(ReadRegister(0xF0F00530), 0x8C412000U);
}

TEST_F(SimTrigger, every_mode_goes_both_ways) {
    for (const auto& [number, bit] : kModes) {
        SCOPED_TRACE(number);
        ASSERT_EQ(Set(53, 64, {{24, 7}, {28, bit | 0x20 | 0x40}}), Status::ok);
        EXPECT_EQ(ReadRegister(kControl), 0x83000007U | number << 16);

        WriteRegister(kControl, number << 16 | 9);
        ASSERT_EQ(Get(53), Status::ok);
        EXPECT_EQ(Word(28), bit | 0x100);
        EXPECT_EQ(Word(24), 9U);
    }
}

TEST_F(SimTrigger, sources_go_both_ways_and_stay_when_none_is_named) {
    for (std::uint32_t source = 0; source < 4; ++source) {
        ASSERT_EQ(Set(53, 64, {{28, 0x20000 | 0x100U << source}}), Status::ok);
        EXPECT_EQ(ReadRegister(kControl) >> 21 & 7, source);
        WriteRegister(kControl, source << 21 | 1U << 16);
        EXPECT_EQ(Mode(53) & 0xF00, 0x100U << source);
    }
    ASSERT_EQ(Set(53, 64, {{28, 0x20}}), Status::ok);
    EXPECT_EQ(Mode(53), 0x20000U | 0x800 | 0x20);
}

TEST_F(SimTrigger, what_the_camera_lacks_is_refused) {
    ASSERT_TRUE(m_camera.SetPropertyWord(53, 32, kInquiry & ~(0x40000U | 0x800U)));
    for (const std::uint32_t bits : {0x40000U, 0x800U, 0x30000U, 0x300U, 0x1U, 0x80U, 0x400000U}) {
        EXPECT_EQ(Set(53, 64, {{28, bits}}), Status::invalidParameter) << std::hex << bits;
    }
    EXPECT_EQ(Set(53, 64, {{24, 4096}, {28, 0x10000}}), Status::invalidParameter);
    EXPECT_EQ(Mode(53), 0x10100U);

    for (const std::uint32_t word : {2U << 16, 6U << 16, 3U << 21, 7U << 21}) {
        WriteRegister(kControl, word | 0x02000000);
        EXPECT_EQ(ReadRegister(kControl), 0x80000001U) << std::hex << word;
        EXPECT_EQ(ReadRegister(0xF0F00640), 0x00080000U) << std::hex << word;
    }
    WriteRegister(kControl, 0x02000000);
    EXPECT_EQ(ReadRegister(0xF0F00640), 0U);
}

TEST_F(SimTrigger, a_switch_that_the_camera_lacks_stays_off) {
    ASSERT_TRUE(m_camera.SetPropertyWord(53, 32, 0x10000));
    ASSERT_EQ(Set(53, 64, {{28, 0x10000 | 0x20 | 0x40}}), Status::ok);
    EXPECT_EQ(Mode(53) & 0x60, 0U);
}

TEST_F(SimTrigger, a_trigger_that_cannot_be_switched_off_is_on) {
    ASSERT_TRUE(m_camera.SetPropertyWord(53, 32, 0x10000));
    EXPECT_EQ(ReadRegister(kControl), 0x82000001U);
    WriteRegister(0xF0F0062C, 0x80000000);
    EXPECT_EQ(ReadRegister(0xF1000620), 1U);
}

TEST_F(SimTrigger, the_register_shows_nothing_that_the_camera_lacks) {
    ASSERT_TRUE(m_camera.SetPropertyWord(53, 28, 0x200E0 | 0x400));
    EXPECT_EQ(ReadRegister(kControl), 0x83510001U);
    ASSERT_TRUE(m_camera.SetPropertyWord(53, 32, 0x10020));
    EXPECT_EQ(ReadRegister(kControl), 0x82000001U);
}

TEST_F(SimTrigger, a_camera_without_a_trigger_shows_it_everywhere) {
    EXPECT_NE(ReadRegister(0xF0F00404) & 0x00080000, 0U);
    ASSERT_EQ(Set(53, 64, {{24, 7}, {28, 0x10020}}), Status::ok);
    ASSERT_TRUE(m_camera.SetPropertyPresent(53, false));
    EXPECT_EQ(ReadRegister(0xF0F00404) & 0x00080000, 0U);
    EXPECT_EQ(ReadRegister(0xF0F00530), 0U);
    EXPECT_EQ(ReadRegister(kControl), 0U);
    ASSERT_EQ(Get(53), Status::ok);
    for (const std::size_t offset : {24U, 28U, 32U}) {
        EXPECT_EQ(Word(offset), 0U) << offset;
    }
    EXPECT_EQ(Set(53, 64, {{28, 0x10000}}), Status::invalidParameter);
    WriteRegister(kControl, 0x02000000);
    EXPECT_EQ(ReadRegister(0xF0F00640), 0x00080000U);
    WriteRegister(0xF0F0062C, 0x80000000);
    EXPECT_EQ(ReadRegister(0xF1000620), 0U);

    ASSERT_TRUE(m_camera.SetPropertyPresent(53, true));
    EXPECT_EQ(ReadRegister(kControl), 0x82000007U) << "as it was";
}

TEST_F(SimTrigger, signal_level_shows_and_survives_a_set) {
    ASSERT_TRUE(m_camera.SetPropertyWord(53, 28, 0x10180));
    EXPECT_EQ(ReadRegister(kControl) >> 20 & 1, 1U);
    ASSERT_EQ(Set(53, 64, {{28, 0x20000}}), Status::ok);
    EXPECT_EQ(Mode(53) & 0x80, 0x80U);
}

TEST_F(SimTrigger, software_triggers_are_counted_while_the_trigger_is_on) {
    WriteRegister(0xF0F0062C, 0x80000000);
    EXPECT_EQ(ReadRegister(0xF1000620), 0U);

    WriteRegister(kControl, 0x02000000);
    WriteRegister(0xF0F0062C, 0x80000000);
    WriteRegister(0xF0F0062C, 0x80000000);

    EXPECT_EQ(ReadRegister(0xF1000620), 2U);
    EXPECT_EQ(ReadRegister(0xF0F0062C), 0U);
}

}  // namespace
}  // namespace kolmsim
