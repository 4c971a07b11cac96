#include "model/register_memory.h"

#include "model/memory_window.h"
#include "model/register_table.h"

namespace kolmsim {
namespace {

RegisterCell& CellOf(CameraState& state, const RegisterEntry& entry) {
    return state.registers[static_cast<std::size_t>(&entry - RegisterTable().data())];
}

}  // namespace

std::optional<std::uint32_t> ReadRegister(const CameraState& state, std::uint32_t address) {
    if (IsInWindow(address)) {
        return ReadWindowWord(state, address);
    }
    const RegisterEntry* entry = FindRegister(address);
    if (entry == nullptr) {
        return std::nullopt;
    }
    const RegisterCell& cell = state.registers[static_cast<std::size_t>(entry - RegisterTable().data())];
    return entry->rule->read == nullptr || cell.forced != 0 ? cell.word : entry->rule->read(state, address);
}

bool WriteRegister(CameraState& state, std::uint32_t address, std::uint32_t word) {
    if (IsInWindow(address)) {
        WriteWindowWord(state, address, word);
        return true;
    }
    const RegisterEntry* entry = FindRegister(address);
    if (entry == nullptr) {
        return false;
    }
    const RegisterRule& rule = *entry->rule;
    if (rule.write != nullptr) {
        rule.write(state, address, word);
    } else {
        RegisterCell& cell = CellOf(state, *entry);
        cell.word = (cell.word & ~rule.writable) | (word & rule.writable);
    }
    return true;
}

bool ForceRegister(CameraState& state, std::uint32_t address, std::uint32_t word) {
    const RegisterEntry* entry = FindRegister(address);
    if (entry == nullptr || entry->rule->write != nullptr) {
        return WriteRegister(state, address, word);
    }
    CellOf(state, *entry) = {.word = word, .forced = 1};
    return true;
}

void LookAtRegister(CameraState& state, std::uint32_t address) {
    const RegisterEntry* entry = FindRegister(address);
    if (entry != nullptr && entry->rule->look != nullptr) {
        entry->rule->look(state, address);
    }
}

Status AnswerRegister(CameraState& state, Record record) {
    const std::uint32_t address = record.Word(kOffsetRegisterAddress);
    if (record.IsSet()) {
        return WriteRegister(state, address, record.Word(kOffsetRegisterValue)) ? Status::ok : Status::invalidAddress;
    }
    LookAtRegister(state, address);
    const auto word = ReadRegister(state, address);
    if (!word) {
        return Status::invalidAddress;
    }
    record.SetWord(kOffsetRegisterValue, *word);
    return Status::ok;
}

}  // namespace kolmsim
