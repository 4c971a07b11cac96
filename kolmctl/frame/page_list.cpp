#include "frame/page_list.h"

#include <algorithm>

#include <objbase.h>
#include <ocidl.h>
#include <wrl/client.h>

#include "errors.h"
#include "text.h"

namespace kolmctl {
namespace {

/// The class ids that an object names, in memory of the task allocator.
class PageIds {
public:
    explicit PageIds(IUnknown& object) {
        Microsoft::WRL::ComPtr<ISpecifyPropertyPages> specify;
        Check(object.QueryInterface(__uuidof(ISpecifyPropertyPages), reinterpret_cast<void**>(specify.GetAddressOf())),
              "the device has no property pages");
        Check(specify->GetPages(&m_list), "cannot read the list of property pages");
    }
    ~PageIds() { ::CoTaskMemFree(m_list.pElems); }
    PageIds(const PageIds&) = delete;
    PageIds& operator=(const PageIds&) = delete;

    [[nodiscard]] const CLSID* begin() const { return m_list.pElems; }
    [[nodiscard]] const CLSID* end() const { return m_list.pElems + m_list.cElems; }

private:
    CAUUID m_list{};
};

/// The class's name where it is registered, else its id.
std::string NameOf(REFCLSID classId) {
    LPOLESTR text = nullptr;
    if (::OleRegGetUserType(classId, USERCLASSTYPE_FULL, &text) != S_OK && ::StringFromCLSID(classId, &text) != S_OK) {
        return "?";
    }
    std::string name = ToUtf8(text);
    ::CoTaskMemFree(text);
    return name;
}

std::string TitlesOf(const FramePages& pages) {
    std::vector<std::string> titles;
    for (const auto& page : pages) {
        titles.push_back(ToUtf8(page->Title()));
    }
    return Join(titles, ", ");
}

}  // namespace

PageList CreatePages(IUnknown& object) {
    PageList list;
    for (const CLSID& classId : PageIds(object)) {
        try {
            list.pages.push_back(std::make_unique<FramePage>(classId));
        } catch (const CallError& error) {
            list.notes.push_back("page " + NameOf(classId) + " is left out: " + error.what());
        }
    }
    return list;
}

void ChoosePages(PageList* list, const std::vector<std::string>& titles) {
    if (titles.empty()) {
        return;
    }
    std::vector<std::size_t> order;
    for (const std::string& title : titles) {
        const std::wstring wanted = ToUtf16(title);
        const auto page = std::ranges::find_if(
            list->pages, [&](const auto& candidate) { return EqualWithoutCase(candidate->Title(), wanted); });
        if (page == list->pages.end()) {
            std::vector<std::string> hint = {"there are: " + TitlesOf(list->pages)};
            hint.insert(hint.end(), list->notes.begin(), list->notes.end());
            throw UsageError("no page \"" + title + "\"", Join(hint, "\n"));
        }
        const auto index = static_cast<std::size_t>(page - list->pages.begin());
        if (std::ranges::find(order, index) == order.end()) {
            order.push_back(index);
        }
    }
    FramePages chosen;
    for (const std::size_t index : order) {
        chosen.push_back(std::move(list->pages[index]));
    }
    list->pages = std::move(chosen);
}

}  // namespace kolmctl
