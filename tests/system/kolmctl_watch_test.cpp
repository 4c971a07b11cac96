/// @file  kolmctl watch.

#include <algorithm>
#include <chrono>
#include <sstream>

#include <nlohmann/json.hpp>

#include "support/module.h"
#include "system/support_kolmctl.h"

namespace kolmfluxor::test {
namespace {

using Json = nlohmann::ordered_json;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

class KolmctlWatch : public KolmctlTest {
protected:
    void SetAuto() const { ASSERT_TRUE(OpenCamera()->SetFeatureWord(kGain, kMode, kAutoBit)); }

    /// What a run prints that ends as a success.
    static std::string Output(const std::vector<std::wstring>& arguments) {
        const ProcessOutcome outcome = Kolmctl(arguments);
        EXPECT_EQ(outcome.exitCode, kSuccess);
        EXPECT_EQ(outcome.err, "");
        return outcome.out;
    }

    static std::wstring Program() { return CModule::BesideTheTests(L"kolmctl.exe"); }
};

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

/// The lines without the times in front of them, which take 29 characters and end where `separator` starts.
std::vector<std::string> WithoutTimes(const std::string& text, const std::string& separator) {
    std::vector<std::string> lines = Lines(text);
    for (std::string& line : lines) {
        line = line.substr(std::min(line.find(separator), line.size()));
    }
    return lines;
}

TEST_F(KolmctlWatch, prints_the_values_at_first_and_then_each_change) {
    SetAuto();

    const std::string output =
        Output({L"--simulate", L"--tsv", L"watch", L"gain", L"shutter", L"--interval", L"1", L"--count", L"3"});

    // In the automatic mode each request moves the value by 3: a look that asked twice would leave one out.
    EXPECT_THAT(WithoutTimes(output, "\t"),
                ElementsAre("\tfeature\tvalue\tmode", "\tgain\t67\tauto", "\tshutter\t500\tmanual", "\tgain\t70\tauto",
                            "\tgain\t73\tauto", "\tgain\t76\tauto"));
    EXPECT_THAT(output, StartsWith("time\t"));
    EXPECT_EQ(Word(kGain, kValue), 76U);
}

TEST_F(KolmctlWatch, aligns_lines_for_people_before_it_knows_the_values) {
    SetAuto();

    const std::string output =
        Output({L"--simulate", L"watch", L"gain", L"extended-shutter", L"--interval", L"1", L"--count", L"1"});

    const std::vector<std::string> lines = Lines(output);
    ASSERT_EQ(lines.size(), 4U) << output;
    EXPECT_EQ(lines[0], "TIME                           FEATURE                VALUE  MODE");
    EXPECT_THAT(lines[1], EndsWith("  gain                      67  auto"));
    EXPECT_THAT(lines[2], EndsWith("  extended-shutter       10000  manual"));
    EXPECT_THAT(lines[3], EndsWith("  gain                      70  auto"));
    EXPECT_TRUE(std::ranges::all_of(lines, [](const auto& line) { return line.find("  ", 1) <= 29; })) << output;
}

TEST_F(KolmctlWatch, prints_an_object_a_line_as_json) {
    SetAuto();

    const std::string output =
        Output({L"--simulate", L"watch", L"gain", L"--interval", L"1", L"--count", L"1", L"--json"});

    const std::vector<std::string> lines = Lines(output);
    ASSERT_EQ(lines.size(), 2U) << output;
    const Json first = Json::parse(lines[0], nullptr, false);
    const Json second = Json::parse(lines[1], nullptr, false);
    EXPECT_EQ(first["feature"], "gain") << lines[0];
    EXPECT_EQ(first["value"], 67);
    EXPECT_EQ(first["mode"], "auto");
    EXPECT_EQ(second["value"], 70) << lines[1];
    EXPECT_LE(first["time"], second["time"]);
}

/// Milliseconds since 1970 of a time as in 2026-11-22T14:03:05.123+01:00; 0 for what is none.
std::int64_t Milliseconds(const std::string& time) {
    int year = 0;
    unsigned month = 0;
    unsigned day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    int thousandths = 0;
    char sign = ' ';
    int offsetHours = 0;
    int offsetMinutes = 0;
    if (time.size() != 29 ||
        std::sscanf(time.c_str(), "%4d-%2u-%2uT%2d:%2d:%2d.%3d%c%2d:%2d", &year, &month, &day, &hour, &minute, &second,
                    &thousandths, &sign, &offsetHours, &offsetMinutes) != 10) {
        return 0;
    }
    const std::chrono::sys_days date = std::chrono::year(year) / std::chrono::month(month) / std::chrono::day(day);
    const int offset = (sign == '-' ? -1 : 1) * (offsetHours * 60 + offsetMinutes);
    const auto utc = date.time_since_epoch() + std::chrono::hours(hour) + std::chrono::minutes(minute - offset) +
                     std::chrono::seconds(second) + std::chrono::milliseconds(thousandths);
    return std::chrono::duration_cast<std::chrono::milliseconds>(utc).count();
}

std::int64_t Now() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
}

TEST_F(KolmctlWatch, tells_the_local_time_with_its_distance_to_utc) {
    SetAuto();
    const std::int64_t before = Now();

    const std::string output =
        Output({L"--simulate", L"--tsv", L"watch", L"gain", L"--interval", L"200", L"--count", L"2"});

    const std::int64_t after = Now();
    const std::vector<std::string> lines = Lines(output);
    ASSERT_EQ(lines.size(), 4U) << output;
    const auto time = [&](std::size_t line) { return Milliseconds(lines[line].substr(0, lines[line].find('\t'))); };
    EXPECT_GE(time(1), before - 20) << lines[1];
    EXPECT_LE(time(3), after + 20) << lines[3];
    // Two intervals after the first look, which may have taken its time; never before.
    EXPECT_GE(time(3) - time(1), 2 * 200 - 100) << output;
}

TEST_F(KolmctlWatch, asks_each_feature_once_a_look) {
    const std::string output = Output(
        {L"--simulate", L"--tsv", L"trace", L"watch", L"gain", L"shutter", L"--interval", L"60000", L"--for", L"0.1"});

    const std::vector<std::string> lines = Lines(output);
    ASSERT_EQ(lines.size(), 7U) << output;
    EXPECT_THAT(lines[4], StartsWith("number\t"));
    EXPECT_THAT(lines[5], StartsWith("1\tGET\t0\t64\t"));
    EXPECT_THAT(lines[6], StartsWith("2\tGET\t5\t64\t"));
}

TEST_F(KolmctlWatch, asks_the_driver_at_every_look) {
    const std::string output =
        Output({L"--simulate", L"--tsv", L"trace", L"watch", L"gain", L"--interval", L"1", L"--for", L"0.5"});

    // Nothing changes, so there is one line about the gain; the rest are requests.
    const std::vector<std::string> lines = Lines(output);
    ASSERT_GT(lines.size(), 6U) << output;
    EXPECT_THAT(lines[1], EndsWith("\tgain\t64\tmanual"));
    for (std::size_t i = 4; i < lines.size(); ++i) {
        EXPECT_THAT(lines[i], StartsWith(std::to_string(i - 3) + "\tGET\t0\t64\t"));
    }
}

TEST_F(KolmctlWatch, sees_that_a_mode_ends_by_itself) {
    ASSERT_EQ(Kolmctl({L"--simulate", L"set", L"gain", L"--mode", L"one-push"}).exitCode, kSuccess);

    const std::string output =
        Output({L"--simulate", L"--tsv", L"watch", L"gain", L"--interval", L"1", L"--count", L"2"});

    // Three looks move the value, the first of which was the one after the setting; the fourth finds the mode changed.
    EXPECT_THAT(WithoutTimes(output, "\t"), ElementsAre("\tfeature\tvalue\tmode", "\tgain\t70\tone-push",
                                                        "\tgain\t73\tone-push", "\tgain\t73\tmanual"));
}

TEST_F(KolmctlWatch, without_features_watches_all_that_the_camera_has) {
    const std::string output = Output({L"--simulate=mono", L"--tsv", L"watch", L"--for", L"0.001"});

    EXPECT_EQ(Lines(output).size(), 1U + 22U) << output;
    EXPECT_THAT(output, AllOf(HasSubstr("\tbrightness\t16\tmanual\n"), HasSubstr("\tiso-channel\t5\tauto\n")));
    EXPECT_THAT(output, Not(HasSubstr("\thue\t")));
}

TEST_F(KolmctlWatch, watches_a_feature_that_is_named_twice_once) {
    const std::string output =
        Output({L"--simulate", L"--tsv", L"watch", L"gain", L"265", L"GAIN", L"--for", L"0.001"});

    EXPECT_EQ(Lines(output).size(), 2U) << output;
}

TEST_F(KolmctlWatch, ends_after_its_time_though_the_interval_is_longer) {
    const auto start = std::chrono::steady_clock::now();

    const std::string output =
        Output({L"--simulate", L"--tsv", L"watch", L"gain", L"--interval", L"3600000", L"--for", L"1.5"});

    EXPECT_EQ(Lines(output).size(), 2U) << output;
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(1500));
}

