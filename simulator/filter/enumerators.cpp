#include "filter/enumerators.h"

#include <utility>

#include "base/boundary.h"

namespace kolmsim {
namespace {

/// How many of `count` items are left from `*next` on; moves `*next` behind them.
std::size_t Take(std::size_t size, std::size_t* next, ULONG count) {
    const std::size_t left = size - *next;
    const std::size_t taken = count < left ? count : left;
    *next += taken;
    return taken;
}

/// The rules that `Next` of every enumerator has for its arguments.
HRESULT CheckNext(ULONG count, const void* items, ULONG* fetched) {
    if (fetched != nullptr) {
        *fetched = 0;
    }
    if (items == nullptr) {
        return E_POINTER;
    }
    return fetched == nullptr && count != 1 ? E_INVALIDARG : S_OK;
}

}  // namespace

CEnumPins::CEnumPins(Pins pins, std::size_t next) : Implements(nullptr), m_pins(std::move(pins)), m_next(next) {}

HRESULT CEnumPins::Next(ULONG count, IPin** pins, ULONG* fetched) {
    if (const HRESULT hr = CheckNext(count, pins, fetched); hr != S_OK) {
        return hr;
    }
    const std::size_t first = m_next;
    const std::size_t taken = Take(m_pins.size(), &m_next, count);
    for (std::size_t i = 0; i < taken; ++i) {
        m_pins[first + i].CopyTo(&pins[i]);
    }
    if (fetched != nullptr) {
        *fetched = static_cast<ULONG>(taken);
    }
    return taken == count ? S_OK : S_FALSE;
}

HRESULT CEnumPins::Skip(ULONG count) {
    return Take(m_pins.size(), &m_next, count) == count ? S_OK : S_FALSE;
}

HRESULT CEnumPins::Reset() {
    m_next = 0;
    return S_OK;
}

HRESULT CEnumPins::Clone(IEnumPins** out) {
    if (out == nullptr) {
        return E_POINTER;
    }
    *out = nullptr;
    return kolmfluxor::AtBoundary([&] {
        auto* copy = new CEnumPins(m_pins, m_next);
        copy->AddRef();
        *out = copy;
        return S_OK;
    });
}

CEnumMediaTypes::CEnumMediaTypes(std::vector<MediaType> types, std::size_t next)
    : Implements(nullptr), m_types(std::move(types)), m_next(next) {}

HRESULT CEnumMediaTypes::Next(ULONG count, AM_MEDIA_TYPE** types, ULONG* fetched) {
    if (const HRESULT hr = CheckNext(count, types, fetched); hr != S_OK) {
        return hr;
    }
    ULONG done = 0;
    for (; done < count && m_next < m_types.size(); ++done, ++m_next) {
        types[done] = m_types[m_next].NewCopy();
        if (types[done] == nullptr) {
            break;
        }
    }
    if (fetched != nullptr) {
        *fetched = done;
    }
    return done == count ? S_OK : S_FALSE;
}

HRESULT CEnumMediaTypes::Skip(ULONG count) {
    return Take(m_types.size(), &m_next, count) == count ? S_OK : S_FALSE;
}

HRESULT CEnumMediaTypes::Reset() {
    m_next = 0;
    return S_OK;
}

HRESULT CEnumMediaTypes::Clone(IEnumMediaTypes** out) {
    if (out == nullptr) {
        return E_POINTER;
    }
    *out = nullptr;
    return kolmfluxor::AtBoundary([&] {
        auto* copy = new CEnumMediaTypes(m_types, m_next);
        copy->AddRef();
        *out = copy;
        return S_OK;
    });
}

}  // namespace kolmsim
