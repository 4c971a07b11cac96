#include "pages/format_page.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <iterator>
#include <new>
#include <tuple>

#include <commctrl.h>
#include <vfwmsgs.h>

#include "base/handles.h"
#include "media/frame_time.h"
#include "pages/format_edit.h"
#include "resources/resource.h"

namespace kolmfluxor {
namespace {

using Microsoft::WRL::ComPtr;

constexpr UINT kNoTimer = 0;

/// By speed index.
constexpr std::array kSpeedNames = {"S100", "S200", "S400", "S800", "S1600", "S3200"};

constexpr ULONG kAutoChannel = 0xFFFFFFFF;
/// IEEE 1394 has channels 0 to 63; a driver that claims more must not fill the list for ever.
constexpr ULONG kMaxChannels = 64;

constexpr ULONG kIsoChannel = static_cast<ULONG>(FeatureId::isoChannel);
constexpr ULONG kAuto = static_cast<ULONG>(FeatureMode::automatic);

/// @return  `VFW_E_NOT_FOUND` when the filter has no pin
HRESULT FirstPin(IBaseFilter& filter, IPin** pin) {
    ComPtr<IEnumPins> pins;
    HRESULT hr = filter.EnumPins(&pins);
    if (hr != S_OK) return hr;
    if (pins == nullptr) return E_UNEXPECTED;
    hr = pins->Next(1, pin, nullptr);
    if (hr == S_FALSE || (hr == S_OK && *pin == nullptr)) return VFW_E_NOT_FOUND;
    return hr;
}

}  // namespace

// clang-format off
const CKolmFluxorPage_Format::AreaField CKolmFluxorPage_Format::kAreaFields[] = {
    {
        .edit = IDC_AREA_X, .upDown = IDC_AREA_X_SPIN,
        .value   = [](const CMediaTypeInfo& mode) { return mode.XPos(); },
        .checked = [](CMediaTypeInfo& mode, LONG x) { return mode.XPosChecked(x); },
        .min     = [](const CMediaTypeInfo&) { return 0L; },
        .max     = [](const CMediaTypeInfo& mode) { return mode.MaxWidth(); },
        .unit    = [](const CMediaTypeInfo& mode) { return mode.UnitXPos(); },
    },
    {
        .edit = IDC_AREA_Y, .upDown = IDC_AREA_Y_SPIN,
        .value   = [](const CMediaTypeInfo& mode) { return mode.YPos(); },
        .checked = [](CMediaTypeInfo& mode, LONG y) { return mode.YPosChecked(y); },
        .min     = [](const CMediaTypeInfo&) { return 0L; },
        .max     = [](const CMediaTypeInfo& mode) { return mode.MaxHeight(); },
        .unit    = [](const CMediaTypeInfo& mode) { return mode.UnitYPos(); },
    },
    {
        .edit = IDC_AREA_WIDTH, .upDown = IDC_AREA_WIDTH_SPIN,
        .value   = [](const CMediaTypeInfo& mode) { return mode.Width(); },
        .checked = [](CMediaTypeInfo& mode, LONG width) { return mode.WidthChecked(width); },
        .min     = [](const CMediaTypeInfo& mode) { return mode.MinWidth(); },
        .max     = [](const CMediaTypeInfo& mode) { return mode.MaxWidth(); },
        .unit    = [](const CMediaTypeInfo& mode) { return mode.UnitWidth(); },
    },
    {
        .edit = IDC_AREA_HEIGHT, .upDown = IDC_AREA_HEIGHT_SPIN,
        .value   = [](const CMediaTypeInfo& mode) { return mode.Height(); },
        .checked = [](CMediaTypeInfo& mode, LONG height) { return mode.HeightChecked(height); },
        .min     = [](const CMediaTypeInfo& mode) { return mode.MinHeight(); },
        .max     = [](const CMediaTypeInfo& mode) { return mode.MaxHeight(); },
        .unit    = [](const CMediaTypeInfo& mode) { return mode.UnitHeight(); },
    },
};
// clang-format on

const PageCommand<CKolmFluxorPage_Format> CKolmFluxorPage_Format::kCommands[] = {
    {.id = IDC_MODE, .code = CBN_SELCHANGE, .run = &CKolmFluxorPage_Format::OnModeChosen},
    {.id = IDC_ISO_SPEED, .code = CBN_SELCHANGE, .run = &CKolmFluxorPage_Format::OnSpeedChosen},
    {.id = IDC_ISO_CHANNEL, .code = CBN_SELCHANGE, .run = &CKolmFluxorPage_Format::OnChannelChosen},
    {.id = IDC_FORMAT_MARK_DIRTY, .code = BN_CLICKED, .run = &CKolmFluxorPage_Format::MarkDirty},
    {.id = IDC_AREA_ENABLE, .code = BN_CLICKED, .run = &CKolmFluxorPage_Format::OnAreaEnabled},
};

CUnknown* CKolmFluxorPage_Format::CreateInstance(IUnknown* outer, HRESULT* hr) {
    auto* const page = new (std::nothrow) CKolmFluxorPage_Format(outer);
    *hr = page != nullptr ? S_OK : E_OUTOFMEMORY;
    return page;
}

CKolmFluxorPage_Format::CKolmFluxorPage_Format(IUnknown* outer)
    : CFeaturePage(outer, IDD_FORMAT, IDS_FORMAT, kNoTimer),
      m_modeCombo(IDC_MODE, &m_hwnd),
      m_speedCombo(IDC_ISO_SPEED, &m_hwnd),
      m_channelCombo(IDC_ISO_CHANNEL, &m_hwnd) {}

HRESULT CKolmFluxorPage_Format::OnConnect(IUnknown* object) {
    m_pin.Reset();
    m_streamConfig.Reset();
    HRESULT hr = CFeaturePage::OnConnect(object);
    if (hr != S_OK) return hr;
    ComPtr<IBaseFilter> filter;
    hr = object->QueryInterface(IID_PPV_ARGS(&filter));
    if (hr != S_OK) return hr;
    hr = FirstPin(*filter.Get(), &m_pin);
    if (hr != S_OK) return hr;
    return m_pin->QueryInterface(IID_PPV_ARGS(&m_streamConfig));
}

HRESULT CKolmFluxorPage_Format::OnDisconnect() {
    const HRESULT hr = CFeaturePage::OnDisconnect();
    m_pin.Reset();
    m_streamConfig.Reset();
    return hr;
}

HRESULT CKolmFluxorPage_Format::OnActivate() {
    m_activating = true;
    const ScopeExit done([this] { m_activating = false; });
    ::SetDlgItemTextA(m_hwnd, IDC_FRAME_RATE, "0");
    ::SetDlgItemTextA(m_hwnd, IDC_MULTI_SHOT, "0");
    return CFeaturePage::OnActivate();
}

void CKolmFluxorPage_Format::OnFill() {
    ULONG unused = 0;
    std::ignore = Camera()->GetProperty12Value(&unused);  // Compatibility: asked for, not used
    FillSpeeds();
    FillChannels();
    FillModes();
    ShowMode();
}

void CKolmFluxorPage_Format::FillSpeeds() {
    ULONG min = 0;
    ULONG max = 0;
    ULONG current = 0;
    if (Camera()->GetIsoSpeedRange(&min, &max) != S_OK) return;
    if (Camera()->GetIsoSpeed(&current) != S_OK) return;
    for (ULONG speed = min; speed <= max && speed < kSpeedNames.size(); ++speed) {
        const LRESULT position = m_speedCombo.Add(kSpeedNames[speed], speed);
        if (speed == current) m_speedCombo.SelectPosition(position);
    }
}

void CKolmFluxorPage_Format::FillChannels() {
    BOOL present = FALSE;  // the answer counts, not what it says
    ULONG min = 0;
    ULONG max = 0;
    ULONG mode = 0;
    ULONG current = 0;
    if (Camera()->IsFeaturePresent(kIsoChannel, &present) != S_OK) return;
    if (Camera()->GetFeatureRange(kIsoChannel, &min, &max) != S_OK) return;
    if (Camera()->GetFeatureMode(kIsoChannel, &mode) != S_OK) return;
    if (Camera()->GetFeatureValue(kIsoChannel, &current) != S_OK) return;

    LRESULT selection = m_channelCombo.Add("Auto", kAutoChannel);
    for (ULONG i = 0; i < kMaxChannels && min <= max && i <= max - min; ++i) {
        const ULONG channel = min + i;
        std::array<char, 16> text{};
        std::snprintf(text.data(), text.size(), "ch %d", static_cast<int>(channel));
        const LRESULT position = m_channelCombo.Add(text.data(), channel);
        if (channel == current && mode != kAuto) selection = position;
    }
    m_channelCombo.SelectPosition(selection);
}

void CKolmFluxorPage_Format::FillModes() {
    m_modeCombo.Clear();
    FormatModes found;
    std::ignore = ReadFormatModes(m_pin.Get(), Camera(), found);  // an unreadable pin leaves an empty list
    m_modes = std::move(found.modes);
    for (const FormatMode& mode : m_modes) {
        m_modeCombo.Add(mode.text.c_str(), static_cast<ULONG>(mode.capability));
    }
    // Compatibility: positions and capability indexes are taken for one and the same, as camera drivers offer nothing
    // but video types.
    if (!m_modes.empty()) m_modeCombo.SelectPosition(found.currentCapability.value_or(0));
}

std::size_t CKolmFluxorPage_Format::ChosenMode() const {
    return FormatModeIndex(m_modeCombo.SelectedData(), m_modes.size());
}

void CKolmFluxorPage_Format::ShowMode() {
    try {
        m_working = m_modes[ChosenMode()].info;
        ShowArea();
        ShowFrameRate();
        MarkDirty();
    } catch (...) {
        // A mode that can't be shown whole is shown as far as it goes.
    }
}

void CKolmFluxorPage_Format::ShowArea() {
    for (const AreaField& field : kAreaFields)
        ::SetDlgItemInt(m_hwnd, field.edit, static_cast<UINT>(field.value(m_working)), TRUE);

    const auto showLabel = [this](int id, const char* format, LONG number) {
        std::array<char, 32> text{};
        std::snprintf(text.data(), text.size(), format, static_cast<int>(number));
        ::SetDlgItemTextA(m_hwnd, id, text.data());
    };
    showLabel(IDC_AREA_WIDTH_MAX, "max: %d", m_working.MaxWidth());
    showLabel(IDC_AREA_HEIGHT_MAX, "max: %d", m_working.MaxHeight());
    showLabel(IDC_AREA_WIDTH_UNIT, "unit: %d", m_working.UnitWidth());
    showLabel(IDC_AREA_HEIGHT_UNIT, "unit: %d", m_working.UnitHeight());

    const bool scalable = m_working.IsScalable();
    EnableArea(scalable);
    if (!scalable) return;
    for (const AreaField& field : kAreaFields) {
        HWND const upDown = ::GetDlgItem(m_hwnd, field.upDown);
        ::SendMessageA(upDown, UDM_SETRANGE32, static_cast<WPARAM>(field.min(m_working)), field.max(m_working));
        ::SendMessageA(upDown, UDM_SETPOS32, 0, field.value(m_working));
        // The longer the button is held (seconds), the larger the steps.
        const auto unit = static_cast<UINT>(field.unit(m_working));
        std::array<UDACCEL, 3> steps = {{{0, unit}, {1, 4 * unit}, {5, 32 * unit}}};
        ::SendMessageA(upDown, UDM_SETACCEL, steps.size(), reinterpret_cast<LPARAM>(steps.data()));
    }
}

void CKolmFluxorPage_Format::ShowFrameRate() {
    // The ends are standard IIDC rates; the checked setter keeps the choice inside the mode's own limits.
    const LONG lowest = FrameTimeToIidcFpms(m_working.FrameTimeMax());
    const LONG highest = FrameTimeToIidcFpms(m_working.FrameTimeMin());
    const LONG current = FrameTimeToFpms(m_working.FrameTimeAvg());
    HWND const slider = ::GetDlgItem(m_hwnd, IDC_FRAME_RATE_SLIDER);
    ::EnableWindow(slider, lowest != highest);
    ::SendMessageA(slider, TBM_SETRANGEMIN, FALSE, lowest);
    ::SendMessageA(slider, TBM_SETRANGEMAX, FALSE, highest);
    ::SendMessageA(slider, TBM_SETPOS, TRUE, current);
    SetFrameRateText(IDC_FRAME_RATE_MIN, lowest);
    SetFrameRateText(IDC_FRAME_RATE_MAX, highest);
    SetFrameRateText(IDC_FRAME_RATE, current);
}

void CKolmFluxorPage_Format::SetFrameRateText(int id, LONG fpms) const {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.3f", static_cast<double>(fpms) / 1000.0);
    ::SetDlgItemTextA(m_hwnd, id, text.data());
}

void CKolmFluxorPage_Format::EnableArea(bool enable) {
    for (const AreaField& field : kAreaFields) {
        ::EnableWindow(::GetDlgItem(m_hwnd, field.edit), enable);
        ::EnableWindow(::GetDlgItem(m_hwnd, field.upDown), enable);
    }
}

INT_PTR CKolmFluxorPage_Format::OnReceiveMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    const bool scroll = message == WM_HSCROLL || message == WM_VSCROLL;
    if (scroll && lParam != 0 && Camera() != nullptr) {
        const int id = ::GetDlgCtrlID(reinterpret_cast<HWND>(lParam));
        const bool isUpDown = std::ranges::find(kAreaFields, id, &AreaField::upDown) != std::end(kAreaFields);
        if (id == IDC_FRAME_RATE_SLIDER) OnFrameRateMoved();
        if (isUpDown && message == WM_VSCROLL) MarkDirty();
    }
    return CFeaturePage::OnReceiveMessage(hwnd, message, wParam, lParam);
}

