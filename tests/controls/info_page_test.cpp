/// @file  Page "Info" with each of the interface's answers scripted by itself.

#include "pages/info_page.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "controls/page_frame.h"
#include "support/counted_task_memory.h"
#include "support/page_site.h"
#include "support/patched_import.h"
#include "support/property_set_stub.h"

extern "C" void* __imp_SetTimer;
extern "C" void* __imp_KillTimer;

namespace kolmfluxor::test {
namespace {

constexpr int kTexts[] = {1044, 1042, 1043};
constexpr int kSerialNumber = 1052;
constexpr ULONG kSelectors[] = {5, 6, 41, 42, 43, 44};
constexpr int kFigures[] = {1045, 1046, 1157, 1158, 1159, 1160};

/// Gives texts in task memory and a figure for each selector; notes what it is asked.
class CInfoCamera final : public CPropertySetStub {
public:
    std::array<std::optional<std::string>, 3> texts = {"Maker", "Model", "Driver 1"};  ///< none: a null pointer
    ULONG number = 1234;
    HRESULT infoResult = S_OK;
    std::map<ULONG, ULONG> figures = {{5, 0x01020304}, {6, 0x0A0B0C0D},  {41, 1024},
                                      {42, 3072},      {43, 0x80000001}, {44, 3}};
    std::map<ULONG, HRESULT> results;  ///< of selectors that do not answer `S_OK`
    std::vector<ULONG> asked;          ///< selectors; 0 for the camera information
    ULONG references = 1;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** out) override {
        *out = riid == __uuidof(IKolmFluxorPropertySet) ? this : nullptr;
        if (*out == nullptr) return E_NOINTERFACE;
        ++references;
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }
    HRESULT STDMETHODCALLTYPE GetCameraInfo(char** a, char** b, char** c, ULONG* numberOut) override {
        asked.push_back(0);
        if (FAILED(infoResult)) return infoResult;
        char** const outputs[] = {a, b, c};
        for (std::size_t i = 0; i < texts.size(); ++i) {
            if (!texts[i]) continue;
            *outputs[i] = static_cast<char*>(::CoTaskMemAlloc(texts[i]->size() + 1));
            std::memcpy(*outputs[i], texts[i]->c_str(), texts[i]->size() + 1);
        }
        *numberOut = number;
        return infoResult;
    }
    HRESULT STDMETHODCALLTYPE GetProperty56Composite(ULONG selector, ULONG* value) override {
        asked.push_back(selector);
        *value = figures.at(selector);
        const auto found = results.find(selector);
        return found != results.end() ? found->second : S_OK;
    }
};

int g_timerCalls = 0;

UINT_PTR WINAPI CountSetTimer(HWND, UINT_PTR id, UINT, TIMERPROC) {
    ++g_timerCalls;
    return id;
}

BOOL WINAPI CountKillTimer(HWND, UINT_PTR) {
    ++g_timerCalls;
    return TRUE;
}

class InfoPage : public ::testing::Test {
protected:
    InfoPage() { EXPECT_EQ(m_page->SetPageSite(&m_site), S_OK); }
    ~InfoPage() override {
        if (Dialog() != nullptr) EXPECT_EQ(m_page->Deactivate(), S_OK);
        EXPECT_EQ(m_page->SetObjects(0, nullptr), S_OK);
        EXPECT_EQ(m_page->SetPageSite(nullptr), S_OK);
        EXPECT_EQ(m_page->Release(), 0u);
        EXPECT_EQ(m_camera.references, 1u);
    }

    void Open() {
        IUnknown* object = &m_camera;
        EXPECT_EQ(m_page->SetObjects(1, &object), S_OK);
        EXPECT_EQ(m_frame.Activate(*m_page), S_OK);
    }
    [[nodiscard]] HWND Dialog() const { return m_frame.Dialog(); }
    [[nodiscard]] std::string Text(int id) const { return m_frame.Text(id); }
    template <class Range> [[nodiscard]] std::vector<std::string> Texts(const Range& ids) const {
        std::vector<std::string> texts;
        for (const int id : ids)
            texts.push_back(Text(id));
        return texts;
    }

