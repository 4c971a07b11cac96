/// @file  Page "Smart feat. 1" linked with the test: what it tells the user, and what it passes on.

#include "pages/smart01_page.h"

#include <gtest/gtest.h>

#include <array>
#include <stdexcept>
#include <string>
#include <vector>

#include <commctrl.h>

#include "controls/page_frame.h"
#include "support/patched_import.h"
#include "support/property_set_stub.h"

extern "C" void* __imp_MessageBoxA;
extern "C" void* __imp_InitCommonControlsEx;

namespace kolmfluxor::test {
namespace {

constexpr int kTestImageLabel = 1135;
constexpr int kTestImages = 1136;

struct Message {
    HWND owner;
    std::string text, caption;
    UINT type;
};
std::vector<Message> g_messages;

int WINAPI RecordMessage(HWND owner, const char* text, const char* caption, UINT type) {
    g_messages.push_back({owner, text, caption, type});
    return IDOK;
}

HWND g_frame = nullptr;
/// Stands in for the call that a page makes when its dialog is there and nothing is filled: empties the label.
BOOL WINAPI BlankLabel(const INITCOMMONCONTROLSEX*) {
    EXPECT_TRUE(::SetDlgItemTextA(::GetWindow(g_frame, GW_CHILD), kTestImageLabel, ""));
    return TRUE;
}

/// A camera with seven test images and nothing else, which is its own filter.
class CTestImageCamera final : public CPropertySetStub {
public:
    bool isCamera = true;
    HRESULT inquiry = S_OK;
    HRESULT current = S_OK;
    std::vector<ULONG> written;
    enum { accept, refuse, raiseText, raiseNumber } onWrite = accept;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** out) override {
        *out = isCamera ? static_cast<IKolmFluxorPropertySet*>(this) : nullptr;
        return isCamera ? S_OK : E_NOINTERFACE;
    }
    HRESULT STDMETHODCALLTYPE GetTestImageInquiry(ULONG* mask) override {
        *mask = 0x7F;
        return inquiry;
    }
    HRESULT STDMETHODCALLTYPE GetTestImage(ULONG* number) override {
        *number = 3;
        return current;
    }
    HRESULT STDMETHODCALLTYPE SetTestImage(ULONG number) override {
        written.push_back(number);
        if (onWrite == raiseText) throw std::runtime_error("the cable is loose");
        if (onWrite == raiseNumber) throw 42;
        return onWrite == refuse ? E_ACCESSDENIED : S_OK;
    }
};

class Smart01 : public ::testing::Test {
protected:
    Smart01() : m_messageBox(&__imp_MessageBoxA, reinterpret_cast<void*>(&RecordMessage)) { g_messages.clear(); }
    ~Smart01() override {
        if (m_page != nullptr) EndPage(m_page);
    }

    void Open() {
        m_page = NewPage<CKolmFluxorPage_Smart01>();
        IUnknown* object = &m_camera;
        ASSERT_EQ(m_page->SetObjects(1, &object), m_camera.isCamera ? S_OK : E_NOINTERFACE);
        ASSERT_EQ(m_frame.Activate(*m_page), S_OK);
    }
    [[nodiscard]] HWND Dialog() const { return m_frame.Dialog(); }
    [[nodiscard]] HWND List() const { return ::GetDlgItem(Dialog(), kTestImages); }
    /// The page's own answer to a choice of the entry at an index; -1 takes the selection away.
    INT_PTR Choose(int index) {
        ::SendMessageA(List(), CB_SETCURSEL, static_cast<WPARAM>(index), 0);
        return m_page->OnReceiveMessage(Dialog(), WM_COMMAND, MAKEWPARAM(kTestImages, CBN_SELCHANGE),
                                        reinterpret_cast<LPARAM>(List()));
    }

