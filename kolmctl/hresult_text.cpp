#include "hresult_text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <iterator>

#include "text.h"

namespace kolmctl {
namespace {

struct CodeRow {
    std::uint32_t code;
    const char* name;
    const char* meaning;
};

// Codes that the module, the simulated camera and its capture filter give: some have a meaning of their own there, and
// the system has no text for others.
// clang-format off
constexpr CodeRow kCodes[] = {
    {0x00000000, "S_OK",                        ""},
    {0x00000001, "S_FALSE",                     "a success with reservations, taken for a failure"},
    {0x00040237, "VFW_S_STATE_INTERMEDIATE",    "the change of state is under way"},
    {0x00040268, "VFW_S_CANT_CUE",              "a live source has no picture while it is paused"},
    {0x80004001, "E_NOTIMPL",                   "the camera or the module does not support this"},
    {0x80004002, "E_NOINTERFACE",               "no such interface"},
    {0x80004003, "E_POINTER",                   "null pointer"},
    {0x80004005, "E_FAIL",                      "unspecified failure, or unknown feature or mode"},
    {0x8000FFFF, "E_UNEXPECTED",                "the filter has no device handle"},
    {0x80040110, "CLASS_E_NOAGGREGATION",       "the class cannot be part of a filter"},
    {0x80040111, "CLASS_E_CLASSNOTAVAILABLE",   "the module has no such class"},
    {0x80040154, "REGDB_E_CLASSNOTREG",         "class not registered"},
    {0x80040200, "VFW_E_INVALIDMEDIATYPE",      "the camera or its driver does not take this media type"},
    {0x80040202, "VFW_E_NEED_OWNER",            "the object works as a part of a filter only"},
    {0x80040204, "VFW_E_ALREADY_CONNECTED",     "the pin is connected already"},
    {0x80040207, "VFW_E_NO_ACCEPTABLE_TYPES",   "the pins have no media type in common"},
    {0x80040209, "VFW_E_NOT_CONNECTED",         "the pin is not connected"},
    {0x8004020D, "VFW_E_BUFFER_OVERFLOW",       "the buffer is too small for a picture"},
    {0x80040216, "VFW_E_NOT_FOUND",             "object or name not found"},
    {0x80040217, "VFW_E_CANNOT_CONNECT",        "no filters connect the pins"},
    {0x80040218, "VFW_E_CANNOT_RENDER",         "no filter takes the pictures"},
    {0x80040224, "VFW_E_NOT_STOPPED",           "the filter is not stopped"},
    {0x80040227, "VFW_E_WRONG_STATE",           "wrong state for this"},
    {0x8004022A, "VFW_E_TYPE_NOT_ACCEPTED",     "the media type is not accepted"},
    {0x8004025F, "VFW_E_NOT_IN_GRAPH",          "the filter is in no filter graph"},
    {0x80040266, "VFW_E_NO_TRANSPORT",          "the pins have no way of passing pictures in common"},
    {0x80070005, "E_ACCESSDENIED",              "access denied"},
    {0x80070006, "E_HANDLE",                    "the driver does not know this device handle"},
    {0x8007000E, "E_OUTOFMEMORY",               "out of memory"},
    {0x8007001F, "ERROR_GEN_FAILURE",           "the device does not work"},
    {0x80070057, "E_INVALIDARG",                "value out of range, or invalid argument"},
    {0x8007007A, "ERROR_INSUFFICIENT_BUFFER",   "the request's record is too short"},
    {0x800700AA, "ERROR_BUSY",                  "not while the camera sends pictures"},
    {0x800701E7, "ERROR_INVALID_ADDRESS",       "no register at this address"},
    {0x8007048F, "ERROR_DEVICE_NOT_CONNECTED",  "the camera is not connected"},
    {0x80070490, "ERROR_NOT_FOUND",             "this camera or its driver does not have the property"},
    {0x80070492, "ERROR_SET_NOT_FOUND",         "the driver does not have the property set"},
    {0x800705AA, "ERROR_NO_SYSTEM_RESOURCES",   "the bus is too slow for this at its present speed"},
};
// clang-format on

// In ascending order, no code twice.
static_assert(std::ranges::adjacent_find(kCodes, std::ranges::greater_equal(), &CodeRow::code) == std::end(kCodes));

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