    CPageFrame m_frame;
    CInfoCamera m_camera;
    CPageSite m_site;
    IPropertyPage* m_page = NewPage<CKolmFluxorPage_Info>();
};

using Strings = std::vector<std::string>;

const Strings kShownFigures = {
    "12.03.04", "ab.0c.0d", "1024", "3072", "10000000000000000000000000000001", "00000000000000000000000000000011"};
const Strings kUnfilledFigures = {"Statisch", "Statisch", "Static", "Static", "Static", "Static"};
const std::vector<ULONG> kAllAsked = {0, 5, 6, 41, 42, 43, 44};

TEST_F(InfoPage, asks_once_for_each_part_in_order_and_shows_it) {
    Open();
    EXPECT_EQ(m_camera.asked, kAllAsked);
    EXPECT_EQ(Texts(kTexts), (Strings{"Maker", "Model", "Driver 1"}));
    EXPECT_EQ(Text(kSerialNumber), "00001234");
    EXPECT_EQ(Texts(kFigures), kShownFigures);
}

TEST_F(InfoPage, failed_camera_information_leaves_its_four_fields_and_the_rest_fills) {
    for (const HRESULT code : {E_ACCESSDENIED, S_FALSE}) {
        m_camera.infoResult = code;
        Open();
        EXPECT_EQ(Texts(kTexts), (Strings{"Statisch", "Statisch", "Statisch"}));
        EXPECT_EQ(Text(kSerialNumber), "Statisch");
        EXPECT_EQ(Texts(kFigures), kShownFigures);
        EXPECT_EQ(m_page->Deactivate(), S_OK);
        EXPECT_EQ(m_page->SetObjects(0, nullptr), S_OK);
    }
}

TEST_F(InfoPage, each_failed_figure_leaves_its_field_and_the_rest_fills) {
    for (const HRESULT code : {E_ACCESSDENIED, S_FALSE}) {
        for (std::size_t i = 0; i < std::size(kSelectors); ++i) {
            SCOPED_TRACE(kSelectors[i]);
            m_camera.results = {{kSelectors[i], code}};
            m_camera.asked.clear();
            Open();
            Strings expected = kShownFigures;
            expected[i] = kUnfilledFigures[i];
            EXPECT_EQ(Texts(kFigures), expected);
            EXPECT_EQ(Text(kSerialNumber), "00001234");
            EXPECT_EQ(m_camera.asked, kAllAsked) << "the refresh goes on";
            EXPECT_EQ(m_page->Deactivate(), S_OK);
            EXPECT_EQ(m_page->SetObjects(0, nullptr), S_OK);
        }
    }
}

TEST_F(InfoPage, a_camera_that_answers_nothing_leaves_all_placeholders) {
    m_camera.infoResult = E_FAIL;
    for (const ULONG selector : kSelectors)
        m_camera.results[selector] = E_FAIL;
    Open();
    EXPECT_EQ(Texts(kTexts), (Strings{"Statisch", "Statisch", "Statisch"}));
    EXPECT_EQ(Text(kSerialNumber), "Statisch");
    EXPECT_EQ(Texts(kFigures), kUnfilledFigures);
}

TEST_F(InfoPage, frees_the_texts_whatever_the_result) {
    for (const HRESULT code : {S_OK, S_FALSE}) {
        m_camera.infoResult = code;
        const CCountedTaskMemory memory;
        Open();
        EXPECT_EQ(m_page->Apply(), S_OK);
        EXPECT_GE(memory.Allocated(), 6);
        EXPECT_EQ(memory.Live(), 0u);
        EXPECT_EQ(m_page->Deactivate(), S_OK);
        EXPECT_EQ(m_page->SetObjects(0, nullptr), S_OK);
    }
}

TEST_F(InfoPage, a_text_that_is_null_leaves_its_field) {
    for (std::size_t i = 0; i < std::size(kTexts); ++i) {
        m_camera.texts = {"a", "b", "c"};
        m_camera.texts[i].reset();
        Open();
        Strings expected = {"a", "b", "c"};
        expected[i] = "Statisch";
        EXPECT_EQ(Texts(kTexts), expected);
        EXPECT_EQ(Text(kSerialNumber), "00001234");
        EXPECT_EQ(m_page->Deactivate(), S_OK);
        EXPECT_EQ(m_page->SetObjects(0, nullptr), S_OK);
    }
}

TEST_F(InfoPage, hostile_texts_are_shown_as_they_are_and_cut_to_63_characters) {
    m_camera.texts = {"%s%n%d", "A&B", std::string(5000, 'x')};
    m_camera.number = 0xFFFFFFFF;
    Open();
    EXPECT_EQ(Texts(kTexts), (Strings{"%s%n%d", "A&B", std::string(63, 'x')}));
    EXPECT_EQ(Text(kSerialNumber), "-0000001");
    for (const int id : kTexts) {
        EXPECT_NE(::GetWindowLongA(::GetDlgItem(Dialog(), id), GWL_STYLE) & SS_NOPREFIX, 0)
            << "an ampersand is a character, no mark of a key";
    }
}

TEST_F(InfoPage, Apply_reads_all_again_though_nothing_is_dirty) {
    Open();
    m_camera.asked.clear();
    m_camera.figures[41] = 0xFFFFFFFF;
    m_camera.results[42] = E_FAIL;
    m_camera.figures[42] = 7;
    m_camera.texts[0] = "";

    EXPECT_EQ(m_page->Apply(), S_OK);

    EXPECT_EQ(m_camera.asked, kAllAsked);
    EXPECT_EQ(Text(1157), "-1");
    EXPECT_EQ(Text(1158), "3072") << "not answered: as it was";
    EXPECT_EQ(Text(1044), "");
    EXPECT_EQ(m_page->IsPageDirty(), S_FALSE);
    EXPECT_TRUE(m_site.reports.empty());
}

TEST_F(InfoPage, Apply_needs_an_object_but_no_window) {
    EXPECT_EQ(m_page->Apply(), E_UNEXPECTED);
    IUnknown* object = &m_camera;
    ASSERT_EQ(m_page->SetObjects(1, &object), S_OK);
    EXPECT_EQ(m_page->Apply(), S_OK);
    EXPECT_TRUE(m_camera.asked.empty());
}

TEST_F(InfoPage, without_a_camera_it_keeps_its_placeholders) {
    IUnknown* stranger = &m_site;
    EXPECT_EQ(m_page->SetObjects(1, &stranger), E_NOINTERFACE);
    EXPECT_EQ(m_frame.Activate(*m_page), S_OK);
    EXPECT_EQ(m_page->Apply(), S_OK);
    EXPECT_EQ(Texts(kFigures), kUnfilledFigures);
}

TEST_F(InfoPage, has_no_timer) {
    const CPatchedImport setTimer(&__imp_SetTimer, reinterpret_cast<void*>(&CountSetTimer));
    const CPatchedImport killTimer(&__imp_KillTimer, reinterpret_cast<void*>(&CountKillTimer));
    g_timerCalls = 0;
    Open();
    m_camera.asked.clear();
    ::SendMessageA(Dialog(), WM_TIMER, 1, 0);
    EXPECT_TRUE(m_camera.asked.empty());
    EXPECT_EQ(m_page->Deactivate(), S_OK);
    EXPECT_EQ(m_page->SetObjects(0, nullptr), S_OK);
    EXPECT_EQ(g_timerCalls, 0);
}

}  // namespace
}  // namespace kolmfluxor::test
