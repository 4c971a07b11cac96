/// @file  kolmctl pages.

#include "system/support_kolmctl.h"

#include <array>

#include <objbase.h>

#include <wincodec.h>
#include <wrl/client.h>

#include "frame/window_picture.h"

namespace kolmfluxor::test {
namespace {

using kolmctl::Picture;
using Microsoft::WRL::ComPtr;
using ::testing::HasSubstr;

/// A name for a file that is gone at the end.
class CTemporaryFile {
public:
    CTemporaryFile() {
        std::array<wchar_t, MAX_PATH> folder{};
        std::array<wchar_t, MAX_PATH> path{};
        ::GetTempPathW(static_cast<DWORD>(folder.size()), folder.data());
        EXPECT_NE(::GetTempFileNameW(folder.data(), L"png", 0, path.data()), 0U);
        m_path = path.data();
    }
    ~CTemporaryFile() { ::DeleteFileW(m_path.c_str()); }
    CTemporaryFile(const CTemporaryFile&) = delete;
    CTemporaryFile& operator=(const CTemporaryFile&) = delete;

    [[nodiscard]] const std::wstring& Path() const { return m_path; }

private:
    std::wstring m_path;
};

/// Reads a picture file; one without pixels when that fails.
Picture ReadPicture(const std::wstring& file) {
    Picture picture;
    ComPtr<IWICImagingFactory> factory;
    ComPtr<IWICBitmapDecoder> decoder;
    ComPtr<IWICBitmapFrameDecode> frame;
    ComPtr<IWICFormatConverter> converter;
    EXPECT_EQ(::CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IWICImagingFactory),
                                 reinterpret_cast<void**>(factory.GetAddressOf())),
              S_OK);
    if (factory == nullptr ||
        factory->CreateDecoderFromFilename(file.c_str(), nullptr, GENERIC_READ, WICDecodeMetadataCacheOnLoad,
                                           decoder.GetAddressOf()) != S_OK ||
        decoder->GetFrame(0, frame.GetAddressOf()) != S_OK ||
        factory->CreateFormatConverter(converter.GetAddressOf()) != S_OK ||
        converter->Initialize(frame.Get(), GUID_WICPixelFormat24bppBGR, WICBitmapDitherTypeNone, nullptr, 0,
                              WICBitmapPaletteTypeCustom) != S_OK) {
        ADD_FAILURE() << "no picture";
        return picture;
    }
    GUID container{};
    EXPECT_EQ(decoder->GetContainerFormat(&container), S_OK);
    EXPECT_TRUE(container == GUID_ContainerFormatPng);
    EXPECT_EQ(converter->GetSize(&picture.width, &picture.height), S_OK);
    picture.pixels.resize(picture.RowBytes() * picture.height);
    EXPECT_EQ(converter->CopyPixels(nullptr, static_cast<UINT>(picture.RowBytes()),
                                    static_cast<UINT>(picture.pixels.size()), picture.pixels.data()),
              S_OK);
    return picture;
}

class KolmctlPages : public KolmctlTest {};

TEST_F(KolmctlPages, picture_shows_the_page) {
    const CTemporaryFile file;

    EXPECT_THAT(Kolmctl({L"--simulate", L"pages", L"--page", L"exposure", L"--picture", file.Path()}), Prints(""));

    // The page's template has 252 x 218 dialog units; tabs and buttons come on top.
    const Picture picture = ReadPicture(file.Path());
    EXPECT_GT(picture.width, 300U);
    EXPECT_LT(picture.width, 2000U);
    EXPECT_GT(picture.height, 300U);
    EXPECT_LT(picture.height, 2000U);
    EXPECT_FALSE(picture.IsBlank());
}

TEST_F(KolmctlPages, picture_shows_what_the_camera_holds) {
    const CTemporaryFile before;
    const CTemporaryFile again;
    const CTemporaryFile after;

    EXPECT_THAT(Kolmctl({L"--simulate", L"pages", L"--page", L"exposure", L"--picture", before.Path()}), Prints(""));
    EXPECT_THAT(Kolmctl({L"--simulate", L"pages", L"--page", L"exposure", L"--picture", again.Path()}), Prints(""));
    EXPECT_EQ(Kolmctl({L"--simulate", L"set", L"gain", L"200"}).exitCode, kSuccess);
    EXPECT_THAT(Kolmctl({L"--simulate", L"pages", L"--page", L"exposure", L"--picture", after.Path()}), Prints(""));

    EXPECT_TRUE(ReadPicture(before.Path()).pixels == ReadPicture(again.Path()).pixels);
    EXPECT_FALSE(ReadPicture(before.Path()).pixels == ReadPicture(after.Path()).pixels);
}

TEST_F(KolmctlPages, a_page_named_twice_is_shown_once) {
    const CTemporaryFile once;
    const CTemporaryFile twice;

    EXPECT_THAT(Kolmctl({L"--simulate", L"pages", L"--page", L"Exposure", L"--picture", once.Path()}), Prints(""));
    EXPECT_THAT(
        Kolmctl({L"--simulate", L"pages", L"--page", L"exposure", L"--page", L"EXPOSURE", L"--picture", twice.Path()}),
        Prints(""));

    EXPECT_TRUE(ReadPicture(once.Path()).pixels == ReadPicture(twice.Path()).pixels);
}

TEST_F(KolmctlPages, tells_which_pages_there_are_when_a_name_fits_none) {
    const ProcessOutcome outcome = Kolmctl({L"--simulate", L"pages", L"--page", L"nonsense"});

    EXPECT_THAT(outcome, Fails(kUsage, "no page \"nonsense\""));
    EXPECT_THAT(outcome.err, HasSubstr("Exposure"));
}

TEST_F(KolmctlPages, picture_that_cannot_be_written_is_an_error) {
    EXPECT_THAT(
        Kolmctl({L"--simulate", L"pages", L"--page", L"exposure", L"--picture", L"C:\\no such folder\\page.png"}),
        Fails(kRefused, "cannot write \"C:\\no such folder\\page.png\": 0x80070003"));
}

TEST_F(KolmctlPages, fails_without_the_property_set) {
    Module().Unregister();

    EXPECT_THAT(Kolmctl({L"--simulate", L"pages", L"--page", L"exposure"}),
                Fails(kNoDevice, "does not offer the property set"));
}

TEST_F(KolmctlPages, refuses_options_that_exclude_each_other) {
    EXPECT_THAT(Kolmctl({L"--simulate", L"pages", L"--own-frame", L"--system-frame"}), Fails(kUsage, "excludes"));
    EXPECT_THAT(Kolmctl({L"--simulate", L"pages", L"--system-frame", L"--picture", L"page.png"}),
                Fails(kUsage, "excludes"));
}

}  // namespace
}  // namespace kolmfluxor::test
