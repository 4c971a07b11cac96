/// @file  Property frames around the camera's pages: kolmctl's own, and the system's.

#include "system/property_frame_fixture.h"

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <commctrl.h>
#include <olectl.h>

#include <kolmfluxor/features.h>
#include <kolmfluxor/identifiers.h>
#include <kolmfluxor/property_set.h>

#include "frame/resource.h"
#include "frame/window_picture.h"
#include "support/repeating_thread.h"
#include "support/wine.h"

namespace kolmfluxor::test {
namespace {

using kolmctl::PropertyFrame;
using Microsoft::WRL::ComPtr;

// Controls of the page "Exposure"
constexpr int kBrightnessSlider = 1073;
constexpr int kMarkDirty = 1055;

std::vector<HWND> WindowsOfThread(DWORD thread) {
    std::vector<HWND> windows;
    ::EnumThreadWindows(
        thread,
        [](HWND window, LPARAM list) -> BOOL {
            reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&windows));
    return windows;
}

/// One step of the mouse, to a place in a window's client area.
void MoveMouse(HWND window, POINT place, DWORD buttons) {
    ::ClientToScreen(window, &place);
    ::SetCursorPos(place.x, place.y);
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = buttons;
    ::SendInput(1, &input, sizeof input);
}

/// A frame with the page "Exposure".
class ExposureFrameTest : public PropertyFrameTest {
protected:
    [[nodiscard]] std::unique_ptr<PropertyFrame> OpenFrame(std::size_t tabs = 1) const {
        return PropertyFrameTest::OpenFrame(CLSID_KolmFluxorPage_Exposure, tabs);
    }

    /// The pages' dialogs in a frame, those with windows, in the order of their making.
    [[nodiscard]] static std::vector<HWND> Dialogs(const PropertyFrame& frame) {
        std::vector<HWND> dialogs;
        HWND const area = ::GetDlgItem(frame.Window(), IDC_PAGE_AREA);
        for (HWND page = ::GetWindow(area, GW_CHILD); page != nullptr; page = ::GetWindow(page, GW_HWNDNEXT)) {
            dialogs.push_back(page);
        }
        return dialogs;
    }

    [[nodiscard]] static bool CanApply(const PropertyFrame& frame) {
        return ::IsWindowEnabled(::GetDlgItem(frame.Window(), IDC_APPLY)) != FALSE;
    }

    [[nodiscard]] ULONG References() const {
        m_filter->AddRef();
        return m_filter->Release();
    }

    [[nodiscard]] ULONG Brightness() const {
        ComPtr<IKolmFluxorPropertySet> camera;
        EXPECT_EQ(m_filter->QueryInterface(IID_IKolmFluxorPropertySet, reinterpret_cast<void**>(camera.GetAddressOf())),
                  S_OK);
        ULONG value = 0xDEADBEEF;
        EXPECT_EQ(camera->GetFeatureValue(static_cast<ULONG>(FeatureId::brightness), &value), S_OK);
        return value;
    }
};

class OwnFrame : public ExposureFrameTest {};

/// The ways out of the frame.
void PressOk(const PropertyFrame& frame) {
    ::PostMessageW(::GetDlgItem(frame.Window(), IDOK), BM_CLICK, 0, 0);
}
void PressCancel(const PropertyFrame& frame) {
    ::PostMessageW(::GetDlgItem(frame.Window(), IDCANCEL), BM_CLICK, 0, 0);
}
void PressEscape(const PropertyFrame&) {
    ::PostMessageW(::GetFocus(), WM_KEYDOWN, VK_ESCAPE, 0);
}
void CloseBox(const PropertyFrame& frame) {
    ::PostMessageW(frame.Window(), WM_SYSCOMMAND, SC_CLOSE, 0);
}
void QuitThread(const PropertyFrame&) {
    ::PostQuitMessage(7);
}
constexpr void (*kWaysOut[])(const PropertyFrame&) = {PressOk, PressCancel, PressEscape, CloseBox, QuitThread};

TEST_F(OwnFrame, opened_and_closed_50_times_in_every_way_leaves_nothing) {
    constexpr std::size_t kWays = std::size(kWaysOut);
    const ULONG references = References();
    const std::size_t windows = WindowsOfThread(::GetCurrentThreadId()).size();
    DWORD gdiObjects = 0;  // counted by Windows only, as are the user objects
    DWORD userObjects = 0;

    for (std::size_t i = 0; i < 50; ++i) {
        const auto frame = OpenFrame();
        ASSERT_EQ(Dialogs(*frame).size(), 1U);

        kWaysOut[i % kWays](*frame);
        frame->Run();

        MSG message{};
        const bool quit = ::PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE) != FALSE;
        EXPECT_EQ(quit, i % kWays == kWays - 1) << "the thread's own loop is to see the end, and only that";
        EXPECT_EQ(frame->Window(), nullptr);
        ASSERT_EQ(References(), references) << "way " << i % kWays;
        if (i == kWays - 1) {  // what the system makes once is there now
            gdiObjects = ::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS);
            userObjects = ::GetGuiResources(::GetCurrentProcess(), GR_USEROBJECTS);
        }
    }

