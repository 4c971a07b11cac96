/// @file  Registers of the simulated camera: which there are, and the IIDC ones.

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <set>
#include <vector>

#include <gtest/gtest.h>

#include "model/register_table.h"
#include "sim_fixture.h"

namespace kolmsim {
namespace {

class SimRegister : public test::SimTest {};
class SimMonoRegister : public test::SimMonoTest {};

/// So many registers, 4 bytes apart.
struct Run {
    std::uint32_t first;
    std::uint32_t count;
};

/// Every register that has a name, by its address.
std::set<std::uint32_t> NamedAddresses() {
    constexpr Run kRuns[] = {
        {0xF0F00000, 1},  {0xF0F00100, 1},                    // initialize, formats
        {0xF0F00180, 4},  {0xF0F00198, 2},                    // modes
        {0xF0F00200, 7},  {0xF0F00220, 8}, {0xF0F00240, 8},   // rates
        {0xF0F002E0, 8},                                      // scalable modes
        {0xF0F00400, 4},  {0xF0F00480, 4}, {0xF0F00500, 16},  // functions, features
        {0xF0F00600, 13}, {0xF0F00640, 2},                    // status and control
        {0xF0F00800, 16}, {0xF0F00880, 4}, {0xF0F008C0, 2},   // feature control
        {0xF1000010, 1},  {0xF1000018, 1}, {0xF1000040, 4},  {0xF1000100, 1}, {0xF1000200, 1}, {0xF1000208, 3},
        {0xF1000220, 4},  {0xF1000240, 3}, {0xF1000250, 3},  {0xF1000260, 1}, {0xF1000270, 2}, {0xF1000280, 6},
        {0xF1000300, 4},  {0xF1000320, 4}, {0xF1000340, 1},  {0xF1000360, 3}, {0xF1000370, 1}, {0xF1000390, 3},
        {0xF10003A0, 10}, {0xF1000400, 1}, {0xF1000410, 1},  {0xF1000440, 1}, {0xF1000510, 1}, {0xF1000520, 1},
        {0xF1000550, 1},  {0xF1000560, 1}, {0xF1000570, 1},  {0xF1000580, 1}, {0xF1000620, 1},
    };
    std::set<std::uint32_t> addresses;
    for (const Run& run : kRuns) {
        for (std::uint32_t i = 0; i < run.count; ++i) {
            addresses.insert(run.first + 4 * i);
        }
    }
    for (std::uint32_t mode = 0; mode < 8; ++mode) {
        for (std::uint32_t offset = 0; offset <= 0x58; offset += 4) {
            addresses.insert(0xF0F08000 + 0x1000 * mode + offset);
        }
        addresses.insert(0xF0F0807C + 0x1000 * mode);
    }
    return addresses;
}

TEST_F(SimRegister, all_358_named_registers_answer) {
    const std::set<std::uint32_t> addresses = NamedAddresses();

    EXPECT_EQ(addresses.size(), 358U);
    EXPECT_EQ(NamedRegisterCount(), 358U);
    for (const std::uint32_t address : addresses) {
        EXPECT_EQ(Get(11, 32, {{24, address}}), Status::ok) << std::hex << address;
        const RegisterEntry* entry = FindRegister(address);
        ASSERT_NE(entry, nullptr) << std::hex << address;
        EXPECT_FALSE(entry->rule->nameless) << std::hex << address;
    }
}

TEST_F(SimRegister, registers_without_a_name_answer_too) {
    for (const std::uint32_t address : {0xF0F0021CU, 0xF0F00190U, 0xF0F0805CU, 0xF0F0F078U}) {
        EXPECT_EQ(ReadRegister(address), 0U) << std::hex << address;
    }
    EXPECT_EQ(ReadRegister(0xF1000FFC) & 0xFFFF, kGpBufferBytes);
}

TEST_F(SimRegister, what_shows_something_else_stores_nothing) {
    for (const RegisterEntry& entry : RegisterTable()) {
        EXPECT_TRUE(entry.rule->read == nullptr || entry.rule->writable == 0) << std::hex << entry.address;
        EXPECT_TRUE(entry.rule->write == nullptr || entry.rule->writable == 0) << std::hex << entry.address;
    }
}

TEST_F(SimRegister, inquiry_registers_ignore_writes) {
    for (const std::uint32_t address : NamedAddresses()) {
        const bool isInquiry = (address >= 0xF0F00100 && address < 0xF0F00600) || address == 0xF1000248 ||
                               address == 0xF1000258 || (address >= 0xF1000010 && address <= 0xF1000200);
        if (!isInquiry) {
            continue;
        }
        const std::uint32_t before = ReadRegister(address);
        WriteRegister(address, ~before);
        EXPECT_EQ(ReadRegister(address), before) << std::hex << address;
    }
}

TEST_F(SimRegister, every_register_takes_any_write) {
    for (const std::uint32_t address : NamedAddresses()) {
        for (const std::uint32_t word : {0U, 0xFFFFFFFFU, 0x55555555U, 0x80000000U}) {
            WriteRegister(address, word);
            ReadRegister(address);
        }
    }
}

TEST_F(SimRegister, presence_stays_whatever_is_written) {
    for (const std::uint32_t address : {0xF1000208U, 0xF1000220U, 0xF1000240U, 0xF1000250U, 0xF1000290U, 0xF1000300U,
                                        0xF1000320U, 0xF1000390U, 0xF10003A0U, 0xF1000410U, 0xF1000520U, 0xF0F00800U}) {
        WriteRegister(address, 0);
        EXPECT_EQ(ReadRegister(address) >> 31, 1U) << std::hex << address;
    }
}

// ---- Standard features --------------------------------------------------------------------------------------------

struct Place {
    std::uint32_t index;
    std::uint32_t id;
};
constexpr Place kPlaces[] = {{0, 4}, {1, 60}, {2, 21}, {4, 22}, {5, 23}, {6, 8}, {7, 5}, {8, 0}, {13, 40}};

TEST_F(SimRegister, feature_inquiry_tells_range_and_modes_of_the_feature) {
    for (const auto& [index, id] : kPlaces) {
        SCOPED_TRACE(id);
        const FeatureRow& row = *FindFeature(id);
        const std::uint32_t word = ReadRegister(0xF0F00500 + 4 * index);
        EXPECT_EQ(word >> 31 & 1, 1U);
        EXPECT_EQ(word >> 30 & 1, 0U) << "absolute control";
        EXPECT_EQ(word >> 28 & 1, (row.caps & kModeOnePush) != 0 ? 1U : 0U);
        EXPECT_EQ(word >> 27 & 1, 1U) << "readable";
        EXPECT_EQ(word >> 26 & 1, (row.caps & kModeOff) != 0 ? 1U : 0U);
        EXPECT_EQ(word >> 25 & 1, (row.caps & kModeAuto) != 0 ? 1U : 0U);
        EXPECT_EQ(word >> 24 & 1, (row.caps & kModeManual) != 0 ? 1U : 0U);
        EXPECT_EQ(word >> 12 & 0xFFF, row.min);
        EXPECT_EQ(word & 0xFFF, std::min(row.max, 4095U));
    }
}

TEST_F(SimRegister, feature_inquiry_follows_the_camera) {
    ASSERT_TRUE(m_camera.SetPropertyWord(0, 36, 7));
    ASSERT_TRUE(m_camera.SetPropertyWord(0, 40, 77));
    EXPECT_EQ(ReadRegister(0xF0F00520) & 0xFFFFFF, 0x00704DU);

    ASSERT_TRUE(m_camera.SetPropertyPresent(0, false));
    EXPECT_EQ(ReadRegister(0xF0F00520), 0U);
    EXPECT_EQ(ReadRegister(0xF0F00820), 0U);
    EXPECT_EQ(ReadRegister(0xF0F00404) >> 23 & 1, 0U);
}

TEST_F(SimRegister, a_property_shows_in_its_control_register) {
    for (const auto& [index, id] : kPlaces) {
        SCOPED_TRACE(id);
        const FeatureRow& row = *FindFeature(id);
        const std::uint32_t value = std::min(row.max, 4095U);
        for (const std::uint32_t mode : {kModeOff, kModeManual}) {
            if ((row.caps & mode) == 0) {
                continue;
            }
            ASSERT_EQ(Set(id, 64, {{24, value}, {28, mode}}), Status::ok);
            const std::uint32_t word = ReadRegister(0xF0F00800 + 4 * index);
            EXPECT_EQ(word, 0x80000000U | (mode == kModeOff ? 0 : 0x02000000U) | value);
        }
    }
}

TEST_F(SimRegister, a_control_register_shows_in_its_property) {
    for (const auto& [index, id] : kPlaces) {
        SCOPED_TRACE(id);
        const FeatureRow& row = *FindFeature(id);
        const std::uint32_t address = 0xF0F00800 + 4 * index;
        WriteRegister(address, 0x02000000 | row.min);
        EXPECT_EQ(Value(id), row.min);
        EXPECT_EQ(Mode(id), kModeManual);

        WriteRegister(address, row.min);
        EXPECT_EQ(Mode(id), (row.caps & kModeOff) != 0 ? kModeOff : kModeManual);

        WriteRegister(address, 0x03000000 | row.min);
        EXPECT_EQ(Mode(id), (row.caps & kModeAuto) != 0 ? kModeAuto : kModeManual);

        WriteRegister(address, 0x06000000 | row.min);
        EXPECT_EQ(Mode(id), (row.caps & kModeOnePush) != 0 ? kModeOnePush : kModeManual);
    }
}

TEST_F(SimRegister, an_automatic_value_moves_as_its_register_is_read) {
    WriteRegister(0xF0F00820, 0x03000000);
    const std::uint32_t first = ReadRegister(0xF0F00820);
    const std::uint32_t second = ReadRegister(0xF0F00820);

    EXPECT_NE(first & 0xFFF, second & 0xFFF);
    EXPECT_EQ(second >> 24 & 7, 3U) << "on and automatic";
    EXPECT_EQ(Value(0), second & 0xFFF);
    EXPECT_EQ(m_camera.Register(0xF0F00820), second) << "looking without a request lets no time pass";
}

TEST_F(SimRegister, one_push_ends_while_its_register_is_read) {
    WriteRegister(0xF0F00820, 0x06000000);
    for (int look = 1; look <= 3; ++look) {
        EXPECT_EQ(ReadRegister(0xF0F00820) >> 26 & 1, 1U) << look;
    }
    EXPECT_EQ(ReadRegister(0xF0F00820) >> 26 & 1, 0U);
    EXPECT_EQ(Mode(0), kModeManual);
}

TEST_F(SimRegister, a_value_out_of_range_is_flagged_and_changes_nothing) {
    WriteRegister(0xF0F00820, 0x02000000 | 256);

    EXPECT_EQ(Value(0), 64U);
    EXPECT_EQ(ReadRegister(0xF0F00640), 0x00800000U);
    WriteRegister(0xF0F00820, 0x02000000 | 255);
    EXPECT_EQ(ReadRegister(0xF0F00640), 0U);
    EXPECT_EQ(Value(0), 255U);
}

TEST_F(SimRegister, white_balance_is_one_register_with_two_values) {
    EXPECT_EQ(ReadRegister(0xF0F0080C), 0x82000000U | 284 << 12 | 300);

    WriteRegister(0xF0F0080C, 0x02000000 | 12 << 12 | 34);

    EXPECT_EQ(Value(1), 12U);
    EXPECT_EQ(Value(2), 34U);
    ASSERT_EQ(Set(2, 64, {{24, 35}, {28, kModeAuto}}), Status::ok);
    EXPECT_EQ(ReadRegister(0xF0F0080C) >> 24, 0x83U);
    WriteRegister(0xF0F0080C, 0x02000000 | 569 << 12 | 34);
    EXPECT_EQ(ReadRegister(0xF0F00640), 0x10000000U);
}

TEST_F(SimRegister, both_white_balances_work_in_one_mode) {
    ASSERT_EQ(Set(1, 64, {{24, 100}, {28, kModeAuto}}), Status::ok);
    EXPECT_EQ(Mode(2), kModeAuto);
    EXPECT_EQ(m_camera.PropertyWord(2, 44), 1U);

    ASSERT_EQ(Set(2, 64, {{24, 100}, {28, kModeOnePush}}), Status::ok);
    EXPECT_EQ(Mode(1), kModeOnePush);
    for (int look = 0; look < 4; ++look) {
        ASSERT_EQ(Get(1), Status::ok);
    }
    EXPECT_EQ(Mode(1), kModeManual);
    EXPECT_EQ(Mode(2), kModeManual);
}

TEST_F(SimRegister, features_that_no_camera_has_read_zero) {
    for (const std::uint32_t index : {9U, 10U, 11U, 14U, 15U}) {
        EXPECT_EQ(ReadRegister(0xF0F00500 + 4 * index), 0U) << index;
        WriteRegister(0xF0F00800 + 4 * index, 0xFFFFFFFF);
        EXPECT_EQ(ReadRegister(0xF0F00800 + 4 * index), 0U) << index;
    }
    EXPECT_EQ(ReadRegister(0xF0F00404), 0xFF8C0000U);
    EXPECT_EQ(ReadRegister(0xF0F00408), 0U);
    EXPECT_EQ(ReadRegister(0xF0F00880), 0U);
}

TEST_F(SimMonoRegister, color_features_are_absent) {
    for (const std::uint32_t index : {3U, 4U, 5U}) {
        EXPECT_EQ(ReadRegister(0xF0F00500 + 4 * index), 0U) << index;
        WriteRegister(0xF0F00800 + 4 * index, 0x02000100);
        EXPECT_EQ(ReadRegister(0xF0F00800 + 4 * index), 0U) << index;
    }
    EXPECT_EQ(ReadRegister(0xF0F00404), 0xE38C0000U);
    EXPECT_EQ(ReadRegister(0xF10003A0), 0U);
    WriteRegister(0xF10003A4, 5);
    EXPECT_EQ(ReadRegister(0xF10003A4), 0U);
    EXPECT_EQ(ReadRegister(0xF1000040) >> 13 & 1, 0U);
}

// ---- Exposure time ------------------------------------------------------------------------------------------------

TEST_F(SimRegister, shutter_and_time_base_make_the_extended_shutter) {
    ASSERT_EQ(Set(5, 64, {{24, 300}, {28, kModeManual}}), Status::ok);
    EXPECT_EQ(Value(7), 6000U);

    ASSERT_EQ(Set(6, 64, {{24, 9}}), Status::ok);
    EXPECT_EQ(Value(7), 300'000U);
    EXPECT_EQ(ReadRegister(0xF100020C), 0x80000000U | 300'000);
    EXPECT_EQ(ReadRegister(0xF1000208), 0x80000009U);
}

TEST_F(SimRegister, the_extended_shutter_makes_the_shutter) {
    WriteRegister(0xF100020C, 12345);
    EXPECT_EQ(Value(7), 12345U);
    EXPECT_EQ(Value(5), 617U) << "12345 / 20, rounded down";
    EXPECT_EQ(ReadRegister(0xF0F0081C) & 0xFFF, 617U);

    ASSERT_EQ(Set(7, 64, {{24, 67108863}}), Status::ok);
    EXPECT_EQ(Value(5), 4095U);
    EXPECT_EQ(m_camera.PictureSettings().exposureUs, 67108863U);

    ASSERT_EQ(Set(7, 64, {{24, 3}}), Status::ok);
    EXPECT_EQ(Value(5), 1U) << "never below the shutter's minimum";
}

TEST_F(SimRegister, an_automatic_shutter_takes_the_extended_one_along) {
    ASSERT_EQ(Set(5, 64, {{24, 500}, {28, kModeAuto}}), Status::ok);
    ASSERT_EQ(Get(5), Status::ok);
    EXPECT_EQ(Value(7), Value(5) * 20);
    EXPECT_NE(Value(5), 500U);
}

// ---- Video mode, channel, reset -----------------------------------------------------------------------------------

TEST_F(SimRegister, the_modes_that_are_offered_can_be_set_and_others_are_flagged) {
    for (std::uint32_t format = 0; format < 8; ++format) {
        const std::uint32_t formats = ReadRegister(0xF0F00100);
        for (std::uint32_t mode = 0; mode < 8; ++mode) {
            const bool named = format != 4 && format != 5;
            const std::uint32_t modes = named ? ReadRegister(0xF0F00180 + 4 * format) : 0;
            for (std::uint32_t rate = 0; rate < 8; ++rate) {
                bool offered = (formats >> (31 - format) & 1) != 0 && (modes >> (31 - mode) & 1) != 0;
                if (offered && format <= 2) {
                    offered = (ReadRegister(0xF0F00200 + 0x20 * format + 4 * mode) >> (31 - rate) & 1) != 0;
                }
                WriteRegister(0xF0F00600, rate << 29);
                WriteRegister(0xF0F00604, mode << 29);
                WriteRegister(0xF0F00608, format << 29);
                EXPECT_EQ(ReadRegister(0xF0F00628), offered ? 0U : 0x80000000U) << format << " " << mode << " " << rate;
            }
        }
    }
}

TEST_F(SimRegister, a_color_camera_has_more_fixed_modes_than_a_mono_one) {
    EXPECT_EQ(ReadRegister(0xF0F00180), 0x7C000000U);
    EXPECT_EQ(ReadRegister(0xF0F00184), 0xFC000000U);
    EXPECT_EQ(ReadRegister(0xF0F00188), 0xE0000000U);
    EXPECT_EQ(ReadRegister(0xF0F0019C), 0xFF000000U);
    EXPECT_EQ(ReadRegister(0xF0F0020C), 0xF8000000U);

    ResetState(*m_state, Variant::mono);

    EXPECT_EQ(ReadRegister(0xF0F00180), 0x06000000U);
    EXPECT_EQ(ReadRegister(0xF0F00184), 0x27000000U);
    EXPECT_EQ(ReadRegister(0xF0F00188), 0x22000000U);
    EXPECT_EQ(ReadRegister(0xF0F0019C), 0xFF000000U);
    EXPECT_EQ(ReadRegister(0xF0F0020C), 0U);
    EXPECT_EQ(ReadRegister(0xF0F00214), 0xFC000000U);
}

TEST_F(SimRegister, channel_and_speed_go_both_ways) {
    EXPECT_EQ(ReadRegister(0xF0F0060C), 0x52000502U);

    WriteRegister(0xF0F0060C, 0x71000000);
    EXPECT_EQ(Value(55), 7U);
    EXPECT_EQ(Value(54), 1U);

    WriteRegister(0xF0F0060C, 0x00008000 | 60 << 8 | 3);
    EXPECT_EQ(Value(55), 60U);
    EXPECT_EQ(Value(54), 3U);

    ASSERT_EQ(Set(54, 64, {{24, 0}}), Status::ok);
    EXPECT_EQ(ReadRegister(0xF0F0060C), 0xC000BC00U);
    EXPECT_EQ(Set(54, 64, {{24, 4}}), Status::invalidParameter);
    ASSERT_EQ(Get(54), Status::ok);
    EXPECT_EQ(Word(36), 0U);
    EXPECT_EQ(Word(40), 3U);
}

TEST_F(SimRegister, initialize_and_soft_reset_restore_the_factory_state) {
    const auto factory = std::make_unique<CameraState>();
    ResetState(*factory, Variant::color);
    struct Reset {
        std::uint32_t address, word;
    };
    for (const Reset& reset : {Reset{0xF0F00000, 0x80000000}, Reset{0xF1000510, 0x04000000}}) {
        ASSERT_EQ(Set(0, 64, {{24, 9}, {28, kModeAuto}}), Status::ok);
        WriteRegister(0xF1000284, 77);
        WriteRegister(0xF1001000, 77);
        ASSERT_NE(std::memcmp(factory.get(), m_state.get(), sizeof *factory), 0);

        WriteRegister(reset.address, reset.word);

        EXPECT_EQ(std::memcmp(factory.get(), m_state.get(), sizeof *factory), 0) << std::hex << reset.address;
    }
    WriteRegister(0xF1000284, 77);
    WriteRegister(0xF0F00000, 0x7FFFFFFF);
    EXPECT_EQ(ReadRegister(0xF1000284), 77U) << "b31 alone resets";
    EXPECT_EQ(ReadRegister(0xF0F00000), 0U);
}

TEST_F(SimRegister, the_camera_changes_registers_by_itself) {
    ASSERT_TRUE(m_camera.SetRegister(0xF1000FFC, 2));
    EXPECT_EQ(ReadRegister(0xF1000FFC), 2U) << "stored, but never written";

    ASSERT_TRUE(m_camera.SetRegister(0xF1000248, 0x8C011000));
    EXPECT_EQ(ReadRegister(0xF1000248), 0x8C011000U) << "shows something else by itself";
    WriteRegister(0xF1000248, 0);
    EXPECT_EQ(ReadRegister(0xF1000248), 0x8C011000U);

    ASSERT_TRUE(m_camera.SetRegister(0xF0F00820, 0x02000009));
    EXPECT_EQ(Value(0), 9U) << "as a write, where a write acts";
}

}  // namespace
}  // namespace kolmsim
