#include "kolmview/file_dialog.h"

#include <commdlg.h>

namespace kolmview {

std::wstring AskForPngFile(HWND owner) {
    std::wstring name(32768, L'\0');  // the longest path there is
    name.replace(0, 10, L"camera.png");
    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner;
    dialog.lpstrFilter = L"PNG files\0*.png\0";
    dialog.lpstrFile = name.data();
    dialog.nMaxFile = static_cast<DWORD>(name.size());
    dialog.lpstrDefExt = L"png";
    dialog.Flags = OFN_EXPLORER | OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST | OFN_NOCHANGEDIR | OFN_HIDEREADONLY;
    return ::GetSaveFileNameW(&dialog) ? name.c_str() : L"";
}

}  // namespace kolmview
