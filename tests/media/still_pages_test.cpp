/// @file  The property frames of a still-image object: what they are opened with, and what fails before.

#include <functional>

#include <olectl.h>

#include "media/scripted_pages.h"
#include "media/still_fixture.h"
#include "support/counted_task_memory.h"
#include "support/patched_import.h"

extern "C" {
extern void* __imp_OleCreatePropertyFrame;
extern void* __imp_GetShellWindow;
}

namespace kolmfluxor::test {
namespace {

HWND const kShellWindow = reinterpret_cast<HWND>(0x7770);
HWND const kParent = reinterpret_cast<HWND>(0x1110);

/// What the system's frame was opened with.
struct Frame {
    int calls = 0;
    HWND owner = nullptr;
    UINT x = 0, y = 0;
    std::wstring caption;
    IUnknown* object = nullptr;
    std::vector<GUID> pages;
    HRESULT result = S_OK;
    std::function<void()> meanwhile;  ///< what the host does while the frame is open
};
Frame g_frame;

HRESULT STDAPICALLTYPE OpenFrame(HWND owner, UINT x, UINT y, LPCOLESTR caption, ULONG objects, IUnknown** object,
                                 ULONG pages, CLSID* pageIds, LCID locale, DWORD reserved, void* alsoReserved) {
    EXPECT_EQ(objects, 1u);
    EXPECT_EQ(locale, 0u);
    EXPECT_TRUE(reserved == 0 && alsoReserved == nullptr);
    g_frame = {g_frame.calls + 1, owner, x, y, caption, *object, {pageIds, pageIds + pages}, g_frame.result,
               g_frame.meanwhile};
    if (g_frame.meanwhile) g_frame.meanwhile();
    return g_frame.result;
}

HWND WINAPI ShellWindow() {
    return kShellWindow;
}

class StillPages : public StillFixture {
protected:
    StillPages() { g_frame = {}; }
    ~StillPages() override { EXPECT_EQ(m_pages.references, 0u); }

    void OfferPages() {
        const auto offer = [this](REFIID riid, void** out) { return m_pages.QueryInterface(riid, out); };
        Device().otherInterfaces = offer;
        m_graph->configInterfaces = offer;
    }

