#pragma once
/// @file  The system's default for messages of windows, recorded instead of carried out.

#include <vector>

#include "support/patched_import.h"

extern "C" void* __imp_DefWindowProcA;

namespace kolmfluxor::test {

/// As long as it lives, each message that the test program's own code passes on to the system's default is noted and
/// answered with a number of its own. So a test can tell what a page passes on to its base from what it swallows.
class CRecordedDefault {
public:
    static constexpr LRESULT kAnswer = 4711;

    CRecordedDefault() : m_patch(&__imp_DefWindowProcA, reinterpret_cast<void*>(&Record)) { s_messages.clear(); }

    /// The messages that arrived, in order.
    [[nodiscard]] static const std::vector<UINT>& Messages() { return s_messages; }
    static void Forget() { s_messages.clear(); }

private:
    static LRESULT WINAPI Record(HWND, UINT message, WPARAM, LPARAM) {
        s_messages.push_back(message);
        return kAnswer;
    }

    static inline std::vector<UINT> s_messages;

    CPatchedImport m_patch;
};

}  // namespace kolmfluxor::test
