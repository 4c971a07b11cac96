/// @file  How kolmctl chooses its camera.

#include "system/support_kolmctl.h"

#include <array>

#include "support/module.h"

namespace kolmfluxor::test {
namespace {

extern "C" const CLSID CLSID_SampleGrabber;

using ::testing::HasSubstr;
using ::testing::Not;

/// Copies of the simulated camera's files in a folder of their own, as long as the object lives.
class CCopiedSimulator {
public:
    CCopiedSimulator() {
        std::array<wchar_t, MAX_PATH> temporary{};
        ::GetTempPathW(static_cast<DWORD>(temporary.size()), temporary.data());
        m_folder = std::wstring(temporary.data()) + L"simulator-" + std::to_wstring(::GetCurrentProcessId());
        EXPECT_TRUE(::CreateDirectoryW(m_folder.c_str(), nullptr));
        for (const wchar_t* name : kFiles) {
            const std::wstring original = CModule::BesideTheTests(std::wstring(L"simulator\\") + name);
            EXPECT_TRUE(::CopyFileW(original.c_str(), Path(name).c_str(), TRUE)) << ::GetLastError();
        }
    }
    ~CCopiedSimulator() {
        for (const wchar_t* name : kFiles) {
            EXPECT_TRUE(::DeleteFileW(Path(name).c_str()) || ::GetLastError() == ERROR_FILE_NOT_FOUND)
                << ::GetLastError();
        }
        EXPECT_TRUE(::RemoveDirectoryW(m_folder.c_str()));
    }
    CCopiedSimulator(const CCopiedSimulator&) = delete;
    CCopiedSimulator& operator=(const CCopiedSimulator&) = delete;

