#pragma once
/// @file  COM task memory that runs out.

#include "support/task_memory_spy.h"

namespace kolmfluxor::test {

/// As long as it lives, `CoTaskMemAlloc` fails: from the allocation number `first` on (1-based).
class CFailingTaskMemory final : public CTaskMemorySpy {
public:
    explicit CFailingTaskMemory(int first = 1) : m_left(first - 1) {}

    SIZE_T STDMETHODCALLTYPE PreAlloc(SIZE_T size) override { return m_left-- > 0 ? size : 0; }

private:
    int m_left;
};

}  // namespace kolmfluxor::test
