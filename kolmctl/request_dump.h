#pragma once
/// @file  Driver requests in print.

#include "ksproxy/simulator_control.h"
#include "output.h"

namespace kolmctl {

/// Prints all requests in a camera's log, oldest first.
///
/// For people, each has a line (number, direction, property id, size, result) and below it the words after the 24-byte
/// header with their offsets, as sent and as answered. For programs they are a table "requests".
void PrintRequests(kolmsim::ISimulatedCamera& camera, Output& output);

}  // namespace kolmctl
