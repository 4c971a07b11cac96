/// @file  Page "Info" of the built module on the simulated camera: requests, template, icon.

#include <array>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <windows.h>

#include "support/counted_task_memory.h"
#include "support/page_host.h"

namespace kolmfluxor::test {
namespace {

constexpr ULONG kInfoId = 9;
constexpr ULONG kRegisterId = 11;
constexpr ULONG kFigureId = 56;
constexpr ULONG kFigureWord = 28;

/// The labels of the template in its order, and the value that each stands beside; 1042 has none of its own.
struct LabelRow {
    const char* text;
    int value;
};
constexpr LabelRow kLabels[] = {
    {"Camera:", 1044},
    {"Serial number:", 1052},
    {"Driver:", 1043},
    {"MC version", 1045},
    {"FPGA version", 1046},
    {"Bytes per packet used", 1157},
    {"Bytes per packet free", 1158},
    {"Channels used hi", 1159},
    {"Channels used lo", 1160},
};

const int kValues[] = {1044, 1042, 1052, 1043, 1045, 1046, 1157, 1158, 1159, 1160};

RECT PlaceOf(HWND control) {
    RECT place{};
    EXPECT_TRUE(::GetWindowRect(control, &place));
    return place;
}

class InfoPageOnCamera : public PageTest {
protected:
    std::unique_ptr<CPageHost> Open() {
        auto host = std::make_unique<CPageHost>(CLSID_KolmFluxorPage_Info, Object());
        m_opening = Object().Sent();
        return host;
    }
    /// What the requests were for: an id, or "56/selector". Each figure comes with three reads of registers.
    static std::vector<std::string> Summary(const Wire& requests) {
        std::vector<std::string> summary;
        for (const CWireRequest& request : requests) {
            EXPECT_EQ(request.Word(20), 1u) << "a SET was sent";
            const std::string id = std::to_string(request.Word(16));
            summary.push_back(request.Word(16) == kFigureId ? id + "/" + std::to_string(request.Word(24)) : id);
        }
        return summary;
    }

