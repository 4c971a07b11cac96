/// @file  Faults of the simulated camera as text.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <tuple>

#include "ksproxy/fault_text.h"

namespace kolmsim {

// As the tests want to see them; found by their type's name space.
static bool operator==(const SimFault& a, const SimFault& b) {
    return a.nth == b.nth && a.id == b.id && a.flags == b.flags && a.action == b.action && a.code == b.code &&
           a.offset == b.offset && a.word == b.word && a.milliseconds == b.milliseconds;
}

static void PrintTo(const SimFault& fault, std::ostream* stream) {
    *stream << "nth " << fault.nth << " id " << fault.id << " flags " << fault.flags << " action "
            << static_cast<std::uint32_t>(fault.action) << std::hex << " code " << fault.code << " offset "
            << fault.offset << " word " << fault.word << " ms " << fault.milliseconds;
}

}  // namespace kolmsim

namespace kolmfluxor::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StrEq;

using kolmsim::kSimAnyId;
using kolmsim::ParseFaults;
using kolmsim::SimFault;
using kolmsim::SimFaultAction;

constexpr auto kInvalid = static_cast<HRESULT>(0x80070057);

struct TextCase {
    const char* text;
    SimFault fault;
};

TEST(SimulatorFaultText, each_word_has_its_meaning) {
    // clang-format off
    const TextCase cases[] = {
        {"get 5 80070057",              {.nth = 0, .id = 5, .flags = 1, .code = kInvalid}},
        {"set 0x10 fail 0x80070057",    {.nth = 0, .id = 16, .flags = 2, .code = kInvalid}},
        {"any any #3 80070057",         {.nth = 3, .code = kInvalid}},
        {" \tany  7\t#1 80004005 ",     {.nth = 1, .id = 7, .code = E_FAIL}},
        {"get any short 28",            {.nth = 0, .flags = 1, .action = SimFaultAction::shortAnswer, .offset = 28}},
        {"get any short 0x1C 1",        {.nth = 0, .flags = 1, .action = SimFaultAction::shortAnswer, .code = S_FALSE, .offset = 28}},
        {"get 4 patch 24 BEEF",         {.nth = 0, .id = 4, .flags = 1, .action = SimFaultAction::patchAnswer, .offset = 24, .word = 0xBEEF}},
        {"get 4 #2 patch 24 0xBEEF 1",  {.nth = 2, .id = 4, .flags = 1, .action = SimFaultAction::patchAnswer, .code = S_FALSE, .offset = 24, .word = 0xBEEF}},
        {"set 5 answer",                {.nth = 0, .id = 5, .flags = 2, .action = SimFaultAction::answer}},
        {"set 5 answer 1",              {.nth = 0, .id = 5, .flags = 2, .action = SimFaultAction::answer, .code = S_FALSE}},
        {"any 11 #1000000 delay 250",   {.nth = 1'000'000, .id = 11, .action = SimFaultAction::delay, .milliseconds = 250}},
        {"any any #12 unplug",          {.nth = 12, .action = SimFaultAction::unplug}},
        {"any 4294967295 unplug",       {.nth = 0, .id = kSimAnyId, .action = SimFaultAction::unplug}},
    };
    // clang-format on
    for (const TextCase& each : cases) {
        EXPECT_THAT(ParseFaults(each.text), ElementsAre(each.fault)) << each.text;
    }
}

TEST(SimulatorFaultText, faults_come_in_the_order_of_the_text) {
    EXPECT_THAT(ParseFaults(";get 1 80004005;; set 2 unplug ; "),
                ElementsAre(SimFault{.nth = 0, .id = 1, .flags = 1, .code = E_FAIL},
                            SimFault{.nth = 0, .id = 2, .flags = 2, .action = SimFaultAction::unplug}));
}

TEST(SimulatorFaultText, no_words_are_no_faults) {
    EXPECT_THAT(ParseFaults(""), IsEmpty());
    EXPECT_THAT(ParseFaults(" ; \t;"), IsEmpty());
}

struct BadCase {
    const char* text;
    const char* complaint;
};

TEST(SimulatorFaultText, tells_what_is_wrong_and_where) {
    const BadCase cases[] = {
        {"read 5 80004005", "fault 1: \"read\" is none of get, set and any"},
        {"GET 5 80004005", "fault 1: \"GET\" is none of get, set and any"},
        {"get", "fault 1: property number is missing"},
        {"get gain 80004005", "fault 1: \"gain\" is no property number"},
        {"get -1 80004005", "fault 1: \"-1\" is no property number"},
        {"get 4294967296 80004005", "fault 1: \"4294967296\" is no property number"},
        {"get 5", "fault 1: action is missing"},
        {"get 5 #", "fault 1: \"\" is no number of a request"},
        {"get 5 #0 80004005", "fault 1: requests count from #1"},
        {"get 5 #1000001 80004005", "fault 1: \"1000001\" is no number of a request"},
        {"get 5 #x 80004005", "fault 1: \"x\" is no number of a request"},
        {"get 5 explode", "fault 1: \"explode\" is no code of a failure"},
        {"get 5 fail", "fault 1: code of a failure is missing"},
        {"get 5 fail 1", "fault 1: \"1\" is no code of a failure"},
        {"get 5 0x", "fault 1: \"0x\" is no code of a failure"},
        {"get 5 180004005", "fault 1: \"180004005\" is no code of a failure"},
        {"get 5 answer 80004005", "fault 1: \"80004005\" is no code of a success"},
        {"get 5 short", "fault 1: number of bytes is missing"},
        {"get 5 patch 24", "fault 1: word is missing"},
        {"get 5 delay 600001", "fault 1: \"600001\" is no delay in milliseconds"},
        {"get 5 unplug now", "fault 1: \"now\" is too much"},
        {"get 5 80004005; set 6 80004005 7", "fault 2: \"7\" is too much"},
    };
    for (const BadCase& each : cases) {
        try {
            std::ignore = ParseFaults(each.text);
            ADD_FAILURE() << each.text;
        } catch (const kolmsim::FaultTextError& error) {
            EXPECT_THAT(error.what(), StrEq(each.complaint)) << each.text;
        }
    }
}

}  // namespace
}  // namespace kolmfluxor::test
