#pragma once
/// @file  The capture pin's formats as a host sees them.

#include <cstring>
#include <vector>

#include <windows.h>

#include <strmif.h>

#include <amvideo.h>  // needs strmif.h before it
#include <uuids.h>
#include <wrl/client.h>

namespace kolmfluxor::test {

/// One media type with its video information block, copied out of task memory.
class CPinType {
public:
    CPinType() = default;
    /// Takes the type over and frees it.
    explicit CPinType(AM_MEDIA_TYPE* type) {
        if (type != nullptr) {
            m_type = *type;
            if (type->formattype == FORMAT_VideoInfo && type->cbFormat == sizeof m_video) {
                std::memcpy(&m_video, type->pbFormat, sizeof m_video);
            }
            ::CoTaskMemFree(type->pbFormat);
            ::CoTaskMemFree(type);
        }
    }

    VIDEOINFOHEADER& Video() { return m_video; }
    BITMAPINFOHEADER& Bitmap() { return m_video.bmiHeader; }
    AM_MEDIA_TYPE* Type() {
        m_type.pbFormat = reinterpret_cast<BYTE*>(&m_video);
        return &m_type;
    }

    /// Names an area of the sensor, as a host does: rectangle, bitmap header and sizes together.
    void SetArea(LONG left, LONG top, LONG width, LONG height) {
        m_video.rcSource = {left, top, left + width, top + height};
        m_video.rcTarget = {0, 0, width, height};
        m_video.bmiHeader.biWidth = width;
        m_video.bmiHeader.biHeight = height;
        m_video.bmiHeader.biSizeImage = static_cast<DWORD>(width * height * m_video.bmiHeader.biBitCount / 8);
        m_type.lSampleSize = m_video.bmiHeader.biSizeImage;
    }

    bool operator==(const CPinType& other) const {
        return m_type.majortype == other.m_type.majortype && m_type.subtype == other.m_type.subtype &&
               m_type.formattype == other.m_type.formattype && m_type.lSampleSize == other.m_type.lSampleSize &&
               std::memcmp(&m_video, &other.m_video, sizeof m_video) == 0;
    }

private:
    AM_MEDIA_TYPE m_type{};
    VIDEOINFOHEADER m_video{};
};

struct PinCapability {
    CPinType type;
    VIDEO_STREAM_CONFIG_CAPS caps;

    [[nodiscard]] bool IsScalable() const {
        return caps.MinOutputSize.cx != caps.MaxOutputSize.cx || caps.MinOutputSize.cy != caps.MaxOutputSize.cy;
    }
};

inline CPinType PresentType(IAMStreamConfig* config) {
    AM_MEDIA_TYPE* type = nullptr;
    config->GetFormat(&type);
    return CPinType(type);
}

inline std::vector<PinCapability> Capabilities(IAMStreamConfig* config) {
    int count = 0;
    int bytes = 0;
    std::vector<PinCapability> list;
    if (config->GetNumberOfCapabilities(&count, &bytes) != S_OK || bytes != sizeof(VIDEO_STREAM_CONFIG_CAPS)) {
        return list;
    }
    for (int i = 0; i < count; ++i) {
        AM_MEDIA_TYPE* type = nullptr;
        PinCapability capability{};
        if (config->GetStreamCaps(i, &type, reinterpret_cast<BYTE*>(&capability.caps)) == S_OK) {
            capability.type = CPinType(type);
            list.push_back(capability);
        }
    }
    return list;
}

/// The entry of an IIDC format and mode with this many bits per pixel, the first of several; a default one when none.
inline PinCapability CapabilityOf(IAMStreamConfig* config, DWORD formatAndMode, WORD bitsPerPixel) {
    for (PinCapability& each : Capabilities(config)) {
        if (each.type.Video().dwBitErrorRate == formatAndMode && each.type.Bitmap().biBitCount == bitsPerPixel) {
            return each;
        }
    }
    return {};
}

}  // namespace kolmfluxor::test
