/// @file  Reading a pin's modes: the code of each failure, and what it leaves in the list.

#include "pages/format_modes.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include <wrl/client.h>

#include "pages/common/kolm_fluxor_exception.h"
#include "support/property_set_stub.h"
#include "support/scripted_filter.h"

namespace kolmfluxor::test {
namespace {

using Microsoft::WRL::ComPtr;

class FormatModesOfPin : public ::testing::Test {
protected:
    FormatModesOfPin() {
        m_script.formats = {FixedMode(640, 480, FourCc("Y800"), 8, 5), Format7Mode(0, 1280, 960)};
        m_script.current = 1;
        ComPtr<IEnumPins> pins;
        EXPECT_EQ(m_script.Filter()->EnumPins(pins.GetAddressOf()), S_OK);
        EXPECT_EQ(pins->Next(1, m_pin.GetAddressOf(), nullptr), S_OK);
    }

    HRESULT Read() { return ReadInto(m_pin.Get()); }
    /// Reads into a list with something in it.
    HRESULT ReadInto(IUnknown* pin) {
        m_found.modes.resize(3);
        m_found.currentCapability = 77;
        m_script.calls.clear();
        return ReadFormatModes(pin, &m_camera, m_found);
    }
    void ExpectEmptied() {
        EXPECT_TRUE(m_found.modes.empty());
        EXPECT_EQ(m_found.currentCapability, std::nullopt);
    }

    CScriptedFilter m_script;
    CPropertySetStub m_camera;
    ComPtr<IPin> m_pin;
    FormatModes m_found;
};

TEST_F(FormatModesOfPin, are_listed_in_its_order_with_the_current_one) {
    EXPECT_EQ(Read(), S_OK);
    ASSERT_EQ(m_found.modes.size(), 2u);
    for (const int i : {0, 1})
        EXPECT_EQ(m_found.modes[static_cast<std::size_t>(i)].capability, i);
    EXPECT_EQ(m_found.modes[0].text, "DCam 640x480 Mono8[8Bit]");
    EXPECT_EQ(m_found.modes[1].text, "F7M0 1280x960 Mono8[8Bit]");
    EXPECT_EQ(m_found.currentCapability, 1);
}

TEST_F(FormatModesOfPin, without_a_pin_are_none) {
    EXPECT_EQ(ReadInto(nullptr), E_POINTER);
    ExpectEmptied();
    EXPECT_EQ(ReadInto(m_script.Filter()), E_NOINTERFACE) << "no configuration to ask";
    ExpectEmptied();
}

TEST_F(FormatModesOfPin, end_with_the_code_of_any_call_that_is_not_S_OK) {
    for (HRESULT CScriptedFilter::*call :
         {&CScriptedFilter::queryConfig, &CScriptedFilter::getFormat, &CScriptedFilter::getCount}) {
        for (const HRESULT code : {E_ACCESSDENIED, HRESULT{S_FALSE}}) {
            m_script.*call = code;
            EXPECT_EQ(Read(), code);
            ExpectEmptied();
        }
        m_script.*call = S_OK;
    }
    EXPECT_EQ(Read(), S_OK);
}

TEST_F(FormatModesOfPin, are_unexpected_without_a_current_format) {
    m_script.noCurrent = true;
    EXPECT_EQ(Read(), E_UNEXPECTED);
    ExpectEmptied();
}

TEST_F(FormatModesOfPin, are_unexpected_with_records_of_another_size_than_128) {
    for (const int bytes : {127, 129, 0, -128}) {
        m_script.recordBytes = bytes;
        EXPECT_EQ(Read(), E_UNEXPECTED) << bytes;
        ExpectEmptied();
        EXPECT_EQ(m_script.calls,
                  (std::vector<std::string>{"query config", "GetFormat", "GetNumberOfCapabilities", "release config"}));
    }
}

TEST_F(FormatModesOfPin, without_a_format_block_are_left_out) {
    m_script.formats[0].noBlock = true;
    EXPECT_EQ(Read(), S_OK);
    ASSERT_EQ(m_found.modes.size(), 1u);
    EXPECT_EQ(m_found.modes[0].capability, 1);

    m_script.formats[1].noBlock = true;  // the current one
    EXPECT_EQ(Read(), S_OK);
    ExpectEmptied();
}

TEST(FormatModeIndexing, takes_what_lies_within_the_modes) {
    EXPECT_EQ(FormatModeIndex(0, 1), 0u);
    EXPECT_EQ(FormatModeIndex(2, 3), 2u);
    EXPECT_EQ(FormatModeIndex(0x7FFFFFFF, 0x80000000), 0x7FFFFFFFu);
}

TEST(FormatModeIndexing, outside_of_the_modes_throws_its_text_and_code_5) {
    struct Row {
        ULONG entryData;
        std::size_t modeCount;
    };
    for (const auto& [entryData, modeCount] :
         {Row{0xFFFFFFFF, 3}, {3, 3}, {4, 3}, {0, 0}, {0x80000000, 3}, {0x80000000, 0xFFFFFFFF}, {0x7FFFFFFF, 3}}) {
        SCOPED_TRACE(::testing::Message() << entryData << " of " << modeCount);
        try {
            std::ignore = FormatModeIndex(entryData, modeCount);
            ADD_FAILURE() << "nothing was thrown";
        } catch (const CKolmFluxorException& thrown) {
            EXPECT_STREQ(thrown.what(), "index into media info store out of bounds");
            EXPECT_EQ(thrown.Code(), 5u);
        }
    }
}

}  // namespace
}  // namespace kolmfluxor::test
