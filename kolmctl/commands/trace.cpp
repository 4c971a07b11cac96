/// @file  kolmctl trace: another subcommand and its conversation with the driver.

#include <CLI/CLI.hpp>

#include "command_line.h"
#include "commands/commands.h"
#include "errors.h"
#include "request_dump.h"
#include "simulated_camera.h"

namespace kolmctl {
namespace {

class TraceCommand final : public Command {
public:
    void Declare(CLI::App& app) override {
        m_commands.AddTo(app, [](const CommandRow& row) { return row.traceable; });
    }

    void Run(Session& session) override {
        const Camera& opened = session.OpenCamera();
        kolmsim::ISimulatedCamera* const camera = SimulatedCameraOf(opened.Filter());
        if (camera == nullptr) {
            throw UsageError(
                "\"" + opened.Name() + "\" is a real camera: only the simulated one keeps a log of requests",
                "use --simulate");
        }
        session.Out().NameTables();
        camera->ClearLog();  // without what opening the camera sent
        try {
            m_commands.Given().Run(session);
        } catch (const Error&) {
            PrintRequests(*camera, session.Out());  // a refusal is when the requests matter most
            throw;
        }
        PrintRequests(*camera, session.Out());
    }

private:
    CommandSet m_commands;
};

}  // namespace

std::unique_ptr<Command> MakeTrace() {
    return std::make_unique<TraceCommand>();
}

}  // namespace kolmctl
