#pragma once
/// @file  Other implementations of the conversions to 24-bit BGR, each used in its quickest way.

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>

namespace kolmfluxor::bench {

/// Converts a picture of a fixed size from source to destination.
using Converter = std::function<void(const std::uint8_t* source, std::uint8_t* destination)>;

struct Peer {
    const char* name;
    Converter (*mono8)(int width, int height);
    Converter (*uyvy)(int width, int height);
};

/// libyuv, swscale, and OpenCV on one thread. All bottom-up but OpenCV, which can't.
std::span<const Peer> Peers();

}  // namespace kolmfluxor::bench
