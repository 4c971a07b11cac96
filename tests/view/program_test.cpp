/// @file  kolmview.exe from outside: pictures of its window, its messages, its exit codes.

#include "view/viewer_fixture.h"

#include <array>

#include "support/module.h"
#include "support/repeating_thread.h"

namespace kolmfluxor::test {
namespace {

using kolmctl::Picture;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

/// Reads the message boxes that are captioned "kolmview", whoever shows them, and presses OK, as long as it lives.
class CBoxReader {
public:
    /// The texts, in the order of their coming.
    std::vector<std::string> Texts() {
        m_reader.Stop();
        return m_texts;
    }

private:
    void Read() {
        HWND const box = ::FindWindowW(L"#32770", L"kolmview");
        HWND const text = ::GetDlgItem(box, 0xFFFF);
        if (text == nullptr || !::IsWindowVisible(box)) return;
        if (box != m_known) {
            std::array<char, 4096> characters{};
            ::SendMessageA(text, WM_GETTEXT, characters.size(), reinterpret_cast<LPARAM>(characters.data()));
            m_texts.emplace_back(characters.data());
            m_known = box;
        }
        ::PostMessageW(box, WM_COMMAND, IDOK, 0);
    }

    HWND m_known = nullptr;
    std::vector<std::string> m_texts;
    CRepeatingThread m_reader{[this] { Read(); }};  // last: it uses what is above
};

class KolmviewProgram : public ViewerTest {
protected:
    static ProcessOutcome Kolmview(const std::vector<std::wstring>& arguments) {
        return RunProcess(CModule::BesideTheTests(L"kolmview.exe"), arguments);
    }
};

TEST_F(KolmviewProgram, picture_shows_the_window_with_the_cameras_picture) {
    ASSERT_TRUE(OpenCamera()->PokeRegister(0xF1000210, 0x80000000 | 1)) << "KolmTestImage: a gray ramp, standing still";

    const ProcessOutcome outcome = Kolmview({L"--simulate", L"--picture", m_file});

    EXPECT_EQ(outcome.exitCode, kSuccess) << outcome.err;
    EXPECT_EQ(outcome.out + outcome.err, "");
    const Picture picture = ReadPng(m_file);
    ASSERT_EQ(picture.width, 640u);
    ASSERT_GT(picture.height, 500u) << "histogram and buttons stand below";
    std::vector<std::uint8_t> seen(640 * 480);
    const UniqueCamera camera = OpenCamera();
    ASSERT_TRUE(camera->RenderFrame({.compression = 0x30303859,
                                     .bitsPerPixel = 8,
                                     .width = 640,
                                     .height = 480,
                                     .number = 0,
                                     .data = seen.data(),
                                     .sizeBytes = seen.size()}));
    std::size_t wrong = 0;
    for (std::size_t i = 0; i < seen.size(); ++i) {
        const BYTE* const pixel = &picture.pixels[i / 640 * picture.RowBytes() + i % 640 * 3];
        wrong += pixel[0] == seen[i] && pixel[1] == seen[i] && pixel[2] == seen[i] ? 0U : 1U;
    }
    EXPECT_EQ(wrong, 0u);
}

TEST_F(KolmviewProgram, picture_without_a_camera_is_an_error_on_the_stream_and_in_the_exit_code) {
    Module().Unregister();

    const ProcessOutcome outcome = Kolmview({L"--simulate", L"--picture", m_file});

    EXPECT_EQ(outcome.exitCode, kNoDevice);
    EXPECT_THAT(outcome.err, HasSubstr("kolmview: the simulated camera does not offer the property set"));
    EXPECT_EQ(::GetFileAttributesW(m_file.c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(KolmviewProgram, picture_that_cannot_be_written_is_an_error) {
    const ProcessOutcome outcome = Kolmview({L"--simulate", L"--picture", L"C:\\no such folder\\a.png"});

    EXPECT_EQ(outcome.exitCode, kRefused);
    EXPECT_THAT(outcome.err, HasSubstr("kolmview: cannot write \"C:\\no such folder\\a.png\": 0x80070003"));
}

TEST_F(KolmviewProgram, picture_of_a_camera_that_sends_none_is_an_error) {
    ASSERT_TRUE(OpenCamera()->PokeRegister(kTriggerMode, kTriggerOn));

    const ProcessOutcome outcome = Kolmview({L"--simulate", L"--picture", m_file});

    EXPECT_EQ(outcome.exitCode, kRefused);
    EXPECT_THAT(outcome.err, HasSubstr("kolmview: The camera waits for its trigger."));
}

TEST_F(KolmviewProgram, wrong_usage_is_told_in_a_box_or_on_the_stream) {
    CBoxReader reader;
    EXPECT_EQ(Kolmview({L"--simulate=blue"}).exitCode, kUsage);
    EXPECT_EQ(Kolmview({L"--still", L"a.jpg"}).exitCode, kUsage);
    const std::vector<std::string> texts = reader.Texts();
    EXPECT_THAT(
        texts, ElementsAre(HasSubstr("\"blue\" is neither mono nor color"), HasSubstr("\"a.jpg\" is not a .png file")));

    const ProcessOutcome outcome = Kolmview({L"--picture", L"a.png", L"--simulate", L"--device", L"0"});
    EXPECT_EQ(outcome.exitCode, kUsage);
    EXPECT_THAT(outcome.err, HasSubstr("--device excludes --simulate"));
}

TEST_F(KolmviewProgram, help_and_version_are_told_in_a_box) {
    CBoxReader reader;
    EXPECT_EQ(Kolmview({L"--help"}).exitCode, kSuccess);
    EXPECT_EQ(Kolmview({L"--version"}).exitCode, kSuccess);
    EXPECT_THAT(reader.Texts(), ElementsAre(HasSubstr("--still FILE"), HasSubstr("kolmview 0.")));
}

}  // namespace
}  // namespace kolmfluxor::test
