#include "register_map_text.h"

#include <algorithm>
#include <bit>
#include <cctype>
#include <cstdint>
#include <cstdio>
#include <span>
#include <string_view>
#include <vector>

#include "registers/catalogue.h"
#include "registers/decoder_table.h"

namespace kolmfluxor {
namespace {

constexpr char kIntroduction[] =
    "# Camera registers\n"
    "\n"
    "Made by the program `register_map` (`tools/`) from the tables in `src/registers/`; change those, then run it "
    "again.\n"
    "\n"
    "These are the registers that have a name in [kolmctl](user-guide.md#registers) and on the page\n"
    "[\"Direct access\"](user-guide.md#direct-access). Odd spellings belong to the names. A camera need not have "
    "all of\n"
    "them, and may have others, which go by their address.\n"
    "\n"
    "- An address is the low 32 bits of the 1394 address above 0xFFFF 0000 0000. A register is a word of 32 bits.\n"
    "- Bit 31 is the most significant one, which IIDC documents number 0.\n"
    "- The layout is how a value is split into fields where it is shown; its name is the heading there. Labels and\n"
    "  headings, odd ones too, are those that are shown. A register without a layout of its own is shown by the\n"
    "  [default layout](#default-layout), which need not be what the camera means.\n"
    "- [Which feature works on which register](user-guide.md#features-and-registers)\n";

std::string Hex(std::uint32_t number, int digits = 8) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%0*X", digits, static_cast<unsigned>(number));
    return text;
}

/// A text of the tables, which are in Windows code page 1252, of which they use the micro sign beyond ASCII.
std::string Utf8(std::string_view text) {
    std::string result;
    for (const char c : text) {
        if (c == static_cast<char>(0xB5)) result += static_cast<char>(0xC2);
        result += c;
    }
    return result;
}

std::string_view WithoutEnd(std::string_view text, std::string_view end) {
    while (!text.empty() && end.find(text.back()) != std::string_view::npos)
        text.remove_suffix(1);
    return text;
}

/// What stands before the number in a field's line.
std::string Label(const RegisterField& field) {
    const std::string_view text = field.text;
    // The text of a frame rate is for numbers that have none: it ends in the number in brackets.
    const std::size_t end = field.kind == FieldKind::frameRate ? text.find(':') : text.find('%');
    return Utf8(WithoutEnd(text.substr(0, end), " :"));
}

/// A heading's name: its format without the number.
std::string Name(const RegisterDecoder& decoder) {
    const std::string_view format = decoder.heading;
    std::string_view name = format.substr(0, format.find('%'));
    if (name.ends_with("0x")) name.remove_suffix(2);
    if (name.ends_with("x")) name.remove_suffix(1);
    return std::string(WithoutEnd(name, " :"));
}

bool IsDefault(const RegisterDecoder& decoder) {
    return decoder.first == 0 && decoder.fields.data() == kDefaultFields;
}

/// The title of a layout's section, from which its anchor follows.
std::string Title(const RegisterDecoder& decoder, bool format7) {
    if (IsDefault(decoder)) return "Default layout";
    return Name(decoder) + (format7 ? ", offset " + Hex(decoder.first, 2) : ", " + Hex(decoder.first));
}

/// The anchor that a Markdown viewer gives a title: small letters, blanks as hyphens, no punctuation.
std::string Anchor(const std::string& title) {
    std::string anchor = "#";
    for (const char c : title) {
        const auto letter = static_cast<unsigned char>(c);
        if (std::isalnum(letter) != 0 || c == '-' || c == '_') anchor += static_cast<char>(std::tolower(letter));
        if (c == ' ') anchor += '-';
    }
    return anchor;
}

const char* Shown(FieldKind kind, std::string_view format) {
    switch (kind) {
    case FieldKind::address:
        return format.find("%x") != std::string_view::npos ? "an address: the bits x 4, hexadecimal"
                                                           : "an address: the bits x 4, decimal";
    case FieldKind::thousandths:
        return "signed, in thousandths";
    case FieldKind::frameRate:
        return "frames per second: 0 is 1.875, 1 is 3.75, ... 7 is 240";
    case FieldKind::number:
        break;
    }
    return format.find("%x") != std::string_view::npos ? "hexadecimal" : "decimal";
}

std::string Bits(const BitRange& bits) {
    const std::uint32_t mask = bits.Mask();
    const int low = std::countr_zero(mask);
    const int high = 31 - std::countl_zero(mask);
    return high == low ? std::to_string(high) : std::to_string(high) + " to " + std::to_string(low);
}

void AddRegisters(std::string& text, std::string_view title, bool (*wanted)(std::uint32_t)) {
    text += "\n## " + std::string(title) + "\n\n| register | address | layout |\n|---|---|---|\n";
    for (const CatalogueEntry& entry : Catalogue()) {
        const RegisterDecoder* const decoder = DecoderOf(entry.address);
        if (!wanted(entry.address) || decoder == nullptr) continue;
        const std::string link = Anchor(Title(*decoder, IsFormat7(entry.address)));
        text += "| `" + std::string(entry.name) + "` | " + Hex(entry.address) + " | [" +
                (IsDefault(*decoder) ? "default" : Name(*decoder)) + "](" + link + ") |\n";
    }
}

void AddLayout(std::string& text, const RegisterDecoder& decoder, bool format7) {
    text += "\n### " + Title(decoder, format7) + "\n\n";
    if (decoder.last != decoder.first) {
        const int digits = format7 ? 2 : 8;
        text += std::string("The same at each ") + (format7 ? "offset" : "register") + " up to " +
                Hex(decoder.last, digits) + ".\n\n";
    }
    text += "| field | bits | shown as |\n|---|---|---|\n";
    for (const RegisterField& field : decoder.fields) {
        text += "| `" + Label(field) + "` | " + Bits(field.bits) + " | " + Shown(field.kind, field.text) + " |\n";
    }
}

void AddLayouts(std::string& text, std::string_view title, std::span<const RegisterDecoder> decoders, bool format7) {
    text += "\n## " + std::string(title) + "\n";
    for (const RegisterDecoder& decoder : decoders)
        AddLayout(text, decoder, format7);
}

}  // namespace

std::string RegisterMapText() {
    constexpr std::uint32_t kMakersFirst = 0xF1000000;
    constexpr std::uint32_t kNoRegister = 1;  // no table has an odd address, so it is decoded by default
    std::string text = kIntroduction;
    AddRegisters(text, "IIDC registers",
                 [](std::uint32_t address) { return address < kMakersFirst && !IsFormat7(address); });
    AddRegisters(text, "Registers of the Format 7 modes", IsFormat7);
    AddRegisters(text, "The maker's registers", [](std::uint32_t address) { return address >= kMakersFirst; });
    AddLayouts(text, "Layouts of IIDC registers", IidcDecoders(), false);
    AddLayouts(text, "Layouts of the Format 7 modes' registers", Format7Decoders(), true);
    AddLayouts(text, "Layouts of the maker's registers", KolmDecoders(), false);
    AddLayouts(text, "All others", {DecoderOf(kNoRegister), 1}, false);
    return text;
}

}  // namespace kolmfluxor
