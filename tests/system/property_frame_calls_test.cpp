/// @file  kolmctl's property frame as a page sees it: which calls come, in which order.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <memory>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include <windows.h>

#include <objbase.h>
#include <ocidl.h>
#include <olectl.h>
#include <wrl/client.h>

#include "errors.h"
#include "frame/frame_page.h"
#include "frame/property_frame.h"
#include "frame/resource.h"

namespace kolmfluxor::test {
namespace {

using kolmctl::FramePage;
using kolmctl::PropertyFrame;
using ::testing::ElementsAre;

constexpr CLSID kPageClass = {0x3ad0b8a5, 0x71c2, 0x4d55, {0x9e, 0x1b, 0x52, 0x0c, 0x6f, 0x3a, 0x11, 0x7d}};

/// A page that notes its calls. Lives in the test, so its count only says what is still held.
class CRecordingPage final : public IPropertyPage {
public:
    std::vector<std::string> calls;
    ULONG references = 1;
    HRESULT setObjectsResult = S_OK;
    HRESULT activateResult = S_OK;
    HRESULT dirty = S_FALSE;
    Microsoft::WRL::ComPtr<IPropertyPageSite> site;

    // IUnknown
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** out) override {
        *out = riid == IID_IUnknown || riid == IID_IPropertyPage ? static_cast<IPropertyPage*>(this) : nullptr;
        if (*out == nullptr) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }

    // IPropertyPage
    HRESULT STDMETHODCALLTYPE SetPageSite(IPropertyPageSite* given) override {
        site = given;
        return Note(given != nullptr ? "SetPageSite" : "SetPageSite null");
    }
    HRESULT STDMETHODCALLTYPE Activate(HWND parent, LPCRECT place, BOOL) override {
        Note("Activate");
        if (activateResult != S_OK) return activateResult;
        m_window = ::CreateWindowExA(0, "STATIC", "page", WS_CHILD, place->left, place->top, 10, 10, parent, nullptr,
                                     nullptr, nullptr);
        return m_window != nullptr ? S_OK : E_FAIL;
    }
    HRESULT STDMETHODCALLTYPE Deactivate() override {
        ::DestroyWindow(m_window);
        return Note("Deactivate");
    }
    HRESULT STDMETHODCALLTYPE GetPageInfo(PROPPAGEINFO* info) override {
        *info = {};
        info->cb = sizeof *info;
        info->size = {.cx = 200, .cy = 100};
        info->pszTitle = static_cast<wchar_t*>(::CoTaskMemAlloc(sizeof L"Page"));
        std::copy(std::begin(L"Page"), std::end(L"Page"), info->pszTitle);
        return Note("GetPageInfo");
    }
    HRESULT STDMETHODCALLTYPE SetObjects(ULONG count, IUnknown**) override {
        Note("SetObjects " + std::to_string(count));
        return count != 0 ? setObjectsResult : S_OK;
    }
    HRESULT STDMETHODCALLTYPE Show(UINT command) override { return Note(command == SW_HIDE ? "Hide" : "Show"); }
    HRESULT STDMETHODCALLTYPE Move(LPCRECT) override { return Note("Move"); }
    HRESULT STDMETHODCALLTYPE IsPageDirty() override { return dirty; }
    HRESULT STDMETHODCALLTYPE Apply() override {
        dirty = S_FALSE;
        return Note("Apply");
    }
    HRESULT STDMETHODCALLTYPE Help(LPCOLESTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG*) override { return E_NOTIMPL; }

private:
    HRESULT Note(std::string call) {
        calls.push_back(std::move(call));
        return S_OK;
    }

    HWND m_window = nullptr;
};

/// Creates the class of the pages: hands out the test's pages, one after the other.
class CPageFactory final : public IClassFactory {
public:
    explicit CPageFactory(std::vector<CRecordingPage*> pages) : m_pages(std::move(pages)) {
        EXPECT_EQ(::CoRegisterClassObject(kPageClass, this, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &m_cookie), S_OK);
    }
    ~CPageFactory() { EXPECT_EQ(::CoRevokeClassObject(m_cookie), S_OK); }
    CPageFactory(const CPageFactory&) = delete;
    CPageFactory& operator=(const CPageFactory&) = delete;

