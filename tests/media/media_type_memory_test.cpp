// The base layer's media type when task memory runs out: it says so and leaves nothing behind.

#include <array>
#include <cstring>
#include <new>

#include <gtest/gtest.h>

#include "base/media_type.h"
#include "support/failing_task_memory.h"

namespace kolmfluxor {
namespace {

using test::CFailingTaskMemory;

/// Lets the first `allocations` blocks pass and counts those that are not freed.
class CCountedTaskMemory final : public test::CTaskMemorySpy {
public:
    explicit CCountedTaskMemory(int allocations) : m_left(allocations) {}

    SIZE_T STDMETHODCALLTYPE PreAlloc(SIZE_T size) override { return m_left-- > 0 ? size : 0; }
    void* STDMETHODCALLTYPE PostAlloc(void* actual) override {
        if (actual != nullptr) ++held;
        return actual;
    }
    void* STDMETHODCALLTYPE PreFree(void* request, BOOL spied) override {
        if (request != nullptr && spied != FALSE) --held;
        return request;
    }

    int held = 0;

private:
    int m_left;
};

constexpr GUID kSomeType = {0x11111111, 0, 0, {0, 0, 0, 0, 0, 0, 0, 1}};

class MediaTypeMemory : public ::testing::Test {
protected:
    /// A type with a format block of 4 bytes, which it only borrows.
    MediaTypeMemory() {
        m_given.majortype = kSomeType;
        m_given.cbFormat = static_cast<ULONG>(m_block.size());
        m_given.pbFormat = m_block.data();
    }

    std::array<BYTE, 4> m_block{1, 2, 3, 4};
    AM_MEDIA_TYPE m_given{};
};

TEST_F(MediaTypeMemory, a_copy_that_finds_none_is_refused_with_an_empty_output) {
    const CMediaType type(m_given);
    AM_MEDIA_TYPE out;
    std::memset(&out, 0xCD, sizeof out);
    HRESULT hr = S_OK;

    {
        const CFailingTaskMemory failing;
        hr = type.CopyTo(&out);
    }

    EXPECT_EQ(hr, E_OUTOFMEMORY);
    EXPECT_EQ(out.cbFormat, 0u);
    EXPECT_EQ(out.pbFormat, nullptr);
    EXPECT_EQ(out.majortype, GUID{});
}

TEST_F(MediaTypeMemory, a_new_copy_needs_memory_for_itself_and_for_its_format) {
    const CMediaType type(m_given);

    for (int allocations = 0; allocations <= 1; ++allocations) {
        const CCountedTaskMemory memory(allocations);
        EXPECT_EQ(type.NewCopy(), nullptr) << allocations << " blocks are to be had";
        EXPECT_EQ(memory.held, 0) << "the first block is left behind";
    }
}

TEST_F(MediaTypeMemory, a_type_made_from_another_throws) {
    bool thrown = false;
    try {
        const CFailingTaskMemory failing;
        const CMediaType type(m_given);
    } catch (const std::bad_alloc&) {
        thrown = true;
    }
    EXPECT_TRUE(thrown);
}

}  // namespace
}  // namespace kolmfluxor
