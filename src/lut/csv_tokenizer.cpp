#include "lut/csv_tokenizer.h"

namespace kolmfluxor {

void CsvTokenize(char* text, std::size_t length, CsvLine* line) noexcept {
    CsvState state = CsvState::open;
    std::size_t written = 0;
    std::size_t count = 0;
    line->begins[0] = 0;
    line->end = 0;
    for (std::size_t i = 0; i < length; ++i) {
        const CsvStep step = CsvNext(state, CsvClassOf(text[i]));
        state = step.next;
        if (step.action == CsvAction::append) {
            text[written++] = text[i];
        } else if (step.action == CsvAction::endToken) {
            line->end = written++;
            line->begins[++count] = static_cast<std::uint8_t>(written);
        }
    }
    if (CsvKeepsLastToken(state)) {
        line->end = written;
        ++count;
    }
    line->count = count;
}

}  // namespace kolmfluxor
