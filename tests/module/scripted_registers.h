#pragma once
/// @file  A driver that reads camera registers from a list: for everything that goes register by register.

#include <cstddef>
#include <initializer_list>
#include <numeric>
#include <vector>

#include "support/property_set_test.h"

namespace kolmfluxor::test {

constexpr ULONG kGpInfo = 0xF1000FFC;
constexpr ULONG kGpBuffer = 0xF1001000;
constexpr ULONG kLutCtrl = 0xF1000240;
constexpr ULONG kLutMemCtrl = 0xF1000244;
constexpr ULONG kLutInfo = 0xF1000248;
constexpr ULONG kShadingMemCtrl = 0xF1000254;
constexpr ULONG kShadingInfo = 0xF1000258;
constexpr ULONG kRegisterId = 11;
constexpr ULONG kBlockId = 62;
constexpr ULONG kEnableWrite = 1U << 26;

inline CWireRequest Read(ULONG address) {
    return Get(kRegisterId, 32).With(24, address);
}

inline CWireRequest Write(ULONG address, ULONG value) {
    return Set(kRegisterId, 32).With(24, address).With(28, value);
}

inline CWireRequest Block(const ULONG* data, std::size_t quadlets, bool swap16 = false) {
    CWireRequest block =
        Set(kBlockId, 36 + 4 * quadlets).With(24, kGpBuffer).With(28, 17).With(32, static_cast<ULONG>(4 * quadlets));
    for (std::size_t i = 0; i < quadlets; ++i) {
        const ULONG word = data[i];
        block = block.With(36 + 4 * i, swap16 ? ((word & 0x00FF00FF) << 8) | ((word >> 8) & 0x00FF00FF) : word);
    }
    return block;
}

/// From now on register reads answer these values in this order, and every other request is taken.
inline void ScriptReads(kolmsim::ISimulatedCamera& camera, std::initializer_list<ULONG> reads) {
    camera.AddFault({.nth = 0, .action = kolmsim::SimFaultAction::answer, .code = S_OK});
    int nth = 0;
    for (const ULONG value : reads) {
        camera.AddFault({.nth = ++nth,
                         .id = kRegisterId,
                         .flags = 1,
                         .action = kolmsim::SimFaultAction::patchAnswer,
                         .code = S_OK,
                         .offset = 28,
                         .word = value});
    }
}

/// A driver that takes everything and reads registers from a short list.
class ScriptedRegisters : public PropertySetTest {
protected:
    /// Starts over: register reads answer these values in this order, every write is taken.
    void Script(std::initializer_list<ULONG> reads) {
        Renew(L"color");
        ScriptReads(Camera(), reads);
    }

    static std::vector<ULONG> Data(std::size_t quadlets) {
        std::vector<ULONG> data(quadlets);
        std::iota(data.begin(), data.end(), 0x01020304U);
        return data;
    }

    static constexpr ULONG LutInfo(ULONG bits, ULONG luts, ULONG bytes) {
        return 0x80000000 | bits << 24 | luts << 16 | bytes;
    }
};

}  // namespace kolmfluxor::test
