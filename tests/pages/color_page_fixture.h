#pragma once
/// @file  Page "Color" in a frame, for the tests of its groups and of its color correction.

#include <memory>
#include <string>

#include "pages/camera_page.h"

namespace kolmfluxor::test {

constexpr int kMatrixGroup = 1100;
constexpr int kMatrixMode = 1093;
constexpr ULONG kMatrixId = 27;
constexpr ULONG kMatrixControl = 0xF10003A0;

/// A coefficient's place in the matrix from 1, its controls, and its registers.
struct CoefficientRow {
    int row, column, edit, upDown;
    ULONG shows;   ///< the register that the edit shows
    ULONG writes;  ///< the register that it writes: that of the place mirrored at the diagonal
};

inline constexpr CoefficientRow kCoefficients[] = {
    {1, 1, 1101, 1108, 0xF10003A4, 0xF10003A4}, {2, 1, 1102, 1071, 0xF10003B0, 0xF10003A8},
    {3, 1, 1103, 1072, 0xF10003BC, 0xF10003AC}, {1, 2, 1060, 1073, 0xF10003A8, 0xF10003B0},
    {2, 2, 1061, 1074, 0xF10003B4, 0xF10003B4}, {3, 2, 1064, 1075, 0xF10003C0, 0xF10003B8},
    {1, 3, 1065, 1076, 0xF10003AC, 0xF10003BC}, {2, 3, 1066, 1077, 0xF10003B8, 0xF10003C0},
    {3, 3, 1067, 1078, 0xF10003C4, 0xF10003C4},
};

[[nodiscard]] inline CWireRequest ReadOf(ULONG address) {
    return Get(11, 32).With(24, address);
}
[[nodiscard]] inline CWireRequest WriteOf(ULONG address, int value) {
    return Set(11, 32).With(24, address).With(28, static_cast<std::uint32_t>(value));
}

/// The switch, and the nine coefficients row by row; the presence is asked for once only.
[[nodiscard]] inline Wire RefreshOfMatrix() {
    Wire wire = {Get(kMatrixId)};
    for (ULONG address = 0xF10003A4; address <= 0xF10003C4; address += 4)
        wire.push_back(ReadOf(address));
    return wire;
}

/// A color camera and its Color page.
class ColorPage : public CameraPage {
protected:
    std::unique_ptr<CPageHost> Open() { return OpenPage(CLSID_KolmFluxorPage_Color); }

    [[nodiscard]] int Register(ULONG address) {
        std::uint32_t word = 0;
        EXPECT_TRUE(Camera().PeekRegister(address, &word));
        return static_cast<int>(word);
    }
    static void ExpectMatrixEnabled(const CPageHost& page, bool enabled) {
        for (const CoefficientRow& row : kCoefficients) {
            EXPECT_EQ(page.IsEnabled(row.edit), enabled) << row.edit;
            EXPECT_EQ(page.IsEnabled(row.upDown), enabled) << row.upDown;
        }
    }
    /// Puts a text into an edit at once, as a program does; the edit reports it.
    static void SetText(const CPageHost& page, int edit, const std::string& text) {
        ::SetWindowTextA(page.Control(edit), text.c_str());
    }
    /// Types keys in place of whatever the edit holds.
    static void Type(const CPageHost& page, int edit, const std::string& keys) {
        ::SendMessageA(page.Control(edit), EM_SETSEL, 0, -1);
        for (const char key : keys)
            ::SendMessageA(page.Control(edit), WM_CHAR, static_cast<WPARAM>(static_cast<unsigned char>(key)), 0);
    }
};

}  // namespace kolmfluxor::test
