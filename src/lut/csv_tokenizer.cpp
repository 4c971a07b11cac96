#include "lut/csv_tokenizer.h"

#include <bit>
#include <cstring>

#include "lut/csv_scan.h"

namespace kolmfluxor {
namespace {

/// The token that is being put together out of runs of characters.
class CurrentToken {
public:
    explicit CurrentToken(char* text) noexcept : m_text(text) {}

    /// The characters since the last call, up to `end`, belong to the token; the one at `end` does not.
    void Append(std::size_t end) noexcept {
        if (m_begin == m_end) {
            m_begin = m_run;
            m_end = end;
        } else {
            // Runs with characters between them that do not count; rare.
            std::memmove(m_text + m_end, m_text + m_run, end - m_run);
            m_end += end - m_run;
        }
        m_run = end + 1;
    }
    /// What comes now belongs to a new token.
    void Start() noexcept { m_begin = m_end = m_run; }

    [[nodiscard]] std::size_t Begin() const noexcept { return m_begin; }
    [[nodiscard]] std::size_t End() const noexcept { return m_end; }

private:
    char* m_text;
    std::size_t m_begin = 0;
    std::size_t m_end = 0;
    std::size_t m_run = 0;  ///< where the characters begin that `Append` has not seen
};

}  // namespace

void CsvTokenize(char* text, std::size_t length, CsvLine* line) noexcept {
    CsvState state = CsvState::open;
    CurrentToken token(text);
    line->count = 0;
    line->end = 0;
    const auto endToken = [&] {
        if (line->count != 0) {
            const std::size_t between = token.Begin() - line->end;
            line->unused[line->count - 1] = static_cast<std::uint8_t>(between - 1);  // 1 for the separator
        }
        line->unused[line->count] = 0;
        line->begins[line->count++] = static_cast<std::uint8_t>(token.Begin());
        line->end = token.End();
    };
    for (std::size_t block = 0; block < length; block += kCsvBlock) {
        for (std::uint64_t marks = CsvMarks(text + block, length - block); marks != 0; marks &= marks - 1) {
            const std::size_t at = block + static_cast<std::size_t>(std::countr_zero(marks));
            const CsvStep step = CsvNext(state, CsvClassOf(text[at]));
            state = step.next;
            if (step.action == CsvAction::append) continue;
            token.Append(at);
            if (step.action == CsvAction::drop) continue;
            endToken();
            token.Start();
        }
    }
    token.Append(length);
    if (CsvKeepsLastToken(state)) endToken();
}

}  // namespace kolmfluxor
