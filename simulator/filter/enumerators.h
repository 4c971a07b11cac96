#pragma once
/// @file  Enumerators of the filter's pins and of a pin's media types.

#include <vector>

#include <windows.h>

#include <strmif.h>
#include <wrl/client.h>

#include "base/unknown.h"
#include "filter/media_type.h"

namespace kolmsim {

/// Lists the pins that the filter had when the enumerator was made. One thread at a time.
class CEnumPins final : public kolmfluxor::Implements<IEnumPins> {
public:
    using Pins = std::vector<Microsoft::WRL::ComPtr<IPin>>;

    explicit CEnumPins(Pins pins, std::size_t next = 0);

    // IEnumPins
    HRESULT STDMETHODCALLTYPE Next(ULONG count, IPin** pins, ULONG* fetched) override;
    HRESULT STDMETHODCALLTYPE Skip(ULONG count) override;
    HRESULT STDMETHODCALLTYPE Reset() override;
    HRESULT STDMETHODCALLTYPE Clone(IEnumPins** out) override;

private:
    Pins m_pins;
    std::size_t m_next;
};

/// Lists the media types that the pin offered when the enumerator was made. One thread at a time.
class CEnumMediaTypes final : public kolmfluxor::Implements<IEnumMediaTypes> {
public:
    explicit CEnumMediaTypes(std::vector<MediaType> types, std::size_t next = 0);

    // IEnumMediaTypes
    HRESULT STDMETHODCALLTYPE Next(ULONG count, AM_MEDIA_TYPE** types, ULONG* fetched) override;
    HRESULT STDMETHODCALLTYPE Skip(ULONG count) override;
    HRESULT STDMETHODCALLTYPE Reset() override;
    HRESULT STDMETHODCALLTYPE Clone(IEnumMediaTypes** out) override;

private:
    std::vector<MediaType> m_types;
    std::size_t m_next;
};

}  // namespace kolmsim
