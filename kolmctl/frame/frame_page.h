#pragma once
/// @file  One property page, from its creation to its last release.

#include <functional>
#include <string>

#include <windows.h>

#include <ocidl.h>
#include <wrl/client.h>

#include "frame/page_site.h"

namespace kolmctl {

/// Holds a page and keeps the order of calls that pages expect. Destruction takes everything back in every state.
class FramePage {
public:
    /// Creates the page and asks for its title and size.
    ///
    /// @throws CallError
    explicit FramePage(REFCLSID classId);
    ~FramePage();
    FramePage(const FramePage&) = delete;
    FramePage& operator=(const FramePage&) = delete;

    [[nodiscard]] const CLSID& ClassId() const { return m_classId; }
    [[nodiscard]] const std::wstring& Title() const { return m_title; }
    /// What the page needs, in pixels.
    [[nodiscard]] SIZE Size() const { return m_size; }

    /// Gives the page what it is about. @throws CallError
    void Connect(IUnknown& object);

    /// Who hears the page's reports; an empty function for nobody.
    void SetListener(std::function<void(DWORD)> listener) { m_site->SetListener(std::move(listener)); }

    /// Shows a connected page, which gets its window when it is shown for the first time.
    ///
    /// @param place  in the parent's client area
    HRESULT Show(HWND parent, const RECT& place);
    /// Hides the page's window; the page keeps what the user has entered.
    void Hide();

    /// Whether the page has changes to apply.
    [[nodiscard]] bool IsDirty() const;
    /// Has the page apply its changes; one that was never shown has none.
    HRESULT Apply();

    /// Lets the page handle a key that is its own; false when it did not.
    bool Translate(MSG* message);

private:
    /// @param site  its one reference is the page's from now on. (`ComPtr::Attach` would count once more here.)
    explicit FramePage(REFCLSID classId, PageSite* site) : m_classId(classId) { *m_site.GetAddressOf() = site; }
    void ReadInfo();

    CLSID m_classId;
    std::wstring m_title;
    SIZE m_size{};
    Microsoft::WRL::ComPtr<PageSite> m_site;
    Microsoft::WRL::ComPtr<IPropertyPage> m_page;
    bool m_hasSite = false;
    bool m_connected = false;
    bool m_active = false;  ///< has a window, shown or not
};

}  // namespace kolmctl
