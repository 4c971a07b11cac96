#pragma once
/// @file  The simulated camera behind its driver.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "model/camera_state.h"
#include "model/render_settings.h"
#include "model/status.h"

namespace kolmsim {

/// Whether a record keeps the driver contract, apart from its values.
struct ContractCheck {
    Status status = Status::ok;
    const char* objection = nullptr;  ///< the rule that is broken, in words; null when none
};

/// Checks only the header of a record: length, property set, direction.
[[nodiscard]] ContractCheck CheckHeader(std::span<const std::uint8_t> record);

/// Behavior on top of a camera's memory; keeps nothing of its own.
///
/// Not locked: whoever shares the state between threads or processes takes a lock around each call.
class Camera {
public:
    /// @param state  must be usable (see IsUsable) and outlive the object
    explicit Camera(CameraState& state) : m_state(state) {}

    /// Checks header, property and size of a record, in the order in which a driver does; values are not looked at.
    [[nodiscard]] ContractCheck Check(std::span<const std::uint8_t> record) const;

    /// Answers one driver request in place, as strictly as a driver may.
    ///
    /// @param record  the whole record, header included; left as it is when the request fails
    [[nodiscard]] Status Answer(std::span<std::uint8_t> record);

    /// A word of a property's 64-byte record as the camera holds it; looking this way lets no time pass.
    ///
    /// @param offset  in bytes from the start of the record: 24 value, 28 mode, 32 modes, 36 minimum, 40 maximum, ...
    /// @return        nothing for a property or an offset that does not exist
    [[nodiscard]] std::optional<std::uint32_t> PropertyWord(std::uint32_t id, std::size_t offset) const;

    /// The camera changes such a word by itself; nothing is checked but that it exists.
    [[nodiscard]] bool SetPropertyWord(std::uint32_t id, std::size_t offset, std::uint32_t word);

    /// The camera has a property no longer, or again; features only.
    [[nodiscard]] bool SetPropertyPresent(std::uint32_t id, bool present);

    /// What a register shows; looking this way lets no time pass.
    [[nodiscard]] std::optional<std::uint32_t> Register(std::uint32_t address) const;

    /// The camera changes a register by itself: as a write where a write acts; one that can only be read shows the
    /// word from now on.
    [[nodiscard]] bool SetRegister(std::uint32_t address, std::uint32_t word);

    /// The memory of one lookup table, values in 16 bits with the high byte first; empty where there is no such table.
    [[nodiscard]] std::span<const std::uint8_t> Lut(std::uint32_t number) const;

    /// One more picture has been taken.
    void CountPicture();

    /// All settings that show in the picture.
    [[nodiscard]] RenderSettings PictureSettings() const;

private:
    CameraState& m_state;
};

}  // namespace kolmsim
