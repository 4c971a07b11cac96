#pragma once
/// @file  Which vector instructions may be used here. No Windows header: this also builds natively.

#include <cstdint>

namespace kolmfluxor {

/// What the processor and the operating system say about themselves.
struct CpuWords {
    std::uint32_t leaf1Ecx = 0;  ///< cpuid, leaf 1
    std::uint32_t leaf7Ebx = 0;  ///< cpuid, leaf 7, subleaf 0; 0 on processors without that leaf
    std::uint32_t leaf7Ecx = 0;
    std::uint32_t xcr0 = 0;  ///< register states that the operating system saves; 0 when it can't be read
};

/// Vector instructions beyond those that every x86-64 processor has.
struct CpuFeatures {
    bool ssse3 = false;
    bool avx2 = false;
    bool avx512vbmi = false;  ///< with its foundation and the byte and word instructions; implies `avx2`

    bool operator==(const CpuFeatures&) const = default;
};

/// A set counts as present only when the operating system also saves the registers it uses.
[[nodiscard]] CpuFeatures FeaturesOf(const CpuWords& words) noexcept;

/// The processor at hand; nothing on others than x86-64.
[[nodiscard]] CpuFeatures ReadCpuFeatures() noexcept;

}  // namespace kolmfluxor
