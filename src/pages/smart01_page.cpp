#include "pages/smart01_page.h"

#include <exception>
#include <new>

#include "resources/resource.h"

namespace kolmfluxor {
namespace {

constexpr UINT kNoTimer = 0;

constexpr ComboBoxFeatureIds kTestImage = {
    .groupBox = IDC_TESTIMAGE, .label = IDC_TESTIMAGE_LABEL, .combo = IDC_TESTIMAGE_NUMBER};

// clang-format off
//                                     group box     minimum           maximum           trackbar             edit               mode
constexpr FeatureSliderIds kHighSnr        = {IDC_HIGHSNR, IDC_HIGHSNR_MIN, IDC_HIGHSNR_MAX, IDC_HIGHSNR_SLIDER, IDC_HIGHSNR_EDIT, IDC_HIGHSNR_MODE};
constexpr FeatureSliderIds kDsnuCorrection = {IDC_DSNU,    IDC_DSNU_MIN,    IDC_DSNU_MAX,    IDC_DSNU_SLIDER,    IDC_DSNU_EDIT,    IDC_DSNU_MODE};
// clang-format on

}  // namespace

CUnknown* CKolmFluxorPage_Smart01::CreateInstance(IUnknown* outer, HRESULT* hr) {
    auto* const page = new (std::nothrow) CKolmFluxorPage_Smart01(outer);
    *hr = page != nullptr ? S_OK : E_OUTOFMEMORY;
    return page;
}

CKolmFluxorPage_Smart01::CKolmFluxorPage_Smart01(IUnknown* outer)
    : CFeaturePage(outer, IDD_SMART01, IDS_SMART01, kNoTimer),
      m_testImage(kTestImage, &m_hwnd),
      m_highSnr(kHighSnr, &m_hwnd),
      m_dsnuCorrection(kDsnuCorrection, &m_hwnd),
      m_table{
          {&m_highSnr, "High snr", FeatureId::highSnr},
          {&m_dsnuCorrection, "DSNU correction", FeatureId::dsnuCorrection},
      } {
    m_groups = m_table;
}

void CKolmFluxorPage_Smart01::OnPrepare() {
    m_testImage.SetCaption("Test image");
    m_testImage.Init(Camera());
}

bool CKolmFluxorPage_Smart01::OnCommand(int id, UINT code) {
    if (id != IDC_TESTIMAGE_NUMBER || code != CBN_SELCHANGE) return false;
    try {
        m_testImage.OnChosen(Camera());
        return true;
    } catch (const std::exception& error) {
        ::MessageBoxA(m_hwnd, error.what(), "error", MB_OK);
        return false;
    }
}

}  // namespace kolmfluxor
