/// @file  kolmctl's help, version and wrong usage.

#include "system/support_kolmctl.h"

namespace kolmfluxor::test {
namespace {

using ::testing::HasSubstr;
using ::testing::MatchesRegex;

class KolmctlUsage : public KolmctlTest {};

constexpr const char* kSubcommands[] = {"list", "info", "features", "get",   "set",   "trigger", "iso",
                                        "lut",  "reg",  "raw",      "trace", "pages", "formats", "format"};

struct Nested {
    const wchar_t* group;
    const wchar_t* name;
    const char* usage;
};
constexpr Nested kNested[] = {
    {L"trigger", L"set", "Usage: kolmctl trigger set"}, {L"iso", L"set", "Usage: kolmctl iso set"},
    {L"lut", L"enable", "Usage: kolmctl lut enable"},   {L"lut", L"disable", "Usage: kolmctl lut disable"},
    {L"lut", L"upload", "Usage: kolmctl lut upload"},   {L"reg", L"read", "Usage: kolmctl reg read"},
    {L"reg", L"write", "Usage: kolmctl reg write"},     {L"reg", L"dump", "Usage: kolmctl reg dump"},
    {L"format", L"set", "Usage: kolmctl format set"},   {L"reg", L"decode", "Usage: kolmctl reg decode"},
    {L"raw", L"get", "Usage: kolmctl raw get"},         {L"raw", L"set", "Usage: kolmctl raw set"},
};

TEST_F(KolmctlUsage, help_names_every_subcommand_with_an_example_and_the_exit_codes) {
    const ProcessOutcome outcome = Kolmctl({L"--help"});

    EXPECT_EQ(outcome.exitCode, kSuccess);
    EXPECT_EQ(outcome.err, "");
    for (const std::string subcommand : kSubcommands) {
        EXPECT_THAT(outcome.out, HasSubstr("\n  " + subcommand + "  "));
    }
    for (const char* text : {"\n  kolmctl list\n", " features\n", " get gain shutter\n",
                             " set gain 100 --mode manual\n", " trace set gain 100\n", "--device NAME",
                             "--simulate [=mono|color]", "\n  0  success\n", "\n  1  ", "\n  2  ", "\n  3  "}) {
        EXPECT_THAT(outcome.out, HasSubstr(text));
    }
}

TEST_F(KolmctlUsage, help_of_a_subcommand_shows_an_example) {
    for (const std::string subcommand : kSubcommands) {
        const ProcessOutcome outcome = Kolmctl({std::wstring(subcommand.begin(), subcommand.end()), L"--help"});

        EXPECT_EQ(outcome.exitCode, kSuccess) << subcommand;
        EXPECT_THAT(outcome.out, HasSubstr("Usage: kolmctl " + subcommand));
        EXPECT_THAT(outcome.out, HasSubstr("\nExample:\n  kolmctl "));
    }
}

TEST_F(KolmctlUsage, help_of_a_nested_subcommand_shows_an_example) {
    for (const Nested& nested : kNested) {
        const ProcessOutcome outcome = Kolmctl({nested.group, nested.name, L"--help"});

        EXPECT_EQ(outcome.exitCode, kSuccess) << nested.usage;
        EXPECT_THAT(outcome.out, HasSubstr(nested.usage));
        EXPECT_THAT(outcome.out, HasSubstr("\nExample:\n  kolmctl --simulate "));
    }
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
