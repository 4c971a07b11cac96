/// @file  The simulated camera's GP buffer and what lies behind it.

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <vector>

#include <gtest/gtest.h>

#include "sim_fixture.h"

namespace kolmsim {
namespace {

constexpr std::uint32_t kGpBuffer = 0xF1001000;
constexpr std::uint32_t kLutMemory = 0xF1000244;
constexpr std::uint32_t kShadingMemory = 0xF1000254;
constexpr std::uint32_t kEnableWrite = 1U << 26;
constexpr std::uint32_t kEnableRead = 1U << 25;

class SimMemoryWindow : public test::SimTest {
protected:
    using Bytes = std::vector<std::uint8_t>;

    Status WriteBlock(std::uint32_t address, const Bytes& data, std::uint32_t control = 0x11) {
        Bytes record = BlockRecord(2, address, data.size(), control);
        std::ranges::copy(data, record.begin() + 36);
        return m_camera.Answer(record);
    }

    Status ReadBlock(std::uint32_t address, Bytes& data, std::uint32_t control = 0x11) {
        Bytes record = BlockRecord(1, address, data.size(), control);
        const Status status = m_camera.Answer(record);
        std::copy(record.begin() + 36, record.end(), data.begin());
        return status;
    }

    static Bytes Counting(std::size_t count, std::uint8_t first = 0) {
        Bytes bytes(count);
        std::iota(bytes.begin(), bytes.end(), first);
        return bytes;
    }