bool CKolmFluxorPage_Format::OnCommand(int id, UINT code) {
    if (code == EN_KILLFOCUS) {
        const auto* const field = std::ranges::find(kAreaFields, id, &AreaField::edit);
        if (field != std::end(kAreaFields)) {
            OnAreaEdited(*field);
            return true;
        }
    }
    return RunCommand<CKolmFluxorPage_Format>(*this, kCommands, id, code);
}

void CKolmFluxorPage_Format::OnModeChosen() {
    ShowMode();
    MarkDirty();
}

void CKolmFluxorPage_Format::OnSpeedChosen() {
    ULONG speed = m_speedCombo.SelectedData();
    if (Camera()->SetIsoSpeed(speed) == S_OK) return;
    if (Camera()->GetIsoSpeed(&speed) == S_OK) m_speedCombo.SelectData(speed);
}

void CKolmFluxorPage_Format::OnChannelChosen() {
    ULONG channel = m_channelCombo.SelectedData();
    if (Camera()->SetFeatureValue(kIsoChannel, channel) == S_OK) return;
    if (Camera()->GetFeatureValue(kIsoChannel, &channel) == S_OK) m_channelCombo.SelectData(channel);
}

void CKolmFluxorPage_Format::OnAreaEnabled() {
    EnableArea(::IsDlgButtonChecked(m_hwnd, IDC_AREA_ENABLE) == BST_CHECKED);
    MarkDirty();
}

