/// @file  Page "LUT": what "To cam" sends of a loaded file.

#include <memory>
#include <string>
#include <vector>

#include "module/scripted_registers.h"
#include "pages/lut_page_fixture.h"

namespace kolmfluxor::test {
namespace {

/// A page on a driver that takes everything and reads registers from a list, with a small file loaded.
class LutUploadPage : public LutPage {
protected:
    std::unique_ptr<CPageHost> OpenWith(ULONG sizeBytes, ULONG bits, const std::string& content) {
        Tell(sizeBytes, bits);
        auto page = Open();
        EXPECT_EQ(Load(*page, content), Messages{});
        return page;
    }
    /// From now on registers read as one after another here, and every write is taken.
    void Script(std::initializer_list<ULONG> reads) {
        ScriptReads(Camera(), reads);
        Object().Forget();
    }
    static ULONG Info(ULONG bits, ULONG count, ULONG sizeBytes) { return bits << 24 | count << 16 | sizeBytes; }
};

TEST_F(LutUploadPage, sends_8_bit_values_as_they_are_and_no_remainder) {
    const auto page = OpenWith(7, 8, "In,A,B\n0,0,17\n1,0,34\n2,0,51\n3,0,68\n4,0,85\n5,0,102\n6,0,119\n");
    page->Pick(kLoaded, "B");
    page->Pick(kNumber, "3");
    Script({64, 5, Info(8, 4, 64), 0, kEnableWrite});

    page->Click(kToCamera);

    const ULONG word = 0x44332211;
    EXPECT_EQ(Object().Sent(), (Wire{Read(kGpInfo), Read(kLutCtrl), Read(kLutInfo), Read(kLutMemCtrl),
                                     Write(kLutMemCtrl, kEnableWrite | 0x20000), Block(&word, 1), Read(kLutMemCtrl),
                                     Write(kLutMemCtrl, 0x20000), Write(kLutCtrl, 5)}));
}

TEST_F(LutUploadPage, sends_16_bit_values_with_their_bytes_swapped) {
    const auto page = OpenWith(6, 12, "In,A\n0,4660\n1,2748\n2,1\n");
    Script({64, 5, Info(12, 4, 64), 0, kEnableWrite});

    page->Click(kToCamera);

    const ULONG word = 0x0ABC1234;
    const Wire sent = Object().Sent();
    ASSERT_EQ(sent.size(), 9u);
    EXPECT_EQ(sent[5], Block(&word, 1, true)) << "three values: the last one fills no word";
}

TEST_F(LutUploadPage, a_LUT_below_one_word_sends_no_block) {
    const auto page = OpenWith(3, 8, "In,A\n0,1\n1,2\n2,3\n");
    Script({64, 5, Info(8, 4, 64), 0});

    page->Click(kToCamera);

    EXPECT_EQ(Object().Sent(), (Wire{Read(kGpInfo), Read(kLutCtrl), Read(kLutInfo), Read(kLutMemCtrl),
                                     Write(kLutMemCtrl, kEnableWrite), Write(kLutMemCtrl, 0), Write(kLutCtrl, 5)}));
}

TEST_F(LutUploadPage, a_refused_upload_is_not_reported) {
    const auto page = OpenWith(4, 8, "In,A\n0,1\n1,2\n2,3\n3,4\n");
    Object().Forget();
    Object().FailNth(0, E_FAIL);
    CModalUser user;
    page->Click(kToCamera);
    EXPECT_EQ(user.Messages(), Messages{});
    EXPECT_EQ(Object().Sent(), Wire{Read(kGpInfo)});
}

TEST_F(LutUploadPage, a_typed_text_that_is_no_entry_sends_nothing) {
    const auto page = OpenWith(4, 8, "In,A,B\n0,1,1\n1,2,2\n2,3,3\n3,4,4\n");
    Object().Forget();
    ::SendMessageA(page->Control(kLoaded), CB_SETCURSEL, static_cast<WPARAM>(-1), 0);
    ::SetWindowTextA(page->Control(kLoaded), "typed");
    page->Click(kToCamera);
    EXPECT_EQ(Object().Sent(), Wire{});
}

TEST_F(LutUploadPage, fills_the_cameras_memory) {
    const auto value = [](std::size_t row, std::size_t lut) {
        return static_cast<unsigned>(lut == 0 ? row : 4095 - row);
    };
    const auto page = Open();
    ASSERT_EQ(Load(*page, LutText({"up", "down"}, 4096, value)), Messages{});
    page->Pick(kLoaded, "down");
    page->Pick(kNumber, "2");

    page->Click(kToCamera);

    std::vector<std::uint8_t> memory(8192);
    ASSERT_EQ(Camera().ReadLutMemory(1, memory.data(), memory.size()), memory.size());
    for (std::size_t i = 0; i < 4096; ++i)
        ASSERT_EQ(memory[2 * i] << 8 | memory[2 * i + 1], static_cast<int>(4095 - i)) << i;
}

}  // namespace
}  // namespace kolmfluxor::test
