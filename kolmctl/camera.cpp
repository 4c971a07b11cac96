#include "camera.h"

#include <tuple>

#include <kolmfluxor/identifiers.h>

#include "errors.h"
#include "text.h"

namespace kolmctl {

Camera::Camera(const Device& device) : m_name(ToUtf8(device.friendlyName)) {
    Check(device.moniker->BindToObject(nullptr, nullptr, __uuidof(IBaseFilter),
                                       reinterpret_cast<void**>(m_filter.GetAddressOf())),
          "cannot open \"" + m_name + "\"");
    // The proxy aggregates the property-set object, so the filter itself answers for it; without it the pointer is
    // null.
    std::ignore = m_filter->QueryInterface(kolmfluxor::IID_IKolmFluxorPropertySet,
                                           reinterpret_cast<void**>(m_propertySet.GetAddressOf()));
}

}  // namespace kolmctl
