/// @file  The simulated camera's driver contract and its memory.

#include <cstdint>
#include <cstring>
#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include "model/camera.h"
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

TEST_F(SimCamera, a_register_holds_what_was_written) {
    std::vector<std::uint8_t> write = MakeRecord(11, 2, 32);
    Record(write).SetWord(24, 0xF1000240);
    Record(write).SetWord(28, 0x12345678);
    ASSERT_EQ(m_camera.Answer(write), Status::ok);

    std::vector<std::uint8_t> read = MakeRecord(11, 1, 32);
    Record(read).SetWord(24, 0xF1000240);
    ASSERT_EQ(m_camera.Answer(read), Status::ok);

    EXPECT_EQ(ReadWord(read, 28), 0x12345678U);
    EXPECT_EQ(m_camera.Register(0xF1000240), 0x12345678U);
}

TEST_F(SimCamera, an_address_outside_the_register_blocks_is_refused) {
    for (const std::uint32_t address :
         {0U, 0xF0EFFFFCU, 0xF0F00801U, 0xF0F01000U, 0xF0F10000U, 0xF2000000U, 0xFFFFFFFCU}) {
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

TEST_F(SimCamera, damaged_memory_is_answered_without_harm) {
    for (const int filler : {0x00, 0x55, 0x80, 0xFF}) {
        std::memset(m_state->properties.data(), filler, sizeof m_state->properties);
        for (std::uint32_t id = 0; id < kPropertyIds; ++id) {
            if (FindFeature(id) == nullptr) {
                continue;
            }
            std::vector<std::uint8_t> record = MakeRecord(id, 1, 64);
            const bool present = filler != 0;
            EXPECT_EQ(m_camera.Answer(record), present ? Status::ok : Status::propertyNotFound) << id;
        }
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
