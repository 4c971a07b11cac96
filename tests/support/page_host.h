#pragma once
/// @file  A property frame for tests: one page in a window, driven by the messages that a user's actions make.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <windows.h>

#include <ocidl.h>

#include "support/page_site.h"
#include "support/property_set_test.h"

namespace kolmfluxor::test {

/// Hosts one page of the built module on a filter with the property-set object.
class CPageHost {
public:
    /// Creates the page, gives it its site and its object, and activates it.
    CPageHost(REFCLSID pageClass, CPropertySetObject& object);
    /// Deactivates, disconnects and releases it; whatever is left over fails the test.
    ~CPageHost();
    CPageHost(const CPageHost&) = delete;
    CPageHost& operator=(const CPageHost&) = delete;

    [[nodiscard]] IPropertyPage* Page() const { return m_page; }
    [[nodiscard]] CPageSite& Site() { return m_site; }
    [[nodiscard]] HWND Dialog() const;
    [[nodiscard]] HWND Control(int id) const;

    /// Deactivates the page and activates it again.
    void Reactivate();
    /// Activates the page after a test has deactivated it.
    void Activate();

    // What the controls show
    [[nodiscard]] std::string Text(int id) const;
    [[nodiscard]] bool IsEnabled(int id) const;
    [[nodiscard]] LONG Position(int trackbar) const;
    [[nodiscard]] LONG RangeMin(int trackbar) const;
    [[nodiscard]] LONG RangeMax(int trackbar) const;
    [[nodiscard]] bool IsChecked(int box) const;
    /// Text of the selected entry; "" without a selection.
    [[nodiscard]] std::string Selected(int combo) const;
    [[nodiscard]] std::vector<std::string> Entries(int combo) const;

    // What a user does
    /// Drags a trackbar's thumb: moves it and sends the scroll message of a drag.
    void Drag(int trackbar, LONG position);
    /// Picks an entry of a list by its text.
    void Pick(int combo, const std::string& text);
    /// Clicks a check box.
    void Click(int box);
    /// Opens or closes a list.
    void Drop(int combo, bool open);
    /// A tick of the page's timer.
    void Tick();
    /// Sends the dialog a notification of a control.
    LRESULT Notify(int id, UINT code);

private:
    HWND m_window;
    CPageSite m_site;
    IPropertyPage* m_page = nullptr;
};

/// Tests of a page on a color camera.
class PageTest : public PropertySetTest {
protected:
    PageTest();
};

}  // namespace kolmfluxor::test
