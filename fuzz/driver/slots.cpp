#include "driver/slots.h"

namespace kolmfluxor::fuzz {

void Call::Expect(HRESULT result, HRESULT expected, const COutputs& outputs, const std::vector<ULONG>& words) const {
    Expect(result, expected);
    for (std::size_t i = 0; i < outputs.Count(); ++i)
        wire.Expect(outputs[i] == words[i], "an output is not what it must be");
}

void Call::Expect(HRESULT result, HRESULT expected) const {
    wire.End();
    wire.Expect(result == expected, "the result is not what it must be");
}

}  // namespace kolmfluxor::fuzz
