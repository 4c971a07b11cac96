/// @file  kolmctl info.

#include "system/support_kolmctl.h"

#include <algorithm>

namespace kolmfluxor::test {
namespace {

using ::testing::HasSubstr;

class KolmctlInfo : public KolmctlTest {};

TEST_F(KolmctlInfo, shows_camera_and_bus) {
    EXPECT_THAT(Kolmctl({L"--simulate", L"info"}), Prints("vendor                           KolmFluxor\n"
                                                          "model                            Simulated camera (color)\n"
                                                          "serial number                    10002\n"
                                                          "driver                           Simulated driver 1.0\n"
                                                          "version 1                        03.12\n"
                                                          "version 2                        02.04\n"
                                                          "color                            yes\n"
                                                          "microcontroller version          03.12.00\n"
                                                          "FPGA version                     02.04.00\n"
                                                          "bus: bytes per packet used       0\n"
                                                          "bus: bytes per packet free       4096\n"
                                                          "bus: channels in use, high word  0x00000001\n"
                                                          "bus: channels in use, low word   0x00000000\n"
                                                          "ISO speed                        S400\n"));
}

TEST_F(KolmctlInfo, tells_which_camera_is_a_color_camera) {
    EXPECT_THAT(Kolmctl({L"--simulate=color", L"--json", L"info"}).out, HasSubstr("    \"color\": true,\n"));
    EXPECT_THAT(Kolmctl({L"--simulate=mono", L"--json", L"info"}).out, HasSubstr("    \"color\": false,\n"));
}

TEST_F(KolmctlInfo, prints_one_row_for_programs) {
    const ProcessOutcome outcome = Kolmctl({L"--simulate", L"--tsv", L"info"});

    EXPECT_EQ(outcome.exitCode, kSuccess) << outcome.err;
    EXPECT_THAT(outcome.out, HasSubstr("vendor\tmodel\tserialNumber\tdriver\tversion1\tversion2\tcolor\t"
                                       "microcontrollerVersion\tfpgaVersion\tbytesPerPacketUsed\tbytesPerPacketFree\t"
                                       "channelsUsedHigh\tchannelsUsedLow\tisoSpeed\n"));
    EXPECT_EQ(std::ranges::count(outcome.out, '\n'), 2);
}

TEST_F(KolmctlInfo, asks_for_the_texts_and_six_figures) {
    const ProcessOutcome outcome = Kolmctl({L"--simulate", L"trace", L"info"});

    EXPECT_EQ(outcome.exitCode, kSuccess) << outcome.err;
    EXPECT_THAT(outcome.out, HasSubstr("  1  GET  property 9  800 bytes  0x00000000 S_OK\n"));
    EXPECT_THAT(outcome.out, HasSubstr("  2  GET  property 38  64 bytes  0x00000000 S_OK\n"));
    // The selector stands at offset 24.
    for (const char* selector : {"00000005", "00000006", "00000029", "0000002a", "0000002b", "0000002c"}) {
        EXPECT_THAT(outcome.out, HasSubstr(std::string("  GET  property 56  64 bytes  0x00000000 S_OK\n      24  ") +
                                           selector + " 00000000 00000000 "));
    }
}

TEST_F(KolmctlInfo, follows_the_bus_speed) {
    ASSERT_EQ(Kolmctl({L"--simulate", L"iso", L"set", L"--speed", L"S100"}).exitCode, kSuccess);

    EXPECT_THAT(Kolmctl({L"--simulate", L"--json", L"info"}).out, HasSubstr("    \"isoSpeed\": \"S100\"\n"));
}

}  // namespace
}  // namespace kolmfluxor::test
