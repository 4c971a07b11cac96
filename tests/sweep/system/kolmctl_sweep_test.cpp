/// @file  Every subcommand of kolmctl, with a fault at every driver request that it causes.

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <cstdio>
#include <iostream>
#include <ostream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>

#include "command.h"
#include "hresult_text.h"
#include "program.h"
#include "support/box_answerer.h"
#include "support/fault_sweep.h"
#include "support/module.h"
#include "support/own_desktop.h"
#include "support/request_faults.h"
#include "support/resources.h"
#include "system/support_kolmctl_help.h"
#include "text.h"

namespace kolmfluxor::test {
namespace {

using kolmctl::CommandRow;

// By these a driver says that the camera does not have what was asked for.
constexpr HRESULT kAbsence[] = {static_cast<HRESULT>(0x80070490), static_cast<HRESULT>(0x800701E7)};
// These go on with what the camera answers; all others end with the first refusal.
constexpr std::string_view kTolerant[] = {"info",       "features", "formats", "format", "format_set", "lut_load",
                                          "lut_upload", "reg_dump", "load",    "still",  "pages"};
constexpr int kManyRequests = 40;
constexpr std::string_view kDear[] = {"pages"};  // a run takes a tenth of a second
constexpr int kSlack = 10;                       // what the system keeps of windows seen for the first time

/// What is swept in place of an example that takes a second.
struct OtherLine {
    std::string_view example;
    const char* swept;
};
constexpr OtherLine kOtherLines[] = {
    {"kolmctl --simulate watch gain shutter --for 1", "kolmctl --simulate watch gain shutter --for 0.001"},
};

/// The command line that stands for a row of the table.
std::string LineOf(const CommandRow& row) {
    const auto* const other =
        std::ranges::find_if(kOtherLines, [&](const OtherLine& line) { return row.example == line.example; });
    return other != std::end(kOtherLines) ? other->swept : row.example;
}

struct SweptCommand {
    const CommandRow* row;

    [[nodiscard]] std::string Name() const {
        return (row->group != nullptr ? std::string(row->group) + '_' : "") + row->name;
    }
    friend void PrintTo(const SweptCommand& command, std::ostream* out) { *out << command.Name(); }
};

/// All of the table, so that a new one is swept without a word here.
std::vector<SweptCommand> SweptCommands() {
    std::vector<SweptCommand> commands;
    for (const CommandRow& row : kolmctl::CommandTable()) {
        if (row.make != nullptr) commands.push_back({&row});
    }
    return commands;
}

/// Takes what goes to a stream of the standard library.
class CCapturedStream {
public:
    explicit CCapturedStream(std::ostream& stream) : m_stream(stream), m_before(stream.rdbuf(m_text.rdbuf())) {}
    ~CCapturedStream() { m_stream.rdbuf(m_before); }
    CCapturedStream(const CCapturedStream&) = delete;
    CCapturedStream& operator=(const CCapturedStream&) = delete;

    [[nodiscard]] std::string Text() const { return m_text.str(); }

private:
    std::ostringstream m_text;
    std::ostream& m_stream;
    std::streambuf* m_before;
};

/// What could not be done stands before the code.
bool NamesWhatFailed(const std::string& err) {
    constexpr std::string_view kStart = "kolmctl: ";
    const std::size_t at = err.find(kStart);
    if (at == std::string::npos) return false;
    const std::string message = err.substr(at + kStart.size());
    return std::isalpha(static_cast<unsigned char>(message[0])) != 0 && message.find(' ') != std::string::npos;
}

/// Whether a code is told. "load" has words of its own for what a camera lacks.
bool Tells(const std::string& text, HRESULT code) {
    if (text.find(kolmctl::HResultText(code)) != std::string::npos) return true;
    const bool isLacked = text.find("the camera does not have it") != std::string::npos ||
                          text.find("the camera has none") != std::string::npos;
    return isLacked && std::ranges::count(kAbsence, code) != 0;
}

/// How many: some tell the time, or a value that the camera is just changing.
std::ptrdiff_t LinesOf(const std::string& text) {
    return std::ranges::count(text, '\n');
}

class KolmctlSweep : public KolmctlTest, public ::testing::WithParamInterface<SweptCommand> {
protected:
    static void SetUpTestSuite() {
        COwnDesktop::Enter();  // before COM, which makes a window
        KolmctlTest::SetUpTestSuite();
    }
    void SetUp() override {
        ASSERT_NO_FATAL_FAILURE(KolmctlTest::SetUp());
        // Each run has a camera of its own in the factory's state.
        ASSERT_TRUE(::SetEnvironmentVariableW(L"KOLMSIM_STATE", L"none"));
        ASSERT_EQ(Run("kolmctl --simulate save camera.json").exitCode, kSuccess);  // for "load"
    }

    /// The program in this process.
    [[nodiscard]] static ProcessOutcome Run(const std::string& line) {
        HelpPage page;
        page.example = line;
        std::vector<std::string> words;
        for (const std::wstring& word : page.ExampleArguments())
            words.push_back(kolmctl::ToUtf8(word));
        const CCapturedStream out(std::cout);
        const CCapturedStream err(std::cerr);
        const kolmctl::ExitCode code = kolmctl::RunProgram(words);
        return {static_cast<DWORD>(code), out.Text(), err.Text()};
    }

