/// @file  Every slot of `IKolmFluxorPropertySet` against a driver that answers scripted words.

#include <string>

#include "module/slot_cases.h"

namespace kolmfluxor::test {
namespace {

constexpr HRESULT kCodes[] = {E_FAIL, E_ACCESSDENIED, static_cast<HRESULT>(0x80070490)};
constexpr ULONG kFlagWord = 28;

/// The flag rule of the driver contract, told once more for the flags that methods return.
bool IsFlagSet(ULONG word, ULONG autoOn, ULONG flag) {
    if (flag == 0x8) return (word & 0x8) != 0 || autoOn == 1;
    if (flag == 0x40000000) return (word & 0x800) != 0;
    return (word & flag) != 0;
}

ULONG ModeOf(ULONG word) {
    constexpr ULONG bits[] = {0x4, 0x2, 0x10, 0x8, 0x40, 0x80, 0x100, 0x200, 0x400, 0x1000};
    for (ULONG mode = 0; mode < 10; ++mode) {
        if (bits[mode] == word) return mode;
    }
    return 10;
}

/// What an output must be when the word at 28 is `flagWord` and every other word is the scripted one.
ULONG Expected(const Output& output, ULONG flagWord) {
    switch (output.kind) {
    case Output::Kind::word:
        return output.at == kFlagWord ? flagWord : Scripted(output.at);
    case Output::Kind::flag:
        return IsFlagSet(flagWord, Scripted(44), output.at) ? TRUE : FALSE;
    case Output::Kind::mode:
        return flagWord == output.at ? TRUE : FALSE;
    case Output::Kind::modeNumber:
        return ModeOf(flagWord);
    case Output::Kind::constant:
        return output.at;
    }
    return kPoison;
}

class Slots : public PropertySetTest {
protected:
    /// A new object on a driver that takes every request and answers scripted words, `flagWord` at 28.
    void Script(ULONG flagWord = Scripted(kFlagWord)) {
        Renew(L"color");
        Camera().AddFault({.nth = 0, .action = kolmsim::SimFaultAction::answer, .code = S_OK});
        for (ULONG offset = 24; offset < 840; offset += 4) {
            Camera().AddFault({.nth = 0,
                               .action = kolmsim::SimFaultAction::patchAnswer,
                               .code = S_OK,
                               .offset = offset,
                               .word = offset == kFlagWord ? flagWord : Scripted(offset)});
        }
    }

    static std::string NameOf(const SlotCase& row) { return "slot " + std::to_string(row.slot) + ", " + row.name; }

