/// @file  The viewer in each of its states: without pictures, without a camera, with the pages open, and closed in all.

#include "view/viewer_fixture.h"

#include <functional>
#include <utility>

#include <commctrl.h>

#include "frame/resource.h"
#include "support/modal_user.h"
#include "support/module.h"
#include "support/repeating_thread.h"

namespace kolmfluxor::test {
namespace {

constexpr int kBrightnessSlider = 1073;  // on the page "Exposure"

constexpr int kSuccessCode = 0;
constexpr int kNoDeviceCode = 3;

std::vector<HWND> DialogsOf(DWORD thread) {
    std::vector<HWND> windows;
    ::EnumThreadWindows(
        thread,
        [](HWND window, LPARAM list) -> BOOL {
            wchar_t name[16] = L"";
            ::GetClassNameW(window, name, 16);
            if (std::wstring(name) == L"#32770" && ::IsWindowVisible(window)) {
                reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
            }
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&windows));
    return windows;
}

/// Closes a window as soon as its thread shows one more dialog than before.
class CCloserAtDialog {
public:
    explicit CCloserAtDialog(HWND window)
        : m_thread([window, thread = ::GetCurrentThreadId(), before = DialogsOf(::GetCurrentThreadId()).size(),
                    closed = false]() mutable {
              if (closed || DialogsOf(thread).size() <= before) return;
              ::PostMessageW(window, WM_CLOSE, 0, 0);
              closed = true;
          }) {}

private:
    CRepeatingThread m_thread;
};

class ViewerStates : public ViewerTest {
protected:
    void OpenPages() {
        Press(IDC_PROPERTIES);
        ASSERT_TRUE(Until([&] { return Viewer().Properties() != nullptr; }));
    }

    /// A control of the page that is shown.
    HWND OnPage(int id) {
        HWND const area = ::GetDlgItem(Viewer().Properties()->Window(), IDC_PAGE_AREA);
        for (HWND page = ::GetWindow(area, GW_CHILD); page != nullptr; page = ::GetWindow(page, GW_HWNDNEXT)) {
            if (::IsWindowVisible(page)) return ::GetDlgItem(page, id);
        }
        return nullptr;
    }

