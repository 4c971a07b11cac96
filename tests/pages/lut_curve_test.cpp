/// @file  Page "LUT": the curve that it draws of a loaded file.

#include <string>
#include <vector>

#include "pages/lut_page_fixture.h"

namespace kolmfluxor::test {
namespace {

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
