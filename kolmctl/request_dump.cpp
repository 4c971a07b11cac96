#include "request_dump.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <span>
#include <vector>

#include "hresult_text.h"
#include "text.h"

namespace kolmctl {
namespace {

constexpr std::size_t kHeaderBytes = 24;  // property set, property id, flags
constexpr std::size_t kWordsPerLine = 4;

using Bytes = std::span<const std::uint8_t>;

const char* Direction(std::uint32_t flags) {
    switch (flags) {
    case 1:
        return "GET";
    case 2:
        return "SET";
    default:
        return "?";
    }
}

/// What follows the header; empty for a record that is too short to have one.
Bytes Payload(const std::uint8_t* record, std::size_t sizeBytes) {
    return record != nullptr && sizeBytes > kHeaderBytes ? Bytes(record, sizeBytes).subspan(kHeaderBytes) : Bytes();
}

/// Little-endian words as eight digits each; bytes that are no whole word at the end as two digits each.
std::vector<std::string> Words(Bytes bytes) {
    std::vector<std::string> words;
    std::array<char, 16> text{};
    for (; bytes.size() >= 4; bytes = bytes.subspan(4)) {
        std::snprintf(text.data(), text.size(), "%02x%02x%02x%02x", bytes[3], bytes[2], bytes[1], bytes[0]);
        words.emplace_back(text.data());
    }
    for (const std::uint8_t byte : bytes) {
        std::snprintf(text.data(), text.size(), "%02x", byte);
        words.emplace_back(text.data());
    }
    return words;
}

/// One line of a dump: some words from an index on, padded to the width of a full line.
std::string WordLine(const std::vector<std::string>& words, std::size_t first) {
    const std::size_t last = std::min(first + kWordsPerLine, words.size());
    std::string line;
    for (std::size_t i = first; i < last; ++i) {
        line += (i == first ? "" : " ") + words[i];
    }
    line.resize(kWordsPerLine * 9 - 1, ' ');
    return line;
}

std::string TextDump(std::size_t number, const kolmsim::SimRequest& request) {
    std::array<char, 96> head{};
    std::snprintf(head.data(), head.size(), "%3zu  %s  property %u  %u bytes  ", number, Direction(request.flags),
                  request.id, request.sizeBytes);
    std::string text = head.data() + HResultText(request.result) + "\n";
    if (request.objection != nullptr) {
        text += std::string("     breaks the driver contract: ") + request.objection + "\n";
    }
    const auto sent = Words(Payload(request.sent, request.sizeBytes));
    const auto answered = Words(Payload(request.answered, request.sizeBytes));
    for (std::size_t i = 0; i < sent.size(); i += kWordsPerLine) {
        std::array<char, 16> offset{};
        std::snprintf(offset.data(), offset.size(), "%8zu  ", kHeaderBytes + 4 * i);
        std::string line = offset.data() + WordLine(sent, i) + "  ->  " + WordLine(answered, i);
        line.erase(line.find_last_not_of(' ') + 1);
        text += line + "\n";
    }
    return text;
}

void AddRow(Table* table, std::size_t number, const kolmsim::SimRequest& request) {
    table->Add({number, Direction(request.flags), request.id, request.sizeBytes,
                Hex32(static_cast<std::uint32_t>(request.result)),
                Join(Words(Payload(request.sent, request.sizeBytes)), " "),
                Join(Words(Payload(request.answered, request.sizeBytes)), " "),
                request.objection != nullptr ? Json(request.objection) : Json(), HResultText(request.result)});
}

}  // namespace

void PrintRequests(kolmsim::ISimulatedCamera& camera, Output& output) {
    Table table("requests", {{"number", "NUMBER", Align::right},
                             {"direction", "DIRECTION", Align::left},
                             {"property", "PROPERTY", Align::right},
                             {"sizeBytes", "BYTES", Align::right},
                             {"result", "RESULT", Align::left},
                             {"sent", "SENT", Align::left},
                             {"answered", "ANSWERED", Align::left},
                             {"objection", "OBJECTION", Align::left},
                             {"resultText", "RESULT IN WORDS", Align::left}});
    std::string text;
    const std::size_t count = camera.RequestCount();
    for (std::size_t i = 0; i < count; ++i) {
        kolmsim::SimRequest request{};
        if (camera.Request(i, &request)) {
            AddRow(&table, i + 1, request);
            text += TextDump(i + 1, request);
        }
    }
    if (output.Format() == OutputFormat::text) {
        output.PrintText("\nDriver requests: " + std::to_string(count) + " (words at offset: sent -> answered)\n" +
                         text);
    } else {
        output.Print(table);
    }
}

}  // namespace kolmctl
