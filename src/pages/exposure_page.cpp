#include "pages/exposure_page.h"

#include <new>

#include "resources/resource.h"

namespace kolmfluxor {
namespace {

constexpr UINT kPollPeriodMs = 500;

// clang-format off
//                                       group box         minimum         maximum         trackbar           edit             mode             extra
constexpr FeatureSliderIds kBrightness   = {IDC_BRIGHTNESS,   IDC_BRIGHTNESS_MIN,   IDC_BRIGHTNESS_MAX,   IDC_BRIGHTNESS_SLIDER,   IDC_BRIGHTNESS_EDIT,   IDC_BRIGHTNESS_MODE};
constexpr FeatureSliderIds kGain         = {IDC_GAIN,         IDC_GAIN_MIN,         IDC_GAIN_MAX,         IDC_GAIN_SLIDER,         IDC_GAIN_EDIT,         IDC_GAIN_MODE};
constexpr FeatureSliderIds kShutter      = {IDC_SHUTTER,      IDC_SHUTTER_MIN,      IDC_SHUTTER_MAX,      IDC_SHUTTER_SLIDER,      IDC_SHUTTER_EDIT,      IDC_SHUTTER_MODE,      IDC_SHUTTER_UNIT};
constexpr FeatureSliderIds kGamma        = {IDC_GAMMA,        IDC_GAMMA_MIN,        IDC_GAMMA_MAX,        IDC_GAMMA_SLIDER,        IDC_GAMMA_EDIT,        IDC_GAMMA_MODE};
constexpr FeatureSliderIds kAutoExposure = {IDC_AUTOEXPOSURE, IDC_AUTOEXPOSURE_MIN, IDC_AUTOEXPOSURE_MAX, IDC_AUTOEXPOSURE_SLIDER, IDC_AUTOEXPOSURE_EDIT, IDC_AUTOEXPOSURE_MODE};
// clang-format on

}  // namespace

const PageCommand<CKolmFluxorPage_Exposure> CKolmFluxorPage_Exposure::kCommands[] = {
    {.id = IDC_SHUTTER_TIMEBASE, .code = CBN_SELCHANGE, .run = &CKolmFluxorPage_Exposure::OnTimeBase},
    {.id = IDC_SHUTTER_EXTENDED, .code = BN_CLICKED, .run = &CKolmFluxorPage_Exposure::OnExtended},
    {.id = IDC_MARK_DIRTY, .code = BN_CLICKED, .run = &CKolmFluxorPage_Exposure::SetDirty},
};

CUnknown* CKolmFluxorPage_Exposure::CreateInstance(IUnknown* outer, HRESULT* hr) {
    auto* const page = new (std::nothrow) CKolmFluxorPage_Exposure(outer);
    *hr = page != nullptr ? S_OK : E_OUTOFMEMORY;
    return page;
}

CKolmFluxorPage_Exposure::CKolmFluxorPage_Exposure(IUnknown* outer)
    : CFeaturePage(outer, IDD_EXPOSURE, IDS_EXPOSURE, kPollPeriodMs),
      m_brightness(kBrightness, &m_hwnd),
      m_gain(kGain, &m_hwnd),
      m_shutter(kShutter, IDC_SHUTTER_EXTENDED, IDC_SHUTTER_TIMEBASE, &m_hwnd),
      m_gamma(kGamma, &m_hwnd),
      m_autoExposure(kAutoExposure, &m_hwnd),
      m_table{
          {&m_brightness, "Brightness", FeatureId::brightness},
          {&m_gain, "Gain", FeatureId::gain},
          {&m_shutter, "Shutter", FeatureId::shutter},
          {&m_gamma, "Gamma", FeatureId::gamma},
          {&m_autoExposure, "Auto exposure", FeatureId::autoExposure},
      } {
    m_groups = m_table;
}

bool CKolmFluxorPage_Exposure::OnCommand(int id, UINT code) {
    return RunCommand<CKolmFluxorPage_Exposure>(*this, kCommands, id, code);
}

void CKolmFluxorPage_Exposure::OnTimeBase() {
    m_shutter.OnTimeBaseChosen(Camera());
}

void CKolmFluxorPage_Exposure::OnExtended() {
    m_shutter.OnExtendedClicked(Camera());
    SetDirty();
}

}  // namespace kolmfluxor
