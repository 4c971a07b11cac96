#include "model/register_memory.h"

#include <span>

namespace kolmsim {

std::uint32_t* FindRegister(CameraState& state, std::uint32_t address) {
    if (address % 4 != 0) {
        return nullptr;
    }
    struct Block {
        std::uint32_t base;
        std::span<std::uint32_t> words;
    };
    const Block blocks[] = {
        {kIidcBase, state.iidcRegisters},
        {kFormat7Base, state.format7Registers},
        {kVendorBase, state.vendorRegisters},
    };
    for (const Block& block : blocks) {
        if (address >= block.base && (address - block.base) / 4 < block.words.size()) {
            return &block.words[(address - block.base) / 4];
        }
    }
    return nullptr;
}

Status AnswerRegister(CameraState& state, Record record) {
    std::uint32_t* word = FindRegister(state, record.Word(kOffsetRegisterAddress));
    if (word == nullptr) {
        return Status::invalidAddress;
    }
    if (record.IsSet()) {
        *word = record.Word(kOffsetRegisterValue);
    } else {
        record.SetWord(kOffsetRegisterValue, *word);
    }
    return Status::ok;
}

}  // namespace kolmsim