    CSpecifiedPages m_pages;
    const CPatchedImport m_openFrame{&__imp_OleCreatePropertyFrame, reinterpret_cast<void*>(&OpenFrame)};
    const CPatchedImport m_shellWindow{&__imp_GetShellWindow, reinterpret_cast<void*>(&ShellWindow)};
};

TEST_F(StillPages, of_the_device_stand_at_30_30_in_the_desktops_or_the_parents_frame) {
    Select();
    OfferPages();
    const CCountedTaskMemory memory;
    for (HWND const parent : {HWND{nullptr}, kParent}) {
        EXPECT_EQ(m_still->ShowDevicePropertyPages(parent, L"My caption"), S_OK);

        EXPECT_EQ(g_frame.owner, parent != nullptr ? parent : ::GetDesktopWindow());
        EXPECT_EQ(g_frame.x, 30u);
        EXPECT_EQ(g_frame.y, 30u);
        EXPECT_EQ(g_frame.caption, L"My caption");
        EXPECT_EQ(g_frame.object, Device().Filter());
        EXPECT_EQ(g_frame.pages, std::vector<GUID>(std::begin(kSpecifiedPages), std::end(kSpecifiedPages)));
    }
    EXPECT_EQ(g_frame.calls, 2);
    EXPECT_TRUE(m_graph->calls.empty()) << "no graph is needed";
    EXPECT_EQ(memory.Live(), 0u) << "the list of pages is freed";
}

TEST_F(StillPages, of_the_stream_fall_back_on_the_shells_window_and_need_an_unconnected_graph) {
    Select();
    OfferPages();
    for (HWND const parent : {HWND{nullptr}, kParent}) {
        m_graph->calls.clear();
        EXPECT_EQ(m_still->ShowStreamPropertyPages(parent, L"stream"), S_OK);

        EXPECT_EQ(g_frame.owner, parent != nullptr ? parent : kShellWindow);
        EXPECT_EQ(g_frame.x, 30u);
        EXPECT_EQ(g_frame.y, 30u);
        EXPECT_EQ(g_frame.caption, L"stream");
        EXPECT_NE(g_frame.object, Device().Filter());
        EXPECT_EQ(g_frame.pages.size(), 2u);
        EXPECT_EQ(m_graph->calls.back(), "FindInterface");
        EXPECT_EQ(std::ranges::count(m_graph->calls, "RenderStream"), 0);
        EXPECT_EQ(m_graph->references, 0u);
    }
}

TEST_F(StillPages, codes_are_passed_through) {
    Select();
    EXPECT_EQ(m_still->ShowDevicePropertyPages(nullptr, L""), E_NOINTERFACE);
    EXPECT_EQ(m_still->ShowStreamPropertyPages(nullptr, L""), E_NOINTERFACE);
    EXPECT_EQ(m_graph->references, 0u);
    OfferPages();
    m_pages.result = E_ABORT;
    EXPECT_EQ(m_still->ShowDevicePropertyPages(nullptr, L""), E_ABORT);
    EXPECT_EQ(m_still->ShowStreamPropertyPages(nullptr, L""), E_ABORT);
    m_pages.result = S_OK;
    m_pages.count = 0;
    EXPECT_EQ(m_still->ShowDevicePropertyPages(nullptr, L""), E_FAIL) << "nothing to show";
    EXPECT_EQ(m_still->ShowStreamPropertyPages(nullptr, L""), E_FAIL);
    EXPECT_EQ(g_frame.calls, 0);

    m_pages.count = 1;
    g_frame.result = E_ACCESSDENIED;
    EXPECT_EQ(m_still->ShowDevicePropertyPages(nullptr, L""), E_ACCESSDENIED);
    EXPECT_EQ(m_still->ShowStreamPropertyPages(nullptr, L""), E_ACCESSDENIED);
    EXPECT_EQ(g_frame.calls, 2);
    EXPECT_EQ(m_graph->references, 0u);
}

TEST_F(StillPages, of_the_stream_pass_on_every_failure_of_the_graph) {
    Select();
    OfferPages();
    ASSERT_EQ(m_still->ShowStreamPropertyPages(nullptr, L""), S_OK);
    const std::vector<std::string> chain = m_graph->calls;
    EXPECT_EQ(chain.size(), 12u);
    for (const std::string& name : chain) {
        SCOPED_TRACE(name);
        m_graph->results = {{name, E_ABORT}};
        g_frame.calls = 0;
        EXPECT_EQ(m_still->ShowStreamPropertyPages(nullptr, L""), E_ABORT);
        EXPECT_EQ(g_frame.calls, 0);
        EXPECT_EQ(m_graph->references, 0u);
    }
}

TEST_F(StillPages, without_a_device_there_are_none) {
    OfferPages();
    EXPECT_EQ(m_still->ShowDevicePropertyPages(nullptr, L""), E_FAIL);
    EXPECT_EQ(m_still->ShowStreamPropertyPages(nullptr, L""), E_FAIL);
    EXPECT_TRUE(m_graph->calls.empty());
}

TEST_F(StillPages, keep_what_they_show_when_the_host_closes_and_releases_all_meanwhile) {
    OfferPages();
    using Show = HRESULT (STDMETHODCALLTYPE IKolmStillImage::*)(HWND, const wchar_t*);
    for (const Show show : {&IKolmStillImage::ShowDevicePropertyPages, &IKolmStillImage::ShowStreamPropertyPages}) {
        const bool isStream = show == Show{&IKolmStillImage::ShowStreamPropertyPages};
        SCOPED_TRACE(isStream ? "stream" : "device");
        m_still = NewStillImage();
        Select();
        g_frame.calls = 0;
        g_frame.meanwhile = [&] {
            EXPECT_EQ(m_still->Close(), S_OK);
            EXPECT_GT(m_still.Reset(), 0u) << "the host's last reference, but the frame is open";
            EXPECT_EQ(CBaseObject::ObjectsActive(), 1);

            // What is shown is held once, by the frame's caller; all else is given back at once.
            EXPECT_EQ(m_graph->references, isStream ? 1u : 0u);
            EXPECT_EQ(Device().references.filter, isStream ? 0u : 1u);
            Microsoft::WRL::ComPtr<ISpecifyPropertyPages> pages;
            EXPECT_EQ(g_frame.object->QueryInterface(IID_PPV_ARGS(&pages)), S_OK);
        };
        IKolmStillImage* const still = m_still.Get();

        EXPECT_EQ((still->*show)(nullptr, L""), S_OK);

        EXPECT_EQ(g_frame.calls, 1);
        EXPECT_EQ(CBaseObject::ObjectsActive(), 0);
        EXPECT_EQ(m_graph->references, 0u);
        EXPECT_EQ(Device().references.filter, 0u);
        EXPECT_EQ(m_pages.references, 0u);
    }
}

TEST_F(StillPages, of_the_stream_survive_a_picture_that_the_host_takes_meanwhile) {
    Select();
    OfferPages();
    g_frame.meanwhile = [&] {
        m_graph->calls.clear();
        EXPECT_EQ(m_still->Capture(), S_OK);
        EXPECT_GT(m_graph->references, 0u) << "the stream that is shown has gone";
    };
    EXPECT_EQ(m_still->ShowStreamPropertyPages(nullptr, L""), S_OK);
    EXPECT_EQ(g_frame.calls, 1);
    EXPECT_EQ(Picture().size(), 18u);
    EXPECT_EQ(m_graph->references, 0u) << "the graph that was there before the picture's is left over";
    EXPECT_EQ(Device().references.filter, 1u);
}

TEST_F(StillPages, showing_them_keeps_the_picture) {
    Select();
    OfferPages();
    ASSERT_EQ(m_still->Capture(), S_OK);
    ASSERT_EQ(m_still->ShowStreamPropertyPages(nullptr, L""), S_OK);
    EXPECT_EQ(Picture().size(), 18u);
}

}  // namespace
}  // namespace kolmfluxor::test
