#pragma once
/// @file  An opened capture device.

#include <string>

#include <windows.h>

#include <strmif.h>
#include <wrl/client.h>

#include <kolmfluxor/property_set.h>

#include "devices.h"

namespace kolmctl {

/// A capture filter and its property set, held until destruction.
class Camera {
public:
    /// Creates the device's capture filter and asks it for the property set.
    ///
    /// @throws CallError when the filter cannot be created
    explicit Camera(const Device& device);

    /// A capture filter that is there already. @param device  the device that it belongs to
    Camera(const Device& device, Microsoft::WRL::ComPtr<IBaseFilter> filter);

    Camera(const Camera&) = delete;
    Camera& operator=(const Camera&) = delete;

    [[nodiscard]] IBaseFilter& Filter() const { return *m_filter.Get(); }

    /// False for devices of another kind, and as long as the module is not registered.
    [[nodiscard]] bool HasPropertySet() const { return m_propertySet != nullptr; }

    /// Only with HasPropertySet.
    [[nodiscard]] kolmfluxor::IKolmFluxorPropertySet& PropertySet() const { return *m_propertySet.Get(); }

    /// The friendly name in UTF-8.
    [[nodiscard]] const std::string& Name() const { return m_name; }

    [[nodiscard]] const Device& Origin() const { return m_device; }

private:
    Device m_device;
    std::string m_name;
    Microsoft::WRL::ComPtr<IBaseFilter> m_filter;
    Microsoft::WRL::ComPtr<kolmfluxor::IKolmFluxorPropertySet> m_propertySet;
};

}  // namespace kolmctl
