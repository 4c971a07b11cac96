/// @file  Methods that take several requests or build a flag word.

#include <utility>

#include "module/scripted_registers.h"

namespace kolmfluxor::test {
namespace {

class Composites : public ScriptedRegisters {};

TEST_F(Composites, property_56_tells_the_driver_three_registers_and_a_selector) {
    Script({0x11, 0x22, 0x33});
    Object().Patch(56, 28, 0x44);
    ULONG value = kPoison;

    EXPECT_EQ(Object()->GetProperty56Composite(41, &value), S_OK);

    EXPECT_EQ(value, 0x44u);
    EXPECT_EQ(Object().Sent(), (Wire{Read(0xF1000040), Read(0xF1000010), Read(0xF1000018),
                                     Get(56).With(24, 41).With(36, 0x11).With(40, 0x22).With(44, 0x33)}));
}

TEST_F(Composites, property_56_goes_on_without_registers_and_fails_with_its_own_request) {
    for (int nth = 1; nth <= 4; ++nth) {
        SCOPED_TRACE(nth);
        Script({});
        Object().FailNth(nth, E_ACCESSDENIED);
        ULONG value = kPoison;

        EXPECT_EQ(Object()->GetProperty56Composite(5, &value), nth == 4 ? E_ACCESSDENIED : S_OK);

        const Wire sent = Object().Sent();
        ASSERT_EQ(sent.size(), 4u);
        if (nth < 4) {
            EXPECT_EQ(sent[3].Word(32 + 4 * static_cast<std::size_t>(nth)), 0xFFFFFFFFu) << "all ones for it";
        } else {
            EXPECT_EQ(value, kPoison);
        }
    }
    Script({});
    EXPECT_EQ(Object()->GetProperty56Composite(5, nullptr), E_POINTER);
    EXPECT_EQ(Object().Sent(), Wire{});
}

TEST_F(Composites, property_56_takes_another_success_code_for_a_success) {
    Script({1, 2, 3});
    Camera().AddFault({.nth = 0, .action = kolmsim::SimFaultAction::answer, .code = S_FALSE});
    Object().Patch(56, 28, 0x44, S_FALSE);
    ULONG value = kPoison;
    EXPECT_EQ(Object()->GetProperty56Composite(5, &value), S_FALSE);
    EXPECT_EQ(value, 0x44u);
}

TEST_F(Composites, any_property_always_uses_64_bytes) {
    Script({});
    ULONG word = 0;
    for (const ULONG id : {9UL, 11UL, 13UL, 26UL, 65UL}) {
        EXPECT_EQ(Object()->GetPropertyById(id, &word, &word, &word), S_OK);
        EXPECT_EQ(Object()->SetPropertyById(id, FALSE, 1, FALSE), S_OK);
        EXPECT_EQ(Object().Sent(), (Wire{Get(id), Set(id).With(24, 1)}));
    }
}

TEST_F(Composites, property_10_repeats_six_words_even_into_one_place) {
    Script({});
    for (ULONG i = 0; i < 6; ++i)
        Object().Patch(10, 612 + 4 * i, 0x100 + i);
    Object().Patch(10, 24, 0x77);
    ULONG dummy = 0;
    ULONG w[7] = {};
    EXPECT_EQ(Object()->GetProperty10Block(&dummy, &dummy, &dummy, &dummy, &dummy, &dummy, &w[0], &w[1], &w[2], &w[3],
                                           &w[4], &w[5], &w[6]),
              E_NOTIMPL);
    for (ULONG i = 0; i < 6; ++i)
        EXPECT_EQ(w[i], 0x100 + i);
    EXPECT_EQ(w[6], 0x77u);
}

TEST_F(Composites, property_10_is_never_a_success) {
    for (const HRESULT code : {S_OK, S_FALSE, E_ACCESSDENIED}) {
        Script({});
        Object().Patch(10, 24, 0x77, code);
        ULONG w = 0;

        EXPECT_EQ(Object()->GetProperty10Block(&w, &w, &w, &w, &w, &w, &w, &w, &w, &w, &w, &w, &w), E_NOTIMPL) << code;

        EXPECT_EQ(w, SUCCEEDED(code) ? 0x77u : 0u) << code;
        EXPECT_EQ(Object().Sent().size(), 1u);
    }
}

TEST_F(Composites, an_index_beyond_3_is_refused_and_nothing_is_sent) {
    ULONG value = kPoison;
    for (const ULONG index : {4u, 5u, 0xFFFFFFDEu, 0xFFFFFFFFu}) {
        EXPECT_EQ(Object()->SetIndexedProperty34(index, 1), E_INVALIDARG);
        EXPECT_EQ(Object()->GetIndexedProperty34(index, &value), E_INVALIDARG);
    }
    EXPECT_EQ(value, kPoison);
    EXPECT_EQ(Object()->GetIndexedProperty34(4, nullptr), E_POINTER) << "null comes first";
    EXPECT_EQ(Object().Sent(), Wire{});
    Script({});
    for (ULONG index = 0; index <= 3; ++index) {
        EXPECT_EQ(Object()->SetIndexedProperty34(index, 7), S_OK);
        EXPECT_EQ(Object()->GetIndexedProperty34(index, &value), S_OK);
        EXPECT_EQ(Object().Sent(), (Wire{Set(34 + index).With(24, 7), Get(34 + index)}));
    }
}

TEST_F(Composites, switch_words_of_properties_30_32_33_and_the_lut) {
    Script({});
    EXPECT_EQ(Object()->SetProperty30(FALSE, FALSE, FALSE, 1, 1, 9), S_OK);
    EXPECT_EQ(Object()->SetProperty30(TRUE, FALSE, 7, 1, 1, 9), S_OK);
    EXPECT_EQ(Object()->SetProperty32(2, 2, FALSE, TRUE, TRUE, 9), S_OK);
    EXPECT_EQ(Object()->SetProperty32(TRUE, FALSE, 2, 2, TRUE, 9), S_OK);
    EXPECT_EQ(Object()->SetProperty33(FALSE, TRUE, TRUE, TRUE, TRUE, 9), S_OK);
    EXPECT_EQ(Object()->SetProperty33(TRUE, FALSE, FALSE, FALSE, -1, 9), S_OK);
    EXPECT_EQ(Object()->SetLutControl(0, 9), S_OK);
    EXPECT_EQ(Object()->SetLutControl(0xFFFFFFFF, 9), S_OK);
    EXPECT_EQ(Object()->SetPropertyById(70, FALSE, 9, FALSE), S_OK);
    EXPECT_EQ(Object()->SetPropertyById(70, FALSE, 9, 2), S_OK);

    const auto word = [](ULONG id, ULONG flags) { return Set(id).With(24, 9).With(28, flags); };
    EXPECT_EQ(Object().Sent(), (Wire{word(30, 0x4), word(30, 0x2002), word(32, 0x4 | 0x100), word(32, 0x2 | 0x800),
                                     word(33, 0x4 | 0x80 | 0x8000), word(33, 0x2), word(31, 0x4), word(31, 0x2),
                                     word(70, 0), word(70, 0x20000)}));
}

TEST_F(Composites, properties_32_and_33_report_4000_where_they_write_8000_100_or_800) {
    const struct {
        ULONG id;
        HRESULT (STDMETHODCALLTYPE IKolmFluxorPropertySet::*get)(BOOL*, BOOL*, BOOL*, BOOL*, ULONG*);
        HRESULT (STDMETHODCALLTYPE IKolmFluxorPropertySet::*set)(BOOL, BOOL, BOOL, BOOL, BOOL, ULONG);
    } rows[] = {
        {32, &IKolmFluxorPropertySet::GetProperty32, &IKolmFluxorPropertySet::SetProperty32},
        {33, &IKolmFluxorPropertySet::GetProperty33, &IKolmFluxorPropertySet::SetProperty33},
    };
    for (const auto& [id, get, set] : rows) {
        for (const ULONG word : {0x8000u, 0x100u, 0x800u, 0x4000u}) {
            SCOPED_TRACE(testing::Message() << "property " << id << ", word " << word);
            Script({});
            Object().Patch(id, 28, word);
            BOOL flags[4] = {42, 42, 42, 42};
            ULONG value = kPoison;

            EXPECT_EQ((Object().Get()->*get)(&flags[0], &flags[1], &flags[2], &flags[3], &value), S_OK);

            EXPECT_EQ(flags[2], word == 0x4000 ? TRUE : FALSE);
        }
        Object().Forget();
        for (const BOOL third : {TRUE, FALSE}) {
            for (const BOOL fourth : {TRUE, FALSE})
                EXPECT_EQ((Object().Get()->*set)(TRUE, FALSE, third, fourth, TRUE, 9), S_OK);
        }
        const auto written = [id = id](ULONG word) { return Set(id).With(24, 9).With(28, 0x2 | word); };
        EXPECT_EQ(Object().Sent(), (Wire{written(0x8000), written(0x8000), written(0x100), written(0x800)}));
    }
}

TEST_F(Composites, auto_flag_of_property_42_follows_AutoOn_too) {
    for (const auto& [autoOn, expected] : {std::pair{1u, TRUE}, {0u, FALSE}, {2u, FALSE}}) {
        Script({});
        Object().Patch(42, 28, 0);
        Object().Patch(42, 44, autoOn);
        BOOL f1 = 42;
        BOOL f2 = 42;
        BOOL f3 = 42;
        ULONG value = 0;
        ULONG b = 0;
        EXPECT_EQ(Object()->GetProperty42(&f1, &f2, &f3, &value, &b), S_OK);
        EXPECT_EQ(f1, expected) << "AutoOn " << autoOn;
        EXPECT_EQ(f2, FALSE);
        EXPECT_EQ(f3, FALSE);
    }
}

}  // namespace
}  // namespace kolmfluxor::test
