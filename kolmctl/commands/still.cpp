/// @file  kolmctl still: pictures of the camera in files.

#include <filesystem>
#include <optional>

#include <CLI/CLI.hpp>

#include "arguments.h"
#include "commands/commands.h"
#include "errors.h"
#include "format_choice.h"
#include "picture.h"
#include "still_grabber.h"
#include "text.h"

namespace kolmctl {
namespace {

constexpr std::uint32_t kMostPictures = 10'000;

PictureFile KindOf(const std::filesystem::path& file) {
    const std::wstring extension = file.extension().wstring();
    if (EqualWithoutCase(extension, L".png")) {
        return PictureFile::png;
    }
    if (EqualWithoutCase(extension, L".bmp")) {
        return PictureFile::bmp;
    }
    throw UsageError("\"" + ToUtf8(file.wstring()) + "\" is neither a .png nor a .bmp file");
}

/// The file for one picture of several: "still.png" becomes "still-07.png" for the 7th of 12.
std::filesystem::path NumberedFile(const std::filesystem::path& file, std::uint32_t number, std::uint32_t count) {
    if (count == 1) {
        return file;
    }
    std::wstring digits = std::to_wstring(number);
    digits.insert(0, std::to_wstring(count).size() - digits.size(), L'0');
    std::filesystem::path numbered = file;
    numbered.replace_filename(file.stem().wstring() + L"-" + digits + file.extension().wstring());
    return numbered;
}

class StillCommand final : public Command {
public:
    void Declare(CLI::App& app) override {
        app.add_option("FILE", m_file, "A .png or .bmp file; replaced when it exists")->required()->option_text(" ");
        app.add_option("--format", m_format,
                       "Video format to set the camera to before: index as in\n"
                       "\"kolmctl formats\", or words that tell one format: f7m0,\n"
                       "640x480, Mono8")
            ->option_text("FORMAT");
        app.add_option("--count", m_count, "Take so many pictures, to files with numbers in their names")
            ->option_text("N");
        app.footer(
            "The camera works at 3.75 frames per second from then on, or at the nearest rate of\n"
            "its mode; with its trigger on, the program waits for that.\n\n" +
            app.get_footer());
    }

    void Run(Session& session) override {
        const std::filesystem::path file = ToUtf16(m_file);
        const PictureFile kind = KindOf(file);
        const auto format = m_format ? std::optional<FormatChoice>(*m_format) : std::nullopt;
        const std::uint32_t count = m_count ? ParseNumberOf("count", *m_count) : 1;
        if (count < 1 || count > kMostPictures) {
            throw UsageError("the count must be 1 to " + std::to_string(kMostPictures));
        }

        StillGrabber grabber(session.OpenCamera().Origin());
        if (format) {
            grabber.SetFormat(*format);
        }
        Table table("pictures", {{"file", "FILE", Align::left}, {"size", "SIZE", Align::right, "x"}});
        for (std::uint32_t number = 1; number <= count; ++number) {
            const Picture picture = grabber.Take();
            const std::filesystem::path name = NumberedFile(file, number, count);
            WritePicture(picture, kind, name.wstring());
            table.Add({ToUtf8(name.wstring()), Json::array({picture.width, picture.height})});
        }
        session.Out().Print(table);
    }

private:
    std::string m_file;
    std::optional<std::string> m_format;
    std::optional<std::string> m_count;
};

}  // namespace

std::unique_ptr<Command> MakeStill() {
    return std::make_unique<StillCommand>();
}

}  // namespace kolmctl
