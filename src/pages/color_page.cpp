#include "pages/color_page.h"

#include <new>
#include <tuple>

#include "resources/resource.h"

namespace kolmfluxor {
namespace {

constexpr UINT kPollPeriodMs = 500;

constexpr int kSmallestCoefficient = -1000;  // thousandths
constexpr int kLargestCoefficient = 2000;

/// So many rows of the page's table are one feature of the camera.
constexpr std::size_t kWhiteBalances = 2;

// clang-format off
//                                       group box              minimum                  maximum                  trackbar                    edit                      mode
constexpr FeatureSliderIds kWhiteBalanceUb = {IDC_WHITEBALANCE_UB, IDC_WHITEBALANCE_UB_MIN, IDC_WHITEBALANCE_UB_MAX, IDC_WHITEBALANCE_UB_SLIDER, IDC_WHITEBALANCE_UB_EDIT, IDC_WHITEBALANCE_UB_MODE};
constexpr FeatureSliderIds kWhiteBalanceVr = {IDC_WHITEBALANCE_VR, IDC_WHITEBALANCE_VR_MIN, IDC_WHITEBALANCE_VR_MAX, IDC_WHITEBALANCE_VR_SLIDER, IDC_WHITEBALANCE_VR_EDIT, IDC_WHITEBALANCE_VR_MODE};
constexpr FeatureSliderIds kHue            = {IDC_HUE,             IDC_HUE_MIN,             IDC_HUE_MAX,             IDC_HUE_SLIDER,             IDC_HUE_EDIT,             IDC_HUE_MODE};
constexpr FeatureSliderIds kSaturation     = {IDC_SATURATION,      IDC_SATURATION_MIN,      IDC_SATURATION_MAX,      IDC_SATURATION_SLIDER,      IDC_SATURATION_EDIT,      IDC_SATURATION_MODE};

constexpr ColorCorrectionIds kColorCorrection = {
    .groupBox = IDC_COLORCORRECTION,
    .coefficients = {{
        {IDC_COEFFICIENT_11, IDC_COEFFICIENT_11_SPIN},
        {IDC_COEFFICIENT_21, IDC_COEFFICIENT_21_SPIN},
        {IDC_COEFFICIENT_31, IDC_COEFFICIENT_31_SPIN},
        {IDC_COEFFICIENT_12, IDC_COEFFICIENT_12_SPIN},
        {IDC_COEFFICIENT_22, IDC_COEFFICIENT_22_SPIN},
        {IDC_COEFFICIENT_32, IDC_COEFFICIENT_32_SPIN},
        {IDC_COEFFICIENT_13, IDC_COEFFICIENT_13_SPIN},
        {IDC_COEFFICIENT_23, IDC_COEFFICIENT_23_SPIN},
        {IDC_COEFFICIENT_33, IDC_COEFFICIENT_33_SPIN},
    }},
    .modeCombo = IDC_COLORCORRECTION_MODE,
};
// clang-format on

constexpr bool MovesByItself(ULONG mode) {
    return mode == static_cast<ULONG>(FeatureMode::automatic) || mode == static_cast<ULONG>(FeatureMode::onePush);
}

}  // namespace

CUnknown* CKolmFluxorPage_Color::CreateInstance(IUnknown* outer, HRESULT* hr) {
    auto* const page = new (std::nothrow) CKolmFluxorPage_Color(outer);
    *hr = page != nullptr ? S_OK : E_OUTOFMEMORY;
    return page;
}

CKolmFluxorPage_Color::CKolmFluxorPage_Color(IUnknown* outer)
    : CFeaturePage(outer, IDD_COLOR, IDS_COLOR, kPollPeriodMs),
      m_whiteBalanceUb(kWhiteBalanceUb, &m_hwnd),
      m_whiteBalanceVr(kWhiteBalanceVr, &m_hwnd),
      m_hue(kHue, &m_hwnd),
      m_saturation(kSaturation, &m_hwnd),
      m_correction(kColorCorrection, &m_hwnd),
      m_table{
          {&m_whiteBalanceUb, "White balance UB", FeatureId::whiteBalanceUB},
          {&m_whiteBalanceVr, "White balance VR", FeatureId::whiteBalanceVR},
          {&m_hue, "Hue", FeatureId::hue},
          {&m_saturation, "Saturation", FeatureId::saturation},
      } {
    m_groups = m_table;
}

void CKolmFluxorPage_Color::OnPrepare() {
    m_correction.SetRange(kSmallestCoefficient, kLargestCoefficient);
    m_correction.SetCaption("Color correction");
    m_correction.FillModes();
    m_correction.Enable(false);
    if (Camera() != nullptr) std::ignore = m_correction.Refresh(Camera());  // stays disabled where there is none
}

void CKolmFluxorPage_Color::OnPoll() {
    // Both white balances are one feature of the camera: a mode that changes in one shows in the other. Unless both are
    // at rest in the same mode, both are read, whatever their own modes. A group that could not be filled has no mode
    // and is read all the same; it stays disabled and shows nothing.
    const ULONG ub = m_whiteBalanceUb.SelectedMode();
    const ULONG vr = m_whiteBalanceVr.SelectedMode();
    if (ub != vr || MovesByItself(ub)) {
        for (const FeatureGroup& group : m_groups.first(kWhiteBalances)) {
            if (!group.control->IsDropped()) std::ignore = group.control->Poll(group.feature, Camera());
        }
    }
    PollMoving(m_groups.subspan(kWhiteBalances));
}

bool CKolmFluxorPage_Color::OnCommand(int id, UINT code) {
    switch (code) {
    case CBN_SELCHANGE:
        if (id != m_correction.ModeCombo()) return false;
        m_correction.OnModeChosen(Camera());
        return true;
    case EN_KILLFOCUS:
    case EN_CHANGE:
        return m_correction.OnEdited(id, Camera());
    default:
        return false;
    }
}

}  // namespace kolmfluxor
