#pragma once
/// @file  What all control wrappers share: the way to the dialog and its items.

#include <windows.h>

namespace kolmfluxor {

/// Reaches dialog items through the page's window handle.
///
/// A wrapper lives as long as its page and is built before the dialog exists; it therefore keeps a pointer to the
/// page's handle, not the handle. Texts are single-byte, in the system's code page.
class CDialogControl {
public:
    CDialogControl(const CDialogControl&) = delete;
    CDialogControl& operator=(const CDialogControl&) = delete;

protected:
    /// @param dialog      the page's handle, null as long as there is no dialog
    /// @param noDialogText  what every access says when there is no dialog; a literal
    CDialogControl(const HWND* dialog, const char* noDialogText) noexcept
        : m_dialog(dialog), m_noDialogText(noDialogText) {}
    ~CDialogControl() = default;

    /// The dialog. @throws CTextException  when there is none yet
    [[nodiscard]] HWND Dlg() const;
    /// A control of the dialog; null when the dialog has none with that id. @throws as `Dlg`
    [[nodiscard]] HWND Item(int id) const;

    LRESULT Send(int id, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    void EnableItem(int id, bool enable) const;
    void SetItemText(int id, const char* text) const;
    /// Shows a number as "%d": signed, in the control's text.
    void SetItemNumber(int id, ULONG number) const;

    /// Adds an entry that carries a number to a combo box.
    void AddEntry(int combo, const char* text, ULONG data) const;
    /// Selects the first entry with this number; false, with the selection left as it is, when there is none.
    bool SelectEntry(int combo, ULONG data) const;
    /// The number of the selected entry; 0xFFFFFFFF without a selection.
    [[nodiscard]] ULONG SelectedEntry(int combo) const;

private:
    const HWND* m_dialog;
    const char* m_noDialogText;
};

}  // namespace kolmfluxor
