/// @file  Video formats of the simulated camera: the list, and setting one.

#include <cstdint>
#include <cstring>
#include <limits>
#include <optional>
#include <set>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include "model/color_coding.h"
#include "model/video_format.h"
#include "sim_fixture.h"

namespace kolmsim {
namespace {

constexpr std::uint32_t kIsoEnable = 0xF0F00614;

class SimVideoFormat : public test::SimTest {
protected:
    using SimTest::SimTest;

    std::vector<OfferedFormat> Offers() { return OfferedFormats(*m_state); }
    Status Apply(VideoFormat format, Geometry geometry = Geometry::bySwitch) {
        return ApplyFormat(*m_state, geometry, format);
    }
    VideoFormat Current() { return CurrentFormat(*m_state).value_or(VideoFormat{}); }
    void SwitchGeometry(std::uint32_t value) { ASSERT_EQ(Set(61, 64, {{24, value}}), Status::ok); }
    void Stream(bool on) { WriteRegister(kIsoEnable, on ? 0x80000000 : 0); }

    /// Area of scalable mode 0.
    static VideoFormat Scalable(std::uint32_t left, std::uint32_t top, std::uint32_t width, std::uint32_t height) {
        return {
            .format = 7, .mode = 0, .colorCoding = kMono8, .left = left, .top = top, .width = width, .height = height};
    }

