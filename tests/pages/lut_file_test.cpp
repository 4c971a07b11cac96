/// @file  Page "LUT": files that it loads.

#include <string>
#include <vector>

#include "pages/lut_page_fixture.h"
#include "support/control_window.h"

namespace kolmfluxor::test {
namespace {

using Texts = std::vector<std::string>;

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

}  // namespace
}  // namespace kolmfluxor::test
