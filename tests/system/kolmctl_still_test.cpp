/// @file  kolmctl still: pictures in files, and settings that show in them.

#include "system/support_kolmctl.h"

#include <array>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <utility>

#include <objbase.h>

#include <wincodec.h>
#include <wrl/client.h>

namespace kolmfluxor::test {
namespace {

using Microsoft::WRL::ComPtr;
using ::testing::Each;
using ::testing::Ge;
using Bytes = std::vector<std::uint8_t>;

constexpr DWORD kY800 = 0x30303859;  // the FOURCC "Y800"

/// A picture file as the system's imaging reads it: BGR, top row first, without padding.
struct Decoded {
    UINT width = 0;
    UINT height = 0;
    Bytes pixels;
};

Decoded Decode(const std::filesystem::path& file) {
    Decoded decoded;
    ComPtr<IWICImagingFactory> factory;
    ComPtr<IWICBitmapDecoder> decoder;
    ComPtr<IWICBitmapFrameDecode> frame;
    ComPtr<IWICBitmapSource> bgr;
    EXPECT_EQ(::CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IWICImagingFactory),
                                 reinterpret_cast<void**>(factory.GetAddressOf())),
              S_OK);
    if (factory->CreateDecoderFromFilename(file.c_str(), nullptr, GENERIC_READ, WICDecodeMetadataCacheOnLoad,
                                           decoder.GetAddressOf()) != S_OK ||
        decoder->GetFrame(0, frame.GetAddressOf()) != S_OK ||
        ::WICConvertBitmapSource(GUID_WICPixelFormat24bppBGR, frame.Get(), bgr.GetAddressOf()) != S_OK) {
        ADD_FAILURE() << file << " is no picture";
        return decoded;
    }
    EXPECT_EQ(bgr->GetSize(&decoded.width, &decoded.height), S_OK);
    decoded.pixels.resize(std::size_t{decoded.width} * decoded.height * 3);
    EXPECT_EQ(
        bgr->CopyPixels(nullptr, decoded.width * 3, static_cast<UINT>(decoded.pixels.size()), decoded.pixels.data()),
        S_OK);
    return decoded;
}

class KolmctlStill : public KolmctlTest {
protected:
    void SetUp() override {
        KolmctlTest::SetUp();
        m_folder = std::filesystem::temp_directory_path() / L"still pictures";
        std::filesystem::remove_all(m_folder);
        ASSERT_TRUE(std::filesystem::create_directory(m_folder));
    }
    void TearDown() override {
        std::filesystem::remove_all(m_folder);
        KolmctlTest::TearDown();
    }

    [[nodiscard]] std::wstring File(const wchar_t* name) const { return (m_folder / name).wstring(); }

    /// A still is one of the camera's first pictures: the graph runs on until it has stopped.
    template <class Convert> bool IsOfTheCamera(const Decoded& picture, DWORD compression, WORD bits, Convert convert) {
        Bytes sample(std::size_t{picture.width} * picture.height * bits / 8);
        const UniqueCamera camera = OpenCamera();
        for (std::uint64_t number = 0; number < 100; ++number) {
            EXPECT_TRUE(camera->RenderFrame({.compression = compression,
                                             .bitsPerPixel = bits,
                                             .width = picture.width,
                                             .height = picture.height,
                                             .number = number,
                                             .data = sample.data(),
                                             .sizeBytes = sample.size()}));
            if (picture.pixels == convert(sample)) return true;
        }
        return false;
    }

    std::filesystem::path m_folder;
};

TEST_F(KolmctlStill, writes_what_the_camera_sees_upright) {
    for (const wchar_t* name : {L"a.png", L"b.BMP"}) {
        const ProcessOutcome outcome = Kolmctl({L"--simulate", L"still", File(name)});

        EXPECT_EQ(outcome.exitCode, kSuccess) << outcome.err;
        EXPECT_TRUE(outcome.out.find("640x480") != std::string::npos) << outcome.out;
        const Decoded picture = Decode(File(name));
        ASSERT_EQ(picture.width, 640u);
        ASSERT_EQ(picture.height, 480u);
        EXPECT_TRUE(IsOfTheCamera(picture, kY800, 8, [](const Bytes& sample) {
            Bytes bgr;
            for (const std::uint8_t gray : sample) {
                bgr.insert(bgr.end(), 3, gray);
            }
            return bgr;
        }));
    }
    std::ifstream png(std::filesystem::path(File(L"a.png")), std::ios::binary);
    std::array<char, 4> start{};
    png.read(start.data(), start.size());
    EXPECT_EQ(std::memcmp(start.data(), "\x89PNG", 4), 0);
}

