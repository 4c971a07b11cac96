/// @file  kolmctl list: the capture devices.

#include <iostream>

#include "camera.h"
#include "commands/commands.h"
#include "devices.h"
#include "errors.h"
#include "text.h"

namespace kolmctl {
namespace {

class ListCommand final : public Command {
public:
    void Declare(CLI::App&) override {}

    void Run(Session& session) override {
        Table table("devices", {{"name", "NAME", Align::left},
                                {"propertySet", "PROPERTY SET", Align::left},
                                {"displayName", "DISPLAY NAME", Align::left}});
        const std::vector<Device> devices = EnumerateDevices();
        for (const Device& device : devices) {
            table.Add({ToUtf8(device.friendlyName), OffersPropertySet(device), ToUtf8(device.displayName)});
        }
        session.Out().Print(table);
        if (devices.empty()) {
            std::cerr << "kolmctl: there is no capture device\n";
        }
    }

private:
    /// A device that cannot be opened is listed all the same; the reason goes to the error stream.
    static bool OffersPropertySet(const Device& device) {
        try {
            return Camera(device).HasPropertySet();
        } catch (const CallError& error) {
            std::cerr << "kolmctl: " << error.what() << "\n";
            return false;
        }
    }
};

}  // namespace

std::unique_ptr<Command> MakeList() {
    return std::make_unique<ListCommand>();
}

}  // namespace kolmctl
