/// @file  The register catalogue.

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <iterator>
#include <set>
#include <string>

#include "registers/catalogue.h"

namespace kolmfluxor {
namespace {

// clang-format off
constexpr CatalogueEntry kExpected[] = {
#include "unit/data/register_catalogue.inc"
};
// clang-format on

TEST(Catalogue, has_these_names_and_addresses_in_this_order) {
    ASSERT_EQ(Catalogue().size(), std::size(kExpected));
    for (std::size_t i = 0; i < std::size(kExpected); ++i) {
        EXPECT_STREQ(Catalogue()[i].name, kExpected[i].name) << "entry " << i;
        EXPECT_EQ(Catalogue()[i].address, kExpected[i].address) << kExpected[i].name;
    }
}

TEST(Catalogue, has_358_entries) {
    EXPECT_EQ(Catalogue().size(), 358U);
    EXPECT_EQ(kCatalogueSize, 358U);
}

TEST(Catalogue, keeps_odd_spellings) {
    for (const char* name : {"KolmVesrionInfo1", "KolmHDRKneePint1", "KolmSecParam", "KolmTRiggerCounter",
                             "F7Mode3_044_BYtePerPacket", "F7Mode0_01c_ColorCodingInq3", "F7Mode7_03C_TotalBytesLo"}) {
        const CatalogueEntry* const found = FindRegister(name);
        ASSERT_NE(found, nullptr) << name;
        EXPECT_STREQ(found->name, name);
    }
    EXPECT_EQ(FindRegister("KolmVersionInfo2"), nullptr);
}

TEST(Catalogue, names_differ_even_without_case) {
    std::set<std::string> names;
    for (const CatalogueEntry& entry : Catalogue()) {
        std::string name = entry.name;
        std::ranges::transform(name, name.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
        EXPECT_TRUE(names.insert(name).second) << entry.name;
    }
}

TEST(Catalogue, finds_every_entry_by_name_and_by_address) {
    for (const CatalogueEntry& entry : Catalogue()) {
        EXPECT_EQ(FindRegister(entry.name), &entry) << entry.name;
        EXPECT_EQ(FindRegister(entry.address), &entry) << entry.name;
    }
}

TEST(Catalogue, finds_a_name_without_case) {
    ASSERT_NE(FindRegister("brightness"), nullptr);
    EXPECT_EQ(FindRegister("brightness")->address, 0xF0F00800U);
    EXPECT_EQ(FindRegister("KOLMLUTCTRL"), FindRegister("KolmLUTCtrl"));
}

TEST(Catalogue, finds_no_part_of_a_name_and_no_other_name) {
    for (const char* name : {"", "Bright", "BrightnessInq2", "VModeF4Inq", "VRateF0M7Inq", "F7Mode8_000_MaxImageSize",
                             "KolmIOInputCtrl0", "KolmIOInputCtrl5", "KolmColorCorrectionC10"}) {
        EXPECT_EQ(FindRegister(name), nullptr) << name;
    }
}

TEST(Catalogue, finds_nothing_between_the_addresses) {
    for (const std::uint32_t address :
         {0x00000000U, 0xF0F00801U, 0xF0F00190U, 0xF0F0021CU, 0xF1000014U, 0xF1001000U, 0xFFFFFFFFU}) {
        EXPECT_EQ(FindRegister(address), nullptr) << std::hex << address;
    }
}

}  // namespace
}  // namespace kolmfluxor
