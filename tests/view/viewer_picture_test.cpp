/// @file  The viewer shows what the camera sees, saves it, and tells how fast and how bright it is.

#include "view/viewer_fixture.h"

#include <algorithm>
#include <cstdio>
#include <thread>

#include "kolmview/fit.h"
#include "kolmview/sample_format.h"
#include "support/modal_user.h"

namespace kolmfluxor::test {
namespace {

using kolmctl::Picture;
using ::testing::HasSubstr;

constexpr DWORD kY800 = 0x30303859;  // FOURCCs
constexpr DWORD kUyvy = 0x59565955;
constexpr DWORD kY411 = 0x31313459;

/// One pixel as 0xRRGGBB.
std::uint32_t PixelAt(const Picture& picture, std::size_t x, std::size_t y) {
    const BYTE* const pixel = &picture.pixels[y * picture.RowBytes() + 3 * x];
    return static_cast<std::uint32_t>(pixel[2]) << 16 | static_cast<std::uint32_t>(pixel[1]) << 8 | pixel[0];
}

bool AllAtLeast(const Picture& picture, BYTE level) {
    return !picture.pixels.empty() && std::ranges::all_of(picture.pixels, [&](BYTE byte) { return byte >= level; });
}

class ViewerPicture : public ViewerTest {
protected:
    /// The camera sends pictures only when it is triggered, so that each is known.
    void TriggerByHand() { ASSERT_TRUE(OpenCamera()->PokeRegister(kTriggerMode, kTriggerOn)); }

    /// Has one picture made and shown.
    void ShowOne() {
        ASSERT_TRUE(Until([&] {
            std::uint32_t word = 0;
            return Simulated().PeekRegister(kIsoEnable, &word) && word != 0;
        })) << "the stream does not start";
        const std::uint64_t before = Viewer().ShownPictures();
        ASSERT_TRUE(Simulated().PulseTriggerInput());
        ASSERT_TRUE(Until([&] { return Viewer().ShownPictures() == before + 1; })) << "no picture";
    }

