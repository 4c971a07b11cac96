/// @file  What the simulated camera and its driver tell about themselves.

#include <cstdint>
#include <cstring>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "sim_fixture.h"

namespace kolmsim {
namespace {

class SimInformation : public test::SimTest {
protected:
    /// The text field at an offset of the last answer.
    [[nodiscard]] std::string Text(std::size_t offset) const {
        std::string text;
        for (std::size_t i = 0; i < 256 && m_record[offset + i] != 0; ++i) {
            text.push_back(static_cast<char>(m_record[offset + i]));
        }
        return text;
    }

    std::uint32_t Figure(std::uint32_t selector, std::uint32_t version1 = 0, std::uint32_t version3 = 0) {
        EXPECT_EQ(Get(56, 64, {{24, selector}, {40, version1}, {44, version3}}), Status::ok) << selector;
        return Word(28);
    }
};
class SimMonoInformation : public SimInformation {
protected:
    SimMonoInformation() { ResetState(*m_state, Variant::mono); }
};

TEST_F(SimInformation, names_maker_model_driver_and_serial_number) {
    ASSERT_EQ(Get(9, 800), Status::ok);
    EXPECT_EQ(Text(24), "KolmFluxor");
    EXPECT_EQ(Text(280), "Simulated camera (color)");
    EXPECT_EQ(Text(536), "Simulated driver 1.0");
    EXPECT_EQ(Word(792), 10002U);
    EXPECT_EQ(Word(796), 0U);
}

TEST_F(SimMonoInformation, a_mono_camera_is_another_one) {
    ASSERT_EQ(Get(9, 800), Status::ok);
    EXPECT_EQ(Text(280), "Simulated camera (mono)");
    EXPECT_EQ(Word(792), 10001U);
    EXPECT_EQ(ReadRegister(0xF1000018), 0x01010204U);
}

TEST_F(SimInformation, what_can_only_be_read_refuses_a_set) {
    constexpr std::pair<std::uint32_t, std::size_t> kReadOnly[] = {{9, 800}, {10, 840}, {12, 32}, {38, 64},
                                                                   {51, 64}, {52, 48},  {56, 64}};
    for (const auto& [id, bytes] : kReadOnly) {
        EXPECT_EQ(Set(id, bytes, {}), Status::invalidParameter) << id;
    }
}

TEST_F(SimInformation, versions_are_those_of_the_registers) {
    ASSERT_EQ(Get(38), Status::ok);
    EXPECT_EQ(Word(24), 0x0312U);
    EXPECT_EQ(Word(40), 0x0204U);
    EXPECT_EQ(ReadRegister(0xF1000010), 0x000C0312U);
    EXPECT_EQ(ReadRegister(0xF1000018), 0x01020204U);
    ASSERT_TRUE(m_camera.SetRegister(0xF1000018, 0x01029999));
    ASSERT_EQ(Get(38), Status::ok);
    EXPECT_EQ(Word(40), 0x9999U);
}

TEST_F(SimInformation, version_figures_expand_the_words_of_the_caller) {
    EXPECT_EQ(Figure(5, 0x000C0312, 0x01020204), 0x00031200U);
    EXPECT_EQ(Figure(6, 0x000C0312, 0x01020204), 0x00020400U);
    EXPECT_EQ(Figure(5, 0xFFFFFFFF), 0x00FFFF00U);
}

TEST_F(SimInformation, an_idle_bus_carries_the_broadcast_channel_alone) {
    EXPECT_EQ(Figure(41), 0U);
    EXPECT_EQ(Figure(42), 4096U);
    EXPECT_EQ(Figure(43), 1U);
    EXPECT_EQ(Figure(44), 0U);
}

TEST_F(SimInformation, a_streaming_camera_takes_its_share_of_the_bus) {
    WriteRegister(0xF0F00614, 0x80000000);
    EXPECT_EQ(Figure(41), 1280U) << "640 x 480, 8 bits, 30 frames per second";
    EXPECT_EQ(Figure(42), 4096U - 1280);
    EXPECT_EQ(Figure(43), 1U | 1U << 26) << "channel 5";

    WriteRegister(0xF0F00614, 0);
    ASSERT_EQ(Set(55, 64, {{24, 63}, {28, kModeManual}}), Status::ok);
    ASSERT_EQ(Set(54, 64, {{24, 3}}), Status::ok);
    WriteRegister(0xF0F00614, 0x80000000);
    WriteRegister(0xF0F00600, 2U << 29);
    EXPECT_EQ(Figure(41), 320U);
    EXPECT_EQ(Figure(43), 1U);
    EXPECT_EQ(Figure(44), 1U);
    EXPECT_EQ(Figure(42), 8192U - 320);

    WriteRegister(0xF0F00608, 7U << 29);
    WriteRegister(0xF0F00604, 1U << 29);
    ASSERT_EQ(Get(13, 96, {{28, 1}}), Status::ok);
    const std::uint32_t packet = Word(32);
    EXPECT_EQ(Figure(41), packet);
    WriteRegister(0xF0F00608, 3U << 29);
    EXPECT_EQ(Figure(41), 0U) << "a mode that the camera lacks";
}

TEST_F(SimInformation, unknown_figures_are_refused) {
    for (const std::uint32_t selector : {0U, 4U, 7U, 40U, 45U, 0xFFFFFFFFU}) {
        EXPECT_EQ(Get(56, 64, {{24, selector}}), Status::invalidParameter) << selector;
    }
}

TEST_F(SimInformation, current_mode_is_told_as_in_a_media_type) {
    ASSERT_EQ(Get(12, 32), Status::ok);
    EXPECT_EQ(Word(28), 0x00040005U);
    WriteRegister(0xF0F00608, 7U << 29);
    WriteRegister(0xF0F00604, 2U << 29);
    ASSERT_EQ(Get(12, 32), Status::ok);
    EXPECT_EQ(Word(28), 0x00040702U);
}

TEST_F(SimInformation, mode_figures_follow_the_mode) {
    ASSERT_EQ(Get(10, 840), Status::ok);
    EXPECT_EQ(Word(24), 6U);
    EXPECT_EQ(Word(612), 640U);
    EXPECT_EQ(Word(616), 480U);
    EXPECT_EQ(Word(620), 8U);
    EXPECT_EQ(Word(624), 1280U);
    EXPECT_EQ(Word(628), 240U);
    EXPECT_EQ(Word(632), 640U * 480);

    WriteRegister(0xF0F00608, 7U << 29);
    WriteRegister(0xF0F00604, 1U << 29);
    ASSERT_EQ(Get(10, 840), Status::ok);
    EXPECT_EQ(Word(612), 640U);
    EXPECT_EQ(Word(616), 960U);

    WriteRegister(0xF0F00608, 0);
    ASSERT_EQ(Get(10, 840), Status::ok);
    EXPECT_EQ(Word(612), 320U) << "mode 1 of format 0";
    EXPECT_EQ(Word(620), 16U);

    WriteRegister(0xF0F00608, 3U << 29);
    ASSERT_EQ(Get(10, 840), Status::ok);
    for (const std::size_t offset : {612U, 616U, 620U, 624U, 628U, 632U}) {
        EXPECT_EQ(Word(offset), 0U) << "no such mode";
    }
}

TEST_F(SimInformation, inputs_tell_what_their_registers_tell) {
    WriteRegister(0xF1000304, 0x01050000);
    ASSERT_EQ(Get(52, 48, {{24, 1}}), Status::ok);
    EXPECT_EQ(Word(28), 0U);
    EXPECT_EQ(Word(36), 5U);
    EXPECT_EQ(Word(40), 1U);
    EXPECT_EQ(Word(44), 0x81050000U);
    ASSERT_EQ(Get(52, 48, {{24, 0}}), Status::ok);
    EXPECT_EQ(Word(28), 1U) << "the pin of input 1 is high";
    EXPECT_EQ(Get(52, 48, {{24, 4}}), Status::invalidParameter);
}

TEST_F(SimInformation, camera_status_is_its_register) {
    const std::uint32_t status = ReadRegister(0xF1000100);
    ASSERT_EQ(Get(51), Status::ok);
    EXPECT_EQ(Word(24), status);
    ASSERT_TRUE(m_camera.SetRegister(0xF1000100, 0x80000077));
    ASSERT_EQ(Get(51), Status::ok);
    EXPECT_EQ(Word(24), 0x80000077U);
}

TEST_F(SimInformation, property_29_restores_the_factory_state) {
    const auto factory = std::make_unique<CameraState>(*m_state);
    ASSERT_EQ(Set(0, 64, {{24, 9}}), Status::ok);
    EXPECT_EQ(Get(29), Status::invalidParameter);
    EXPECT_NE(std::memcmp(factory.get(), m_state.get(), sizeof *factory), 0);

    ASSERT_EQ(Set(29, 64, {}), Status::ok);

    EXPECT_EQ(std::memcmp(factory.get(), m_state.get(), sizeof *factory), 0);
}

TEST_F(SimInformation, pictures_are_counted_until_the_counter_starts_anew) {
    for (int i = 0; i < 5; ++i) {
        m_camera.CountPicture();
    }
    EXPECT_EQ(ReadRegister(0xF1000274), 5U);
    WriteRegister(0xF1000270, 0x40000000);
    EXPECT_EQ(ReadRegister(0xF1000274), 0U);
    EXPECT_EQ(ReadRegister(0xF1000270), 0x80000000U);
}

}  // namespace
}  // namespace kolmsim
