#pragma once
/// @file  Page "Direct access" in a frame, for the tests of what it shows and of what it sends.

#include <array>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "support/page_host.h"
#include "support/tree_reader.h"

namespace kolmfluxor::test {

constexpr int kNames = 1152;
constexpr int kAddress = 1046;
constexpr int kValue = 1048;
constexpr int kBits = 1051;
constexpr int kRead = 1049;
constexpr int kWrite = 1050;
constexpr int kTree = 1156;

constexpr ULONG kBrightness = 0xF0F00800;
constexpr ULONG kTestImage = 0xF1000210;

using Texts = std::vector<std::string>;

inline CWireRequest ReadOf(ULONG address) {
    return Get(11, 32).With(24, address);
}

inline CWireRequest WriteOf(ULONG address, ULONG value) {
    return Set(11, 32).With(24, address).With(28, value);
}

/// A color camera and its Direct access page.
class DirectAccessPage : public PageTest {
protected:
    std::unique_ptr<CPageHost> Open() {
        auto host = std::make_unique<CPageHost>(CLSID_KolmFluxorPage_DirectAccess, Object());
        m_opening = Object().Sent();
        return host;
    }
    /// Replaces an edit's text, as pasting does.
    static void Paste(const CPageHost& page, int edit, const char* text) { ::SetWindowTextA(page.Control(edit), text); }
    /// Types over an edit's text, key by key.
    static void Type(const CPageHost& page, int edit, const std::string& text) {
        ::SendMessageA(page.Control(edit), EM_SETSEL, 0, -1);
        for (const char c : text)
            ::SendMessageA(page.Control(edit), WM_CHAR, static_cast<unsigned char>(c), 1);
    }
    static Texts Tree(const CPageHost& page) { return CTreeReader(page.Control(kTree)).Texts(); }
    static std::string Hex(ULONG number) {
        std::array<char, 16> text{};
        std::snprintf(text.data(), text.size(), "%lx", number);
        return text.data();
    }
    ULONG Register(ULONG address) {
        std::uint32_t word = kPoison;
        EXPECT_TRUE(Camera().PeekRegister(address, &word)) << std::hex << address;
        return word;
    }
    static LRESULT HotKey(const CPageHost& page, UINT modifiers, UINT key) {
        return ::SendMessageA(page.Dialog(), WM_HOTKEY, 0, MAKELPARAM(modifiers, key));
    }

    Wire m_opening;  ///< what opening the page sent
};

inline const Texts kBrightnessZero = {"Current",           "  Value: 0x0",   "    Present: 0",
                                      "    AbsControl: 0", "    OnePush: 0", "    OnOff: 0",
                                      "    Auto: 0",       "    Value: 0",   "  Feature: 0xf0f00800"};

}  // namespace kolmfluxor::test
