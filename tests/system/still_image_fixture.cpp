#include "system/still_image_fixture.h"

#include <algorithm>

namespace kolmfluxor::test {
namespace {

using Microsoft::WRL::ComPtr;

std::uint8_t Level(int value) {
    return static_cast<std::uint8_t>(std::clamp(value, 0, 255));
}

/// Where a pixel of a top-down source stands in a bottom-up picture, in bytes.
std::size_t Place(LONG x, LONG y, LONG width, LONG height) {
    return (static_cast<std::size_t>(height - 1 - y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)) *
           3;
}

}  // namespace

Bytes MonoAsBgr(const Bytes& sample, LONG width, LONG height) {
    Bytes picture(sample.size() * 3);
    for (LONG y = 0; y < height; ++y) {
        for (LONG x = 0; x < width; ++x) {
            std::fill_n(picture.begin() + static_cast<std::ptrdiff_t>(Place(x, y, width, height)), 3,
                        sample.at(static_cast<std::size_t>(y * width + x)));
        }
    }
    return picture;
}

Bytes UyvyAsBgr(const Bytes& sample, LONG width, LONG height) {
    Bytes picture(sample.size() / 2 * 3);
    for (LONG y = 0; y < height; ++y) {
        for (LONG x = 0; x < width; ++x) {
            const auto pixel = static_cast<std::size_t>(y * width + x);
            const std::uint8_t* const group = &sample.at(pixel / 2 * 4);
            const int light = group[pixel % 2 == 0 ? 1 : 3];
            const int u = group[0] - 128;
            const int v = group[2] - 128;
            std::uint8_t* const out = &picture.at(Place(x, y, width, height));
            out[0] = Level(light + 1772 * u / 1000);
            out[1] = Level(light - 344 * u / 1000 - 714 * v / 1000);
            // The red term is symmetric about the middle between 127 and 128.
            out[2] = Level(light + (v < 0 ? -(1402 * (-v - 1) / 1000) : 1402 * v / 1000));
        }
    }
    return picture;
}

void StillImageTest::SetUp() {
    ASSERT_NO_FATAL_FAILURE(CaptureFilterTest::SetUp());
    m_still = NewStillImage();
    ASSERT_NE(m_still, nullptr);
}

void StillImageTest::TearDown() {
    m_still.Reset();
    CaptureFilterTest::TearDown();
}

ComPtr<IKolmStillImage> StillImageTest::NewStillImage() const {
    ComPtr<IKolmStillImage> still;
    EXPECT_EQ(m_module.Create(CLSID_KolmStillImage, nullptr, IID_IKolmStillImage,
                              reinterpret_cast<void**>(still.GetAddressOf())),
              S_OK);
    return still;
}

void StillImageTest::Select(const wchar_t* name) {
    ASSERT_EQ(m_still->SelectDeviceByName(name), S_OK);
    ComPtr<IUnknown> device;
    ASSERT_EQ(m_still->GetDeviceUnknown(device.GetAddressOf()), S_OK);
    ASSERT_EQ(device.As(&m_filter), S_OK);
}

ComPtr<IAMStreamConfig> StillImageTest::Config() {
    ComPtr<IAMStreamConfig> config;
    EXPECT_EQ(Pin().As(&config), S_OK);
    return config;
}

Still StillImageTest::Capture() {
    Still still;
    EXPECT_EQ(m_still->Capture(), S_OK);
    LONG bytes = -2;
    EXPECT_EQ(m_still->GetBufferSize(&bytes), S_OK);
    EXPECT_EQ(m_still->GetImageSize(&still.width, &still.height), S_OK);
    EXPECT_EQ(m_still->GetBitmapInfoHeader(&still.header), S_OK);
    still.pixels.resize(static_cast<std::size_t>(std::max(bytes, 0L)));
    EXPECT_EQ(m_still->GetBuffer(still.pixels.data()), S_OK);
    return still;
}

Bytes StillImageTest::Sample(const BITMAPINFOHEADER& format, std::uint64_t number) {
    Bytes sample(format.biSizeImage);
    EXPECT_TRUE(Camera()->RenderFrame({.compression = format.biCompression,
                                       .bitsPerPixel = format.biBitCount,
                                       .width = static_cast<std::uint32_t>(format.biWidth),
                                       .height = static_cast<std::uint32_t>(format.biHeight),
                                       .number = number,
                                       .data = sample.data(),
                                       .sizeBytes = sample.size()}));
    return sample;
}

}  // namespace kolmfluxor::test
