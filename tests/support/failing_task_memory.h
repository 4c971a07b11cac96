#pragma once
/// @file  COM task memory that runs out.

#include <limits>

#include "support/task_memory_spy.h"

namespace kolmfluxor::test {

/// As long as it lives, `CoTaskMemAlloc` fails: from the allocation number `first` on (1-based), `count` times.
///
/// What is allocated in the meantime must be freed before it goes: it is asked about each of those blocks.
class CFailingTaskMemory final : public CTaskMemorySpy {
public:
    explicit CFailingTaskMemory(int first = 1, int count = std::numeric_limits<int>::max())
        : m_left(first - 1), m_failures(count) {}

    SIZE_T STDMETHODCALLTYPE PreAlloc(SIZE_T size) override {
        if (m_left > 0) {
            --m_left;
            return size;
        }
        return m_failures-- > 0 ? 0 : size;
    }

private:
    int m_left;
    int m_failures;
};

}  // namespace kolmfluxor::test
