#pragma once
/// @file  Chains of COM calls.

#include <windows.h>

#include <objbase.h>

namespace kolmfluxor {

/// Makes calls one after the other until one fails.
///
/// @return  the code of the call that failed, else that of the last one
template <class... Calls> [[nodiscard]] HRESULT InTurn(Calls&&... calls) {
    HRESULT hr = S_OK;
    static_cast<void>((SUCCEEDED(hr = calls()) && ...));
    return hr;
}

/// Makes a call that gives a pointer; a success that gave none is a failure, `E_UNEXPECTED`.
template <class Pointer, class Call> [[nodiscard]] HRESULT Obtain(const Pointer& given, Call&& call) {
    const HRESULT hr = call();
    return SUCCEEDED(hr) && given == nullptr ? E_UNEXPECTED : hr;
}

/// `CoCreateInstance` of a class in a DLL. @param object  a null `ComPtr`
template <class Pointer> [[nodiscard]] HRESULT CreateInProcess(REFCLSID classId, Pointer& object) {
    return Obtain(object, [&] {
        return ::CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, __uuidof(typename Pointer::InterfaceType),
                                  reinterpret_cast<void**>(object.GetAddressOf()));
    });
}

}  // namespace kolmfluxor
