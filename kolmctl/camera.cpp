#include "camera.h"

#include <tuple>
#include <utility>

#include <kolmfluxor/identifiers.h>

#include "errors.h"
#include "text.h"

namespace kolmctl {

namespace {

Microsoft::WRL::ComPtr<IBaseFilter> Bind(const Device& device) {
    Microsoft::WRL::ComPtr<IBaseFilter> filter;
    Check(device.moniker->BindToObject(nullptr, nullptr, __uuidof(IBaseFilter),
                                       reinterpret_cast<void**>(filter.GetAddressOf())),
          "cannot open \"" + ToUtf8(device.friendlyName) + "\"");
    return filter;
}

}  // namespace

Camera::Camera(const Device& device) : Camera(device, Bind(device)) {}

Camera::Camera(const Device& device, Microsoft::WRL::ComPtr<IBaseFilter> filter)
    : m_device(device), m_name(ToUtf8(device.friendlyName)), m_filter(std::move(filter)) {
    // The proxy aggregates the property-set object, so the filter itself answers for it; without it the pointer is
    // null.
    std::ignore = m_filter->QueryInterface(kolmfluxor::IID_IKolmFluxorPropertySet,
                                           reinterpret_cast<void**>(m_propertySet.GetAddressOf()));
}

}  // namespace kolmctl