TEST_F(KolmctlWatch, prints_each_line_at_once_and_sees_what_others_set) {
    CPipedProcess watch(Program(),
                        {L"--simulate", L"--tsv", L"watch", L"gain", L"--interval", L"20", L"--count", L"2"});

    ASSERT_TRUE(watch.HasPrinted("\tgain\t64\tmanual\n"));
    ASSERT_TRUE(OpenCamera()->SetFeatureWord(kGain, kValue, 100));
    ASSERT_TRUE(watch.HasPrinted("\tgain\t100\tmanual\n"));
    EXPECT_EQ(Kolmctl({L"--simulate", L"set", L"gain", L"200"}).exitCode, kSuccess);

    const ProcessOutcome outcome = watch.Wait();
    EXPECT_EQ(outcome.exitCode, kSuccess) << outcome.err;
    EXPECT_THAT(outcome.out, EndsWith("\tgain\t200\tmanual\n"));
}

TEST_F(KolmctlWatch, ends_when_nobody_reads_its_output_any_more) {
    SetAuto();
    CPipedProcess watch(Program(), {L"--simulate", L"watch", L"gain", L"--interval", L"1"});
    ASSERT_TRUE(watch.HasPrinted("gain"));

    watch.CloseOutput();

    const ProcessOutcome outcome = watch.Wait();
    EXPECT_EQ(outcome.exitCode, kNoOutput);
    EXPECT_EQ(outcome.err, "kolmctl: cannot write to the standard output\n");
}

