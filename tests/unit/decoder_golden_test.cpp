/// @file  Every register's layout, against tables of its own and a second way to read them.

#include <gtest/gtest.h>

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "registers/catalogue.h"
#include "unit/line_list.h"
#include "unit/plain_register_decoder.h"

namespace kolmfluxor::test {
namespace {

using Texts = std::vector<std::string>;

/// Zero, all ones, and each bit alone.
std::vector<std::uint32_t> Values() {
    std::vector<std::uint32_t> values = {0, 0xFFFFFFFF};
    for (unsigned bit = 0; bit < 32; ++bit)
        values.push_back(std::uint32_t{1} << bit);
    return values;
}

void ExpectLayout(const GoldenLayout& layout, std::uint32_t address, std::uint32_t shown) {
    for (const std::uint32_t value : Values()) {
        ASSERT_EQ(Decoded(address, value), Expected(layout, shown, value))
            << "address " << Hex(address) << ", value " << Hex(value);
    }
}

// ---- The tests ----------------------------------------------------------------------------------------------------

TEST(DecoderGolden, each_register_outside_Format_7_has_its_layout) {
    for (const GoldenLayout& layout : kLayouts) {
        for (std::uint32_t address = layout.first; address <= layout.last; address += 4)
            ExpectLayout(layout, address, address);
    }
}

TEST(DecoderGolden, each_register_of_each_Format_7_mode_has_its_layout) {
    for (std::uint32_t block = 0xF0F08000; block <= 0xF0F0F000; block += 0x1000) {
        for (const GoldenLayout& layout : kFormat7Layouts) {
            for (std::uint32_t offset = layout.first; offset <= layout.last; offset += 4)
                ExpectLayout(layout, block + offset, offset);
        }
    }
}

TEST(DecoderGolden, all_other_addresses_have_the_default_layout) {
    std::set<std::uint32_t> named;
    std::set<std::uint32_t> addresses = {0x00000000, 0x00000004, 0x12345678, 0xF0F07FFC, 0xF0F07FFF,
                                         0xF0F10000, 0xF1001000, 0xFFFFFFFC, 0xFFFFFFFF, 0x80F08000};
    for (const GoldenLayout& layout : kLayouts) {
        for (std::uint32_t address = layout.first; address <= layout.last; address += 4) {
            named.insert(address);
            for (const std::uint32_t offset : {1U, 2U, 3U, 4U})
                addresses.insert(address + offset);
        }
        addresses.insert(layout.first - 1);
        addresses.insert(layout.first - 4);
    }
    for (const CatalogueEntry& entry : Catalogue()) {
        if (entry.address < 0xF0F08000 || entry.address > 0xF0F0FFFF) addresses.insert(entry.address);
    }
    int count = 0;
    for (const std::uint32_t address : addresses) {
        if (named.contains(address)) continue;
        ExpectLayout(kDefaultLayout, address, address);
        ++count;
    }
    EXPECT_GT(count, 300);
}

TEST(DecoderGolden, all_358_registers_of_the_catalogue_can_be_decoded) {
    for (const CatalogueEntry& entry : Catalogue()) {
        CLineList list;
        EXPECT_TRUE(DecodeRegister(entry.address, 0x12345678, list.Root(), list)) << entry.name;
    }
}

TEST(DecoderGolden, offsets_of_a_Format_7_block_that_are_no_registers_stop_after_the_value) {
    int count = 0;
    for (std::uint32_t block = 0xF0F08000; block <= 0xF0F0F000; block += 0x1000) {
        for (std::uint32_t offset = 0; offset < 0x1000; ++offset) {
            const bool known = offset % 0x100 <= 0x7C && offset % 4 == 0;
            CLineList list;
            ASSERT_EQ(DecodeRegister(block + offset, 5, list.Root(), list), known) << Hex(block + offset);
            if (known) continue;
            ASSERT_EQ(list.Texts(), Texts{"Value: 0x5"}) << Hex(block + offset);
            ++count;
        }
    }
    EXPECT_EQ(count, 8 * 16 * (256 - 32));
}

TEST(DecoderGolden, a_line_that_cannot_be_inserted_ends_it_and_leaves_the_earlier_ones) {
    std::vector<std::uint32_t> addresses = {0x12345678};
    for (const GoldenLayout& layout : kLayouts)
        addresses.push_back(layout.first);
    for (const GoldenLayout& layout : kFormat7Layouts)
        addresses.push_back(0xF0F0B000 + layout.first);
    for (const std::uint32_t address : addresses) {
        const Texts whole = Decoded(address, 0xA5A5A5A5);
        ASSERT_GE(whole.size(), 3u);
        for (std::size_t refused = 0; refused < whole.size(); ++refused) {
            CLineList list(refused);
            ASSERT_FALSE(DecodeRegister(address, 0xA5A5A5A5, list.Root(), list)) << Hex(address);
            ASSERT_EQ(list.Texts(), Texts(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(refused)));
            ASSERT_EQ(list.Asked(), refused + 1) << "nothing more is tried";
        }
        CLineList list(whole.size());
        ASSERT_TRUE(DecodeRegister(address, 0xA5A5A5A5, list.Root(), list));
    }
}

}  // namespace
}  // namespace kolmfluxor::test