    EXPECT_EQ(WindowsOfThread(::GetCurrentThreadId()).size(), windows);
    EXPECT_EQ(::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS), gdiObjects);
    EXPECT_EQ(::GetGuiResources(::GetCurrentProcess(), GR_USEROBJECTS), userObjects);
}

TEST_F(OwnFrame, a_window_taken_away_from_outside_leaves_nothing) {
    const ULONG references = References();
    const auto frame = OpenFrame();

    ::DestroyWindow(frame->Window());
    frame->Run();

    EXPECT_EQ(frame->Window(), nullptr);
    EXPECT_EQ(References(), references);
}

TEST_F(OwnFrame, in_a_host_with_its_own_loop_handles_what_is_its_own_and_tells_when_it_is_done) {
    const auto frame = OpenFrame();
    HWND const other = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
    MSG foreign{};
    foreign.hwnd = other;
    foreign.message = WM_KEYDOWN;
    foreign.wParam = VK_ESCAPE;
    MSG toTheThread = foreign;
    toTheThread.hwnd = nullptr;
    MSG own = foreign;
    own.hwnd = ::GetFocus();

    EXPECT_FALSE(frame->Handle(&foreign));
    EXPECT_FALSE(frame->Handle(&toTheThread));
    EXPECT_FALSE(frame->IsDone());
    ASSERT_TRUE(::IsChild(frame->Window(), own.hwnd));
    EXPECT_TRUE(frame->Handle(&own));
    EXPECT_TRUE(frame->IsDone());
    EXPECT_NE(frame->Window(), nullptr) << "the host closes it";
    frame->Close();
    EXPECT_FALSE(frame->Handle(&foreign));

    ::DestroyWindow(other);
}

TEST_F(OwnFrame, a_change_enables_Apply_and_Apply_ends_it) {
    const auto frame = OpenFrame();
    EXPECT_FALSE(CanApply(*frame));

    ::SendMessageW(Dialogs(*frame).front(), WM_COMMAND, MAKEWPARAM(kMarkDirty, BN_CLICKED), 0);
    EXPECT_TRUE(CanApply(*frame));

    ::SendMessageW(::GetDlgItem(frame->Window(), IDC_APPLY), BM_CLICK, 0, 0);
    EXPECT_FALSE(CanApply(*frame));
    EXPECT_TRUE(::IsWindowVisible(frame->Window())) << "Apply leaves the frame open";
}

TEST_F(OwnFrame, dragging_a_slider_with_the_mouse_changes_the_camera) {
    const ULONG before = Brightness();
    const auto frame = OpenFrame();
    HWND const slider = ::GetDlgItem(Dialogs(*frame).front(), kBrightnessSlider);
    RECT thumb{};
    RECT channel{};
    ::SendMessageW(slider, TBM_GETTHUMBRECT, 0, reinterpret_cast<LPARAM>(&thumb));
    ::SendMessageW(slider, TBM_GETCHANNELRECT, 0, reinterpret_cast<LPARAM>(&channel));
    const LONG y = (thumb.top + thumb.bottom) / 2;
    const POINT grip = {(thumb.left + thumb.right) / 2, y};
    const POINT middle = {(channel.left + channel.right) / 2, y};

    MoveMouse(slider, grip, MOUSEEVENTF_LEFTDOWN);
    frame->Settle();
    MoveMouse(slider, middle, MOUSEEVENTF_MOVE);
    frame->Settle();
    MoveMouse(slider, middle, MOUSEEVENTF_LEFTUP);
    frame->Settle();

    EXPECT_NE(Brightness(), before);
    EXPECT_NEAR(static_cast<double>(Brightness()), 127.5, 12.75) << "the middle of 0 to 255";
}

TEST_F(OwnFrame, a_click_on_a_tab_shows_its_page_and_keeps_the_other) {
    const auto frame = OpenFrame(2);
    HWND const first = Dialogs(*frame).front();
    HWND const tabs = ::GetDlgItem(frame->Window(), IDC_TABS);
    EXPECT_EQ(Dialogs(*frame).size(), 1U) << "a page gets its window when it is first shown";
    RECT tab{};
    ASSERT_TRUE(::SendMessageW(tabs, TCM_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&tab)));
    const POINT place = {(tab.left + tab.right) / 2, (tab.top + tab.bottom) / 2};

    MoveMouse(tabs, place, MOUSEEVENTF_LEFTDOWN);
    MoveMouse(tabs, place, MOUSEEVENTF_LEFTUP);
    frame->Settle();

    ASSERT_EQ(Dialogs(*frame).size(), 2U);
    EXPECT_FALSE(::IsWindowVisible(first));
    EXPECT_TRUE(::IsWindowVisible(Dialogs(*frame).front() == first ? Dialogs(*frame).back() : Dialogs(*frame).front()));
}

