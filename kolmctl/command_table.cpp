#include "command.h"

#include <string_view>

#include "commands/commands.h"

namespace kolmctl {
namespace {

// clang-format off
constexpr CommandRow kCommands[] = {
    {.name = "list",     .summary = "List the capture devices",
     .example = "kolmctl list", .traceable = false, .make = MakeList},
    {.name = "info",     .summary = "Show what the camera is: texts, serial number, versions, bus figures",
     .example = "kolmctl --simulate info", .traceable = true, .make = MakeInfo},
    {.name = "features", .summary = "List the camera's features: value, range, mode, supported modes",
     .example = "kolmctl --simulate features", .traceable = true, .make = MakeFeatures},
    {.name = "get",      .summary = "Show value and mode of features",
     .example = "kolmctl --simulate get gain shutter", .traceable = true, .make = MakeGet},
    {.name = "set",      .summary = "Set value or mode of a feature, or both",
     .example = "kolmctl --simulate set gain 100 --mode manual", .traceable = true, .make = MakeSet},
    {.name = "watch",    .summary = "Print features as the camera changes them, until Ctrl+C",
     .example = "kolmctl --simulate watch gain shutter --for 1", .traceable = true, .make = MakeWatch},
    {.name = "trigger",  .summary = "Show the trigger, or set it",
     .example = "kolmctl --simulate trigger", .traceable = true, .make = MakeTrigger},
    {.group = "trigger", .name = "set", .summary = "Change what is named of the trigger; the rest stays",
     .example = "kolmctl --simulate trigger set --mode 1 --on --polarity high", .traceable = true,
     .make = MakeTriggerSet},
    {.name = "formats",  .summary = "List the video formats: areas, steps and frame rates; the current one is marked",
     .example = "kolmctl --simulate formats", .traceable = true, .make = MakeFormats},
    {.name = "format",   .summary = "Show the current video format with its area and frame rate, or set it",
     .example = "kolmctl --simulate format", .traceable = true, .make = MakeFormat},
    {.group = "format",  .name = "set", .summary = "Change what is named of the format; the rest stays",
     .example = "kolmctl --simulate format set --mode \"f7m0 Mono8\" --width 320 --height 240 --rate 15",
     .traceable = true, .make = MakeFormatSet},
    {.name = "iso",      .summary = "Show the isochronous transfer's speed and channel, or set them",
     .example = "kolmctl --simulate iso", .traceable = true, .make = MakeIso},
    {.group = "iso",     .name = "set", .summary = "Set speed or channel, or both",
     .example = "kolmctl --simulate iso set --speed S400 --channel 3", .traceable = true, .make = MakeIsoSet},
    {.name = "lut",      .summary = "Show the look-up tables, switch them or load them",
     .example = "kolmctl --simulate lut", .traceable = true, .make = MakeLut},
    {.group = "lut",     .name = "enable",  .summary = "Make a table the current one and switch it on",
     .example = "kolmctl --simulate lut enable 0", .traceable = true, .make = MakeLutEnable},
    {.group = "lut",     .name = "disable", .summary = "Switch the current table off",
     .example = "kolmctl --simulate lut disable", .traceable = true, .make = MakeLutDisable},
    {.group = "lut",     .name = "show",    .summary = "Show the look-up tables' state and size",
     .example = "kolmctl --simulate lut show", .traceable = true, .make = MakeLut},
    {.group = "lut",     .name = "load",    .summary = "Read the tables of a CSV file, load one into the camera",
     .example = "kolmctl --simulate lut load gamma.csv --upload 1", .traceable = true, .make = MakeLutLoad},
    {.group = "lut",     .name = "upload",  .summary = "Load a table from a file into the camera",
     .example = "kolmctl --simulate lut upload gamma.txt --number 1", .traceable = true, .make = MakeLutUpload},
    {.name = "reg",      .summary = "Read, write and decode camera registers",
     .example = "kolmctl reg --help", .traceable = true},
    {.group = "reg",     .name = "read",  .summary = "Read registers by name or address",
     .example = "kolmctl --simulate reg read Brightness 0xF1000240", .traceable = true, .make = MakeRegRead},
    {.group = "reg",     .name = "write", .summary = "Write a register, then read it back",
     .example = "kolmctl --simulate reg write KolmTestImage 1", .traceable = true, .make = MakeRegWrite},
    {.group = "reg",     .name = "decode", .summary = "Show the fields of a register, or of a value it might have",
     .example = "kolmctl --simulate reg decode KolmTestImage", .traceable = true, .make = MakeRegDecode},
    {.group = "reg",     .name = "dump",  .summary = "Read all registers that have a name, with their fields",
     .example = "kolmctl --simulate reg dump --filter Shutter", .traceable = true, .make = MakeRegDump},
    {.name = "raw",      .summary = "Read and write driver properties by number",
     .example = "kolmctl raw --help", .traceable = true},
    {.group = "raw",     .name = "get", .summary = "Read a driver property",
     .example = "kolmctl --simulate raw get 61", .traceable = true, .make = MakeRawGet},
    {.group = "raw",     .name = "set", .summary = "Write a driver property",
     .example = "kolmctl --simulate raw set 61 1", .traceable = true, .make = MakeRawSet},
    {.name = "save",     .summary = "Save all settings of the camera to a file",
     .example = "kolmctl --simulate save camera.json", .traceable = true, .make = MakeSave},
    {.name = "load",     .summary = "Load the settings of a file into the camera",
     .example = "kolmctl --simulate load camera.json", .traceable = true, .make = MakeLoad},
    {.name = "still",    .summary = "Take a still picture and write it to a PNG or BMP file",
     .example = "kolmctl --simulate still picture.png", .traceable = false, .make = MakeStill},
    {.name = "pages",    .summary = "Show the camera's property pages",
     .example = "kolmctl --simulate pages --page exposure --picture exposure.png", .traceable = false,
     .make = MakePages},
    {.name = "trace",    .summary = "Run another subcommand, then show its driver requests (simulated camera only)",
     .example = "kolmctl --simulate trace set gain 100", .traceable = false, .make = MakeTrace},
};
// clang-format on

constexpr std::string_view TextOrNone(const char* text) {
    return text != nullptr ? text : "";
}

consteval bool WellFormed(std::span<const CommandRow> rows) {
    for (std::size_t i = 0; i < rows.size(); ++i) {
        bool groupFound = rows[i].group == nullptr;
        for (const CommandRow& earlier : rows.first(i)) {
            const bool top = earlier.group == nullptr;
            if (top && TextOrNone(rows[i].group) == earlier.name && (earlier.traceable || !rows[i].traceable)) {
                groupFound = true;
            }
            if (TextOrNone(rows[i].group) == TextOrNone(earlier.group) &&
                std::string_view(rows[i].name) == earlier.name) {
                return false;
            }
        }
        if (!groupFound) {
            return false;
        }
    }
    return true;
}

// Names differ; a group stands before its members, and is traceable when one of them is.
static_assert(WellFormed(kCommands));

}  // namespace

std::span<const CommandRow> CommandTable() {
    return kCommands;
}

}  // namespace kolmctl
