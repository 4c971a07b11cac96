#pragma once
/// @file  Where the camera's registers lie. Addresses are the low 32 bits of the 48-bit bus address.

#include <cstdint>

namespace kolmsim {

/// The presence bit, at the same place in all control and inquiry registers.
inline constexpr unsigned kPresence = 31;

// Standard registers
inline constexpr std::uint32_t kInitialize = 0xF0F00000;
inline constexpr std::uint32_t kFormatInquiry = 0xF0F00100;
inline constexpr std::uint32_t kModeInquiry = 0xF0F00180;     ///< 4 bytes for each format
inline constexpr std::uint32_t kRateInquiry = 0xF0F00200;     ///< 0x20 bytes for each format, 4 for each mode
inline constexpr std::uint32_t kFormat7Address = 0xF0F002E0;  ///< 4 bytes for each scalable mode
inline constexpr std::uint32_t kBasicInquiry = 0xF0F00400;
inline constexpr std::uint32_t kFeatureHiInquiry = 0xF0F00404;
inline constexpr std::uint32_t kFeatureInquiry = 0xF0F00500;  ///< 4 bytes for each standard feature
inline constexpr std::uint32_t kTriggerInquiry = 0xF0F00530;
inline constexpr std::uint32_t kCurrentRate = 0xF0F00600;
inline constexpr std::uint32_t kCurrentMode = 0xF0F00604;
inline constexpr std::uint32_t kCurrentFormat = 0xF0F00608;
inline constexpr std::uint32_t kIsoControl = 0xF0F0060C;
inline constexpr std::uint32_t kIsoEnable = 0xF0F00614;
inline constexpr std::uint32_t kOneShot = 0xF0F0061C;
inline constexpr std::uint32_t kModeError = 0xF0F00628;
inline constexpr std::uint32_t kSoftTrigger = 0xF0F0062C;
inline constexpr std::uint32_t kDataDepth = 0xF0F00630;
inline constexpr std::uint32_t kFeatureErrorHi = 0xF0F00640;
inline constexpr std::uint32_t kFeatureControl = 0xF0F00800;  ///< 4 bytes for each standard feature
inline constexpr std::uint32_t kTriggerControl = 0xF0F00830;

/// Scalable modes: 0x1000 bytes for each.
inline constexpr std::uint32_t kFormat7Base = 0xF0F08000;

// The maker's registers
inline constexpr std::uint32_t kVersionInfo1 = 0xF1000010;
inline constexpr std::uint32_t kVersionInfo3 = 0xF1000018;
inline constexpr std::uint32_t kAdvancedInquiry1 = 0xF1000040;
inline constexpr std::uint32_t kCameraStatus = 0xF1000100;
inline constexpr std::uint32_t kTimeBase = 0xF1000208;
inline constexpr std::uint32_t kExtendedShutter = 0xF100020C;
inline constexpr std::uint32_t kTestImage = 0xF1000210;
inline constexpr std::uint32_t kLutControl = 0xF1000240;
inline constexpr std::uint32_t kLutMemoryControl = 0xF1000244;
inline constexpr std::uint32_t kLutInfo = 0xF1000248;
inline constexpr std::uint32_t kShadingControl = 0xF1000250;
inline constexpr std::uint32_t kShadingMemoryControl = 0xF1000254;
inline constexpr std::uint32_t kShadingInfo = 0xF1000258;
inline constexpr std::uint32_t kDeferredTransfer = 0xF1000260;
inline constexpr std::uint32_t kFrameInfo = 0xF1000270;
inline constexpr std::uint32_t kFrameCounter = 0xF1000274;
inline constexpr std::uint32_t kDsnuControl = 0xF1000290;
inline constexpr std::uint32_t kBlemishControl = 0xF1000294;
inline constexpr std::uint32_t kInputControl = 0xF1000300;   ///< 4 bytes for each input
inline constexpr std::uint32_t kOutputControl = 0xF1000320;  ///< 4 bytes for each output
inline constexpr std::uint32_t kIntegrationDelay = 0xF1000340;
inline constexpr std::uint32_t kAutoShutterLow = 0xF1000364;
inline constexpr std::uint32_t kAutoShutterHigh = 0xF1000368;
inline constexpr std::uint32_t kAutoGain = 0xF1000370;
inline constexpr std::uint32_t kAutoArea = 0xF1000390;
inline constexpr std::uint32_t kAutoAreaPosition = 0xF1000394;
inline constexpr std::uint32_t kAutoAreaSize = 0xF1000398;
inline constexpr std::uint32_t kColorCorrection = 0xF10003A0;
inline constexpr std::uint32_t kColorMatrix = 0xF10003A4;  ///< nine coefficients row by row, in thousandths
inline constexpr std::uint32_t kTriggerDelay = 0xF1000400;
inline constexpr std::uint32_t kMirror = 0xF1000410;
inline constexpr std::uint32_t kLowSmear = 0xF1000440;
inline constexpr std::uint32_t kSoftReset = 0xF1000510;
inline constexpr std::uint32_t kHighSnr = 0xF1000520;
inline constexpr std::uint32_t kTriggerCounter = 0xF1000620;
inline constexpr std::uint32_t kGpBufferInfo = 0xF1000FFC;  ///< low 16 bits: size of the GP buffer in bytes
inline constexpr std::uint32_t kGpBuffer = 0xF1001000;

}  // namespace kolmsim
