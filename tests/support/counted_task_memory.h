#pragma once
/// @file  COM task memory whose blocks are counted.

#include <set>

#include "support/task_memory_spy.h"

namespace kolmfluxor::test {

/// Counts the blocks of task memory that are allocated and freed as long as it lives.
class CCountedTaskMemory final : public CTaskMemorySpy {
public:
    [[nodiscard]] int Allocated() const { return m_allocated; }
    /// Blocks that are not freed yet.
    [[nodiscard]] std::size_t Live() const { return m_live.size(); }

    void* STDMETHODCALLTYPE PostAlloc(void* actual) override {
        ++m_allocated;
        m_live.insert(actual);
        return actual;
    }
    void* STDMETHODCALLTYPE PreFree(void* request, BOOL) override {
        m_live.erase(request);
        return request;
    }

private:
    int m_allocated = 0;
    std::set<void*> m_live;
};

}  // namespace kolmfluxor::test
