#pragma once
/// @file  The viewer's window in this process, on the registered simulated camera.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "system/support_kolmctl.h"

#include "kolmview/resource.h"
#include "kolmview/viewer_window.h"
#include "picture.h"

namespace kolmfluxor::test {

inline constexpr std::uint32_t kTriggerMode = 0xF0F00830;
inline constexpr std::uint32_t kTriggerOn = 0x02000000;
inline constexpr std::uint32_t kIsoEnable = 0xF0F00614;

/// Reads a picture file; one without pixels when that fails.
[[nodiscard]] kolmctl::Picture ReadPng(const std::wstring& file);

/// Makes viewers; nothing of module, filter and camera may be left when they are gone.
class ViewerTest : public KolmctlTest {
protected:
    void SetUp() override;
    void TearDown() override;

    /// Opens a viewer with these arguments and shows it.
    void Open(const std::vector<std::string>& arguments = {"--simulate"});
    /// Ends the viewer as its user does. @return  its exit code
    int Close();
    /// Destroys one that has been closed.
    void Discard() { m_viewer.reset(); }

    [[nodiscard]] kolmview::ViewerWindow& Viewer() { return *m_viewer; }

    /// Handles messages until something holds; false after half a minute.
    template <class Condition> bool Until(Condition&& holds) {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
        while (m_viewer->Settle()) {
            if (holds()) return true;
            if (std::chrono::steady_clock::now() > end) return false;
            ::MsgWaitForMultipleObjects(0, nullptr, FALSE, 50, QS_ALLINPUT);
        }
        return holds();
    }
    /// Handles messages until so many more pictures were shown.
    bool UntilMorePictures(std::uint64_t count = 3);
    bool UntilNotice(const wchar_t* part);

    /// The camera behind the viewer's filter.
    [[nodiscard]] kolmsim::ISimulatedCamera& Simulated();
    [[nodiscard]] IKolmFluxorPropertySet& PropertySet() { return m_viewer->Feed().OpenedCamera()->PropertySet(); }

    [[nodiscard]] HWND Control(int id) const { return ::GetDlgItem(m_viewer->Window(), id); }
    [[nodiscard]] std::wstring TextOf(int id) const;
    void Press(int button) const { ::PostMessageW(Control(button), BM_CLICK, 0, 0); }
    void PressKey(WPARAM key) const;

    /// The pixels of a control, painted anew.
    [[nodiscard]] kolmctl::Picture PaintedBy(int id) const;

    std::wstring m_file;  ///< a name for a .png file that is gone at the end

private:
    std::unique_ptr<kolmview::ViewerWindow> m_viewer;
};

}  // namespace kolmfluxor::test
