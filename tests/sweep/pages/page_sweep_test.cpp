/// @file  Every page, with every fault at every driver request of its opening and of everything a user can do on it.

#include <algorithm>
#include <cstdio>
#include <memory>
#include <ostream>
#include <string>
#include <tuple>

#include <gmock/gmock.h>

#include "support/box_answerer.h"
#include "support/fault_sweep.h"
#include "support/lut_text_file.h"
#include "support/modal_user.h"
#include "support/resources.h"
#include "support/scripted_filter.h"
#include "support/wine.h"
#include "sweep/pages/page_actions.h"

namespace kolmfluxor::test {
namespace {

using ::testing::ElementsAreArray;

constexpr int kLoadLut = 1063;
constexpr ULONG kModeWord = 28;
constexpr ULONG kManual = 0x2;
constexpr ULONG kMovesByItself = 0x8 | 0x10;
constexpr ULONG kProperties = 70;
constexpr int kSlack = 10;  // what the system keeps of controls seen for the first time

struct SweptPage {
    const char* name;
    const CLSID& classId;
    int file = 0;  ///< the button that asks for a file, without which the page can do less

    friend void PrintTo(const SweptPage& page, std::ostream* out) { *out << page.name; }
};

const SweptPage kPages[] = {
    {"Color", CLSID_KolmFluxorPage_Color},
    {"Trigger", CLSID_KolmFluxorPage_Trigger},
    {"Info", CLSID_KolmFluxorPage_Info},
    {"Format", CLSID_KolmFluxorPage_Format},
    {"DirectAccess", CLSID_KolmFluxorPage_DirectAccess},
    {"Exposure", CLSID_KolmFluxorPage_Exposure},
    {"Smart01", CLSID_KolmFluxorPage_Smart01},
    {"Lut", CLSID_KolmFluxorPage_Lut, kLoadLut},
};

/// What such an answer made the object believe of the camera, it believes as long as it lives.
bool Misleads(const SweptFault& fault) {
    return fault.kind == FaultKind::cut || fault.kind == FaultKind::garbage;
}

class PageSweep : public PageTest, public ::testing::WithParamInterface<SweptPage> {
protected:
    PageSweep()
        : m_file(LutText({"half", "whole"}, 4096,
                         [](std::size_t row, std::size_t lut) { return static_cast<unsigned>(row / (2 - lut)); })) {
        m_filter.formats = {Format7Mode(0, 1280, 960), FixedMode(640, 480, FourCc("Y800"), 8, 5)};
        Replug();
    }

    /// A new object on a new camera.
    void Replug() {
        Renew(L"color");
        Object().Filter().Offer(IID_IBaseFilter, m_filter.Filter());
    }

    std::unique_ptr<CPageHost> Open() {
        auto page = std::make_unique<CPageHost>(GetParam().classId, Object());
        CountPictures(*page);
        Prepare(*page);
        return page;
    }
    void Reactivate(CPageHost& page) {
        page.Reactivate();
        CountPictures(page);
        Prepare(page);
    }
    /// Wine's static controls keep the pictures that they took from a dialog's template; those of Windows free them.
    void CountPictures(const CPageHost& page) {
        if (!IsWine()) return;
        for (HWND window = ::GetWindow(page.Dialog(), GW_CHILD); window != nullptr;
             window = ::GetWindow(window, GW_HWNDNEXT)) {
            if (::SendMessageA(window, STM_GETIMAGE, IMAGE_BITMAP, 0) != 0) ++m_picturesKept;
        }
    }
    /// A user who answers what the page asks.
    void Do(const PageAction& action, CPageHost& page, int round) {
        if (GetParam().file == 0) {
            action.run(page, round);
            return;
        }
        CModalUser user(m_file.Path());
        action.run(page, round);
    }
    void Prepare(CPageHost& page) {
        if (GetParam().file == 0 || !m_withFile) return;
        Do({"load", [](CPageHost& host, int) { host.Click(GetParam().file); }}, page, 0);
        m_filesAsked += IsWine() ? 1 : 0;
    }

    /// How many requests an action sends at most.
    std::size_t RequestsOf(const PageAction& action, CPageHost& page) {
        std::size_t most = 0;
        for (int round = 0; round < 4; ++round) {
            Object().Forget();
            Do(action, page, round);
            most = std::max(most, Object().Sent().size());
        }
        return most;
    }

    /// The action with each of the faults that mislead, or each that do not, at each of its requests.
    void Sweep(const PageAction& action, std::size_t requests, CPageHost& page, bool misleading) {
        int round = 0;
        for (std::size_t n = 1; n <= requests; ++n) {
            std::size_t turn = n;
            for (const SweptFault& fault : SweptFaults()) {
                if (Misleads(fault) != misleading) continue;
                // The first request meets each fault, a later one every other of them.
                if (n > 1 && ++turn % 2 == 0) continue;
                const std::string step = action.name + ", request " + std::to_string(n) + ' ' + fault.name;
                SCOPED_TRACE(step);
                m_guard.Step(std::string(GetParam().name) + ": " + step);
                Object().Forget();
                Inject(Camera(), fault, static_cast<int>(n));
                Do(action, page, round++);
                m_tried += Camera().RequestCount() >= n ? 1 : 0;
                Heal(Camera());
            }
            page.Tick();
        }
    }

