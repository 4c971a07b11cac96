#pragma once
/// @file  How the simulated camera's driver answers: the Win32 error numbers that a capture driver would give.

#include <cstdint>

namespace kolmsim {

/// Outcome of a request; the numbers are Win32 error codes, so that a caller on Windows can pass them on as they are.
enum class Status : std::uint32_t {
    ok = 0,
    invalidHandle = 6,          ///< the request names no camera
    invalidParameter = 87,      ///< a value, mode, direction or size that the property does not take
    insufficientBuffer = 122,   ///< the record is shorter than the property's
    busy = 170,                 ///< not while the camera streams
    invalidAddress = 487,       ///< no register at this address
    deviceNotConnected = 1167,  ///< the camera is unplugged
    propertyNotFound = 1168,    ///< the set has no such property, or this camera lacks it
    setNotFound = 1170,         ///< not the vendor property set
    noBandwidth = 1450,         ///< the bus at its present speed does not carry it
};

}  // namespace kolmsim
