#include "registers/decoder.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdio>
#include <iterator>

#include "registers/decoder_table.h"

namespace kolmfluxor {
namespace {

using Line = RegisterLineSink::Line;

constexpr RegisterDecoder kDefaultDecoder[] = {{0, 0, "Default: 0x%x", kDefaultFields}};
static_assert(WellFormed(kDefaultDecoder));

/// By the number of the rate, in frames per second.
constexpr const char* kFrameRates[] = {
    "FPS: 1.875 [0]", "FPS: 3.75 [1]", "FPS: 7.5 [2]", "FPS: 15 [3]",
    "FPS: 30 [4]",    "FPS: 60 [5]",   "FPS: 120 [6]", "FPS: 240 [7]",
};

// Compatibility: only the low byte of the offset counts, so that 0xF0F09100 is the first register of mode 1.
constexpr std::uint32_t kFormat7OffsetMask = 0xFF;

/// The row for an address; null when the table has none.
const RegisterDecoder* Find(std::span<const RegisterDecoder> table, std::uint32_t address) {
    if (address % 4 != 0) return nullptr;
    const auto found = std::ranges::lower_bound(table, address, {}, &RegisterDecoder::last);
    return found != table.end() && found->first <= address ? &*found : nullptr;
}

template <class Argument>
Line InsertFormatted(RegisterLineSink& sink, Line parent, const char* format, Argument value) {
    std::array<char, kLineSize> text{};
    std::snprintf(text.data(), text.size(), format, value);
    return sink.Insert(parent, text.data());
}

Line InsertField(RegisterLineSink& sink, Line parent, const RegisterField& field, std::uint32_t value) {
    const std::uint32_t bits = field.bits.Of(value);
    switch (field.kind) {
    case FieldKind::thousandths:
        return InsertFormatted(sink, parent, field.text, std::bit_cast<std::int32_t>(bits) / 1000.0);
    case FieldKind::frameRate:
        if (bits < std::size(kFrameRates)) return sink.Insert(parent, kFrameRates[bits]);
        break;
    case FieldKind::address:
        return InsertFormatted(sink, parent, field.text, bits * 4);
    case FieldKind::number:
        break;
    }
    return InsertFormatted(sink, parent, field.text, bits);
}

}  // namespace

const RegisterDecoder* DecoderOf(std::uint32_t address) {
    if (IsFormat7(address)) return Find(Format7Decoders(), address & kFormat7OffsetMask);
    for (const auto table : {IidcDecoders(), KolmDecoders()}) {
        if (const RegisterDecoder* const row = Find(table, address)) return row;
    }
    return kDefaultDecoder;
}

bool DecodeRegister(std::uint32_t address, std::uint32_t value, Line parent, RegisterLineSink& sink) {
    Line const valueLine = InsertFormatted(sink, parent, "Value: 0x%x", value);
    if (valueLine == nullptr) return false;

    // Compatibility: the headings of Format 7 registers name the offset, all others the whole address.
    const std::uint32_t shown = IsFormat7(address) ? address & kFormat7OffsetMask : address;
    const RegisterDecoder* const decoder = DecoderOf(address);
    if (decoder == nullptr) return false;

    if (InsertFormatted(sink, parent, decoder->heading, shown) == nullptr) return false;
    return std::ranges::all_of(decoder->fields, [&](const RegisterField& field) {
        return InsertField(sink, valueLine, field, value) != nullptr;
    });
}

}  // namespace kolmfluxor
