#pragma once
/// @file  An owned DirectShow media type.

#include <windows.h>

#include <strmif.h>

#include <amvideo.h>  // needs strmif.h before it

namespace kolmsim {

/// Owns a media type with its format block. Copies are deep and throw std::bad_alloc when memory is short.
class MediaType {
public:
    /// A type that says nothing: all GUIDs null, no format block.
    MediaType() noexcept = default;
    explicit MediaType(const AM_MEDIA_TYPE& type);
    MediaType(const MediaType& other) : MediaType(other.m_type) {}
    MediaType(MediaType&& other) noexcept;
    MediaType& operator=(MediaType other) noexcept;
    ~MediaType();

    [[nodiscard]] const AM_MEDIA_TYPE& Get() const { return m_type; }

    /// Fills `*out` with a copy whose format block the caller frees; `*out` is zero after a failure.
    HRESULT CopyTo(AM_MEDIA_TYPE* out) const noexcept;

    /// Makes a copy in task memory, freed by the caller together with its format block; null when memory is short.
    [[nodiscard]] AM_MEDIA_TYPE* NewCopy() const noexcept;

private:
    AM_MEDIA_TYPE m_type{};
};

/// The video information block of a type, or null when it has none of at least that size.
[[nodiscard]] const VIDEOINFOHEADER* VideoInfo(const AM_MEDIA_TYPE& type);

}  // namespace kolmsim
