#pragma once
/// @file  What a tree view shows.

#include <array>
#include <string>
#include <vector>

#include <windows.h>

#include <commctrl.h>

namespace kolmfluxor::test {

/// Walks a tree view of this process.
class CTreeReader {
public:
    explicit CTreeReader(HWND tree) : m_tree(tree) {}

    struct Item {
        HTREEITEM handle;
        std::string text;  ///< with two blanks in front of it for each level below the root
        LPARAM data;
        bool expanded;
        bool hasChildren;
    };

    /// All items, from top to bottom.
    [[nodiscard]] std::vector<Item> Items() const {
        std::vector<Item> items;
        Collect(Next(nullptr, TVGN_ROOT), 0, &items);
        return items;
    }

    [[nodiscard]] std::vector<std::string> Texts() const {
        std::vector<std::string> texts;
        for (const Item& item : Items())
            texts.push_back(item.text);
        return texts;
    }

    void Collapse(HTREEITEM item) const {
        ::SendMessageA(m_tree, TVM_EXPAND, TVE_COLLAPSE, reinterpret_cast<LPARAM>(item));
    }

private:
    [[nodiscard]] HTREEITEM Next(HTREEITEM item, UINT which) const {
        return reinterpret_cast<HTREEITEM>(
            ::SendMessageA(m_tree, TVM_GETNEXTITEM, which, reinterpret_cast<LPARAM>(item)));
    }

    void Collect(HTREEITEM item, std::size_t depth, std::vector<Item>* items) const {
        for (; item != nullptr; item = Next(item, TVGN_NEXT)) {
            std::array<char, 300> text{};
            TVITEMA query{};
            query.mask = TVIF_HANDLE | TVIF_TEXT | TVIF_PARAM | TVIF_STATE;
            query.hItem = item;
            query.stateMask = TVIS_EXPANDED;
            query.pszText = text.data();
            query.cchTextMax = static_cast<int>(text.size());
            ::SendMessageA(m_tree, TVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&query));
            HTREEITEM const child = Next(item, TVGN_CHILD);
            items->push_back({item, std::string(2 * depth, ' ') + text.data(), query.lParam,
                              (query.state & TVIS_EXPANDED) != 0, child != nullptr});
            Collect(child, depth + 1, items);
        }
    }

    HWND m_tree;
};

}  // namespace kolmfluxor::test
