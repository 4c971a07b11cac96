#pragma once
/// @file  Media types to test with, and a look behind CAMMediaType.

#include <windows.h>

#include <strmif.h>
#include <uuids.h>

#include <amvideo.h>  // needs strmif.h before it

#include "media/media_type_info.h"

namespace kolmfluxor::test {

constexpr DWORD kY800 = 0x30303859;

/// A video type of 640 x 480 pixels of 8 bits, bottom-up, 30 fps, IIDC Format 7 Mode 0. Change it, then take `Get`.
struct VideoType {
    VideoType() {
        header.rcSource = {0, 0, 640, 480};
        header.rcTarget = {0, 0, 640, 480};
        header.dwBitErrorRate = 0x700;
        header.AvgTimePerFrame = 333'333;
        header.bmiHeader.biSize = sizeof header.bmiHeader;
        header.bmiHeader.biWidth = 640;
        header.bmiHeader.biHeight = 480;
        header.bmiHeader.biPlanes = 1;
        header.bmiHeader.biBitCount = 8;
        header.bmiHeader.biCompression = kY800;
        header.bmiHeader.biSizeImage = 640 * 480;
        type.majortype = MEDIATYPE_Video;
        type.subtype = FourCcSubtype(kY800);
        type.bFixedSizeSamples = TRUE;
        type.lSampleSize = 640 * 480;
        type.formattype = FORMAT_VideoInfo;
        type.cbFormat = sizeof header;
    }
    /// Its block is `header`; nothing needs to be freed.
    AM_MEDIA_TYPE Get() {
        AM_MEDIA_TYPE complete = type;
        complete.pbFormat = hasBlock ? reinterpret_cast<BYTE*>(&header) : nullptr;
        return complete;
    }

    VIDEOINFOHEADER header{};
    AM_MEDIA_TYPE type{};
    bool hasBlock = true;
};

/// A scalable mode of a sensor of 640 x 480 pixels, in steps of 4 x 2, from 1.875 to 60 fps.
inline VIDEO_STREAM_CONFIG_CAPS ScalableCaps() {
    VIDEO_STREAM_CONFIG_CAPS caps{};
    caps.MinCroppingSize = {8, 6};
    caps.MaxCroppingSize = {640, 480};
    caps.CropGranularityX = 4;
    caps.CropGranularityY = 2;
    caps.CropAlignX = 4;
    caps.CropAlignY = 2;
    caps.MinOutputSize = {8, 6};
    caps.MaxOutputSize = {640, 480};
    caps.MinFrameInterval = 166'666;
    caps.MaxFrameInterval = 5'333'333;
    return caps;
}

/// A mode of 640 x 480 pixels whose size is fixed.
inline VIDEO_STREAM_CONFIG_CAPS FixedCaps() {
    VIDEO_STREAM_CONFIG_CAPS caps = ScalableCaps();
    caps.MinCroppingSize = {640, 480};
    caps.MinOutputSize = {640, 480};
    return caps;
}

/// Does what nothing outside can: takes the header of an initialized type away.
class MediaTypePeer {
public:
    static void DropHeader(CAMMediaType& type) { type.m_header = nullptr; }
};

}  // namespace kolmfluxor::test
