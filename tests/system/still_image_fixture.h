#pragma once
/// @file  A still-image object on the simulated cameras, and the pictures that are due.

#include <cstdint>
#include <vector>

#include "system/capture_filter_fixture.h"  // first: the platform headers below need its windows.h
#include "system/pin_formats.h"

#include <kolmfluxor/identifiers.h>
#include <kolmfluxor/still_image.h>

namespace kolmfluxor::test {

using Bytes = std::vector<std::uint8_t>;

/// What a still image says of its picture.
struct Still {
    LONG width = 0;
    LONG height = 0;
    BITMAPINFOHEADER header{};
    Bytes pixels;
};

class StillImageTest : public CaptureFilterTest {
protected:
    void SetUp() override;
    void TearDown() override;

    [[nodiscard]] Microsoft::WRL::ComPtr<IKolmStillImage> NewStillImage() const;

    /// Selects a camera; its filter is the fixture's from now on.
    void Select(const wchar_t* name = kColorCameraName);

    /// The configuration of the filter's pin.
    Microsoft::WRL::ComPtr<IAMStreamConfig> Config();

    /// Takes a picture and reads all about it.
    Still Capture();

    /// The sample that the camera makes in a format, by the number of the picture.
    Bytes Sample(const BITMAPINFOHEADER& format, std::uint64_t number);

    /// Whether a picture is what `convert` makes of one of the camera's first samples. The stream runs on until the
    /// graph has stopped, so that it need not be the very first.
    template <class Convert>
    bool IsOneOfTheFirst(const Bytes& picture, const BITMAPINFOHEADER& format, Convert convert) {
        for (std::uint64_t number = 0; number < 100; ++number) {
            if (picture == convert(Sample(format, number))) return true;
        }
        return false;
    }

    Microsoft::WRL::ComPtr<IKolmStillImage> m_still;
};

/// Conversions of this test's own, pixel by pixel from the rules of BT.601 in thousandths. Sources are top-down.
[[nodiscard]] Bytes MonoAsBgr(const Bytes& sample, LONG width, LONG height);
[[nodiscard]] Bytes UyvyAsBgr(const Bytes& sample, LONG width, LONG height);

}  // namespace kolmfluxor::test
