#include "pages/trigger_page.h"

#include <new>
#include <tuple>

#include "resources/resource.h"

namespace kolmfluxor {
namespace {

constexpr UINT kTimerPeriodMs = 500;

constexpr TriggerIds kTrigger = {
    .groupBox = IDC_TRIGGER,
    .modeCombo = IDC_TRIGGER_MODE,
    .sourceCombo = IDC_TRIGGER_SOURCE,
    .parameterLabel = IDC_TRIGGER_PARAMETER_LABEL,
    .parameterEdit = IDC_TRIGGER_PARAMETER,
    .parameterUpDown = IDC_TRIGGER_PARAMETER_UPDOWN,
    .onBox = IDC_TRIGGER_ON,
    .invertedBox = IDC_TRIGGER_INVERTED,
    .normalPictures = {IDC_TRIGGER_PICTURE0, IDC_TRIGGER_PICTURE1, IDC_TRIGGER_PICTURE2, IDC_TRIGGER_PICTURE3,
                       IDC_TRIGGER_PICTURE4, IDC_TRIGGER_PICTURE5, IDC_TRIGGER_PICTURE15},
    .invertedPictures = {IDC_TRIGGER_PICTURE0_INVERTED, IDC_TRIGGER_PICTURE1_INVERTED, IDC_TRIGGER_PICTURE2_INVERTED,
                         IDC_TRIGGER_PICTURE3_INVERTED, IDC_TRIGGER_PICTURE4_INVERTED, IDC_TRIGGER_PICTURE5_INVERTED,
                         IDC_TRIGGER_PICTURE15_INVERTED},
};

constexpr FeatureSliderIds kDelay = {
    .groupBox = IDC_TRIGGERDELAY,
    .minLabel = IDC_TRIGGERDELAY_MIN,
    .maxLabel = IDC_TRIGGERDELAY_MAX,
    .trackbar = IDC_TRIGGERDELAY_SLIDER,
    .edit = IDC_TRIGGERDELAY_EDIT,
    .modeCombo = IDC_TRIGGERDELAY_MODE,
    .extra = IDC_TRIGGERDELAY_UNIT,
};
constexpr FeatureSliderIds kDelayedIntegration = {
    .groupBox = IDC_DELAYEDINTEGRATION,
    .minLabel = IDC_DELAYEDINTEGRATION_MIN,
    .maxLabel = IDC_DELAYEDINTEGRATION_MAX,
    .trackbar = IDC_DELAYEDINTEGRATION_SLIDER,
    .edit = IDC_DELAYEDINTEGRATION_EDIT,
    .modeCombo = IDC_DELAYEDINTEGRATION_MODE,
    .extra = IDC_DELAYEDINTEGRATION_UNIT,
};

}  // namespace

const PageCommand<CKolmFluxorPage_Trigger> CKolmFluxorPage_Trigger::kCommands[] = {
    {.id = IDC_TRIGGER_MODE, .code = CBN_SELCHANGE, .run = &CKolmFluxorPage_Trigger::OnMode},
    {.id = IDC_TRIGGER_ON, .code = BN_CLICKED, .run = &CKolmFluxorPage_Trigger::OnSwitch},
    {.id = IDC_TRIGGER_INVERTED, .code = BN_CLICKED, .run = &CKolmFluxorPage_Trigger::OnSwitch},
};

CUnknown* CKolmFluxorPage_Trigger::CreateInstance(IUnknown* outer, HRESULT* hr) {
    auto* const page = new (std::nothrow) CKolmFluxorPage_Trigger(outer);
    *hr = page != nullptr ? S_OK : E_OUTOFMEMORY;
    return page;
}

CKolmFluxorPage_Trigger::CKolmFluxorPage_Trigger(IUnknown* outer)
    : CFeaturePage(outer, IDD_TRIGGER, IDS_TRIGGER, kTimerPeriodMs),
      m_trigger(kTrigger, &m_hwnd),
      m_delay(kDelay, &m_hwnd),
      m_delayedIntegration(kDelayedIntegration, &m_hwnd),
      m_table{
          {&m_delay, "Trigger delay", FeatureId::triggerDelay},
          {&m_delayedIntegration, "Delayed integration enable", FeatureId::delayedIntegration},
      } {
    m_groups = m_table;
}

INT_PTR CKolmFluxorPage_Trigger::OnReceiveMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    // Compatibility: the timer runs, but its ticks do nothing: neither the trigger nor the groups are polled. A poll
    // would set the parameter back while it is typed.
    // NOLINTNEXTLINE(bugprone-parent-virtual-call): the next base would poll
    if (message == WM_TIMER) return CHitTestPropertyPage::OnReceiveMessage(hwnd, message, wParam, lParam);
    return CFeaturePage::OnReceiveMessage(hwnd, message, wParam, lParam);
}

HRESULT CKolmFluxorPage_Trigger::OnApplyChanges() {
    if (m_hwnd != nullptr && Camera() != nullptr) m_trigger.Refresh(Camera());
    return S_OK;
}

void CKolmFluxorPage_Trigger::OnPrepare() {
    m_trigger.SetCaption("Trigger");
    if (Camera() == nullptr) {
        m_trigger.Enable(false);
    } else {
        std::ignore = m_trigger.Init(Camera());  // a trigger that can't be asked about stays disabled
    }
}

void CKolmFluxorPage_Trigger::OnFill() {
    m_trigger.Refresh(Camera());
}

bool CKolmFluxorPage_Trigger::OnCommand(int id, UINT code) {
    return RunCommand<CKolmFluxorPage_Trigger>(*this, kCommands, id, code);
}

void CKolmFluxorPage_Trigger::OnMode() {
    // A mode with a parameter is written with the parameter that it starts with, not with the one before.
    m_trigger.ShowModeBitmap(m_trigger.SelectedMode());
    OnSwitch();
}

void CKolmFluxorPage_Trigger::OnSwitch() {
    m_trigger.Write(Camera());
}

}  // namespace kolmfluxor
