#include "com_apartment.h"

#include <windows.h>

#include <objbase.h>

#include "errors.h"

namespace kolmctl {

ComApartment::ComApartment() {
    const HRESULT hr = ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    if (FAILED(hr)) {
        throw CallError("cannot initialize COM", hr);
    }
}

ComApartment::~ComApartment() {
    ::CoUninitialize();
}

}  // namespace kolmctl
