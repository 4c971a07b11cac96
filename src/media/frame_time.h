#pragma once
/// @file  Frame times, frame rates and the fixed frame rates of IIDC. No Windows header: this also builds natively.
///
/// A frame time is a DirectShow reference time: a signed count of 100 ns. fps is frames per second, fpms is frames per
/// 1000 seconds, for rates that are no whole number (1875 is 1.875 fps).

#include <cstdint>

namespace kolmfluxor {

/// The frame time of a whole number of frames per second: 10'000'000 / fps, fraction dropped.
///
/// @throws CTextException  "FpsToFrameTime: Div by Zero -> fps is 0"
[[nodiscard]] std::int64_t FpsToFrameTime(std::uint32_t fps);

/// The frame time of a rate in fpms: 1e7 / (fpms / 1000.0), truncated toward zero (1875 gives 5333333).
///
/// @throws CTextException  "FPpsX1000ToFrameTime: Div by Zero -> fps is 0"
[[nodiscard]] std::int64_t FPpsX1000ToFrameTime(std::int32_t fpms);

/// The frame rate of a frame time: 10'000'000 / t, fraction dropped.
///
/// @throws CTextException  "FrameTimeToFps: Div by Zero -> frame time is 0"
[[nodiscard]] std::int64_t FrameTimeToFps(std::int64_t t);

/// The frame rate of a frame time in fpms: 1e7 / (t / 1000.0), truncated toward zero (333333 gives 30000).
///
/// A rate beyond 32 bits (frame times from -4 to 4) gives the largest or smallest 32-bit number: this module's own
/// rule.
/// @throws CTextException  "FrameTimeToFpms: Div by Zero -> frame time is 0"
[[nodiscard]] std::int32_t FrameTimeToFpms(std::int64_t t);

/// The longest frame time of IIDC's fixed rates (240 fps = 41666 up to 1.875 fps = 5333333) that is not above t.
///
/// A t below 41666 gives 240000, which is no frame time of that table: callers rely on it.
[[nodiscard]] std::int64_t SnapFrameTimeDown(std::int64_t t) noexcept;

/// The frame time of IIDC's fixed rates that is closest to t; the longer one of two equally close.
///
/// A t of 5333333 and above gives 5333333; one below 41666 gives 240000 as `SnapFrameTimeDown` does.
[[nodiscard]] std::int64_t SnapFrameTimeNearest(std::int64_t t) noexcept;

/// The slowest of IIDC's fixed rates (1875, 3750, 7500, ... 240000 fpms) whose frame time is not above t; the fastest
/// one, 240000, for anything below 83333.
[[nodiscard]] std::int32_t FrameTimeToIidcFpms(std::int64_t t) noexcept;

/// `FrameTimeToIidcFpms` of the closest fixed frame time, `SnapFrameTimeNearest`; a t below 41666 thus gives 60000.
[[nodiscard]] std::int32_t FrameTimeToIidcFpmsNearest(std::int64_t t) noexcept;

/// The fixed frame time for a rate in fpms: below 3751 that of 1.875 fps, below 7501 that of 3.75 fps, and so on; from
/// 240001 that of 240 fps.
///
/// Compatibility: each fixed rate but 1.875 fps gives the frame time of the next slower one (7500 gives 2666666).
[[nodiscard]] std::int64_t IidcFpmsToFrameTime(std::int32_t fpms) noexcept;

}  // namespace kolmfluxor
