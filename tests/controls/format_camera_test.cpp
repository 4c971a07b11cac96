/// @file  Page "Format": which methods of the camera's interface it calls, with what, and what each result does.

#include <gmock/gmock.h>

#include <cstring>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <windows.h>

#include "controls/page_frame.h"
#include "pages/format_page.h"
#include "support/page_site.h"
#include "support/property_set_stub.h"
#include "support/scripted_filter.h"

namespace kolmfluxor::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Calls = std::vector<std::string>;

constexpr int kMode = 1068;
constexpr int kChannel = 1155;
constexpr int kSpeed = 1152;

/// A camera that notes each call and answers it with `S_OK`, or with a code of the script.
class CRecordingCamera final : public CPropertySetStub {
public:
    explicit CRecordingCamera(CScriptedFilter& script) : m_script(script) {}

    Calls calls;
    std::set<std::string> failing;  ///< the calls that are answered with `code`
    HRESULT code = S_OK;
    BOOL present = TRUE;
    ULONG channel = 2;
    ULONG speed = 1;
    IUnknown* appliedPin = nullptr;
    VIDEO_STREAM_CONFIG_CAPS appliedCaps{};
    HRESULT applied = S_OK;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** out) override {
        if (riid == IID_IBaseFilter) return m_script.Filter()->QueryInterface(riid, out);
        const bool known = riid == IID_IUnknown || riid == __uuidof(IKolmFluxorPropertySet);
        *out = known ? static_cast<IKolmFluxorPropertySet*>(this) : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }

    HRESULT STDMETHODCALLTYPE GetProperty12Value(ULONG*) override { return Answer("GetProperty12Value"); }
    HRESULT STDMETHODCALLTYPE GetIsoSpeedRange(ULONG* min, ULONG* max) override {
        *min = 0;
        *max = 0xFFFFFFFF;
        return Answer("GetIsoSpeedRange");
    }
    HRESULT STDMETHODCALLTYPE GetIsoSpeed(ULONG* value) override {
        *value = speed;
        return Answer("GetIsoSpeed");
    }
    HRESULT STDMETHODCALLTYPE SetIsoSpeed(ULONG value) override { return Answer("SetIsoSpeed", value); }
    HRESULT STDMETHODCALLTYPE IsFeaturePresent(ULONG id, BOOL* flag) override {
        *flag = present;
        return Answer("IsFeaturePresent", id);
    }
    HRESULT STDMETHODCALLTYPE GetFeatureRange(ULONG id, ULONG* min, ULONG* max) override {
        *min = 1;
        *max = 3;
        return Answer("GetFeatureRange", id);
    }
    HRESULT STDMETHODCALLTYPE GetFeatureMode(ULONG id, ULONG* mode) override {
        *mode = static_cast<ULONG>(FeatureMode::manual);
        return Answer("GetFeatureMode", id);
    }
    HRESULT STDMETHODCALLTYPE GetFeatureValue(ULONG id, ULONG* value) override {
        *value = channel;
        return Answer("GetFeatureValue", id);
    }
    HRESULT STDMETHODCALLTYPE SetFeatureValue(ULONG id, ULONG value) override {
        return Answer("SetFeatureValue", id, value);
    }
    HRESULT STDMETHODCALLTYPE GetImagePositionForMediaType(ULONG* x, ULONG* y, AM_MEDIA_TYPE*) override {
        *x = *y = 0;
        return Answer("GetImagePositionForMediaType");
    }
    HRESULT STDMETHODCALLTYPE SetImagePositionForMediaType(ULONG x, ULONG y, AM_MEDIA_TYPE*) override {
        return Answer("SetImagePositionForMediaType", x, y);
    }
    HRESULT STDMETHODCALLTYPE ApplyMediaTypeComposite(IUnknown* pin, AM_MEDIA_TYPE*,
                                                      VIDEO_STREAM_CONFIG_CAPS* caps) override {
        appliedPin = pin;
        appliedCaps = *caps;
        return Answer("ApplyMediaTypeComposite");
    }

private:
    template <class... Numbers> HRESULT Answer(const char* name, Numbers... numbers) {
        std::string call = name;
        ((call += ' ' + std::to_string(numbers)), ...);
        calls.push_back(call);
        return failing.contains(name) ? code : S_OK;
    }

    CScriptedFilter& m_script;
};

class FormatCamera : public ::testing::Test {
protected:
    FormatCamera() { m_script.formats = {FixedMode(640, 480, FourCc("Y800"), 8, 5), Format7Mode(0, 1280, 960)}; }
    ~FormatCamera() override { Close(); }

