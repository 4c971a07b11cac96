#include "pages/color_correction_ctrl.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include <commctrl.h>
#include <kolmfluxor/features.h>

#include "base/errors.h"

namespace kolmfluxor {
namespace {

constexpr ULONG kControl = 0xF10003A0;       // "KolmColorCorrection"
constexpr ULONG kCoefficients = 0xF10003A4;  // "KolmColorCorrectionC11" to "...C33", row by row
constexpr ULONG kDisable = 1U << 25;
constexpr ULONG kReset = 1U << 24;

constexpr std::size_t kSide = 3;

/// The register of a place of the matrix, row and column counted from 0.
constexpr ULONG RegisterAt(std::size_t row, std::size_t column) {
    return kCoefficients + static_cast<ULONG>(4 * (kSide * row + column));
}

template <std::size_t... Order>
std::array<CKolmNumberEditCtrl, kColorCoefficients> MakeEdits(const ColorCorrectionIds& ids, const HWND* dialog,
                                                              std::index_sequence<Order...>) {
    return {{CKolmNumberEditCtrl(ids.coefficients[Order].edit, dialog)...}};
}

/// Sets a flag for as long as it lives.
class CRaisedFlag {
public:
    explicit CRaisedFlag(bool& flag) noexcept : m_flag(flag) { flag = true; }
    ~CRaisedFlag() { m_flag = false; }
    CRaisedFlag(const CRaisedFlag&) = delete;
    CRaisedFlag& operator=(const CRaisedFlag&) = delete;

private:
    bool& m_flag;
};

}  // namespace

CColorCorrectionCtrl::CColorCorrectionCtrl(const ColorCorrectionIds& ids, const HWND* dialog)
    : CDialogControl(dialog, "null pointer: pointer to dialog still NULL"),
      m_ids(ids),
      m_edits(MakeEdits(ids, dialog, std::make_index_sequence<kColorCoefficients>())) {}

void CColorCorrectionCtrl::FillModes() const {
    AddEntry(m_ids.modeCombo, "Manual", static_cast<ULONG>(ColorCorrectionMode::manual));
    AddEntry(m_ids.modeCombo, "Off", static_cast<ULONG>(ColorCorrectionMode::off));
    AddEntry(m_ids.modeCombo, "Reset", static_cast<ULONG>(ColorCorrectionMode::reset));
}

void CColorCorrectionCtrl::Enable(bool enable) const {
    EnableItem(m_ids.groupBox, enable);
    EnableItem(m_ids.modeCombo, enable);
    EnableCoefficients(enable);
}

void CColorCorrectionCtrl::EnableCoefficients(bool enable) const {
    for (const auto& [edit, upDown] : m_ids.coefficients) {
        EnableItem(edit, enable);
        EnableItem(upDown, enable);
    }
}

void CColorCorrectionCtrl::SetRange(int min, int max) {
    const CRaisedFlag filling(m_filling);  // an up-down may put a number into its edit
    for (const auto& [edit, upDown] : m_ids.coefficients)
        Send(upDown, UDM_SETRANGE32, static_cast<WPARAM>(min), max);
    m_min = min;
    m_max = max;
}

int CColorCorrectionCtrl::Clamp(int value) const noexcept {
    return value < m_min ? m_min : std::min(value, m_max);
}

HRESULT CColorCorrectionCtrl::Refresh(IKolmFluxorPropertySet* camera) {
    BOOL present = FALSE;
    if (const HRESULT hr = camera->IsFeaturePresent(static_cast<ULONG>(FeatureId::colorCorrection), &present);
        hr != S_OK) {
        return hr;
    }
    if (present != TRUE) return E_NOTIMPL;
    Enable(true);

    BOOL on = FALSE;
    if (camera->GetColorCorrectionOnOff(&on) != S_OK) on = FALSE;  // whatever the answer says; nor is another mode on
    SelectMode(static_cast<ULONG>(on != FALSE ? ColorCorrectionMode::manual : ColorCorrectionMode::off));

    ULONG first = 0;
    if (const HRESULT hr = camera->ReadRegister(RegisterAt(0, 0), &first); hr != S_OK) {
        EnableCoefficients(false);
        return hr;
    }
    const CRaisedFlag filling(m_filling);
    for (std::size_t row = 0; row < kSide; ++row) {
        for (std::size_t column = 0; column < kSide; ++column) {
            ULONG word = first;
            if (row + column != 0) {
                word = 0;
                std::ignore = camera->ReadRegister(RegisterAt(row, column), &word);  // shows what a failure leaves
            }
            std::ignore = m_edits[kSide * column + row].setValue(static_cast<int>(word));
        }
    }
    return S_OK;
}

void CColorCorrectionCtrl::OnModeChosen(IKolmFluxorPropertySet* camera) {
    ULONG set = 0;
    ULONG clear = 0;
    const auto mode = static_cast<ColorCorrectionMode>(SelectedMode());
    switch (mode) {
    case ColorCorrectionMode::off:
        set = kDisable;
        break;
    case ColorCorrectionMode::manual:
        clear = kDisable;
        break;
    case ColorCorrectionMode::reset:
        set = kReset;
        break;
    default:
        return;  // nothing is selected
    }

    ULONG word = 0;
    if (camera->ReadRegister(kControl, &word) != S_OK) return;
    const HRESULT hr = camera->WriteRegister(kControl, (word & ~clear) | set);
    // The factory's matrix is the camera's to tell; after a refusal so is everything.
    if (hr != S_OK || mode == ColorCorrectionMode::reset) std::ignore = Refresh(camera);
}

bool CColorCorrectionCtrl::OnEdited(int id, IKolmFluxorPropertySet* camera) {
    const auto found = std::ranges::find(m_ids.coefficients, id, &ColorCorrectionIds::Coefficient::edit);
    if (found == m_ids.coefficients.end()) return false;
    if (!m_filling) WriteCoefficient(static_cast<std::size_t>(found - m_ids.coefficients.begin()), camera);
    return true;
}

void CColorCorrectionCtrl::WriteCoefficient(std::size_t order, IKolmFluxorPropertySet* camera) {
    const CKolmNumberEditCtrl& edit = m_edits[order];
    int value = 0;
    try {
        value = edit.value();
    } catch (const CTextException&) {
        // Somebody may have only begun to type. An undo reports a change too, and may restore what is no number.
        if (edit.isEmpty() || edit.isMinus() || m_undoing) return;
        const CRaisedFlag undoing(m_undoing);
        edit.undo();
        return;
    }
    // Compatibility: the edits stand column by column, the registers row by row, so that an edit off the diagonal
    // writes the register that its mirror image shows. Stored matrices and scripts count on it.
    std::ignore = camera->WriteRegister(kCoefficients + static_cast<ULONG>(4 * order), static_cast<ULONG>(value));
    // Compatibility: the camera gets the number as it was typed, and the clamped one right after it: rewriting the
    // edit reports a change, which arrives here again. With a minimum above the maximum the clamped number is out of
    // range too; it stays then.
    const int clamped = Clamp(value);
    if (clamped == value || m_clamping) return;
    const CRaisedFlag clamping(m_clamping);
    std::ignore = edit.setValue(clamped);
}

}  // namespace kolmfluxor
