#include "base/module_state.h"

#include <gtest/gtest.h>

namespace kolmfluxor {
namespace {

TEST(ModuleState, keeps_the_instance_and_the_windows_version) {
    HINSTANCE const instance = ::GetModuleHandleA(nullptr);
    OSVERSIONINFOA version{};
    version.dwOSVersionInfoSize = sizeof version;
    ASSERT_TRUE(::GetVersionExA(&version));

    RecordModule(instance);

    EXPECT_EQ(ModuleInstance(), instance);
    EXPECT_EQ(WindowsVersion().dwMajorVersion, version.dwMajorVersion);
    EXPECT_EQ(WindowsVersion().dwMinorVersion, version.dwMinorVersion);
    EXPECT_EQ(WindowsVersion().dwBuildNumber, version.dwBuildNumber);
    EXPECT_EQ(WindowsVersion().dwPlatformId, version.dwPlatformId);
}

}  // namespace
}  // namespace kolmfluxor
