#include "pages/info_page.h"

#include <array>
#include <cstdio>
#include <new>

#include "base/handles.h"
#include "pages/common/simple_controls.h"
#include "pages/info_texts.h"
#include "resources/resource.h"

namespace kolmfluxor {
namespace {

constexpr UINT kNoTimer = 0;

/// All texts of the page are cut to 63 characters.
using TextBuffer = std::array<char, 64>;

/// A figure that the camera's driver tells, where it is shown, and how.
struct Figure {
    ULONG selector;
    int control;
    FigureFormatter format;
};

constexpr Figure kFigures[] = {
    {.selector = 5, .control = IDC_INFO_MC_VERSION, .format = FormatVersion},
    {.selector = 6, .control = IDC_INFO_FPGA_VERSION, .format = FormatVersion},
    {.selector = 41, .control = IDC_INFO_PACKET_USED, .format = FormatDecimal},
    {.selector = 42, .control = IDC_INFO_PACKET_FREE, .format = FormatDecimal},
    {.selector = 43, .control = IDC_INFO_CHANNELS_HIGH, .format = FormatBits},
    {.selector = 44, .control = IDC_INFO_CHANNELS_LOW, .format = FormatBits},
};

}  // namespace

CUnknown* CKolmFluxorPage_Info::CreateInstance(IUnknown* outer, HRESULT* hr) {
    auto* const page = new (std::nothrow) CKolmFluxorPage_Info(outer);
    *hr = page != nullptr ? S_OK : E_OUTOFMEMORY;
    return page;
}

CKolmFluxorPage_Info::CKolmFluxorPage_Info(IUnknown* outer) : CFeaturePage(outer, IDD_INFO, IDS_INFO, kNoTimer) {}

HRESULT CKolmFluxorPage_Info::OnApplyChanges() {
    if (m_hwnd != nullptr && Camera() != nullptr) OnFill();
    return S_OK;
}

void CKolmFluxorPage_Info::OnFill() {
    // What can't be read keeps its text, and the rest goes on.
    ShowCameraInfo();
    ShowFigures();
}

void CKolmFluxorPage_Info::ShowCameraInfo() {
    constexpr std::array kControls = {IDC_INFO_VENDOR, IDC_INFO_CAMERA, IDC_INFO_DRIVER};
    std::array<char*, kControls.size()> texts{};
    ULONG serialNumber = 0;
    const HRESULT hr = Camera()->GetCameraInfo(&texts[0], &texts[1], &texts[2], &serialNumber);

    const std::array<UniqueCoTaskMem<char>, kControls.size()> owned = {
        UniqueCoTaskMem<char>(texts[0]), UniqueCoTaskMem<char>(texts[1]), UniqueCoTaskMem<char>(texts[2])};
    if (hr != S_OK) return;
    TextBuffer buffer{};
    for (std::size_t i = 0; i < kControls.size(); ++i) {
        if (owned[i] == nullptr) continue;
        std::snprintf(buffer.data(), buffer.size(), "%s", owned[i].get());
        ShowText(kControls[i], buffer.data());
    }
    FormatSerialNumber(buffer, serialNumber);
    ShowText(IDC_INFO_SERIAL_NUMBER, buffer.data());
}

void CKolmFluxorPage_Info::ShowFigures() {
    TextBuffer buffer{};
    for (const Figure& figure : kFigures) {
        ULONG value = 0;
        if (Camera()->GetProperty56Composite(figure.selector, &value) != S_OK) continue;
        figure.format(buffer, value);
        ShowText(figure.control, buffer.data());
    }
}

void CKolmFluxorPage_Info::ShowText(int id, const char* text) {
    CSimpleCtrl(id, &m_hwnd).SetText(text);
}

}  // namespace kolmfluxor
