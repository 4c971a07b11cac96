#pragma once
/// @file  Keeps exceptions from crossing a COM method.

#include <new>
#include <utility>

#include <windows.h>

namespace kolmsim {

/// Runs the body of a COM method; an exception becomes its result.
template <class Body> HRESULT AtBoundary(Body&& body) noexcept {
    try {
        return std::forward<Body>(body)();
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_UNEXPECTED;
    }
}

}  // namespace kolmsim
