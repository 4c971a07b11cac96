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

/// With how many looks a one-push adjustment moves before it is over.
inline constexpr std::uint32_t kOnePushLooks = 3;

/// Answers a GET or SET of one feature in place; an id that is no feature answers propertyNotFound.
///
/// A SET takes the words Value and Mode. Mode 0 keeps the mode; any other must be one supported bit. A SET that is
/// refused changes nothing. After a SET the record holds the feature's new state.
[[nodiscard]] Status AnswerFeature(CameraState& state, Record record);

/// Puts a mode word into a property, AutoOn and OnePushOn along with it; the word is not checked.
void EnterMode(PropertyState& property, std::uint32_t mode);

/// Lets the value move as far as it does between two looks.
void PassTime(PropertyState& property, const FeatureRow& row);

}  // namespace kolmsim
