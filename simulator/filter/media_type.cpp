#include "filter/media_type.h"

#include <uuids.h>

namespace kolmsim {

const VIDEOINFOHEADER* VideoInfo(const AM_MEDIA_TYPE& type) {
    const bool holds =
        type.formattype == FORMAT_VideoInfo && type.cbFormat >= sizeof(VIDEOINFOHEADER) && type.pbFormat != nullptr;
    return holds ? reinterpret_cast<const VIDEOINFOHEADER*>(type.pbFormat) : nullptr;
}

}  // namespace kolmsim
