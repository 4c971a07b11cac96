/// @file  Registers and blocks of camera memory.

#include <algorithm>
#include <array>
#include <cstring>
#include <numeric>
#include <string>
#include <vector>

#include "support/guarded_buffer.h"
#include "support/property_set_test.h"

namespace kolmfluxor::test {
namespace {

constexpr ULONG kBlockId = 62;
constexpr ULONG kAddress = 0xF1001000;

/// A block request with its data behind the 36 bytes of header.
CWireRequest Block(bool set, ULONG control, const std::vector<std::uint8_t>& data) {
    const CWireRequest head = (set ? Set(kBlockId, 36 + data.size()) : Get(kBlockId, 36 + data.size()))
                                  .With(24, kAddress)
                                  .With(28, control)
                                  .With(32, static_cast<std::uint32_t>(data.size()));
    std::vector<std::uint8_t> bytes = head.Bytes();
    std::copy(data.begin(), data.end(), bytes.begin() + 36);
    return CWireRequest(bytes);
}

/// 1, 2, 3 … as bytes.
std::vector<std::uint8_t> Counting(std::size_t size) {
    std::vector<std::uint8_t> bytes(size);
    std::iota(bytes.begin(), bytes.end(), std::uint8_t{1});
    return bytes;
}

/// `bytes` with the bytes of each element of `n` bytes reversed.
std::vector<std::uint8_t> Swapped(std::vector<std::uint8_t> bytes, std::size_t n) {
    for (std::size_t at = 0; at + n <= bytes.size(); at += n) {
        for (std::size_t i = 0; i < n / 2; ++i)
            std::swap(bytes[at + i], bytes[at + n - 1 - i]);
    }
    return bytes;
}

class Blocks : public PropertySetTest {
protected:
    /// From now on every request is taken and answered as it came.
    void Swallow() { Camera().AddFault({.nth = 0, .action = kolmsim::SimFaultAction::answer, .code = S_OK}); }
};

TEST_F(Blocks, are_written_as_they_are_unless_mode_is_1) {
    Swallow();
    const std::vector<std::uint8_t> data = Counting(16);
    for (const ULONG mode : {0u, 2u, 17u, 0xFFFFFFFFu}) {
        for (const ULONG bits : {8u, 16u, 32u}) {
            EXPECT_EQ(Object()->WriteBlock(kAddress, data.data(), 4, bits, mode), S_OK);
            EXPECT_EQ(Object().Sent(), Wire{Block(true, 17, data)}) << "mode " << mode << ", bits " << bits;
        }
    }
}

TEST_F(Blocks, are_converted_element_by_element_in_mode_1) {
    Swallow();
    const std::vector<std::uint8_t> data = Counting(16);
    struct Row {
        ULONG bits;
        std::vector<std::uint8_t> sent;
    };
    const Row rows[] = {{16, Swapped(data, 2)}, {32, Swapped(data, 4)}, {8, data}, {0, data}, {24, data}, {64, data}};
    for (const auto& [bits, sent] : rows) {
        EXPECT_EQ(Object()->WriteBlock(kAddress, data.data(), 4, bits, 1), S_OK);
        EXPECT_EQ(Object().Sent(), Wire{Block(true, 17, sent)}) << "bits " << bits;
    }
    EXPECT_EQ(data, Counting(16)) << "the caller's data is not touched";
}

TEST_F(Blocks, are_read_as_they_are_whatever_the_element_width) {
    Swallow();
    for (const ULONG bits : {8u, 16u, 32u}) {
        for (std::uint32_t word = 0; word < 4; ++word)
            Object().Patch(kBlockId, 36 + 4 * word, 0x04030201 + word);
        std::array<ULONG, 5> data{};
        data.fill(kPoison);

        EXPECT_EQ(Object()->ReadBlock(kAddress, data.data(), 4, bits, 1, 0), S_OK);

        EXPECT_EQ(data, (std::array<ULONG, 5>{0x04030201, 0x04030202, 0x04030203, 0x04030204, kPoison}));
        Object().Forget();
    }
}

TEST_F(Blocks, between_pages_that_cannot_be_touched_are_read_and_written) {
    constexpr ULONG kMaxQuadlets = 17;
    const CGuardedBuffer memory(4 * kMaxQuadlets);
    Swallow();
    for (ULONG quadlets = 1; quadlets <= kMaxQuadlets; ++quadlets) {
        const std::vector<std::uint8_t> data = Counting(4 * quadlets);
        for (const auto place : {memory.First(data.size()), memory.Last(data.size())}) {
            for (const ULONG bits : {8u, 16u, 32u}) {
                SCOPED_TRACE(std::to_string(quadlets) + " quadlets, " + std::to_string(bits) + " bits");
                std::ranges::copy(data, place.begin());
                EXPECT_EQ(Object()->WriteBlock(kAddress, place.data(), quadlets, bits, 0), S_OK);
                EXPECT_EQ(Object()->WriteBlock(kAddress, place.data(), quadlets, bits, 1), S_OK);
                EXPECT_EQ(Object().Sent(), (Wire{Block(true, 17, data), Block(true, 17, Swapped(data, bits / 8))}));

                std::ranges::fill(place, std::uint8_t{0xDE});
                EXPECT_EQ(Object()->ReadBlock(kAddress, place.data(), quadlets, bits, 0, 0), S_OK);
                EXPECT_EQ(std::ranges::count(place, 0), std::ssize(place)) << "the record that was sent has no data";
                Object().Forget();
            }
        }
    }
}

TEST_F(Blocks, read_tells_mode_and_flag_in_the_transfer_control) {
    Swallow();
    struct Row {
        ULONG mode;
        ULONG flag;
        ULONG control;
    };
    constexpr Row rows[] = {{0, 0, 17},      {1, 0, 18}, {2, 0, 17},         {0, 1, 0x10011},
                            {1, 1, 0x10012}, {0, 2, 17}, {1, 0xFFFFFFFF, 18}};
    for (const auto& [mode, flag, control] : rows) {
        ULONG data = 0;
        EXPECT_EQ(Object()->ReadBlock(kAddress, &data, 1, 8, mode, flag), S_OK);
        EXPECT_EQ(Object().Sent(), Wire{Block(false, control, {0, 0, 0, 0})}) << "mode " << mode << ", flag " << flag;
    }
}

TEST_F(Blocks, a_failed_read_leaves_the_callers_data) {
    Object().FailNth(1, E_ACCESSDENIED);
    std::array<ULONG, 2> data = {kPoison, kPoison};

    EXPECT_EQ(Object()->ReadBlock(kAddress, data.data(), 2, 8, 0, 0), E_ACCESSDENIED);
    EXPECT_EQ(data, (std::array<ULONG, 2>{kPoison, kPoison}));
}

TEST_F(Blocks, a_failed_write_passes_its_code_through) {
    Object().FailNth(1, E_ACCESSDENIED);
    const ULONG data = 1;

    EXPECT_EQ(Object()->WriteBlock(kAddress, &data, 1, 8, 0), E_ACCESSDENIED);
    EXPECT_EQ(Object().Sent().size(), 1u);
}

TEST_F(Blocks, another_success_code_is_a_success_and_passes_through) {
    Camera().AddFault({.nth = 0, .action = kolmsim::SimFaultAction::answer, .code = S_FALSE});
    Object().Patch(kBlockId, 36, 0x11, S_FALSE);
    ULONG data = kPoison;
    ULONG value = kPoison;

    EXPECT_EQ(Object()->ReadBlock(kAddress, &data, 1, 8, 0, 0), S_FALSE);
    EXPECT_EQ(data, 0x11u);
    EXPECT_EQ(Object()->WriteBlock(kAddress, &data, 1, 8, 0), S_FALSE);
    EXPECT_EQ(Object()->ReadRegister(kAddress, &value), S_FALSE);
    EXPECT_EQ(value, 0u) << "no failure: no all ones";
}

TEST_F(Blocks, null_data_is_refused_even_for_nothing) {
    EXPECT_EQ(Object()->WriteBlock(kAddress, nullptr, 0, 8, 0), E_POINTER);
    EXPECT_EQ(Object()->WriteBlock(kAddress, nullptr, 4, 8, 0), E_POINTER);
    EXPECT_EQ(Object()->ReadBlock(kAddress, nullptr, 0, 8, 0, 0), E_POINTER);
    EXPECT_EQ(Object()->ReadBlock(kAddress, nullptr, 4, 8, 0, 0), E_POINTER);
    EXPECT_EQ(Object().Sent(), Wire{});
}

TEST_F(Blocks, a_block_of_nothing_is_a_header_alone) {
    Swallow();
    ULONG data = kPoison;

    EXPECT_EQ(Object()->WriteBlock(kAddress, &data, 0, 32, 1), S_OK);
    EXPECT_EQ(Object()->ReadBlock(kAddress, &data, 0, 32, 1, 0), S_OK);

    EXPECT_EQ(data, kPoison);
    EXPECT_EQ(Object().Sent(), (Wire{Block(true, 17, {}), Block(false, 18, {})}));
}

TEST_F(Blocks, a_size_beyond_32_bits_is_refused_before_the_data_is_touched) {
    ULONG data = kPoison;
    for (const ULONG quadlets : {0x3FFFFFF7u, 0x3FFFFFFFu, 0x40000000u, 0x80000000u, 0xFFFFFFFFu}) {
        EXPECT_EQ(Object()->WriteBlock(kAddress, &data, quadlets, 8, 0), E_INVALIDARG) << quadlets;
        EXPECT_EQ(Object()->ReadBlock(kAddress, &data, quadlets, 8, 0, 0), E_INVALIDARG) << quadlets;
    }
    EXPECT_EQ(data, kPoison);
    EXPECT_EQ(Object().Sent(), Wire{});
}

using Registers = Blocks;

TEST_F(Registers, an_address_that_the_driver_rejects_reads_as_all_ones) {
    ULONG value = kPoison;

    const HRESULT hr = Object()->ReadRegister(0x00000003, &value);

    EXPECT_TRUE(FAILED(hr));
    EXPECT_EQ(value, 0xFFFFFFFFu);
}

TEST_F(Registers, show_features_and_features_show_registers) {
    constexpr ULONG kBrightnessRegister = 0xF0F00800;
    ULONG word = 0;
    ULONG value = 0;

    ASSERT_EQ(Object()->SetFeatureValue(256, 200), S_OK);
    ASSERT_EQ(Object()->ReadRegister(kBrightnessRegister, &word), S_OK);
    EXPECT_EQ(word & 0xFFF, 200u);
    ASSERT_EQ(Object()->WriteRegister(kBrightnessRegister, (word & ~0xFFFu) | 100), S_OK);
    ASSERT_EQ(Object()->GetFeatureValue(256, &value), S_OK);
    EXPECT_EQ(value, 100u);
}

}  // namespace
}  // namespace kolmfluxor::test
