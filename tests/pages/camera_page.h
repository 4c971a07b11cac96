#pragma once
/// @file  What the tests of all pages on a camera share.

#include <array>
#include <memory>
#include <string>
#include <vector>

#include <windows.h>

#include <commctrl.h>

#include "support/page_host.h"

namespace kolmfluxor::test {

/// A feature group on a page: its caption, the feature's driver id, and the ids of its controls.
struct GroupRow {
    const char* caption;
    ULONG driverId;
    int group, min, max, slider, edit, mode;
};

/// A color camera and one of its pages.
class CameraPage : public PageTest {
protected:
    /// A page on this test's camera; its own requests are set aside.
    std::unique_ptr<CPageHost> OpenPage(REFCLSID pageClass) {
        auto host = std::make_unique<CPageHost>(pageClass, Object());
        m_opening = Object().Sent();
        return host;
    }
    ULONG WordOf(ULONG id, ULONG offset = 24) {
        std::uint32_t word = 0;
        EXPECT_TRUE(Camera().GetFeatureWord(id, offset, &word));
        return word;
    }
    void SetWord(ULONG id, ULONG offset, ULONG word) { EXPECT_TRUE(Camera().SetFeatureWord(id, offset, word)); }
    static std::string Number(ULONG number) { return std::to_string(static_cast<int>(number)); }
    static std::string ClassOf(const CPageHost& page, int id) {
        std::array<char, 64> name{};
        ::GetClassNameA(page.Control(id), name.data(), static_cast<int>(name.size()));
        return name.data();
    }

    /// The group's controls show the feature as the camera has it.
    void ExpectShows(const CPageHost& page, const GroupRow& row) {
        EXPECT_EQ(page.Text(row.group), row.caption);
        EXPECT_EQ(page.Text(row.min), Number(WordOf(row.driverId, 36)));
        EXPECT_EQ(page.Text(row.max), Number(WordOf(row.driverId, 40)));
        EXPECT_EQ(page.Text(row.edit), Number(WordOf(row.driverId)));
        EXPECT_EQ(page.Position(row.slider), static_cast<LONG>(WordOf(row.driverId)));
        EXPECT_EQ(page.RangeMin(row.slider), static_cast<LONG>(WordOf(row.driverId, 36)));
        EXPECT_EQ(page.RangeMax(row.slider), static_cast<LONG>(WordOf(row.driverId, 40)));
        EXPECT_EQ(::SendMessageA(page.Control(row.slider), TBM_GETLINESIZE, 0, 0), 1);
        EXPECT_EQ(::SendMessageA(page.Control(row.slider), TBM_GETPAGESIZE, 0, 0), 10);
        EXPECT_TRUE(page.IsEnabled(row.group));
    }
    /// The group's controls are of the classes that its code counts on; its number can't be typed.
    static void ExpectClasses(const CPageHost& page, const GroupRow& row) {
        EXPECT_EQ(ClassOf(page, row.group), "Button");
        EXPECT_EQ(ClassOf(page, row.min), "Static");
        EXPECT_EQ(ClassOf(page, row.max), "Static");
        EXPECT_EQ(ClassOf(page, row.slider), TRACKBAR_CLASSA);
        EXPECT_EQ(ClassOf(page, row.edit), "Edit");
        EXPECT_NE(::GetWindowLongA(page.Control(row.edit), GWL_STYLE) & ES_READONLY, 0);
        EXPECT_EQ(ClassOf(page, row.mode), "ComboBox");
    }

    /// What the camera sees now, 24 bits a pixel.
    std::vector<std::uint8_t> Picture(std::uint64_t number = 0) {
        constexpr std::uint32_t kWidth = 64;
        constexpr std::uint32_t kHeight = 48;
        std::vector<std::uint8_t> bytes(std::size_t{kWidth} * kHeight * 3);
        EXPECT_TRUE(Camera().RenderFrame({.compression = BI_RGB,
                                          .bitsPerPixel = 24,
                                          .width = kWidth,
                                          .height = kHeight,
                                          .number = number,
                                          .data = bytes.data(),
                                          .sizeBytes = bytes.size()}));
        return bytes;
    }

    Wire m_opening;  ///< what opening the page sent
};

}  // namespace kolmfluxor::test
