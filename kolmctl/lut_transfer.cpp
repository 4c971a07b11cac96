#include "lut_transfer.h"

#include <algorithm>
#include <cstring>

#include "errors.h"

namespace kolmctl {
namespace {

/// Packs values as `UploadLut` takes them: bytes, or 16-bit values in this machine's order (it swaps them on the way).
///
/// The values must fill whole quadlets.
std::vector<ULONG> Pack(const std::vector<std::uint32_t>& values, std::size_t bytesPerValue) {
    static_assert(sizeof(ULONG) == 4);
    std::vector<std::uint8_t> bytes;
    for (const std::uint32_t value : values) {
        for (std::size_t i = 0; i < bytesPerValue; ++i) {
            bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
        }
    }
    std::vector<ULONG> quadlets(bytes.size() / sizeof(ULONG));
    std::memcpy(quadlets.data(), bytes.data(), quadlets.size() * sizeof(ULONG));
    return quadlets;
}

void CheckValues(const LutState& state, const LutTransfer& transfer) {
    if (state.sizeBytes % sizeof(ULONG) != 0) {
        throw CallError(transfer.intention, E_INVALIDARG,
                        "the camera's tables of " + std::to_string(state.sizeBytes) + " bytes are no whole quadlets");
    }
    const auto& values = transfer.values;
    const auto tooLarge =
        std::ranges::find_if(values, [&](std::uint32_t value) { return value > state.HighestValue(); });
    if (tooLarge != values.end()) {
        throw CallError(transfer.intention, E_INVALIDARG,
                        "value " + std::to_string(tooLarge - values.begin() + 1) + " of " + transfer.source + " is " +
                            std::to_string(*tooLarge) + ", but the camera's tables take values up to " +
                            std::to_string(state.HighestValue()));
    }
}

}  // namespace

Table UploadTable(kolmfluxor::IKolmFluxorPropertySet& camera, const LutState& state, const LutTransfer& transfer) {
    CheckValues(state, transfer);
    const std::vector<ULONG> quadlets = Pack(transfer.values, state.BytesPerValue());
    Check(camera.UploadLut(quadlets.data(), static_cast<ULONG>(quadlets.size()), transfer.number), transfer.intention);

    Table table("upload",
                {{"number", "table", Align::left},
                 {"values", "values", Align::left},
                 {"bitsPerValue", "bits per value", Align::left},
                 {"bytes", "bytes", Align::left}},
                Layout::records);
    table.Add({transfer.number, state.Values(), state.bitsPerValue, quadlets.size() * sizeof(ULONG)});
    return table;
}

}  // namespace kolmctl