    CPageFrame m_frame;
    CTestImageCamera m_camera;
    CKolmFluxorPage_Smart01* m_page = nullptr;

private:
    CPatchedImport m_messageBox;
};

TEST_F(Smart01, a_choice_is_written_and_handled) {
    Open();
    EXPECT_EQ(::SendMessageA(List(), CB_GETCURSEL, 0, 0), 3);
    EXPECT_EQ(Choose(7), 1);
    EXPECT_EQ(Choose(0), 1);
    EXPECT_EQ(m_camera.written, (std::vector<ULONG>{7, 0}));
    EXPECT_TRUE(g_messages.empty());
}

TEST_F(Smart01, a_refused_test_image_shows_no_message) {
    Open();
    m_camera.onWrite = CTestImageCamera::refuse;
    EXPECT_EQ(Choose(2), 1);
    EXPECT_EQ(m_camera.written, std::vector<ULONG>{2});
    EXPECT_TRUE(g_messages.empty());
}

TEST_F(Smart01, a_standard_exception_is_shown_in_a_box_captioned_error_and_the_handler_returns_0) {
    Open();
    m_camera.onWrite = CTestImageCamera::raiseText;
    EXPECT_EQ(Choose(2), 0);
    ASSERT_EQ(g_messages.size(), 1u);
    EXPECT_EQ(g_messages[0].owner, Dialog());
    EXPECT_EQ(g_messages[0].text, "the cable is loose");
    EXPECT_EQ(g_messages[0].caption, "error");
    EXPECT_EQ(g_messages[0].type, static_cast<UINT>(MB_OK));
}

TEST_F(Smart01, a_failing_list_is_shown_too_and_nothing_is_written) {
    Open();
    EXPECT_EQ(Choose(-1), 0);
    ASSERT_EQ(g_messages.size(), 1u);
    EXPECT_EQ(g_messages[0].text, "CComboBoxFeatureCtrl::SelectedValue: error getting current selection from combobox");
    EXPECT_TRUE(m_camera.written.empty());
}

TEST_F(Smart01, any_other_exception_passes_on) {
    Open();
    m_camera.onWrite = CTestImageCamera::raiseNumber;
    EXPECT_THROW(Choose(2), int);
    EXPECT_TRUE(g_messages.empty());
}

TEST_F(Smart01, only_s_ok_counts_as_success_while_filling) {
    for (const HRESULT code : {E_ACCESSDENIED, static_cast<HRESULT>(S_FALSE)}) {
        m_camera.inquiry = code;
        m_camera.current = S_OK;
        Open();
        EXPECT_EQ(::SendMessageA(List(), CB_GETCOUNT, 0, 0), 0);
        EXPECT_FALSE(::IsWindowEnabled(List()));
        EXPECT_EQ(m_page->Deactivate(), S_OK);

        m_camera.inquiry = S_OK;
        m_camera.current = code;
        EXPECT_EQ(m_frame.Activate(*m_page), S_OK);
        EXPECT_EQ(::SendMessageA(List(), CB_GETCOUNT, 0, 0), 8);
        EXPECT_EQ(::SendMessageA(List(), CB_GETCURSEL, 0, 0), CB_ERR);
        EXPECT_TRUE(::IsWindowEnabled(List()));
        EXPECT_EQ(m_page->Deactivate(), S_OK);
        EXPECT_EQ(m_page->SetObjects(0, nullptr), S_OK);
        EXPECT_EQ(m_page->Release(), 0u);
        m_page = nullptr;
    }
    EXPECT_TRUE(g_messages.empty()) << "silently";
}

TEST_F(Smart01, without_a_camera_the_test_images_are_disabled_under_their_label) {
    m_camera.isCamera = false;
    g_frame = m_frame.Window();
    const CPatchedImport patch(&__imp_InitCommonControlsEx, reinterpret_cast<void*>(&BlankLabel));
    Open();
    std::array<char, 64> label{};
    ::GetDlgItemTextA(Dialog(), kTestImageLabel, label.data(), static_cast<int>(label.size()));
    EXPECT_STREQ(label.data(), "Image Nr.");
    EXPECT_FALSE(::IsWindowEnabled(::GetDlgItem(Dialog(), kTestImageLabel)));
    EXPECT_FALSE(::IsWindowEnabled(List()));
    EXPECT_EQ(::SendMessageA(List(), CB_GETCOUNT, 0, 0), 0);
    EXPECT_EQ(Choose(0), 0) << "nobody to tell";
}

}  // namespace
}  // namespace kolmfluxor::test