    [[nodiscard]] std::wstring Path(const wchar_t* name) const { return m_folder + L"\\" + name; }

private:
    static constexpr const wchar_t* kFiles[] = {L"ksproxy.ax", L"kolmsimcam.ax"};
    std::wstring m_folder;
};

class KolmctlDevice : public KolmctlTest {
protected:
    static ProcessOutcome GetHue(const std::vector<std::wstring>& options) {
        std::vector<std::wstring> arguments = options;
        arguments.insert(arguments.end(), {L"--tsv", L"get", L"hue"});
        return Kolmctl(arguments);
    }
};

/// Only the color camera has it.
const std::string kHue = "feature\tid\tvalue\tmode\nhue\t261\t128\tmanual\n";

TEST_F(KolmctlDevice, is_by_default_the_first_one_that_offers_the_property_set) {
    const COtherDevice plain(L"A plain device", CLSID_SampleGrabber);

    EXPECT_THAT(GetHue({}), Prints(kHue));
}

TEST_F(KolmctlDevice, can_be_named_in_full_in_part_and_by_display_name) {
    EXPECT_THAT(GetHue({L"--device", L"KolmFluxor simulated camera (color)"}), Prints(kHue));
    EXPECT_THAT(GetHue({L"--device", L"COLOR"}), Prints(kHue));
    EXPECT_THAT(GetHue({L"--device",
                        L"@device:sw:{860BB310-5D01-11D0-BD3B-00A0C911CE86}\\"
                        L"{0E79EF7D-6A17-4DE4-9FDF-A94FEB69860B}"}),
                Prints(kHue));
    EXPECT_THAT(GetHue({L"--device=mono"}), Fails(kRefused, "cannot read hue"));
}

TEST_F(KolmctlDevice, can_be_named_by_its_position_in_the_list) {
    const ProcessOutcome list = Kolmctl({L"list"});
    const bool colorFirst = list.out.find("(color)") < list.out.find("(mono)");

    EXPECT_THAT(GetHue({L"--device", colorFirst ? L"0" : L"1"}), Prints(kHue));
    EXPECT_THAT(GetHue({L"--device", colorFirst ? L"1" : L"0"}), Fails(kRefused, "cannot read hue"));
    EXPECT_THAT(GetHue({L"--device", L"2"}), Fails(kNoDevice, "no capture device is called \"2\""));
    {
        const COtherDevice zero(L"0", CLSID_SampleGrabber);

        EXPECT_THAT(GetHue({L"--device", L"0"}), Fails(kNoDevice, "\"0\" does not offer the property set"))
            << "an exact name goes before a position";
    }
    const COtherDevice seventh(L"Camera 7", CLSID_SampleGrabber);
    EXPECT_THAT(GetHue({L"--device", L"7"}), Fails(kNoDevice, "\"Camera 7\" does not offer"))
        << "a number beyond the list is a part of a name";
}

TEST_F(KolmctlDevice, of_an_exact_name_wins_over_longer_names) {
    const COtherDevice longer(L"KolmFluxor simulated camera (color) 2", CLSID_SampleGrabber);

    EXPECT_THAT(GetHue({L"--device", L"KolmFluxor simulated camera (color)"}), Prints(kHue));
}

TEST_F(KolmctlDevice, that_is_ambiguous_is_refused_with_all_that_match) {
    const ProcessOutcome outcome = GetHue({L"--device", L"simulated"});

    EXPECT_THAT(outcome, Fails(kNoDevice, "several capture devices match \"simulated\""));
    EXPECT_THAT(outcome.err, HasSubstr("KolmFluxor simulated camera (color)"));
    EXPECT_THAT(outcome.err, HasSubstr("KolmFluxor simulated camera (mono)"));
}

TEST_F(KolmctlDevice, of_an_unknown_name_is_refused) {
    EXPECT_THAT(GetHue({L"--device", L"webcam"}), Fails(kNoDevice, "no capture device is called \"webcam\""));
}

TEST_F(KolmctlDevice, of_another_kind_is_refused) {
    const COtherDevice plain(L"Plain", CLSID_SampleGrabber);

    EXPECT_THAT(GetHue({L"--device", L"Plain"}), Fails(kNoDevice, "\"Plain\" does not offer the property set"));
}

TEST_F(KolmctlDevice, is_missing_without_the_module) {
    Module().Unregister();

    EXPECT_THAT(GetHue({}), Fails(kNoDevice, "no capture device offers the property set"));
    EXPECT_THAT(GetHue({L"--device", L"color"}), Fails(kNoDevice, "does not offer the property set"));
    const ProcessOutcome simulated = GetHue({L"--simulate"});
    EXPECT_THAT(simulated, Fails(kNoDevice, "the module is not registered"));
    EXPECT_THAT(simulated.err, HasSubstr("\\kolmfluxor.dll\"\n"));
}

TEST_F(KolmctlDevice, is_missing_when_the_simulated_camera_is_not_registered) {
    CaptureFilter().Unregister();

    const ProcessOutcome outcome = GetHue({L"--simulate"});

    EXPECT_THAT(outcome, Fails(kNoDevice, "the simulated camera is not registered"));
    EXPECT_THAT(outcome.err, HasSubstr("regsvr32 \""));
    EXPECT_THAT(outcome.err, HasSubstr("\\simulator\\kolmsimcam.ax\"\n"));
}

TEST_F(KolmctlDevice, simulated_belongs_to_the_folder_of_the_program) {
    const CCopiedSimulator copy;
    {
        const CRegistrar registrar(copy.Path(L"kolmsimcam.ax"));
        registrar.Register();
    }

    EXPECT_THAT(GetHue({L"--simulate"}), Fails(kNoDevice, "belongs to another folder"));
    EXPECT_THAT(GetHue({L"--device", L"color"}), Prints(kHue)) << "any registered camera works by name";
}

TEST_F(KolmctlDevice, that_cannot_be_opened_is_explained_in_the_words_of_the_system) {
    const CCopiedSimulator copy;
    {
        const CRegistrar registrar(copy.Path(L"kolmsimcam.ax"));
        registrar.Register();
    }
    ASSERT_TRUE(::DeleteFileW(copy.Path(L"ksproxy.ax").c_str()));

    const ProcessOutcome outcome = GetHue({L"--device", L"color"});

    EXPECT_THAT(outcome, Fails(kRefused, "cannot open \"KolmFluxor simulated camera (color)\": 0x8007007E ("));
    EXPECT_THAT(outcome.err, Not(HasSubstr("no text is known")));
}

TEST_F(KolmctlDevice, simulated_comes_in_two_variants) {
    EXPECT_THAT(GetHue({L"--simulate"}), Prints(kHue));
    EXPECT_THAT(GetHue({L"--simulate=color"}), Prints(kHue));
    EXPECT_THAT(GetHue({L"--simulate=mono"}), Fails(kRefused, "cannot read hue"));
    EXPECT_THAT(GetHue({L"--simulate=blue"}), Fails(kUsage, "\"blue\" is neither mono nor color"));
}

TEST_F(KolmctlDevice, cannot_be_both_named_and_simulated) {
    EXPECT_THAT(GetHue({L"--simulate", L"--device", L"color"}), Fails(kUsage, "--device excludes --simulate"));
}

}  // namespace
}  // namespace kolmfluxor::test
