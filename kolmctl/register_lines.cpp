#include "register_lines.h"

#include <registers/decoder.h>

#include "text.h"

namespace kolmctl {
namespace {

/// Takes the lines apart: under the root come the value and then the layout, under the value the fields.
class LineCollector final : public kolmfluxor::RegisterLineSink {
public:
    Line Insert(Line parent, const char* text) override {
        if (parent == &m_value) {
            lines.fields.push_back(Windows1252ToUtf8(text));
            return &m_field;
        }
        if (!m_hasValue) {
            m_hasValue = true;
            return &m_value;
        }
        lines.layout = Windows1252ToUtf8(text);
        return &m_layout;
    }

    RegisterLines lines;

private:
    bool m_hasValue = false;
    // Only their addresses count.
    char m_value = 0;
    char m_layout = 0;
    char m_field = 0;
};

}  // namespace

std::optional<RegisterLines> DecodeLines(std::uint32_t address, std::uint32_t value) {
    LineCollector collector;
    if (!kolmfluxor::DecodeRegister(address, value, nullptr, collector)) {
        return std::nullopt;
    }
    return collector.lines;
}

Json FieldsCell(OutputFormat format, const std::vector<std::string>& fields) {
    return format == OutputFormat::json ? Json(fields) : Json(Join(fields, ", "));
}

}  // namespace kolmctl