    void Open() {
        m_page = NewPage<CKolmFluxorPage_Format>();
        IUnknown* object = &m_camera;
        ASSERT_EQ(m_page->SetObjects(1, &object), S_OK);
        ASSERT_EQ(m_page->SetPageSite(&m_site), S_OK);
        ASSERT_EQ(m_frame.Activate(*m_page), S_OK);
        m_opening = std::exchange(m_camera.calls, {});
    }
    void Close() {
        if (m_page == nullptr) return;
        EXPECT_EQ(m_page->Deactivate(), S_OK);
        EXPECT_EQ(m_page->SetObjects(0, nullptr), S_OK);
        EXPECT_EQ(m_page->SetPageSite(nullptr), S_OK);
        EXPECT_EQ(m_page->Inner()->Release(), 0u);
        m_page = nullptr;
        m_camera.calls.clear();
    }

    [[nodiscard]] HWND Control(int id) const { return m_frame.Control(id); }
    [[nodiscard]] std::vector<std::string> Entries(int combo) const {
        std::vector<std::string> entries;
        const LRESULT count = ::SendMessageA(Control(combo), CB_GETCOUNT, 0, 0);
        for (LRESULT i = 0; i < count; ++i) {
            char text[128] = "";
            ::SendMessageA(Control(combo), CB_GETLBTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text));
            entries.emplace_back(text);
        }
        return entries;
    }
    [[nodiscard]] LRESULT Selection(int combo) const { return ::SendMessageA(Control(combo), CB_GETCURSEL, 0, 0); }
    void Pick(int combo, int position) const {
        ::SendMessageA(Control(combo), CB_SETCURSEL, static_cast<WPARAM>(position), 0);
        m_page->OnReceiveMessage(m_frame.Dialog(), WM_COMMAND, MAKEWPARAM(combo, CBN_SELCHANGE), 0);
    }
    struct Choice {
        int combo, position;
    };
    /// What picking entries calls and leaves selected when the camera refuses some of the calls.
    void ExpectRefused(const std::set<std::string>& refused, const std::vector<Choice>& picked, const Calls& calls,
                       const std::vector<Choice>& selected) {
        for (const HRESULT code : {E_FAIL, S_FALSE}) {
            SCOPED_TRACE(code);
            Open();
            m_camera.failing = refused;
            m_camera.code = code;

            for (const auto& [combo, position] : picked)
                Pick(combo, position);

            EXPECT_EQ(m_camera.calls, calls);
            for (const auto& [combo, position] : selected)
                EXPECT_EQ(Selection(combo), position) << combo;
            m_camera.failing.clear();
            Close();
        }
    }
    void Apply() const { EXPECT_EQ(m_page->Apply(), S_OK); }

    CPageFrame m_frame;
    CScriptedFilter m_script;
    CRecordingCamera m_camera{m_script};
    CPageSite m_site;
    CKolmFluxorPage_Format* m_page = nullptr;
    Calls m_opening;
};

constexpr const char* kSpeedCalls[] = {"GetIsoSpeedRange", "GetIsoSpeed"};
constexpr const char* kChannelCalls[] = {"IsFeaturePresent", "GetFeatureRange", "GetFeatureMode", "GetFeatureValue"};

TEST_F(FormatCamera, opening_makes_these_calls_in_this_order) {
    Open();
    EXPECT_THAT(m_opening, ElementsAre("GetProperty12Value", "GetIsoSpeedRange", "GetIsoSpeed", "IsFeaturePresent 1032",
                                       "GetFeatureRange 1032", "GetFeatureMode 1032", "GetFeatureValue 1032",
                                       "GetImagePositionForMediaType"));
    EXPECT_THAT(Entries(kSpeed), ElementsAre("S100", "S200", "S400", "S800", "S1600", "S3200"));
    EXPECT_THAT(Entries(kChannel), ElementsAre("Auto", "ch 1", "ch 2", "ch 3"));
    EXPECT_EQ(Selection(kSpeed), 1);
    EXPECT_EQ(Selection(kChannel), 2);
}

TEST_F(FormatCamera, any_code_but_S_OK_ends_the_filling_of_its_list) {
    for (const HRESULT code : {E_FAIL, S_FALSE}) {
        m_camera.code = code;
        for (const char* call : kSpeedCalls) {
            m_camera.failing = {call};
            Open();
            EXPECT_THAT(Entries(kSpeed), IsEmpty()) << call;
            EXPECT_EQ(m_opening[m_opening.size() - 6], std::string(call)) << "the last of its list";
            EXPECT_EQ(Entries(kChannel).size(), 4u);
            Close();
        }
        for (const char* call : kChannelCalls) {
            m_camera.failing = {call};
            Open();
            EXPECT_THAT(Entries(kChannel), IsEmpty()) << call;
            EXPECT_EQ(m_opening[m_opening.size() - 2], std::string(call) + " 1032") << "the last of its list";
            EXPECT_EQ(Entries(kMode).size(), 2u);
            Close();
        }
    }
}

