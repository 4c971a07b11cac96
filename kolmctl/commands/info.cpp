/// @file  kolmctl info: what the camera is, and the state of its bus.

#include <array>
#include <cstdio>
#include <iostream>

#include <kolmfluxor/features.h>

#include "commands/commands.h"
#include "errors.h"
#include "iso_transfer.h"
#include "owned_text.h"
#include "text.h"

namespace kolmctl {
namespace {

using kolmfluxor::IKolmFluxorPropertySet;

Json Number(ULONG value) {
    return value;
}

Json Hexadecimal(ULONG value) {
    return Hex32(value);
}

/// Three pairs of digits of a version word; bits 20-23 and 28-31 are not part of it.
Json FirmwareVersion(ULONG value) {
    const auto digit = [value](unsigned shift) { return static_cast<unsigned>((value >> shift) & 0xFU); };
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%x%x.%x%x.%x%x", digit(24), digit(16), digit(12), digit(8), digit(4),
                  digit(0));
    return text.data();
}

/// A figure that `GetProperty56Composite` tells.
struct Figure {
    ULONG selector;
    Column column;
    Json (*format)(ULONG value);
};

// clang-format off
constexpr Figure kFigures[] = {
    {5,  {"microcontrollerVersion", "microcontroller version",           Align::left}, FirmwareVersion},
    {6,  {"fpgaVersion",            "FPGA version",                      Align::left}, FirmwareVersion},
    {41, {"bytesPerPacketUsed",     "bus: bytes per packet used",        Align::left}, Number},
    {42, {"bytesPerPacketFree",     "bus: bytes per packet free",        Align::left}, Number},
    {43, {"channelsUsedHigh",       "bus: channels in use, high word",   Align::left}, Hexadecimal},
    {44, {"channelsUsedLow",        "bus: channels in use, low word",    Align::left}, Hexadecimal},
};
// clang-format on

/// One record that grows by what the camera answers for; what it refuses is null and goes to the error stream.
class Findings {
public:
    void Add(const Column& column, Json cell) {
        m_columns.push_back(column);
        m_cells.push_back(std::move(cell));
    }

    void NoteAnswer() { m_any = true; }

    /// @return  whether `hr` is a success
    bool Note(HRESULT hr, const std::string& failed) {
        if (hr == S_OK) {
            NoteAnswer();
            return true;
        }
        m_refusal = hr;
        m_problems.emplace_back(CallError(failed, hr).what());
        return false;
    }

    /// @throws CallError when the camera has answered for nothing
    void Print(Output& output) const {
        if (!m_any) {
            throw CallError("the camera tells nothing about itself", m_refusal);
        }
        Table table("info", m_columns, Layout::records);
        table.Add(m_cells);
        output.Print(table);
        for (const std::string& problem : m_problems) {
            std::cerr << "kolmctl: " << problem << "\n";
        }
    }

private:
    std::vector<Column> m_columns;
    std::vector<Json> m_cells;
    std::vector<std::string> m_problems;
    HRESULT m_refusal = S_OK;
    bool m_any = false;
};

void AddIdentity(IKolmFluxorPropertySet& camera, Findings* findings) {
    OwnedText vendor;
    OwnedText model;
    OwnedText driver;
    OwnedText version1;
    OwnedText version2;
    ULONG number = 0;
    const HRESULT hr =
        camera.GetCameraInfoEx(vendor.Out(), model.Out(), driver.Out(), &number, version1.Out(), version2.Out());
    // Texts and number are there even if the versions failed.
    const bool identified = !vendor.Cell().is_null();
    findings->Note(hr, identified ? "cannot read all of texts and versions" : "cannot read the camera's texts");
    if (identified) {
        findings->NoteAnswer();
    }
    findings->Add({"vendor", "vendor", Align::left}, vendor.Cell());
    findings->Add({"model", "model", Align::left}, model.Cell());
    findings->Add({"serialNumber", "serial number", Align::left}, identified ? Json(number) : Json());
    findings->Add({"driver", "driver", Align::left}, driver.Cell());
    findings->Add({"version1", "version 1", Align::left}, version1.Cell());
    findings->Add({"version2", "version 2", Align::left}, version2.Cell());
}

/// Whether it is a color camera: one that has a white balance. Null when the driver does not tell.
Json ColorCell(IKolmFluxorPropertySet& camera, Findings* findings) {
    BOOL present = FALSE;
    const HRESULT hr = camera.IsFeaturePresent(static_cast<ULONG>(kolmfluxor::FeatureId::whiteBalanceUB), &present);
    if (hr == S_OK || TellsAbsence(hr)) {
        return present != FALSE;
    }
    findings->Note(hr, "cannot tell whether it is a color camera");
    return {};
}

class InfoCommand final : public Command {
public:
    void Declare(CLI::App&) override {}

    void Run(Session& session) override {
        IKolmFluxorPropertySet& camera = session.PropertySet();
        Findings findings;
        AddIdentity(camera, &findings);
        findings.Add({"color", "color", Align::left}, ColorCell(camera, &findings));
        for (const Figure& figure : kFigures) {
            ULONG value = 0;
            const bool read = findings.Note(camera.GetProperty56Composite(figure.selector, &value),
                                            std::string("cannot read ") + figure.column.heading);
            findings.Add(figure.column, read ? figure.format(value) : Json());
        }
        ULONG speed = 0;
        const bool read = findings.Note(camera.GetIsoSpeed(&speed), "cannot read the ISO speed");
        findings.Add({"isoSpeed", "ISO speed", Align::left}, read ? Json(SpeedText(speed)) : Json());
        findings.Print(session.Out());
    }
};

}  // namespace

std::unique_ptr<Command> MakeInfo() {
    return std::make_unique<InfoCommand>();
}

}  // namespace kolmctl
