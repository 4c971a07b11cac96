#include "camera_choice.h"

#include <algorithm>
#include <utility>
#include <vector>

#include <CLI/CLI.hpp>

#include "devices.h"
#include "errors.h"
#include "hresult_text.h"
#include "simulated_camera.h"
#include "text.h"

namespace kolmctl {
namespace {

constexpr char kNoVariant[] = "true";  // what a flag without a value reads

/// The message for a value of --simulate that names no variant; empty for one that does.
std::string CheckVariant(const std::string& value) {
    const bool known = value == "mono" || value == "color";
    return known ? "" : "\"" + value + "\" is neither mono nor color";
}

std::unique_ptr<Camera> OpenSimulatedCamera(const std::string& variant) {
    PreloadSimulator();
    const std::wstring name = SimulatedCameraName(variant);
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
    return camera;
}

std::unique_ptr<Camera> OpenNamedDevice(const std::string& name) {
    const std::vector<Device> devices = EnumerateDevices();
    auto camera = std::make_unique<Camera>(ChooseDevice(devices, ToUtf16(name)));
    if (!camera->HasPropertySet()) {
        throw DeviceError("\"" + camera->Name() + "\" does not offer the property set",
                          "it is a device of another kind, or the module (kolmfluxor.dll) is not registered");
    }
    return camera;
}

std::unique_ptr<Camera> OpenFirstDevice() {
    std::string problems;
    for (const Device& device : EnumerateDevices()) {
        try {
            auto camera = std::make_unique<Camera>(device);
            if (camera->HasPropertySet()) {
                return camera;
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

}  // namespace

void DeclareCameraOptions(CLI::App& parser, CameraChoice* choice) {
    auto* const device = parser.add_option("--device", choice->device,
                                           "Capture device by name, part of it, or position in the list,\n"
                                           "from 0 (default: the first one that offers the property set)");
    device->option_text("NAME");
    // A flag that may carry a value, so that "--simulate get" leaves "get" alone.
    auto* const simulate =
        parser.add_flag("--simulate", choice->simulate, "Use the simulated camera, color unless told otherwise");
    simulate->option_text("[=mono|color]")
        ->excludes(device)
        ->check(CheckVariant)
        ->transform([](const std::string& value) { return value == kNoVariant ? "color" : value; });
}

std::unique_ptr<Camera> OpenChosenCamera(const CameraChoice& choice) {
    if (!choice.simulate.empty()) {
        return OpenSimulatedCamera(choice.simulate);
    }
    return !choice.device.empty() ? OpenNamedDevice(choice.device) : OpenFirstDevice();
}

}  // namespace kolmctl
