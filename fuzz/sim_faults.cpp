/// @file  Any text as a list of faults for the simulated camera: understood or refused with a reason.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "check.h"
#include "ksproxy/fault_text.h"

namespace {

using namespace kolmsim;

void Expect(bool holds, const char* what) {
    kolmfluxor::fuzz::Expect(holds, "sim_faults", what);
}

/// A fault in the words that its grammar has for it.
std::string TextOf(const SimFault& fault) {
    std::string text = fault.flags == 1 ? "get " : fault.flags == 2 ? "set " : "any ";
    text += fault.id == kSimAnyId ? "any " : std::to_string(fault.id) + " ";
    if (fault.nth != 0) text += "#" + std::to_string(fault.nth) + " ";
    // Plain digits of a code are hexadecimal, of the other numbers decimal.
    const auto hex = [](std::uint32_t number) {
        char digits[11] = {};
        std::snprintf(digits, sizeof digits, "0x%x", number);
        return std::string(digits);
    };
    const std::string code = hex(static_cast<std::uint32_t>(fault.code));
    switch (fault.action) {
    case SimFaultAction::fail:
        return text + "fail " + code;
    case SimFaultAction::shortAnswer:
        return text + "short " + std::to_string(fault.offset) + " " + code;
    case SimFaultAction::patchAnswer:
        return text + "patch " + std::to_string(fault.offset) + " " + hex(fault.word) + " " + code;
    case SimFaultAction::delay:
        return text + "delay " + std::to_string(fault.milliseconds);
    case SimFaultAction::unplug:
        return text + "unplug";
    case SimFaultAction::answer:
        return text + "answer " + code;
    }
    return "no such action";
}

bool Same(const SimFault& a, const SimFault& b) {
    return a.nth == b.nth && a.id == b.id && a.flags == b.flags && a.action == b.action && a.code == b.code &&
           a.offset == b.offset && a.word == b.word && a.milliseconds == b.milliseconds;
}

void CheckFault(const SimFault& fault) {
    Expect(fault.flags <= 2, "a direction is none, get or set");
    Expect(fault.nth >= 0 && fault.nth <= 1'000'000, "a number of a request is in its bounds");
    Expect(fault.milliseconds <= 600'000, "a delay is in its bounds");
    Expect((fault.action == SimFaultAction::fail) == FAILED(fault.code), "failures have codes of failures, only they");
    const std::vector<SimFault> again = ParseFaults(TextOf(fault));
    Expect(again.size() == 1 && Same(again.front(), fault), "a fault written out reads the same");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    std::vector<SimFault> faults;
    try {
        faults = ParseFaults(text);
    } catch (const FaultTextError& error) {
        Expect(std::string_view(error.what()).starts_with("fault "), "a refusal says where");
        return 0;
    }
    for (const SimFault& fault : faults)
        CheckFault(fault);
    return 0;
}
