#pragma once
/// @file  A list of decoded lines, which refuses a line on demand.

#include <cstddef>
#include <deque>
#include <string>
#include <vector>

#include "registers/decoder.h"

namespace kolmfluxor::test {

/// Keeps lines in the order in which they were inserted.
class CLineList final : public RegisterLineSink {
public:
    /// @param refused  number of the line, counted from 0, that cannot be inserted
    explicit CLineList(std::size_t refused = static_cast<std::size_t>(-1)) : m_refused(refused) {}

    Line Insert(Line parent, const char* text) override {
        if (m_asked++ == m_refused) return nullptr;
        m_lines.push_back({text, parent});
        return &m_lines.back();
    }

    /// The parent to decode under.
    [[nodiscard]] Line Root() { return &m_root; }
    /// How often a line was to be inserted.
    [[nodiscard]] std::size_t Asked() const { return m_asked; }

    /// Each line's text, with two blanks in front of it for each level below the root.
    [[nodiscard]] std::vector<std::string> Texts() const {
        std::vector<std::string> texts;
        for (const Row& row : m_lines)
            texts.push_back(std::string(2 * Depth(row), ' ') + row.text);
        return texts;
    }

private:
    struct Row {
        std::string text;
        Line parent;
    };

    /// Levels between a line and the root; a line under something else than a line of this list counts as 99.
    [[nodiscard]] std::size_t Depth(const Row& row) const {
        if (row.parent == &m_root) return 0;
        for (const Row& other : m_lines) {
            if (row.parent == &other) return 1 + Depth(other);
        }
        return 99;
    }

    std::size_t m_refused;
    std::size_t m_asked = 0;
    int m_root = 0;
    std::deque<Row> m_lines;  // whose elements stay where they are
};

/// Decodes one register into a list of texts.
inline std::vector<std::string> Decoded(std::uint32_t address, std::uint32_t value) {
    CLineList list;
    return DecodeRegister(address, value, list.Root(), list) ? list.Texts() : std::vector<std::string>{"refused"};
}

}  // namespace kolmfluxor::test
