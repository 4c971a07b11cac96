/// @file  Features of the simulated camera, asked as a driver asks them.

#include <cstdint>
#include <memory>
#include <set>
#include <vector>

#include <gtest/gtest.h>

#include "model/camera.h"
#include "sim_record.h"

namespace kolmsim {
namespace {

using test::MakeRecord;

constexpr std::uint32_t kGet = 1;
constexpr std::uint32_t kSet = 2;

/// A camera in its factory state.
class SimFeature : public testing::Test {
protected:
    explicit SimFeature(Variant variant = Variant::color) { ResetState(*m_state, variant); }

    Status Get(std::uint32_t id) {
        m_record = MakeRecord(id, kGet, 64);
        return m_camera.Answer(m_record);
    }

    Status Set(std::uint32_t id, std::uint32_t value, std::uint32_t mode) {
        m_record = MakeRecord(id, kSet, 64);
        Record(m_record).SetWord(24, value);
        Record(m_record).SetWord(28, mode);
        return m_camera.Answer(m_record);
    }

    /// A word of the last answer.
    [[nodiscard]] std::uint32_t Word(std::size_t offset) const { return ReadWord(m_record, offset); }

    std::unique_ptr<CameraState> m_state = std::make_unique<CameraState>();
    Camera m_camera{*m_state};
    std::vector<std::uint8_t> m_record;
};

/// The driver ids of the feature contract.
constexpr std::uint32_t kFeatureIds[] = {0,  1,  2,  4,  5,  6,  7,  8,  19, 21, 22, 23, 27, 28,
                                         31, 32, 33, 35, 36, 37, 39, 40, 41, 55, 60, 63, 64};

TEST_F(SimFeature, every_feature_answers_its_whole_row) {
    std::set<std::uint32_t> extraWords;
    for (const std::uint32_t id : kFeatureIds) {
        SCOPED_TRACE(id);
        const FeatureRow* row = FindFeature(id);
        ASSERT_NE(row, nullptr);

        ASSERT_EQ(Get(id), Status::ok);

        EXPECT_EQ(Word(28), row->mode);
        EXPECT_EQ(Word(32), row->caps);
        EXPECT_EQ(Word(36), row->min);
        EXPECT_EQ(Word(40), row->max);
        for (const std::size_t offset : {48U, 56U, 60U}) {
            EXPECT_NE(Word(offset), 0U) << "offset " << offset;
            EXPECT_TRUE(extraWords.insert(Word(offset)).second) << "offset " << offset << " is not distinct";
        }
    }
    EXPECT_EQ(FeatureTable().size(), std::size(kFeatureIds));
}

TEST_F(SimFeature, a_fixed_mode_keeps_the_value) {
    for (const FeatureRow& row : FeatureTable()) {
        SCOPED_TRACE(row.name);
        if (row.mode == kModeAuto) {
            continue;  // the one that starts so has a test of its own
        }
        for (int look = 0; look < 3; ++look) {
            ASSERT_EQ(Get(row.id), Status::ok);
            EXPECT_EQ(Word(24), row.value);
        }
    }
}

TEST_F(SimFeature, automatic_iso_channel_does_not_wander) {
    for (int look = 0; look < 3; ++look) {
        ASSERT_EQ(Get(55), Status::ok);
        EXPECT_EQ(Word(24), 5U);
        EXPECT_EQ(Word(28), kModeAuto);
        EXPECT_EQ(Word(44), 1U);
    }
}

TEST_F(SimFeature, every_supported_mode_can_be_set_and_no_other) {
    for (const FeatureRow& row : FeatureTable()) {
        SCOPED_TRACE(row.name);
        for (std::uint32_t mode = 1; mode != 0; mode <<= 1) {
            const bool supported = (row.caps & mode) != 0;
            EXPECT_EQ(Set(row.id, row.value, mode), supported ? Status::ok : Status::invalidParameter) << mode;
            EXPECT_EQ(m_camera.PropertyWord(row.id, 28) == mode, supported) << mode;
        }
    }
}

TEST_F(SimFeature, two_modes_at_once_are_refused) {
    EXPECT_EQ(Set(0, 64, kModeManual | kModeAuto), Status::invalidParameter);
    EXPECT_EQ(m_camera.PropertyWord(0, 28), kModeManual);
}

TEST_F(SimFeature, mode_zero_keeps_the_mode) {
    ASSERT_EQ(Set(40, 300, 0), Status::ok);

    EXPECT_EQ(m_camera.PropertyWord(40, 24), 300U);
    EXPECT_EQ(m_camera.PropertyWord(40, 28), kModeOff);
}

TEST_F(SimFeature, values_at_the_ends_are_taken_and_beyond_refused) {
    for (const FeatureRow& row : FeatureTable()) {
        SCOPED_TRACE(row.name);
        const std::uint32_t lowest = row.minIsNoLimit ? 0 : row.min;

        EXPECT_EQ(Set(row.id, lowest, kModeManual), Status::ok);
        EXPECT_EQ(Set(row.id, row.max, kModeManual), Status::ok);
        EXPECT_EQ(Set(row.id, row.max + 1, kModeManual), Status::invalidParameter);
        if (lowest > 0) {
            EXPECT_EQ(Set(row.id, lowest - 1, kModeManual), Status::invalidParameter);
        }
        EXPECT_EQ(m_camera.PropertyWord(row.id, 24), row.max);
    }
}

TEST_F(SimFeature, a_refused_set_changes_neither_camera_nor_record) {
    m_record = MakeRecord(0, kSet, 64);
    Record(m_record).SetWord(24, 256);
    Record(m_record).SetWord(28, kModeAuto);
    const std::vector<std::uint8_t> sent = m_record;

    EXPECT_EQ(m_camera.Answer(m_record), Status::invalidParameter);

    EXPECT_EQ(m_record, sent);
    EXPECT_EQ(m_camera.PropertyWord(0, 24), 64U);
    EXPECT_EQ(m_camera.PropertyWord(0, 28), kModeManual);
}

TEST_F(SimFeature, lut_number_reports_its_table_size_as_minimum) {
    ASSERT_EQ(Get(31), Status::ok);

    EXPECT_EQ(Word(36), kLutBytes);
    EXPECT_EQ(Word(40), kLutCount);
}

TEST_F(SimFeature, auto_moves_with_each_look_and_stays_in_range) {
    for (const FeatureRow& row : FeatureTable()) {
        if (row.step == 0) {
            continue;
        }
        SCOPED_TRACE(row.name);
        ASSERT_EQ(Set(row.id, row.value, kModeAuto), Status::ok);
        std::uint32_t before = row.value;
        bool rose = false;
        bool fell = false;
        for (int look = 0; look < 1000; ++look) {
            ASSERT_EQ(Get(row.id), Status::ok);
            ASSERT_NE(Word(24), before) << "look " << look;
            ASSERT_GE(Word(24), row.min);
            ASSERT_LE(Word(24), row.max);
            ASSERT_EQ(Word(28), kModeAuto);
            ASSERT_EQ(Word(44), 1U);
            ASSERT_EQ(Word(52), 0U);
            rose = rose || Word(24) > before;
            fell = fell || Word(24) < before;
            before = Word(24);
        }
        EXPECT_TRUE(rose && fell) << "never turned back";
    }
}

TEST_F(SimFeature, auto_brings_a_stray_value_back_into_range) {
    ASSERT_EQ(Set(0, 64, kModeAuto), Status::ok);
    ASSERT_TRUE(m_camera.SetPropertyWord(0, 24, 0xFFFFFFFF));

    ASSERT_EQ(Get(0), Status::ok);

    EXPECT_EQ(Word(24), 0U);
}

TEST_F(SimFeature, auto_in_an_empty_range_stays_at_its_minimum) {
    ASSERT_EQ(Set(0, 64, kModeAuto), Status::ok);
    ASSERT_TRUE(m_camera.SetPropertyWord(0, 36, 10));
    ASSERT_TRUE(m_camera.SetPropertyWord(0, 40, 5));

    ASSERT_EQ(Get(0), Status::ok);

    EXPECT_EQ(Word(24), 10U);
}

TEST_F(SimFeature, one_push_moves_for_three_looks_and_ends_in_manual) {
    for (const FeatureRow& row : FeatureTable()) {
        if ((row.caps & kModeOnePush) == 0) {
            continue;
        }
        SCOPED_TRACE(row.name);
        ASSERT_EQ(Set(row.id, row.value, kModeOnePush), Status::ok);
        EXPECT_EQ(Word(52), 1U);
        std::uint32_t before = row.value;
        for (int look = 1; look <= 3; ++look) {
            ASSERT_EQ(Get(row.id), Status::ok);
            EXPECT_EQ(Word(28), kModeOnePush) << "look " << look;
            EXPECT_EQ(Word(52), 1U) << "look " << look;
            EXPECT_NE(Word(24), before) << "look " << look;
            before = Word(24);
        }

        ASSERT_EQ(Get(row.id), Status::ok);

        EXPECT_EQ(Word(28), kModeManual);
        EXPECT_EQ(Word(52), 0U);
        EXPECT_EQ(Word(24), before);
    }
}

TEST_F(SimFeature, a_second_one_push_starts_anew) {
    ASSERT_EQ(Set(5, 500, kModeOnePush), Status::ok);
    ASSERT_EQ(Get(5), Status::ok);
    ASSERT_EQ(Get(5), Status::ok);

    ASSERT_EQ(Set(5, 500, kModeOnePush), Status::ok);

    for (int look = 1; look <= 3; ++look) {
        ASSERT_EQ(Get(5), Status::ok);
        EXPECT_EQ(Word(28), kModeOnePush) << "look " << look;
    }
    ASSERT_EQ(Get(5), Status::ok);
    EXPECT_EQ(Word(28), kModeManual);
}

TEST_F(SimFeature, some_features_have_every_kind_of_mode) {
    int automatic = 0;
    int onePush = 0;
    int switchOnly = 0;
    for (const FeatureRow& row : FeatureTable()) {
        automatic += (row.caps & kModeAuto) != 0 ? 1 : 0;
        onePush += (row.caps & kModeOnePush) != 0 ? 1 : 0;
        switchOnly += row.caps == (kModeOff | kModeManual) ? 1 : 0;
    }
    EXPECT_GE(automatic, 5);
    EXPECT_GE(onePush, 4);
    EXPECT_GE(switchOnly, 5);
}

TEST_F(SimFeature, a_feature_taken_away_answers_not_found_until_it_is_back) {
    ASSERT_TRUE(m_camera.SetPropertyPresent(8, false));
    EXPECT_EQ(Get(8), Status::propertyNotFound);

    ASSERT_TRUE(m_camera.SetPropertyPresent(8, true));

    EXPECT_EQ(Get(8), Status::ok);
    EXPECT_FALSE(m_camera.SetPropertyPresent(3, false));
}

class SimMonoFeature : public SimFeature {
protected:
    SimMonoFeature() : SimFeature(Variant::mono) {}
};

TEST_F(SimMonoFeature, only_the_color_features_are_missing) {
    const std::set<std::uint32_t> colorOnly = {1, 2, 22, 23, 27};
    for (const std::uint32_t id : kFeatureIds) {
        const Status expected = colorOnly.contains(id) ? Status::propertyNotFound : Status::ok;
        EXPECT_EQ(Get(id), expected) << "driver id " << id;
    }
}

}  // namespace
}  // namespace kolmsim
