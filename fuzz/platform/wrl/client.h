#pragma once
/// @file  As much of the platform's COM pointer as the code under test uses.

#include <cstddef>

namespace Microsoft::WRL {

/// Owns a reference.
template <class Interface> class ComPtr {
public:
    ComPtr() = default;
    ComPtr(const ComPtr&) = delete;
    ComPtr& operator=(const ComPtr&) = delete;
    ~ComPtr() {
        if (m_object != nullptr) m_object->Release();
    }

    friend bool operator==(const ComPtr& pointer, std::nullptr_t) { return pointer.m_object == nullptr; }
    Interface* operator->() const { return m_object; }
    Interface** GetAddressOf() { return &m_object; }

private:
    Interface* m_object = nullptr;
};

}  // namespace Microsoft::WRL
