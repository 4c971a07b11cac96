#include "pages/trigger_ctrl.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <iterator>
#include <tuple>

#include <commctrl.h>

namespace kolmfluxor {
namespace {

// Bits of the trigger inquiry word
constexpr ULONG kOnSwitchable = 0x20;
constexpr ULONG kPolaritySwitchable = 0x40;

constexpr int kNoPicture = -1;

/// What the group shows for a trigger mode.
struct TriggerMode {
    const char* text;
    ULONG mask;
    const char* caption;         ///< null leaves the caption of the mode before
    const char* parameterLabel;  ///< null for a mode without a parameter
    int picture;                 ///< place among the pictures of `TriggerIds`
};

// clang-format off
constexpr TriggerMode kModes[] = {
    {.text = "Mode0",  .mask = 0x00010000, .caption = "Trigger: Edge mode",  .parameterLabel = nullptr,       .picture = 0},
    {.text = "Mode1",  .mask = 0x00020000, .caption = "Trigger: Level mode", .parameterLabel = nullptr,       .picture = 1},
    {.text = "Mode2",  .mask = 0x00040000, .caption = nullptr,               .parameterLabel = nullptr,       .picture = 2},
    {.text = "Mode3",  .mask = 0x00080000, .caption = nullptr,               .parameterLabel = "cycle",       .picture = 3},
    {.text = "Mode4",  .mask = 0x00100000, .caption = nullptr,               .parameterLabel = "trigger cnt", .picture = 4},
    {.text = "Mode5",  .mask = 0x00200000, .caption = nullptr,               .parameterLabel = "trigger cnt", .picture = 5},
    {.text = "Mode14", .mask = 0x40000000, .caption = nullptr,               .parameterLabel = nullptr,       .picture = kNoPicture},
    {.text = "Mode15", .mask = 0x80000000, .caption = "Trigger: Bulk mode",  .parameterLabel = nullptr,       .picture = 6},
};
// clang-format on

struct TriggerSource {
    const char* text;
    ULONG mask;
};

constexpr TriggerSource kSources[] = {{"Source0", 0x100}, {"Source1", 0x200}, {"Source2", 0x400}, {"Source3", 0x800}};

constexpr bool EachPictureOnce() {
    for (std::size_t picture = 0; picture < TriggerIds::kPictures; ++picture) {
        if (std::ranges::count(kModes, static_cast<int>(picture), &TriggerMode::picture) != 1) return false;
    }
    return std::size(kModes) == TriggerIds::kPictures + 1;
}
static_assert(EachPictureOnce(), "each picture belongs to one mode; one mode has none");

// Compatibility: a parameter starts at 1 and its up-down runs from 1 to -1, that is, downwards.
constexpr int kParameterStart = 1;
constexpr int kParameterLow = 1;
constexpr int kParameterHigh = -1;

}  // namespace

CIIDCTriggerCtrl::CIIDCTriggerCtrl(const TriggerIds& ids, const HWND* dialog) noexcept
    : CDialogControl(dialog, "CIIDCTriggerCtrl::Dlg: dialog pointer still NULL"), m_ids(ids) {}

HRESULT CIIDCTriggerCtrl::Init(IKolmFluxorPropertySet* camera) const {
    ULONG inquiry = 0;
    if (const HRESULT hr = camera->GetTriggerInquiry(&inquiry); hr != S_OK) {
        Enable(false);
        return hr;
    }
    Enable(true);
    for (const TriggerMode& mode : kModes) {
        if ((inquiry & mode.mask) != 0) AddMode(mode.text, mode.mask);
    }
    for (const TriggerSource& source : kSources) {
        if ((inquiry & source.mask) != 0) AddSource(source.text, source.mask);
    }
    EnableItem(m_ids.onBox, (inquiry & kOnSwitchable) != 0);
    EnableItem(m_ids.invertedBox, (inquiry & kPolaritySwitchable) != 0);
    return S_OK;
}

void CIIDCTriggerCtrl::Refresh(IKolmFluxorPropertySet* camera) const {
    ULONG mode = 0;
    ULONG on = 0;
    ULONG polarity = 0;
    ULONG valueFlag = 0;  // the parameter is not read back
    if (camera->GetTrigger(&mode, &on, &polarity, &valueFlag) != S_OK) return;

    SelectMode(mode);
    // Compatibility: "Source0" whatever the camera uses; the state that is read has no source.
    SelectSource(kSources[0].mask);
    SetOn(on == 1);
    SetInverted(polarity == 1);
    ShowModeBitmap(SelectedMode());
}

void CIIDCTriggerCtrl::Write(IKolmFluxorPropertySet* camera) const {
    const ULONG mode = SelectedMode();
    const ULONG on = IsOn() ? 1 : 0;
    const ULONG polarity = IsInverted() ? 1 : 0;
    // Compatibility: without a selected mode 0xFFFFFFFF is sent, the list's own answer. It also holds the bits on and
    // inverted, whatever the boxes say; drivers reckon with this word.
    std::ignore = camera->SetTrigger(mode, on, polarity, Parameter());  // what the user chose stays on show
    ShowModeBitmap(mode);
}

void CIIDCTriggerCtrl::Enable(bool enable) const {
    for (const int id : {m_ids.groupBox, m_ids.parameterLabel, m_ids.parameterEdit, m_ids.onBox, m_ids.invertedBox})
        EnableItem(id, enable);
}

void CIIDCTriggerCtrl::AddMode(const char* text, ULONG mask) const {
    AddEntry(m_ids.modeCombo, text, mask);
    EnableItem(m_ids.modeCombo, true);
}

void CIIDCTriggerCtrl::AddSource(const char* text, ULONG mask) const {
    AddEntry(m_ids.sourceCombo, text, mask);
    EnableItem(m_ids.sourceCombo, false);
}

void CIIDCTriggerCtrl::SelectMode(ULONG mask) const {
    if (SelectEntry(m_ids.modeCombo, mask)) ShowModeBitmap(mask);
}

void CIIDCTriggerCtrl::SelectSource(ULONG mask) const {
    SelectEntry(m_ids.sourceCombo, mask);
}

ULONG CIIDCTriggerCtrl::SelectedMode() const {
    return SelectedEntry(m_ids.modeCombo);
}

void CIIDCTriggerCtrl::SetOn(bool on) const {
    Send(m_ids.onBox, BM_SETCHECK, on ? BST_CHECKED : BST_UNCHECKED);
}

void CIIDCTriggerCtrl::SetInverted(bool inverted) const {
    Send(m_ids.invertedBox, BM_SETCHECK, inverted ? BST_CHECKED : BST_UNCHECKED);
}

bool CIIDCTriggerCtrl::IsOn() const {
    return Send(m_ids.onBox, BM_GETCHECK) == BST_CHECKED;
}

bool CIIDCTriggerCtrl::IsInverted() const {
    return Send(m_ids.invertedBox, BM_GETCHECK) == BST_CHECKED;
}

ULONG CIIDCTriggerCtrl::Parameter() const {
    // The rules of GetDlgItemInt, whose implementations disagree on "-1", to which the arrows lead.
    std::array<char, 256> text{};
    ::GetDlgItemTextA(Dlg(), m_ids.parameterEdit, text.data(), static_cast<int>(text.size()));
    ULONG number = 0;  // from_chars leaves it where it finds no number, or one beyond 32 bits
    std::from_chars(text.data() + std::strspn(text.data(), " "), text.data() + text.size(), number);
    return number;
}

void CIIDCTriggerCtrl::ShowParameter(bool on, const char* label, int position, int low, int high) const {
    if (!on) {
        SetItemText(m_ids.parameterLabel, "");
    } else {
        if (label != nullptr) SetItemText(m_ids.parameterLabel, label);
        Send(m_ids.parameterUpDown, UDM_SETPOS32, 0, position);
        Send(m_ids.parameterUpDown, UDM_SETRANGE32, static_cast<WPARAM>(low), high);
    }
    for (const int id : {m_ids.parameterLabel, m_ids.parameterEdit, m_ids.parameterUpDown})
        EnableItem(id, on);
}

void CIIDCTriggerCtrl::HideBitmaps() const {
    for (const auto& pictures : {m_ids.normalPictures, m_ids.invertedPictures}) {
        for (const int id : pictures) {
            ::ShowWindow(Item(id), SW_HIDE);
            EnableItem(id, false);
        }
    }
}

void CIIDCTriggerCtrl::ShowModeBitmap(ULONG mask) const {
    HideBitmaps();
    ShowParameter(false, nullptr, 0, 0, 0);
    const auto* const mode = std::ranges::find(kModes, mask, &TriggerMode::mask);
    if (mode == std::end(kModes)) return;

    if (mode->caption != nullptr) SetCaption(mode->caption);
    if (mode->parameterLabel != nullptr) {
        ShowParameter(true, mode->parameterLabel, kParameterStart, kParameterLow, kParameterHigh);
    }
    if (mode->picture == kNoPicture) return;
    const auto place = static_cast<std::size_t>(mode->picture);
    const int id = IsInverted() ? m_ids.invertedPictures.at(place) : m_ids.normalPictures.at(place);
    EnableItem(id, true);
    ::ShowWindow(Item(id), SW_SHOW);
}

}  // namespace kolmfluxor
