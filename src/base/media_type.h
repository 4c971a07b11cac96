#pragma once
/// @file  Owned DirectShow media types.

#include <cstdint>
#include <memory>

#include <windows.h>

#include <strmif.h>

namespace kolmfluxor {

/// The subtype of a FOURCC, by DirectShow's rule: the code, then -0000-0010-8000-00AA00389B71.
///
/// @param fourCc  as in biCompression: the first character in the low byte
[[nodiscard]] constexpr GUID FourCcSubtype(std::uint32_t fourCc) noexcept {
    return {fourCc, 0x0000, 0x0010, {0x80, 0x00, 0x00, 0xAA, 0x00, 0x38, 0x9B, 0x71}};
}

/// Frees what a media type holds (its format block and its object), not the structure itself.
void FreeMediaType(AM_MEDIA_TYPE* type) noexcept;

struct MediaTypeDeleter {
    void operator()(AM_MEDIA_TYPE* type) const noexcept;
};
/// A media type in task memory, as `IAMStreamConfig` hands it out: freed with its format block. Null means none.
using UniqueMediaType = std::unique_ptr<AM_MEDIA_TYPE, MediaTypeDeleter>;

/// Owns a media type with its format block. Copies are deep and throw std::bad_alloc when memory is short.
///
/// A type without a block has the size 0: one that names a size but has no block loses the size when copied.
class CMediaType {
public:
    /// A type that says nothing: all GUIDs null, no format block.
    CMediaType() noexcept = default;
    explicit CMediaType(const AM_MEDIA_TYPE& type);
    CMediaType(const CMediaType& other) : CMediaType(other.m_type) {}
    CMediaType(CMediaType&& other) noexcept;
    CMediaType& operator=(CMediaType other) noexcept;
    ~CMediaType();

    [[nodiscard]] const AM_MEDIA_TYPE& Get() const noexcept { return m_type; }
    /// For changes in place. Whoever replaces the format block frees the old one and allocates the new one as task
    /// memory.
    [[nodiscard]] AM_MEDIA_TYPE& Get() noexcept { return m_type; }

    /// Whether this type fits a partly specified one, by the rules of DirectShow's base classes.
    ///
    /// Major type, subtype and format type must be equal unless the other one's is null (GUID_NULL fits any); if the
    /// other one names a format type, the format blocks must be equal too, in size and in every byte.
    [[nodiscard]] bool MatchesPartial(const AM_MEDIA_TYPE& partial) const noexcept;

    /// Says that all samples have this size; a size of 0 says that they vary and leaves the stored size alone.
    void SetSampleSize(ULONG bytes) noexcept;

    /// Fills `*out` with a copy whose format block the caller frees; `*out` is zero after a failure.
    HRESULT CopyTo(AM_MEDIA_TYPE* out) const noexcept;

    /// Makes a copy in task memory, freed by the caller together with its format block; null when memory is short.
    [[nodiscard]] AM_MEDIA_TYPE* NewCopy() const noexcept;

private:
    AM_MEDIA_TYPE m_type{};
};

}  // namespace kolmfluxor
