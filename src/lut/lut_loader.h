#pragma once
/// @file  From a table to a set of look-up tables (LUTs).

#include <cstdint>

#include "lut/csv_table.h"
#include "lut/lut_set.h"

namespace kolmfluxor {

/// Fills a set with all LUTs of a table and makes it valid.
///
/// @param bytesPerValue  1 makes 8-bit LUTs, 2 makes 16-bit ones; any other width fills nothing
/// @return  false, with the set not valid, for another width
/// @throws  what the table's counts throw; the set is not valid then
bool LoadLutSet(CLutSet& set, const CCsvTable& table, std::uint32_t bytesPerValue);

}  // namespace kolmfluxor