    [[nodiscard]] Bytes Lut(std::uint32_t number) const {
        const auto memory = m_camera.Lut(number);
        return {memory.begin(), memory.end()};
    }

private:
    static Bytes BlockRecord(std::uint32_t flags, std::uint32_t address, std::size_t count, std::uint32_t control) {
        Bytes record = test::MakeRecord(62, flags, 36 + count);
        Record(record).SetWord(24, address);
        Record(record).SetWord(28, control);
        Record(record).SetWord(32, static_cast<std::uint32_t>(count));
        return record;
    }
};

TEST_F(SimMemoryWindow, the_buffer_keeps_blocks_and_words) {
    ASSERT_EQ(WriteBlock(kGpBuffer + 8, Counting(16)), Status::ok);

    Bytes read(24);
    ASSERT_EQ(ReadBlock(kGpBuffer, read), Status::ok);
    EXPECT_EQ(read[7], 0);
    EXPECT_EQ(read[8 + 15], 15);
    EXPECT_EQ(ReadRegister(kGpBuffer + 8), 0x00010203U) << "the highest byte travels first";
    WriteRegister(kGpBuffer + 2044, 0xA1B2C3D4);
    Bytes last(4);
    ASSERT_EQ(ReadBlock(kGpBuffer + 2044, last, 0x12), Status::ok);
    EXPECT_EQ(last, (Bytes{0xA1, 0xB2, 0xC3, 0xD4}));
}

TEST_F(SimMemoryWindow, blocks_reach_registers_in_bus_order) {
    ASSERT_EQ(WriteBlock(0xF1000284, {0, 0, 0x12, 0x34, 0, 0, 0x56, 0x78}), Status::ok);
    EXPECT_EQ(ReadRegister(0xF1000284), 0x1234U);
    EXPECT_EQ(ReadRegister(0xF1000288), 0x5678U);

    Bytes read(8);
    ASSERT_EQ(ReadBlock(0xF0F00800, read, 0x10011), Status::ok);
    EXPECT_EQ(read, (Bytes{0x82, 0, 0, 16, 0x82, 0, 0, 125}));
}

TEST_F(SimMemoryWindow, a_block_of_any_bad_form_is_refused) {
    Bytes four(4);
    Bytes six(6);
    EXPECT_EQ(ReadBlock(kGpBuffer, six), Status::invalidParameter) << "no whole words";
    EXPECT_EQ(ReadBlock(kGpBuffer + 2, four), Status::invalidAddress);
    for (const std::uint32_t control : {0U, 0x10U, 0x13U, 0x20011U}) {
        EXPECT_EQ(ReadBlock(kGpBuffer, four, control), Status::invalidParameter) << control;
    }
    for (const std::uint32_t control : {0U, 0x12U, 0x10011U}) {
        EXPECT_EQ(WriteBlock(kGpBuffer, four, control), Status::invalidParameter) << control;
    }
    Bytes whole(2048);
    EXPECT_EQ(ReadBlock(kGpBuffer, whole), Status::ok);
    EXPECT_EQ(ReadBlock(kGpBuffer + 4, whole), Status::invalidAddress);
    EXPECT_EQ(ReadBlock(0xF0F00840, four), Status::invalidAddress);
    EXPECT_EQ(WriteBlock(0xF1000288, Counting(16)), Status::ok);
    EXPECT_EQ(ReadBlock(0xFFFFFFFC, whole), Status::invalidAddress);
    Bytes huge(1 << 20);
    EXPECT_EQ(ReadBlock(kGpBuffer, huge), Status::invalidAddress);
}

TEST_F(SimMemoryWindow, a_block_that_leaves_the_registers_writes_none) {
    EXPECT_EQ(WriteBlock(0xF100028C, Counting(16, 1)), Status::invalidAddress);
    EXPECT_EQ(ReadRegister(0xF100028C), 50U);
}

TEST_F(SimMemoryWindow, an_open_lut_takes_blocks_one_behind_the_other) {
    const Bytes before = Lut(1);
    WriteRegister(kLutMemory, kEnableWrite | 2U << 16);
    EXPECT_EQ(ReadRegister(kLutMemory), 0x84020000U);

    Bytes all;
    for (std::uint32_t block = 0; block < 4; ++block) {
        const Bytes data = Counting(2048, static_cast<std::uint8_t>(block));
        ASSERT_EQ(WriteBlock(kGpBuffer, data), Status::ok);
        EXPECT_EQ(ReadRegister(kLutMemory), 0x84020000U | 2048 * (block + 1));
        all.insert(all.end(), data.begin(), data.end());
    }

    EXPECT_EQ(Lut(2), all);
    EXPECT_EQ(Lut(1), before);
    ASSERT_EQ(WriteBlock(kGpBuffer, Counting(4)), Status::ok);
    EXPECT_EQ(ReadRegister(kLutMemory), 0x80022000U) << "no room: closed";
}

TEST_F(SimMemoryWindow, a_closed_lut_keeps_its_content) {
    const Bytes before = Lut(0);
    ASSERT_EQ(WriteBlock(kGpBuffer, Counting(64, 1)), Status::ok);
    EXPECT_EQ(Lut(0), before);

    WriteRegister(kLutMemory, kEnableWrite);
    WriteRegister(kLutMemory, 0);
    ASSERT_EQ(WriteBlock(kGpBuffer, Counting(64, 1)), Status::ok);
    EXPECT_EQ(Lut(0), before);
}

TEST_F(SimMemoryWindow, the_address_offset_says_where_writing_starts) {
    WriteRegister(kLutMemory, kEnableWrite | 8190);
    ASSERT_EQ(WriteBlock(kGpBuffer, {1, 2, 3, 4}), Status::ok);

    EXPECT_EQ(Lut(0)[8189], 0xFE) << "the value before, 4094";
    EXPECT_EQ(Lut(0)[8190], 1);
    EXPECT_EQ(Lut(0)[8191], 2);
    EXPECT_EQ(ReadRegister(kLutMemory), 0x80002000U) << "what fits is stored, then the memory closes";
}

TEST_F(SimMemoryWindow, a_lut_that_does_not_exist_does_not_open) {
    WriteRegister(kLutMemory, kEnableWrite | 4U << 16);
    EXPECT_EQ(ReadRegister(kLutMemory), 0x80040000U);
    WriteRegister(kLutMemory, kEnableWrite | 8192);
    EXPECT_EQ(ReadRegister(kLutMemory), 0x80002000U);
    EXPECT_TRUE(Lut(4).empty());
}

TEST_F(SimMemoryWindow, lut_info_tells_what_the_properties_tell) {
    EXPECT_EQ(ReadRegister(0xF1000248), 0x80000000U | 12U << 24 | 4U << 16 | 8192);
    ASSERT_EQ(Get(31), Status::ok);
    EXPECT_EQ(Word(36), 8192U);
    EXPECT_EQ(Word(40), 4U);
    ASSERT_EQ(Set(63, 64, {{24, 8}}), Status::ok);
    EXPECT_EQ(ReadRegister(0xF1000248) >> 24 & 0x1F, 8U);
}

TEST_F(SimMemoryWindow, shading_data_is_written_and_read_back) {
    EXPECT_EQ(ReadRegister(0xF1000258), 0x80000000U | 640 * 480);
    WriteRegister(kShadingMemory, kEnableWrite);
    ASSERT_EQ(WriteBlock(kGpBuffer, Counting(2048, 5)), Status::ok);
    ASSERT_EQ(WriteBlock(kGpBuffer, Counting(1024, 9)), Status::ok);
    EXPECT_EQ(ReadRegister(kShadingMemory), 0x84000C00U);
    WriteRegister(kShadingMemory, 0);
    ASSERT_EQ(WriteBlock(kGpBuffer, Bytes(2048)), Status::ok);

    WriteRegister(kShadingMemory, kEnableRead | 4);
    Bytes read(2044);
    ASSERT_EQ(ReadBlock(kGpBuffer, read), Status::ok);
    EXPECT_EQ(read, Counting(2044, 9)) << "5 + 4";
    EXPECT_EQ(ReadRegister(kShadingMemory), 0x82000800U);
    ASSERT_EQ(ReadBlock(kGpBuffer, read), Status::ok);
    EXPECT_EQ(read[0], 9);
    EXPECT_EQ(read[1024], 0) << "never written";
}

TEST_F(SimMemoryWindow, shading_memory_ends_where_the_sensor_ends) {
    WriteRegister(kShadingMemory, kEnableWrite | (640 * 480 - 4));
    ASSERT_EQ(WriteBlock(kGpBuffer, Counting(8, 1)), Status::ok);
    EXPECT_EQ(ReadRegister(kShadingMemory), 0x80000000U | 640 * 480);
    WriteRegister(kShadingMemory, kEnableWrite | kEnableRead | 640 * 480);
    EXPECT_EQ(ReadRegister(kShadingMemory), 0x80000000U | 640 * 480);
}

TEST_F(SimMemoryWindow, one_memory_is_open_at_a_time) {
    WriteRegister(kShadingMemory, kEnableWrite);
    WriteRegister(kLutMemory, kEnableWrite);
    EXPECT_EQ(ReadRegister(kShadingMemory), 0x80000000U);
    WriteRegister(kShadingMemory, kEnableWrite);
    EXPECT_EQ(ReadRegister(kLutMemory), 0x80000000U);
}

TEST_F(SimMemoryWindow, building_shading_data_makes_it_even) {
    ASSERT_EQ(Set(30, 64, {{24, 4}, {28, 0x2 | 0x2000}}), Status::ok);
    for (int look = 0; look < 4; ++look) {
        ASSERT_EQ(Get(30), Status::ok);
    }
    WriteRegister(kShadingMemory, kEnableRead);
    Bytes read(8);
    ASSERT_EQ(ReadBlock(kGpBuffer, read), Status::ok);
    EXPECT_EQ(read, Bytes(8, 0x80));
}

}  // namespace
}  // namespace kolmsim
