#pragma once
/// @file  Where exceptions become codes.

#include <new>

#include <windows.h>

namespace kolmfluxor {

/// Runs the body of a COM method or an entry point; no exception leaves it.
///
/// @return  the body's result; `E_OUTOFMEMORY` when allocation failed, `E_UNEXPECTED` for any other exception
template <class F> HRESULT AtBoundary(F&& body) noexcept {
    try {
        return body();
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_UNEXPECTED;
    }
}

}  // namespace kolmfluxor
