#pragma once
/// @file  How a feature answers the driver and how its value moves by itself.
///
/// No clock is involved: time passes when somebody looks. Each GET of a feature in Auto finds the value one step
/// further, bouncing inside its range; a one-push adjustment moves with three looks and is over with the fourth.

#include <cstdint>

#include "model/camera_state.h"
#include "model/record.h"
#include "model/status.h"

namespace kolmsim {

/// With how many looks a one-push adjustment moves, or the building of correction data goes on, before it is over.
inline constexpr std::uint32_t kOnePushLooks = 3;

/// Answers a GET or SET of one feature or feature-like property in place; another id answers propertyNotFound.
///
/// A SET takes the words Value and Mode. Mode 0 keeps the mode; any other must be one supported bit, or a command of
/// the corrections. A SET that is refused changes nothing. After a SET the record holds the feature's new state.
[[nodiscard]] Status AnswerFeature(CameraState& state, Record record);

/// Copies all words of a property behind the header into a record of the same size.
void FillFromProperty(const PropertyState& property, Record record);

/// Puts value and mode into a feature as a SET does, with all that goes along with it.
[[nodiscard]] Status SetFeature(CameraState& state, const FeatureRow& row, std::uint32_t value, std::uint32_t mode);

/// Lets time pass for one feature, with all that goes along with it; an id that is no feature is left alone.
void LookAtFeature(CameraState& state, std::uint32_t id);

/// Puts a mode word into a property, AutoOn and OnePushOn along with it; the word is not checked.
void EnterMode(PropertyState& property, std::uint32_t mode);

}  // namespace kolmsim
