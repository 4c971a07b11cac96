/// @file  kolmctl's help, version and wrong usage.

#include "support/module.h"
#include "system/support_kolmctl.h"

namespace kolmfluxor::test {
namespace {

using ::testing::HasSubstr;
using ::testing::MatchesRegex;

class KolmctlUsage : public KolmctlTest {};

constexpr const char* kSubcommands[] = {"list",    "info",   "features", "get",   "set",   "trigger",
                                        "iso",     "lut",    "reg",      "raw",   "trace", "pages",
                                        "formats", "format", "still",    "watch", "save",  "load"};

TEST_F(KolmctlUsage, help_names_every_subcommand_with_an_example_and_the_exit_codes) {
    const ProcessOutcome outcome = Kolmctl({L"--help"});

    EXPECT_EQ(outcome.exitCode, kSuccess);
    EXPECT_EQ(outcome.err, "");
    for (const std::string subcommand : kSubcommands) {
        EXPECT_THAT(outcome.out, HasSubstr("\n  " + subcommand + "  "));
    }
    for (const char* text :
         {"\n  kolmctl list\n", " features\n", " get gain shutter\n", " set gain 100 --mode manual\n",
          " trace set gain 100\n", "--device NAME", "--simulate [=mono|color]",
          "\nExit codes:\n"
          "  0  success\n"
          "  1  the camera, its driver, the module or a file refused (the HRESULT is shown)\n"
          "  2  wrong usage or input; nothing in a camera was changed\n"
          "  3  no such device, several that match, or one without the property set\n"
          "  4  the standard output takes no more; what was asked for may have been done\n"}) {
        EXPECT_THAT(outcome.out, HasSubstr(text));
    }
}

TEST_F(KolmctlUsage, output_that_cannot_be_written_is_an_error) {
    CPipedProcess command(CModule::BesideTheTests(L"kolmctl.exe"), {L"--simulate", L"get", L"gain"});

    command.CloseOutput();

    const ProcessOutcome outcome = command.Wait();
    EXPECT_EQ(outcome.exitCode, kNoOutput);
    EXPECT_EQ(outcome.err, "kolmctl: cannot write to the standard output\n");
}

TEST_F(KolmctlUsage, global_options_may_follow_a_nested_subcommand) {
    EXPECT_THAT(Kolmctl({L"reg", L"dump", L"--filter", L"zebra", L"--simulate", L"--json"}),
                Fails(kUsage, "no register has \"zebra\""));
}

TEST_F(KolmctlUsage, version_is_a_number) {
    const ProcessOutcome outcome = Kolmctl({L"--version"});

    EXPECT_EQ(outcome.exitCode, kSuccess);
    EXPECT_THAT(outcome.out, MatchesRegex("kolmctl \\d+\\.\\d+\\.\\d+\n"));
}

TEST_F(KolmctlUsage, needs_a_subcommand) {
    EXPECT_THAT(Kolmctl({}), Fails(kUsage, "A subcommand is required"));
}

TEST_F(KolmctlUsage, refuses_what_it_does_not_know) {
    EXPECT_THAT(Kolmctl({L"fly"}), Fails(kUsage, "unknown subcommand \"fly\""));
    EXPECT_THAT(Kolmctl({L"list", L"--fly"}), Fails(kUsage, "--fly"));
    EXPECT_THAT(Kolmctl({L"list", L"/fly"}), Fails(kUsage, "/fly"));
}

TEST_F(KolmctlUsage, prints_one_format) {
    EXPECT_THAT(Kolmctl({L"--json", L"--tsv", L"list"}), Fails(kUsage, "--json excludes --tsv"));
}

}  // namespace
}  // namespace kolmfluxor::test
