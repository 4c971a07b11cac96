#include "frame/frame_layout.h"

#include <algorithm>

#include <commctrl.h>

#include "frame/resource.h"

namespace kolmctl {
namespace {

constexpr int kButtonsFromRight[] = {IDC_APPLY, IDCANCEL, IDOK};

// Dialog units, as the system's own dialogs have them.
constexpr LONG kMargin = 7;
constexpr LONG kGap = 4;

LONG WidthOf(const RECT& rectangle) {
    return rectangle.right - rectangle.left;
}

LONG HeightOf(const RECT& rectangle) {
    return rectangle.bottom - rectangle.top;
}

/// A distance of as many dialog units in both directions, in pixels.
SIZE Distance(HWND frame, LONG units) {
    RECT rectangle = {0, 0, units, units};
    ::MapDialogRect(frame, &rectangle);
    return {rectangle.right, rectangle.bottom};
}

SIZE SizeOf(HWND window) {
    RECT rectangle{};
    ::GetWindowRect(window, &rectangle);
    return {WidthOf(rectangle), HeightOf(rectangle)};
}

void Place(HWND window, const RECT& place) {
    ::SetWindowPos(window, nullptr, place.left, place.top, WidthOf(place), HeightOf(place),
                   SWP_NOZORDER | SWP_NOACTIVATE);
}

/// The width that all tabs take in one row.
LONG WidthOfTabs(HWND tabs) {
    const LRESULT count = ::SendMessageW(tabs, TCM_GETITEMCOUNT, 0, 0);
    RECT last{};
    ::SendMessageW(tabs, TCM_GETITEMRECT, static_cast<WPARAM>(std::max<LRESULT>(count - 1, 0)),
                   reinterpret_cast<LPARAM>(&last));
    // A selected tab is wider than its rectangle by the width of a frame on both sides.
    return last.right + 2 * ::GetSystemMetrics(SM_CXEDGE);
}

/// Gives a window a client area of this size, in the middle of the screen's free area.
void Resize(HWND frame, SIZE client) {
    RECT outer = {0, 0, client.cx, client.cy};
    ::AdjustWindowRectEx(&outer, static_cast<DWORD>(::GetWindowLongW(frame, GWL_STYLE)), FALSE,
                         static_cast<DWORD>(::GetWindowLongW(frame, GWL_EXSTYLE)));
    RECT area{};
    ::SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    const LONG left = area.left + std::max(0L, (WidthOf(area) - WidthOf(outer)) / 2);
    const LONG top = area.top + std::max(0L, (HeightOf(area) - HeightOf(outer)) / 2);
    Place(frame, {left, top, left + WidthOf(outer), top + HeightOf(outer)});
}

/// One row of buttons that ends at the right.
void PlaceButtons(HWND frame, LONG right, LONG top) {
    LONG left = right;
    for (const int id : kButtonsFromRight) {
        HWND const button = ::GetDlgItem(frame, id);
        const SIZE size = SizeOf(button);
        left -= size.cx;
        Place(button, {left, top, left + size.cx, top + size.cy});
        left -= Distance(frame, kGap).cx;
    }
}

}  // namespace

void LayOutFrame(HWND frame, SIZE pageSize) {
    HWND const tabs = ::GetDlgItem(frame, IDC_TABS);
    const SIZE margin = Distance(frame, kMargin);
    const SIZE button = SizeOf(::GetDlgItem(frame, IDOK));

    RECT around = {0, 0, pageSize.cx, pageSize.cy};
    ::SendMessageW(tabs, TCM_ADJUSTRECT, TRUE, reinterpret_cast<LPARAM>(&around));
    const LONG width = std::max(WidthOf(around), WidthOfTabs(tabs));
    const RECT tabPlace = {margin.cx, margin.cy, margin.cx + width, margin.cy + HeightOf(around)};
    Place(tabs, tabPlace);

    RECT inside = tabPlace;
    ::SendMessageW(tabs, TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&inside));
    Place(::GetDlgItem(frame, IDC_PAGE_AREA), inside);

    PlaceButtons(frame, tabPlace.right, tabPlace.bottom + margin.cy);
    Resize(frame, {tabPlace.right + margin.cx, tabPlace.bottom + 2 * margin.cy + button.cy});
}

}  // namespace kolmctl