TEST_F(FormatCamera, a_failing_property_12_and_image_position_change_nothing) {
    m_camera.code = E_FAIL;
    for (const char* call : {"GetProperty12Value", "GetImagePositionForMediaType"}) {
        m_camera.failing = {call};
        Open();
        EXPECT_EQ(Entries(kSpeed).size(), 6u) << call;
        EXPECT_EQ(Entries(kMode).size(), 2u) << call;
        Close();
    }
}

TEST_F(FormatCamera, channels_are_listed_whatever_the_presence_says) {
    m_camera.present = FALSE;
    Open();
    EXPECT_EQ(Entries(kChannel).size(), 4u);
}

TEST_F(FormatCamera, auto_is_channel_minus_one_and_a_refusal_selects_the_current_channel) {
    ExpectRefused({"SetFeatureValue"}, {{kChannel, 0}}, {"SetFeatureValue 1032 4294967295", "GetFeatureValue 1032"},
                  {{kChannel, 2}});
}

TEST_F(FormatCamera, an_accepted_channel_and_speed_are_not_read_back) {
    Open();
    Pick(kChannel, 0);
    Pick(kSpeed, 5);
    EXPECT_THAT(m_camera.calls, ElementsAre("SetFeatureValue 1032 4294967295", "SetIsoSpeed 5"));
    EXPECT_EQ(Selection(kChannel), 0);
    EXPECT_EQ(Selection(kSpeed), 5);
}

TEST_F(FormatCamera, a_refused_speed_selects_the_current_one) {
    ExpectRefused({"SetIsoSpeed"}, {{kSpeed, 4}}, {"SetIsoSpeed 4", "GetIsoSpeed"}, {{kSpeed, 1}});
}

TEST_F(FormatCamera, a_refused_channel_or_speed_stays_as_chosen_when_the_current_one_is_unreadable) {
    // Not channel 2 and speed 1, which come with the failures.
    ExpectRefused({"SetFeatureValue", "GetFeatureValue", "SetIsoSpeed", "GetIsoSpeed"}, {{kChannel, 3}, {kSpeed, 4}},
                  {"SetFeatureValue 1032 3", "GetFeatureValue 1032", "SetIsoSpeed 4", "GetIsoSpeed"},
                  {{kChannel, 3}, {kSpeed, 4}});
}

TEST_F(FormatCamera, a_refused_channel_or_speed_stays_as_chosen_when_the_current_one_is_not_listed) {
    Open();
    m_camera.failing = {"SetFeatureValue", "SetIsoSpeed"};
    m_camera.code = E_FAIL;
    m_camera.channel = 99;
    m_camera.speed = 6;
    Pick(kChannel, 3);
    Pick(kSpeed, 4);
    EXPECT_EQ(Selection(kChannel), 3);
    EXPECT_EQ(Selection(kSpeed), 4);
}

TEST_F(FormatCamera, apply_hands_over_the_configuration_and_the_modes_own_record) {
    Open();
    Pick(kMode, 1);

    Apply();

    EXPECT_THAT(m_camera.calls, ElementsAre("ApplyMediaTypeComposite", "SetImagePositionForMediaType 0 0"));
    ASSERT_NE(m_camera.appliedPin, nullptr);
    IAMStreamConfig* config = nullptr;
    ASSERT_EQ(m_camera.appliedPin->QueryInterface(IID_PPV_ARGS(&config)), S_OK);
    config->Release();
    EXPECT_EQ(std::memcmp(&m_camera.appliedCaps, &m_script.formats[1].caps, sizeof m_camera.appliedCaps), 0);
}

TEST_F(FormatCamera, apply_sets_the_position_of_a_fixed_mode_too) {
    Open();
    Pick(kMode, 0);
    Apply();
    EXPECT_THAT(m_camera.calls, ElementsAre("ApplyMediaTypeComposite", "SetImagePositionForMediaType 0 0"));
}

TEST_F(FormatCamera, released_while_connected_keeps_the_camera_only) {
    Open();
    EXPECT_EQ(m_page->Deactivate(), S_OK);
    EXPECT_EQ(m_page->Inner()->Release(), 0u);
    m_page = nullptr;
    EXPECT_EQ(m_script.references.pin + m_script.references.config, 0u);
}

}  // namespace
}  // namespace kolmfluxor::test
