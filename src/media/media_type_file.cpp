#include "media/media_type_file.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <memory>
#include <tuple>

#include <amvideo.h>

namespace kolmfluxor {
namespace {

// What the file holds is the 64-bit layout of these two.
static_assert(sizeof(AM_MEDIA_TYPE) == 88 && offsetof(AM_MEDIA_TYPE, formattype) == 44);
static_assert(sizeof(VIDEOINFOHEADER) == 88);

struct FileCloser {
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};
using UniqueFile = std::unique_ptr<std::FILE, FileCloser>;

}  // namespace

void ReadMediaTypeFile(const char* fileName, AM_MEDIA_TYPE& type) noexcept {
    // Compatibility: text mode, though the records are binary. Who writes such files knows it.
    const UniqueFile file(std::fopen(fileName, "r"));
    if (file != nullptr) ReadMediaType(*file, type);
}

void ReadMediaType(std::FILE& file, AM_MEDIA_TYPE& type) noexcept {
    AM_MEDIA_TYPE record = type;  // what the file is too short for stays as it is
    std::ignore = std::fread(&record, 1, sizeof record, &file);
    type.majortype = record.majortype;
    type.subtype = record.subtype;
    type.bFixedSizeSamples = record.bFixedSizeSamples;
    type.bTemporalCompression = record.bTemporalCompression;
    type.lSampleSize = record.lSampleSize;
    type.formattype = record.formattype;

    std::array<BYTE, sizeof(VIDEOINFOHEADER)> header{};
    const std::size_t read = std::fread(header.data(), 1, header.size(), &file);
    if (type.pbFormat != nullptr) {
        std::memcpy(type.pbFormat, header.data(), std::min<std::size_t>(read, type.cbFormat));
    }
}

}  // namespace kolmfluxor
