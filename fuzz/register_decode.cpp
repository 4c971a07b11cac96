/// @file  Any register with any value: the decoder and the plain transcription of its tables must agree.
///
/// Words of eight bytes each: an address (a number below 358 is a place in the catalogue) and a value. A last word's
/// fraction refuses a line.

#include "registers/decoder.h"

#include <algorithm>
#include <string>
#include <vector>

#include "check.h"
#include "fuzz_input.h"
#include "registers/catalogue.h"
#include "unit/line_list.h"
#include "unit/plain_register_decoder.h"

namespace {

using namespace kolmfluxor;

constexpr char kWhere[] = "register_decode";
constexpr std::size_t kLongestLine = 254;

void Expect(bool holds, const char* what) {
    fuzz::Expect(holds, kWhere, what);
}

std::uint32_t AddressOf(std::uint32_t number) {
    if (number >= kCatalogueSize) return number;
    const CatalogueEntry& entry = Catalogue()[number];
    Expect(FindRegister(entry.name) == &entry, "the catalogue's name leads to its entry");
    const CatalogueEntry* const first = FindRegister(entry.address);
    Expect(first != nullptr && first->address == entry.address, "the catalogue's address leads to an entry of it");
    return entry.address;
}

std::vector<std::string> Decode(std::uint32_t address, std::uint32_t value, std::size_t refused, bool* whole) {
    test::CLineList lines(refused);
    *whole = DecodeRegister(address, value, lines.Root(), lines);
    return lines.Texts();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::CFuzzInput input(data, size);
    while (!input.Empty()) {
        const std::uint32_t address = AddressOf(input.Word());
        const std::uint32_t value = input.Word();
        const std::vector<std::string> expected = test::PlainDecoded(address, value);

        bool whole = false;
        const std::vector<std::string> lines = Decode(address, value, expected.size(), &whole);
        Expect(lines == expected, "the lines are the table's");
        Expect(whole == (expected.size() > 1), "only an address without a layout ends after its value");
        for (const std::string& line : lines)
            Expect(line.size() <= kLongestLine, "a line is no longer than promised");

        // Decoding again, with one line refused, gives the same texts up to that one.
        const std::size_t refused = value % expected.size();
        const std::vector<std::string> part = Decode(address, value, refused, &whole);
        Expect(!whole && part.size() == refused && std::ranges::equal(part, std::span(expected).first(refused)),
               "a refused line ends it and leaves the earlier ones");
    }
    return 0;
}
