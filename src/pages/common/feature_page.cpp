#include "pages/common/feature_page.h"

#include <tuple>

#include <commctrl.h>

namespace kolmfluxor {

CFeaturePage::~CFeaturePage() {
    // Only OnDisconnect gives the camera back: a frame that never disconnects leaves it held.
    std::ignore = m_camera.Detach();
}

HRESULT CFeaturePage::OnConnect(IUnknown* object) {
    if (object == nullptr) return E_POINTER;
    return object->QueryInterface(__uuidof(IKolmFluxorPropertySet),
                                  reinterpret_cast<void**>(m_camera.ReleaseAndGetAddressOf()));
}

HRESULT CFeaturePage::OnDisconnect() {
    // Without a window the call would end a timer of the host's thread.
    if (m_periodMs != 0 && m_hwnd != nullptr) ::KillTimer(m_hwnd, kTimer);
    m_camera.Reset();
    return S_OK;
}

HRESULT CFeaturePage::OnActivate() {
    const INITCOMMONCONTROLSEX classes = {.dwSize = sizeof classes, .dwICC = ICC_BAR_CLASSES};
    if (!::InitCommonControlsEx(&classes)) return E_FAIL;
    OnPrepare();
    for (const auto& [control, caption, feature] : m_groups) {
        control->SetCaption(caption);
        if (m_camera == nullptr) {
            control->Enable(false);
            control->ClearModes();
        } else {
            std::ignore = control->Init(feature, Camera());  // a group that can't be filled stays disabled
        }
    }
    if (m_camera == nullptr) return S_OK;
    OnFill();
    if (m_periodMs != 0) ::SetTimer(m_hwnd, kTimer, m_periodMs, nullptr);
    return S_OK;
}

INT_PTR CFeaturePage::OnReceiveMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (m_camera != nullptr) {
        switch (message) {
        case WM_TIMER:
            if (wParam != kTimer || m_periodMs == 0) break;
            OnPoll();
            // The period counts from here, so that polls never pile up behind a slow driver.
            ::KillTimer(m_hwnd, kTimer);
            ::SetTimer(m_hwnd, kTimer, m_periodMs, nullptr);
            return 1;
        case WM_COMMAND:
            if (OnGroupCommand(LOWORD(wParam), HIWORD(wParam)) || OnCommand(LOWORD(wParam), HIWORD(wParam))) return 1;
            break;
        case WM_HSCROLL:
            if (OnScroll(reinterpret_cast<HWND>(lParam), LOWORD(wParam))) return 1;
            break;
        default:
            break;
        }
    }
    return CHitTestPropertyPage::OnReceiveMessage(hwnd, message, wParam, lParam);
}

void CFeaturePage::OnPoll() {
    PollMoving(m_groups);
}

void CFeaturePage::PollMoving(std::span<const FeatureGroup> groups) {
    for (const FeatureGroup& group : groups) {
        if (group.control->WantsPoll()) std::ignore = group.control->Poll(group.feature, Camera());
    }
}

bool CFeaturePage::OnGroupCommand(int id, UINT code) {
    if (code != CBN_SELCHANGE) return false;
    for (const FeatureGroup& group : m_groups) {
        if (group.control->Ids().modeCombo != id) continue;
        group.control->OnModeChosen(group.feature, Camera());
        return true;
    }
    return false;
}

bool CFeaturePage::OnScroll(HWND trackbar, UINT code) {
    for (const FeatureGroup& group : m_groups) {
        if (trackbar == nullptr || ::GetDlgItem(m_hwnd, group.control->Ids().trackbar) != trackbar) continue;
        group.control->OnTrackbarMoved(group.feature, code, Camera());
        return true;
    }
    return false;
}

void CFeaturePage::SetDirty() {
    if (m_dirtySkips > 0) {
        --m_dirtySkips;
        return;
    }
    m_bDirty = TRUE;
    if (m_pPageSite != nullptr) m_pPageSite->OnStatusChange(PROPPAGESTATUS_DIRTY);
}

}  // namespace kolmfluxor
