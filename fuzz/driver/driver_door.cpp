#include "driver/driver_door.h"

#include <algorithm>
#include <cstring>

#include <kolmfluxor/identifiers.h>

#include "check.h"

namespace kolmfluxor::fuzz {
namespace {

constexpr char kWhere[] = "driver door";
/// More than the longest upload takes: 16,383 blocks of one word, each with a look at the camera, and what is around.
constexpr std::size_t kMostRequests = 33'000;

CFuzzInput* g_input = nullptr;
std::vector<Request> g_requests;
int g_device;

/// What an answer does to the record; any other number leaves it as it was sent.
enum class Answer : std::uint8_t {
    whole = 1,     ///< the record's every byte, its header too
    shortened,     ///< only its first bytes
    oneWord,       ///< the same word everywhere behind the header
    secondWord,    ///< the word at 28 alone: the value of a register
    payload,       ///< all behind the header
    wordAnywhere,  ///< one word at any place
};

void Apply(Answer answer, std::span<std::byte> record) {
    const auto payload = record.subspan(sizeof(KSPROPERTY));
    const auto put = [record](ULONG word, std::size_t offset) {
        if (offset + sizeof word <= record.size()) std::memcpy(record.data() + offset, &word, sizeof word);
    };
    switch (answer) {
    case Answer::whole:
        g_input->Take(record);
        break;
    case Answer::shortened:
        g_input->Take(record.first(std::min<std::size_t>(g_input->Byte(), record.size())));
        break;
    case Answer::oneWord: {
        const ULONG word = g_input->Word();
        for (std::size_t offset = sizeof(KSPROPERTY); offset < record.size(); offset += sizeof word)
            put(word, offset);
        break;
    }
    case Answer::secondWord:
        put(g_input->Number(), 28);
        break;
    case Answer::payload:
        g_input->Take(payload);
        break;
    case Answer::wordAnywhere: {
        const std::size_t place = std::size_t{g_input->Byte()} * 4;
        put(g_input->Number(), place);
        break;
    }
    }
}

/// Mostly S_OK; else any failure, S_FALSE, or any success.
HRESULT CodeOf(unsigned choice) {
    switch (choice) {
    case 5:
        return static_cast<HRESULT>(g_input->Word() | 0x80000000);
    case 6:
        return S_FALSE;
    case 7:
        return static_cast<HRESULT>(g_input->Word() & 0x7FFFFFFF);
    default:
        return S_OK;
    }
}

ULONG SizeOf(ULONG id) {
    switch (id) {
    case 9:
        return 800;
    case 10:
        return 840;
    case 11:
    case 12:
    case 16:
        return 32;
    case 13:
    case 14:
    case 15:
    case 17:
    case 18:
    case 20:
        return 96;
    case 26:
    case 52:
        return 48;
    case 65:
        return 40;
    default:
        return 64;
    }
}

}  // namespace

ULONG Request::Word(ULONG offset) const {
    ULONG word = 0;
    std::memcpy(&word, answered.data() + offset, sizeof word);
    return word;
}

void OpenDoor(CFuzzInput& input) {
    g_input = &input;
    g_requests.clear();
}

void ForgetRequests() {
    g_requests.clear();
}

HANDLE DoorDevice() {
    return &g_device;
}

const std::vector<Request>& Requests() {
    return g_requests;
}

const Request& CConversation::Next(ULONG flags, ULONG id, ULONG size, Words words) {
    std::vector<std::byte> payload(size - sizeof(KSPROPERTY));
    for (const auto& [offset, word] : words)
        std::memcpy(payload.data() + offset - sizeof(KSPROPERTY), &word, sizeof word);
    return Next(flags, id, payload);
}

const Request& CConversation::Next(ULONG flags, ULONG id, std::span<const std::byte> payload) {
    Expect(m_told < g_requests.size(), "a request is missing");
    const Request& request = g_requests[m_told++];
    Expect(request.flags == flags, "a request has the wrong direction");
    Expect(request.id == id, "a request is for the wrong property");
    Expect(std::ranges::equal(std::span(request.sent).subspan(sizeof(KSPROPERTY)), payload),
           "a request carries the wrong payload");
    return request;
}

void CConversation::End() const {
    Expect(m_told == g_requests.size(), "a request is too many");
}

void CConversation::Expect(bool holds, const char* what) const {
    fuzz::Expect(holds, m_slot, what);
}

}  // namespace kolmfluxor::fuzz

HRESULT KsSynchronousDeviceControl(HANDLE device, ULONG control, void* in, ULONG inSize, void* out, ULONG outSize,
                                   ULONG* returned) {
    using namespace kolmfluxor;
    using namespace kolmfluxor::fuzz;
    // Any property can be asked for with the usual record.
    KSPROPERTY header{};
    Expect(device == DoorDevice() && control == IOCTL_KS_PROPERTY && returned != nullptr, kWhere, "the arguments");
    Expect(in != nullptr && in == out && inSize == outSize && inSize >= sizeof header, kWhere, "one record, both ways");
    std::memcpy(&header, in, sizeof header);
    Expect(header.Set == PROPSETID_KolmFluxor && (header.Flags == 1 || header.Flags == 2), kWhere, "the header");
    Expect(inSize == SizeOf(header.Id) || inSize == 64 || (header.Id == 62 && inSize >= 36), kWhere, "the size");
    Expect(g_requests.size() < kMostRequests, kWhere, "a call without an end");

    const std::span record(static_cast<std::byte*>(out), outSize);
    Request request{
        .flags = header.Flags, .id = header.Id, .sent = {record.begin(), record.end()}, .answered = {}, .code = S_OK};
    const unsigned choice = g_input->Byte();
    Apply(Answer{static_cast<std::uint8_t>(choice / 8 % 8)}, record);
    request.code = CodeOf(choice % 8);
    *returned = choice * 0x01010101;  // which nobody looks at
    request.answered.assign(record.begin(), record.end());
    g_requests.push_back(std::move(request));
    return g_requests.back().code;
}
