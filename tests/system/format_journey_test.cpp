/// @file  From the Format page to the stream: what a user sets in a property frame is what the camera delivers.

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "system/streaming_fixture.h"  // first: the platform headers below need its windows.h

#include <kolmfluxor/identifiers.h>

#include "frame/frame_page.h"
#include "frame/property_frame.h"
#include "frame/resource.h"
#include "support/own_desktop.h"
#include "system/pin_formats.h"

namespace kolmfluxor::test {
namespace {

using kolmctl::FramePage;
using kolmctl::PropertyFrame;
using Microsoft::WRL::ComPtr;
using Picture = std::vector<std::uint8_t>;

// Controls of the page "Format"
constexpr int kMode = 1068;
constexpr int kX = 1045;
constexpr int kY = 1046;
constexpr int kWidth = 1047;
constexpr int kHeight = 1048;

constexpr DWORD kFormat7Mode0 = 7U << 8;
constexpr LONG kSensorWidth = 1280;
constexpr LONG kSensorHeight = 960;

class FormatJourney : public StreamingFilter {
protected:
    /// A frame of our own around the Format page of the filter in the graph.
    std::unique_ptr<PropertyFrame> OpenFrame() {
        std::vector<std::unique_ptr<FramePage>> pages;
        pages.push_back(std::make_unique<FramePage>(CLSID_KolmFluxorPage_Format));
        pages.back()->Connect(*m_filter.Get());
        auto frame = std::make_unique<PropertyFrame>(L"frame", std::move(pages));
        frame->Show();
        frame->Settle();
        m_dialog = ::GetWindow(::GetDlgItem(frame->Window(), IDC_PAGE_AREA), GW_CHILD);
        return frame;
    }

    void Choose(const std::string& mode) const {
        HWND const combo = ::GetDlgItem(m_dialog, kMode);
        const LRESULT entry =
            ::SendMessageA(combo, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(mode.c_str()));
        ASSERT_GE(entry, 0) << mode << " is not listed";
        ::SendMessageA(combo, CB_SETCURSEL, static_cast<WPARAM>(entry), 0);
        ::SendMessageA(m_dialog, WM_COMMAND, MAKEWPARAM(kMode, CBN_SELCHANGE), reinterpret_cast<LPARAM>(combo));
    }

    /// Types a number as a user does: into the field that has the focus, which then goes to another one.
    void Type(int edit, LONG number) const {
        HWND const field = ::GetDlgItem(m_dialog, edit);
        ::SetFocus(field);
        ::SetWindowTextA(field, std::to_string(number).c_str());
        ::SetFocus(::GetDlgItem(m_dialog, kMode));
    }

    [[nodiscard]] std::string Text(int id) const {
        std::array<char, 64> text{};
        ::GetDlgItemTextA(m_dialog, id, text.data(), static_cast<int>(text.size()));
        return text.data();
    }

    Picture FirstPicture() {
        m_collector->Restart(1);
        RunUntilCollected();
        const auto frames = m_collector->Frames();
        return frames.empty() ? Picture() : frames.front();
    }

    HWND m_dialog = nullptr;
};

TEST_F(FormatJourney, the_area_that_is_applied_is_the_area_of_the_next_picture) {
    COwnDesktop::Enter();
    BuildGraph(1);
    ComPtr<IAMStreamConfig> config;
    ASSERT_EQ(Pin().As(&config), S_OK);
    ASSERT_EQ(config->SetFormat(CapabilityOf(config.Get(), kFormat7Mode0, 8).type.Type()), S_OK);
    const Picture whole = FirstPicture();
    ASSERT_EQ(whole.size(), static_cast<std::size_t>(kSensorWidth) * kSensorHeight);
    const auto frame = OpenFrame();

    Choose("F7M0 1280x960 Mono8[8Bit]");
    Type(kWidth, 320);
    Type(kHeight, 240);
    Type(kX, 65);  // corrected to the step: 64
    Type(kY, 32);
    Type(kWidth, 320);  // moving the left edge took 64 of it
    EXPECT_EQ(Text(kX), "64");
    HWND const apply = ::GetDlgItem(frame->Window(), IDC_APPLY);
    EXPECT_TRUE(::IsWindowEnabled(apply));
    ::SendMessageW(apply, BM_CLICK, 0, 0);

    EXPECT_FALSE(::IsWindowEnabled(apply)) << "applied";
    const Picture part = FirstPicture();
    ASSERT_EQ(part.size(), 320U * 240U);
    for (std::size_t row = 0; row < 240; ++row) {
        const auto expected = whole.begin() + static_cast<std::ptrdiff_t>((row + 32) * kSensorWidth + 64);
        ASSERT_TRUE(std::equal(expected, expected + 320, part.begin() + static_cast<std::ptrdiff_t>(row * 320)))
            << "row " << row;
    }
    frame->Close();
}

TEST_F(FormatJourney, the_page_shows_the_area_that_the_camera_is_set_to) {
    COwnDesktop::Enter();
    BuildGraph(1);
    {
        const auto frame = OpenFrame();
        Choose("F7M0 1280x960 Mono8[8Bit]");
        Type(kWidth, 640);
        Type(kHeight, 480);
        Type(kY, 100);
        ::SendMessageW(::GetDlgItem(frame->Window(), IDC_APPLY), BM_CLICK, 0, 0);
        frame->Close();
    }

    const auto frame = OpenFrame();

    std::array<char, 64> mode{};
    HWND const combo = ::GetDlgItem(m_dialog, kMode);
    ::GetWindowTextA(combo, mode.data(), static_cast<int>(mode.size()));
    EXPECT_STREQ(mode.data(), "F7M0 1280x960 Mono8[8Bit]");
    EXPECT_EQ(Text(kX), "0");
    EXPECT_EQ(Text(kY), "100");
    EXPECT_EQ(Text(kWidth), "640");
    EXPECT_EQ(Text(kHeight), "480");
    frame->Close();
}

}  // namespace
}  // namespace kolmfluxor::test
