/// @file  Much of everything at once, for a while: nothing goes wrong, and nothing is used up.

#include <array>
#include <atomic>
#include <cstdio>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "system/still_image_fixture.h"  // first: it asks the platform's headers for more

#include <kolmfluxor/features.h>

#include "support/fault_sweep.h"
#include "support/own_desktop.h"
#include "support/page_site.h"
#include "support/property_set_test.h"
#include "support/resources.h"

namespace kolmfluxor::test {
namespace {

using Microsoft::WRL::ComPtr;

// ---- One object, many threads
// -----------------------------------------------------------------------------------------

class SoakedObject : public PropertySetTest {};

struct Range {
    ULONG min = 0;
    ULONG max = 0;
    bool operator==(const Range&) const = default;
};

/// The features that the threads own, one each; none of them moves another.
constexpr std::array kOwned = {FeatureId::brightness,     FeatureId::gain,          FeatureId::shutter,
                               FeatureId::sharpness,      FeatureId::hue,           FeatureId::saturation,
                               FeatureId::whiteBalanceUB, FeatureId::whiteBalanceVR};

TEST_F(SoakedObject, hundred_thousand_operations_of_eight_threads_give_the_right_values) {
    constexpr int kRounds = 4;
    constexpr int kOperations = 3'125;  // of each thread in each round
    constexpr ULONG kManual = 1;
    constexpr ULONG kRegister = 0xF0F00404;  // BasicFunctionInq: which features there are
    IKolmFluxorPropertySet& set = *Object().Get();
    std::array<Range, kOwned.size()> ranges;
    for (std::size_t i = 0; i < kOwned.size(); ++i) {
        const auto id = static_cast<ULONG>(kOwned[i]);
        ASSERT_EQ(set.GetFeatureRange(id, &ranges[i].min, &ranges[i].max), S_OK) << id;
        ASSERT_GT(ranges[i].max, ranges[i].min);
        ASSERT_EQ(set.SetFeatureValueAndMode(id, ranges[i].min, kManual), S_OK) << id;
    }
    ULONG inquiry = 0;
    ASSERT_EQ(set.ReadRegister(kRegister, &inquiry), S_OK);

    CHangGuard guard;
    std::atomic<int> done = 0;
    std::atomic<int> wrong = 0;
    const auto work = [&](std::size_t own) {
        const auto id = static_cast<ULONG>(kOwned[own]);
        ULONG expected = ranges[own].min;
        const auto check = [&](bool right) {
            if (!right && wrong++ == 0) std::printf("wrong: feature %lu, operation %d\n", id, done.load());
        };
        for (int i = 0; i < kOperations; ++i) {
            ULONG value = kPoison;
            ULONG mode = kPoison;
            Range range;
            const std::size_t other = (own + static_cast<std::size_t>(i)) % kOwned.size();
            switch (i % 5) {
            case 0:
                expected = ranges[own].min + static_cast<ULONG>(i) * 7 % (ranges[own].max - ranges[own].min + 1);
                check(set.SetFeatureValue(id, expected) == S_OK);
                break;
            case 1:
                check(set.GetFeatureValue(id, &value) == S_OK && value == expected);
                break;
            case 2:
                check(set.GetFeatureRange(static_cast<ULONG>(kOwned[other]), &range.min, &range.max) == S_OK &&
                      range == ranges[other]);
                break;
            case 3:
                check(set.GetFeatureValueAndMode(id, &value, &mode) == S_OK && value == expected && mode == kManual);
                break;
            default:
                check(set.ReadRegister(kRegister, &value) == S_OK && value == inquiry);
                break;
            }
            if (++done % 5'000 == 0) guard.Step("operation " + std::to_string(done));
        }
    };
    const auto run = [&] {
        std::vector<std::thread> threads;
        for (std::size_t i = 0; i < kOwned.size(); ++i)
            threads.emplace_back(work, i);
        for (std::thread& thread : threads)
            thread.join();
    };

    // A lock makes itself a handle when two threads first meet at it, which may be in any round; a leak of threads or
    // of operations shows in every round.
    const ULONGLONG start = ::GetTickCount64();
    std::vector<Resources> after = {CountResources()};
    for (int round = 0; round < kRounds; ++round) {
        run();
        after.push_back(CountResources());
    }
    const ULONGLONG elapsed = ::GetTickCount64() - start;

    EXPECT_EQ(done, kRounds * kOperations * static_cast<int>(kOwned.size()));
    EXPECT_EQ(wrong, 0);
    std::printf("property operations: %d in %llu ms\n", done.load(), elapsed);
    ExpectFlatRound(after, 4);
}

// ---- Two pages and a still image on one camera
// -------------------------------------------------------------------------

/// A page in a window of its own, polling faster than it would.
class CPollingPage {
public:
    static constexpr UINT kPeriodMs = 10;

    CPollingPage(REFCLSID pageClass, IUnknown* filter) {
        m_window = ::CreateWindowExA(WS_EX_CONTROLPARENT, "STATIC", "frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0,
                                     640, 560, nullptr, nullptr, nullptr, nullptr);
        EXPECT_EQ(CModule::Get().Create(pageClass, nullptr, IID_IPropertyPage,
                                        reinterpret_cast<void**>(m_page.GetAddressOf())),
                  S_OK);
        EXPECT_EQ(m_page->SetPageSite(&m_site), S_OK);
        EXPECT_EQ(m_page->SetObjects(1, &filter), S_OK);
        constexpr RECT kPlace = {10, 10, 610, 510};
        EXPECT_EQ(m_page->Activate(m_window, &kPlace, FALSE), S_OK);
        EXPECT_NE(::SetTimer(Dialog(), 1, kPeriodMs, nullptr), 0U);
    }
    ~CPollingPage() {
        EXPECT_EQ(m_page->Deactivate(), S_OK);
        EXPECT_EQ(m_page->SetObjects(0, nullptr), S_OK);
        EXPECT_EQ(m_page->SetPageSite(nullptr), S_OK);
        m_page.Reset();
        EXPECT_EQ(m_site.references, 1U);
        ::DestroyWindow(m_window);
    }
    CPollingPage(const CPollingPage&) = delete;
    CPollingPage& operator=(const CPollingPage&) = delete;

    [[nodiscard]] HWND Dialog() const { return ::GetWindow(m_window, GW_CHILD); }

private:
    HWND m_window = nullptr;
    CPageSite m_site;
    ComPtr<IPropertyPage> m_page;
};

class SoakedCamera : public StillImageTest {
protected:
    SoakedCamera() { COwnDesktop::Enter(); }
};

TEST_F(SoakedCamera, pages_poll_while_pictures_are_taken_and_nothing_is_used_up) {
    constexpr int kWarmUp = 10;
    constexpr int kCaptures = 150;
    Select();
    const CPollingPage color(CLSID_KolmFluxorPage_Color, m_filter.Get());
    const CPollingPage exposure(CLSID_KolmFluxorPage_Exposure, m_filter.Get());
    CHangGuard guard;
    std::array<int, 2> ticks{};

    // Pictures are taken on a second thread, while this one runs the pages.
    const auto take = [&](int captures) {
        std::atomic<int> taken = 0;
        std::atomic<int> wrong = 0;
        std::atomic<bool> over = false;
        std::thread photographer([&] {
            const HRESULT com = ::CoInitializeEx(nullptr, COINIT_MULTITHREADED);
            for (int i = 0; i < captures; ++i) {
                guard.Step("capture " + std::to_string(i));
                LONG bytes = 0;
                const bool right =
                    m_still->Capture() == S_OK && m_still->GetBufferSize(&bytes) == S_OK && bytes == 640 * 480 * 3;
                wrong += right ? 0 : 1;
                ++taken;
            }
            if (SUCCEEDED(com)) ::CoUninitialize();
            over = true;
        });
        while (!over) {
            ::MsgWaitForMultipleObjects(0, nullptr, FALSE, CPollingPage::kPeriodMs, QS_ALLINPUT);
            MSG message{};
            while (::PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
                if (message.message == WM_TIMER) {
                    ticks[0] += message.hwnd == color.Dialog() ? 1 : 0;
                    ticks[1] += message.hwnd == exposure.Dialog() ? 1 : 0;
                }
                ::DispatchMessageA(&message);
            }
        }
        photographer.join();
        EXPECT_EQ(taken, captures);
        EXPECT_EQ(wrong, 0) << "pictures are missing or of another size";
    };

    take(kWarmUp);
    const Resources before = CountResources();
    ticks = {};
    take(kCaptures);

    std::printf("captures: %d, ticks: %d and %d\n", kCaptures, ticks[0], ticks[1]);
    EXPECT_GT(ticks[0], 4) << "the pages did not poll meanwhile";
    EXPECT_GT(ticks[1], 4);
    // Wine keeps one handle of each graph that has run; what else there is does not come with each capture.
    Resources allowed = before;
    allowed.handles += kCaptures;
    ExpectFlat(allowed, 10);
}

}  // namespace
}  // namespace kolmfluxor::test
