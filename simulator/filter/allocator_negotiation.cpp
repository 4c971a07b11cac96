#include "filter/allocator_negotiation.h"

#include <algorithm>

#include <uuids.h>
#include <vfwmsgs.h>

namespace kolmsim {
namespace {

using Microsoft::WRL::ComPtr;

/// Buffers in flight: one being drawn, one being shown, one on the way.
constexpr long kFewestBuffers = 3;

/// Sets an allocator up and tells the pin that it is the one.
HRESULT Propose(IMemInputPin* receiver, IMemAllocator* allocator, ALLOCATOR_PROPERTIES wanted) {
    ALLOCATOR_PROPERTIES actual{};
    if (const HRESULT hr = allocator->SetProperties(&wanted, &actual); FAILED(hr)) {
        return hr;
    }
    if (actual.cbBuffer < wanted.cbBuffer || actual.cBuffers < 1) {
        return VFW_E_BUFFER_OVERFLOW;
    }
    return receiver->NotifyAllocator(allocator, FALSE);
}

}  // namespace

HRESULT AgreeOnAllocator(IMemInputPin* receiver, LONG sampleBytes, ComPtr<IMemAllocator>* out) {
    ALLOCATOR_PROPERTIES wanted{};
    if (FAILED(receiver->GetAllocatorRequirements(&wanted))) {
        wanted = {};
    }
    wanted.cBuffers = std::max(wanted.cBuffers, kFewestBuffers);
    wanted.cbBuffer = std::max<long>(wanted.cbBuffer, sampleBytes);
    wanted.cbAlign = std::max(wanted.cbAlign, 1L);

    ComPtr<IMemAllocator> allocator;
    if (SUCCEEDED(receiver->GetAllocator(allocator.GetAddressOf())) && allocator != nullptr &&
        SUCCEEDED(Propose(receiver, allocator.Get(), wanted))) {
        *out = allocator;
        return S_OK;
    }
    allocator.Reset();
    HRESULT hr = ::CoCreateInstance(CLSID_MemoryAllocator, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IMemAllocator),
                                    reinterpret_cast<void**>(allocator.GetAddressOf()));
    if (SUCCEEDED(hr)) {
        hr = Propose(receiver, allocator.Get(), wanted);
    }
    if (SUCCEEDED(hr)) {
        *out = allocator;
    }
    return hr;
}

}  // namespace kolmsim
