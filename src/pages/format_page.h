#pragma once
/// @file  Property page "Format": video mode, area of interest, frame rate, isochronous channel and speed.

#include <functional>
#include <vector>

#include <strmif.h>

#include "media/media_type_info.h"
#include "pages/common/feature_page.h"
#include "pages/format_combo.h"
#include "pages/format_modes.h"

namespace kolmfluxor {

/// Shows the formats of the camera's first pin.
///
/// Edits change a working copy of the chosen mode, each value corrected to what the mode allows; `Apply` hands it to
/// the camera. Channel and speed go to the camera at once and leave the page as clean as it was.
class CKolmFluxorPage_Format final : public CFeaturePage {
public:
    /// Creation function of the class table.
    static CUnknown* CreateInstance(IUnknown* outer, HRESULT* hr);

    INT_PTR OnReceiveMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    // Hooks of CBasePropertyPage
    HRESULT OnConnect(IUnknown* object) override;
    HRESULT OnDisconnect() override;
    HRESULT OnActivate() override;
    HRESULT OnApplyChanges() override;

    // Hooks of CFeaturePage
    void OnFill() override;
    bool OnCommand(int id, UINT code) override;

private:
    /// A number of the area of interest: its edit, its up-down, and what the media type has to say about it.
    struct AreaField {
        int edit;
        int upDown;
        LONG (*value)(const CMediaTypeInfo&);
        LONG (*checked)(CMediaTypeInfo&, LONG);  ///< corrects, stores, returns
        LONG (*min)(const CMediaTypeInfo&);
        LONG (*max)(const CMediaTypeInfo&);
        LONG (*unit)(const CMediaTypeInfo&);
    };
    static const AreaField kAreaFields[4];

    explicit CKolmFluxorPage_Format(IUnknown* outer);

    void FillSpeeds();
    void FillChannels();
    void FillModes();
    void ShowMode();
    void ShowArea();
    void ShowFrameRate();
    void EnableArea(bool enable);
    /// The index into `m_modes` that is chosen.
    ///
    /// @throws CKolmFluxorException  code 1 without a selection, code 5 when it lies outside of the modes
    [[nodiscard]] std::size_t ChosenMode() const;

    void OnModeChosen();
    void OnSpeedChosen();
    void OnChannelChosen();
    void OnAreaEnabled();
    void OnAreaEdited(const AreaField& field);
    void OnFrameRateMoved();
    void MarkDirty();

    /// Runs an edit of the working mode by `RunFormatEdit`, and marks the page dirty.
    void EditMode(const std::function<void()>& edit);
    void ApplyWorking(std::size_t chosen);
    void SetFrameRateText(int id, LONG fpms) const;

    static const PageCommand<CKolmFluxorPage_Format> kCommands[];

    Microsoft::WRL::ComPtr<IPin> m_pin;
    Microsoft::WRL::ComPtr<IAMStreamConfig> m_streamConfig;
    CFormatCombo m_modeCombo;
    CFormatCombo m_speedCombo;
    CFormatCombo m_channelCombo;
    std::vector<FormatMode> m_modes;  ///< the pin's video modes, read anew at each activation
    CMediaTypeInfo m_working;         ///< the chosen mode with the user's edits
    bool m_activating = false;        ///< changes are the page's own and mark nothing dirty
};

}  // namespace kolmfluxor
