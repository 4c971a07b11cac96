#include "pages/common/feature_slider_ctrl.h"

#include <tuple>

#include <commctrl.h>

#include "pages/common/mode_names.h"

namespace kolmfluxor {
namespace {

constexpr ULONG kOff = static_cast<ULONG>(FeatureMode::off);
constexpr ULONG kOnePush = static_cast<ULONG>(FeatureMode::onePush);
constexpr ULONG kAuto = static_cast<ULONG>(FeatureMode::automatic);

constexpr LPARAM kLineSize = 1;
constexpr LPARAM kPageSize = 10;

/// Holds a group's lock around a camera round trip; goes on without it when the wait times out.
class CRoundTrip {
public:
    explicit CRoundTrip(CLockable& lock) : m_lock(lock) { std::ignore = m_lock.Lock(CLockable::kUsualWaitMs); }
    ~CRoundTrip() { m_lock.UnLock(); }
    CRoundTrip(const CRoundTrip&) = delete;
    CRoundTrip& operator=(const CRoundTrip&) = delete;

private:
    CLockable& m_lock;
};

/// Trackbars count in signed numbers.
LPARAM Position(ULONG value) {
    return static_cast<LONG>(value);
}

}  // namespace

CFeatureSliderCtrl::CFeatureSliderCtrl(const FeatureSliderIds& ids, const HWND* dialog)
    : CDialogControl(dialog, "pointer to dlg still NULL"), m_ids(ids) {}

HRESULT CFeatureSliderCtrl::Init(FeatureId feature, IKolmFluxorPropertySet* camera) {
    const auto id = static_cast<ULONG>(feature);
    m_initFailed = true;
    Enable(false);
    ClearModes();

    BOOL present = FALSE;
    std::ignore = camera->IsFeaturePresent(id, &present);  // a failure leaves FALSE
    if (present != TRUE) return E_NOTIMPL;

    for (ULONG mode = 0; mode < kModeNames.size(); ++mode) {
        BOOL supported = FALSE;
        if (const HRESULT hr = camera->IsFeatureModeSupported(id, mode, &supported); hr != S_OK) {
            ClearModes();
            return hr;
        }
        if (supported) AddMode(mode);
    }
    InitExtras(camera);

    ULONG mode = 0;
    ULONG min = 0;
    ULONG max = 0;
    ULONG value = 0;
    if (camera->GetFeatureMode(id, &mode) != S_OK || camera->GetFeatureMin(id, &min) != S_OK ||
        camera->GetFeatureMax(id, &max) != S_OK || camera->GetFeatureValue(id, &value) != S_OK) {
        ClearModes();  // a choice of mode would write a value that was never read
        return E_UNEXPECTED;
    }

    m_initFailed = false;
    SelectMode(mode);
    Enable(true);
    // Compatibility: OnePush leaves the value controls enabled here, unlike in Poll and Apply: a camera that is found
    // in it may be waiting for the user.
    if (mode == kOff || mode == kAuto) EnableValueControls(false);
    SetRange(min, max);
    SetValue(value);
    return S_OK;
}

HRESULT CFeatureSliderCtrl::Apply(FeatureId feature, IKolmFluxorPropertySet* camera) {
    const auto id = static_cast<ULONG>(feature);
    const CRoundTrip roundTrip(m_lock);
    const ULONG mode = SelectedMode();
    ULONG value = SliderValue();
    EnableForMode(mode);
    if (const HRESULT hr = camera->SetFeatureValueAndMode(id, value, mode); hr != S_OK) return hr;

    ULONG actualMode = 0;  // not shown
    const HRESULT hr = camera->GetFeatureValueAndMode(id, &value, &actualMode);
    if (hr == S_OK) SetValue(value);
    return hr;
}

HRESULT CFeatureSliderCtrl::Poll(FeatureId feature, IKolmFluxorPropertySet* camera) {
    const CRoundTrip roundTrip(m_lock);
    ULONG value = 0;
    ULONG mode = 0;
    if (const HRESULT hr = ReadValueAndMode(feature, camera, &value, &mode); hr != S_OK) return hr;
    if (m_initFailed) return S_OK;  // the trackbar has no range of the camera's that could hold the value
    if (value != SliderValue()) SetValue(value);
    if (mode != SelectedMode()) SelectMode(mode);
    EnableForMode(mode);
    return S_OK;
}

bool CFeatureSliderCtrl::WantsPoll() const {
    const ULONG mode = SelectedMode();
    return (mode == kAuto || mode == kOnePush) && !IsDropped();
}

void CFeatureSliderCtrl::OnModeChosen(FeatureId feature, IKolmFluxorPropertySet* camera) {
    std::ignore = Apply(feature, camera);  // a refusal is not reported; what the user chose stays on show
}

void CFeatureSliderCtrl::OnTrackbarMoved(FeatureId feature, UINT /*code*/, IKolmFluxorPropertySet* camera) {
    SliderToEdit();
    std::ignore = Apply(feature, camera);
}

void CFeatureSliderCtrl::Enable(bool enable) {
    EnableItem(m_ids.groupBox, enable);
    EnableValueControls(enable);
}

void CFeatureSliderCtrl::EnableValueControls(bool enable) {
    for (const int id : {m_ids.minLabel, m_ids.maxLabel, m_ids.edit, m_ids.trackbar})
        EnableItem(id, enable);
    if (m_ids.extra != 0) EnableItem(m_ids.extra, enable);
}

void CFeatureSliderCtrl::EnableForMode(ULONG mode) {
    if (m_initFailed) return;
    EnableValueControls(mode != kOff && mode != kOnePush && mode != kAuto);
}

void CFeatureSliderCtrl::SetRange(ULONG min, ULONG max) {
    SetTrackbarRange(min, max);
    SetItemNumber(m_ids.minLabel, min);
    SetItemNumber(m_ids.maxLabel, max);
}

void CFeatureSliderCtrl::SetValue(ULONG value) {
    SetTrackbarPosition(value);
    SetItemNumber(m_ids.edit, SliderValue());
}

ULONG CFeatureSliderCtrl::SliderValue() const {
    return static_cast<ULONG>(Send(m_ids.trackbar, TBM_GETPOS));
}

void CFeatureSliderCtrl::SliderToEdit() {
    SetItemNumber(m_ids.edit, SliderValue());
}

void CFeatureSliderCtrl::AddMode(ULONG mode) const {
    AddEntry(m_ids.modeCombo, ModeName(mode), mode);
    EnableItem(m_ids.modeCombo, Send(m_ids.modeCombo, CB_GETCOUNT) >= 2);
}

void CFeatureSliderCtrl::ClearModes() const {
    Send(m_ids.modeCombo, CB_RESETCONTENT);
    EnableItem(m_ids.modeCombo, false);
}

bool CFeatureSliderCtrl::SelectMode(ULONG mode) const {
    return SelectEntry(m_ids.modeCombo, mode);
}

ULONG CFeatureSliderCtrl::SelectedMode() const {
    return SelectedEntry(m_ids.modeCombo);
}

bool CFeatureSliderCtrl::IsDropped() const {
    return Send(m_ids.modeCombo, CB_GETDROPPEDSTATE) == TRUE;
}

HRESULT CFeatureSliderCtrl::ReadValueAndMode(FeatureId feature, IKolmFluxorPropertySet* camera, ULONG* value,
                                             ULONG* mode) {
    return camera->GetFeatureValueAndMode(static_cast<ULONG>(feature), value, mode);
}

void CFeatureSliderCtrl::SetTrackbarRange(ULONG min, ULONG max) const {
    Send(m_ids.trackbar, TBM_SETRANGEMIN, TRUE, Position(min));
    Send(m_ids.trackbar, TBM_SETRANGEMAX, TRUE, Position(max));
    Send(m_ids.trackbar, TBM_SETLINESIZE, 0, kLineSize);
    Send(m_ids.trackbar, TBM_SETPAGESIZE, 0, kPageSize);
}

void CFeatureSliderCtrl::SetTrackbarPosition(ULONG value) const {
    Send(m_ids.trackbar, TBM_SETPOS, TRUE, Position(value));
}

}  // namespace kolmfluxor
