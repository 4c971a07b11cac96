/// @file  The maker's features of the simulated camera: properties and registers show the same.

#include <cstdint>
#include <vector>

#include <gtest/gtest.h>

#include "model/frame_renderer.h"
#include "sim_fixture.h"

namespace kolmsim {
namespace {

class SimVendor : public test::SimTest {};

/// A register that shows a feature.
struct Link {
    std::uint32_t address;
    std::uint32_t id;
    unsigned valueLsb;
    std::uint32_t largest;  ///< that the field can hold and the feature takes
    std::uint32_t onBit;    ///< as a mask; 0 for a feature that is always on
};
constexpr Link kLinks[] = {
    {0xF1000208, 6, 0, 9, 0},
    {0xF100020C, 7, 0, 67108863, 0},
    {0xF1000240, 31, 0, 3, 1U << 25},
    {0xF1000320, 34, 16, 31, 1},
    {0xF1000324, 35, 16, 31, 1},
    {0xF1000328, 36, 16, 31, 1},
    {0xF100032C, 37, 16, 31, 1},
    {0xF1000340, 39, 0, 1048575, 1U << 25},
    {0xF1000400, 40, 0, 2097151, 1U << 25},
    {0xF1000440, 64, 0, 4095, 1U << 25},
    {0xF1000520, 41, 0, 256, 1U << 25},
};

TEST_F(SimVendor, a_property_shows_in_its_register) {
    for (const Link& link : kLinks) {
        SCOPED_TRACE(link.id);
        for (const std::uint32_t mode : {kModeManual, kModeOff}) {
            if (mode == kModeOff && link.onBit == 0) {
                continue;
            }
            ASSERT_EQ(Set(link.id, 64, {{24, link.largest}, {28, mode}}), Status::ok);
            EXPECT_EQ(ReadRegister(link.address),
                      0x80000000U | link.largest << link.valueLsb | (mode == kModeOff ? 0 : link.onBit));
        }
    }
}

TEST_F(SimVendor, a_register_shows_in_its_property) {
    for (const Link& link : kLinks) {
        SCOPED_TRACE(link.id);
        WriteRegister(link.address, link.largest << link.valueLsb | link.onBit);
        ASSERT_EQ(Get(link.id), Status::ok);
        EXPECT_EQ(Word(24), link.largest);
        EXPECT_EQ(Word(28), kModeManual);
        if (link.onBit != 0) {
            WriteRegister(link.address, link.largest << link.valueLsb);
            EXPECT_EQ(Mode(link.id), kModeOff);
        }
    }
}

TEST_F(SimVendor, a_register_value_that_the_feature_does_not_take_changes_nothing) {
    WriteRegister(0xF1000208, 10);
    EXPECT_EQ(Value(6), 4U);
    WriteRegister(0xF1000520, 1U << 25 | 257);
    EXPECT_EQ(Value(41), 4U);
    EXPECT_EQ(Mode(41), kModeOff);
}

TEST_F(SimVendor, a_feature_taken_away_leaves_its_register_empty) {
    ASSERT_TRUE(m_camera.SetPropertyPresent(41, false));
    EXPECT_EQ(ReadRegister(0xF1000520), 0U);
    WriteRegister(0xF1000520, 1U << 25 | 9);
    EXPECT_EQ(Value(41), 4U);
    EXPECT_EQ(ReadRegister(0xF1000040) >> 14 & 1, 0U);
}

TEST_F(SimVendor, output_polarity_is_kept_by_the_register_alone) {
    WriteRegister(0xF1000324, 0x01050001);
    EXPECT_EQ(ReadRegister(0xF1000324), 0x81050001U);
    EXPECT_EQ(Value(35), 5U);
    EXPECT_EQ(ReadRegister(0xF1000328) >> 24 & 1, 0U);
}

TEST_F(SimVendor, the_first_output_answers_like_the_others) {
    ASSERT_EQ(Get(34), Status::ok);
    EXPECT_EQ(Word(24), 3U);
    EXPECT_EQ(Word(28), kModeManual);
    EXPECT_EQ(Word(40), 31U);
    EXPECT_EQ(Set(34, 64, {{24, 32}}), Status::invalidParameter);
    EXPECT_EQ(Set(34, 64, {{24, 31}}), Status::ok);
    EXPECT_EQ(Mode(34), kModeManual) << "no mode keeps the mode";
}

TEST_F(SimVendor, executing_property_28_sets_it_to_0) {
    ASSERT_EQ(Set(28, 64, {}), Status::ok);
    ASSERT_EQ(Get(28), Status::ok);
    EXPECT_EQ(Word(24), 0U);
    EXPECT_EQ(Word(28), kModeManual);
}

TEST_F(SimVendor, the_geometry_switch_is_0_or_1) {
    ASSERT_EQ(Get(61), Status::ok);
    EXPECT_EQ(Word(24), 0U);
    ASSERT_EQ(Set(61, 64, {{24, 1}}), Status::ok);
    ASSERT_EQ(Get(61), Status::ok);
    EXPECT_EQ(Word(24), 1U);
    EXPECT_EQ(Set(61, 64, {{24, 2}}), Status::invalidParameter);
}

// ---- Test images and mirror ---------------------------------------------------------------------------------------

TEST_F(SimVendor, test_images_go_both_ways) {
    ASSERT_EQ(Get(3), Status::ok);
    EXPECT_EQ(Word(24), 0U);
    EXPECT_EQ(Word(32), 7U);
    EXPECT_EQ(ReadRegister(0xF1000210), 0x80E00000U);

    ASSERT_EQ(Set(3, 64, {{24, 3}}), Status::ok);
    EXPECT_EQ(ReadRegister(0xF1000210), 0x80E00003U);
    WriteRegister(0xF1000210, 2);
    ASSERT_EQ(Get(3), Status::ok);
    EXPECT_EQ(Word(24), 2U);
    EXPECT_EQ(m_camera.PictureSettings().testImage, 2U);
}

TEST_F(SimVendor, a_test_image_that_the_mask_lacks_is_refused) {
    for (const std::uint32_t number : {4U, 31U, 32U, 33U, 0xFFFFFFFFU}) {
        EXPECT_EQ(Set(3, 64, {{24, number}}), Status::invalidParameter) << number;
    }
    ASSERT_TRUE(m_camera.SetPropertyWord(3, 32, 0x5));
    EXPECT_EQ(Set(3, 64, {{24, 2}}), Status::invalidParameter);
    EXPECT_EQ(Set(3, 64, {{24, 3}}), Status::ok);
    EXPECT_EQ(ReadRegister(0xF1000210), 0x80A00003U);
    WriteRegister(0xF1000210, 2);
    EXPECT_EQ(Value(3), 3U);
}

TEST_F(SimVendor, the_mirror_has_two_switches_of_which_one_is_a_feature) {
    EXPECT_EQ(ReadRegister(0xF1000410), 0x8000C000U);

    ASSERT_EQ(Set(19, 64, {{24, 1}, {28, kModeManual}}), Status::ok);
    EXPECT_EQ(ReadRegister(0xF1000410), 0x8200C000U);
    WriteRegister(0xF1000410, 1U << 24);
    EXPECT_EQ(Mode(19), kModeOff);
    EXPECT_FALSE(m_camera.PictureSettings().mirrorHorizontal);
    EXPECT_TRUE(m_camera.PictureSettings().mirrorVertical);
}

// ---- Corrections --------------------------------------------------------------------------------------------------

/// A correction and its command to compute.
struct Correction {
    std::uint32_t id;
    std::uint32_t address;
    std::uint32_t compute;
    std::uint32_t error;
};
constexpr Correction kCorrections[] = {
    {30, 0xF1000250, 0x2000, 0x1000}, {32, 0xF1000290, 0x8000, 0x4000}, {33, 0xF1000294, 0x8000, 0x4000}};

TEST_F(SimVendor, a_correction_goes_both_ways) {
    for (const Correction& each : kCorrections) {
        SCOPED_TRACE(each.id);
        ASSERT_EQ(Set(each.id, 64, {{24, 9}, {28, 0x2 | 0x80}}), Status::ok);
        EXPECT_EQ(ReadRegister(each.address), 0x8A000009U) << "shown and on";

        WriteRegister(each.address, 0x02000000 | 77);
        ASSERT_EQ(Get(each.id), Status::ok);
        EXPECT_EQ(Word(24), 77U);
        EXPECT_EQ(Word(28), 0x2U);

        WriteRegister(each.address, 0);
        EXPECT_EQ(Mode(each.id), 0x4U);
        EXPECT_EQ(Value(each.id), 77U) << "no pictures keeps the count";
    }
}

TEST_F(SimVendor, correction_data_is_computed_while_three_looks_go_by) {
    for (const Correction& each : kCorrections) {
        SCOPED_TRACE(each.id);
        ASSERT_EQ(Set(each.id, 64, {{24, 9}, {28, 0x2 | each.compute}}), Status::ok);
        for (int look = 1; look <= 3; ++look) {
            ASSERT_EQ(Get(each.id), Status::ok);
            EXPECT_EQ(Word(28), 0x42U) << look;
        }
        ASSERT_EQ(Get(each.id), Status::ok);
        EXPECT_EQ(Word(28), 0x2U);

        WriteRegister(each.address, 0x06000009);
        EXPECT_EQ(ReadRegister(each.address), 0x83000009U) << "on and busy";
    }
}

TEST_F(SimVendor, a_test_image_leaves_nothing_to_compute_from) {
    ASSERT_EQ(Set(3, 64, {{24, 1}}), Status::ok);
    for (const Correction& each : kCorrections) {
        SCOPED_TRACE(each.id);
        ASSERT_EQ(Set(each.id, 64, {{24, 9}, {28, 0x2 | each.compute}}), Status::ok);
        EXPECT_EQ(Word(28), 0x2U | each.error);
        EXPECT_EQ(ReadRegister(each.address), 0xC2000009U);
        ASSERT_EQ(Set(each.id, 64, {{24, 9}, {28, 0x2}}), Status::ok);
        EXPECT_EQ(Word(28), 0x2U) << "the next command clears the error";
    }
}

TEST_F(SimVendor, correction_words_that_say_two_things_are_refused) {
    for (const std::uint32_t word : {0x2U | 0x4U, 0x2U | 0x8000U | 0x100U, 0x8000U, 0x2U | 0x4000U, 0x2U | 0x10000U}) {
        EXPECT_EQ(Set(32, 64, {{24, 9}, {28, word}}), Status::invalidParameter) << std::hex << word;
    }
    for (const std::uint32_t word : {0x2U | 0x8000U, 0x2U | 0x80U | 0x100U, 0x4U | 0x800U}) {
        EXPECT_EQ(Set(32, 64, {{24, 9}, {28, word}}), Status::ok) << std::hex << word;
    }
    EXPECT_EQ(Set(32, 64, {{24, 9}, {28, 0x2 | 0x200}}), Status::invalidParameter) << "only blemish data can be saved";
    EXPECT_EQ(Set(33, 64, {{24, 9}, {28, 0x2 | 0x200}}), Status::ok);
}

TEST_F(SimVendor, a_mode_that_is_a_command_gives_way_to_manual) {
    for (const std::uint32_t mode : {kModeLoadData, kModeSaveData, kModeClearData}) {
        ASSERT_EQ(Set(33, 64, {{24, 32}, {28, mode}}), Status::ok);
        EXPECT_EQ(Mode(33), mode);
        ASSERT_EQ(Get(33), Status::ok);
        EXPECT_EQ(Word(28), kModeManual) << mode;
    }
}

// ---- Color correction ---------------------------------------------------------------------------------------------

TEST_F(SimVendor, color_correction_is_switched_by_a_bit_that_disables_it) {
    EXPECT_EQ(ReadRegister(0xF10003A0), 0x82000000U);
    WriteRegister(0xF10003A0, 0x80000000);
    EXPECT_EQ(Mode(27), kModeManual);
    ASSERT_EQ(Set(27, 64, {{24, 1}, {28, kModeOff}}), Status::ok);
    EXPECT_EQ(ReadRegister(0xF10003A0), 0x82000000U);
}

TEST_F(SimVendor, color_coefficients_take_any_number_and_can_be_restored) {
    std::vector<std::uint32_t> factory;
    for (std::uint32_t i = 0; i < 9; ++i) {
        factory.push_back(ReadRegister(0xF10003A4 + 4 * i));
        WriteRegister(0xF10003A4 + 4 * i, static_cast<std::uint32_t>(-1000) + i);
        EXPECT_EQ(ReadRegister(0xF10003A4 + 4 * i), static_cast<std::uint32_t>(-1000) + i);
    }
    for (std::size_t row = 0; row < 9; row += 3) {
        EXPECT_EQ(factory[row] + factory[row + 1] + factory[row + 2], 1000U) << "gray stays gray";
    }

    WriteRegister(0xF10003A0, 0x81000000);

    for (std::uint32_t i = 0; i < 9; ++i) {
        EXPECT_EQ(ReadRegister(0xF10003A4 + 4 * i), factory[i]) << i;
    }
    EXPECT_EQ(ReadRegister(0xF10003A0), 0x80000000U) << "b24 reads 0";
}

// ---- Automatic functions, deferred transfer -----------------------------------------------------------------------

TEST_F(SimVendor, automatic_shutter_limits_go_both_ways) {
    ASSERT_EQ(Set(24, 64, {{36, 100}, {40, 200}}), Status::ok);
    EXPECT_EQ(ReadRegister(0xF1000364), 100U);
    EXPECT_EQ(ReadRegister(0xF1000368), 200U);
    WriteRegister(0xF1000368, 333);
    ASSERT_EQ(Get(24), Status::ok);
    EXPECT_EQ(Word(36), 100U);
    EXPECT_EQ(Word(40), 333U);
    EXPECT_EQ(Set(24, 64, {{36, 200}, {40, 100}}), Status::invalidParameter);
    EXPECT_EQ(Set(24, 64, {{36, 0}, {40, 100}}), Status::invalidParameter) << "shorter than any exposure";
}

TEST_F(SimVendor, automatic_gain_limits_go_both_ways) {
    ASSERT_EQ(Set(25, 64, {{36, 10}, {40, 20}}), Status::ok);
    EXPECT_EQ(ReadRegister(0xF1000370), 0x8014000AU);
    WriteRegister(0xF1000370, 30U << 16 | 5);
    ASSERT_EQ(Get(25), Status::ok);
    EXPECT_EQ(Word(36), 5U);
    EXPECT_EQ(Word(40), 30U);
    EXPECT_EQ(Set(25, 64, {{36, 10}, {40, 256}}), Status::invalidParameter);
    WriteRegister(0xF1000370, 5U << 16 | 30);
    EXPECT_EQ(ReadRegister(0xF1000370), 0x801E0005U) << "limits the wrong way round";
}

TEST_F(SimVendor, the_automatic_functions_area_goes_both_ways) {
    ASSERT_EQ(Set(26, 48, {{28, 1}, {32, 8}, {36, 12}, {40, 16}, {44, 20}}), Status::ok);
    EXPECT_EQ(Word(24), 0x00040004U);
    EXPECT_EQ(ReadRegister(0xF1000390), 0x82004004U);
    EXPECT_EQ(ReadRegister(0xF1000394), 0x0008000CU);
    EXPECT_EQ(ReadRegister(0xF1000398), 0x00100014U);

    WriteRegister(0xF1000394, 100U << 16 | 200);
    WriteRegister(0xF1000390, 0);
    ASSERT_EQ(Get(26, 48), Status::ok);
    EXPECT_EQ(Word(28), 0U);
    EXPECT_EQ(Word(32), 100U);
    EXPECT_EQ(Word(36), 200U);
    for (const std::uint32_t left : {2U, 628U, 640U}) {
        EXPECT_EQ(Set(26, 48, {{28, 1}, {32, left}, {36, 12}, {40, 16}, {44, 20}}), Status::invalidParameter) << left;
    }
    EXPECT_EQ(Set(26, 48, {{28, 2}, {32, 8}, {36, 12}, {40, 16}, {44, 20}}), Status::invalidParameter);
    WriteRegister(0xF1000398, 0);
    EXPECT_EQ(ReadRegister(0xF1000398), 0x00100014U);
}

TEST_F(SimVendor, deferred_transfer_goes_both_ways) {
    ASSERT_EQ(Get(42), Status::ok);
    EXPECT_EQ(Word(36), 16U);

    ASSERT_EQ(Set(42, 64, {{24, 5}, {28, 0x8 | 0x800}}), Status::ok);
    EXPECT_EQ(ReadRegister(0xF1000260), 0x83001005U);
    ASSERT_EQ(Set(42, 64, {{24, 6}}), Status::ok);
    EXPECT_EQ(ReadRegister(0xF1000260), 0x83001006U) << "no flag keeps the flags";
    WriteRegister(0xF1000260, 0x04000007);
    ASSERT_EQ(Get(42), Status::ok);
    EXPECT_EQ(Word(24), 7U);
    EXPECT_EQ(Word(28), 0x80000000U);
    EXPECT_EQ(Set(42, 64, {{24, 17}}), Status::invalidParameter);
    EXPECT_EQ(Set(42, 64, {{24, 1}, {28, 2}}), Status::invalidParameter);
}

}  // namespace
}  // namespace kolmsim
