/// @file  HRESULTs in words, as kolmctl shows them.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <string>

#include <windows.h>

#include <vfwmsgs.h>

#include "hresult_text.h"
#include "model/status.h"

namespace kolmfluxor::test {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

std::string TextOf(std::uint32_t code) {
    return kolmctl::HResultText(static_cast<HRESULT>(code));
}

TEST(KolmctlHResultText, shows_code_name_and_meaning) {
    EXPECT_EQ(TextOf(0x80004001), "0x80004001 E_NOTIMPL (the camera or the module does not support this)");
    EXPECT_EQ(TextOf(0x00000001), "0x00000001 S_FALSE (a success with reservations, taken for a failure)");
    EXPECT_EQ(TextOf(0x00000000), "0x00000000 S_OK");
}

struct Named {
    HRESULT code;
    const char* name;
};

// What the module, its pages, the still grabber and the simulated camera's capture filter return by themselves.
constexpr Named kNamed[] = {
    {S_FALSE, "S_FALSE"},
    {E_NOTIMPL, "E_NOTIMPL"},
    {E_NOINTERFACE, "E_NOINTERFACE"},
    {E_POINTER, "E_POINTER"},
    {E_FAIL, "E_FAIL"},
    {E_UNEXPECTED, "E_UNEXPECTED"},
    {E_ACCESSDENIED, "E_ACCESSDENIED"},
    {E_HANDLE, "E_HANDLE"},
    {E_OUTOFMEMORY, "E_OUTOFMEMORY"},
    {E_INVALIDARG, "E_INVALIDARG"},
    {CLASS_E_NOAGGREGATION, "CLASS_E_NOAGGREGATION"},
    {CLASS_E_CLASSNOTAVAILABLE, "CLASS_E_CLASSNOTAVAILABLE"},
    {REGDB_E_CLASSNOTREG, "REGDB_E_CLASSNOTREG"},
    {VFW_S_STATE_INTERMEDIATE, "VFW_S_STATE_INTERMEDIATE"},
    {VFW_S_CANT_CUE, "VFW_S_CANT_CUE"},
    {VFW_E_INVALIDMEDIATYPE, "VFW_E_INVALIDMEDIATYPE"},
    {VFW_E_NEED_OWNER, "VFW_E_NEED_OWNER"},
    {VFW_E_ALREADY_CONNECTED, "VFW_E_ALREADY_CONNECTED"},
    {VFW_E_NO_ACCEPTABLE_TYPES, "VFW_E_NO_ACCEPTABLE_TYPES"},
    {VFW_E_NOT_CONNECTED, "VFW_E_NOT_CONNECTED"},
    {VFW_E_BUFFER_OVERFLOW, "VFW_E_BUFFER_OVERFLOW"},
    {VFW_E_NOT_FOUND, "VFW_E_NOT_FOUND"},
    {VFW_E_CANNOT_CONNECT, "VFW_E_CANNOT_CONNECT"},
    {VFW_E_CANNOT_RENDER, "VFW_E_CANNOT_RENDER"},
    {VFW_E_NOT_STOPPED, "VFW_E_NOT_STOPPED"},
    {VFW_E_WRONG_STATE, "VFW_E_WRONG_STATE"},
    {VFW_E_TYPE_NOT_ACCEPTED, "VFW_E_TYPE_NOT_ACCEPTED"},
    {VFW_E_NOT_IN_GRAPH, "VFW_E_NOT_IN_GRAPH"},
    {VFW_E_NO_TRANSPORT, "VFW_E_NO_TRANSPORT"},
};

TEST(KolmctlHResultText, names_what_the_module_and_the_capture_filter_return) {
    for (const Named& row : kNamed) {
        EXPECT_THAT(kolmctl::HResultText(row.code), HasSubstr(std::string(" ") + row.name + " ("));
        EXPECT_THAT(kolmctl::HResultText(row.code), Not(HasSubstr("no text is known"))) << row.name;
    }
}

/// A status without a name here does not compile: the words belong to the driver contract.
const char* NameOf(kolmsim::Status status) {
    switch (status) {
    case kolmsim::Status::ok:
        return "S_OK";
    case kolmsim::Status::invalidHandle:
        return "E_HANDLE";
    case kolmsim::Status::invalidParameter:
        return "E_INVALIDARG";
    case kolmsim::Status::insufficientBuffer:
        return "ERROR_INSUFFICIENT_BUFFER";
    case kolmsim::Status::busy:
        return "ERROR_BUSY";
    case kolmsim::Status::invalidAddress:
        return "ERROR_INVALID_ADDRESS";
    case kolmsim::Status::deviceNotConnected:
        return "ERROR_DEVICE_NOT_CONNECTED";
    case kolmsim::Status::propertyNotFound:
        return "ERROR_NOT_FOUND";
    case kolmsim::Status::setNotFound:
        return "ERROR_SET_NOT_FOUND";
    case kolmsim::Status::noBandwidth:
        return "ERROR_NO_SYSTEM_RESOURCES";
    }
    return "";
}

TEST(KolmctlHResultText, names_every_answer_of_the_simulated_driver) {
    int named = 0;
    for (DWORD error = 0; error <= 2000; ++error) {
        const std::string name = NameOf(static_cast<kolmsim::Status>(error));
        if (!name.empty()) {
            EXPECT_THAT(kolmctl::HResultText(HRESULT_FROM_WIN32(error)), HasSubstr(" " + name)) << error;
            ++named;
        }
    }
    EXPECT_EQ(named, 10);
}

/// What the system says about a Windows error, up to its full stop.
std::string SystemWords(DWORD error) {
    std::array<char, 512> text{};
    ::FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
                     nullptr, error, 0, text.data(), static_cast<DWORD>(text.size()), nullptr);
    const std::string words = text.data();
    return words.substr(0, words.find_last_not_of(" .") + 1);
}

TEST(KolmctlHResultText, leaves_other_windows_errors_to_the_system) {
    for (const DWORD error : {DWORD{ERROR_PATH_NOT_FOUND}, DWORD{ERROR_MOD_NOT_FOUND}, DWORD{ERROR_DISK_FULL}}) {
        const std::string text = kolmctl::HResultText(HRESULT_FROM_WIN32(error));

        ASSERT_NE(SystemWords(error), "");
        EXPECT_THAT(text, StartsWith("0x8007"));
        EXPECT_THAT(text, EndsWith(" (" + SystemWords(error) + ")"));
    }
}

TEST(KolmctlHResultText, admits_that_a_code_has_no_words) {
    EXPECT_EQ(TextOf(0xA0001234), "0xA0001234 (no text is known for this code)");
    EXPECT_EQ(TextOf(0x8007FFFE), "0x8007FFFE (no text is known for this code)");
}

}  // namespace
}  // namespace kolmfluxor::test
