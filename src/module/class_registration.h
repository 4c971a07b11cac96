#pragma once
/// @file  The COM class keys of the module: HKEY_CLASSES_ROOT\CLSID\{class}\InprocServer32.

#include <span>

#include "base/class_factory.h"

namespace kolmfluxor {

/// Writes the keys of every class, overwriting what is there, then makes sure that the filter mapper is there.
///
/// Not transactional: the first failure is returned, and what was written stays.
/// @return  the filter mapper's creation code when it can't be created; else the Win32 code of the failed step
[[nodiscard]] HRESULT RegisterClasses(std::span<const CFactoryTemplate> classes);

/// Deletes the keys of every class with all their subkeys; keys that are gone already do not matter.
///
/// @return  the filter mapper's creation code, with no key touched, when it can't be created; else `S_OK`
[[nodiscard]] HRESULT UnregisterClasses(std::span<const CFactoryTemplate> classes);

}  // namespace kolmfluxor
