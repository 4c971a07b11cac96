#include "filter/graph_reconnect.h"

#include <vector>

#include <wrl/client.h>

#include "base/com_pointer.h"

namespace kolmsim {
namespace {

using Microsoft::WRL::ComPtr;

/// The output pins of the filter that an input pin belongs to, those that are connected.
std::vector<ComPtr<IPin>> ConnectedOutputsBehind(IPin* input) {
    std::vector<ComPtr<IPin>> outputs;
    PIN_INFO info{};
    if (FAILED(input->QueryPinInfo(&info)) || info.pFilter == nullptr) {
        return outputs;
    }
    const ComPtr<IBaseFilter> filter = kolmfluxor::TakeOver(info.pFilter);

    ComPtr<IEnumPins> pins;
    if (FAILED(filter->EnumPins(pins.GetAddressOf()))) {
        return outputs;
    }
    ComPtr<IPin> pin;
    while (pins->Next(1, pin.ReleaseAndGetAddressOf(), nullptr) == S_OK) {
        PIN_DIRECTION direction = PINDIR_INPUT;
        ComPtr<IPin> peer;
        if (SUCCEEDED(pin->QueryDirection(&direction)) && direction == PINDIR_OUTPUT &&
            SUCCEEDED(pin->ConnectedTo(peer.GetAddressOf()))) {
            outputs.push_back(pin);
        }
    }
    return outputs;
}

}  // namespace

HRESULT ReconnectDownstream(IFilterGraph* graph, IPin* output, const AM_MEDIA_TYPE* type) {
    ComPtr<IPin> input;
    HRESULT hr = output->ConnectedTo(input.GetAddressOf());
    if (FAILED(hr)) {
        return hr;
    }
    const std::vector<ComPtr<IPin>> behind = ConnectedOutputsBehind(input.Get());

    graph->Disconnect(input.Get());
    graph->Disconnect(output);
    hr = graph->ConnectDirect(output, input.Get(), type);
    for (std::size_t i = 0; SUCCEEDED(hr) && i < behind.size(); ++i) {
        hr = ReconnectDownstream(graph, behind[i].Get(), nullptr);
    }
    return hr;
}

}  // namespace kolmsim