    /// What a sound run leaves behind: handles that the system keeps of each list of devices and each graph, and
    /// pictures that it keeps of a dialog's template.
    [[nodiscard]] static Resources KeptOf(const std::string& line) {
        constexpr int kRuns = 4;
        const Resources before = CountResources();
        for (int i = 0; i < kRuns; ++i)
            EXPECT_EQ(Run(line).exitCode, kSuccess);
        const Resources after = CountResources();
        return {.handles = (after.handles - before.handles + kRuns - 1) / kRuns,
                .gdiObjects = (after.gdiObjects - before.gdiObjects + kRuns - 1) / kRuns};
    }

    static void ExpectDocumented(const SweptFault& fault, const ProcessOutcome& sound, const ProcessOutcome& struck);

    CRequestFaults m_requests;
    CBoxAnswerer m_answerer;
    const CExampleFolder m_folder;
};

void KolmctlSweep::ExpectDocumented(const SweptFault& fault, const ProcessOutcome& sound,
                                    const ProcessOutcome& struck) {
    if (fault.kind == FaultKind::late) {
        EXPECT_EQ(struck.exitCode, sound.exitCode);
        EXPECT_EQ(LinesOf(struck.out), LinesOf(sound.out));
        EXPECT_EQ(struck.err, sound.err);
        return;
    }
    const bool isTolerant = std::ranges::count(kTolerant, GetParam().Name()) != 0;
    const bool isTold = fault.kind == FaultKind::fail || fault.kind == FaultKind::unplug;
    EXPECT_TRUE(struck.exitCode == kSuccess || struck.exitCode == kRefused || struck.exitCode == kUsage)
        << "no camera, and no output, is not what a request's failure means";
    if (struck.exitCode == kSuccess) {
        // What is left out is told, unless the code means that the camera lacks it.
        const bool isRefused = isTold || fault.kind == FaultKind::qualified;
        const bool isPlain = !isRefused || std::ranges::count(kAbsence, fault.code) != 0;
        EXPECT_TRUE(isTolerant || !isTold || (isPlain && GetParam().Name() == "save"))
            << "was refused and says nothing of it";
        EXPECT_TRUE(isPlain || struck.out == sound.out || Tells(struck.out + struck.err, fault.code))
            << ::testing::PrintToString(struck);
        return;
    }
    EXPECT_TRUE(NamesWhatFailed(struck.err));
    if (isTold) {
        EXPECT_EQ(struck.exitCode, kRefused);
        EXPECT_TRUE(Tells(struck.out + struck.err, fault.code));
    }
}

TEST_P(KolmctlSweep, every_fault_of_every_request_ends_in_words_and_leaves_nothing) {
    const std::string name = GetParam().Name();
    const std::string line = LineOf(*GetParam().row);
    CHangGuard guard;
    guard.Step(name);
    const ProcessOutcome first = Run(line);
    ASSERT_EQ(first.exitCode, kSuccess) << ::testing::PrintToString(first);
    m_requests.Start();
    const ProcessOutcome sound = Run(line);
    const int requests = m_requests.Count();
    const Resources kept = KeptOf(line);
    const Resources before = CountResources();
    const bool isDear = requests >= kManyRequests || std::ranges::count(kDear, name) != 0;
    const auto faults = SweptFaults();
    int tried = 0;
    for (int n = 1; n <= requests; ++n) {
        const auto number = static_cast<std::size_t>(n);
        // The first request meets each fault, a later one two of them in turn, or one where that is dear.
        const std::size_t times = n == 1 ? faults.size() : isDear ? 1 : 2;
        for (std::size_t i = 0; i < times; ++i) {
            const SweptFault& fault = faults[(number * times + i) % faults.size()];
            const std::string step = "request " + std::to_string(n) + ' ' + fault.name;
            SCOPED_TRACE(step);
            guard.Step(name + ": " + step);
            m_requests.Start(&fault, n);

            const ProcessOutcome struck = Run(line);

            EXPECT_GE(m_requests.Count(), n) << "was not disturbed";
            ExpectDocumented(fault, sound, struck);
            EXPECT_EQ(CModule::Get().CanUnloadNow(), S_OK) << "objects are left behind";
            ++tried;
            if (HasFailure()) FAIL() << ::testing::PrintToString(struck);
        }
    }
    m_requests.Start();
    const ProcessOutcome again = Run(line);
    EXPECT_EQ(again.exitCode, kSuccess);
    EXPECT_EQ(LinesOf(again.out), LinesOf(sound.out));
    EXPECT_EQ(m_requests.Count(), requests);
    std::printf("%d requests of %s\n", requests, name.c_str());
    if (requests != 0) ReportTried(("faults tried at " + name).c_str(), tried);
    Resources allowed = before;
    allowed.handles += kept.handles * (tried + 1);
    allowed.gdiObjects += kept.gdiObjects * (tried + 1);
    ExpectFlat(allowed, kSlack);
}

INSTANTIATE_TEST_SUITE_P(Commands, KolmctlSweep, ::testing::ValuesIn(SweptCommands()),
                         [](const auto& command) { return command.param.Name(); });

}  // namespace
}  // namespace kolmfluxor::test
