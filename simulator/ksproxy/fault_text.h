#pragma once
/// @file  Faults as text, for programs that cannot call the simulated camera themselves.
///
/// Faults are separated by semicolons; each is words separated by blanks:
///
///     DIRECTION ID [#N] ACTION
///
/// - DIRECTION: `get`, `set`, or `any` for both
/// - ID: the driver property's number, or `any`
/// - `#N`: strikes the N-th matching request alone; without it every one
/// - ACTION, one of
///   - `fail CODE`, or the code alone: a failure, up to eight hexadecimal digits with or without "0x"
///   - `short BYTES [CODE]`: only so many bytes are answered
///   - `patch OFFSET WORD [CODE]`: the answer carries the word (hexadecimal) at this offset in bytes
///   - `answer [CODE]`: the record comes back as it was sent
///   - `delay MS`
///   - `unplug`
///
/// The codes of the three answers are successes, S_OK when left out. Other numbers are decimal, or hexadecimal after
/// "0x".

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "ksproxy/simulator_control.h"

namespace kolmsim {

/// A text that is no list of faults; what() tells where and why.
class FaultTextError final : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The faults of a text, in its order; none for a text of blanks and semicolons.
///
/// @throws FaultTextError
[[nodiscard]] std::vector<SimFault> ParseFaults(std::string_view text);

}  // namespace kolmsim
