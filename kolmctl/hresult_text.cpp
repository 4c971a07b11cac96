#include "hresult_text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>

#include "text.h"

namespace kolmctl {
namespace {

struct CodeRow {
    std::uint32_t code;
    const char* name;
    const char* meaning;
};

// Codes with a meaning of their own in this module's interface or its driver contract, and the DirectShow codes that
// the system has no text for.
// clang-format off
constexpr CodeRow kCodes[] = {
    {0x00000000, "S_OK",                       ""},
    {0x00000001, "S_FALSE",                    "a success with reservations, taken for a failure"},
    {0x80004001, "E_NOTIMPL",                  "the camera or the module does not support this"},
    {0x80004002, "E_NOINTERFACE",              "no such interface"},
    {0x80004003, "E_POINTER",                  "null pointer"},
    {0x80004005, "E_FAIL",                     "unspecified failure, or unknown feature or mode"},
    {0x8000FFFF, "E_UNEXPECTED",               "the filter has no device handle"},
    {0x80040154, "REGDB_E_CLASSNOTREG",        "class not registered"},
    {0x80040110, "CLASS_E_NOAGGREGATION",      "the class cannot be part of a filter"},
    {0x80040200, "VFW_E_INVALIDMEDIATYPE",     "the camera or its driver does not take this media type"},
    {0x80040209, "VFW_E_NOT_CONNECTED",        "the pin is not connected"},
    {0x80040216, "VFW_E_NOT_FOUND",            "object or name not found"},
    {0x80040224, "VFW_E_NOT_STOPPED",          "the filter is not stopped"},
    {0x80040227, "VFW_E_WRONG_STATE",          "wrong state for this"},
    {0x8004022A, "VFW_E_TYPE_NOT_ACCEPTED",    "the media type is not accepted"},
    {0x80070005, "E_ACCESSDENIED",             "access denied"},
    {0x80070006, "E_HANDLE",                   "the driver does not know this device handle"},
    {0x8007000E, "E_OUTOFMEMORY",              "out of memory"},
    {0x8007001F, "ERROR_GEN_FAILURE",          "the device does not work"},
    {0x80070057, "E_INVALIDARG",               "value out of range, or invalid argument"},
    {0x8007007A, "ERROR_INSUFFICIENT_BUFFER",  "the request's record is too short"},
    {0x800701E7, "ERROR_INVALID_ADDRESS",      "no register at this address"},
    {0x8007048F, "ERROR_DEVICE_NOT_CONNECTED", "the camera is not connected"},
    {0x80070490, "ERROR_NOT_FOUND",            "this camera or its driver does not have the property"},
    {0x80070492, "ERROR_SET_NOT_FOUND",        "the driver does not have the property set"},
    {0x800705AA, "ERROR_NO_SYSTEM_RESOURCES",  "the bus is too slow for this at its present speed"},
};
// clang-format on

/// The system's words for a code without a line end or full stop; empty when it has none.
std::string SystemText(HRESULT hr) {
    std::array<wchar_t, 512> text{};
    const DWORD flags = FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK;
    const auto size = static_cast<DWORD>(text.size());
    DWORD length = ::FormatMessageW(flags, nullptr, static_cast<DWORD>(hr), 0, text.data(), size, nullptr);
    if (length == 0 && HRESULT_FACILITY(hr) == FACILITY_WIN32) {
        const auto win32 = static_cast<DWORD>(HRESULT_CODE(hr));
        length = ::FormatMessageW(flags, nullptr, win32, 0, text.data(), size, nullptr);
    }
    std::string words = ToUtf8({text.data(), length});
    while (!words.empty() && (words.back() == ' ' || words.back() == '.')) {
        words.pop_back();
    }
    return words;
}

}  // namespace

std::string HResultText(HRESULT hr) {
    const auto code = static_cast<std::uint32_t>(hr);
    const auto* const row = std::ranges::find(kCodes, code, &CodeRow::code);
    std::string name;
    std::string meaning;
    if (row != std::end(kCodes)) {
        name = std::string(" ") + row->name;
        meaning = row->meaning;
    } else {
        meaning = SystemText(hr);
        if (meaning.empty()) {
            meaning = "no text is known for this code";
        }
    }
    return Hex32(code) + name + (meaning.empty() ? "" : " (" + meaning + ")");
}

}  // namespace kolmctl
