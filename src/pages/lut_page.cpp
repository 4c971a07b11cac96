#include "pages/lut_page.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <exception>
#include <new>
#include <span>
#include <string>
#include <tuple>
#include <vector>

#include <commdlg.h>

#include "base/handles.h"
#include "lut/lut_curve.h"
#include "lut/lut_loader.h"
#include "resources/resource.h"

namespace kolmfluxor {
namespace {

constexpr ULONG kMostLuts = 255;  // the camera's register for their number is 8 bits wide

/// Asks for a file. @return  its path in the system's code page; empty when there is none
std::string AskForFile(HWND owner) {
    std::array<char, MAX_PATH> path{};
    OPENFILENAMEA question{};
    question.lStructSize = sizeof question;
    question.hwndOwner = owner;
    question.lpstrFilter = "All\0*.*\0CSV\0*.csv\0";
    question.nFilterIndex = 1;
    question.lpstrFile = path.data();
    question.nMaxFile = static_cast<DWORD>(path.size());
    question.Flags = OFN_PATHMUSTEXIST | OFN_FILEMUSTEXIST;
    return ::GetOpenFileNameA(&question) ? path.data() : "";
}

/// A LUT's values as an upload takes them, whole words only.
template <class Value> std::vector<ULONG> WordsOf(const std::vector<Value>& values, std::size_t quadlets) {
    std::vector<ULONG> words(quadlets + 1);  // an upload of nothing needs an address, too
    std::memcpy(words.data(), values.data(), quadlets * sizeof(ULONG));
    return words;
}

}  // namespace

// These end here …
const PageCommand<CKolmFluxorPage_Lut> CKolmFluxorPage_Lut::kAnswered[] = {
    {.id = IDC_LUT_LOAD, .code = BN_CLICKED, .run = &CKolmFluxorPage_Lut::OnLoadCsv},
    {.id = IDC_LUT_TO_CAMERA, .code = BN_CLICKED, .run = &CKolmFluxorPage_Lut::OnToCamera},
};
// … and these go on to the base. So do all of the function editor, which has no effect.
const PageCommand<CKolmFluxorPage_Lut> CKolmFluxorPage_Lut::kPassedOn[] = {
    {.id = IDC_LUT_ENABLE, .code = BN_CLICKED, .run = &CKolmFluxorPage_Lut::OnControlChanged},
    {.id = IDC_LUT_NUMBER, .code = CBN_SELCHANGE, .run = &CKolmFluxorPage_Lut::OnControlChanged},
    {.id = IDC_LUT_LOADED, .code = CBN_SELCHANGE, .run = &CKolmFluxorPage_Lut::OnLoadedChosen},
};

CUnknown* CKolmFluxorPage_Lut::CreateInstance(IUnknown* outer, HRESULT* hr) {
    auto* const page = new (std::nothrow) CKolmFluxorPage_Lut(outer);
    *hr = page != nullptr ? S_OK : E_OUTOFMEMORY;
    return page;
}

CKolmFluxorPage_Lut::CKolmFluxorPage_Lut(IUnknown* outer)
    : CFeaturePage(outer, IDD_LUT, IDS_LUT, 0),
      m_controlGroup(IDC_LUT_CONTROL, &m_hwnd),
      m_enable(IDC_LUT_ENABLE, &m_hwnd),
      m_number(IDC_LUT_NUMBER, &m_hwnd),
      m_editorGroup(IDC_LUT_EDITOR, &m_hwnd),
      m_load(IDC_LUT_LOAD, &m_hwnd),
      m_loaded(IDC_LUT_LOADED, &m_hwnd),
      m_toCamera(IDC_LUT_TO_CAMERA, &m_hwnd),
      m_picture(IDC_LUT_PICTURE, &m_hwnd),
      m_function(IDC_LUT_FUNCTION, &m_hwnd) {}

INT_PTR CKolmFluxorPage_Lut::OnReceiveMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    const INT_PTR result = CFeaturePage::OnReceiveMessage(hwnd, message, wParam, lParam);
    if (message == WM_PAINT && m_luts.IsValid()) DrawCurve();
    return result;
}

void CKolmFluxorPage_Lut::OnFill() {
    m_info = {};
    BOOL on = FALSE;
    ULONG current = 0;
    ULONG numberOfLuts = 0;
    ULONG maxLutSize = 0;
    if (Camera()->GetLutControl(&on, &current, &numberOfLuts, &maxLutSize) != S_OK) return;
    m_number.Clear();
    ULONG bitsPerValue = 0;
    const bool known = Camera()->GetFeatureValue(static_cast<ULONG>(FeatureId::lut), &bitsPerValue) == S_OK;
    m_number.Enable(known);
    m_enable.Enable(known);
    m_controlGroup.Enable(known);
    m_editorGroup.Enable(known);
    m_load.Enable(known);
    if (!known) return;

    m_info = {.onOff = static_cast<ULONG>(on),
              .current = current,
              .numberOfLuts = numberOfLuts,
              .maxLutSize = maxLutSize,
              .bitsPerValue = bitsPerValue};
    m_function.Enable(true);  // hidden all the same
    m_enable.Check(on != FALSE ? TRUE : FALSE);
    FillLutNumbers();
    if (!m_luts.IsValid()) return;
    FillLoadedLuts();
    m_toCamera.Enable(true);
}

