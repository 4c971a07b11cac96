/// @file  The template of page "Trigger": its controls, and the pictures that they show.

#include <array>
#include <string>
#include <utility>
#include <vector>

#include <windows.h>

#include <commctrl.h>

#include "pages/trigger_page_fixture.h"

namespace kolmfluxor::test {
namespace {

HMODULE Module() {
    return ::GetModuleHandleW(CModule::Get().Path().c_str());
}

/// The pixels of a bitmap, 24 bits each.
std::vector<BYTE> PixelsOf(HBITMAP bitmap) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = 48;
    info.bmiHeader.biHeight = 48;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 24;
    std::vector<BYTE> pixels(std::size_t{48} * 48 * 3);
    HDC const screen = ::GetDC(nullptr);
    EXPECT_EQ(::GetDIBits(screen, bitmap, 0, 48, pixels.data(), &info, DIB_RGB_COLORS), 48);
    ::ReleaseDC(nullptr, screen);
    return pixels;
}

TEST_F(TriggerPage, has_every_control_of_the_right_class_within_its_area) {
    std::vector<std::pair<int, const char*>> controls = {
        {kTriggerGroup, "Button"},   {kTriggerMode, "ComboBox"},   {kTriggerSource, "ComboBox"},
        {kParameterLabel, "Static"}, {kParameterEdit, "Edit"},     {kParameterUpDown, "msctls_updown32"},
        {kTriggerOn, "Button"},      {kTriggerInverted, "Button"},
    };
    for (const TriggerFeatureRow& row : kTriggerFeatures) {
        controls.insert(controls.end(), {{row.group, "Button"},
                                         {row.min, "Static"},
                                         {row.max, "Static"},
                                         {row.slider, "msctls_trackbar32"},
                                         {row.edit, "Edit"},
                                         {row.mode, "ComboBox"},
                                         {row.unit, "Static"}});
    }
    const auto page = Open();
    RECT area = {0, 0, 252, 218};
    ASSERT_TRUE(::MapDialogRect(page->Dialog(), &area));
    for (const auto& [id, name] : controls) {
        SCOPED_TRACE(id);
        EXPECT_EQ(ClassOf(*page, id), name);
        RECT place{};
        ::GetWindowRect(page->Control(id), &place);
        ::MapWindowPoints(nullptr, page->Dialog(), reinterpret_cast<POINT*>(&place), 2);
        RECT common{};
        EXPECT_TRUE(::IntersectRect(&common, &area, &place));
        EXPECT_TRUE(::EqualRect(&common, &place));
    }
}

TEST_F(TriggerPage, pictures_lie_on_one_spot_and_start_hidden) {
    Camera().AddFault({.nth = 0, .action = kolmsim::SimFaultAction::fail, .code = E_FAIL});
    const auto page = Open();
    RECT first{};
    ::GetWindowRect(page->Control(1109), &first);
    EXPECT_EQ(first.right - first.left, 48);
    EXPECT_EQ(first.bottom - first.top, 48);
    for (const TriggerModeRow& row : kTriggerModes) {
        for (const int id : {row.normal, row.inverted}) {
            if (id == 0) continue;
            RECT place{};
            ::GetWindowRect(page->Control(id), &place);
            EXPECT_TRUE(::EqualRect(&place, &first)) << id;
            EXPECT_FALSE(::IsWindowVisible(page->Control(id))) << id;
        }
    }
}

TEST_F(TriggerPage, each_picture_control_shows_its_bitmap_of_48_x_48_pixels_and_16_colors) {
    const auto page = Open();
    std::vector<std::vector<BYTE>> all;
    for (const TriggerModeRow& row : kTriggerModes) {
        for (const auto& [control, resource] :
             {std::pair{row.normal, row.normalResource}, std::pair{row.inverted, row.invertedResource}}) {
            if (control == 0) continue;
            SCOPED_TRACE(control);
            HRSRC const found = ::FindResourceA(Module(), MAKEINTRESOURCEA(resource), MAKEINTRESOURCEA(2 /*bitmap*/));
            ASSERT_NE(found, nullptr);
            const auto* const header =
                static_cast<const BITMAPINFOHEADER*>(::LockResource(::LoadResource(Module(), found)));
            EXPECT_EQ(header->biWidth, 48);
            EXPECT_EQ(header->biHeight, 48);
            EXPECT_EQ(header->biBitCount, 4);

            auto* const shown =
                reinterpret_cast<HBITMAP>(::SendMessageA(page->Control(control), STM_GETIMAGE, IMAGE_BITMAP, 0));
            ASSERT_NE(shown, nullptr);
            HBITMAP const wanted = ::LoadBitmapA(Module(), MAKEINTRESOURCEA(resource));
            ASSERT_NE(wanted, nullptr);
            EXPECT_EQ(PixelsOf(shown), PixelsOf(wanted));
            for (const auto& other : all)
                EXPECT_NE(PixelsOf(wanted), other) << "each mode and polarity has a picture of its own";
            all.push_back(PixelsOf(wanted));
            ::DeleteObject(wanted);
        }
    }
    EXPECT_EQ(all.size(), 14u);
}

TEST_F(TriggerPage, tab_order_runs_down_the_page) {
    const auto page = Open();
    page->Pick(kTriggerMode, "Mode3");
    page->Pick(1125, "Manual");
    page->Pick(1130, "Manual");
    const int kOrder[] = {kTriggerMode, kParameterEdit, kTriggerOn, kTriggerInverted, 1121, 1125, 1126, 1130};
    HWND at = page->Control(kOrder[0]);
    for (std::size_t i = 1; i <= std::size(kOrder); ++i) {
        at = ::GetNextDlgTabItem(page->Dialog(), at, FALSE);
        EXPECT_EQ(::GetDlgCtrlID(at), kOrder[i % std::size(kOrder)]);
    }
}

TEST_F(TriggerPage, its_boxes_are_named) {
    const auto page = Open();
    EXPECT_EQ(page->Text(kTriggerOn), "Enable");
    EXPECT_EQ(page->Text(kTriggerInverted), "Invert polarity");
}

TEST_F(TriggerPage, arrow_keys_step_the_parameter_from_1_down_to_minus_1_and_send_nothing) {
    const auto page = Open();
    page->Pick(kTriggerMode, "Mode3");
    Object().Forget();
    const auto press = [&](WPARAM key) {
        ::SendMessageA(page->Control(kParameterEdit), WM_KEYDOWN, key, 0);
        ::SendMessageA(page->Control(kParameterEdit), WM_KEYUP, key, 0);
        return page->Text(kParameterEdit);
    };
    EXPECT_EQ(page->Text(kParameterEdit), "1");
    EXPECT_EQ(press(VK_UP), "0");
    EXPECT_EQ(press(VK_UP), "-1");
    EXPECT_EQ(press(VK_UP), "-1") << "the end of the range";
    EXPECT_EQ(press(VK_DOWN), "0");
    EXPECT_EQ(press(VK_DOWN), "1");
    EXPECT_EQ(press(VK_DOWN), "1") << "its other end";
    EXPECT_EQ(Object().Sent(), Wire{});
}

TEST_F(TriggerPage, arrows_change_the_parameter_of_the_edit_beside_them) {
    const auto page = Open();
    page->Pick(kTriggerMode, "Mode3");
    EXPECT_EQ(reinterpret_cast<HWND>(::SendMessageA(page->Control(kParameterUpDown), UDM_GETBUDDY, 0, 0)),
              page->Control(kParameterEdit));
    ::SendMessageA(page->Control(kParameterUpDown), UDM_SETRANGE32, 0, 9999);
    ::SendMessageA(page->Control(kParameterUpDown), UDM_SETPOS32, 0, 1234);
    EXPECT_EQ(page->Text(kParameterEdit), "1234") << "no thousands separator";
}

}  // namespace
}  // namespace kolmfluxor::test
