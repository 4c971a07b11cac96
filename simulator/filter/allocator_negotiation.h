#pragma once
/// @file  Agreement with the next filter on who owns the sample buffers.

#include <windows.h>

#include <strmif.h>
#include <wrl/client.h>

namespace kolmsim {

/// Agrees on an allocator with an input pin: its own if it has one that does, else a standard one.
///
/// @param sampleBytes  least size of each buffer
/// @param out          receives the allocator, with its properties set, once the pin has been told
HRESULT AgreeOnAllocator(IMemInputPin* receiver, LONG sampleBytes, Microsoft::WRL::ComPtr<IMemAllocator>* out);

}  // namespace kolmsim