TEST_F(OwnFrame, every_part_is_inside_and_none_lies_on_another) {
    const auto frame = OpenFrame(3);
    RECT client{};
    ::GetClientRect(frame->Window(), &client);
    std::vector<RECT> parts;

    for (const int id : {IDC_TABS, IDOK, IDCANCEL, IDC_APPLY}) {
        RECT part{};
        ::GetWindowRect(::GetDlgItem(frame->Window(), id), &part);
        ::MapWindowPoints(nullptr, frame->Window(), reinterpret_cast<POINT*>(&part), 2);
        RECT common{};
        EXPECT_TRUE(::IntersectRect(&common, &part, &client) && ::EqualRect(&common, &part)) << "part " << id;
        for (const RECT& other : parts) {
            EXPECT_FALSE(::IntersectRect(&common, &part, &other)) << "part " << id;
        }
        parts.push_back(part);
    }
}

/// Presses Cancel in this thread's dialog as soon as there is one, again until the dialog is gone.
class CCancelPresser {
public:
    /// @param look  called with the dialog each time before Cancel is pressed
    explicit CCancelPresser(std::function<void(HWND)> look = [](HWND) {}) : m_look(std::move(look)) {}

private:
    void Press() {
        constexpr ULONGLONG kLimitMs = 20'000;
        for (HWND const window : WindowsOfThread(m_thread)) {
            HWND const cancel = ::GetDlgItem(window, IDCANCEL);
            if (cancel != nullptr && ::IsWindowVisible(window)) {
                m_look(window);
                ::PostMessageW(cancel, BM_CLICK, 0, 0);
            }
        }
        if (::GetTickCount64() - m_start > kLimitMs) {
            ADD_FAILURE() << "the frame did not close";
            ::PostThreadMessageW(m_thread, WM_QUIT, 0, 0);
        }
    }

    const DWORD m_thread = ::GetCurrentThreadId();
    const ULONGLONG m_start = ::GetTickCount64();
    const std::function<void(HWND)> m_look;
    CRepeatingThread m_presser{[this] { Press(); }};  // last: it uses what is above
};

class SystemFrame : public ExposureFrameTest {};

TEST_F(SystemFrame, opened_and_closed_50_times_leaves_no_more_than_the_system_does_by_itself) {
    constexpr ULONG kTimes = 50;
    // Wine's frame never disconnects a page, and only a disconnected page gives its camera back.
    const ULONG leftByTheSystem = IsWine() ? kTimes : 0;
    const ULONG references = References();
    const std::size_t windows = WindowsOfThread(::GetCurrentThreadId()).size();

    for (ULONG i = 0; i < kTimes; ++i) {
        const CCancelPresser presser;
        IUnknown* object = m_filter.Get();
        CLSID page = CLSID_KolmFluxorPage_Exposure;
        EXPECT_EQ(
            ::OleCreatePropertyFrame(nullptr, 0, 0, L"frame", 1, &object, 1, &page, LOCALE_USER_DEFAULT, 0, nullptr),
            S_OK);
    }

    EXPECT_EQ(WindowsOfThread(::GetCurrentThreadId()).size(), windows);
    ASSERT_EQ(References(), references + leftByTheSystem);
    for (ULONG i = 0; i < leftByTheSystem; ++i) {
        m_filter->Release();
    }
}

TEST_F(SystemFrame, shows_the_page) {
    std::optional<kolmctl::Picture> picture;
    {
        const CCancelPresser presser([&](HWND frame) {
            if (picture && !picture->IsBlank()) return;
            ::RedrawWindow(frame, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
            picture = kolmctl::TakePicture(frame);
        });
        IUnknown* object = m_filter.Get();
        CLSID page = CLSID_KolmFluxorPage_Exposure;
        EXPECT_EQ(
            ::OleCreatePropertyFrame(nullptr, 0, 0, L"frame", 1, &object, 1, &page, LOCALE_USER_DEFAULT, 0, nullptr),
            S_OK);
    }
    if (IsWine()) m_filter->Release();  // as above

    ASSERT_TRUE(picture);
    EXPECT_FALSE(picture->IsBlank());
    // For whoever wants to look at it: the page as the system's frame shows it.
    if (const char* const file = std::getenv("KOLM_TEST_PICTURE"); file != nullptr) {
        kolmctl::WritePicture(*picture, kolmctl::PictureFile::png, std::filesystem::path(file).wstring());
    }
}

}  // namespace
}  // namespace kolmfluxor::test
