/// @file  A suite that passes but writes one byte too many: proves that the harness sees a damaged heap.

#include <gtest/gtest.h>

#include <tuple>

#include <windows.h>

namespace {

TEST(HeapOverrun, passes_and_damages_the_heap) {
    constexpr SIZE_T kSize = 21;
    auto* const block = static_cast<volatile BYTE*>(::HeapAlloc(::GetProcessHeap(), 0, kSize));
    ASSERT_NE(block, nullptr);

    block[kSize] = static_cast<BYTE>(~block[kSize]);
    std::ignore = ::HeapValidate(::GetProcessHeap(), 0, nullptr);  // has Wine look, and say what it finds
}

}  // namespace
