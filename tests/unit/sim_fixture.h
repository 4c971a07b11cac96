#pragma once
/// @file  A simulated camera in its factory state, asked as a driver asks it.

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "model/camera.h"
#include "sim_record.h"

namespace kolmsim::test {

/// Words of a record by offset.
using Words = std::initializer_list<std::pair<std::size_t, std::uint32_t>>;

class SimTest : public testing::Test {
protected:
    explicit SimTest(Variant variant = Variant::color) { ResetState(*m_state, variant); }

    /// Sends a GET with some words filled in; the answer can be looked at with `Word`.
    Status Get(std::uint32_t id, std::size_t bytes = 64, Words words = {}) { return Send(id, 1, bytes, words); }

    /// Sends a SET likewise.
    Status Set(std::uint32_t id, std::size_t bytes, Words words) { return Send(id, 2, bytes, words); }

    /// A word of the last answer.
    [[nodiscard]] std::uint32_t Word(std::size_t offset) const { return ReadWord(m_record, offset); }

    /// Reads a register through the driver; one that fails counts as a failure of the test.
    std::uint32_t ReadRegister(std::uint32_t address) {
        EXPECT_EQ(Get(11, 32, {{24, address}}), Status::ok) << "register " << std::hex << address;
        return Word(28);
    }

    void WriteRegister(std::uint32_t address, std::uint32_t word) {
        EXPECT_EQ(Set(11, 32, {{24, address}, {28, word}}), Status::ok) << "register " << std::hex << address;
    }

    /// A feature's value as the camera holds it.
    [[nodiscard]] std::uint32_t Value(std::uint32_t id) const { return m_camera.PropertyWord(id, 24).value_or(~0U); }
    [[nodiscard]] std::uint32_t Mode(std::uint32_t id) const { return m_camera.PropertyWord(id, 28).value_or(~0U); }

    std::unique_ptr<CameraState> m_state = std::make_unique<CameraState>();
    Camera m_camera{*m_state};
    std::vector<std::uint8_t> m_record;

private:
    Status Send(std::uint32_t id, std::uint32_t flags, std::size_t bytes, Words words) {
        m_record = MakeRecord(id, flags, bytes);
        for (const auto& [offset, word] : words) {
            Record(m_record).SetWord(offset, word);
        }
        return m_camera.Answer(m_record);
    }
};

/// The same for a monochrome camera.
class SimMonoTest : public SimTest {
protected:
    SimMonoTest() : SimTest(Variant::mono) {}
};

}  // namespace kolmsim::test
