#pragma once
/// @file  Counts the calls that stand-ins for DirectShow get, and lets the n-th one fail.

#include <cstddef>
#include <string>
#include <vector>

#include <windows.h>

namespace kolmfluxor::test {

enum class CallFaultKind {
    fails,         ///< nothing is done, and a failure returned
    qualified,     ///< all is done, and a success other than S_OK returned
    givesNothing,  ///< S_OK is returned, but not the object or text that was asked for
};

/// One way to disturb a call.
struct CallFault {
    const char* name;
    CallFaultKind kind;
    HRESULT code = S_OK;  ///< what the call returns
};

/// What becomes of a call.
struct CallFate {
    HRESULT code = S_OK;
    bool gives = true;  ///< whether the output is handed out
};

/// One counter for all stand-ins that share it.
class CCallFaults {
public:
    struct Call {
        std::string name;
        bool canBeEmpty;  ///< has an output that it may fail to give
    };

    /// A call has come.
    ///
    /// @param sound  what it returns undisturbed; a failure gives nothing
    [[nodiscard]] CallFate Begin(const std::string& name, bool canBeEmpty, HRESULT sound = S_OK) {
        calls.push_back({name, canBeEmpty});
        if (m_fault == nullptr || calls.size() != m_nth) return {sound, SUCCEEDED(sound)};
        return {m_fault->code, m_fault->kind == CallFaultKind::qualified};
    }

    /// The n-th call from now on, 1-based, is disturbed. @param fault  null takes it back; must outlive the calls
    void Start(const CallFault* fault, std::size_t nth) {
        calls.clear();
        m_fault = fault;
        m_nth = nth;
    }

    std::vector<Call> calls;  ///< since `Start`

private:
    const CallFault* m_fault = nullptr;
    std::size_t m_nth = 0;
};

/// The same for a stand-in that may have no counter.
[[nodiscard]] inline CallFate FateOf(CCallFaults* faults, const std::string& name, bool canBeEmpty,
                                     HRESULT sound = S_OK) {
    return faults != nullptr ? faults->Begin(name, canBeEmpty, sound) : CallFate{sound, SUCCEEDED(sound)};
}

}  // namespace kolmfluxor::test
