/// @file  A look-up table's whole way: a file, the page "LUT" in a property frame, the camera, its next picture.

#include "system/property_frame_fixture.h"

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <vector>

#include <kolmfluxor/identifiers.h>

#include "frame/resource.h"
#include "frame/window_picture.h"
#include "support/lut_text_file.h"
#include "support/modal_user.h"

namespace kolmfluxor::test {
namespace {

using kolmctl::PropertyFrame;

constexpr int kEnable = 1055;
constexpr int kLoad = 1063;
constexpr int kToCamera = 1064;
constexpr int kNumber = 1152;
constexpr int kLoaded = 1159;

class LutJourney : public PropertyFrameTest {
protected:
    static HWND Control(const PropertyFrame& frame, int id) {
        HWND const page = ::GetWindow(::GetDlgItem(frame.Window(), IDC_PAGE_AREA), GW_CHILD);
        HWND const control = ::GetDlgItem(page, id);
        EXPECT_NE(control, nullptr) << id;
        return control;
    }
    static void Click(const PropertyFrame& frame, int id) {
        ASSERT_TRUE(::IsWindowEnabled(Control(frame, id))) << id;
        ::SendMessageA(Control(frame, id), BM_CLICK, 0, 0);
    }
    static void Pick(const PropertyFrame& frame, int combo, const char* text) {
        HWND const control = Control(frame, combo);
        ASSERT_NE(::SendMessageA(control, CB_SELECTSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(text)),
                  CB_ERR);
        ::SendMessageA(::GetParent(control), WM_COMMAND, MAKEWPARAM(combo, CBN_SELCHANGE),
                       reinterpret_cast<LPARAM>(control));
    }

    /// What the camera sees, 8 bits a pixel; the same scene each time.
    [[nodiscard]] std::vector<std::uint8_t> Picture() const {
        constexpr std::uint32_t kY800 = 0x30303859;
        constexpr std::uint32_t kWidth = 640;
        constexpr std::uint32_t kHeight = 480;
        std::vector<std::uint8_t> pixels(std::size_t{kWidth} * kHeight);
        EXPECT_TRUE(OpenCamera()->RenderFrame({.compression = kY800,
                                               .bitsPerPixel = 8,
                                               .width = kWidth,
                                               .height = kHeight,
                                               .number = 0,
                                               .data = pixels.data(),
                                               .sizeBytes = pixels.size()}));
        return pixels;
    }
};

/// For whoever wants to look at it: the page with its curve, as a picture.
void KeepPicture(const PropertyFrame& frame) {
    const char* const file = std::getenv("KOLM_TEST_PICTURE");
    if (file == nullptr) return;
    ::RedrawWindow(frame.Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    kolmctl::WritePicture(kolmctl::TakePicture(frame.Window()), kolmctl::PictureFile::png,
                          std::filesystem::path(file).wstring());
}

TEST_F(LutJourney, a_file_loaded_and_uploaded_on_the_page_shows_in_the_next_picture) {
    const std::vector<std::uint8_t> before = Picture();
    const CLutTextFile file(LutText({"Linear", "Inverse", "Gamma 0.45"}, 4096, [](std::size_t row, std::size_t lut) {
        const auto level = static_cast<double>(row) / 4095;
        return lut == 0   ? static_cast<unsigned>(row)
               : lut == 1 ? static_cast<unsigned>(4095 - row)
                          : static_cast<unsigned>(4095 * std::pow(level, 0.45));
    }));
    const auto frame = OpenFrame(CLSID_KolmFluxorPage_Lut);

    CModalUser user(file.Path());
    Click(*frame, kLoad);
    EXPECT_EQ(user.Messages(), std::vector<SeenMessage>{});
    frame->Settle();
    Pick(*frame, kLoaded, "Inverse");
    Pick(*frame, kNumber, "2");
    Click(*frame, kToCamera);
    EXPECT_EQ(Picture(), before) << "uploaded, not yet switched on";
    Click(*frame, kEnable);
    frame->Settle();
    KeepPicture(*frame);

    const std::vector<std::uint8_t> after = Picture();
    for (std::size_t i = 0; i < before.size(); ++i)
        ASSERT_NEAR(after[i], 255 - before[i], 1) << "pixel " << i;  // 4096 levels are cut to 256
    Click(*frame, kEnable);
    EXPECT_EQ(Picture(), before) << "switched off again";
}

}  // namespace
}  // namespace kolmfluxor::test
