#pragma once
/// @file  What the platform's COM pointer lacks.

#include <wrl/client.h>

namespace kolmfluxor {

/// Owns a reference that somebody has counted already, such as one inside a structure that a call has filled.
///
/// In place of `ComPtr::Attach`, which counts once more in mingw-w64's headers, unlike elsewhere.
template <class T> [[nodiscard]] Microsoft::WRL::ComPtr<T> TakeOver(T* counted) noexcept {
    Microsoft::WRL::ComPtr<T> owner;
    *owner.GetAddressOf() = counted;
    return owner;
}

}  // namespace kolmfluxor
