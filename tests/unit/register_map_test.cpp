/// @file  The document of the camera's registers says what the tables say.

#include "register_map_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

#include "registers/catalogue.h"

namespace kolmfluxor::test {
namespace {

using ::testing::HasSubstr;

std::string Committed() {
    // A path that Wine understands, too: it takes one from the root for one on the drive that holds the root.
    std::ifstream file(KOLM_SOURCE_DIR "/docs/register-map.md", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(RegisterMap, document_is_what_the_tables_make) {
    const std::string committed = Committed();

    ASSERT_FALSE(committed.empty()) << "docs/register-map.md cannot be read";
    EXPECT_TRUE(committed == RegisterMapText())
        << "the tables have changed: build the target register_map of a native preset, and run "
           "build/host-sanitize/bin/register_map > docs/register-map.md";
}

TEST(RegisterMap, names_every_register_once_with_its_address) {
    const std::string text = RegisterMapText();

    for (const CatalogueEntry& entry : Catalogue()) {
        char row[96];
        std::snprintf(row, sizeof row, "\n| `%s` | 0x%08X | [", entry.name, static_cast<unsigned>(entry.address));
        const std::size_t place = text.find(row);
        ASSERT_NE(place, std::string::npos) << row;
        EXPECT_EQ(text.find(row, place + 1), std::string::npos) << row;
    }
}

TEST(RegisterMap, fields_stand_with_their_bits_and_how_they_are_shown) {
    const std::string text = RegisterMapText();

    EXPECT_THAT(
        text,
        HasSubstr("\n### KolmLUTMemorControl, 0xF1000244\n\n| field | bits | shown as |\n|---|---|---|\n"
                  "| `Presents` | 31 | decimal |\n| `EnableMemWr` | 26 | decimal |\n| `LUTNr` | 23 to 16 | decimal |\n"
                  "| `AddressOffset` | 15 to 0 | hexadecimal |\n"));
    EXPECT_THAT(text, HasSubstr("| `Value` | 31 to 0 | signed, in thousandths |\n"));
    EXPECT_THAT(text, HasSubstr("| `FPS` | 31 to 29 | frames per second"));
    EXPECT_THAT(text, HasSubstr("| `Time \xC2\xB5s` | 15 to 0 |"));
    EXPECT_THAT(
        text, HasSubstr("| `KolmLUTMemCtrl` | 0xF1000244 | [KolmLUTMemorControl](#kolmlutmemorcontrol-0xf1000244) |"));
    EXPECT_THAT(text, HasSubstr("| `KolmLowSmear` | 0xF1000440 | [default](#default-layout) |"));
    EXPECT_THAT(text, HasSubstr("| `F7Mode7_07C_ValueSetting` | 0xF0F0F07C | "
                                "[Format 7 Value Setting](#format-7-value-setting-offset-0x7c) |"));
}

}  // namespace
}  // namespace kolmfluxor::test
