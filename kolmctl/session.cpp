#include "session.h"

#include <algorithm>
#include <vector>

#include "devices.h"
#include "errors.h"
#include "hresult_text.h"
#include "simulated_camera.h"
#include "text.h"

namespace kolmctl {
namespace {

OutputFormat FormatOf(const GlobalOptions& options) {
    if (options.json) {
        return OutputFormat::json;
    }
    return options.tsv ? OutputFormat::tsv : OutputFormat::text;
}

}  // namespace

ComApartment::ComApartment() {
    const HRESULT hr = ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    if (FAILED(hr)) {
        throw CallError("cannot initialize COM", hr);
    }
}

ComApartment::~ComApartment() {
    ::CoUninitialize();
}

Session::Session(const GlobalOptions& options, std::ostream& output)
    : m_options(options), m_output(FormatOf(options), output) {}

Camera& Session::OpenCamera() {
    if (m_camera == nullptr) {
        if (!m_options.simulate.empty()) {
            OpenSimulatedCamera();
        } else if (!m_options.device.empty()) {
            OpenNamedDevice();
        } else {
            OpenFirstDevice();
        }
    }
    return *m_camera;
}

void Session::OpenSimulatedCamera() {
    PreloadSimulator();
    const std::wstring name = SimulatedCameraName(m_options.simulate);
    const std::vector<Device> devices = EnumerateDevices();
    const auto device = std::ranges::find(devices, name, &Device::friendlyName);
    if (device == devices.end()) {
        throw DeviceError("the simulated camera is not registered", HowToRegister());
    }
    auto camera = std::make_unique<Camera>(*device);
    if (SimulatedCameraOf(camera->Filter()) == nullptr) {
        throw DeviceError("the simulated camera that is registered belongs to another folder", HowToRegister());
    }
    if (!camera->HasPropertySet()) {
        throw DeviceError("the simulated camera does not offer the property set: the module is not registered",
                          HowToRegister());
    }
    m_camera = std::move(camera);
}

void Session::OpenNamedDevice() {
    const std::vector<Device> devices = EnumerateDevices();
    auto camera = std::make_unique<Camera>(ChooseDevice(devices, ToUtf16(m_options.device)));
    if (!camera->HasPropertySet()) {
        throw DeviceError("\"" + camera->Name() + "\" does not offer the property set",
                          "it is a device of another kind, or the module (kolmfluxor.dll) is not registered");
    }
    m_camera = std::move(camera);
}

void Session::OpenFirstDevice() {
    std::string problems;
    for (const Device& device : EnumerateDevices()) {
        try {
            auto camera = std::make_unique<Camera>(device);
            if (camera->HasPropertySet()) {
                m_camera = std::move(camera);
                return;
            }
        } catch (const CallError& error) {
            problems += error.what() + std::string("\n");  // perhaps the one that is meant; the next may do
        }
    }
    throw DeviceError("no capture device offers the property set",
                      problems +
                          "\"kolmctl list\" shows the devices; the module (kolmfluxor.dll) must be registered;\n"
                          "--simulate uses the simulated camera");
}

}  // namespace kolmctl