    /// No value moves by itself from one look to the next.
    void HoldStill() {
        for (ULONG id = 0; id < kProperties; ++id) {
            std::uint32_t mode = 0;
            if (Camera().GetFeatureWord(id, kModeWord, &mode) && (mode & kMovesByItself) != 0)
                Camera().SetFeatureWord(id, kModeWord, kManual);
        }
    }

    CScriptedFilter m_filter;
    const CLutTextFile m_file;
    CHangGuard m_guard;
    int m_tried = 0;
    int m_picturesKept = 0;
    int m_filesAsked = 0;  ///< Wine keeps a handle of each open-file dialog, whoever shows it
    bool m_withFile = true;
    CBoxAnswerer m_answerer;
};

TEST_P(PageSweep, survives_every_fault_of_every_action_and_shows_the_camera_afterwards) {
    constexpr std::size_t kBetweenLooks = 4;  // a look costs two openings
    auto page = Open();
    const std::vector<PageAction> actions = ActionsOf(*page);
    EXPECT_GE(actions.size(), 4U);
    std::vector<std::size_t> requests;
    for (const PageAction& action : actions) {
        m_guard.Step("counting: " + action.name);
        requests.push_back(RequestsOf(action, *page));
    }
    const Resources before = CountResources();
    for (std::size_t i = 0; i < actions.size(); ++i) {
        SCOPED_TRACE(actions[i].name);
        Sweep(actions[i], requests[i], *page, false);
        if ((i + 1) % kBetweenLooks != 0 && i + 1 != actions.size()) continue;

        HoldStill();
        Reactivate(*page);
        const std::vector<std::string> shown = Snapshot(*page);
        page.reset();
        page = Open();
        EXPECT_THAT(shown, ElementsAreArray(Snapshot(*page))) << "after the faults it shows not what a new page shows";
    }
    for (std::size_t i = 0; i < actions.size(); ++i)
        Sweep(actions[i], requests[i], *page, true);
    std::printf("%zu actions on page %s\n", actions.size(), GetParam().name);
    ReportTried((std::string("faults tried at actions of page ") + GetParam().name).c_str(), m_tried);
    Resources allowed = before;
    allowed.handles += m_filesAsked;
    ExpectFlat(allowed, kSlack, m_picturesKept);
}

class PageOpeningSweep : public PageSweep {
protected:
    PageOpeningSweep() { m_withFile = false; }
};

TEST_P(PageOpeningSweep, opens_whatever_becomes_of_any_request_and_recovers) {
    Object().Forget();
    const std::vector<std::string> sound = Snapshot(*Open());
    const std::size_t requests = Object().Sent().size();
    const Resources before = CountResources();
    if (requests == 0) {
        EXPECT_STREQ(GetParam().name, "DirectAccess") << "the one page that opens without a look at the camera";
        return;
    }
    const auto faults = SweptFaults();
    for (std::size_t n = 1; n <= requests; ++n) {
        // One of the faults in turn: an opening is dear. The first request, on which all hangs, meets each of them.
        for (std::size_t i = n; i < n + (n == 1 ? faults.size() : 1); ++i) {
            const SweptFault& fault = faults[i % faults.size()];
            const std::string step = "request " + std::to_string(n) + ' ' + fault.name;
            SCOPED_TRACE(step);
            m_guard.Step(std::string("opening ") + GetParam().name + ": " + step);
            Replug();
            Inject(Camera(), fault, static_cast<int>(n));
            auto page = Open();
            ++m_tried;
            Heal(Camera());
            page->Tick();
            // Activated again, the page is as if nothing had been; every other time, for an opening is dear.
            if (Misleads(fault) || i % 2 != 0) continue;
            Reactivate(*page);
            EXPECT_THAT(Snapshot(*page), ElementsAreArray(sound));
        }
    }
    ReportTried((std::string("faults tried at the opening of page ") + GetParam().name).c_str(), m_tried);
    ExpectFlat(before, kSlack, m_picturesKept);
}

INSTANTIATE_TEST_SUITE_P(Pages, PageSweep, ::testing::ValuesIn(kPages),
                         [](const auto& page) { return std::string(page.param.name); });

INSTANTIATE_TEST_SUITE_P(Pages, PageOpeningSweep, ::testing::ValuesIn(kPages),
                         [](const auto& page) { return std::string(page.param.name); });

}  // namespace
}  // namespace kolmfluxor::test
