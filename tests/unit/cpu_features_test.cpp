#include "base/cpu_features.h"

#include <bit>
#include <cstdint>

#include <gtest/gtest.h>

namespace kolmfluxor::test {
namespace {

constexpr CpuWords kAll = {.leaf1Ecx = 0xFFFFFFFF, .leaf7Ebx = 0xFFFFFFFF, .leaf7Ecx = 0xFFFFFFFF, .xcr0 = 0xFFFFFFFF};
constexpr CpuFeatures kEverything = {.ssse3 = true, .avx2 = true, .avx512vbmi = true};
constexpr CpuFeatures kNoAvx512 = {.ssse3 = true, .avx2 = true};
constexpr CpuFeatures kNoAvx = {.ssse3 = true};

struct Missing {
    const char* what;
    std::uint32_t CpuWords::*word;
    int bit;
    CpuFeatures expected;
};

// clang-format off
constexpr Missing kMissing[] = {
    {"SSSE3",                     &CpuWords::leaf1Ecx,  9, {}},
    {"reading of XCR0",           &CpuWords::leaf1Ecx, 27, kNoAvx},
    {"AVX",                       &CpuWords::leaf1Ecx, 28, kNoAvx},
    {"AVX2",                      &CpuWords::leaf7Ebx,  5, kNoAvx},
    {"AVX-512 F",                 &CpuWords::leaf7Ebx, 16, kNoAvx512},
    {"AVX-512 BW",                &CpuWords::leaf7Ebx, 30, kNoAvx512},
    {"AVX-512 VBMI",              &CpuWords::leaf7Ecx,  1, kNoAvx512},
    {"saved XMM registers",       &CpuWords::xcr0,      1, kNoAvx},
    {"saved YMM registers",       &CpuWords::xcr0,      2, kNoAvx},
    {"saved mask registers",      &CpuWords::xcr0,      5, kNoAvx512},
    {"saved upper halves of ZMM", &CpuWords::xcr0,      6, kNoAvx512},
    {"saved upper ZMM registers", &CpuWords::xcr0,      7, kNoAvx512},
};
// clang-format on

TEST(CpuFeatures, need_the_processor_and_the_operating_system) {
    EXPECT_EQ(FeaturesOf(kAll), kEverything);
    EXPECT_EQ(FeaturesOf({}), CpuFeatures{});
    for (const Missing& missing : kMissing) {
        CpuWords words = kAll;
        words.*missing.word &= ~(1U << missing.bit);

        EXPECT_EQ(FeaturesOf(words), missing.expected) << "without " << missing.what;
    }
}

TEST(CpuFeatures, no_other_bit_matters) {
    for (const auto word : {&CpuWords::leaf1Ecx, &CpuWords::leaf7Ebx, &CpuWords::leaf7Ecx, &CpuWords::xcr0}) {
        std::uint32_t named = 0;
        for (const Missing& missing : kMissing)
            named |= missing.word == word ? 1U << missing.bit : 0;
        CpuWords words = kAll;
        words.*word = named;

        EXPECT_EQ(FeaturesOf(words), kEverything) << std::popcount(named) << " bits";
    }
}

#ifdef __x86_64__
TEST(CpuFeatures, of_this_processor_are_what_the_compiler_library_says) {
    const CpuFeatures features = ReadCpuFeatures();

    EXPECT_EQ(features.ssse3, __builtin_cpu_supports("ssse3") != 0);
    EXPECT_EQ(features.avx2, __builtin_cpu_supports("avx2") != 0);
    EXPECT_EQ(features.avx512vbmi, __builtin_cpu_supports("avx512f") != 0 && __builtin_cpu_supports("avx512bw") != 0 &&
                                       __builtin_cpu_supports("avx512vbmi") != 0);
}
#endif

}  // namespace
}  // namespace kolmfluxor::test
