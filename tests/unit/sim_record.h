#pragma once
/// @file  Builds driver records for tests of the simulated camera.

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "model/record.h"

namespace kolmsim::test {

/// A zeroed record with its header filled in.
inline std::vector<std::uint8_t> MakeRecord(std::uint32_t id, std::uint32_t flags, std::size_t bytes) {
    constexpr std::array<std::uint8_t, 16> kSet = {0x29, 0x62, 0x22, 0xBE, 0x65, 0xD8, 0x2E, 0x4F,
                                                   0xAB, 0x89, 0x13, 0xF3, 0x59, 0xE8, 0xF4, 0x6A};
    std::vector<std::uint8_t> record(bytes);
    for (std::size_t i = 0; i < kSet.size() && i < bytes; ++i) {
        record[i] = kSet[i];
    }
    if (bytes >= 24) {
        Record(record).SetWord(16, id);
        Record(record).SetWord(20, flags);
    }
    return record;
}

}  // namespace kolmsim::test
