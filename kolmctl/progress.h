#pragma once
/// @file  Progress of long work, on a terminal only.

#include <cstddef>
#include <string>

namespace kolmctl {

/// A line on the error stream that counts up and vanishes at the end. Prints nothing where that stream is no terminal.
class Progress {
public:
    /// @param what   what is being done, as in "reading registers"
    /// @param total  number of steps
    Progress(std::string what, std::size_t total);

    /// Takes the line away.
    ~Progress();

    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// One step is done.
    void Step();

private:
    void Show();

    std::string m_what;
    std::size_t m_total;
    std::size_t m_done = 0;
    std::size_t m_width = 0;  ///< of the line that is shown
    bool m_terminal;
};

}  // namespace kolmctl
