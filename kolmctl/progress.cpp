#include "progress.h"

#include <algorithm>
#include <iostream>

#include <windows.h>

namespace kolmctl {
namespace {

/// The run-time library would take the null device for a terminal, too.
bool ErrorStreamIsTerminal() {
    DWORD mode = 0;
    return ::GetConsoleMode(::GetStdHandle(STD_ERROR_HANDLE), &mode) != 0;
}

}  // namespace

Progress::Progress(std::string what, std::size_t total)
    : m_what(std::move(what)), m_total(total), m_terminal(ErrorStreamIsTerminal()) {
    Show();
}

Progress::~Progress() {
    if (m_terminal) {
        std::cerr << "\r" << std::string(m_width, ' ') << "\r" << std::flush;
    }
}

void Progress::Step() {
    ++m_done;
    Show();
}

void Progress::Show() {
    if (!m_terminal) {
        return;
    }
    const std::string line = m_what + ": " + std::to_string(m_done) + " of " + std::to_string(m_total);
    m_width = std::max(m_width, line.size());
    std::cerr << "\r" << line << std::flush;
}

}  // namespace kolmctl
