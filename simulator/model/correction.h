#pragma once
/// @file  The three picture corrections that the camera computes by itself: shading, fixed-pattern noise, blemishes.
///
/// Their state is the word at 28 of a 64-byte record, and a control register each that shows the same.

#include <cstdint>

#include "model/camera_state.h"

namespace kolmsim {

/// One correction. Bits that it does not have are 0.
struct CorrectionRow {
    std::uint32_t id;       ///< driver property id
    std::uint32_t address;  ///< of its control register
    std::uint32_t compute;  ///< command bits in the word at 28 of a SET
    std::uint32_t load;
    std::uint32_t zero;
    std::uint32_t save;
    std::uint32_t error;  ///< in the word at 28 of an answer: the last computation failed
};

/// The correction with this driver id, or null.
[[nodiscard]] const CorrectionRow* FindCorrection(std::uint32_t id);

/// Whether a mode word tells a correction what to do: on or off, the data shown or not, and at most one command.
[[nodiscard]] bool IsCorrectionCommand(const CorrectionRow& row, std::uint32_t word);

/// Carries out such a word. Data is computed while three looks go by; with a test image on there is nothing to compute
/// from, and the error bit shows. Loading, saving and clearing data is over at once.
void RunCorrectionCommand(CameraState& state, const CorrectionRow& row, std::uint32_t word);

/// What happens between two looks: a computation goes on, a mode that is a command gives way to Manual.
void PassCorrectionTime(CameraState& state, const CorrectionRow& row);

/// What a correction does to the picture.
struct CorrectionStatus {
    bool hasData = false;    ///< not after its data was cleared, until it is loaded or computed again
    bool corrects = false;   ///< it is on and has data
    bool showsData = false;  ///< its data is shown in place of the scene
};

/// The correction with this driver id; nothing of it where the camera lacks it.
[[nodiscard]] CorrectionStatus StatusOfCorrection(const CameraState& state, std::uint32_t id);

/// The control registers. A count of pictures of 0 keeps the count.
[[nodiscard]] std::uint32_t ReadCorrection(const CameraState& state, std::uint32_t address);
void WriteCorrection(CameraState& state, std::uint32_t address, std::uint32_t word);
void LookAtCorrection(CameraState& state, std::uint32_t address);

}  // namespace kolmsim