TEST_F(KolmctlWatch, ends_when_the_camera_refuses) {
    ASSERT_TRUE(OpenCamera()->SetFeaturePresent(kShutter, false));

    const ProcessOutcome outcome = Kolmctl({L"--simulate", L"--tsv", L"watch", L"gain", L"shutter", L"--for", L"60"});

    EXPECT_EQ(outcome.exitCode, kRefused);
    EXPECT_THAT(WithoutTimes(outcome.out, "\t"), ElementsAre("\tfeature\tvalue\tmode", "\tgain\t64\tmanual"));
    EXPECT_THAT(outcome.err, StartsWith("kolmctl: cannot read shutter: 0x80070490 ERROR_NOT_FOUND ("));
}

TEST_F(KolmctlWatch, refuses_wrong_usage_before_it_asks_the_camera) {
    SetAuto();
    struct Case {
        std::vector<std::wstring> options;
        const char* message;
    };
    const Case cases[] = {
        {{L"focus"}, "unknown feature \"focus\""},
        {{L"--interval", L"0"}, "the interval must be 1 to 3600000 milliseconds"},
        {{L"--interval", L"3600001"}, "the interval must be 1 to 3600000 milliseconds"},
        {{L"--interval", L"fast"}, "not a number of milliseconds: \"fast\""},
        {{L"--interval", L"-1"}, "not a number of milliseconds: \"-1\""},
        {{L"--count", L"0"}, "the count must be 1 or more"},
        {{L"--count", L"1.5"}, "not a count: \"1.5\""},
        {{L"--count", L"4294967296"}, "not a count: \"4294967296\""},
        {{L"--for", L"0"}, "not a time: \"0\""},
        {{L"--for", L"-1"}, "not a time: \"-1\""},
        {{L"--for", L"nan"}, "not a time: \"nan\""},
        {{L"--for", L"1e3"}, "not a time: \"1e3\""},
        {{L"--for", L"1000001"}, "not a time: \"1000001\""},
        {{L"--for"}, "--for: 1 required"},
    };
    for (const Case& row : cases) {
        std::vector<std::wstring> arguments = {L"--simulate", L"watch", L"gain"};
        arguments.insert(arguments.end(), row.options.begin(), row.options.end());

        EXPECT_THAT(Kolmctl(arguments), Fails(kUsage, row.message));
    }
    EXPECT_EQ(Word(kGain, kValue), 64U) << "a read would have moved it";
}

// -- Ctrl+C

BOOL WINAPI IgnoreControl(DWORD) {
    return TRUE;
}

/// A console that this process shares with the programs that it starts; Ctrl+C in it leaves this process alone.
class CConsole {
public:
    CConsole() {
        ::FreeConsole();  // under Wine there may be one that does not pass keys on
        EXPECT_TRUE(::AllocConsole()) << ::GetLastError();
        EXPECT_TRUE(::SetConsoleCtrlHandler(IgnoreControl, TRUE));
    }
    ~CConsole() {
        ::FreeConsole();
        ::SetConsoleCtrlHandler(IgnoreControl, FALSE);
    }
    CConsole(const CConsole&) = delete;
    CConsole& operator=(const CConsole&) = delete;

    static void PressCtrlC() { EXPECT_TRUE(::GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0)) << ::GetLastError(); }
};

TEST_F(KolmctlWatch, ends_with_ctrl_c_as_a_success) {
    const CConsole console;
    CPipedProcess watch(Program(), {L"--simulate", L"--tsv", L"watch", L"gain", L"--interval", L"3600000"});
    ASSERT_TRUE(watch.HasPrinted("\tgain\t64\tmanual\n"));

    CConsole::PressCtrlC();

    const ProcessOutcome outcome = watch.Wait();
    EXPECT_EQ(outcome.exitCode, kSuccess);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(Lines(outcome.out).size(), 2U) << outcome.out;
}

TEST_F(KolmctlWatch, shows_its_requests_when_ctrl_c_ends_it_in_a_trace) {
    const CConsole console;
    CPipedProcess watch(Program(), {L"--simulate", L"trace", L"watch", L"gain", L"--interval", L"3600000"});
    ASSERT_TRUE(watch.HasPrinted("gain"));

    CConsole::PressCtrlC();

    const ProcessOutcome outcome = watch.Wait();
    EXPECT_EQ(outcome.exitCode, kSuccess) << outcome.err;
    EXPECT_THAT(outcome.out, HasSubstr("\nDriver requests: 1 "));
}

}  // namespace
}  // namespace kolmfluxor::test