    // IUnknown
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** out) override {
        *out = riid == IID_IUnknown || riid == IID_IClassFactory ? static_cast<IClassFactory*>(this) : nullptr;
        return *out != nullptr ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    // IClassFactory
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID riid, void** out) override {
        return m_pages.at(m_next++)->QueryInterface(riid, out);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

private:
    std::vector<CRecordingPage*> m_pages;
    std::size_t m_next = 0;
    DWORD m_cookie = 0;
};

class OwnFrameCalls : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(::CoInitialize(nullptr), S_OK); }

    void TearDown() override {
        EXPECT_EQ(m_first.references, 1U);
        EXPECT_EQ(m_second.references, 1U);
        EXPECT_EQ(m_first.site.Get(), nullptr);
        ::CoUninitialize();
    }

    /// A frame with both pages.
    [[nodiscard]] std::unique_ptr<PropertyFrame> OpenFrame() {
        const CPageFactory factory({&m_first, &m_second});
        std::vector<std::unique_ptr<FramePage>> pages;
        for (int i = 0; i < 2; ++i) {
            pages.push_back(std::make_unique<FramePage>(kPageClass));
        }
        for (const auto& page : pages) {
            page->Connect(m_first);  // any object does
        }
        auto frame = std::make_unique<PropertyFrame>(L"frame", std::move(pages));
        frame->Show();
        frame->Settle();
        return frame;
    }

    static bool CanApply(const PropertyFrame& frame) {
        return ::IsWindowEnabled(::GetDlgItem(frame.Window(), IDC_APPLY)) != FALSE;
    }

    CRecordingPage m_first;
    CRecordingPage m_second;
};

TEST_F(OwnFrameCalls, OK_applies_what_was_shown_and_disconnects_every_page) {
    const auto frame = OpenFrame();
    ::PostMessageW(frame->Window(), WM_COMMAND, IDOK, 0);
    frame->Run();

    EXPECT_THAT(m_first.calls, ElementsAre("SetPageSite", "GetPageInfo", "SetObjects 1", "Activate", "Show", "Apply",
                                           "Deactivate", "SetObjects 0", "SetPageSite null"));
    EXPECT_THAT(m_second.calls,
                ElementsAre("SetPageSite", "GetPageInfo", "SetObjects 1", "SetObjects 0", "SetPageSite null"));
}

TEST_F(OwnFrameCalls, Cancel_applies_nothing) {
    const auto frame = OpenFrame();
    ::PostMessageW(frame->Window(), WM_COMMAND, IDCANCEL, 0);
    frame->Run();

    EXPECT_THAT(m_first.calls, ElementsAre("SetPageSite", "GetPageInfo", "SetObjects 1", "Activate", "Show",
                                           "Deactivate", "SetObjects 0", "SetPageSite null"));
}

TEST_F(OwnFrameCalls, reports_of_a_page_enable_and_disable_Apply) {
    const auto frame = OpenFrame();
    EXPECT_FALSE(CanApply(*frame));

    m_first.dirty = S_OK;
    EXPECT_EQ(m_first.site->OnStatusChange(PROPPAGESTATUS_DIRTY), S_OK);
    EXPECT_TRUE(CanApply(*frame));

    m_first.dirty = S_FALSE;
    EXPECT_EQ(m_first.site->OnStatusChange(PROPPAGESTATUS_CLEAN), S_OK);
    EXPECT_FALSE(CanApply(*frame));
}

TEST_F(OwnFrameCalls, the_site_goes_with_its_page) {
    Microsoft::WRL::ComPtr<IPropertyPageSite> site;
    {
        const auto frame = OpenFrame();
        site = m_first.site;
    }
    EXPECT_EQ(site.Reset(), 0u) << "the frame keeps a site without a page";
}

TEST_F(OwnFrameCalls, a_page_that_refuses_its_object_is_taken_back) {
    m_second.setObjectsResult = E_NOINTERFACE;

    EXPECT_THROW(std::ignore = OpenFrame(), kolmctl::CallError);

    EXPECT_THAT(m_first.calls,
                ElementsAre("SetPageSite", "GetPageInfo", "SetObjects 1", "SetObjects 0", "SetPageSite null"));
    EXPECT_THAT(m_second.calls,
                ElementsAre("SetPageSite", "GetPageInfo", "SetObjects 1", "SetObjects 0", "SetPageSite null"));
}

TEST_F(OwnFrameCalls, a_page_that_cannot_be_shown_is_taken_back) {
    m_first.activateResult = E_OUTOFMEMORY;

    EXPECT_THROW(std::ignore = OpenFrame(), kolmctl::CallError);

    EXPECT_THAT(m_first.calls, ElementsAre("SetPageSite", "GetPageInfo", "SetObjects 1", "Activate", "SetObjects 0",
                                           "SetPageSite null"));
}

}  // namespace
}  // namespace kolmfluxor::test
