/// @file  Every method of `IKolmFluxorPropertySet`, with every fault at every one of its driver requests.

#include <algorithm>
#include <string>

#include "support/counted_task_memory.h"
#include "support/fault_sweep.h"
#include "support/resources.h"
#include "sweep/module/swept_calls.h"

namespace kolmfluxor::test {
namespace {

constexpr HRESULT kUnplugged = static_cast<HRESULT>(0x8007048F);

/// What a call gave.
struct Outcome {
    HRESULT result = E_UNEXPECTED;
    COutputs outputs;
    Wire sent;

    [[nodiscard]] bool SameOutputs(const Outcome& other) const {
        for (std::size_t i = 0; i < 13; ++i) {
            if (outputs[i] != other.outputs[i]) return false;
        }
        return true;
    }
};

class MethodSweep : public PropertySetTest {
protected:
    /// A new object on a camera in its factory state, or on a driver that answers scripted words.
    void Start(const SweptCall& swept) {
        Renew(L"color");
        Script(swept);
    }

    Outcome Call(const SweptCall& swept) {
        Object().Forget();
        Outcome outcome;
        outcome.result = swept.call(*Object().Get(), outcome.outputs);
        outcome.sent = Object().Sent();
        return outcome;
    }

    /// The fault is gone: the same object on the same camera.
    void Recover(const SweptCall& swept) {
        Heal(Camera());
        Camera().Reset();
        Script(swept);
    }

    void ExpectDocumented(const SweptCall& swept, const SweptFault& fault, std::size_t n, const Outcome& sound,
                          const Outcome& struck);

    CHangGuard m_guard;

private:
    void Script(const SweptCall& swept) {
        if (!swept.scripted) return;
        Camera().AddFault({.nth = 0, .action = kolmsim::SimFaultAction::answer, .code = S_OK});
        for (ULONG offset = 24; offset < 840; offset += 4) {
            Camera().AddFault({.nth = 0,
                               .action = kolmsim::SimFaultAction::patchAnswer,
                               .code = S_OK,
                               .offset = offset,
                               .word = Scripted(offset)});
        }
    }
};

/// What the public header says of a call whose n-th request was disturbed.
void MethodSweep::ExpectDocumented(const SweptCall& swept, const SweptFault& fault, std::size_t n, const Outcome& sound,
                                   const Outcome& struck) {
    const bool struckAtAll = n <= sound.sent.size();
    const bool tolerated = struckAtAll && swept.tolerates && swept.tolerates(n, sound.sent[n - 1]);
    // A method whose result says nothing of its requests.
    const bool mute = swept.result != S_OK;
    const auto isOneOf = [&](std::initializer_list<HRESULT> results) {
        EXPECT_NE(std::ranges::find(results, struck.result), results.end()) << std::hex << struck.result;
    };
    if (!struckAtAll || fault.kind == FaultKind::late) {
        EXPECT_EQ(struck.result, sound.result);
        EXPECT_TRUE(struck.SameOutputs(sound));
        EXPECT_EQ(struck.sent, sound.sent);
        return;
    }
    switch (fault.kind) {
    case FaultKind::fail:
    case FaultKind::unplug:
        if (tolerated && fault.kind == FaultKind::unplug) return isOneOf({S_OK, kUnplugged});
        EXPECT_EQ(struck.result, tolerated || mute ? swept.result : fault.code);
        if (tolerated) return;
        EXPECT_EQ(struck.sent.size(), n + (swept.name.find("GetCameraInfoEx") != std::string::npos && n == 1 ? 1 : 0));
        for (std::size_t i = 0; n == 1 && i < swept.afterFailure.size(); ++i)
            EXPECT_EQ(struck.outputs[i], swept.afterFailure[i]) << "output " << i;
        return;
    case FaultKind::qualified:
        return isOneOf({swept.result, S_FALSE});
    case FaultKind::cut:
    case FaultKind::garbage:
        // Whatever words come are taken for the camera's; they may be out of its ranges, or no mode at all.
        return isOneOf({swept.result, E_INVALIDARG, E_FAIL, E_NOTIMPL, E_POINTER});
    case FaultKind::late:
        return;
    }
}

TEST_F(MethodSweep, no_fault_of_any_request_gives_more_than_what_is_documented) {
    int tried = 0;
    int methods = 0;
    Resources before;
    CCountedTaskMemory memory;
    for (const SweptCall& swept : SweptCalls()) {
        SCOPED_TRACE(swept.name);
        ASSERT_TRUE(swept.call) << "has no good arguments";
        Start(swept);
        const Outcome sound = Call(swept);
        EXPECT_EQ(sound.result, swept.result);
        if (methods++ == 0) before = CountResources();
        for (std::size_t n = 1; n <= sound.sent.size() + 1; ++n) {
            for (const SweptFault& fault : SweptFaults()) {
                if (n > sound.sent.size() && fault.kind != FaultKind::unplug) continue;
                const std::string step = "request " + std::to_string(n) + ' ' + fault.name;
                SCOPED_TRACE(step);
                m_guard.Step(swept.name + ": " + step);
                Start(swept);
                Inject(Camera(), fault, static_cast<int>(n));

                ExpectDocumented(swept, fault, n, sound, Call(swept));

                // What was believed of a camera that answered nonsense is kept; after all else the object is as new.
                const bool misled = fault.kind == FaultKind::garbage || fault.kind == FaultKind::cut;
                Recover(swept);
                const Outcome again = Call(swept);
                if (!misled) {
                    EXPECT_EQ(again.result, sound.result);
                    EXPECT_TRUE(again.SameOutputs(sound));
                }
                EXPECT_EQ(memory.Live(), 0U) << "texts are left behind";
                ++tried;
            }
        }
    }
    EXPECT_EQ(methods, 117);
    ReportTried("faults tried at methods", tried);
    ExpectFlat(before, 2);
}

}  // namespace
}  // namespace kolmfluxor::test
