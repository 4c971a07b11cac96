#include "errors.h"

#include "hresult_text.h"

namespace kolmctl {
namespace {

constexpr ExitCodeRow kExitCodes[] = {
    {ExitCode::success, "success"},
    {ExitCode::refused, "the camera, its driver, the module or a file refused (the HRESULT is shown)"},
    {ExitCode::usage, "wrong usage or input; nothing in a camera was changed"},
    {ExitCode::noSuchDevice, "no such device, several that match, or one without the property set"},
    {ExitCode::noOutput, "the standard output takes no more; what was asked for may have been done"},
};

}  // namespace

std::span<const ExitCodeRow> ExitCodes() {
    return kExitCodes;
}

CallError::CallError(const std::string& failed, HRESULT hr, std::string hint)
    : Error(ExitCode::refused, failed + ": " + HResultText(hr), std::move(hint)), m_hr(hr) {}

bool TellsAbsence(HRESULT hr) {
    constexpr auto kNotFound = static_cast<HRESULT>(0x80070490);        // ERROR_NOT_FOUND
    constexpr auto kInvalidAddress = static_cast<HRESULT>(0x800701E7);  // ERROR_INVALID_ADDRESS
    return hr == E_NOTIMPL || hr == kNotFound || hr == kInvalidAddress;
}

void Check(HRESULT hr, const std::string& failed) {
    if (hr != S_OK) {
        throw CallError(failed, hr);
    }
}

}  // namespace kolmctl
