#include "media/pixel_rows.h"

#include <array>

#include "base/cpu_features.h"

namespace kolmfluxor {
namespace {

struct Choice {
    std::array<const PixelRows*, 5> rows{&kPlainRows};
    std::size_t count = 1;

    Choice() {
#ifdef __x86_64__
        const CpuFeatures features = ReadCpuFeatures();
        rows[count++] = &kSse2Rows;  // every x86-64 processor has it
        if (features.ssse3) rows[count++] = &kSsse3Rows;
        if (features.avx2) rows[count++] = &kAvx2Rows;
        if (features.avx512vbmi) rows[count++] = &kAvx512Rows;
#endif
    }
};

}  // namespace

std::span<const PixelRows* const> AvailablePixelRows() {
    static const Choice choice;
    return {choice.rows.data(), choice.count};
}

}  // namespace kolmfluxor
