#include "base/cpu_features.h"

#ifdef __x86_64__
#include <cpuid.h>
#endif

namespace kolmfluxor {
namespace {

// Leaf 1, ECX
constexpr std::uint32_t kSsse3 = 1U << 9;
constexpr std::uint32_t kOsXsave = 1U << 27;  // XCR0 can be read
constexpr std::uint32_t kAvx = 1U << 28;
// Leaf 7, EBX and ECX
constexpr std::uint32_t kAvx2 = 1U << 5;
constexpr std::uint32_t kAvx512 = 1U << 16 | 1U << 30;  // F, BW
constexpr std::uint32_t kAvx512Vbmi = 1U << 1;
// XCR0
constexpr std::uint32_t kYmmState = 0x06;
constexpr std::uint32_t kZmmState = kYmmState | 0xE0;  // masks, upper halves, upper sixteen registers

constexpr bool HasAll(std::uint32_t word, std::uint32_t bits) {
    return (word & bits) == bits;
}

#ifdef __x86_64__
std::uint32_t ReadXcr0() noexcept {
    std::uint32_t low = 0;
    std::uint32_t high = 0;
    __asm__("xgetbv" : "=a"(low), "=d"(high) : "c"(0));
    return low;
}
#endif

}  // namespace

CpuFeatures FeaturesOf(const CpuWords& words) noexcept {
    CpuFeatures features;
    features.ssse3 = HasAll(words.leaf1Ecx, kSsse3);
    features.avx2 = features.ssse3 && HasAll(words.leaf1Ecx, kOsXsave | kAvx) && HasAll(words.leaf7Ebx, kAvx2) &&
                    HasAll(words.xcr0, kYmmState);
    features.avx512vbmi = features.avx2 && HasAll(words.leaf7Ebx, kAvx512) && HasAll(words.leaf7Ecx, kAvx512Vbmi) &&
                          HasAll(words.xcr0, kZmmState);
    return features;
}

CpuFeatures ReadCpuFeatures() noexcept {
    CpuWords words;
#ifdef __x86_64__
    std::uint32_t eax = 0;
    std::uint32_t ebx = 0;
    std::uint32_t ecx = 0;
    std::uint32_t edx = 0;
    if (__get_cpuid(1, &eax, &ebx, &ecx, &edx)) words.leaf1Ecx = ecx;
    if (__get_cpuid_count(7, 0, &eax, &ebx, &ecx, &edx)) {
        words.leaf7Ebx = ebx;
        words.leaf7Ecx = ecx;
    }
    if (HasAll(words.leaf1Ecx, kOsXsave)) words.xcr0 = ReadXcr0();
#endif
    return FeaturesOf(words);
}

}  // namespace kolmfluxor
