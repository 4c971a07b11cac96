#include "trigger_state.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

#include <registers/catalogue.h>

#include "errors.h"
#include "registers.h"
#include "text.h"

namespace kolmctl {
namespace {

struct TriggerMode {
    std::uint32_t number;
    ULONG mask;
};

constexpr TriggerMode kModes[] = {
    {0, 0x10000},  {1, 0x20000},  {2, 0x40000},     {3, 0x80000},
    {4, 0x100000}, {5, 0x200000}, {14, 0x40000000}, {15, 0x80000000},
};

constexpr std::uint32_t kParameterMask = 0xFFF;  // field "Parameter" of the IIDC trigger register

/// The number of a mode; null for a mask of none.
Json ModeNumber(ULONG mask) {
    const auto* const found = std::ranges::find(kModes, mask, &TriggerMode::mask);
    return found != std::end(kModes) ? Json(found->number) : Json();
}

}  // namespace

std::vector<std::uint32_t> TriggerState::Modes() const {
    std::vector<std::uint32_t> numbers;
    for (const TriggerMode& row : kModes) {
        if ((inquiry & row.mask) != 0) {
            numbers.push_back(row.number);
        }
    }
    return numbers;
}

ULONG ParseTriggerMode(const std::string& text) {
    const auto number = ParseNumber(text);
    const auto* const found =
        std::ranges::find_if(kModes, [&](const TriggerMode& mode) { return number == mode.number; });
    if (found == std::end(kModes)) {
        throw UsageError("unknown trigger mode \"" + text + "\"", "modes are 0 to 5, 14 and 15");
    }
    return found->mask;
}

const char* PolarityText(bool high) {
    return high ? "high" : "low";
}

TriggerState ReadTrigger(kolmfluxor::IKolmFluxorPropertySet& camera) {
    TriggerState state{};
    Check(camera.GetTriggerInquiry(&state.inquiry), "cannot read what the trigger can do");
    ULONG on = 0;
    ULONG polarity = 0;
    ULONG input = 0;
    Check(camera.GetTrigger(&state.mode, &on, &polarity, &input), "cannot read the trigger");
    state.on = on != 0;
    state.activeHigh = polarity != 0;
    state.inputHigh = input != 0;
    // The interface takes the parameter but does not give it back; the camera's register has it.
    const kolmfluxor::CatalogueEntry* const trigger = kolmfluxor::FindRegister(std::string_view("Trigger"));
    state.parameter = ReadRegister(camera, {trigger->address, trigger->name}) & kParameterMask;
    return state;
}

Table TriggerTable(const TriggerState& state) {
    Table table("trigger",
                {{"on", "on", Align::left},
                 {"mode", "mode", Align::left},
                 {"parameter", "parameter", Align::left},
                 {"polarity", "polarity", Align::left},
                 {"input", "input", Align::left},
                 {"modes", "supported modes", Align::left},
                 {"canSwitch", "can be switched off", Align::left},
                 {"canChangePolarity", "polarity can change", Align::left}},
                Layout::records);
    table.Add({state.on, ModeNumber(state.mode), state.parameter, PolarityText(state.activeHigh),
               state.TellsInput() ? Json(PolarityText(state.inputHigh)) : Json(), state.Modes(), state.CanSwitch(),
               state.CanChangePolarity()});
    return table;
}

}  // namespace kolmctl
