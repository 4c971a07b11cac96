#pragma once
/// @file  The control group of the external trigger.

#include <array>

#include <kolmfluxor/property_set.h>

#include "pages/common/dialog_control.h"

namespace kolmfluxor {

/// The controls of the trigger group.
///
/// A picture per trigger mode that has one, in the order of the mode table: normal polarity, inverted polarity. All of
/// them lie on one spot.
struct TriggerIds {
    static constexpr std::size_t kPictures = 7;

    int groupBox;
    int modeCombo;
    int sourceCombo;
    int parameterLabel;
    int parameterEdit;
    int parameterUpDown;
    int onBox;
    int invertedBox;
    std::array<int, kPictures> normalPictures;
    std::array<int, kPictures> invertedPictures;
};

/// Shows trigger mode, source, switch, polarity and parameter, with a timing diagram, and writes what the user changes.
///
/// The group does not hold the interface: the page passes it on each call. A mode or source is named by its mask, the
/// bit that it has in the trigger inquiry word.
class CIIDCTriggerCtrl final : public CDialogControl {
public:
    CIIDCTriggerCtrl(const TriggerIds& ids, const HWND* dialog) noexcept;

    /// Offers what the camera has.
    ///
    /// @return  the failed inquiry's code; the group is disabled then
    HRESULT Init(IKolmFluxorPropertySet* camera) const;
    /// Shows the camera's state; changes nothing when it can't be read.
    void Refresh(IKolmFluxorPropertySet* camera) const;
    /// Writes what the controls say, and shows the selected mode afresh. A refusal is not reported.
    void Write(IKolmFluxorPropertySet* camera) const;

    void SetCaption(const char* text) const { SetItemText(m_ids.groupBox, text); }
    /// Enables or disables group box, parameter label and edit, and the two boxes.
    void Enable(bool enable) const;
    /// Adds a mode and enables the list of modes.
    void AddMode(const char* text, ULONG mask) const;
    /// Adds a source and disables the list of sources: it is shown, never chosen.
    void AddSource(const char* text, ULONG mask) const;
    /// Selects the first entry of this mode and shows its picture; without an entry everything stays as it is.
    void SelectMode(ULONG mask) const;
    /// Selects the first entry of this source.
    void SelectSource(ULONG mask) const;
    /// The selected mode's mask; 0xFFFFFFFF without a selection.
    [[nodiscard]] ULONG SelectedMode() const;
    void SetOn(bool on) const;
    void SetInverted(bool inverted) const;
    [[nodiscard]] bool IsOn() const;
    [[nodiscard]] bool IsInverted() const;
    /// The number that the parameter edit's text begins with; 0 when there is none, or it is beyond 32 bits.
    [[nodiscard]] ULONG Parameter() const;
    /// Switches the parameter controls on, or off with an empty label.
    ///
    /// @param label     null leaves the label's text
    /// @param position  of the up-down, which the edit shows
    /// @param low,high  the up-down's range
    void ShowParameter(bool on, const char* label, int position, int low, int high) const;
    /// Hides and disables all pictures.
    void HideBitmaps() const;
    /// Shows a mode's caption, parameter controls and picture; a mode without a picture shows none.
    void ShowModeBitmap(ULONG mask) const;

private:
    TriggerIds m_ids;
};

}  // namespace kolmfluxor
