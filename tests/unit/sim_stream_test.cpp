/// @file  Streams of the simulated camera: when a picture can be taken, and where on the sensor.

#include <cstddef>
#include <cstdint>
#include <optional>

#include <gtest/gtest.h>

#include "model/trigger.h"
#include "model/video_format.h"
#include "sim_fixture.h"

namespace kolmsim {
namespace {

class SimStream : public test::SimTest {
protected:
    VideoFormat Current() { return CurrentFormat(*m_state).value_or(VideoFormat{}); }
    void Stream(bool on) { WriteRegister(0xF0F00614, on ? 0x80000000 : 0); }
};

TEST_F(SimStream, pictures_come_while_the_camera_streams_in_the_streams_layout) {
    const VideoFormat stream = Current();
    EXPECT_EQ(TakePicture(*m_state, stream), std::nullopt);
    Stream(true);
    EXPECT_EQ(TakePicture(*m_state, stream), stream);
    EXPECT_EQ(ReadRegister(0xF1000274), 1U) << "counted";

    WriteRegister(0xF0F00600, 2U << 29);
    EXPECT_NE(TakePicture(*m_state, stream), std::nullopt) << "another rate is no other layout";
    WriteRegister(0xF0F00604, 3U << 29);
    EXPECT_EQ(TakePicture(*m_state, stream), std::nullopt);
    WriteRegister(0xF0F00608, 4U << 29);
    EXPECT_EQ(TakePicture(*m_state, stream), std::nullopt);
}

TEST_F(SimStream, the_area_moves_under_a_stream_but_its_size_does_not_change) {
    VideoFormat stream{.format = 7, .mode = 0, .width = 320, .height = 240};
    ASSERT_EQ(ApplyFormat(*m_state, Geometry::agreed, stream), Status::ok);
    Stream(true);
    ASSERT_EQ(Set(65, 40, {{24, 0}, {28, 40}, {32, 20}}), Status::ok);

    const auto taken = TakePicture(*m_state, stream);

    ASSERT_NE(taken, std::nullopt);
    EXPECT_EQ(taken->left, 40U);
    EXPECT_EQ(taken->top, 20U);
    WriteRegister(0xF0F0800C, 640U << 16 | 240);
    EXPECT_EQ(TakePicture(*m_state, stream), std::nullopt);
}

class SimTriggeredStream : public SimStream {
protected:
    void Arm(std::uint32_t mode, std::uint32_t parameter) {
        ASSERT_EQ(Set(53, 64, {{24, parameter}, {28, 0x20 | mode}}), Status::ok);
    }
    void SoftTrigger() { WriteRegister(0xF0F0062C, 0x80000000); }
    std::size_t PicturesNow() {
        std::size_t count = 0;
        while (count < 1000 && TakePicture(*m_state, Current())) {
            ++count;
        }
        return count;
    }
};

TEST_F(SimTriggeredStream, each_trigger_gives_one_picture) {
    Stream(true);
    Arm(0x10000, 1);
    EXPECT_EQ(PicturesNow(), 0U);
    SoftTrigger();
    EXPECT_EQ(PicturesNow(), 1U);
    SoftTrigger();
    EXPECT_TRUE(Trigger(*m_state)) << "a pulse at the input";
    EXPECT_EQ(PicturesNow(), 2U) << "they wait in line";
    ASSERT_EQ(Set(53, 64, {{28, 0x10000}}), Status::ok);
    EXPECT_FALSE(Trigger(*m_state));
    EXPECT_EQ(PicturesNow(), 1000U) << "free again";
}

TEST_F(SimTriggeredStream, in_mode_15_a_trigger_gives_as_many_as_the_parameter_says) {
    Stream(true);
    Arm(0x80000000, 7);
    SoftTrigger();
    EXPECT_EQ(PicturesNow(), 7U);
    Arm(0x80000000, 0);
    SoftTrigger();
    EXPECT_EQ(PicturesNow(), 1U);
}

TEST_F(SimTriggeredStream, what_was_triggered_before_a_stream_or_for_an_earlier_one_is_lost) {
    Arm(0x10000, 1);
    SoftTrigger();
    Stream(true);
    EXPECT_EQ(PicturesNow(), 0U);
    SoftTrigger();
    Stream(false);
    Stream(true);
    EXPECT_EQ(PicturesNow(), 0U);
    SoftTrigger();
    ASSERT_EQ(Set(53, 64, {{28, 0x10000}}), Status::ok);
    Arm(0x10000, 1);
    EXPECT_EQ(PicturesNow(), 0U) << "switched off between";
    EXPECT_EQ(ReadRegister(0xF1000620), 3U) << "counted all the same";
}

TEST_F(SimTriggeredStream, triggers_without_end_do_not_overflow) {
    Stream(true);
    Arm(0x80000000, 4095);
    for (int i = 0; i < 100; ++i) {
        SoftTrigger();
    }
    EXPECT_EQ(PicturesNow(), 1000U);
}

}  // namespace
}  // namespace kolmsim
