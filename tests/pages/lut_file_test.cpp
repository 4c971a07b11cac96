/// @file  Page "LUT": files that it loads, draws and uploads.

#include <string>
#include <vector>

#include "module/scripted_registers.h"
#include "pages/lut_page_fixture.h"
#include "support/control_window.h"

namespace kolmfluxor::test {
namespace {

using Texts = std::vector<std::string>;
using Messages = std::vector<SeenMessage>;

constexpr const char* kNotEqual = "LUT elements count and found elements are not equal";

void ExpectNothingLoaded(const CPageHost& page) {
    for (const int id : {kToCamera, kLoaded, kPicture})
        EXPECT_FALSE(page.IsEnabled(id)) << id;
}

class LutFile : public LutPage {};

TEST_F(LutFile, loads_the_LUTs_of_a_file) {
    Tell(4, 8);
    const auto page = Open();

    EXPECT_EQ(Load(*page, "In,Zeta,alpha,Beta\n0,0,1,2\n1,3,4,5\n2,6,7,8\n3,9,10,11\n"), Messages{});

    EXPECT_EQ(page->Entries(kLoaded), (Texts{"alpha", "Beta", "Zeta"})) << "sorted";
    EXPECT_EQ(page->Selected(kLoaded), "Zeta") << "LUT 0, wherever it stands";
    for (const int id : {kToCamera, kLoaded, kPicture})
        EXPECT_TRUE(page->IsEnabled(id)) << id;
    EXPECT_EQ(Object().Sent(), Wire{}) << "nothing of this is the camera's affair";
}

TEST_F(LutFile, a_single_LUT_leaves_its_combo_disabled_with_the_one_entry_selected) {
    Tell(2, 8);
    const auto page = Open();
    EXPECT_EQ(Load(*page, "In;Gamma\r\n0;0\r\n1;3\r\n"), Messages{});
    EXPECT_FALSE(page->IsEnabled(kLoaded));
    EXPECT_EQ(page->Selected(kLoaded), "Gamma\r");
    EXPECT_TRUE(page->IsEnabled(kToCamera));
    EXPECT_TRUE(page->IsEnabled(kPicture));
}

TEST_F(LutFile, a_camera_of_4096_bytes_and_8_bits_needs_4096_lines) {
    Tell(4096, 8);
    const auto page = Open();
    const auto value = [](std::size_t row, std::size_t) { return static_cast<unsigned>(row % 256); };
    EXPECT_EQ(Load(*page, LutText({"A", "B"}, 4095, value)), Said(kNotEqual));
    ExpectNothingLoaded(*page);
    EXPECT_EQ(Load(*page, LutText({"A", "B"}, 4097, value)), Said(kNotEqual));
    EXPECT_EQ(Load(*page, LutText({"A", "B"}, 4096, value)), Messages{});
    EXPECT_TRUE(page->IsEnabled(kToCamera));
}

TEST_F(LutFile, with_12_bits_a_value_takes_two_bytes) {
    Tell(4096, 12);
    const auto page = Open();
    const auto value = [](std::size_t row, std::size_t) { return static_cast<unsigned>(row); };
    EXPECT_EQ(Load(*page, LutText({"A"}, 4096, value)), Said(kNotEqual));
    EXPECT_EQ(Load(*page, LutText({"A"}, 2048, value)), Messages{});
}

TEST_F(LutFile, Cancel_shows_error_opening_file) {
    const auto page = Open();
    CModalUser user;
    page->Click(kLoad);
    EXPECT_EQ(user.Messages(), Said("error opening file"));
    EXPECT_EQ(user.FileDialogs(), 1);
    ExpectNothingLoaded(*page);
}

TEST_F(LutFile, what_is_no_table_shows_reading_data_failed) {
    Tell(2, 8);
    const auto page = Open();
    for (const char* content : {"", "In,A\n0,1,2\n1,2\n", "In,A\n\n0,1\n1,2\n", "\"open\n"}) {
        EXPECT_EQ(Load(*page, content), Said("reading data failed")) << content;
        ExpectNothingLoaded(*page);
    }
}

TEST_F(LutFile, tables_that_do_not_fit_show_that_the_counts_are_not_equal) {
    Tell(2, 8);
    const auto page = Open();
    for (const char* content : {"In,A,B\n", "In,A\n0,1\n", "In,A\n0,1\n1,2\n2,3\n", "In\n0\n1\n"}) {
        EXPECT_EQ(Load(*page, content), Said(kNotEqual)) << content;
        ExpectNothingLoaded(*page);
    }
}

TEST_F(LutFile, widths_of_more_than_two_bytes_show_parsing_LUTs_failed) {
    for (const ULONG bits : {17UL, 24UL, 32UL}) {
        Camera().ClearFaults();
        Tell(bits == 17 ? 6 : bits / 8 * 2, bits);
        const auto page = Open();
        EXPECT_EQ(Load(*page, "In,A,B\n0,1,2\n1,2,3\n"), Said("parsing LUTs failed")) << bits;
        ExpectNothingLoaded(*page);
    }
}

TEST_F(LutFile, a_camera_without_bits_loads_no_file) {
    Tell(4096, 0);
    const auto page = Open();
    EXPECT_EQ(Load(*page, "In,A\n0,1\n"), Said("parsing LUTs failed"));
    ExpectNothingLoaded(*page);
}

TEST_F(LutFile, a_camera_without_LUT_memory_loads_no_file) {
    Tell(0, 8);
    const auto page = Open();
    for (const char* content : {"In,A\n", "In,A\n0,1\n", "In\n"})
        EXPECT_EQ(Load(*page, content), Said(kNotEqual)) << content;
    ExpectNothingLoaded(*page);
}

TEST_F(LutFile, absurd_figures_of_a_camera_load_no_file) {
    for (const ULONG bits : {8UL, 16UL, 0xFFFFFFFFUL}) {
        Camera().ClearFaults();
        Tell(0xFFFFFFFF, bits);
        const auto page = Open();
        EXPECT_EQ(Load(*page, "In,A\n0,1\n1,2\n"), Said(kNotEqual)) << bits;
    }
}

TEST_F(LutFile, a_failed_load_leaves_the_page_without_the_earlier_set) {
    Tell(2, 8);
    const auto page = Open();
    ASSERT_EQ(Load(*page, "In,A,B\n0,1,2\n1,2,3\n"), Messages{});
    {
        CModalUser user;
        page->Click(kLoad);
        EXPECT_EQ(user.Messages(), Said("error opening file"));
    }
    ExpectNothingLoaded(*page);
    EXPECT_EQ(page->Entries(kLoaded), (Texts{"A", "B"})) << "the list is emptied when a file is read";

    page->Notify(kToCamera, BN_CLICKED);
    EXPECT_EQ(Object().Sent(), Wire{});
    page->Reactivate();
    EXPECT_EQ(page->Entries(kLoaded), Texts{});
    ExpectNothingLoaded(*page);

    EXPECT_EQ(Load(*page, "In,A,B\n0,1,2,3\n"), Said("reading data failed"));
    EXPECT_EQ(page->Entries(kLoaded), Texts{});
    EXPECT_EQ(Load(*page, "In,A,B\n0,1,2\n1,2,3\n"), Messages{});
    EXPECT_TRUE(page->IsEnabled(kToCamera));
}

TEST_F(LutFile, a_loaded_set_survives_deactivation) {
    Tell(2, 8);
    const auto page = Open();
    ASSERT_EQ(Load(*page, "In,Z,A\n0,1,2\n1,2,3\n"), Messages{});
    page->Pick(kLoaded, "A");

    page->Reactivate();

    EXPECT_EQ(page->Entries(kLoaded), (Texts{"A", "Z"}));
    EXPECT_EQ(page->Selected(kLoaded), "Z") << "LUT 0 again";
    EXPECT_TRUE(page->IsEnabled(kToCamera));
    EXPECT_TRUE(page->IsEnabled(kLoaded));
    EXPECT_FALSE(page->IsEnabled(kPicture)) << "only a load enables it";
}

TEST_F(LutFile, a_loaded_set_is_not_offered_while_the_camera_cannot_be_read) {
    for (const ULONG failing : {kLutControlId, kLutBitsId}) {
        Renew(L"color");
        Tell(2, 8);
        const auto page = Open();
        ASSERT_EQ(Load(*page, "In,Z,A\n0,1,2\n1,2,3\n"), Messages{});
        Camera().AddFault({.nth = 0, .id = failing, .action = kolmsim::SimFaultAction::fail, .code = E_FAIL});

        page->Reactivate();

        EXPECT_EQ(page->Entries(kLoaded), Texts{}) << failing;
        for (const int id : {kToCamera, kLoaded, kPicture, kLoad})
            EXPECT_FALSE(page->IsEnabled(id)) << id;
    }
}

TEST_F(LutFile, a_list_that_takes_no_entry_fails_the_load) {
    Tell(2, 8);
    const auto page = Open();
    {
        const CRefusingControl refusing(page->Control(kLoaded), CB_ADDSTRING, CB_ERR);
        EXPECT_EQ(Load(*page, "In,Z,A\n0,1,2\n1,2,3\n"), Said("parsing LUTs failed"));
    }
    for (const int id : {kToCamera, kLoaded, kPicture})
        EXPECT_FALSE(page->IsEnabled(id)) << id;
    page->Reactivate();
    EXPECT_EQ(page->Entries(kLoaded), Texts{}) << "the set is not valid";
}

TEST_F(LutFile, a_single_loaded_LUT_survives_with_its_combo_disabled) {
    Tell(2, 8);
    const auto page = Open();
    ASSERT_EQ(Load(*page, "In,A\n0,1\n1,2\n"), Messages{});
    page->Reactivate();
    EXPECT_EQ(page->Selected(kLoaded), "A");
    EXPECT_FALSE(page->IsEnabled(kLoaded));
    EXPECT_TRUE(page->IsEnabled(kToCamera));
}

// ---- Upload -------------------------------------------------------------------------------------------------------

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
        Camera().AddFault({.nth = 0, .action = kolmsim::SimFaultAction::answer, .code = S_OK});
        int nth = 0;
        for (const ULONG value : reads) {
            Camera().AddFault({.nth = ++nth,
                               .id = kRegisterId,
                               .flags = 1,
                               .action = kolmsim::SimFaultAction::patchAnswer,
                               .code = S_OK,
                               .offset = 28,
                               .word = value});
        }
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

// ---- The curve ----------------------------------------------------------------------------------------------------

class LutCurvePage : public LutPage {
protected:
    static COLORREF Pixel(const CPageHost& page, LONG x, LONG y) {
        HDC const context = ::GetDC(page.Control(kPicture));
        const COLORREF color = ::GetPixel(context, x, y);
        ::ReleaseDC(page.Control(kPicture), context);
        return color;
    }
    static RECT Area(const CPageHost& page) {
        RECT area{};
        ::GetClientRect(page.Control(kPicture), &area);
        return area;
    }
    /// Whether the picture is filled below height `part` of each column and not above; columns near a step are left
    /// out.
    static void ExpectFilled(const CPageHost& page, double (*part)(double x)) {
        const RECT area = Area(page);
        ASSERT_GT(area.right, 100);
        ASSERT_GT(area.bottom, 100);
        const COLORREF ground = Pixel(page, area.right - 3, 2);
        EXPECT_NE(ground, kFill) << "nothing to tell it from";
        for (LONG x = area.right / 2 + 3; x < area.right - 3; x += 7) {
            const LONG top = static_cast<LONG>(area.bottom * (1.0 - part(static_cast<double>(x) / area.right)));
            EXPECT_EQ(Pixel(page, x, (top + area.bottom) / 2), kFill) << "inside, column " << x;
            EXPECT_EQ(Pixel(page, x, top + 4), kFill) << "below the curve, column " << x;
            EXPECT_EQ(Pixel(page, x, top - 4), ground) << "above the curve, column " << x;
        }
    }

