#pragma once
/// @file  Readers of LUT files that are compared: each makes 16-bit LUTs of a file with a given number of columns.

#include <span>
#include <string>
#include <vector>

#include "lut/lut_set.h"

namespace kolmfluxor::bench {

/// A file of `rows` lines and a header; `columns` includes the first one, which no reader keeps.
struct FileShape {
    std::size_t rows;
    std::size_t columns;
    bool quoted;  ///< each cell in double quotes
};

inline constexpr std::size_t kFewColumns = 3;
inline constexpr std::size_t kManyColumns = 17;

struct Reader {
    const char* name;
    std::vector<Lut16Bit> (*read)(const std::string& path, const FileShape& shape);
};

/// The module's own first, then a plain transcription of its rules, then other people's.
[[nodiscard]] std::span<const Reader> Readers();

/// The content of a file of this shape: gamma curves of up to 16 bits.
[[nodiscard]] std::string MakeText(const FileShape& shape);

/// Writes a file of this shape and makes sure that all readers get the same of it.
///
/// @return  its path; empty, after a message, when two readers disagree
[[nodiscard]] std::string MakeFile(const FileShape& shape);

}  // namespace kolmfluxor::bench
