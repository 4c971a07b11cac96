#pragma once
/// @file  The driver's door, behind which the fuzzer's input answers; and what went through it.

#include <array>
#include <initializer_list>
#include <utility>
#include <vector>

#include "fuzz_input.h"
#include "platform.h"

namespace kolmfluxor::fuzz {

/// What happened to one request.
struct Request {
    ULONG flags;  ///< 1 GET, 2 SET
    ULONG id;
    std::vector<std::byte> sent;
    std::vector<std::byte> answered;
    HRESULT code;

    /// A word of the answer.
    [[nodiscard]] ULONG Word(ULONG offset) const;
};

/// From now on answers come from this input, and the log is empty.
void OpenDoor(CFuzzInput& input);
/// Empties the log for the next call.
void ForgetRequests();
/// Where the requests come from; a request on any other device ends the program.
[[nodiscard]] HANDLE DoorDevice();
/// All requests of the current call so far.
[[nodiscard]] const std::vector<Request>& Requests();

/// What a call did and what it should have done, told request by request.
class CConversation {
public:
    explicit CConversation(const char* slot) : m_slot(slot) {}

    using Words = std::initializer_list<std::pair<ULONG, ULONG>>;  ///< offset and word

    /// The next request must be this one: these words, and zeros elsewhere behind the header.
    const Request& Next(ULONG flags, ULONG id, ULONG size, Words words = {});
    /// The next request must carry this payload behind the header.
    const Request& Next(ULONG flags, ULONG id, std::span<const std::byte> payload);
    const Request& Get(ULONG id, Words words = {}, ULONG size = 64) { return Next(1, id, size, words); }
    const Request& Set(ULONG id, Words words = {}, ULONG size = 64) { return Next(2, id, size, words); }

    /// How many requests there must have been so far.
    [[nodiscard]] std::size_t Told() const { return m_told; }
    /// There must be no further request.
    void End() const;
    /// Something about this call must hold.
    void Expect(bool holds, const char* what) const;

private:
    const char* m_slot;
    std::size_t m_told = 0;
};

}  // namespace kolmfluxor::fuzz