void CKolmFluxorPage_Format::EditMode(const std::function<void()>& edit) {
    RunFormatEdit(m_hwnd, edit);
    MarkDirty();
}

void CKolmFluxorPage_Format::OnAreaEdited(const AreaField& field) {
    EditMode([&] {
        BOOL isNumber = FALSE;
        const auto typed = static_cast<LONG>(::GetDlgItemInt(m_hwnd, field.edit, &isNumber, TRUE));
        const LONG allowed = isNumber ? field.checked(m_working, typed) : field.value(m_working);
        if (!isNumber || allowed != typed) ::SetDlgItemInt(m_hwnd, field.edit, static_cast<UINT>(allowed), TRUE);
    });
}

void CKolmFluxorPage_Format::OnFrameRateMoved() {
    EditMode([this] {
        HWND const slider = ::GetDlgItem(m_hwnd, IDC_FRAME_RATE_SLIDER);
        const auto chosen = static_cast<LONG>(::SendMessageA(slider, TBM_GETPOS, 0, 0));
        const LONG allowed = m_working.FpmsChecked(chosen);
        if (allowed != chosen) ::SendMessageA(slider, TBM_SETPOS, FALSE, allowed);
        SetFrameRateText(IDC_FRAME_RATE, allowed);
    });
}

void CKolmFluxorPage_Format::MarkDirty() {
    if (!m_activating) SetDirty();
}

HRESULT CKolmFluxorPage_Format::OnApplyChanges() {
    try {
        if (Camera() != nullptr) ApplyWorking(ChosenMode());
    } catch (...) {
        // Nothing chosen that could be applied.
    }
    return S_OK;
}

void CKolmFluxorPage_Format::ApplyWorking(std::size_t chosen) {
    CMediaTypeInfo& stored = m_modes[chosen].info;
    const HRESULT hr =
        Camera()->ApplyMediaTypeComposite(m_streamConfig.Get(), &m_working.MediaType(), &m_working.StreamConfigCaps());
    if (hr != S_OK) {
        m_working = stored;  // the camera refused: the edits are dropped
        return;
    }
    stored = m_working;
    std::ignore = Camera()->SetImagePositionForMediaType(static_cast<ULONG>(m_working.XPos()),
                                                         static_cast<ULONG>(m_working.YPos()), &m_working.MediaType());
}

}  // namespace kolmfluxor
