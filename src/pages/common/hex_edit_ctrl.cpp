#include "pages/common/hex_edit_ctrl.h"

#include <array>
#include <string>

#include "base/hex_text.h"

namespace kolmfluxor {
namespace {

std::string TextOf(HWND edit) {
    std::array<char, 256> text{};  // 255 characters and a NUL
    ::GetWindowTextA(edit, text.data(), static_cast<int>(text.size()));
    return text.data();
}

}  // namespace

std::uint32_t CHexEditCtrl::Value() const {
    return ParseHexText(TextOf(Item(m_id)));
}

void CHexEditCtrl::SetValue(std::uint32_t value) const {
    SetItemText(m_id, HexText(value).c_str());
}

void CHexEditCtrl::Cut() const {
    const std::string typed = TextOf(Item(m_id));
    if (const auto cut = CutHexText(typed)) SetItemText(m_id, std::string(*cut).c_str());
}

}  // namespace kolmfluxor