TEST_F(KolmctlStill, sets_the_format_first_and_keeps_colors) {
    // RGB24 of Format 7 mode 0 goes slowly enough; the bitmap is bottom-up and the file is not.
    const ProcessOutcome outcome =
        Kolmctl({L"--simulate", L"--tsv", L"still", File(L"c.png"), L"--format", L"f7m0 RGB24"});

    EXPECT_EQ(outcome.exitCode, kSuccess) << outcome.err;
    const Decoded picture = Decode(File(L"c.png"));
    ASSERT_EQ(picture.width, 1280u);
    ASSERT_EQ(picture.height, 960u);
    EXPECT_TRUE(IsOfTheCamera(picture, BI_RGB, 24, [&](const Bytes& sample) {
        Bytes upright;
        for (std::ptrdiff_t y = 959; y >= 0; --y) {
            upright.insert(upright.end(), sample.begin() + y * 3840, sample.begin() + (y + 1) * 3840);
        }
        return upright;
    }));
}

TEST_F(KolmctlStill, settings_of_kolmctl_set_show_in_the_next_picture) {
    ASSERT_EQ(Kolmctl({L"--simulate", L"still", File(L"before.png")}).exitCode, kSuccess);
    EXPECT_THAT(Decode(File(L"before.png")).pixels, ::testing::Not(Each(Ge(239))));
    for (const auto& [feature, value] : {std::pair{L"gain", L"0"}, {L"brightness", L"255"}, {L"shutter", L"1"}}) {
        ASSERT_EQ(Kolmctl({L"--simulate", L"set", feature, value}).exitCode, kSuccess);
    }

    ASSERT_EQ(Kolmctl({L"--simulate", L"still", File(L"after.png")}).exitCode, kSuccess);

    EXPECT_THAT(Decode(File(L"after.png")).pixels, Each(Ge(239)));
}

TEST_F(KolmctlStill, numbers_the_files_of_several) {
    const ProcessOutcome outcome = Kolmctl({L"--simulate", L"--json", L"still", File(L"many.bmp"), L"--count", L"10"});

    EXPECT_EQ(outcome.exitCode, kSuccess) << outcome.err;
    EXPECT_TRUE(std::filesystem::exists(File(L"many-01.bmp")));
    EXPECT_TRUE(std::filesystem::exists(File(L"many-10.bmp")));
    EXPECT_FALSE(std::filesystem::exists(File(L"many.bmp")));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(m_folder), {}), 10);
    EXPECT_EQ(Decode(File(L"many-10.bmp")).width, 640u);
}

TEST_F(KolmctlStill, takes_pictures_in_modes_that_are_quicker_throughout) {
    const ProcessOutcome outcome = Kolmctl({L"--simulate", L"still", File(L"x.png"), L"--format", L"800x600 RGB24"});

    EXPECT_EQ(outcome.exitCode, kSuccess) << outcome.err;
    EXPECT_EQ(Decode(File(L"x.png")).width, 800u);
}

TEST_F(KolmctlStill, refuses_what_makes_no_picture) {
    EXPECT_THAT(Kolmctl({L"--simulate", L"still", L"picture.jpg"}), Fails(kUsage, "neither a .png nor a .bmp file"));
    EXPECT_THAT(Kolmctl({L"--simulate", L"still", L"picture"}), Fails(kUsage, "neither a .png nor a .bmp file"));
    EXPECT_EQ(Kolmctl({L"--simulate", L"still"}).exitCode, kUsage);
    for (const wchar_t* count : {L"0", L"10001", L"-1", L"x"}) {
        EXPECT_EQ(Kolmctl({L"--simulate", L"still", File(L"x.png"), L"--count", count}).exitCode, kUsage) << count;
    }
    EXPECT_EQ(Kolmctl({L"--simulate", L"still", File(L"x.png"), L"--format", L"nonsense"}).exitCode, kUsage);
    EXPECT_THAT(Kolmctl({L"--simulate", L"still", File(L"x.png"), L"--format", L"640x480 YUV411"}),
                Fails(kRefused, "pictures of YUV411 cannot be written"));
    EXPECT_THAT(Kolmctl({L"--simulate", L"still", File(L"no folder\\x.png"), L"--format", L"640x480 Mono8"}),
                Fails(kRefused, "cannot write"));
    EXPECT_TRUE(std::filesystem::is_empty(m_folder));
}

}  // namespace
}  // namespace kolmfluxor::test
