#include "filter/media_type.h"

#include <cstring>
#include <new>
#include <utility>

#include <uuids.h>

namespace kolmsim {
namespace {

/// Deep copy; false, and `*out` zero, when memory is short.
bool Copy(const AM_MEDIA_TYPE& type, AM_MEDIA_TYPE* out) noexcept {
    *out = type;
    out->pbFormat = nullptr;
    if (type.cbFormat != 0 && type.pbFormat != nullptr) {
        out->pbFormat = static_cast<BYTE*>(::CoTaskMemAlloc(type.cbFormat));
        if (out->pbFormat == nullptr) {
            *out = {};
            return false;
        }
        std::memcpy(out->pbFormat, type.pbFormat, type.cbFormat);
    } else {
        out->cbFormat = 0;
    }
    if (out->pUnk != nullptr) {
        out->pUnk->AddRef();
    }
    return true;
}

}  // namespace

MediaType::MediaType(const AM_MEDIA_TYPE& type) {
    if (!Copy(type, &m_type)) {
        throw std::bad_alloc();
    }
}

MediaType::MediaType(MediaType&& other) noexcept : m_type(std::exchange(other.m_type, {})) {}

MediaType& MediaType::operator=(MediaType other) noexcept {
    std::swap(m_type, other.m_type);
    return *this;
}

MediaType::~MediaType() {
    ::CoTaskMemFree(m_type.pbFormat);
    if (m_type.pUnk != nullptr) {
        m_type.pUnk->Release();
    }
}

HRESULT MediaType::CopyTo(AM_MEDIA_TYPE* out) const noexcept {
    return Copy(m_type, out) ? S_OK : E_OUTOFMEMORY;
}

AM_MEDIA_TYPE* MediaType::NewCopy() const noexcept {
    auto* copy = static_cast<AM_MEDIA_TYPE*>(::CoTaskMemAlloc(sizeof(AM_MEDIA_TYPE)));
    if (copy != nullptr && !Copy(m_type, copy)) {
        ::CoTaskMemFree(copy);
        return nullptr;
    }
    return copy;
}

const VIDEOINFOHEADER* VideoInfo(const AM_MEDIA_TYPE& type) {
    const bool holds =
        type.formattype == FORMAT_VideoInfo && type.cbFormat >= sizeof(VIDEOINFOHEADER) && type.pbFormat != nullptr;
    return holds ? reinterpret_cast<const VIDEOINFOHEADER*>(type.pbFormat) : nullptr;
}

}  // namespace kolmsim
