#include "pages/format_edit.h"

#include "pages/common/kolm_fluxor_exception.h"

namespace kolmfluxor {

void RunFormatEdit(HWND owner, const std::function<void()>& edit) {
    try {
        edit();
    } catch (const CKolmFluxorException& e) {
        ::MessageBoxA(owner, e.what(), "Error", MB_OK);
    } catch (...) {
        // The field keeps what the user typed.
    }
}

}  // namespace kolmfluxor
