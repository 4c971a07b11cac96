#pragma once
/// @file  A register's value as labelled lines.

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "output.h"

namespace kolmctl {

/// What the decoder of a register makes of a value.
struct RegisterLines {
    std::string layout;               ///< names the register's layout, as in "Feature: 0xf0f00800"
    std::vector<std::string> fields;  ///< as in "Present: 1"
};

/// Decodes a value as the property page "Direct access" does.
///
/// @return  empty for an address inside a Format 7 block that is none of its registers
[[nodiscard]] std::optional<RegisterLines> DecodeLines(std::uint32_t address, std::uint32_t value);

/// The fields as one cell of a table: an array for programs, one text for people and in TSV.
[[nodiscard]] Json FieldsCell(OutputFormat format, const std::vector<std::string>& fields);

}  // namespace kolmctl
