#pragma once
/// @file  What a setting of a camera is: its fields by name, and where the camera keeps them.

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include <kolmfluxor/features.h>
#include <kolmfluxor/property_set.h>

#include "output.h"

namespace kolmctl {

/// How a field's word looks in a file.
enum class FieldKind {
    number,        ///< unsigned, as wide as its bits
    signedNumber,  ///< 32 bits
    flag,          ///< false or true
    choice,        ///< one of the field's names
    speed,         ///< a bus speed, as in "S400"
    mode,          ///< a lasting mode of a feature, as in "manual"
    videoMode,     ///< as in "f7m0"
    pixels,        ///< a pixel format, as in "Mono8"
    rate,          ///< frames per second
};

/// A part of a setting.
struct SettingField {
    const char* key;
    FieldKind kind = FieldKind::number;
    const char* reg = nullptr;  ///< of a setting in registers: the register's name; '#' stands for the setting's number
    unsigned msb = 31;          ///< bits of a register, or of a number
    unsigned lsb = 0;
    std::size_t word = 0;  ///< of a setting in words: its place
    std::span<const char* const> names{};

    /// The highest word that the field takes.
    [[nodiscard]] constexpr std::uint32_t Most() const {
        return msb - lsb == 31 ? 0xFFFFFFFF : (std::uint32_t{1} << (msb - lsb + 1)) - 1;
    }
};

/// Where a setting is kept.
enum class SettingKind {
    feature,    ///< value and mode, by the generic feature operations
    registers,  ///< bits of registers
    words,      ///< words that methods of the interface of their own read and write
    format,     ///< the capture pin's format
};

using SettingWords = std::array<ULONG, 6>;

struct WordAccess {
    HRESULT (*read)(kolmfluxor::IKolmFluxorPropertySet& camera, SettingWords& words) = nullptr;
    HRESULT (*write)(kolmfluxor::IKolmFluxorPropertySet& camera, const SettingWords& words) = nullptr;
};

/// Settings that are alike but for their number, or one without.
struct SettingRow {
    const char* name;  ///< '#' stands for the number
    SettingKind kind = SettingKind::registers;
    std::span<const SettingField> fields;
    unsigned first = 0;
    unsigned count = 1;

    kolmfluxor::FeatureId feature{};  ///< of the kind `feature`
    /// A feature in whose automatic modes the camera chooses this setting's numbers too; 0 for none.
    kolmfluxor::FeatureId follows{};

    /// Of the kind `registers`: a register that tells whether the camera has the setting, when one of these bits is
    /// set.
    const char* presentIn = nullptr;
    std::uint32_t presentBits = 0x80000000;
    std::uint32_t commands = 0;  ///< bits that make the camera do something, never written as 1

    WordAccess access{};
};

/// One setting of a camera.
struct Setting {
    const SettingRow* row;
    unsigned number;

    /// As files name it.
    [[nodiscard]] std::string Name() const;
    /// The name of a register of its row.
    [[nodiscard]] std::string Register(const char* pattern) const;
    /// Null when it has no field of this name.
    [[nodiscard]] const SettingField* FindField(const std::string& key) const;
};

/// A field's word as files have it. @param field  one that is a word
[[nodiscard]] Json WordToJson(const SettingField& field, std::uint32_t word);

/// Reverses WordToJson. @param value  one that Complaint accepts
[[nodiscard]] std::uint32_t WordOfJson(const SettingField& field, const Json& value);

/// What is wrong with a value from a file, as in "is not a number from 0 to 255"; empty when nothing is.
[[nodiscard]] std::string Complaint(const SettingField& field, const Json& value);

}  // namespace kolmctl
