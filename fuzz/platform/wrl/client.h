#pragma once
/// @file  As much of the platform's COM pointer as the code under test uses.

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

    Interface* operator->() const { return m_object; }
    Interface** GetAddressOf() { return &m_object; }

private:
    Interface* m_object = nullptr;
};

}  // namespace Microsoft::WRL