    /// Each entry's mode is announced by the inquiry registers, and each announced mode is an entry.
    void ExpectInquiryAndListAgree() {
        std::set<std::pair<std::uint32_t, std::uint32_t>> listed;
        for (const OfferedFormat& offer : Offers()) {
            listed.emplace(offer.usual.format, offer.usual.mode);
        }
        std::set<std::pair<std::uint32_t, std::uint32_t>> announced;
        for (std::uint32_t format = 0; format < 8; ++format) {
            const bool hasFormat = (ReadRegister(0xF0F00100) >> (31 - format) & 1) != 0;
            const std::uint32_t modes = hasFormat ? ReadRegister(0xF0F00180 + 4 * format) : 0;
            for (std::uint32_t mode = 0; mode < 8; ++mode) {
                if ((modes >> (31 - mode) & 1) != 0) {
                    announced.emplace(format, mode);
                }
            }
        }
        EXPECT_EQ(listed, announced);
    }
};
class SimMonoVideoFormat : public SimVideoFormat {
protected:
    SimMonoVideoFormat() : SimVideoFormat(Variant::mono) {}
};

TEST_F(SimVideoFormat, the_list_is_what_the_inquiry_registers_announce) {
    ExpectInquiryAndListAgree();
}
TEST_F(SimMonoVideoFormat, the_list_is_what_the_inquiry_registers_announce) {
    ExpectInquiryAndListAgree();
}

TEST_F(SimVideoFormat, the_first_entry_is_the_factory_format) {
    EXPECT_EQ(Offers().front().usual, Current());
    EXPECT_EQ(Current(), (VideoFormat{.format = 0, .mode = 5, .width = 640, .height = 480, .frameTime = 333'333}));
}

TEST_F(SimMonoVideoFormat, a_mono_camera_offers_mono_alone) {
    for (const OfferedFormat& offer : Offers()) {
        EXPECT_TRUE(offer.usual.colorCoding == kMono8 || offer.usual.colorCoding == kMono16)
            << offer.usual.format << " " << offer.usual.mode;
    }
}

TEST_F(SimVideoFormat, rates_of_fixed_modes_are_those_of_their_inquiry_register) {
    constexpr std::int64_t kTimes[] = {5'333'333, 2'666'666, 1'333'333, 666'666, 333'333, 166'666, 83'333, 41'666};
    for (const OfferedFormat& offer : Offers()) {
        if (offer.limits.scalable) {
            continue;
        }
        const std::uint32_t rates = ReadRegister(0xF0F00200 + 0x20 * offer.usual.format + 4 * offer.usual.mode);
        std::optional<std::int64_t> shortest;
        std::optional<std::int64_t> longest;
        for (unsigned rate = 0; rate < 8; ++rate) {
            if ((rates >> (31 - rate) & 1) != 0) {
                longest = longest.value_or(kTimes[rate]);
                shortest = kTimes[rate];
                VideoFormat wanted = offer.usual;
                wanted.frameTime = kTimes[rate];
                EXPECT_EQ(Apply(wanted), Status::ok);
                EXPECT_EQ(ReadRegister(0xF0F00600), rate << 29);
                EXPECT_EQ(Current(), wanted);
            }
        }
        EXPECT_EQ(offer.limits.shortestFrameTime, shortest) << offer.usual.format << " " << offer.usual.mode;
        EXPECT_EQ(offer.limits.longestFrameTime, longest) << offer.usual.format << " " << offer.usual.mode;
    }
}

TEST_F(SimVideoFormat, limits_of_scalable_modes_are_those_of_their_registers) {
    for (const OfferedFormat& offer : Offers()) {
        if (!offer.limits.scalable) {
            continue;
        }
        SCOPED_TRACE(offer.usual.mode);
        const std::uint32_t base = 0xF0F08000 + 0x1000 * offer.usual.mode;
        EXPECT_EQ(ReadRegister(base), offer.limits.maxWidth << 16 | offer.limits.maxHeight);
        EXPECT_EQ(ReadRegister(base + 4), offer.limits.unitWidth << 16 | offer.limits.unitHeight);
        EXPECT_EQ(ReadRegister(base + 0x4C), offer.limits.unitLeft << 16 | offer.limits.unitTop);
        EXPECT_NE(ReadRegister(base + 0x14) & 0x80000000U >> offer.usual.colorCoding, 0U);
        EXPECT_LT(offer.limits.shortestFrameTime, offer.limits.longestFrameTime);
    }
}

TEST_F(SimVideoFormat, every_entry_can_be_set_and_shows_everywhere) {
    for (const OfferedFormat& offer : Offers()) {
        SCOPED_TRACE(testing::Message() << offer.usual.format << " " << offer.usual.mode << " "
                                        << offer.usual.colorCoding);
        ASSERT_EQ(Apply(offer.usual), Status::ok);
        EXPECT_EQ(Current(), offer.usual);
        EXPECT_EQ(ReadRegister(0xF0F00608), offer.usual.format << 29);
        EXPECT_EQ(ReadRegister(0xF0F00604), offer.usual.mode << 29);
        EXPECT_EQ(ReadRegister(0xF0F00628), 0U);
        ASSERT_EQ(Get(12, 32), Status::ok);
        EXPECT_EQ(Word(28) & 0xFFFF, offer.usual.format << 8 | offer.usual.mode);
        ASSERT_EQ(Get(10, 840), Status::ok);
        EXPECT_EQ(Word(612), offer.usual.width);
        EXPECT_EQ(Word(616), offer.usual.height);
        EXPECT_EQ(Word(620), FindColorCoding(offer.usual.colorCoding)->bitsPerPixel);
        EXPECT_LE(Word(624), 4096U) << "the bus at S400";
        if (offer.limits.scalable) {
            ASSERT_EQ(Get(15, 96), Status::ok);
            EXPECT_EQ(Word(28), offer.usual.mode) << "selected";
        }
        EXPECT_EQ(ReadRegister(0xF0F00630) >> 24, FindColorCoding(offer.usual.colorCoding)->dataDepth);
    }
}

TEST_F(SimVideoFormat, a_frame_time_becomes_the_nearest_rate) {
    const auto rateFor = [this](std::int64_t time) {
        VideoFormat format = Offers().front().usual;
        format.frameTime = time;
        EXPECT_EQ(Apply(format), Status::ok) << time;
        return Current().frameTime;
    };
    EXPECT_EQ(rateFor(340'000), 333'333);
    EXPECT_EQ(rateFor(240'000), 166'666);
    EXPECT_EQ(rateFor(260'000), 333'333);
    EXPECT_EQ(rateFor(2'000'000), 2'666'666) << "nearer than 1333333 by 1";
    EXPECT_EQ(rateFor(0), 333'333) << "the usual one";
}

TEST_F(SimVideoFormat, a_frame_time_outside_of_all_rates_becomes_the_quickest_or_slowest) {
    for (const OfferedFormat& offer : Offers()) {
        if (offer.limits.scalable) {
            continue;
        }
        SCOPED_TRACE(::testing::Message() << "format " << offer.usual.format << ", mode " << offer.usual.mode);
        const std::int64_t shortest = offer.limits.shortestFrameTime;
        const std::int64_t longest = offer.limits.longestFrameTime;
        VideoFormat format = offer.usual;
        for (const std::int64_t time : {std::int64_t{1}, shortest - 1}) {
            format.frameTime = time;
            EXPECT_EQ(Apply(format), Status::ok);
            EXPECT_EQ(Current().frameTime, shortest);
        }
        for (const std::int64_t time : {longest + 1, std::numeric_limits<std::int64_t>::max()}) {
            format.frameTime = time;
            EXPECT_EQ(Apply(format), Status::ok);
            EXPECT_EQ(Current().frameTime, longest);
        }
    }
}

TEST_F(SimVideoFormat, an_area_shows_in_registers_and_properties) {
    SwitchGeometry(1);
    VideoFormat wanted = Scalable(16, 8, 320, 240);
    wanted.colorCoding = kYuv422;
    wanted.frameTime = 500'000;

    ASSERT_EQ(ApplyFormat(*m_state, Geometry::bySwitch, wanted), Status::ok);

    EXPECT_EQ(wanted, Current());
    EXPECT_LE(wanted.frameTime, 500'000);
    EXPECT_GT(wanted.frameTime, 490'000);
    EXPECT_EQ(ReadRegister(0xF0F08008), 16U << 16 | 8);
    EXPECT_EQ(ReadRegister(0xF0F0800C), 320U << 16 | 240);
    EXPECT_EQ(ReadRegister(0xF0F08010), 2U << 24);
    EXPECT_EQ(ReadRegister(0xF0F08048), wanted.frameTime / 1250);
    ASSERT_EQ(Get(65, 40, {{24, 0}}), Status::ok);
    EXPECT_EQ(Word(28), 16U);
    EXPECT_EQ(Word(32), 8U);
    ASSERT_EQ(Get(13, 96, {{28, 0}}), Status::ok);
    EXPECT_EQ(Word(56), 320U);
    EXPECT_EQ(Word(68), 2U);

    VideoFormat again = Current();
    ASSERT_EQ(ApplyFormat(*m_state, Geometry::bySwitch, again), Status::ok);
    EXPECT_EQ(again, wanted) << "what the camera made of it, it takes as it is";
}

TEST_F(SimVideoFormat, registers_and_properties_show_in_the_format) {
    WriteRegister(0xF0F00608, 7U << 29);
    WriteRegister(0xF0F00604, 3U << 29);
    EXPECT_EQ(Current().mode, 3U);
    ASSERT_EQ(Set(13, 96, {{28, 3}, {48, 8}, {52, 3}, {56, 100}, {60, 50}, {68, kYuv411}}), Status::ok);
    EXPECT_EQ(Current().left, 8U);
    EXPECT_EQ(Current().top, 3U);
    EXPECT_EQ(Current().width, 100U);
    EXPECT_EQ(Current().height, 50U);
    EXPECT_EQ(Current().colorCoding, kYuv411);
    ASSERT_EQ(Set(65, 40, {{24, 3}, {28, 20}, {32, 30}}), Status::ok);
    EXPECT_EQ(Current().left, 20U);
    EXPECT_EQ(Current().top, 30U);

    WriteRegister(0xF0F00608, 4U << 29);
    EXPECT_EQ(CurrentFormat(*m_state), std::nullopt) << "no such format";
}

TEST_F(SimVideoFormat, an_own_area_needs_the_geometry_switch) {
    const CameraState before = *m_state;
    EXPECT_EQ(Apply(Scalable(0, 0, 320, 240)), Status::invalidParameter);
    EXPECT_EQ(Apply(Scalable(4, 0, 1272, 960)), Status::invalidParameter);
    EXPECT_EQ(std::memcmp(&before, m_state.get(), sizeof before), 0);
    EXPECT_EQ(Apply(Scalable(0, 0, 1280, 960)), Status::ok) << "the area that the mode is set to";

    EXPECT_EQ(Apply(Scalable(0, 0, 320, 240), Geometry::agreed), Status::ok);
    SwitchGeometry(1);
    EXPECT_EQ(Apply(Scalable(0, 0, 640, 480)), Status::ok);
    SwitchGeometry(0);
    EXPECT_EQ(Apply(Scalable(0, 0, 320, 240)), Status::invalidParameter);
    EXPECT_EQ(Apply(Scalable(0, 0, 640, 480)), Status::ok) << "now that is its area";
}

TEST_F(SimVideoFormat, what_is_not_offered_is_refused_and_changes_nothing) {
    SwitchGeometry(1);
    const VideoFormat fixed = Offers().front().usual;
    std::vector<VideoFormat> refused = {Scalable(0, 0, 1288, 960),   Scalable(0, 0, 12, 2), Scalable(0, 0, 8, 3),
                                        Scalable(2, 0, 8, 2),        Scalable(0, 1, 8, 2),  Scalable(1276, 0, 8, 2),
                                        Scalable(0, 960, 8, 2),      Scalable(0, 0, 0, 0),  Scalable(~0U, ~0U, 8, 2),
                                        Scalable(0, 0, ~0U - 7, ~1U)};
    const auto add = [&](VideoFormat base, auto change) {
        change(base);
        refused.push_back(base);
    };
    add(Scalable(0, 0, 8, 2), [](VideoFormat& f) { f.mode = 8; });
    add(Scalable(0, 0, 8, 2), [](VideoFormat& f) { f.colorCoding = kMono16; });
    add(Scalable(0, 0, 8, 2), [](VideoFormat& f) { f.colorCoding = 77; });
    add(Scalable(0, 0, 8, 2), [](VideoFormat& f) { f.frameTime = 41'665; });
    add(Scalable(0, 0, 8, 2), [](VideoFormat& f) { f.frameTime = 5'333'334; });
    add(Scalable(0, 0, 8, 2), [](VideoFormat& f) { f.frameTime = -1; });
    add(fixed, [](VideoFormat& f) { f.mode = 0; });
    add(fixed, [](VideoFormat& f) { f.format = 3; });
    add(fixed, [](VideoFormat& f) { f.format = 0xFFFFFFFF; });
    add(fixed, [](VideoFormat& f) { f.colorCoding = kYuv422; });
    add(fixed, [](VideoFormat& f) { f.width = 320; });
    add(fixed, [](VideoFormat& f) { f.left = 4; });
    add(fixed, [](VideoFormat& f) { f.frameTime = -1; });
    add(fixed, [](VideoFormat& f) { f.frameTime = std::numeric_limits<std::int64_t>::min(); });
    const CameraState before = *m_state;
    for (std::size_t i = 0; i < refused.size(); ++i) {
        VideoFormat wanted = refused[i];
        EXPECT_EQ(CheckFormat(*m_state, Geometry::agreed, wanted), Status::invalidParameter) << i;
        EXPECT_EQ(Apply(refused[i], Geometry::agreed), Status::invalidParameter) << i;
        EXPECT_EQ(wanted, refused[i]) << i;
    }
    EXPECT_EQ(std::memcmp(&before, m_state.get(), sizeof before), 0);
}

TEST_F(SimVideoFormat, a_bus_that_is_too_slow_refuses) {
    ASSERT_EQ(Set(54, 64, {{24, 0}}), Status::ok);  // S100: 1024 bytes in each packet
    VideoFormat format = Offers().front().usual;
    EXPECT_EQ(Apply(format), Status::noBandwidth) << "1280 bytes";
    format.frameTime = 666'666;
    EXPECT_EQ(Apply(format), Status::ok);
    EXPECT_EQ(Apply(Scalable(0, 0, 1280, 960)), Status::noBandwidth);
}

TEST_F(SimVideoFormat, small_areas_are_no_faster_than_the_sensor) {
    VideoFormat tiny = Scalable(0, 0, 8, 2);
    ASSERT_EQ(ApplyFormat(*m_state, Geometry::agreed, tiny), Status::ok);
    EXPECT_EQ(tiny.frameTime, 41'666);
    for (const OfferedFormat& offer : Offers()) {
        if (offer.usual.format == 7 && offer.usual.mode == 0) {
            EXPECT_EQ(offer.limits.shortestFrameTime, 41'666);
            EXPECT_EQ(offer.limits.longestFrameTime, 41'666);
        }
    }
}

TEST_F(SimVideoFormat, speed_and_channel_stay_while_the_camera_streams) {
    Stream(true);
    EXPECT_EQ(Set(54, 64, {{24, 1}}), Status::busy);
    EXPECT_EQ(Set(55, 64, {{24, 9}}), Status::busy);
    EXPECT_EQ(Set(55, 64, {{24, 64}}), Status::invalidParameter);
    const std::uint32_t before = ReadRegister(0xF0F0060C);
    WriteRegister(0xF0F0060C, 0x8701);
    EXPECT_EQ(ReadRegister(0xF0F0060C), before);

    Stream(false);
    EXPECT_EQ(Set(54, 64, {{24, 1}}), Status::ok);
    EXPECT_EQ(Set(55, 64, {{24, 9}}), Status::ok);
}

// ---- Hostile memory -----------------------------------------------------------------------------------------------

TEST_F(SimVideoFormat, damaged_memory_gives_no_impossible_format) {
    for (const std::uint32_t word : {0U, 1U, 7U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
        SCOPED_TRACE(word);
        WriteRegister(0xF0F00608, 7U << 29);
        for (std::uint32_t mode = 0; mode < 8; ++mode) {
            m_state->format7[mode] = {word, word, word, word, word, word, word};
            WriteRegister(0xF0F00604, mode << 29);
            VideoFormat current = Current();
            EXPECT_EQ(CheckFormat(*m_state, Geometry::agreed, current), Status::ok);
            EXPECT_GT(current.width * current.height, 0U);
            EXPECT_GE(current.frameTime, 41'666);
        }
        for (const OfferedFormat& offer : Offers()) {
            VideoFormat wanted = offer.usual;
            EXPECT_EQ(CheckFormat(*m_state, Geometry::bySwitch, wanted), Status::ok);
        }
        m_state->selectedFormat7Mode = word;
        m_state->properties[54].At(24) = word;
        Stream(true);
        std::ignore = TakePicture(*m_state, Current());
        ASSERT_EQ(Get(10, 840), Status::ok);
        ResetState(*m_state, Variant::color);
    }
}

}  // namespace
}  // namespace kolmsim
