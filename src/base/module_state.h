#pragma once
/// @file  What the whole module shares: its instance, the Windows version, the two counts that keep it loaded.

#include <windows.h>

namespace kolmfluxor {

/// Records the instance and the Windows version; called once, at process attach.
void RecordModule(HINSTANCE instance) noexcept;

/// The instance that `RecordModule` was given: where the module's file path and resources come from.
[[nodiscard]] HINSTANCE ModuleInstance() noexcept;

/// The Windows version as `GetVersionExA` told it at process attach.
[[nodiscard]] const OSVERSIONINFOA& WindowsVersion() noexcept;

/// Adds `change` (+1 or -1) to the count of `IClassFactory::LockServer`. Any thread may call.
void ChangeServerLocks(LONG change) noexcept;

/// Whether the module may be unloaded: no server lock and no living COM object, class factories included.
[[nodiscard]] bool CanUnload() noexcept;

/// Counts the living COM objects of the module: each one has exactly one `CBaseObject` as a base.
class CBaseObject {
public:
    CBaseObject(const CBaseObject&) = delete;
    CBaseObject& operator=(const CBaseObject&) = delete;

    /// How many are alive now.
    [[nodiscard]] static LONG ObjectsActive() noexcept;

protected:
    CBaseObject() noexcept;
    ~CBaseObject();
};

}  // namespace kolmfluxor