    /// What the camera sees in a format of a stream.
    Picture Seen(DWORD compression, WORD bits, LONG width, LONG height, std::uint64_t number) {
        const auto format = kolmview::SampleFormat::Of(compression, bits, width, height).value();
        std::vector<std::uint8_t> sample(format.Bytes());
        EXPECT_TRUE(Simulated().RenderFrame({.compression = compression,
                                             .bitsPerPixel = bits,
                                             .width = static_cast<std::uint32_t>(width),
                                             .height = static_cast<std::uint32_t>(height),
                                             .number = number,
                                             .data = sample.data(),
                                             .sizeBytes = sample.size()}));
        Picture picture;
        picture.width = static_cast<UINT>(width);
        picture.height = static_cast<UINT>(height);
        picture.pixels.resize(picture.RowBytes() * picture.height);
        kolmview::ConvertSample(format, sample, picture.pixels);
        return picture;
    }
};

TEST_F(ViewerPicture, shown_is_the_cameras_pixel_for_pixel) {
    TriggerByHand();
    Open();
    for (const std::uint64_t number : {0u, 1u, 2u}) {
        ShowOne();

        const Picture shown = PaintedBy(IDC_PICTURE);

        ASSERT_EQ(shown.width, 640u) << "the window fits the first picture";
        ASSERT_EQ(shown.height, 480u);
        EXPECT_FALSE(shown.IsBlank());
        EXPECT_TRUE(shown.pixels == Seen(kY800, 8, 640, 480, number).pixels) << number;
    }
    EXPECT_FALSE(Seen(kY800, 8, 640, 480, 0).pixels == Seen(kY800, 8, 640, 480, 2).pixels);
    EXPECT_EQ(Close(), 0);
}

TEST_F(ViewerPicture, keeps_its_proportions_in_a_window_of_any_size) {
    TriggerByHand();
    Open();
    ShowOne();
    for (const auto& [width, height] : {std::pair{1000, 500}, {700, 900}, {500, 400}}) {
        ::SetWindowPos(Viewer().Window(), nullptr, 0, 0, width, height, SWP_NOZORDER | SWP_NOMOVE);
        const Picture shown = PaintedBy(IDC_PICTURE);
        const Picture seen = Seen(kY800, 8, 640, 480, 0);
        const auto areaWidth = static_cast<int>(shown.width);
        const auto areaHeight = static_cast<int>(shown.height);
        const kolmview::Box place = kolmview::FitInside(640, 480, areaWidth, areaHeight);

        // The middles of the bars along the top and of the steps along the bottom.
        for (int bar = 0; bar < 8; ++bar) {
            for (const int y : {30, 460}) {
                const int x = 80 * bar + 40;
                EXPECT_EQ(PixelAt(shown, static_cast<std::size_t>(place.left + x * place.width / 640),
                                  static_cast<std::size_t>(place.top + y * place.height / 480)),
                          PixelAt(seen, static_cast<std::size_t>(x), static_cast<std::size_t>(y)))
                    << width << " bar " << bar << " row " << y;
            }
        }
        if (place.left > 0) EXPECT_EQ(PixelAt(shown, 0, shown.height / 2), 0x202020u) << "beside the picture";
        if (place.top > 0) EXPECT_EQ(PixelAt(shown, shown.width / 2, 0), 0x202020u) << "above the picture";
    }
    EXPECT_EQ(Close(), 0);
}

struct StreamRow {
    const wchar_t* format;
    DWORD compression;
    WORD bits;
    LONG width;
    LONG height;
    const wchar_t* figures;
};

TEST_F(ViewerPicture, saved_is_the_cameras_in_every_layout_of_pixels) {
    for (const StreamRow& row : {StreamRow{L"640x480 Mono8", kY800, 8, 640, 480, L"640 x 480  Mono8"},
                                 {L"320x240 UYVY", kUyvy, 16, 320, 240, L"320 x 240  UYVY(YUV422)"},
                                 {L"640x480 YUV411", kY411, 12, 640, 480, L"640 x 480  YUV411"},
                                 {L"640x480 RGB24", BI_RGB, 24, 640, 480, L"640 x 480  RGB24"}}) {
        ASSERT_EQ(Kolmctl({L"--simulate", L"format", L"set", L"--mode", row.format}).exitCode, kSuccess) << row.figures;
        TriggerByHand();
        Open({"--simulate", "--still", std::string(m_file.begin(), m_file.end())});
        ShowOne();

        Press(IDC_STILL);
        ASSERT_TRUE(Until([&] { return TextOf(IDC_FIGURES).starts_with(L"Saved: "); }));

        const Picture saved = ReadPng(m_file);
        EXPECT_EQ(saved.width, static_cast<UINT>(row.width));
        EXPECT_EQ(saved.height, static_cast<UINT>(row.height));
        EXPECT_TRUE(saved.pixels == Seen(row.compression, row.bits, row.width, row.height, 0).pixels);
        EXPECT_EQ(PixelAt(saved, 5, 5) != (PixelAt(saved, 5, 5) & 0xFF) * 0x10101 ||
                      PixelAt(saved, 100, 5) != (PixelAt(saved, 100, 5) & 0xFF) * 0x10101,
                  row.compression != kY800)
            << "colored bars stand at the top";
        ASSERT_TRUE(Until([&] { return TextOf(IDC_FIGURES).starts_with(row.figures); }))
            << ::testing::PrintToString(TextOf(IDC_FIGURES));
        EXPECT_EQ(Close(), 0);
    }
}

TEST_F(ViewerPicture, shows_a_setting_that_changes_while_it_runs) {
    Open();
    ASSERT_TRUE(UntilMorePictures());
    EXPECT_FALSE(AllAtLeast(PaintedBy(IDC_PICTURE), 239));

    EXPECT_EQ(PropertySet().SetGain(0, FALSE, FALSE), S_OK);
    EXPECT_EQ(PropertySet().SetShutter(1, FALSE, FALSE), S_OK);
    EXPECT_EQ(PropertySet().SetBrightness(255, FALSE, FALSE), S_OK);

    EXPECT_TRUE(Until([&] { return AllAtLeast(PaintedBy(IDC_PICTURE), 239); }));
    EXPECT_TRUE(Until([&] { return TextOf(IDC_FIGURES).find(L"\nmean 2") != std::wstring::npos; }))
        << ::testing::PrintToString(TextOf(IDC_FIGURES));
    EXPECT_EQ(Close(), 0);
}

TEST_F(ViewerPicture, tells_how_fast_pictures_come) {
    ASSERT_TRUE(::SetEnvironmentVariableW(L"KOLMSIM_PACED", L"1"));
    Open();
    ::SetEnvironmentVariableW(L"KOLMSIM_PACED", nullptr);
    double rate = 0;

    const bool told = Until([&] {
        const std::wstring text = TextOf(IDC_FIGURES);
        const std::size_t begin = text.find(L"  ", text.find(L"Mono8"));
        return begin != std::wstring::npos && std::swscanf(&text[begin], L"%lf frames/s", &rate) == 1 &&
               Viewer().ShownPictures() > 20;
    });

    EXPECT_TRUE(told) << ::testing::PrintToString(TextOf(IDC_FIGURES));
    // The camera is set to 30; a busy machine makes it slower, nothing makes it faster.
    EXPECT_LT(rate, 31);
    EXPECT_GT(rate, 3);
    EXPECT_EQ(Close(), 0);
}

TEST_F(ViewerPicture, histogram_is_drawn_from_it) {
    ASSERT_TRUE(OpenCamera()->PokeRegister(0xF1000210, 0x80000000 | 1)) << "KolmTestImage: a gray ramp";
    Open();
    ASSERT_TRUE(UntilMorePictures());

    const auto bars = [&](int fromColumn, int toColumn) {
        const Picture drawn = PaintedBy(IDC_HISTOGRAM);
        std::size_t gray = 0;
        for (auto x = static_cast<std::size_t>(fromColumn); x < static_cast<std::size_t>(toColumn); ++x) {
            gray += PixelAt(drawn, x, drawn.height - 1) != 0 ? 1U : 0U;
        }
        return gray;
    };
    EXPECT_EQ(PaintedBy(IDC_HISTOGRAM).width, 256u);
    EXPECT_GT(bars(0, 256), 150u) << "a ramp has nearly all levels";
    EXPECT_EQ(PropertySet().SetTestImage(0), S_OK);
    EXPECT_EQ(PropertySet().SetGain(0, FALSE, FALSE), S_OK);
    EXPECT_EQ(PropertySet().SetShutter(1, FALSE, FALSE), S_OK);
    EXPECT_EQ(PropertySet().SetBrightness(255, FALSE, FALSE), S_OK);

    EXPECT_TRUE(Until([&] { return bars(0, 200) == 0 && bars(239, 256) > 0; })) << "all is bright";
    EXPECT_EQ(Close(), 0);
}

TEST_F(ViewerPicture, is_not_waited_for_by_the_stream) {
    Open();
    ASSERT_TRUE(UntilMorePictures(1));
    const std::uint64_t shown = Viewer().ShownPictures();
    const auto come = [&] {
        return Viewer().Feed().Graph().Newest().FiguresAt(std::chrono::steady_clock::now()).count;
    };
    const std::uint64_t before = come();
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);

