#pragma once
/// @file  One owning type per Windows resource.

#include <memory>
#include <type_traits>
#include <utility>

#include <windows.h>

#include <objbase.h>

namespace kolmfluxor {

struct HandleCloser {
    using pointer = HANDLE;
    void operator()(HANDLE handle) const noexcept { ::CloseHandle(handle); }
};
/// A kernel handle; null means none. (`CreateFile` fails with `INVALID_HANDLE_VALUE`: test before handing it over.)
using UniqueHandle = std::unique_ptr<void, HandleCloser>;

struct RegistryKeyCloser {
    using pointer = HKEY;
    void operator()(HKEY key) const noexcept { ::RegCloseKey(key); }
};
/// An opened registry key; null means none.
using UniqueRegistryKey = std::unique_ptr<HKEY, RegistryKeyCloser>;

struct CoTaskFree {
    void operator()(void* memory) const noexcept { ::CoTaskMemFree(memory); }
};
/// Memory that crosses a COM interface, until it is released to the caller.
template <class T> using UniqueCoTaskMem = std::unique_ptr<T, CoTaskFree>;

/// Runs a function when the scope ends.
template <class F> class ScopeExit {
public:
    explicit ScopeExit(F run) noexcept(std::is_nothrow_move_constructible_v<F>) : m_run(std::move(run)) {}
    ~ScopeExit() { m_run(); }
    ScopeExit(const ScopeExit&) = delete;
    ScopeExit& operator=(const ScopeExit&) = delete;

private:
    F m_run;
};

}  // namespace kolmfluxor
