#pragma once
/// @file  The subcommands of kolmctl and their examples, as its own help tells them.

#include <string>
#include <vector>

#include "system/support_kolmctl.h"

namespace kolmfluxor::test {

/// The help of one subcommand.
struct HelpPage {
    std::vector<std::wstring> words;  ///< as in {"trigger", "set"}
    ProcessOutcome outcome;           ///< of "kolmctl trigger set --help"
    std::string example;              ///< the last line

    /// The words with a blank between them.
    [[nodiscard]] std::string Name() const;

    /// The example's arguments as the system takes the line apart, without the program.
    [[nodiscard]] std::vector<std::wstring> ExampleArguments() const;
};

/// The pages of all subcommands, nested ones too, in the order in which the help lists them; but not once more those
/// that "trace" repeats.
[[nodiscard]] std::vector<HelpPage> AllHelpPages();

/// A folder that is the current one as long as the object lives, with the files that the examples name.
class CExampleFolder {
public:
    CExampleFolder();

    /// Removes the folder and what the examples have left in it.
    ~CExampleFolder();

    CExampleFolder(const CExampleFolder&) = delete;
    CExampleFolder& operator=(const CExampleFolder&) = delete;

private:
    std::wstring m_before;
    std::wstring m_folder;
};

}  // namespace kolmfluxor::test
