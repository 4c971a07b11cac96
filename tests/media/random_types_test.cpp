/// @file  Randomized types, usual and hostile ones, against a model; every accessor on hostile ones.

#include <array>
#include <cstdint>
#include <cstring>
#include <exception>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "media/accessor_cases.h"
#include "media/media_type_model.h"

namespace kolmfluxor::test {
namespace {

constexpr LONG kMax = std::numeric_limits<LONG>::max();
constexpr LONG kMin = std::numeric_limits<LONG>::min();

/// Draws numbers, headers and records. Hostile ones hold anything at all, extremes above all.
class CRandomTypes {
public:
    CRandomTypes(std::uint32_t seed, bool hostile) : m_random(seed), m_hostile(hostile) {}

    std::uint32_t Bits() { return m_random(); }

    LONG Number() {
        constexpr std::array kSpecial = {kMin, kMin + 1, LONG{-1}, LONG{0}, LONG{1}, LONG{2}, kMax - 1, kMax};
        if (m_hostile && Bits() % 2 == 0) return kSpecial[Bits() % kSpecial.size()];
        if (m_hostile && Bits() % 2 == 0) return static_cast<LONG>(Bits());
        return static_cast<LONG>(Bits() % 1200) - 200;
    }
    LONG Size() { return m_hostile ? Number() : static_cast<LONG>(Bits() % 700); }
    LONG Unit() { return m_hostile ? Number() : static_cast<LONG>(Bits() % 8); }
    LONG Step(LONG unit) { return unit > 0 && Bits() % 4 != 0 ? Number() / unit * unit : Number(); }
    RECT Rect() {
        if (Bits() % 8 == 0) return {};
        return {Number(), Number(), Number(), Number()};
    }
    REFERENCE_TIME Time() {
        if (!m_hostile) return static_cast<REFERENCE_TIME>(Bits() % 6'000'000);
        return static_cast<REFERENCE_TIME>(std::uint64_t{Bits()} << 32 | Bits()) >> Bits() % 64;
    }

    MediaTypeModel Type() {
        MediaTypeModel model;
        if (m_hostile && Bits() % 2 == 0) {
            Fill(&model.h, sizeof model.h);
            Fill(&model.c, sizeof model.c);
        }
        VIDEOINFOHEADER& header = model.h;
        header.rcSource = Rect();
        header.rcTarget = Rect();
        header.dwBitErrorRate = Bits() & 0x0F0F;
        header.AvgTimePerFrame = Time();
        header.bmiHeader.biWidth = Size();
        header.bmiHeader.biHeight = Number();
        header.bmiHeader.biBitCount = static_cast<WORD>(m_hostile ? Bits() : Bits() % 5 * 8);
        header.bmiHeader.biCompression = Bits() % 2;
        VIDEO_STREAM_CONFIG_CAPS& caps = model.c;
        caps.MinCroppingSize = {Size() % 20, Size() % 20};
        caps.MaxCroppingSize = {Size(), Size()};
        caps.CropGranularityX = Unit();
        caps.CropGranularityY = Unit();
        caps.CropAlignX = Unit();
        caps.CropAlignY = Unit();
        caps.MaxOutputSize = {Size(), Size()};
        caps.MinOutputSize = Bits() % 4 == 0 ? caps.MaxOutputSize : SIZE{Size(), caps.MaxOutputSize.cy};
        caps.MinFrameInterval = Time();
        caps.MaxFrameInterval = Time();
        return model;
    }

private:
    void Fill(void* memory, std::size_t size) {
        auto* bytes = static_cast<BYTE*>(memory);
        for (std::size_t i = 0; i < size; ++i)
            bytes[i] = static_cast<BYTE>(Bits());
    }