    void ChoosePage(const wchar_t* title) {
        HWND const tabs = ::GetDlgItem(Viewer().Properties()->Window(), IDC_TABS);
        for (int i = 0;; ++i) {
            wchar_t text[64] = L"";
            TCITEMW item{};
            item.mask = TCIF_TEXT;
            item.pszText = text;
            item.cchTextMax = 64;
            ASSERT_TRUE(::SendMessageW(tabs, TCM_GETITEMW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&item)));
            if (std::wstring(text) != title) continue;
            ::SendMessageW(tabs, TCM_SETCURSEL, static_cast<WPARAM>(i), 0);
            NMHDR chosen = {tabs, IDC_TABS, static_cast<UINT>(TCN_SELCHANGE)};
            ::SendMessageW(::GetParent(tabs), WM_NOTIFY, IDC_TABS, reinterpret_cast<LPARAM>(&chosen));
            return;
        }
    }
};

TEST_F(ViewerStates, stops_and_starts_by_its_button_and_by_keys) {
    Open();
    ASSERT_TRUE(UntilMorePictures());
    EXPECT_EQ(::GetFocus(), Control(IDC_STREAM));
    EXPECT_EQ(TextOf(IDC_STREAM), L"S&top");

    PressKey(VK_SPACE);
    ASSERT_TRUE(UntilNotice(L"Stopped."));
    std::uint32_t word = 0xDEADBEEF;
    EXPECT_TRUE(Simulated().PeekRegister(kIsoEnable, &word));
    EXPECT_EQ(word, 0u) << "the camera sends nothing any more";
    EXPECT_EQ(TextOf(IDC_STREAM), L"S&tart");
    EXPECT_EQ(TextOf(IDC_FIGURES), L"");

    PressKey(VK_RETURN);
    EXPECT_TRUE(UntilMorePictures());
    EXPECT_EQ(Viewer().Notice(), L"");

    Press(IDC_STREAM);
    ASSERT_TRUE(UntilNotice(L"Stopped."));
    PressKey(VK_F5);
    EXPECT_TRUE(UntilMorePictures());
    EXPECT_EQ(TextOf(IDC_STREAM), L"S&top");
    EXPECT_EQ(Close(), kSuccessCode);
}

TEST_F(ViewerStates, leads_the_tab_key_through_its_buttons_and_ignores_escape) {
    Open();
    ASSERT_TRUE(UntilMorePictures());
    ASSERT_TRUE(Until([&] { return ::IsWindowEnabled(Control(IDC_STILL)) != FALSE; }));
    for (const int id : {IDC_PROPERTIES, IDC_STILL, IDC_STREAM}) {
        PressKey(VK_TAB);

        EXPECT_TRUE(Until([&] { return ::GetFocus() == Control(id); })) << id;
    }
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(UntilMorePictures());
    EXPECT_TRUE(::IsWindowVisible(Viewer().Window()));
    EXPECT_EQ(Close(), kSuccessCode);
}

TEST_F(ViewerStates, says_that_the_camera_waits_for_its_trigger) {
    ASSERT_TRUE(OpenCamera()->PokeRegister(kTriggerMode, kTriggerOn));
    Open();

    EXPECT_TRUE(UntilNotice(L"The camera waits for its trigger."));
    ASSERT_TRUE(Simulated().PulseTriggerInput());
    EXPECT_TRUE(UntilMorePictures(1));
    EXPECT_TRUE(Until([&] { return Viewer().Notice().empty(); }));
    EXPECT_EQ(Close(), kSuccessCode);
}

TEST_F(ViewerStates, says_that_no_pictures_come_and_F5_takes_the_new_format) {
    Open();
    ASSERT_TRUE(UntilMorePictures());
    ASSERT_EQ(Kolmctl({L"--simulate", L"format", L"set", L"--mode", L"320x240 UYVY"}).exitCode, kSuccess);

    EXPECT_TRUE(UntilNotice(L"No picture for "));
    PressKey(VK_F5);

    EXPECT_TRUE(UntilMorePictures());
    EXPECT_TRUE(Until([&] { return TextOf(IDC_FIGURES).starts_with(L"320 x 240  UYVY(YUV422)"); }));
    EXPECT_EQ(Close(), kSuccessCode);
}

TEST_F(ViewerStates, says_which_pictures_cannot_be_shown) {
    ASSERT_EQ(Kolmctl({L"--simulate=mono", L"format", L"set", L"--mode", L"f7m0 Mono16"}).exitCode, kSuccess);

    Open({"--simulate=mono"});

    EXPECT_TRUE(UntilNotice(L"Mono16 cannot be shown"));
    EXPECT_TRUE(::IsWindowEnabled(Control(IDC_PROPERTIES))) << "the page \"Format\" can change it";
    EXPECT_FALSE(::IsWindowEnabled(Control(IDC_STILL)));
    EXPECT_EQ(Close(), 1);
}

TEST_F(ViewerStates, says_that_the_camera_was_unplugged_and_shows_it_again) {
    Open();
    ASSERT_TRUE(UntilMorePictures());

    Simulated().Plug(false);
    EXPECT_TRUE(UntilNotice(L"The camera does not answer: 0x8007048F"));

    Simulated().Plug(true);
    EXPECT_TRUE(UntilMorePictures());
    EXPECT_TRUE(Until([&] { return Viewer().Notice().empty(); }));
    EXPECT_EQ(Close(), kSuccessCode);
}

TEST_F(ViewerStates, opens_a_camera_that_was_lost_anew_and_closes_its_pages) {
    Open();
    ASSERT_TRUE(UntilMorePictures());
    OpenPages();
    Simulated().Plug(false);
    ASSERT_TRUE(UntilNotice(L"The camera does not answer"));

    ::SetFocus(Control(IDC_STREAM));
    PressKey(VK_F5);

    EXPECT_TRUE(UntilMorePictures());
    EXPECT_EQ(Viewer().Properties(), nullptr);
    EXPECT_EQ(Close(), kSuccessCode);
}

TEST_F(ViewerStates, without_a_camera_says_so_and_tries_again) {
    Module().Unregister();
    Open();

    EXPECT_TRUE(UntilNotice(L"the module is not registered"));
    EXPECT_FALSE(::IsWindowEnabled(Control(IDC_PROPERTIES)));
    EXPECT_FALSE(::IsWindowEnabled(Control(IDC_STILL)));
    PressKey(VK_F5);
    EXPECT_TRUE(UntilNotice(L"the module is not registered"));
    EXPECT_EQ(Close(), kNoDeviceCode);

    Open({"--device", "no such device"});
    EXPECT_TRUE(UntilNotice(L"no capture device is called \"no such device\""));
    EXPECT_EQ(Close(), kNoDeviceCode);

    Open();
    EXPECT_TRUE(UntilNotice(L"the module is not registered"));
    Module().Register();
    PressKey(VK_F5);
    EXPECT_TRUE(UntilMorePictures());
    EXPECT_EQ(Close(), kSuccessCode);
}

TEST_F(ViewerStates, shows_what_a_slider_of_the_pages_does_while_the_picture_runs) {
    Open();
    ASSERT_TRUE(UntilMorePictures());
    OpenPages();
    ASSERT_TRUE(UntilMorePictures()) << "beside the open pages";
    const auto mean = [&] {
        double value = -1;
        const std::wstring text = TextOf(IDC_FIGURES);
        const std::size_t begin = text.find(L"mean ");
        return begin != std::wstring::npos && std::swscanf(&text[begin], L"mean %lf", &value) == 1 ? value : -1;
    };
    ASSERT_TRUE(Until([&] { return mean() > 0; }));
    const double before = mean();
    ChoosePage(L"Exposure");
    HWND const slider = OnPage(kBrightnessSlider);
    ASSERT_NE(slider, nullptr);

    const LRESULT most = ::SendMessageW(slider, TBM_GETRANGEMAX, 0, 0);
    ::SendMessageW(slider, TBM_SETPOS, TRUE, most);
    ::SendMessageW(::GetParent(slider), WM_HSCROLL, MAKEWPARAM(TB_THUMBTRACK, most), reinterpret_cast<LPARAM>(slider));

    EXPECT_TRUE(Until([&] { return mean() > before + 20; })) << before << " became " << mean();
    EXPECT_EQ(Close(), kSuccessCode);
}

TEST_F(ViewerStates, opens_the_pages_once_closes_them_and_opens_them_again) {
    Open();
    ASSERT_TRUE(UntilMorePictures());
    for (const int way : {IDOK, IDCANCEL}) {
        OpenPages();
        HWND const frame = Viewer().Properties()->Window();
        Press(IDC_PROPERTIES);
        ASSERT_TRUE(UntilMorePictures());
        EXPECT_EQ(Viewer().Properties()->Window(), frame);

        ::PostMessageW(::GetDlgItem(frame, way), BM_CLICK, 0, 0);

        EXPECT_TRUE(Until([&] { return Viewer().Properties() == nullptr; }));
        EXPECT_FALSE(::IsWindow(frame));
        EXPECT_TRUE(UntilMorePictures());
    }
    EXPECT_EQ(Close(), kSuccessCode);
}

TEST_F(ViewerStates, leaves_keys_in_the_pages_to_them) {
    Open();
    ASSERT_TRUE(UntilMorePictures());
    OpenPages();
    ASSERT_TRUE(::IsChild(Viewer().Properties()->Window(), ::GetFocus()));

    const auto come = [&] {
        return Viewer().Feed().Graph().Newest().FiguresAt(std::chrono::steady_clock::now()).count;
    };
    const std::uint64_t before = come();

    PressKey(VK_F5);
    PressKey(VK_TAB);
    ASSERT_TRUE(UntilMorePictures());
    EXPECT_GT(come(), before) << "the stream goes on, it was not started anew";
    EXPECT_TRUE(::IsChild(Viewer().Properties()->Window(), ::GetFocus()));
    PressKey(VK_ESCAPE);

    EXPECT_TRUE(Until([&] { return Viewer().Properties() == nullptr; })) << "Esc cancels the pages, not the viewer";
    EXPECT_TRUE(UntilMorePictures());
    EXPECT_EQ(Close(), kSuccessCode);
}

TEST_F(ViewerStates, closed_in_each_state_leaves_nothing) {
    using State = std::pair<const char*, std::function<void()>>;
    const State states[] = {
        {"at once", [] {}},
        {"running", [&] { ASSERT_TRUE(UntilMorePictures()); }},
        {"stopped",
         [&] {
             Press(IDC_STREAM);
             ASSERT_TRUE(UntilNotice(L"Stopped."));
         }},
        {"with the pages",
         [&] {
             ASSERT_TRUE(UntilMorePictures());
             OpenPages();
         }},
        {"with the pages and without the camera",
         [&] {
             OpenPages();
             Simulated().Plug(false);
         }},
        {"unplugged",
         [&] {
             Simulated().Plug(false);
             ASSERT_TRUE(UntilNotice(L"does not answer"));
         }},
        {"with a window that somebody has taken away",
         [&] {
             ASSERT_TRUE(UntilMorePictures());
             OpenPages();
             ::DestroyWindow(Viewer().Window());
         }},
    };
    for (const auto& [name, reach] : states) {
        SCOPED_TRACE(name);
        Open();
        reach();

        EXPECT_EQ(Close(), kSuccessCode);

        EXPECT_EQ(CModule::Get().CanUnloadNow(), S_OK);
        EXPECT_TRUE(DialogsOf(::GetCurrentThreadId()).empty());
    }
}

TEST_F(ViewerStates, closed_while_a_box_or_the_file_dialog_waits_leaves_nothing) {
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"--simulate", "--still", "C:\\no such folder\\a.png"}, {"--simulate"}}) {
        Open(arguments);
        ASSERT_TRUE(UntilMorePictures());
        ASSERT_TRUE(Until([&] { return ::IsWindowEnabled(Control(IDC_STILL)) != FALSE; }));
        const CCloserAtDialog closer(Viewer().Window());
        ::PostMessageW(Control(IDC_STILL), BM_CLICK, 0, 0);

        EXPECT_EQ(Viewer().Run(), kolmctl::ExitCode::success);
        Discard();
        EXPECT_EQ(CModule::Get().CanUnloadNow(), S_OK);
        EXPECT_EQ(::GetFileAttributesW(L"camera.png"), INVALID_FILE_ATTRIBUTES) << "nobody has said OK";
        EXPECT_TRUE(DialogsOf(::GetCurrentThreadId()).empty());
    }
}

}  // namespace
}  // namespace kolmfluxor::test
