#include "media/still_picture.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>
#include <span>

#include "base/errors.h"
#include "base/media_type.h"
#include "media/pixel_conversion.h"

namespace kolmfluxor {
namespace {

constexpr GUID kY800 = FourCcSubtype('Y' | '8' << 8 | '0' << 16 | '0' << 24);
constexpr GUID kUyvy = FourCcSubtype('U' | 'Y' << 8 | 'V' << 16 | 'Y' << 24);

constexpr std::size_t kBgrBytes = 3;

}  // namespace

std::optional<LONG> ConvertedBytes(std::size_t sampleBytes, PictureConversion conversion) noexcept {
    std::size_t bytes = sampleBytes;
    if (conversion == PictureConversion::mono8) bytes = sampleBytes * kBgrBytes;
    if (conversion == PictureConversion::uyvy) bytes = sampleBytes / 2 * kBgrBytes;
    constexpr auto kMost = static_cast<std::size_t>(std::numeric_limits<LONG>::max());
    return bytes <= kMost ? std::optional(static_cast<LONG>(bytes)) : std::nullopt;
}

CStillPicture::CStillPicture() noexcept : m_arrived(::CreateEventW(nullptr, FALSE, FALSE, nullptr)) {}

const BITMAPINFOHEADER& CStillPicture::Header() noexcept {
    m_header.biSizeImage = static_cast<DWORD>(m_sizeBytes);
    return m_header;
}

bool CStillPicture::CopyTo(BYTE* buffer) const noexcept {
    if (m_sizeBytes < 0) return false;
    std::copy_n(m_bytes.data(), m_sizeBytes, buffer);
    return true;
}

void CStillPicture::Begin() noexcept {
    const std::scoped_lock lock(m_lock);
    m_expecting = false;
    m_problem = E_FAIL;
    m_sizeBytes = -1;
    m_conversion = PictureConversion::none;
}

void CStillPicture::Describe(const AM_MEDIA_TYPE& type, const VIDEOINFOHEADER& video) noexcept {
    m_header = video.bmiHeader;
    m_width = m_header.biWidth;
    m_height = m_header.biHeight;
    m_conversion = type.subtype == kY800   ? PictureConversion::mono8
                   : type.subtype == kUyvy ? PictureConversion::uyvy
                                           : PictureConversion::none;
}

void CStillPicture::ExpectSample() noexcept {
    ::ResetEvent(m_arrived.get());
    const std::scoped_lock lock(m_lock);
    m_expecting = true;
}

void CStillPicture::Deliver(const BYTE* data, LONG bytes) noexcept {
    {
        const std::scoped_lock lock(m_lock);
        if (m_expecting && bytes >= 0 && (data != nullptr || bytes == 0)) {
            try {
                if (m_sizeBytes < 0) {
                    m_bytes.resize(static_cast<std::size_t>(bytes));
                    m_sizeBytes = bytes;
                }
                if (m_sizeBytes == bytes) std::copy_n(data, bytes, m_bytes.data());
            } catch (const std::exception&) {
                m_problem = E_OUTOFMEMORY;
            }
        }
    }
    ::SetEvent(m_arrived.get());
}

HRESULT CStillPicture::Wait() const noexcept {
    // Compatibility: no limit. Callers wait for an external trigger in here, however long it takes.
    return ::WaitForSingleObject(m_arrived.get(), INFINITE) == WAIT_OBJECT_0 ? S_OK : HResultFromLastError();
}

HRESULT CStillPicture::Finish() noexcept {
    const std::scoped_lock lock(m_lock);
    m_expecting = false;
    if (m_sizeBytes < 0) return m_problem;
    try {
        Convert();
    } catch (const std::exception&) {
        m_sizeBytes = -1;
        return E_OUTOFMEMORY;
    }
    return S_OK;
}

void CStillPicture::Convert() {
    if (m_conversion == PictureConversion::none) return;
    const bool isMono = m_conversion == PictureConversion::mono8;
    const std::size_t sourceBytes = m_bytes.size();
    const std::optional<LONG> convertedBytes = ConvertedBytes(sourceBytes, m_conversion);
    if (!convertedBytes) throw std::bad_alloc();

    // A sample may hold more or fewer rows than the header says: as many as both have are converted.
    const std::size_t rowBytes = m_width > 0 ? static_cast<std::size_t>(m_width) * (isMono ? 1 : 2) : 0;
    const auto headerRows = static_cast<std::size_t>(std::abs(std::int64_t{m_height}));
    const std::size_t rows = rowBytes != 0 ? std::min(headerRows, sourceBytes / rowBytes) : 0;

    m_spare.resize(static_cast<std::size_t>(*convertedBytes));
    // What no row reaches is black, not what an earlier picture has left there.
    const bool isWhole = rows * rowBytes == sourceBytes && sourceBytes % (isMono ? 1 : 4) == 0;
    if (!isWhole) std::ranges::fill(m_spare, BYTE{0});
    // Compatibility: every picture counts as bottom-up, one with a negative height too. Callers flip those themselves.
    const std::span<const BYTE> sample(m_bytes);
    if (isMono) {
        ConvertMono8ToBgr24(sample, m_spare.data(), m_width, static_cast<int>(rows));
    } else {
        ConvertUyvyToBgr24(sample, m_spare.data(), m_width, static_cast<int>(rows));
    }

    m_bytes.swap(m_spare);
    m_sizeBytes = *convertedBytes;
    m_header.biBitCount = 24;
    m_header.biCompression = BI_RGB;
    m_header.biSizeImage = static_cast<DWORD>(*convertedBytes);
}

void CStillPicture::Free() noexcept {
    Begin();
    // Assigning {} would be an empty list of elements, which keeps the memory.
    m_bytes = std::vector<BYTE>();
    m_spare = std::vector<BYTE>();
}

}  // namespace kolmfluxor
