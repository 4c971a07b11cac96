#pragma once
/// @file  The COM class keys of the module: HKEY_CLASSES_ROOT\CLSID\{class}\InprocServer32.

#include <span>

#include "base/class_factory.h"

namespace kolmfluxor {

/// Writes the keys of every class, overwriting what is there, then makes sure that the filter mapper is there.
///
/// Not transactional: the first failure is returned, and what was written stays.
/// @return  why the module's own path can't be had, the code of the key or value that failed, or the filter mapper's
///          creation code; `S_OK` else
[[nodiscard]] HRESULT RegisterClasses(std::span<const CFactoryTemplate> classes);

/// Deletes the keys of every class with all their subkeys; keys that are gone already do not matter.
///
/// @return  why the module's own path can't be had, or the filter mapper's creation code, with no key touched; `S_OK`
///          else
[[nodiscard]] HRESULT UnregisterClasses(std::span<const CFactoryTemplate> classes);

}  // namespace kolmfluxor
