#pragma once
/// @file  A function of a system library, replaced in the test program's own import table.

#include <gtest/gtest.h>

#include <windows.h>

namespace kolmfluxor::test {

/// As long as it lives, calls of one imported function from the test program's own image go to another function.
///
/// Only code that is linked into the test program sees it, not a loaded module.
class CPatchedImport {
public:
    /// @param slot  the import's place: `&__imp_Name`, declared `extern "C" void* __imp_Name;`
    CPatchedImport(void** slot, void* replacement) : m_slot(slot), m_original(*slot) { Write(replacement); }
    ~CPatchedImport() { Write(m_original); }
    CPatchedImport(const CPatchedImport&) = delete;
    CPatchedImport& operator=(const CPatchedImport&) = delete;

private:
    void Write(void* function) {
        DWORD before = 0;
        EXPECT_TRUE(::VirtualProtect(m_slot, sizeof *m_slot, PAGE_READWRITE, &before));
        *m_slot = function;
        EXPECT_TRUE(::VirtualProtect(m_slot, sizeof *m_slot, before, &before));
    }

    void** m_slot;
    void* m_original;
};

}  // namespace kolmfluxor::test