    template <class F> static void ForEach(F&& run) {
        for (const SlotCase& row : SlotCases()) {
            if (row.walk == Walk::elsewhere) continue;
            SCOPED_TRACE(NameOf(row));
            run(row);
        }
    }
};

TEST_F(Slots, table_has_a_row_for_every_slot) {
    ASSERT_EQ(SlotCases().size(), 117u);
    int slot = 3;
    for (const SlotCase& row : SlotCases()) {
        EXPECT_EQ(row.slot, slot++) << row.name;
        EXPECT_EQ(row.call == nullptr, row.walk == Walk::elsewhere) << row.name;
        EXPECT_EQ(row.note != nullptr, row.walk == Walk::elsewhere) << row.name << " must name its own tests";
    }
}

TEST_F(Slots, send_exactly_these_bytes) {
    ForEach([&](const SlotCase& row) {
        Script();
        COutputs outputs;
        EXPECT_EQ(row.call(*Object().Get(), outputs), row.result);
        EXPECT_EQ(Object().Sent(), row.sent);
    });
}

TEST_F(Slots, read_their_outputs_from_these_places) {
    ForEach([&](const SlotCase& row) {
        Script();
        COutputs outputs;
        EXPECT_EQ(row.call(*Object().Get(), outputs), row.result);
        for (std::size_t i = 0; i < row.outputs.size(); ++i) {
            EXPECT_EQ(outputs[i], Expected(row.outputs[i], Scripted(kFlagWord))) << "output " << i;
        }
        for (std::size_t i = row.outputs.size(); i < 13; ++i)
            EXPECT_EQ(outputs[i], kPoison) << "beyond the outputs";
    });
}

TEST_F(Slots, tell_each_flag_and_mode_by_its_own_bit) {
    int flags = 0;
    ForEach([&](const SlotCase& row) {
        bool looksAtWord = false;
        for (const Output& output : row.outputs) {
            looksAtWord |= output.kind == Output::Kind::flag || output.kind == Output::Kind::mode;
        }
        if (!looksAtWord) return;
        ++flags;
        for (int shift = 0; shift < 32; ++shift) {
            SCOPED_TRACE("bit " + std::to_string(shift));
            const ULONG word = 1U << shift;
            Script(word);
            COutputs outputs;
            EXPECT_EQ(row.call(*Object().Get(), outputs), row.result);
            for (std::size_t i = 0; i < row.outputs.size(); ++i) {
                EXPECT_EQ(outputs[i], Expected(row.outputs[i], word)) << "output " << i;
            }
        }
    });
    EXPECT_EQ(flags, 27) << "rows that tell flags or modes";
}

TEST_F(Slots, refuse_each_null_output_before_anything_is_sent) {
    ForEach([&](const SlotCase& row) {
        for (std::size_t nulled = 0; nulled < row.outputs.size(); ++nulled) {
            SCOPED_TRACE("null output " + std::to_string(nulled));
            Script();
            COutputs outputs(static_cast<int>(nulled));
            EXPECT_EQ(row.call(*Object().Get(), outputs), E_POINTER);
            EXPECT_EQ(Object().Sent(), Wire{});
            for (std::size_t i = 0; i < 13; ++i)
                EXPECT_EQ(outputs[i], kPoison) << "output " << i;
        }
    });
}

TEST_F(Slots, pass_each_requests_failure_through) {
    ForEach([&](const SlotCase& row) {
        for (std::size_t nth = 1; nth <= row.sent.size(); ++nth) {
            for (const HRESULT code : kCodes) {
                SCOPED_TRACE("request " + std::to_string(nth) + " fails");
                Script();
                Object().FailNth(static_cast<int>(nth), code);
                COutputs outputs;

                EXPECT_EQ(row.call(*Object().Get(), outputs), row.result != S_OK ? row.result : code);

                EXPECT_EQ(Object().Sent(), Wire(row.sent.begin(), row.sent.begin() + static_cast<std::ptrdiff_t>(nth)));
                if (row.walk == Walk::range && nth > 1)
                    continue;  // the limits are written then; the families' own tests tell
                for (std::size_t i = 0; i < row.outputs.size(); ++i) {
                    EXPECT_EQ(outputs[i], row.outputs[i].afterFailure) << "output " << i;
                }
            }
        }
    });
}

TEST_F(Slots, take_another_success_code_for_a_success_and_pass_it_through) {
    ForEach([&](const SlotCase& row) {
        if (row.sent.empty() || row.result != S_OK) return;
        Script();
        Camera().AddFault({.nth = 0, .action = kolmsim::SimFaultAction::answer, .code = S_FALSE});
        COutputs outputs;

        EXPECT_EQ(row.call(*Object().Get(), outputs), S_FALSE);

        // A range method goes on to the mode only after exactly S_OK, and leaves its flags then.
        EXPECT_EQ(Object().Sent(), row.walk == Walk::range ? Wire{row.sent.front()} : row.sent);
        for (std::size_t i = 0; i < row.outputs.size(); ++i) {
            const ULONG expected =
                row.walk == Walk::range && i >= 2 ? kPoison : Expected(row.outputs[i], Scripted(kFlagWord));
            EXPECT_EQ(outputs[i], expected) << "output " << i;
        }
    });
}

}  // namespace
}  // namespace kolmfluxor::test
