#include "module/media_registration.h"

#include <gtest/gtest.h>

#include "support/registry.h"

namespace kolmfluxor {
namespace {

constexpr wchar_t kMediaInterfaces[] =
    L"System\\CurrentControlSet\\Control\\MediaInterfaces\\{BE226229-D865-4F2E-AB89-13F359E8F46A}";

// Registry functions leave the thread's last error alone, so the code that comes out is the one that was there before.

TEST(MediaRegistration, reports_a_media_interfaces_key_that_cannot_be_created_as_the_last_error) {
    test::CPrivateRegistry registry;
    registry.Lock(HKEY_LOCAL_MACHINE, kMediaInterfaces);

    ::SetLastError(ERROR_ACCESS_DENIED);
    EXPECT_EQ(RegisterMediaInterfaces(), E_ACCESSDENIED);
    ::SetLastError(ERROR_SHARING_VIOLATION);
    EXPECT_EQ(RegisterMediaInterfaces(), static_cast<HRESULT>(0x80070020));
}

TEST(MediaRegistration, unregistration_stops_at_the_first_key_that_is_not_there) {
    test::CPrivateRegistry registry;
    ASSERT_EQ(RegisterMediaInterfaces(), S_OK);
    ASSERT_EQ(::RegDeleteTreeW(HKEY_LOCAL_MACHINE, L"System\\CurrentControlSet\\Control\\MediaSets"), ERROR_SUCCESS);

    ::SetLastError(ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(UnregisterMediaInterfaces(), static_cast<HRESULT>(0x80070002));

    HKEY key = nullptr;
    EXPECT_EQ(::RegOpenKeyExW(HKEY_LOCAL_MACHINE, kMediaInterfaces, 0, KEY_READ, &key), ERROR_SUCCESS)
        << "the last key was reached although an earlier one failed";
    ::RegCloseKey(key);
}

}  // namespace
}  // namespace kolmfluxor
