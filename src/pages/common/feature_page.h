#pragma once
/// @file  A page on the camera: its groups and commands are tables that this class walks.

#include <span>

#include <kolmfluxor/property_set.h>

#include "pages/common/feature_slider_ctrl.h"
#include "pages/common/hit_test_property_page.h"

namespace kolmfluxor {

/// A feature group of a page, and the feature that it shows.
struct FeatureGroup {
    CFeatureSliderCtrl* control;
    const char* caption;
    FeatureId feature;
};

/// The common part of the pages: connection to the camera, life of the timer, and who handles which message.
///
/// A page fills `m_groups`, names its timer period, and adds commands of its own; it handles nothing that the tables
/// already say.
class CFeaturePage : public CHitTestPropertyPage {
public:
    ~CFeaturePage() override;

    INT_PTR OnReceiveMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    /// @param periodMs  of timer 1; 0 for a page without a timer
    CFeaturePage(IUnknown* outer, int dialogId, int titleId, UINT periodMs) noexcept
        : CHitTestPropertyPage(outer, dialogId, titleId), m_periodMs(periodMs) {}

    // Hooks of CBasePropertyPage
    HRESULT OnConnect(IUnknown* object) override;
    HRESULT OnDisconnect() override;
    HRESULT OnActivate() override;

    /// Prepares the page's own controls, ahead of the groups of the table. `Camera` may be null: the page then shows
    /// itself disabled.
    virtual void OnPrepare() {}
    /// Fills the page from the camera; the groups of the table are filled already.
    virtual void OnFill() {}
    /// A timer tick; this one polls the groups that move by themselves.
    virtual void OnPoll();
    /// A notification that is no group's choice of a mode. @return  whether the page handled it
    virtual bool OnCommand(int /*id*/, UINT /*code*/) { return false; }

    /// Polls those of these groups that move by themselves.
    void PollMoving(std::span<const FeatureGroup> groups);

    /// Reports a change to the frame, or counts `m_dirtySkips` down instead.
    void SetDirty();

    [[nodiscard]] IKolmFluxorPropertySet* Camera() const noexcept { return m_camera.Get(); }

    std::span<const FeatureGroup> m_groups;
    LONG m_dirtySkips = 0;  ///< change reports to swallow, which the page's own updates cause

private:
    static constexpr UINT_PTR kTimer = 1;

    bool OnGroupCommand(int id, UINT code);
    bool OnScroll(HWND trackbar, UINT code);

    const UINT m_periodMs;
    Microsoft::WRL::ComPtr<IKolmFluxorPropertySet> m_camera;  ///< null outside OnConnect … OnDisconnect
};

/// A row of a page's command table: a control's notification and the page's method for it.
template <class Page> struct PageCommand {
    int id;
    UINT code;
    void (Page::*run)();
};

/// Runs the row that matches; false when there is none.
template <class Page> bool RunCommand(Page& page, std::span<const PageCommand<Page>> commands, int id, UINT code) {
    for (const PageCommand<Page>& command : commands) {
        if (command.id != id || command.code != code) continue;
        (page.*command.run)();
        return true;
    }
    return false;
}

}  // namespace kolmfluxor
