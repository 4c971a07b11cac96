#include "lut_state.h"

#include <kolmfluxor/features.h>

#include "errors.h"

namespace kolmctl {
namespace {

constexpr ULONG kMostBits = 16;  // a value takes one or two bytes

}  // namespace

LutState ReadLutState(kolmfluxor::IKolmFluxorPropertySet& camera) {
    LutState state{};
    BOOL on = FALSE;
    Check(camera.GetLutControl(&on, &state.current, &state.count, &state.sizeBytes),
          "cannot read the look-up table control");
    state.on = on != FALSE;
    Check(camera.GetFeatureValue(static_cast<ULONG>(kolmfluxor::FeatureId::lut), &state.bitsPerValue),
          "cannot read the bits per value of the look-up tables");
    if (state.bitsPerValue == 0 || state.bitsPerValue > kMostBits) {
        throw CallError("cannot use the look-up tables", E_UNEXPECTED,
                        "the camera tells " + std::to_string(state.bitsPerValue) + " bits per value");
    }
    return state;
}

void CheckLutNumber(const LutState& state, ULONG number, const std::string& intention) {
    if (number >= state.count) {
        throw CallError(intention, E_INVALIDARG,
                        state.count == 0 ? "the camera has no tables"
                                         : "the camera has tables 0 to " + std::to_string(state.count - 1));
    }
}

Table LutTable(const LutState& state) {
    Table table("lut",
                {{"on", "on", Align::left},
                 {"current", "current table", Align::left},
                 {"count", "tables", Align::left},
                 {"sizeBytes", "bytes per table", Align::left},
                 {"values", "values per table", Align::left},
                 {"bitsPerValue", "bits per value", Align::left}},
                Layout::records);
    table.Add({state.on, state.current, state.count, state.sizeBytes, state.Values(), state.bitsPerValue});
    return table;
}

}  // namespace kolmctl
