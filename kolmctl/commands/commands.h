#pragma once
/// @file  Makers of the subcommands, one for each file of this folder.

#include <memory>

#include "command.h"

namespace kolmctl {

[[nodiscard]] std::unique_ptr<Command> MakeFeatures();
[[nodiscard]] std::unique_ptr<Command> MakeFormat();
[[nodiscard]] std::unique_ptr<Command> MakeFormatSet();
[[nodiscard]] std::unique_ptr<Command> MakeFormats();
[[nodiscard]] std::unique_ptr<Command> MakeGet();
[[nodiscard]] std::unique_ptr<Command> MakeInfo();
[[nodiscard]] std::unique_ptr<Command> MakeIso();
[[nodiscard]] std::unique_ptr<Command> MakeIsoSet();
[[nodiscard]] std::unique_ptr<Command> MakeList();
[[nodiscard]] std::unique_ptr<Command> MakeLoad();
[[nodiscard]] std::unique_ptr<Command> MakeLut();
[[nodiscard]] std::unique_ptr<Command> MakeLutDisable();
[[nodiscard]] std::unique_ptr<Command> MakeLutEnable();
[[nodiscard]] std::unique_ptr<Command> MakeLutLoad();
[[nodiscard]] std::unique_ptr<Command> MakeLutUpload();
[[nodiscard]] std::unique_ptr<Command> MakePages();
[[nodiscard]] std::unique_ptr<Command> MakeRawGet();
[[nodiscard]] std::unique_ptr<Command> MakeRawSet();
[[nodiscard]] std::unique_ptr<Command> MakeRegDecode();
[[nodiscard]] std::unique_ptr<Command> MakeRegDump();
[[nodiscard]] std::unique_ptr<Command> MakeRegRead();
[[nodiscard]] std::unique_ptr<Command> MakeRegWrite();
[[nodiscard]] std::unique_ptr<Command> MakeSave();
[[nodiscard]] std::unique_ptr<Command> MakeSet();
[[nodiscard]] std::unique_ptr<Command> MakeStill();
[[nodiscard]] std::unique_ptr<Command> MakeTrace();
[[nodiscard]] std::unique_ptr<Command> MakeTrigger();
[[nodiscard]] std::unique_ptr<Command> MakeTriggerSet();
[[nodiscard]] std::unique_ptr<Command> MakeWatch();

}  // namespace kolmctl
