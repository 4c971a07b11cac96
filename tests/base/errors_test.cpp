#include "base/errors.h"

#include <gtest/gtest.h>

namespace kolmfluxor {
namespace {

TEST(Errors, positive_win32_codes_get_the_win32_facility) {
    EXPECT_EQ(HResultFromWin32(ERROR_FILE_NOT_FOUND), static_cast<HRESULT>(0x80070002));
    EXPECT_EQ(HResultFromWin32(ERROR_ACCESS_DENIED), E_ACCESSDENIED);
    EXPECT_EQ(HResultFromWin32(0x12345), static_cast<HRESULT>(0x80072345)) << "only the low 16 bits count";
}

TEST(Errors, zero_and_negative_codes_stay_as_they_are) {
    EXPECT_EQ(HResultFromWin32(0), S_OK);
    EXPECT_EQ(HResultFromWin32(E_NOTIMPL), E_NOTIMPL);
}

TEST(Errors, the_last_error_is_converted) {
    ::SetLastError(ERROR_INVALID_HANDLE);
    EXPECT_EQ(HResultFromLastError(), E_HANDLE);
}

TEST(Errors, an_exception_carries_its_text) {
    EXPECT_STREQ(CTextException("Class::Method: what failed").what(), "Class::Method: what failed");
}

}  // namespace
}  // namespace kolmfluxor
