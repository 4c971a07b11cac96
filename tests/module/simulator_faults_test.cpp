/// @file  Faults that are injected into the simulated camera.

#include "module/simulator_fixture.h"

namespace kolmfluxor::test {
namespace {

using kolmsim::SimFault;
using kolmsim::SimFaultAction;

class SimulatorFaults : public SimulatorTest {
protected:
    /// A fault for every request.
    void Always(SimFaultAction action, HRESULT code = S_OK, std::uint32_t offset = 0, std::uint32_t word = 0) {
        m_camera->AddFault({.nth = 0, .action = action, .code = code, .offset = offset, .word = word});
    }
};

TEST_F(SimulatorFaults, a_fault_strikes_the_matching_request_it_counts_to) {
    m_camera->AddFault({.nth = 2, .id = kGainId, .flags = 1, .code = E_ACCESSDENIED});

    EXPECT_EQ(GetFeature(kGainId), S_OK);
    EXPECT_EQ(GetFeature(kBrightnessId), S_OK) << "another id";
    EXPECT_EQ(SetGain(5), S_OK) << "another direction";
    EXPECT_EQ(GetFeature(kGainId), E_ACCESSDENIED);
    EXPECT_EQ(Word(24), 0U) << "the record is left alone";
    EXPECT_EQ(GetFeature(kGainId), S_OK) << "it strikes once";
}

TEST_F(SimulatorFaults, each_fault_counts_by_itself) {
    m_camera->AddFault({.nth = 1, .id = kGainId, .code = E_ACCESSDENIED});
    m_camera->AddFault({.nth = 2, .id = kGainId, .code = E_OUTOFMEMORY});

    EXPECT_EQ(GetFeature(kGainId), E_ACCESSDENIED);
    EXPECT_EQ(GetFeature(kGainId), E_OUTOFMEMORY);
    EXPECT_EQ(GetFeature(kGainId), S_OK);
}

TEST_F(SimulatorFaults, a_patched_answer_carries_the_word_and_the_code) {
    m_camera->AddFault({.nth = 0,
                        .id = kGainId,
                        .action = SimFaultAction::patchAnswer,
                        .code = S_FALSE,
                        .offset = 60,
                        .word = 0xCAFE});

    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(GetFeature(kGainId), S_FALSE);
        EXPECT_EQ(Word(60), 0xCAFEU);
        EXPECT_EQ(Word(24), 64U);
    }
    m_camera->ClearFaults();
    EXPECT_EQ(GetFeature(kGainId), S_OK);
}

TEST_F(SimulatorFaults, a_patch_that_leaves_the_record_changes_nothing) {
    for (const std::uint32_t offset : {61U, 64U, 0xFFFFFFFFU}) {
        m_camera->AddFault({.action = SimFaultAction::patchAnswer, .offset = offset, .word = 0xCAFE});
        EXPECT_EQ(GetFeature(kGainId), S_OK) << offset;
        EXPECT_NE(Word(60), 0xCAFEU) << offset;
    }
}

TEST_F(SimulatorFaults, a_short_answer_leaves_the_rest_of_the_record) {
    m_camera->AddFault({.action = SimFaultAction::shortAnswer, .offset = 28});
    m_record = Get(kGainId).Bytes();
    ULONG returned = 0;

    EXPECT_EQ(Send(m_record, &returned), S_OK);

    EXPECT_EQ(returned, 28U);
    EXPECT_EQ(Word(24), 64U);
    EXPECT_EQ(Word(28), 0U);
}

TEST_F(SimulatorFaults, a_delay_makes_the_request_wait) {
    m_camera->AddFault({.action = SimFaultAction::delay, .milliseconds = 60});
    const ULONGLONG start = ::GetTickCount64();

    EXPECT_EQ(GetFeature(kGainId), S_OK);

    EXPECT_GE(::GetTickCount64() - start, 50U);
}

TEST_F(SimulatorFaults, unplugged_the_camera_is_not_there_until_it_is_plugged_in_again) {
    std::vector<std::uint8_t> picture(std::size_t{640} * 480);
    const kolmsim::SimFrame frame{.compression = 0x30303859,
                                  .bitsPerPixel = 8,
                                  .width = 640,
                                  .height = 480,
                                  .number = 0,
                                  .data = picture.data(),
                                  .sizeBytes = picture.size()};
    m_camera->AddFault({.nth = 2, .action = SimFaultAction::unplug});

    EXPECT_EQ(GetFeature(kGainId), S_OK);
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(GetFeature(kGainId), Win32(ERROR_DEVICE_NOT_CONNECTED));
    }
    EXPECT_FALSE(m_camera->RenderFrame(frame));
    m_camera->Plug(true);
    EXPECT_EQ(GetFeature(kGainId), S_OK);
    EXPECT_TRUE(m_camera->RenderFrame(frame));
}

