/// @file  The scalable video modes of the simulated camera.

#include <array>
#include <bit>
#include <cstdint>

#include <gtest/gtest.h>

#include "sim_fixture.h"

namespace kolmsim {
namespace {

class SimFormat7 : public test::SimTest {
protected:
    /// A SET of geometry (left, top, width, height), color coding and packet size.
    Status SetInfo(std::uint32_t id, std::uint32_t mode, std::array<std::uint32_t, 4> area, std::uint32_t coding,
                   std::uint32_t packet) {
        return Set(
            id, 96,
            {{28, mode}, {32, packet}, {48, area[0]}, {52, area[1]}, {56, area[2]}, {60, area[3]}, {68, coding}});
    }
    Status GetInfo(std::uint32_t mode) { return Get(13, 96, {{28, mode}}); }

    static std::uint32_t Address(std::uint32_t mode, std::uint32_t offset) {
        return 0xF0F08000 + 0x1000 * mode + offset;
    }
};
class SimMonoFormat7 : public test::SimMonoTest {};

TEST_F(SimFormat7, the_record_tells_what_the_registers_tell) {
    for (std::uint32_t mode = 0; mode < 8; ++mode) {
        SCOPED_TRACE(mode);
        ASSERT_EQ(GetInfo(mode), Status::ok);
        const std::vector<std::uint8_t> record = m_record;
        const auto word = [&](std::size_t offset) { return ReadWord(record, offset); };
        EXPECT_EQ(ReadRegister(Address(mode, 0x00)), word(80) << 16 | word(84));
        EXPECT_EQ(ReadRegister(Address(mode, 0x04)), word(72) << 16 | word(76));
        EXPECT_EQ(ReadRegister(Address(mode, 0x08)), word(48) << 16 | word(52));
        EXPECT_EQ(ReadRegister(Address(mode, 0x0C)), word(56) << 16 | word(60));
        EXPECT_EQ(ReadRegister(Address(mode, 0x10)), word(68) << 24);
        EXPECT_EQ(ReadRegister(Address(mode, 0x34)), word(56) * word(60));
        EXPECT_EQ(ReadRegister(Address(mode, 0x3C)), word(88));
        EXPECT_EQ(ReadRegister(Address(mode, 0x40)), 4U << 16 | word(64));
        EXPECT_EQ(ReadRegister(Address(mode, 0x44)), word(32) << 16 | word(92));
        EXPECT_EQ(ReadRegister(Address(mode, 0x48)), (word(88) + word(32) - 1) / word(32));
        EXPECT_EQ(ReadRegister(Address(mode, 0x7C)), 0x80000000U);
        EXPECT_EQ(ReadRegister(0xF0F002E0 + 4 * mode) * 4 + 0xF0000000U, Address(mode, 0));
    }
}

TEST_F(SimFormat7, a_frame_takes_a_thirtieth_of_a_second_at_the_recommended_packet_size) {
    for (const std::uint32_t mode : {1U, 2U, 3U, 4U, 6U}) {
        const float seconds = std::bit_cast<float>(ReadRegister(Address(mode, 0x50)));
        EXPECT_NEAR(seconds, 1.0F / 30, 0.001F) << mode;
    }
    EXPECT_EQ(ReadRegister(Address(0, 0x44)), 4096U << 16 | 4096) << "the largest: 300 packets";
}

TEST_F(SimFormat7, modes_that_the_camera_lacks_are_refused) {
    for (const std::uint32_t mode : {8U, 9U, 0xFFFFFFFFU}) {
        EXPECT_EQ(GetInfo(mode), Status::invalidParameter);
        EXPECT_EQ(SetInfo(13, mode, {0, 0, 8, 2}, 0, 0), Status::invalidParameter);
        EXPECT_EQ(SetInfo(17, mode, {0, 0, 8, 2}, 0, 0), Status::invalidParameter);
        EXPECT_EQ(SetInfo(20, mode, {0, 0, 8, 2}, 0, 0), Status::invalidParameter);
        EXPECT_EQ(Set(15, 96, {{28, mode}}), Status::invalidParameter);
        EXPECT_EQ(Get(65, 40, {{24, mode}}), Status::invalidParameter);
    }
}

TEST_F(SimFormat7, a_geometry_shows_in_the_registers) {
    ASSERT_EQ(SetInfo(13, 0, {12, 34, 320, 100}, 2, 400), Status::ok);

    EXPECT_EQ(ReadRegister(Address(0, 0x08)), 12U << 16 | 34);
    EXPECT_EQ(ReadRegister(Address(0, 0x0C)), 320U << 16 | 100);
    EXPECT_EQ(ReadRegister(Address(0, 0x10)), 2U << 24);
    EXPECT_EQ(ReadRegister(Address(0, 0x44)) >> 16, 400U);
    EXPECT_EQ(ReadRegister(Address(0, 0x3C)), 64000U);
    EXPECT_EQ(ReadRegister(Address(1, 0x0C)), 640U << 16 | 960) << "other modes stay";
}

TEST_F(SimFormat7, registers_show_in_the_record) {
    WriteRegister(Address(4, 0x0C), 100U << 16 | 50);
    WriteRegister(Address(4, 0x08), 220U << 16 | 190);
    WriteRegister(Address(4, 0x10), 4U << 24);
    WriteRegister(Address(4, 0x44), 1000U << 16);

    ASSERT_EQ(GetInfo(4), Status::ok);

    EXPECT_EQ(Word(48), 220U);
    EXPECT_EQ(Word(52), 190U);
    EXPECT_EQ(Word(56), 100U);
    EXPECT_EQ(Word(60), 50U);
    EXPECT_EQ(Word(68), 4U);
    EXPECT_EQ(Word(32), 1000U);
    EXPECT_EQ(Word(44), 24U);
}

TEST_F(SimFormat7, a_register_write_that_is_impossible_is_flagged) {
    struct Write {
        std::uint32_t offset, word;
    };
    for (const Write& write : {Write{0x0C, 1288U << 16 | 10}, Write{0x0C, 9U << 16 | 10}, Write{0x0C, 0},
                               Write{0x08, 4U << 16}, Write{0x10, 5U << 24}, Write{0x44, 0}, Write{0x44, 296U << 16},
                               Write{0x0C, ~0U}, Write{0x44, 2U << 16}, Write{0x44, 4100U << 16}}) {
        const std::uint32_t before = ReadRegister(Address(0, write.offset));
        WriteRegister(Address(0, write.offset), write.word);
        EXPECT_EQ(ReadRegister(Address(0, write.offset)), before) << std::hex << write.offset << " " << write.word;
        EXPECT_EQ(ReadRegister(Address(0, 0x7C)), 0x80800000U) << std::hex << write.offset << " " << write.word;
        WriteRegister(Address(0, 0x08), 0);
        EXPECT_EQ(ReadRegister(Address(0, 0x7C)), 0x80000000U);
    }
}

TEST_F(SimFormat7, a_size_moves_the_image_where_it_does_not_fit) {
    WriteRegister(Address(0, 0x0C), 320U << 16 | 240);
    WriteRegister(Address(0, 0x08), 960U << 16 | 720);
    WriteRegister(Address(0, 0x0C), 1280U << 16 | 880);

    EXPECT_EQ(ReadRegister(Address(0, 0x08)), 80U);
}

TEST_F(SimFormat7, only_what_is_exactly_possible_is_set) {
    struct Case {
        std::array<std::uint32_t, 4> area;
        std::uint32_t coding;
        std::uint32_t packet;
    };
    for (const Case& each :
         {Case{{0, 0, 1284, 480}, 0, 0}, Case{{0, 0, 640, 481}, 0, 0}, Case{{2, 0, 320, 240}, 0, 0},
          Case{{964, 0, 320, 240}, 0, 0}, Case{{0, 0, 0, 0}, 0, 0}, Case{{0, 0, 320, 240}, 5, 0},
          Case{{0, 0, 320, 240}, 0, 4100}, Case{{0, 0, 320, 240}, 0, 6}, Case{{~0U, ~0U, ~0U, ~0U}, ~0U, ~0U}}) {
        EXPECT_EQ(SetInfo(13, 0, each.area, each.coding, each.packet), Status::invalidParameter)
            << each.area[0] << " " << each.area[2] << " " << each.coding << " " << each.packet;
    }
    ASSERT_EQ(GetInfo(0), Status::ok);
    EXPECT_EQ(Word(56), 1280U);
    EXPECT_EQ(Word(60), 960U);
}

TEST_F(SimFormat7, the_nearest_possible_can_be_asked_for) {
    ASSERT_EQ(SetInfo(17, 0, {14, 1000, 325, 3}, 77, 4099), Status::ok);
    EXPECT_EQ(Word(48), 12U);
    EXPECT_EQ(Word(52), 958U);
    EXPECT_EQ(Word(56), 320U);
    EXPECT_EQ(Word(60), 2U);
    EXPECT_EQ(Word(68), 0U);
    EXPECT_EQ(Word(32), 4096U);

    ASSERT_EQ(Set(17, 96, {{28, 0}, {56, 640}, {60, 480}, {64, 1002}, {32, 2000}}), Status::ok);
    EXPECT_EQ(Word(32), 1000U) << "bounded";
}

TEST_F(SimFormat7, the_selection_names_the_mode_for_others) {
    ASSERT_EQ(Set(15, 96, {{28, 4}}), Status::ok);
    ASSERT_EQ(Get(15, 96), Status::ok);
    EXPECT_EQ(Word(28), 4U);

    ASSERT_EQ(Get(18, 96), Status::ok);
    EXPECT_EQ(Word(88), 320U * 240);
    EXPECT_EQ(Word(92), 292U) << "76800 / 266, up to a multiple of 4";
    EXPECT_EQ(Set(18, 96, {}), Status::invalidParameter);

    ASSERT_EQ(Set(16, 32, {{24, 800}}), Status::ok);
    EXPECT_EQ(ReadRegister(Address(4, 0x44)) >> 16, 800U);
    ASSERT_EQ(Set(16, 32, {{24, 0}}), Status::ok);
    EXPECT_EQ(Word(24), 292U);
    EXPECT_EQ(Set(16, 32, {{24, 801}}), Status::invalidParameter);
}

TEST_F(SimFormat7, color_codings_are_chosen_by_index) {
    constexpr std::uint32_t kCodings[] = {0, 1, 2, 4, 9};
    for (std::uint32_t index = 0; index < 5; ++index) {
        ASSERT_EQ(Set(14, 96, {{28, index}}), Status::ok);
        ASSERT_EQ(Get(14, 96), Status::ok);
        EXPECT_EQ(Word(28), index);
        EXPECT_EQ(Word(44), kCodings[index]);
        EXPECT_EQ(ReadRegister(Address(0, 0x10)), kCodings[index] << 24);
    }
    EXPECT_EQ(Set(14, 96, {{28, 5}}), Status::invalidParameter);
    EXPECT_EQ(ReadRegister(Address(0, 0x14)), 0xE8400000U);
    EXPECT_EQ(ReadRegister(Address(6, 0x14)), 0xC0000000U) << "another mode, other codings";
}

TEST_F(SimMonoFormat7, a_mono_camera_has_8_and_16_bits) {
    EXPECT_EQ(ReadRegister(0xF0F08014), 0x84000000U);
    EXPECT_EQ(Set(14, 96, {{28, 2}}), Status::invalidParameter);
    ASSERT_EQ(Set(14, 96, {{28, 1}}), Status::ok);
    EXPECT_EQ(Word(44), 5U);
    EXPECT_EQ(ReadRegister(0xF0F08054), 12U << 24);
}

TEST_F(SimFormat7, a_calculation_changes_nothing) {
    ASSERT_EQ(SetInfo(20, 0, {0, 0, 320, 240}, 2, 0), Status::ok);
    EXPECT_EQ(Word(88), 320U * 240 * 2);
    EXPECT_EQ(Word(92), 580U) << "153600 / 266, up to a multiple of 4";

    EXPECT_EQ(ReadRegister(Address(0, 0x0C)), 1280U << 16 | 960);
    EXPECT_EQ(Get(20, 96), Status::invalidParameter);
    EXPECT_EQ(SetInfo(20, 0, {0, 0, 321, 240}, 2, 0), Status::invalidParameter);
}

TEST_F(SimFormat7, an_image_position_is_brought_to_its_units_and_into_the_sensor) {
    ASSERT_EQ(SetInfo(13, 0, {0, 0, 320, 240}, 0, 0), Status::ok);

    ASSERT_EQ(Set(65, 40, {{24, 0}, {28, 13}, {32, 25}}), Status::ok);
    EXPECT_EQ(Word(28), 12U);
    EXPECT_EQ(Word(32), 24U);
    ASSERT_EQ(Set(65, 40, {{24, 0}, {28, 5000}, {32, 5000}}), Status::ok);
    EXPECT_EQ(Word(28), 960U);
    EXPECT_EQ(Word(32), 720U);

    ASSERT_EQ(Get(65, 40, {{24, 0}}), Status::ok);
    EXPECT_EQ(Word(28), 960U);
    EXPECT_EQ(ReadRegister(Address(0, 0x08)), 960U << 16 | 720);
}

}  // namespace
}  // namespace kolmsim