void CKolmFluxorPage_Lut::FillLutNumbers() {
    for (ULONG i = 0; i < std::min(m_info.numberOfLuts, std::uint32_t{kMostLuts}); ++i)
        m_number.AddValue(std::to_string(i + 1).c_str(), i);
    if (m_number.Count() >= m_info.current) m_number.SelectValue(m_info.current);
    m_number.Enable(m_number.Count() > 1);
}

void CKolmFluxorPage_Lut::FillLoadedLuts() {
    m_loaded.Clear();
    for (ULONG i = 0; i < m_luts.GetLUTCount(); ++i)
        m_loaded.AddValue(m_luts.GetLUTName(i).c_str(), i);
    m_loaded.SelectValue(0);  // wherever its name stands in the sorted list
    m_loaded.Enable(m_loaded.Count() > 1);
}

bool CKolmFluxorPage_Lut::OnCommand(int id, UINT code) {
    if (RunCommand<CKolmFluxorPage_Lut>(*this, kAnswered, id, code)) return true;
    std::ignore = RunCommand<CKolmFluxorPage_Lut>(*this, kPassedOn, id, code);
    return false;
}

void CKolmFluxorPage_Lut::OnControlChanged() {
    const ULONG number = m_number.SelectedValue();
    std::ignore = Camera()->SetLutControl(m_enable.IsChecked() ? 1 : 0, number);  // not reported
}

void CKolmFluxorPage_Lut::OnLoadedChosen() {
    m_picture.Invalidate(true);
}

void CKolmFluxorPage_Lut::OnLoadCsv() {
    // While the user looks at a dialog, the frame may go and take its references along.
    const Microsoft::WRL::ComPtr<IPropertyPage> alive(this);
    m_luts.SetValid(false);
    const char* const failure = LoadFromFile();
    if (m_hwnd == nullptr) return;  // the frame has gone
    if (failure != nullptr) ::MessageBoxA(m_hwnd, failure, "LoadFromFile Error", MB_ICONEXCLAMATION);
    if (m_hwnd == nullptr) return;  // cppcheck-suppress knownConditionTrueFalse ; it went with the message
    const bool loaded = failure == nullptr;
    m_toCamera.Enable(loaded);
    m_picture.Enable(loaded);
    if (!loaded) m_loaded.Enable(false);  // else it depends on how many there are
    m_picture.Invalidate(true);           // on failure, too: the old curve is no longer there to be uploaded
}

const char* CKolmFluxorPage_Lut::LoadFromFile() {
    const std::string path = AskForFile(m_hwnd);
    if (path.empty() || m_hwnd == nullptr) return "error opening file";
    m_loaded.Clear();

    const char* failure = "reading data failed";
    try {
        CCsvTable table;
        if (!table.Read(path.c_str())) return failure;
        if (m_info.bitsPerValue == 0) return "parsing LUTs failed";  // no file can fit
        failure = "LUT elements count and found elements are not equal";
        if (!FitsCamera(table)) return failure;
        failure = "parsing LUTs failed";
        if (!LoadLutSet(m_luts, table, m_info.BytesPerValue())) return failure;
        FillLoadedLuts();
    } catch (const std::exception&) {  // out of memory: the step that failed says enough
        m_luts.SetValid(false);
        return failure;
    }
    return nullptr;
}

bool CKolmFluxorPage_Lut::FitsCamera(const CCsvTable& table) const {
    return table.GetElementCount() == m_info.ElementCount() && table.GetElementCount() > 0 && table.GetLUTCount() > 0;
}

void CKolmFluxorPage_Lut::OnToCamera() {
    const ULONG loaded = m_loaded.SelectedValue();
    const ULONG number = m_number.SelectedValue();
    const std::size_t quadlets = m_luts.GetLUTByteSize(loaded) / sizeof(ULONG);  // a remainder is not sent
    const std::vector<ULONG> words = m_luts.Type() == LutType::bits8
                                         ? WordsOf(m_luts.Get8BitLUT(loaded).values, quadlets)
                                         : WordsOf(m_luts.Get16BitLUT(loaded).values, quadlets);
    std::ignore = Camera()->UploadLut(words.data(), static_cast<ULONG>(quadlets), number);  // not reported
}

void CKolmFluxorPage_Lut::DrawCurve() const try {
    const ULONG loaded = m_loaded.SelectedValue();
    if (loaded >= m_luts.GetLUTCount()) return;
    const RECT client = m_picture.ClientRect();
    const CurveArea area = {client.left, client.top, client.right - client.left, client.bottom - client.top};
    const std::vector<CurvePoint> corners =
        m_luts.Type() == LutType::bits8
            ? LutCurve(std::span<const std::uint8_t>(m_luts.Get8BitLUT(loaded).values), area, m_info)
            : LutCurve(std::span<const std::uint16_t>(m_luts.Get16BitLUT(loaded).values), area, m_info);
    if (corners.empty()) return;
    std::vector<POINT> points;
    points.reserve(corners.size());
    for (const CurvePoint& corner : corners)
        points.push_back({corner.x, corner.y});

    HWND const picture = m_picture.Handle();
    HDC const context = ::GetDC(picture);
    if (context == nullptr) return;
    const ScopeExit release([&] { ::ReleaseDC(picture, context); });
    ::MoveToEx(context, 0, 0, nullptr);
    ::Polygon(context, points.data(), static_cast<int>(points.size()));
    const std::string name = m_luts.GetLUTName(loaded);
    ::TextOutA(context, 0, 0, name.c_str(), static_cast<int>(name.size()));
} catch (const std::exception&) {
    // Nothing is selected, or the camera's tables have changed: there is no curve to draw.
}

}  // namespace kolmfluxor
