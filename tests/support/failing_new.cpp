#include "support/failing_new.h"

#include <atomic>
#include <cstddef>
#include <new>

namespace {

std::atomic<bool> g_fails{false};

}  // namespace

// These replace the standard library's in the whole program; all other forms of new stay its own.

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    if (g_fails) return nullptr;
    try {
        return ::operator new(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    if (g_fails) return nullptr;
    try {
        return ::operator new[](size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

namespace kolmfluxor::test {

CFailingNew::CFailingNew() {
    g_fails = true;
}

CFailingNew::~CFailingNew() {
    g_fails = false;
}

}  // namespace kolmfluxor::test
