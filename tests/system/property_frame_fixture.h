#pragma once
/// @file  kolmctl's property frame around pages of the simulated color camera.

#include "system/support_kolmctl.h"

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

#include "system/capture_filter_fixture.h"  // first of the platform's: the others need its windows.h

#include "frame/frame_page.h"
#include "frame/property_frame.h"

namespace kolmfluxor::test {

/// The filter of the simulated color camera; nothing of it may be left at the end.
class PropertyFrameTest : public KolmctlTest {
protected:
    void SetUp() override {
        KolmctlTest::SetUp();
        m_filter = BindDevice(kColorCameraName);
        ASSERT_NE(m_filter, nullptr);
    }

    void TearDown() override {
        m_filter.Reset();
        EXPECT_EQ(CModule::Get().CanUnloadNow(), S_OK) << "a page or the property set is left";
        EXPECT_EQ(CallFilterLibrary("DllCanUnloadNow"), S_OK) << "the filter is left";
        KolmctlTest::TearDown();
    }

    /// A frame with pages of a class, one in each of its tabs, shown and painted.
    [[nodiscard]] std::unique_ptr<kolmctl::PropertyFrame> OpenFrame(REFCLSID pageClass, std::size_t tabs = 1) const {
        std::vector<std::unique_ptr<kolmctl::FramePage>> pages;
        for (std::size_t i = 0; i < tabs; ++i) {
            pages.push_back(std::make_unique<kolmctl::FramePage>(pageClass));
            pages.back()->Connect(*m_filter.Get());
        }
        auto frame = std::make_unique<kolmctl::PropertyFrame>(L"frame", std::move(pages));
        frame->Show();
        frame->Settle();
        return frame;
    }

    Microsoft::WRL::ComPtr<IBaseFilter> m_filter;
};

}  // namespace kolmfluxor::test
