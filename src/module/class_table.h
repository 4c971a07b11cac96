#pragma once
/// @file  The ten creatable classes of the module.

#include <span>

#include "base/class_factory.h"

namespace kolmfluxor {

/// One row for each class. Everything that creates, registers or unregisters a class walks these rows.
[[nodiscard]] std::span<const CFactoryTemplate> ClassTable() noexcept;

/// The row of a class that the table has.
[[nodiscard]] const CFactoryTemplate& ClassRow(REFCLSID classId) noexcept;

}  // namespace kolmfluxor
