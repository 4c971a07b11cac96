/// @file  The simulated camera's driver contract and its memory.

#include <cstdint>
#include <cstring>
#include <memory>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include "model/camera.h"
#include "model/register_table.h"
#include "sim_record.h"

namespace kolmsim {
namespace {

using test::MakeRecord;

class SimCamera : public testing::Test {
protected:
    SimCamera() { ResetState(*m_state, Variant::color); }

    std::unique_ptr<CameraState> m_state = std::make_unique<CameraState>();
    Camera m_camera{*m_state};
};

TEST_F(SimCamera, a_record_shorter_than_its_header_is_refused) {
    for (std::size_t bytes = 0; bytes < 24; ++bytes) {
        std::vector<std::uint8_t> record = MakeRecord(0, 1, bytes);
        EXPECT_EQ(m_camera.Answer(record), Status::insufficientBuffer) << bytes;
    }
}

TEST_F(SimCamera, a_feature_record_has_exactly_64_bytes) {
    for (std::size_t bytes = 24; bytes <= 96; bytes += 4) {
        std::vector<std::uint8_t> record = MakeRecord(0, 1, bytes);
        const Status expected = bytes < 64    ? Status::insufficientBuffer
                                : bytes == 64 ? Status::ok
                                              : Status::invalidParameter;
        EXPECT_EQ(m_camera.Answer(record), expected) << bytes;
        EXPECT_EQ(m_camera.Check(record).objection == nullptr, bytes == 64) << bytes;
    }
}

TEST_F(SimCamera, another_property_set_is_refused_in_each_of_its_bytes) {
    for (std::size_t i = 0; i < 16; ++i) {
        std::vector<std::uint8_t> record = MakeRecord(0, 1, 64);
        record[i] ^= 1;
        EXPECT_EQ(m_camera.Answer(record), Status::setNotFound) << i;
    }
}

TEST_F(SimCamera, flags_other_than_exactly_get_or_set_are_refused) {
    for (const std::uint32_t flags : {0U, 3U, 4U, 0x10000001U, 0x10000002U, 0xFFFFFFFFU}) {
        std::vector<std::uint8_t> record = MakeRecord(0, flags, 64);
        EXPECT_EQ(m_camera.Answer(record), Status::invalidParameter) << flags;
    }
}

TEST_F(SimCamera, an_unknown_property_is_not_found_and_no_breach_of_contract) {
    for (const std::uint32_t id : {66U, 1000U, 0xFFFFFFFFU}) {
        std::vector<std::uint8_t> record = MakeRecord(id, 1, 64);
        EXPECT_EQ(m_camera.Answer(record), Status::propertyNotFound) << id;
        EXPECT_EQ(m_camera.Check(record).objection, nullptr) << id;
    }
}

TEST_F(SimCamera, statuses_are_win32_error_numbers) {
    EXPECT_EQ(static_cast<std::uint32_t>(Status::propertyNotFound), 0x490U);
    EXPECT_EQ(static_cast<std::uint32_t>(Status::setNotFound), 0x492U);
    EXPECT_EQ(static_cast<std::uint32_t>(Status::deviceNotConnected), 0x48FU);
    EXPECT_EQ(static_cast<std::uint32_t>(Status::invalidParameter), 87U);
}

TEST_F(SimCamera, a_block_record_is_as_long_as_its_count_of_data_says) {
    for (const std::size_t bytes : {32U, 36U, 40U, 44U}) {
        std::vector<std::uint8_t> record = MakeRecord(62, 1, bytes);
        if (bytes >= 36) {
            Record(record).SetWord(24, 0xF1001000);
            Record(record).SetWord(28, 0x11);
            Record(record).SetWord(32, 4);
        }
        const Status expected = bytes < 40    ? Status::insufficientBuffer
                                : bytes == 40 ? Status::ok
                                              : Status::invalidParameter;
        EXPECT_EQ(m_camera.Answer(record), expected) << bytes;
        EXPECT_EQ(m_camera.Check(record).objection == nullptr, bytes == 40) << bytes;
    }
}

TEST_F(SimCamera, every_property_has_its_record_size) {
    struct Size {
        std::uint32_t id;
        std::size_t bytes;
    };
    constexpr Size kSizes[] = {{3, 64},  {9, 800}, {10, 840}, {11, 32}, {12, 32}, {13, 96}, {14, 96}, {15, 96},
                               {16, 32}, {17, 96}, {18, 96},  {20, 96}, {24, 64}, {25, 64}, {26, 48}, {28, 64},
                               {29, 64}, {30, 64}, {31, 64},  {32, 64}, {33, 64}, {34, 64}, {35, 64}, {36, 64},
                               {37, 64}, {38, 64}, {39, 64},  {40, 64}, {41, 64}, {42, 64}, {51, 64}, {52, 48},
                               {53, 64}, {54, 64}, {56, 64},  {61, 64}, {62, 36}, {65, 40}};
    for (const Size& size : kSizes) {
        EXPECT_EQ(m_camera.Check(MakeRecord(size.id, 1, size.bytes)).status, Status::ok) << size.id;
        EXPECT_EQ(m_camera.Check(MakeRecord(size.id, 1, size.bytes - 4)).status, Status::insufficientBuffer) << size.id;
        EXPECT_EQ(m_camera.Check(MakeRecord(size.id, 1, size.bytes + 4)).status, Status::invalidParameter) << size.id;
    }
}

TEST_F(SimCamera, a_header_alone_is_checked_without_its_property) {
    EXPECT_EQ(CheckHeader(MakeRecord(999, 1, 24)).status, Status::ok);
    EXPECT_EQ(CheckHeader(MakeRecord(0, 3, 64)).status, Status::invalidParameter);
    EXPECT_NE(CheckHeader(MakeRecord(0, 3, 64)).objection, nullptr);
    EXPECT_EQ(CheckHeader(MakeRecord(0, 1, 20)).status, Status::insufficientBuffer);
}

TEST_F(SimCamera, an_address_without_a_register_is_refused) {
    for (const std::uint32_t address :
         {0U, 0xF0EFFFFCU, 0xF0F00801U, 0xF0F00840U, 0xF0F01000U, 0xF0F10000U, 0xF1001800U, 0xF2000000U, 0xFFFFFFFCU}) {
        std::vector<std::uint8_t> read = MakeRecord(11, 1, 32);
        Record(read).SetWord(24, address);
        EXPECT_EQ(m_camera.Answer(read), Status::invalidAddress) << std::hex << address;
        EXPECT_FALSE(m_camera.SetRegister(address, 0)) << std::hex << address;
    }
}

TEST_F(SimCamera, words_that_do_not_exist_cannot_be_reached) {
    EXPECT_EQ(m_camera.PropertyWord(66, 24), std::nullopt);
    EXPECT_EQ(m_camera.PropertyWord(0, 20), std::nullopt);
    EXPECT_EQ(m_camera.PropertyWord(0, 26), std::nullopt);
    EXPECT_EQ(m_camera.PropertyWord(0, 64), std::nullopt);
    EXPECT_FALSE(m_camera.SetPropertyWord(0, 64, 1));
}

TEST_F(SimCamera, the_camera_changes_any_word_by_itself) {
    for (std::size_t offset = 24; offset < 64; offset += 4) {
        const auto word = static_cast<std::uint32_t>(0x1000 + offset);
        ASSERT_TRUE(m_camera.SetPropertyWord(8, offset, word));
        EXPECT_EQ(m_camera.PropertyWord(8, offset), word) << offset;
    }
}

TEST_F(SimCamera, looking_without_a_request_lets_no_time_pass) {
    ASSERT_TRUE(m_camera.SetPropertyWord(0, 28, kModeAuto));

    for (int look = 0; look < 3; ++look) {
        EXPECT_EQ(m_camera.PropertyWord(0, 24), 64U);
    }
}

TEST_F(SimCamera, settings_survive_a_copy_of_the_memory) {
    ASSERT_TRUE(m_camera.SetPropertyWord(4, 24, 99));
    ASSERT_TRUE(m_camera.SetPropertyWord(0, 28, kModeOnePush));
    const auto copy = std::make_unique<CameraState>();

    std::memcpy(copy.get(), m_state.get(), sizeof *copy);

    EXPECT_TRUE(IsUsable(*copy, Variant::color));
    EXPECT_EQ(Camera(*copy).PropertyWord(4, 24), 99U);
    std::vector<std::uint8_t> record = MakeRecord(0, 1, 64);
    ASSERT_EQ(Camera(*copy).Answer(record), Status::ok);
    EXPECT_EQ(ReadWord(record, 28), kModeOnePush);
}

TEST_F(SimCamera, foreign_memory_is_not_usable) {
    EXPECT_TRUE(IsUsable(*m_state, Variant::color));
    EXPECT_FALSE(IsUsable(*m_state, Variant::mono));

    ++m_state->version;
    EXPECT_FALSE(IsUsable(*m_state, Variant::color));

    ResetState(*m_state, Variant::color);
    --m_state->sizeBytes;
    EXPECT_FALSE(IsUsable(*m_state, Variant::color));

    std::memset(m_state.get(), 0, sizeof *m_state);
    EXPECT_FALSE(IsUsable(*m_state, Variant::color));
}

/// Asks for everything that has a fixed record, and for every register.
void AskForEverything(Camera& camera) {
    for (std::uint32_t id = 0; id < kPropertyIds; ++id) {
        for (const std::size_t bytes : {32U, 40U, 48U, 64U, 96U, 800U, 840U}) {
            std::vector<std::uint8_t> record = MakeRecord(id, 1, bytes);
            std::ignore = camera.Answer(record);
        }
    }
    for (const RegisterEntry& entry : RegisterTable()) {
        std::vector<std::uint8_t> record = MakeRecord(11, 1, 32);
        Record(record).SetWord(24, entry.address);
        EXPECT_EQ(camera.Answer(record), Status::ok) << std::hex << entry.address;
    }
}

TEST_F(SimCamera, damaged_memory_is_answered_without_harm) {
    const std::uint32_t variant = m_state->variant;
    for (const int filler : {0x00, 0x55, 0x80, 0xFF}) {
        std::memset(m_state.get(), filler, sizeof *m_state);
        m_state->variant = variant;
        AskForEverything(m_camera);
        for (const FeatureRow& row : FeatureTable()) {
            std::vector<std::uint8_t> record = MakeRecord(row.id, 1, 64);
            const bool present = filler != 0;
            EXPECT_EQ(m_camera.Answer(record), present ? Status::ok : Status::propertyNotFound) << row.name;
        }
        std::vector<std::uint8_t> block = MakeRecord(62, 1, 36 + 8);
        Record(block).SetWord(24, 0xF1001000);
        Record(block).SetWord(28, 0x11);
        Record(block).SetWord(32, 8);
        EXPECT_EQ(m_camera.Answer(block), Status::ok);
        Record(block).SetWord(20, 2);
        EXPECT_EQ(m_camera.Answer(block), Status::ok);
        std::ignore = m_camera.PictureSettings();
    }
}

TEST_F(SimCamera, every_reset_gives_the_same_memory) {
    const auto other = std::make_unique<CameraState>();
    std::memset(other.get(), 0xAA, sizeof *other);

    ResetState(*other, Variant::color);

    EXPECT_EQ(std::memcmp(other.get(), m_state.get(), sizeof *other), 0);
}

}  // namespace
}  // namespace kolmsim
