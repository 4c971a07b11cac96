/// @file  kolmctl trace: exactly the requests that reach the driver.

#include "system/support_kolmctl.h"

namespace kolmfluxor::test {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class KolmctlTrace : public KolmctlTest {};

// Words from offset 24 on: value, mode, modes, minimum; maximum, AutoOn, one word, OnePushOn; two words.
constexpr char kReadGain[] =
    "  1  GET  property 0  64 bytes  0x00000000 S_OK\n"
    "      24  00000000 00000000 00000000 00000000  ->  00000040 00000002 0000001a 00000000\n"
    "      40  00000000 00000000 00000000 00000000  ->  000000ff 00000000 e0010100 00000000\n"
    "      56  00000000 00000000                    ->  e0020100 e0030100\n";

TEST_F(KolmctlTrace, get_is_one_request) {
    EXPECT_THAT(Kolmctl({L"--simulate", L"trace", L"get", L"gain"}),
                Prints(std::string("FEATURE   ID  VALUE  MODE\n"
                                   "gain     265     64  manual\n"
                                   "\n"
                                   "Driver requests: 1 (words at offset: sent -> answered)\n") +
                       kReadGain));
}

TEST_F(KolmctlTrace, set_reads_writes_the_record_back_and_reads_again) {
    EXPECT_THAT(Kolmctl({L"--simulate", L"trace", L"set", L"gain", L"100"}),
                Prints(std::string("FEATURE   ID  VALUE  MODE\n"
                                   "gain     265    100  manual\n"
                                   "\n"
                                   "Driver requests: 3 (words at offset: sent -> answered)\n") +
                       kReadGain +
                       "  2  SET  property 0  64 bytes  0x00000000 S_OK\n"
                       "      24  00000064 00000002 0000001a 00000000  ->  00000064 00000002 0000001a 00000000\n"
                       "      40  000000ff 00000000 e0010100 00000000  ->  000000ff 00000000 e0010100 00000000\n"
                       "      56  e0020100 e0030100                    ->  e0020100 e0030100\n"
                       "  3  GET  property 0  64 bytes  0x00000000 S_OK\n"
                       "      24  00000000 00000000 00000000 00000000  ->  00000064 00000002 0000001a 00000000\n"
                       "      40  00000000 00000000 00000000 00000000  ->  000000ff 00000000 e0010100 00000000\n"
                       "      56  00000000 00000000                    ->  e0020100 e0030100\n"));
}

TEST_F(KolmctlTrace, set_of_value_and_mode_sends_a_fresh_record) {
    const ProcessOutcome outcome = Kolmctl({L"--simulate", L"trace", L"set", L"gain", L"100", L"--mode", L"one-push"});

    EXPECT_EQ(outcome.exitCode, kSuccess) << outcome.err;
    EXPECT_THAT(outcome.out, HasSubstr("Driver requests: 3 "));
    EXPECT_THAT(outcome.out, HasSubstr("  2  SET  property 0  64 bytes  0x00000000 S_OK\n"
                                       "      24  00000064 00000010 00000000 00000000  ->  "));
}

TEST_F(KolmctlTrace, shows_the_requests_of_a_command_that_is_refused) {
    const ProcessOutcome outcome = Kolmctl({L"--simulate", L"trace", L"set", L"gain", L"256"});

    EXPECT_EQ(outcome.exitCode, kRefused);
    EXPECT_EQ(outcome.out, std::string("\nDriver requests: 1 (words at offset: sent -> answered)\n") + kReadGain);
    EXPECT_THAT(outcome.err, HasSubstr("gain takes values from 0 to 255"));
    EXPECT_EQ(Word(kGain, kValue), 64U);
}

TEST_F(KolmctlTrace, shows_the_result_of_a_request_that_fails) {
    const ProcessOutcome outcome = Kolmctl({L"--simulate=mono", L"trace", L"get", L"hue"});

    EXPECT_EQ(outcome.exitCode, kRefused);
    EXPECT_THAT(outcome.out, HasSubstr("  1  GET  property 22  64 bytes  0x80070490 ERROR_NOT_FOUND"));
}

TEST_F(KolmctlTrace, prints_one_json_document) {
    EXPECT_THAT(Kolmctl({L"--simulate", L"--json", L"trace", L"get", L"gain"}),
                Prints("{\n"
                       "  \"features\": [\n"
                       "    {\n"
                       "      \"feature\": \"gain\",\n"
                       "      \"id\": 265,\n"
                       "      \"value\": 64,\n"
                       "      \"mode\": \"manual\"\n"
                       "    }\n"
                       "  ],\n"
                       "  \"requests\": [\n"
                       "    {\n"
                       "      \"number\": 1,\n"
                       "      \"direction\": \"GET\",\n"
                       "      \"property\": 0,\n"
                       "      \"sizeBytes\": 64,\n"
                       "      \"result\": \"0x00000000\",\n"
                       "      \"sent\": \"00000000 00000000 00000000 00000000 00000000 00000000 00000000 00000000 "
                       "00000000 00000000\",\n"
                       "      \"answered\": \"00000040 00000002 0000001a 00000000 000000ff 00000000 e0010100 00000000 "
                       "e0020100 e0030100\",\n"
                       "      \"objection\": null,\n"
                       "      \"resultText\": \"0x00000000 S_OK\"\n"
                       "    }\n"
                       "  ]\n"
                       "}\n"));
}

TEST_F(KolmctlTrace, prints_two_tables_of_tab_separated_values) {
    const ProcessOutcome outcome = Kolmctl({L"--simulate", L"--tsv", L"trace", L"get", L"gain"});

    EXPECT_EQ(outcome.exitCode, kSuccess) << outcome.err;
    EXPECT_THAT(outcome.out, StartsWith("feature\tid\tvalue\tmode\n"
                                        "gain\t265\t64\tmanual\n"
                                        "\n"
                                        "number\tdirection\tproperty\tsizeBytes\tresult\tsent\tanswered\tobjection\t"
                                        "resultText\n"
                                        "1\tGET\t0\t64\t0x00000000\t00000000 "));
    EXPECT_THAT(outcome.out, EndsWith("\t\t0x00000000 S_OK\n"));
}

TEST_F(KolmctlTrace, tells_programs_a_failure_in_words_too) {
    const ProcessOutcome outcome = Kolmctl({L"--simulate=mono", L"--tsv", L"trace", L"get", L"hue"});

    EXPECT_EQ(outcome.exitCode, kRefused);
    EXPECT_THAT(outcome.out,
                EndsWith("\t0x80070490 ERROR_NOT_FOUND (this camera or its driver does not have the property)\n"));
}

TEST_F(KolmctlTrace, works_on_the_simulated_camera_however_it_was_chosen) {
    const ProcessOutcome outcome = Kolmctl({L"--device", L"mono", L"trace", L"get", L"gain"});

    EXPECT_EQ(outcome.exitCode, kSuccess) << outcome.err;
    EXPECT_THAT(outcome.out, HasSubstr("Driver requests: 1 "));
}

TEST_F(KolmctlTrace, refuses_wrong_usage) {
    EXPECT_THAT(Kolmctl({L"--simulate", L"trace"}), Fails(kUsage, "subcommand"));
    EXPECT_THAT(Kolmctl({L"--simulate", L"trace", L"list"}), Fails(kUsage, "unknown subcommand \"list\""));
    EXPECT_THAT(Kolmctl({L"--simulate", L"trace", L"get"}), Fails(kUsage, "FEATURE is required"));
}

TEST_F(KolmctlTrace, needs_a_camera) {
    Module().Unregister();

    EXPECT_THAT(Kolmctl({L"trace", L"get", L"gain"}), Fails(kNoDevice, "no capture device offers the property set"));
}

}  // namespace
}  // namespace kolmfluxor::test
