#pragma once
/// @file  A heap without large blocks, for code that is linked into the test program.

#include <cstdlib>

#include "support/patched_import.h"

extern "C" void* __imp_malloc;

namespace kolmfluxor::test {

/// As long as it lives, `new` and `malloc` fail for blocks of so many bytes or more. One at a time.
class CScarceHeap {
public:
    explicit CScarceHeap(std::size_t sizeBytes) : m_import(&__imp_malloc, reinterpret_cast<void*>(&Allocate)) {
        s_refusedFrom = sizeBytes;
        s_refused = 0;
    }

    /// How many blocks were refused.
    [[nodiscard]] static int Refused() { return s_refused; }

private:
    static void* Allocate(std::size_t sizeBytes) {
        if (sizeBytes < s_refusedFrom) return s_malloc(sizeBytes);
        ++s_refused;
        return nullptr;
    }

    static inline std::size_t s_refusedFrom = 0;
    static inline int s_refused = 0;
    static inline const auto s_malloc = reinterpret_cast<decltype(&std::malloc)>(__imp_malloc);

    CPatchedImport m_import;
};

}  // namespace kolmfluxor::test