// ---- Answers in the camera's place --------------------------------------------------------------------------------

TEST_F(SimulatorFaults, an_answer_in_its_place_leaves_record_and_camera_as_they_are) {
    Always(SimFaultAction::answer, S_FALSE);
    const CWireRequest sent = Set(kGainId).With(24, 9).With(60, 0x1234);
    m_record = sent.Bytes();
    ULONG returned = 0;

    EXPECT_EQ(Send(m_record, &returned), S_FALSE);

    EXPECT_EQ(m_record, sent.Bytes());
    EXPECT_EQ(returned, 64U);
    EXPECT_EQ(GainOf(*m_camera), 64U);
    EXPECT_EQ(AnswerOf(*m_camera, 0), sent);
}

TEST_F(SimulatorFaults, an_answer_in_its_place_knows_every_property_and_size) {
    Always(SimFaultAction::answer);
    for (const std::uint32_t id : {kGainId, 43U, 999U}) {
        for (const std::size_t bytes : {24U, 36U, 64U, 840U}) {
            m_record = Get(id, bytes).Bytes();
            EXPECT_EQ(Send(m_record), S_OK) << id << " " << bytes;
            EXPECT_EQ(Last().objection, nullptr) << id << " " << bytes;
        }
    }
}

TEST_F(SimulatorFaults, an_answer_in_its_place_still_needs_a_sound_header) {
    Always(SimFaultAction::answer);
    struct Breach {
        std::vector<std::uint8_t> record;
        ULONG error;
    };
    std::vector<std::uint8_t> otherSet = Get(kGainId).Bytes();
    otherSet[5] ^= 1;
    Breach breaches[] = {{Get(kGainId, 24).Bytes(), ERROR_INSUFFICIENT_BUFFER},
                         {otherSet, ERROR_SET_NOT_FOUND},
                         {CWireRequest(kGainId, 3, 64).Bytes(), ERROR_INVALID_PARAMETER}};
    breaches[0].record.resize(20);
    for (Breach& each : breaches) {
        EXPECT_EQ(Send(each.record), Win32(each.error));
        EXPECT_NE(Last().objection, nullptr);
    }
}

TEST_F(SimulatorFaults, patches_shape_an_answer_in_its_place) {
    Always(SimFaultAction::patchAnswer, E_PENDING, 28, 0xAB);
    Always(SimFaultAction::answer, S_OK);
    Always(SimFaultAction::patchAnswer, S_FALSE, 32, 0xCD);
    m_record = Get(999, 48).With(24, 7).Bytes();

    EXPECT_EQ(Send(m_record), S_FALSE) << "the last one added decides";

    EXPECT_EQ(CWireRequest(m_record), Get(999, 48).With(24, 7).With(28, 0xAB).With(32, 0xCD));
}

TEST_F(SimulatorFaults, a_failure_goes_before_an_answer) {
    Always(SimFaultAction::answer, S_OK);
    Always(SimFaultAction::fail, E_ACCESSDENIED);
    Always(SimFaultAction::fail, E_OUTOFMEMORY);

    EXPECT_EQ(GetFeature(kGainId), E_ACCESSDENIED);
}

TEST_F(SimulatorFaults, an_unplugged_camera_answers_nothing) {
    Always(SimFaultAction::answer, S_OK);
    m_camera->Plug(false);

    EXPECT_EQ(GetFeature(kGainId), Win32(ERROR_DEVICE_NOT_CONNECTED));
}

}  // namespace
}  // namespace kolmfluxor::test
