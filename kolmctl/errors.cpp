#include "errors.h"

#include "hresult_text.h"

namespace kolmctl {

CallError::CallError(const std::string& failed, HRESULT hr, std::string hint)
    : Error(ExitCode::refused, failed + ": " + HResultText(hr), std::move(hint)), m_hr(hr) {}

void Check(HRESULT hr, const std::string& failed) {
    if (hr != S_OK) {
        throw CallError(failed, hr);
    }
}

}  // namespace kolmctl