    // The window handles no message, as if it painted all the time.
    while (come() < before + 100 && std::chrono::steady_clock::now() < end) {
        std::this_thread::yield();
    }

    EXPECT_GE(come(), before + 100);
    EXPECT_EQ(Viewer().ShownPictures(), shown);
    EXPECT_EQ(Close(), 0);
}

TEST_F(ViewerPicture, cut_short_on_its_way_is_left_out) {
    TriggerByHand();
    Open();
    ShowOne();
    kolmview::CameraFeed& feed = Viewer().Feed();
    std::vector<std::uint8_t> sample(640 * 480 - 1);
    Picture picture;

    feed.Graph().Newest().Put(sample, std::chrono::steady_clock::now());
    EXPECT_FALSE(feed.TakePicture(&picture));
    EXPECT_EQ(picture.width, 0u);
    sample.push_back(77);
    feed.Graph().Newest().Put(sample, std::chrono::steady_clock::now());
    EXPECT_TRUE(feed.TakePicture(&picture));

    EXPECT_EQ(PixelAt(picture, 639, 479), 0x4D4D4Du);
    EXPECT_EQ(Close(), 0);
}

TEST_F(ViewerPicture, is_saved_under_the_name_that_the_user_gives) {
    Open();
    ASSERT_TRUE(UntilMorePictures(1));
    {
        CModalUser canceling;
        Press(IDC_STILL);
        ASSERT_TRUE(UntilMorePictures()) << "the picture runs on";
        EXPECT_EQ(canceling.FileDialogs(), 1);
        EXPECT_EQ(::GetFileAttributesW(m_file.c_str()), INVALID_FILE_ATTRIBUTES);
    }
    CModalUser user(std::string(m_file.begin(), m_file.end()));

    Press(IDC_STILL);
    ASSERT_TRUE(Until([&] { return TextOf(IDC_FIGURES).starts_with(L"Saved: "); }));

    EXPECT_EQ(user.FileDialogs(), 1);
    EXPECT_EQ(ReadPng(m_file).width, 640u);
    EXPECT_EQ(Close(), 0);
}

TEST_F(ViewerPicture, that_cannot_be_saved_is_told) {
    Open({"--simulate", "--still", "C:\\no such folder\\a.png"});
    ASSERT_TRUE(UntilMorePictures(1));
    CModalUser user;

    Press(IDC_STILL);
    ASSERT_TRUE(UntilMorePictures(10));

    const std::vector<SeenMessage> messages = user.Messages();
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_EQ(messages[0].caption, "kolmview");
    EXPECT_THAT(messages[0].text, HasSubstr("cannot write \"C:\\no such folder\\a.png\": 0x80070003"));
    EXPECT_EQ(Close(), 0);
}

}  // namespace
}  // namespace kolmfluxor::test
