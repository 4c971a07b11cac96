#include "settings/load_report.h"

namespace kolmctl {
namespace {

std::string Line(const Refusal& refusal) {
    return refusal.setting + (refusal.field.empty() ? "" : " " + refusal.field) + ": " + refusal.reason + "\n";
}

}  // namespace

void PrintReport(Output& output, const LoadReport& report) {
    if (output.Format() == OutputFormat::text) {
        for (const Refusal& refusal : report.refusals) {
            output.PrintText(Line(refusal));
        }
        if (report.refusals.empty()) {
            output.PrintText("All " + std::to_string(report.settings) + " settings are as in the file.\n");
        }
        return;
    }
    Table table("refusals", {{"setting", "SETTING", Align::left},
                             {"field", "FIELD", Align::left},
                             {"asked", "ASKED", Align::right},
                             {"actual", "ACTUAL", Align::right},
                             {"reason", "REASON", Align::left}});
    for (const Refusal& refusal : report.refusals) {
        table.Add({refusal.setting, refusal.field.empty() ? Json() : Json(refusal.field), refusal.asked, refusal.actual,
                   refusal.reason});
    }
    output.Print(table);
}

}  // namespace kolmctl