    std::mt19937 m_random;
    bool m_hostile;
};

CMediaTypeInfo Make(MediaTypeModel& model) {
    VideoType video;
    video.header = model.h;
    model.sampleSize = video.type.lSampleSize;
    model.fixedSize = video.type.bFixedSizeSamples != FALSE;
    return CMediaTypeInfo(video.Get(), model.c);
}

class RandomTypes : public testing::TestWithParam<bool> {
protected:
    bool Hostile() const { return GetParam(); }
    void ExpectAsModel(const CMediaTypeInfo& type, const MediaTypeModel& model) {
        EXPECT_EQ(std::memcmp(&type.VideoInfoHeader(), &model.h, sizeof model.h), 0);
        EXPECT_EQ(type.MediaType().lSampleSize, model.sampleSize);
        EXPECT_EQ(type.MediaType().bFixedSizeSamples != FALSE, model.fixedSize);
        EXPECT_EQ(type.Width(), model.Width());
        EXPECT_EQ(type.Height(), model.Height());
    }
};

TEST_P(RandomTypes, queries_agree_with_the_model) {
    CRandomTypes random(1, Hostile());
    for (int i = 0; i < 4000 && !HasFailure(); ++i) {
        SCOPED_TRACE(i);
        MediaTypeModel model = random.Type();
        const CMediaTypeInfo type = Make(model);
        ExpectAsModel(type, model);
        EXPECT_EQ(type.IsScalable(), model.IsScalable());
        EXPECT_EQ(type.MinWidth(), model.MinWidth());
        EXPECT_EQ(type.MaxWidth(), model.MaxWidth());
        EXPECT_EQ(type.MinHeight(), model.MinHeight());
        EXPECT_EQ(type.MaxHeight(), model.MaxHeight());
        EXPECT_EQ(type.Stride(),
                  model::Stride(model.h.bmiHeader.biWidth, model.h.bmiHeader.biBitCount, model.h.bmiHeader.biHeight));
        for (int j = 0; j < 8; ++j) {
            const LONG x = random.Step(model.c.CropAlignX);
            const LONG y = random.Step(model.c.CropAlignY);
            const LONG w = j == 0 ? type.MaxWidth() : random.Step(model.c.CropGranularityX);
            const LONG h = j == 0 ? type.MaxHeight() : random.Step(model.c.CropGranularityY);
            EXPECT_EQ(type.IsValidXPos(x), model.IsValidXPos(x)) << x;
            EXPECT_EQ(type.IsValidYPos(y), model.IsValidYPos(y)) << y;
            EXPECT_EQ(type.IsValidOffset(x, y), model.IsValidXPos(x) && model.IsValidYPos(y));
            EXPECT_EQ(type.IsValidWidth(w), model.IsValidWidth(w)) << w;
            EXPECT_EQ(type.IsValidHeight(h), model.IsValidHeight(h)) << h;
            EXPECT_EQ(type.IsValidSize(w, h), model.IsValidWidth(w) && model.IsValidHeight(h));
        }
    }
}

TEST_P(RandomTypes, sequences_of_changes_agree_with_the_model) {
    CRandomTypes random(2, Hostile());
    for (int i = 0; i < 4000 && !HasFailure(); ++i) {
        MediaTypeModel model = random.Type();
        CMediaTypeInfo type = Make(model);
        for (int j = 0; j < 12; ++j) {
            const std::uint32_t operation = random.Bits() % 9;
            const LONG value = random.Number();
            SCOPED_TRACE(testing::Message()
                         << "type " << i << ", change " << j << ", operation " << operation << ", value " << value);
            switch (operation) {
            case 0:
                type.XPos(value);
                model.SetXPos(value);
                break;
            case 1:
                type.YPos(value);
                model.SetYPos(value);
                break;
            case 2:
                type.Width(value);
                model.SetWidth(value);
                break;
            case 3:
                type.Height(value);
                model.SetHeight(value);
                break;
            case 4:
                EXPECT_EQ(type.XPosChecked(value), model.SetXPosChecked(value));
                break;
            case 5:
                EXPECT_EQ(type.YPosChecked(value), model.SetYPosChecked(value));
                break;
            case 6:
                EXPECT_EQ(type.WidthChecked(value), model.SetWidthChecked(value));
                break;
            case 7:
                EXPECT_EQ(type.HeightChecked(value), model.SetHeightChecked(value));
                break;
            default: {
                const RECT area = {random.Step(model.c.CropAlignX), random.Step(model.c.CropAlignY), value,
                                   random.Number()};
                EXPECT_FALSE(type.AOI(area));
                model.SetAoi(area);
            }
            }
            ExpectAsModel(type, model);
        }
    }
}

TEST_P(RandomTypes, areas_that_fit_are_taken) {
    CRandomTypes random(3, Hostile());
    int taken = 0;
    for (int i = 0; i < 4000 && !HasFailure(); ++i) {
        SCOPED_TRACE(i);
        MediaTypeModel model = random.Type();
        model.c.MaxOutputSize = {640, 480};
        model.c.MaxCroppingSize = {640, 480};
        model.h.rcSource = {0, 0, 640, 480};
        CMediaTypeInfo type = Make(model);
        const MediaTypeModel before = model;
        const RECT area = {static_cast<LONG>(random.Bits() % 300), static_cast<LONG>(random.Bits() % 300),
                           static_cast<LONG>(300 + random.Bits() % 300), static_cast<LONG>(300 + random.Bits() % 170)};
        EXPECT_FALSE(type.AOI(area));
        model.SetAoi(area);
        ExpectAsModel(type, model);
        taken += std::memcmp(&before.h, &model.h, sizeof model.h) != 0 ? 1 : 0;
    }
    EXPECT_GT(taken, 20) << "too few areas were taken for the test to mean something";
}

TEST_P(RandomTypes, frame_times_stay_in_their_limits) {
    CRandomTypes random(4, Hostile());
    for (int i = 0; i < 20'000 && !HasFailure(); ++i) {
        SCOPED_TRACE(i);
        MediaTypeModel model = random.Type();
        CMediaTypeInfo type = Make(model);
        const REFERENCE_TIME t = random.Time();
        const REFERENCE_TIME checked = type.FrameTimeAvrChecked(t);
        EXPECT_EQ(type.FrameTimeAvg(), checked);
        const REFERENCE_TIME min = model.c.MinFrameInterval;
        const REFERENCE_TIME max = model.c.MaxFrameInterval;
        if (min <= max) {
            EXPECT_GE(checked, min);
            EXPECT_LE(checked, max);
        }
        if (model.IsScalable() && t >= min && t <= max) EXPECT_EQ(checked, t);
    }
}

INSTANTIATE_TEST_SUITE_P(Of, RandomTypes, testing::Values(false, true), [](const testing::TestParamInfo<bool>& param) {
    return param.param ? "hostile_numbers" : "usual_numbers";
});

TEST(HostileTypes, no_accessor_does_more_than_throw) {
    CRandomTypes random(5, true);
    int thrown = 0;
    for (int i = 0; i < 1500; ++i) {
        MediaTypeModel model = random.Type();
        CMediaTypeInfo type = Make(model);
        for (const AccessorCase& row : AccessorCases()) {
            const AccessorArguments arguments = {
                .a = random.Number(),
                .b = random.Number(),
                .time = random.Time(),
                .fps = random.Bits() % 4 == 0 ? 0 : random.Bits(),
                .fpms = random.Number(),
                .area = random.Rect(),
            };
            try {
                row.call(type, arguments);
            } catch (const std::exception& exception) {
                ++thrown;
                ASSERT_NE(std::strstr(exception.what(), "Div by Zero"), nullptr) << exception.what();
            }
        }
        ASSERT_TRUE(type.IsInitialized());
    }
    EXPECT_GT(thrown, 0);
}

}  // namespace
}  // namespace kolmfluxor::test
