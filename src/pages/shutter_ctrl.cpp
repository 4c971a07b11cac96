#include "pages/shutter_ctrl.h"

#include <algorithm>
#include <tuple>

#include "base/errors.h"
#include "pages/time_base.h"

namespace kolmfluxor {
namespace {

constexpr auto kShutter = static_cast<ULONG>(FeatureId::shutter);
constexpr auto kTimeBase = static_cast<ULONG>(FeatureId::timeBase);
constexpr auto kExtendedShutter = static_cast<ULONG>(FeatureId::extendedShutter);

// Results of reads and writes below are ignored on purpose: what could not be read counts as 0, only a time base stays
// the one that is known; a refused write is not reported. Only a feature that runs by itself is read again.

}  // namespace

CKolmShutterCtrl::CKolmShutterCtrl(const FeatureSliderIds& ids, int extendedBox, int timeBaseCombo, const HWND* dialog)
    : CFeatureSliderCtrl(ids, dialog), m_extendedBox(extendedBox), m_timeBaseCombo(timeBaseCombo) {}

bool CKolmShutterCtrl::IsExtended() const {
    return Send(m_extendedBox, BM_GETCHECK) == BST_CHECKED;
}

ULONG CKolmShutterCtrl::TimeBaseUs() const {
    return MicrosecondsOf(m_timeBaseIndex);
}

void CKolmShutterCtrl::FillTimeBases() const {
    for (ULONG index = 0; index < kTimeBases.size(); ++index)
        AddEntry(m_timeBaseCombo, kTimeBases[index].text, index);
}

void CKolmShutterCtrl::SelectTimeBase(ULONG index) {
    if (SelectEntry(m_timeBaseCombo, index)) m_timeBaseIndex = index;
}

void CKolmShutterCtrl::OnTimeBaseChanged() {
    const LRESULT entry = Send(m_timeBaseCombo, CB_GETCURSEL);
    if (entry == CB_ERR) {
        throw CTextException(
            "CKolmShutterCtrl::OnTimeBaseChanged: could not get current selection for time base combobox");
    }
    const LRESULT index = Send(m_timeBaseCombo, CB_GETITEMDATA, static_cast<WPARAM>(entry));
    if (index == CB_ERR) {
        throw CTextException("CKolmShutterCtrl::OnTimeBaseChanged: could not get item data for time base combobox");
    }
    SelectTimeBase(static_cast<ULONG>(index));
    SetRange(m_min, m_max);
}

void CKolmShutterCtrl::ShowStandard(ULONG timeBaseIndex, ULONG min, ULONG max, ULONG value) {
    SelectTimeBase(timeBaseIndex);
    EnableItem(m_timeBaseCombo, true);
    SetRange(min, max);
    SetValue(value);
}

void CKolmShutterCtrl::ShowExtended(ULONG min, ULONG max, ULONG value) {
    EnableItem(m_timeBaseCombo, false);
    SetRange(min, max);
    SetValue(value);
}

void CKolmShutterCtrl::OnTimeBaseChosen(IKolmFluxorPropertySet* camera) {
    ULONG exposureUs = 0;
    std::ignore = camera->GetFeatureValue(kExtendedShutter, &exposureUs);

    OnTimeBaseChanged();
    std::ignore = camera->SetFeatureValue(kTimeBase, m_timeBaseIndex);
    ULONG actualIndex = 0;
    if (camera->GetFeatureValue(kTimeBase, &actualIndex) == S_OK) SelectTimeBase(actualIndex);
    OnTimeBaseChanged();

    SetValue(ShutterUnitsOf(exposureUs, m_timeBaseIndex));
    SliderToEdit();
    std::ignore = camera->SetFeatureValue(kShutter, SliderValue());
}

void CKolmShutterCtrl::OnExtendedClicked(IKolmFluxorPropertySet* camera) {
    ULONG value = 0;
    ULONG min = 0;
    ULONG max = 0;
    std::ignore = camera->GetFeatureValue(kExtendedShutter, &value);
    const ULONG shown = IsExtended() ? kExtendedShutter : kShutter;
    std::ignore = camera->GetFeatureMin(shown, &min);
    std::ignore = camera->GetFeatureMax(shown, &max);
    if (IsExtended()) {
        ShowExtended(min, max, value);
        return;
    }

    // Without an answer the known time base holds: dividing by none would expose up to 1000 times too long.
    ULONG timeBaseIndex = 0;
    if (camera->GetFeatureValue(kTimeBase, &timeBaseIndex) != S_OK) timeBaseIndex = m_timeBaseIndex;
    const ULONG units = std::max(min, std::min(max, ShutterUnitsOf(value, timeBaseIndex)));
    std::ignore = camera->SetFeatureValue(kShutter, units);
    std::ignore = camera->GetFeatureValue(kShutter, &value);
    ShowStandard(timeBaseIndex, min, max, value);
}

void CKolmShutterCtrl::EnableValueControls(bool enable) {
    for (const int id : {m_extendedBox, Ids().groupBox})
        EnableItem(id, enable);
    // In extended display there is no time base to choose: the combo stays closed there, whatever the mode frees.
    EnableItem(m_timeBaseCombo, enable && !IsExtended());
    CFeatureSliderCtrl::EnableValueControls(enable);
}

void CKolmShutterCtrl::SetRange(ULONG min, ULONG max) {
    m_min = min;
    m_max = max;
    SetTrackbarRange(min, max);
    SetItemNumber(Ids().minLabel, Displayed(min));
    SetItemNumber(Ids().maxLabel, Displayed(max));
}

void CKolmShutterCtrl::SetValue(ULONG value) {
    SetTrackbarPosition(Clamped(value));
    SetItemNumber(Ids().edit, Displayed(Clamped(value)));
}

void CKolmShutterCtrl::SliderToEdit() {
    SetItemNumber(Ids().edit, Displayed(SliderValue()));
}

void CKolmShutterCtrl::OnModeChosen(FeatureId feature, IKolmFluxorPropertySet* camera) {
    const ULONG mode = SelectedMode();
    EnableForMode(mode);
    std::ignore = camera->SetFeatureMode(static_cast<ULONG>(feature), mode);
}

void CKolmShutterCtrl::OnTrackbarMoved(FeatureId feature, UINT /*code*/, IKolmFluxorPropertySet* camera) {
    SliderToEdit();
    const ULONG id = IsExtended() ? kExtendedShutter : static_cast<ULONG>(feature);
    std::ignore = camera->SetFeatureValue(id, SliderValue());
}

void CKolmShutterCtrl::InitExtras(IKolmFluxorPropertySet* camera) {
    Send(m_timeBaseCombo, CB_RESETCONTENT);
    FillTimeBases();
    m_timeBaseIndex = 0;
    ULONG index = 0;
    if (camera->GetFeatureValue(kTimeBase, &index) == S_OK) SelectTimeBase(index);
}

HRESULT CKolmShutterCtrl::ReadValueAndMode(FeatureId feature, IKolmFluxorPropertySet* camera, ULONG* value,
                                           ULONG* mode) {
    const HRESULT hr = CFeatureSliderCtrl::ReadValueAndMode(feature, camera, value, mode);
    // Compatibility: in extended display the second result counts alone. A shutter whose mode can't be read is then
    // shown with its value all the same.
    return IsExtended() ? camera->GetFeatureValue(kExtendedShutter, value) : hr;
}

ULONG CKolmShutterCtrl::Displayed(ULONG raw) const {
    return IsExtended() ? raw : raw * TimeBaseUs();
}

ULONG CKolmShutterCtrl::Clamped(ULONG value) const {
    return std::max(m_min, std::min(m_max, value));
}

}  // namespace kolmfluxor
