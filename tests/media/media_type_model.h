#pragma once
/// @file  A media type once more, as simply as it can be said: what CMediaTypeInfo is compared with.

#include <utility>

#include "media/video_type.h"
#include "support/area_model.h"

namespace kolmfluxor::test {

/// A header, the fields of the type that follow it, and the record; numbers in between are 64-bit.
struct MediaTypeModel {
    using Number = model::Number;

    VIDEOINFOHEADER h{};
    VIDEO_STREAM_CONFIG_CAPS c{};
    ULONG sampleSize = 0;
    bool fixedSize = false;

    static LONG Long(Number value) { return static_cast<LONG>(model::Stored(value)); }

    // -- Queries

    [[nodiscard]] Number Width() const {
        const RECT& r = h.rcSource;
        const bool zero = r.left == 0 && r.top == 0 && r.right == 0 && r.bottom == 0;
        return zero ? h.bmiHeader.biWidth : model::Stored(Number{r.right} - r.left);
    }
    [[nodiscard]] Number Height() const { return model::Stored(model::Abs(h.bmiHeader.biHeight)); }
    [[nodiscard]] bool IsScalable() const {
        return !(c.MinOutputSize.cx == c.MaxOutputSize.cx && c.MinOutputSize.cy == c.MaxOutputSize.cy);
    }
    [[nodiscard]] Number MinWidth() const { return c.MinCroppingSize.cx == 0 ? Width() : c.MinCroppingSize.cx; }
    [[nodiscard]] Number MaxWidth() const { return c.MaxCroppingSize.cx == 0 ? Width() : c.MaxCroppingSize.cx; }
    [[nodiscard]] Number MinHeight() const { return c.MinCroppingSize.cy == 0 ? Height() : c.MinCroppingSize.cy; }
    [[nodiscard]] Number MaxHeight() const { return c.MaxCroppingSize.cy == 0 ? Height() : c.MaxCroppingSize.cy; }

    [[nodiscard]] bool IsValidXPos(Number x) const {
        return IsScalable() ? model::ValidPosition(x, c.CropAlignX, MaxWidth()) : x == 0;
    }
    [[nodiscard]] bool IsValidYPos(Number y) const {
        return IsScalable() ? model::ValidPosition(y, c.CropAlignY, MaxWidth()) : y == 0;  // the width bounds it
    }
    [[nodiscard]] bool IsValidWidth(Number w) const {
        return IsScalable() ? model::ValidSize(w, c.CropGranularityX, MaxWidth(), h.rcSource.left) : w == MaxWidth();
    }
    [[nodiscard]] bool IsValidHeight(Number value) const {
        const Number height = model::Stored(model::Abs(value));
        return IsScalable() ? model::ValidSize(height, c.CropGranularityY, MaxHeight(), h.rcSource.top)
                            : height == MaxHeight();
    }

    // -- Plain setters

    void FitTarget() { h.rcTarget = {0, 0, Long(Width()), Long(Height())}; }
    void Normalize() {
        if (h.rcSource.top > h.rcSource.bottom) std::swap(h.rcSource.top, h.rcSource.bottom);
        if (h.rcSource.left > h.rcSource.right) std::swap(h.rcSource.left, h.rcSource.right);
    }
    void FitSizes() {
        Normalize();
        h.bmiHeader.biSizeImage = static_cast<DWORD>(model::ImageSize(Height(), Width(), h.bmiHeader.biBitCount));
        fixedSize = h.bmiHeader.biSizeImage != 0;
        if (fixedSize) sampleSize = h.bmiHeader.biSizeImage;
        FitTarget();
    }
    void SetXPos(Number x) {
        h.rcSource.left = Long(x);
        h.rcSource.right = Long(x + Width());
        FitTarget();
    }
    void SetYPos(Number y) {
        h.rcSource.top = Long(y);
        h.rcSource.bottom = Long(y + Height());
        FitTarget();
    }
    void SetWidth(Number w) {
        h.bmiHeader.biWidth = Long(w);
        h.rcSource.right = Long(h.rcSource.left + w);
        FitSizes();
    }
    void SetHeight(Number value) {
        h.rcSource.bottom = Long(h.rcSource.top + model::Stored(model::Abs(value)));
        h.bmiHeader.biHeight = Long(value);
        FitSizes();
    }

    // -- Checked setters

    Number SetXPosChecked(Number x) {
        if (!IsScalable()) return 0;
        x = model::CheckedPosition(x, c.CropAlignX, MaxWidth(), Width());
        SetXPos(x);
        return x;
    }
    Number SetYPosChecked(Number y) {
        if (!IsScalable()) return 0;
        y = model::CheckedPosition(y, c.CropAlignY, MaxHeight(), Height());
        SetYPos(y);
        return y;
    }
    Number SetWidthChecked(Number w) {
        if (!IsScalable()) return Width();
        w = model::CheckedWidth(w, MinWidth(), c.CropGranularityX, MaxWidth(), h.rcSource.left);
        SetWidth(w);
        return w;
    }
    Number SetHeightChecked(Number value) {
        if (!IsScalable()) return Height();
        value = model::CheckedHeight(value, MinHeight(), c.CropGranularityY, MaxHeight(), h.rcSource.top);
        SetHeight(value);
        return value;
    }
    void SetAoi(RECT r) {
        if (!IsScalable()) return;
        if (r.top > r.bottom) std::swap(r.top, r.bottom);
        if (r.left > r.right) std::swap(r.left, r.right);
        const Number cx = c.MaxOutputSize.cx;
        const Number cy = c.MaxOutputSize.cy;
        for (const LONG x : {r.left, r.right}) {
            if (x < 0 || x > cx) return;
        }
        for (const LONG y : {r.top, r.bottom}) {
            if (y < 0 || y > cy) return;
        }
        const Number w = r.right - r.left;
        const Number height = r.bottom - r.top;
        if (!IsValidXPos(r.left) || !IsValidYPos(r.top) || !IsValidWidth(w) || !IsValidHeight(height)) return;
        SetWidth(w);
        SetHeight(h.bmiHeader.biCompression == 0 ? -height : height);
        h.rcSource = r;
    }
};

}  // namespace kolmfluxor::test