    static constexpr COLORREF kFill = 0xFFFFFF;
};

TEST_F(LutCurvePage, draws_the_selected_LUT_filled) {
    Tell(256, 8);
    const auto page = Open();
    Settle(*page);
    const RECT area = Area(*page);
    EXPECT_NE(Pixel(*page, area.right / 2, area.bottom - 5), kFill) << "nothing is loaded";

    const auto value = [](std::size_t row, std::size_t lut) {
        return static_cast<unsigned>(lut == 0 ? row / 2 : row / 4);
    };
    ASSERT_EQ(Load(*page, LutText({"half", "quarter"}, 256, value)), Messages{});
    Settle(*page);
    ExpectFilled(*page, [](double x) { return x / 2; });

    page->Pick(kLoaded, "quarter");
    Settle(*page);
    ExpectFilled(*page, [](double x) { return x / 4; });
}

TEST_F(LutCurvePage, draws_16_bit_LUTs_by_their_bits) {
    Tell(64, 10);  // 32 elements: the picture is wider
    const auto page = Open();
    ASSERT_EQ(Load(*page, LutText({"flat"}, 32, [](std::size_t, std::size_t) { return 512U; })), Messages{});
    Settle(*page);
    ExpectFilled(*page, [](double) { return 512.0 / 1023; });
}

TEST_F(LutCurvePage, draws_a_LUT_that_is_longer_than_the_picture_is_wide) {
    const auto page = Open();
    ASSERT_EQ(Load(*page, LutText({"3/4"}, 4096, [](std::size_t row, std::size_t) { return unsigned(row * 3 / 4); })),
              Messages{});
    Settle(*page);
    ExpectFilled(*page, [](double x) { return x * 3 / 4; });
}

TEST_F(LutCurvePage, writes_the_name_at_the_top_left) {
    Tell(2, 8);
    const auto page = Open();
    ASSERT_EQ(Load(*page, "In,WWWWWW\n0,0\n1,0\n"), Messages{});
    Settle(*page);
    int dark = 0;
    for (LONG y = 2; y < 14; ++y) {
        for (LONG x = 2; x < 50; ++x)
            dark += Pixel(*page, x, y) == 0 ? 1 : 0;
    }
    EXPECT_GT(dark, 20);
}

TEST_F(LutCurvePage, draws_again_after_reactivation) {
    Tell(256, 8);
    const auto page = Open();
    ASSERT_EQ(Load(*page, LutText({"half"}, 256, [](std::size_t row, std::size_t) { return unsigned(row / 2); })),
              Messages{});
    page->Reactivate();
    Settle(*page);
    ExpectFilled(*page, [](double x) { return x / 2; });
}

TEST_F(LutCurvePage, the_curve_goes_with_the_set) {
    Tell(256, 8);
    const auto page = Open();
    ASSERT_EQ(Load(*page, LutText({"full"}, 256, [](std::size_t, std::size_t) { return 255U; })), Messages{});
    Settle(*page);
    const RECT area = Area(*page);
    ASSERT_EQ(Pixel(*page, area.right / 2, area.bottom / 2), kFill);

    EXPECT_EQ(Load(*page, "In,A\n"), Said(kNotEqual));
    Settle(*page);
    EXPECT_NE(Pixel(*page, area.right / 2, area.bottom / 2), kFill);
}

TEST_F(LutCurvePage, a_camera_whose_figures_changed_draws_nothing) {
    Tell(256, 8);
    const auto page = Open();
    ASSERT_EQ(Load(*page, LutText({"full"}, 256, [](std::size_t, std::size_t) { return 255U; })), Messages{});
    const struct { ULONG sizeBytes, bits; } rows[] = {{0xFFFFFFFF, 8}, {256, 0}, {0, 0}, {1024, 8}};
    for (const auto& row : rows) {
        Camera().ClearFaults();
        Tell(row.sizeBytes, row.bits);
        page->Reactivate();
        Settle(*page);
        const RECT area = Area(*page);
        EXPECT_NE(Pixel(*page, area.right / 2, area.bottom / 2), kFill) << row.sizeBytes << ", " << row.bits;
    }
}

}  // namespace
}  // namespace kolmfluxor::test
