#pragma once
/// @file  The picture that a still-image grabber waits for, receives and converts.

#include <cstdint>
#include <mutex>
#include <optional>
#include <vector>

#include <windows.h>

#include <strmif.h>

#include <amvideo.h>  // needs strmif.h before it

#include "base/handles.h"

namespace kolmfluxor {

/// What becomes of a picture's samples.
enum class PictureConversion { none, mono8, uyvy };

/// The size of a picture after its conversion; nothing where `GetBufferSize` could not tell it.
[[nodiscard]] std::optional<LONG> ConvertedBytes(std::size_t sampleBytes, PictureConversion conversion) noexcept;

/// One picture with its header. `Deliver` runs on the streaming thread, everything else on the caller's.
///
/// A picture is taken in this order: `Begin`, `Describe`, `ExpectSample`, deliveries, `Wait`, `Finish`. Its memory is
/// kept for the next one until `Free`: the first touch of new pages costs more than the conversion.
class CStillPicture {
public:
    CStillPicture() noexcept;

    /// Whether the event that `Wait` needs could be made.
    [[nodiscard]] bool IsUsable() const noexcept { return m_arrived != nullptr; }

    [[nodiscard]] LONG SizeBytes() const noexcept { return m_sizeBytes; }  ///< -1: there is no picture
    [[nodiscard]] LONG Width() const noexcept { return m_width; }          ///< -1 before the first `Describe`
    [[nodiscard]] LONG Height() const noexcept { return m_height; }        ///< with the sign of the bitmap header
    /// Sets biSizeImage to the picture's size first.
    [[nodiscard]] const BITMAPINFOHEADER& Header() noexcept;
    /// Copies `SizeBytes` bytes; false when there is no picture.
    [[nodiscard]] bool CopyTo(BYTE* buffer) const noexcept;

    /// Drops the picture; dimensions and header stay until `Describe`.
    void Begin() noexcept;
    /// Takes dimensions, header and pixel format over.
    ///
    /// @param type   of the samples that will come
    /// @param video  its format block
    void Describe(const AM_MEDIA_TYPE& type, const VIDEOINFOHEADER& video) noexcept;
    /// From now on samples are taken.
    void ExpectSample() noexcept;
    /// A sample. The first one decides about the size; others of the same size replace it, and the rest is dropped.
    void Deliver(const BYTE* data, LONG bytes) noexcept;
    /// Waits until a sample has been delivered, for as long as it takes. A Win32 error as `HRESULT`.
    [[nodiscard]] HRESULT Wait() const noexcept;
    /// Takes no more samples and converts the picture as its format asks for.
    ///
    /// @return  `S_OK`; `E_FAIL` when no sample could be used; `E_OUTOFMEMORY`; a failure leaves no picture
    [[nodiscard]] HRESULT Finish() noexcept;
    /// Takes no more samples and drops the picture.
    void Abandon() noexcept { Begin(); }

    /// Drops the picture and its memory.
    void Free() noexcept;

private:
    void Convert();

    const UniqueHandle m_arrived;  // auto-reset
    std::mutex m_lock;             // for what deliveries touch, down to the blank line
    bool m_expecting = false;
    HRESULT m_problem = E_FAIL;
    LONG m_sizeBytes = -1;
    std::vector<BYTE> m_bytes;

    std::vector<BYTE> m_spare;  // the other buffer of conversions
    PictureConversion m_conversion = PictureConversion::none;
    LONG m_width = -1;
    LONG m_height = -1;
    BITMAPINFOHEADER m_header{};
};

}  // namespace kolmfluxor