    Wire m_opening;  ///< what opening the page sent
};

std::vector<std::string> AllRequests() {
    std::vector<std::string> all = {std::to_string(kInfoId)};
    for (const char* figure : {"56/5", "56/6", "56/41", "56/42", "56/43", "56/44"}) {
        all.insert(all.end(), 3, std::to_string(kRegisterId));
        all.emplace_back(figure);
    }
    return all;
}

TEST_F(InfoPageOnCamera, shows_what_the_camera_tells) {
    const auto page = Open();
    EXPECT_EQ(page->Text(1044), "KolmFluxor");
    EXPECT_EQ(page->Text(1042), "Simulated camera (color)");
    EXPECT_EQ(page->Text(1043), "Simulated driver 1.0");
    EXPECT_EQ(page->Text(1052), "00010002");
    const std::pair<ULONG, int> kDecimals[] = {{41, 1157}, {42, 1158}};
    for (const auto& [selector, control] : kDecimals) {
        ULONG value = kPoison;
        ASSERT_EQ(Object()->GetProperty56Composite(selector, &value), S_OK);
        EXPECT_EQ(page->Text(control), std::to_string(value));
    }
    EXPECT_EQ(page->Text(1045).size(), 8u);
    EXPECT_EQ(page->Text(1046).size(), 8u);
}

TEST_F(InfoPageOnCamera, opening_asks_each_part_once_and_writes_nothing) {
    const auto page = Open();
    EXPECT_EQ(Summary(m_opening), AllRequests());
    EXPECT_EQ(page->Page()->IsPageDirty(), S_FALSE);
    EXPECT_TRUE(page->Site().reports.empty());
}

TEST_F(InfoPageOnCamera, Apply_asks_all_of_it_again) {
    const auto page = Open();
    Object().Patch(kFigureId, kFigureWord, 0x80000001);
    EXPECT_EQ(page->Page()->Apply(), S_OK);
    EXPECT_EQ(Summary(Object().Sent()), AllRequests());
    EXPECT_EQ(page->Text(1159), "10000000000000000000000000000001");
    EXPECT_EQ(page->Text(1160), "10000000000000000000000000000001");
    EXPECT_EQ(page->Text(1157), "-2147483647");
    EXPECT_EQ(page->Text(1045), "00.00.01");
}

TEST_F(InfoPageOnCamera, each_failing_figure_keeps_its_placeholder_while_the_rest_fills) {
    // Request 1 is the camera information; then come three registers and a figure, six times.
    constexpr int kFigures[] = {1045, 1046, 1157, 1158, 1159, 1160};
    for (int i = 0; i < 6; ++i) {
        SCOPED_TRACE(kFigures[i]);
        Renew(L"color");
        Object().FailNth(1 + 4 * (i + 1), E_ACCESSDENIED);
        const auto page = Open();
        EXPECT_EQ(Summary(m_opening), AllRequests());
        for (const int id : kValues) {
            const std::string text = page->Text(id);
            EXPECT_EQ(text == "Statisch" || text == "Static", id == kFigures[i]) << id << ": " << text;
        }
    }
}

TEST_F(InfoPageOnCamera, a_failing_camera_information_keeps_its_placeholders_while_the_rest_fills) {
    Object().FailNth(1, E_ACCESSDENIED);
    const auto page = Open();
    for (const int id : {1044, 1042, 1043, 1052})
        EXPECT_EQ(page->Text(id), "Statisch") << id;
    for (const int id : {1045, 1046, 1157, 1158, 1159, 1160})
        EXPECT_EQ(page->Text(id).find("Stati"), std::string::npos) << id;
}

TEST_F(InfoPageOnCamera, an_unplugged_camera_shows_placeholders) {
    Camera().AddFault({.nth = 0, .action = kolmsim::SimFaultAction::fail, .code = E_FAIL});
    const auto page = Open();
    for (const int id : kValues)
        EXPECT_EQ(page->Text(id), id < 1157 ? "Statisch" : "Static") << id;
    EXPECT_EQ(page->Page()->Apply(), S_OK);
}

TEST_F(InfoPageOnCamera, frees_what_the_camera_information_allocates) {
    const CCountedTaskMemory memory;
    const auto page = Open();
    EXPECT_EQ(page->Page()->Apply(), S_OK);
    EXPECT_GE(memory.Allocated(), 6);
    EXPECT_EQ(memory.Live(), 0u);
}

TEST_F(InfoPageOnCamera, texts_of_full_fields_are_cut_to_63_characters) {
    for (ULONG at = 24; at < 24 + 3 * 256; at += 4)
        Object().Patch(kInfoId, at, 0x58585858);
    const auto page = Open();
    for (const int id : {1044, 1042, 1043})
        EXPECT_EQ(page->Text(id), std::string(63, 'X')) << id;
}

TEST_F(InfoPageOnCamera, template_has_icon_boxes_and_a_label_beside_each_value) {
    const auto page = Open();
    std::vector<std::string> boxes;
    std::vector<std::pair<std::string, RECT>> labels;
    bool icon = false;
    for (HWND each = ::GetWindow(page->Dialog(), GW_CHILD); each != nullptr; each = ::GetWindow(each, GW_HWNDNEXT)) {
        std::array<char, 64> text{};
        ::GetWindowTextA(each, text.data(), static_cast<int>(text.size()));
        std::array<char, 64> name{};
        ::GetClassNameA(each, name.data(), static_cast<int>(name.size()));
        if (name.data() == std::string("Button")) {
            boxes.emplace_back(text.data());
        } else if ((::GetWindowLongA(each, GWL_STYLE) & SS_TYPEMASK) == SS_ICON) {
            icon = ::SendMessageA(each, STM_GETICON, 0, 0) != 0;
        } else if (::GetDlgCtrlID(each) < 1000) {
            labels.emplace_back(text.data(), PlaceOf(each));
        }
    }
    EXPECT_TRUE(icon);
    EXPECT_EQ(boxes, (std::vector<std::string>{"Camera info", "Bus info"}));
    ASSERT_EQ(labels.size(), std::size(kLabels));
    for (std::size_t i = 0; i < labels.size(); ++i) {
        const auto& [text, label] = labels[i];
        SCOPED_TRACE(text);
        EXPECT_EQ(text, kLabels[i].text);
        const RECT value = PlaceOf(page->Control(kLabels[i].value));
        EXPECT_EQ(label.top, value.top);
        EXPECT_LE(label.right, value.left);
    }
    const RECT vendor = PlaceOf(page->Control(1044));
    const RECT camera = PlaceOf(page->Control(1042));
    EXPECT_EQ(vendor.top, camera.top);
    EXPECT_LE(vendor.right, camera.left);
    EXPECT_LT(vendor.right - vendor.left, camera.right - camera.left);
}

TEST_F(InfoPageOnCamera, the_module_has_its_icon_in_three_sizes) {
    HMODULE const module = ::GetModuleHandleW(CModule::Get().Path().c_str());
    HRSRC const found = ::FindResourceA(module, MAKEINTRESOURCEA(205), MAKEINTRESOURCEA(14 /*group of icons*/));
    ASSERT_NE(found, nullptr);
    const auto* const words = static_cast<const WORD*>(::LockResource(::LoadResource(module, found)));
    ASSERT_EQ(words[2], 3) << "pictures";
    const auto* entry = reinterpret_cast<const BYTE*>(words + 3);
    for (const int width : {16, 32, 48}) {
        EXPECT_EQ(*entry, width);
        entry += 14;  // bytes of an entry
    }
}

}  // namespace
}  // namespace kolmfluxor::test
