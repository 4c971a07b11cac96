#include "ksproxy/fault_text.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <iterator>

namespace kolmsim {
namespace {

constexpr char kBlanks[] = " \t";
constexpr std::uint32_t kLongestDelayMs = 600'000;
constexpr std::uint32_t kMostRequests = 1'000'000;  // for a number of a request

struct DirectionRow {
    std::string_view word;
    std::uint32_t flags;
};
constexpr DirectionRow kDirections[] = {{"get", 1}, {"set", 2}, {"any", 0}};

struct ActionRow {
    std::string_view word;
    SimFaultAction action;
};
constexpr ActionRow kActions[] = {
    {"fail", SimFaultAction::fail},   {"short", SimFaultAction::shortAnswer}, {"patch", SimFaultAction::patchAnswer},
    {"delay", SimFaultAction::delay}, {"unplug", SimFaultAction::unplug},     {"answer", SimFaultAction::answer},
};

/// The words of one fault, taken one by one.
class Words {
public:
    Words(std::string_view fault, int number) : m_rest(fault), m_number(number) {}

    /// The next word without taking it; empty behind the last one.
    [[nodiscard]] std::string_view Peek() const {
        const std::size_t start = std::min(m_rest.find_first_not_of(kBlanks), m_rest.size());
        return m_rest.substr(start, m_rest.find_first_of(kBlanks, start) - start);
    }

    std::string_view Take(const char* what) {
        const std::string_view word = Peek();
        if (word.empty()) {
            Complain(std::string(what) + " is missing");
        }
        m_rest.remove_prefix(static_cast<std::size_t>(word.data() - m_rest.data()) + word.size());
        return word;
    }

    /// @param base  of digits without "0x"; with it they are hexadecimal
    std::uint32_t TakeNumber(const char* what, int base, std::uint32_t most = 0xFFFFFFFF) {
        return Number(Take(what), what, base, most);
    }

    [[nodiscard]] std::uint32_t Number(std::string_view word, const char* what, int base, std::uint32_t most) const {
        const bool prefixed = word.starts_with("0x") || word.starts_with("0X");
        const std::string_view digits = prefixed ? word.substr(2) : word;
        std::uint32_t value = 0;
        const char* const digitsEnd = digits.data() + digits.size();
        const auto [end, error] = std::from_chars(digits.data(), digitsEnd, value, prefixed ? 16 : base);
        if (error != std::errc() || end != digitsEnd || value > most) {
            Complain("\"" + std::string(word) + "\" is no " + what);
        }
        return value;
    }

    [[noreturn]] void Complain(const std::string& complaint) const {
        throw FaultTextError("fault " + std::to_string(m_number) + ": " + complaint);
    }

private:
    std::string_view m_rest;
    int m_number;
};

HRESULT TakeCode(Words& words, bool failure) {
    const char* const what = failure ? "code of a failure" : "code of a success";
    const std::string word(words.Peek());
    const auto code = static_cast<HRESULT>(words.TakeNumber(what, 16));
    if (FAILED(code) != failure) {
        words.Complain("\"" + word + "\" is no " + what);
    }
    return code;
}

HRESULT TakeSuccess(Words& words) {
    return words.Peek().empty() ? S_OK : TakeCode(words, false);
}

void TakeAction(Words& words, SimFault* fault) {
    const auto* const row = std::ranges::find(kActions, words.Peek(), &ActionRow::word);
    if (row != std::end(kActions)) {
        words.Take("action");
        fault->action = row->action;
    } else if (words.Peek().empty()) {
        words.Take("action");
    }
    switch (fault->action) {
    case SimFaultAction::fail:
        fault->code = TakeCode(words, true);
        break;
    case SimFaultAction::shortAnswer:
        fault->offset = words.TakeNumber("number of bytes", 10);
        fault->code = TakeSuccess(words);
        break;
    case SimFaultAction::patchAnswer:
        fault->offset = words.TakeNumber("offset in bytes", 10);
        fault->word = words.TakeNumber("word", 16);
        fault->code = TakeSuccess(words);
        break;
    case SimFaultAction::answer:
        fault->code = TakeSuccess(words);
        break;
    case SimFaultAction::delay:
        fault->milliseconds = words.TakeNumber("delay in milliseconds", 10, kLongestDelayMs);
        break;
    case SimFaultAction::unplug:
        break;
    }
}

SimFault ParseFault(Words words) {
    SimFault fault;
    const std::string_view direction = words.Take("direction");
    const auto* const row = std::ranges::find(kDirections, direction, &DirectionRow::word);
    if (row == std::end(kDirections)) {
        words.Complain("\"" + std::string(direction) + "\" is none of get, set and any");
    }
    fault.flags = row->flags;
    if (words.Peek() == "any") {
        words.Take("property");
    } else {
        fault.id = words.TakeNumber("property number", 10);
    }
    fault.nth = 0;
    if (words.Peek().starts_with('#')) {
        const std::string_view nth = words.Take("number of a request");
        fault.nth = static_cast<int>(words.Number(nth.substr(1), "number of a request", 10, kMostRequests));
        if (fault.nth == 0) {
            words.Complain("requests count from #1");
        }
    }
    TakeAction(words, &fault);
    if (!words.Peek().empty()) {
        words.Complain("\"" + std::string(words.Peek()) + "\" is too much");
    }
    return fault;
}

}  // namespace

std::vector<SimFault> ParseFaults(std::string_view text) {
    std::vector<SimFault> faults;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(';'), text.size());
        const std::string_view one = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (one.find_first_not_of(kBlanks) != std::string_view::npos) {
            faults.push_back(ParseFault(Words(one, static_cast<int>(faults.size()) + 1)));
        }
    }
    return faults;
}

}  // namespace kolmsim
