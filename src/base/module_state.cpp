#include "base/module_state.h"

#include <atomic>

namespace kolmfluxor {
namespace {

// NOLINTBEGIN(cppcoreguidelines-avoid-non-const-global-variables): the state of the module, which COM asks as a whole
HINSTANCE g_instance = nullptr;
OSVERSIONINFOA g_windowsVersion{};
std::atomic<LONG> g_serverLocks{0};
std::atomic<LONG> g_liveObjects{0};
// NOLINTEND(cppcoreguidelines-avoid-non-const-global-variables)

}  // namespace

void RecordModule(HINSTANCE instance) noexcept {
    g_instance = instance;
    g_windowsVersion = {};
    g_windowsVersion.dwOSVersionInfoSize = sizeof g_windowsVersion;
    if (!::GetVersionExA(&g_windowsVersion)) g_windowsVersion = {};
}

HINSTANCE ModuleInstance() noexcept {
    return g_instance;
}

const OSVERSIONINFOA& WindowsVersion() noexcept {
    return g_windowsVersion;
}

void ChangeServerLocks(LONG change) noexcept {
    g_serverLocks += change;
}

bool CanUnload() noexcept {
    return g_serverLocks <= 0 && CBaseObject::ObjectsActive() == 0;
}

LONG CBaseObject::ObjectsActive() noexcept {
    return g_liveObjects;
}

CBaseObject::CBaseObject() noexcept {
    ++g_liveObjects;
}

CBaseObject::~CBaseObject() {
    --g_liveObjects;
}

}  // namespace kolmfluxor
