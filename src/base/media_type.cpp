#include "base/media_type.h"

#include <cstring>
#include <new>
#include <utility>

namespace kolmfluxor {
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
    if (out->pUnk != nullptr) out->pUnk->AddRef();
    return true;
}

/// Whether an identifier is as the other one, or the other one leaves it open.
bool Fits(const GUID& id, const GUID& wanted) {
    return wanted == GUID{} || id == wanted;
}

bool SameBlock(const AM_MEDIA_TYPE& a, const AM_MEDIA_TYPE& b) {
    if (a.cbFormat != b.cbFormat) return false;
    if (a.cbFormat == 0) return true;
    return a.pbFormat != nullptr && b.pbFormat != nullptr && std::memcmp(a.pbFormat, b.pbFormat, a.cbFormat) == 0;
}

}  // namespace

void FreeMediaType(AM_MEDIA_TYPE* type) noexcept {
    ::CoTaskMemFree(std::exchange(type->pbFormat, nullptr));
    type->cbFormat = 0;
    if (IUnknown* const object = std::exchange(type->pUnk, nullptr)) object->Release();
}

void MediaTypeDeleter::operator()(AM_MEDIA_TYPE* type) const noexcept {
    FreeMediaType(type);
    ::CoTaskMemFree(type);
}

CMediaType::CMediaType(const AM_MEDIA_TYPE& type) {
    if (!Copy(type, &m_type)) throw std::bad_alloc();
}

CMediaType::CMediaType(CMediaType&& other) noexcept : m_type(std::exchange(other.m_type, {})) {}

CMediaType& CMediaType::operator=(CMediaType other) noexcept {
    std::swap(m_type, other.m_type);
    return *this;
}

CMediaType::~CMediaType() {
    FreeMediaType(&m_type);
}

bool CMediaType::MatchesPartial(const AM_MEDIA_TYPE& partial) const noexcept {
    return Fits(m_type.majortype, partial.majortype) && Fits(m_type.subtype, partial.subtype) &&
           Fits(m_type.formattype, partial.formattype) && (partial.formattype == GUID{} || SameBlock(m_type, partial));
}

void CMediaType::SetSampleSize(ULONG bytes) noexcept {
    m_type.bFixedSizeSamples = bytes != 0 ? TRUE : FALSE;
    if (bytes != 0) m_type.lSampleSize = bytes;
}

HRESULT CMediaType::CopyTo(AM_MEDIA_TYPE* out) const noexcept {
    return Copy(m_type, out) ? S_OK : E_OUTOFMEMORY;
}

AM_MEDIA_TYPE* CMediaType::NewCopy() const noexcept {
    auto* copy = static_cast<AM_MEDIA_TYPE*>(::CoTaskMemAlloc(sizeof(AM_MEDIA_TYPE)));
    if (copy != nullptr && !Copy(m_type, copy)) {
        ::CoTaskMemFree(copy);
        return nullptr;
    }
    return copy;
}

}  // namespace kolmfluxor
