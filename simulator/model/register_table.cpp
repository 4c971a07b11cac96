#include "model/register_table.h"

#include <algorithm>
#include <array>

#include "model/register_rules_iidc.h"
#include "model/register_rules_vendor.h"

namespace kolmsim {
namespace {

consteval std::size_t CountOf(std::span<const RegisterRule> rules, bool named) {
    std::size_t count = 0;
    for (const RegisterRule& rule : rules) {
        count += named && rule.nameless ? 0 : std::size_t{rule.count} * rule.blocks;
    }
    return count;
}

constexpr std::size_t kCount = CountOf(kIidcRules, false) + CountOf(kVendorRules, false);
constexpr std::size_t kNamed = CountOf(kIidcRules, true) + CountOf(kVendorRules, true);

consteval std::array<RegisterEntry, kCount> Expand() {
    std::array<RegisterEntry, kCount> entries{};
    std::size_t next = 0;
    for (const std::span<const RegisterRule> rules :
         {std::span<const RegisterRule>(kIidcRules), std::span<const RegisterRule>(kVendorRules)}) {
        for (const RegisterRule& rule : rules) {
            for (std::uint32_t block = 0; block < rule.blocks; ++block) {
                for (std::uint32_t i = 0; i < rule.count; ++i) {
                    entries[next++] = {rule.first + block * rule.blockStep + 4 * i, &rule};
                }
            }
        }
    }
    std::ranges::sort(entries, {}, &RegisterEntry::address);
    return entries;
}

constexpr std::array<RegisterEntry, kCount> kEntries = Expand();

consteval bool WellFormed() {
    for (std::size_t i = 0; i < kEntries.size(); ++i) {
        const bool ascends = i == 0 || kEntries[i - 1].address < kEntries[i].address;
        if (!ascends || kEntries[i].address % 4 != 0) {
            return false;
        }
    }
    return true;
}

static_assert(kCount <= kRegisterCells);
static_assert(kNamed == 358);
static_assert(WellFormed());

std::size_t CellOf(std::uint32_t address) {
    return static_cast<std::size_t>(FindRegister(address) - kEntries.data());
}

}  // namespace

std::span<const RegisterEntry> RegisterTable() {
    return kEntries;
}

std::size_t NamedRegisterCount() {
    return kNamed;
}

const RegisterEntry* FindRegister(std::uint32_t address) {
    const auto found = std::ranges::lower_bound(kEntries, address, {}, &RegisterEntry::address);
    return found != kEntries.end() && found->address == address ? &*found : nullptr;
}

std::uint32_t& StoredWord(CameraState& state, std::uint32_t address) {
    return state.registers[CellOf(address)].word;
}

std::uint32_t StoredWord(const CameraState& state, std::uint32_t address) {
    return state.registers[CellOf(address)].word;
}

void ResetRegisters(CameraState& state) {
    for (std::size_t i = 0; i < kEntries.size(); ++i) {
        state.registers[i] = {.word = kEntries[i].rule->reset, .forced = 0};
    }
}

}  // namespace kolmsim
