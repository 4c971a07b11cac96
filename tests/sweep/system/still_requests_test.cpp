/// @file  Still pictures beside an open page, with a fault at every driver request of it.

#include <algorithm>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "system/still_image_fixture.h"  // first: it asks the platform's headers for more

#include "frame/frame_page.h"
#include "frame/property_frame.h"
#include "support/box_answerer.h"
#include "support/fault_sweep.h"
#include "support/own_desktop.h"
#include "support/request_faults.h"
#include "support/resources.h"

namespace kolmfluxor::test {
namespace {

using Microsoft::WRL::ComPtr;

constexpr std::uint32_t kTestImage = 3;
constexpr std::uint32_t kValue = 24;
constexpr int kSlack = 10;  // what the system keeps of windows seen for the first time

class StillRequestSweep : public StillImageTest {
protected:
    static void SetUpTestSuite() { COwnDesktop::Enter(); }

    /// A host's visit: a device is selected, its pages are asked for, one is opened on it, and a picture taken while it
    /// is open.
    HRESULT Visit() {
        m_filter.Reset();
        Select();
        EXPECT_TRUE(Camera()->SetFeatureWord(kTestImage, kValue, 1));  // nothing moves
        ComPtr<ISpecifyPropertyPages> specify;
        CAUUID list{};
        EXPECT_EQ(m_filter.As(&specify), S_OK);
        EXPECT_EQ(specify->GetPages(&list), S_OK);
        ::CoTaskMemFree(list.pElems);

        std::vector<std::unique_ptr<kolmctl::FramePage>> pages;
        pages.push_back(std::make_unique<kolmctl::FramePage>(CLSID_KolmFluxorPage_Exposure));
        pages.back()->Connect(*m_filter.Get());
        kolmctl::PropertyFrame frame(L"frame", std::move(pages));
        frame.Show();
        frame.Settle();
        return m_still->Capture();
    }

    void Leave() {
        m_filter.Reset();
        EXPECT_EQ(m_still->Close(), S_OK);
    }

    /// What a sound visit leaves behind: handles that the system keeps of each list of devices and each graph, and
    /// pictures that it keeps of a dialog's template.
    Resources KeptOfVisit() {
        constexpr int kVisits = 4;
        const Resources before = CountResources();
        for (int i = 0; i < kVisits; ++i) {
            EXPECT_EQ(Visit(), S_OK);
            EXPECT_EQ(m_still->Capture(), S_OK);
            Leave();
        }
        const Resources after = CountResources();
        return {.handles = (after.handles - before.handles + kVisits - 1) / kVisits,
                .gdiObjects = (after.gdiObjects - before.gdiObjects + kVisits - 1) / kVisits};
    }

    /// The picture's bytes; empty when there is none.
    Bytes Picture() {
        LONG bytes = -2;
        EXPECT_EQ(m_still->GetBufferSize(&bytes), S_OK);
        Bytes picture(static_cast<std::size_t>(std::max(bytes, 0L)));
        if (bytes >= 0) EXPECT_EQ(m_still->GetBuffer(picture.data()), S_OK);
        return picture;
    }

    CRequestFaults m_requests;
    CBoxAnswerer m_answerer;
};

TEST_F(StillRequestSweep, a_capture_sends_no_request_of_its_own) {
    Select();
    m_requests.Start();
    Capture();
    EXPECT_EQ(m_requests.Count(), 0);
}

TEST_F(StillRequestSweep, whatever_becomes_of_a_request_the_picture_is_right_or_there_is_none) {
    CHangGuard guard;
    guard.Step("without faults");
    ASSERT_EQ(Visit(), S_OK);
    Leave();
    m_requests.Start();
    ASSERT_EQ(Visit(), S_OK);
    const int requests = m_requests.Count();
    const BITMAPINFOHEADER format = PresentType(Config().Get()).Bitmap();
    const Bytes due = MonoAsBgr(Sample(format, 0), format.biWidth, format.biHeight);
    ASSERT_EQ(Picture(), due);
    Leave();

    const Resources kept = KeptOfVisit();
    const auto faults = SweptFaults();
    const Resources before = CountResources();
    int tried = 0;
    for (int n = 1; n <= requests; ++n) {
        const auto number = static_cast<std::size_t>(n);
        // The first request meets each fault, a later one of them in turn: a visit is dear.
        for (std::size_t i = number; i < number + (n == 1 ? faults.size() : 1); ++i) {
            const SweptFault& fault = faults[i % faults.size()];
            const std::string step = "request " + std::to_string(n) + ' ' + fault.name;
            SCOPED_TRACE(step);
            guard.Step(step);
            m_requests.Start(&fault, n);

            const HRESULT result = Visit();

            EXPECT_GE(m_requests.Count(), n) << "was not disturbed";
            const bool isGone = fault.kind == FaultKind::unplug;
            // What the system's graph makes of a device that is gone is its own.
            EXPECT_TRUE(isGone ? FAILED(result) : result == S_OK) << std::hex << result;
            EXPECT_TRUE(Picture() == (isGone ? Bytes() : due));

            m_requests.Start();
            Heal(*Camera());
            EXPECT_EQ(m_still->Capture(), S_OK);
            EXPECT_TRUE(Picture() == due);
            Leave();
            EXPECT_EQ(m_module.CanUnloadNow(), S_FALSE) << "the still image's object";
            ++tried;
        }
    }
    std::printf("%d requests of a visit\n", requests);
    ReportTried("faults tried beside a still image", tried);
    Resources allowed = before;
    allowed.handles += kept.handles * tried;
    allowed.gdiObjects += kept.gdiObjects * tried;
    ExpectFlat(allowed, kSlack);
}

}  // namespace
}  // namespace kolmfluxor::test
