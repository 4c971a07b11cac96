/// @file  kolmctl pages: the camera's property pages, in the system's frame or in one of our own.

#include <iostream>
#include <optional>

#include <olectl.h>

#include <CLI/CLI.hpp>

#include "commands/commands.h"
#include "errors.h"
#include "frame/page_list.h"
#include "frame/property_frame.h"
#include "frame/window_picture.h"
#include "text.h"

namespace kolmctl {
namespace {

/// Wine's own frame never applies a page and never disconnects it.
bool IsWine() {
    return ::GetProcAddress(::GetModuleHandleA("ntdll.dll"), "wine_get_version") != nullptr;
}

/// The system's frame makes pages of its own by their class ids.
void RunSystemFrame(IUnknown& object, const std::wstring& caption, FramePages pages) {
    std::vector<CLSID> classIds;
    for (const auto& page : pages) {
        classIds.push_back(page->ClassId());
    }
    pages.clear();
    IUnknown* objects = &object;
    Check(::OleCreatePropertyFrame(nullptr, 0, 0, caption.c_str(), 1, &objects, static_cast<ULONG>(classIds.size()),
                                   classIds.data(), ::GetUserDefaultLCID(), 0, nullptr),
          "cannot show the system's property frame");
}

void SavePicture(PropertyFrame& frame, const std::string& file) {
    frame.Settle();
    const Picture picture = TakePicture(frame.Window());
    if (picture.IsBlank()) {
        throw Error(ExitCode::refused, "the picture would be empty", "windows are painted on a display only");
    }
    WritePicture(picture, PictureFile::png, ToUtf16(file));
}

class PagesCommand final : public Command {
public:
    void Declare(CLI::App& app) override {
        app.add_option("--page", m_titles,
                       "Show only the page with this title, without case;\n"
                       "may be repeated, the pages come in this order")
            ->option_text("NAME")
            ->allow_extra_args(false);
        auto* const picture = app.add_option("--picture", m_picture,
                                             "Write a picture of the pages' frame, the first page\n"
                                             "chosen, to this PNG file, and end; in our own frame");
        picture->option_text("FILE");
        auto* const own = app.add_flag("--own-frame", m_own, "Use our own frame; the default under Wine");
        own->option_text(" ");
        app.add_flag("--system-frame", m_system, "Use the system's frame; the default elsewhere")
            ->option_text(" ")
            ->excludes(own)
            ->excludes(picture);
    }

    void Run(Session& session) override {
        const Camera& camera = session.OpenCamera();
        IBaseFilter& filter = camera.Filter();
        PageList list = CreatePages(filter);
        if (m_titles.empty() || list.pages.empty()) {
            for (const std::string& note : list.notes) {
                std::cerr << "kolmctl: " << note << "\n";
            }
        }
        if (list.pages.empty()) {
            throw Error(ExitCode::refused, "the device has no property page that can be shown");
        }
        ChoosePages(&list, m_titles);

        const std::wstring caption = ToUtf16(camera.Name());
        if (m_system || (!m_own && !m_picture && !IsWine())) {
            RunSystemFrame(filter, caption, std::move(list.pages));
        } else {
            RunOwnFrame(filter, caption, std::move(list.pages));
        }
    }

private:
    void RunOwnFrame(IUnknown& object, const std::wstring& caption, FramePages pages) const {
        for (const auto& page : pages) {
            page->Connect(object);
        }
        PropertyFrame frame(caption, std::move(pages));
        frame.Show();
        if (m_picture) {
            SavePicture(frame, *m_picture);
        } else {
            frame.Run();
        }
    }

    std::vector<std::string> m_titles;
    std::optional<std::string> m_picture;
    bool m_own = false;
    bool m_system = false;
};

}  // namespace

std::unique_ptr<Command> MakePages() {
    return std::make_unique<PagesCommand>();
}

}  // namespace kolmctl
