#include "kolmview/viewer_layout.h"

#include <algorithm>

#include "kolmview/histogram.h"
#include "kolmview/resource.h"

namespace kolmview {
namespace {

constexpr int kButtons[] = {IDC_PROPERTIES, IDC_STILL, IDC_STREAM};

constexpr LONG kMargin = 4;                                   // dialog units
constexpr LONG kHistogramWidth = static_cast<LONG>(kLevels);  // pixels
constexpr LONG kSmallestPicture = 120;                        // pixels, its height

SIZE SizeOf(HWND window) {
    RECT rectangle{};
    ::GetWindowRect(window, &rectangle);
    return {rectangle.right - rectangle.left, rectangle.bottom - rectangle.top};
}

SIZE Margin(HWND viewer) {
    RECT rectangle = {0, 0, kMargin, kMargin};
    ::MapDialogRect(viewer, &rectangle);
    return {rectangle.right, rectangle.bottom};
}

void Place(HWND viewer, int id, LONG left, LONG top, LONG width, LONG height) {
    ::SetWindowPos(::GetDlgItem(viewer, id), nullptr, left, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

LONG StripHeight(HWND viewer) {
    return SizeOf(::GetDlgItem(viewer, IDC_HISTOGRAM)).cy + 2 * Margin(viewer).cy;
}

SIZE WithFrame(HWND viewer, SIZE client) {
    RECT outer = {0, 0, client.cx, client.cy};
    ::AdjustWindowRectEx(&outer, static_cast<DWORD>(::GetWindowLongW(viewer, GWL_STYLE)), FALSE,
                         static_cast<DWORD>(::GetWindowLongW(viewer, GWL_EXSTYLE)));
    return {outer.right - outer.left, outer.bottom - outer.top};
}

LONG WidthOfButtons(HWND viewer) {
    LONG width = 0;
    for (const int id : kButtons) {
        width += SizeOf(::GetDlgItem(viewer, id)).cx + Margin(viewer).cx;
    }
    return width;
}

}  // namespace

void LayOutViewer(HWND viewer) {
    RECT client{};
    ::GetClientRect(viewer, &client);
    const SIZE margin = Margin(viewer);
    const LONG strip = StripHeight(viewer);
    const LONG top = client.bottom - strip + margin.cy;
    Place(viewer, IDC_PICTURE, 0, 0, client.right, std::max(0L, client.bottom - strip));
    Place(viewer, IDC_HISTOGRAM, margin.cx, top, kHistogramWidth, strip - 2 * margin.cy);

    LONG left = 2 * margin.cx + kHistogramWidth;
    const LONG buttonHeight = SizeOf(::GetDlgItem(viewer, IDC_STREAM)).cy;
    const LONG buttonTop = client.bottom - margin.cy - buttonHeight;
    Place(viewer, IDC_FIGURES, left, top, std::max(0L, client.right - left - margin.cx), buttonTop - top);
    for (const int id : kButtons) {
        const LONG width = SizeOf(::GetDlgItem(viewer, id)).cx;
        Place(viewer, id, left, buttonTop, width, buttonHeight);
        left += width + margin.cx;
    }
}

SIZE SizeForPicture(HWND viewer, SIZE picture) {
    RECT area{};
    ::SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    const SIZE whole = WithFrame(viewer, {picture.cx, picture.cy + StripHeight(viewer)});
    const SIZE smallest = SmallestSize(viewer);
    return {std::max(smallest.cx, std::min(whole.cx, area.right - area.left)),
            std::max(smallest.cy, std::min(whole.cy, area.bottom - area.top))};
}

SIZE SmallestSize(HWND viewer) {
    return WithFrame(viewer, {3 * Margin(viewer).cx + kHistogramWidth + WidthOfButtons(viewer),
                              kSmallestPicture + StripHeight(viewer)});
}

}  // namespace kolmview
