#pragma once
/// @file  The binary contract of `IKolmFluxorPropertySet` as a table of slots and names, and what slot a method has.

#include <cstdint>
#include <cstring>

namespace kolmfluxor::test {

/// The slot that a virtual member function occupies: the ABI keeps 1 + 8 x slot in the pointer's first word.
template <class F> int SlotOf(F method) {
    std::intptr_t raw[2];
    static_assert(sizeof method == sizeof raw);
    std::memcpy(raw, &method, sizeof raw);
    return static_cast<int>((raw[0] - 1) / 8);
}

}  // namespace kolmfluxor::test

// clang-format off

/// row(slot, method) for each method.
#define KOLM_PROPERTY_SET_SLOTS(row) \
    row(3, GetGammaOnOff)                  \
    row(4, SetGammaOnOff)                  \
    row(5, GetGain)                        \
    row(6, SetGain)                        \
    row(7, GetGainRange)                   \
    row(8, GetWhiteBalanceUB)              \
    row(9, SetWhiteBalanceUB)              \
    row(10, GetWhiteBalanceUBRange)        \
    row(11, GetWhiteBalanceVR)             \
    row(12, SetWhiteBalanceVR)             \
    row(13, GetWhiteBalanceVRRange)        \
    row(14, GetTestImage)                  \
    row(15, SetTestImage)                  \
    row(16, GetTestImageInquiry)           \
    row(17, GetBrightness)                 \
    row(18, SetBrightness)                 \
    row(19, GetBrightnessRange)            \
    row(20, GetShutter)                    \
    row(21, SetShutter)                    \
    row(22, GetShutterRange)               \
    row(23, GetExtendedShutter)            \
    row(24, SetExtendedShutter)            \
    row(25, GetExtendedShutterRange)       \
    row(26, GetTimeBase)                   \
    row(27, SetTimeBase)                   \
    row(28, GetCameraInfo)                 \
    row(29, GetCameraInfoEx)               \
    row(30, Reserved30)                    \
    row(31, GetProperty10Block)            \
    row(32, ReadRegister)                  \
    row(33, WriteRegister)                 \
    row(34, WriteBlock)                    \
    row(35, ReadBlock)                     \
    row(36, GetProperty12Value)            \
    row(37, GetFormat7Info)                \
    row(38, SetFormat7Info)                \
    row(39, SetProperty14)                 \
    row(40, GetProperty14)                 \
    row(41, SelectFormat7Mode)             \
    row(42, SetProperty16)                 \
    row(43, GetProperty16)                 \
    row(44, SetProperty17)                 \
    row(45, GetProperty18)                 \
    row(46, IsFeature523Present)           \
    row(47, GetFeature523OnOff)            \
    row(48, SetFeature523OnOff)            \
    row(49, CalculateProperty20)           \
    row(50, GetSharpness)                  \
    row(51, SetSharpness)                  \
    row(52, GetSharpnessRange)             \
    row(53, GetHue)                        \
    row(54, SetHue)                        \
    row(55, GetHueRange)                   \
    row(56, GetSaturation)                 \
    row(57, SetSaturation)                 \
    row(58, GetSaturationRange)            \
    row(59, GetProperty24)                 \
    row(60, SetProperty24)                 \
    row(61, GetProperty25)                 \
    row(62, SetProperty25)                 \
    row(63, GetProperty26)                 \
    row(64, SetProperty26)                 \
    row(65, GetColorCorrectionOnOff)       \
    row(66, SetColorCorrectionOnOff)       \
    row(67, GetProperty28)                 \
    row(68, ExecuteProperty28)             \
    row(69, ExecuteProperty29)             \
    row(70, GetProperty30)                 \
    row(71, SetProperty30)                 \
    row(72, GetRegisterComposite72)        \
    row(73, SetRegisterComposite73)        \
    row(74, GetLutControl)                 \
    row(75, SetLutControl)                 \
    row(76, UploadLut)                     \
    row(77, SetProperty32)                 \
    row(78, GetProperty32)                 \
    row(79, SetProperty33)                 \
    row(80, GetProperty33)                 \
    row(81, SetProperty34)                 \
    row(82, GetProperty34)                 \
    row(83, SetIndexedProperty34)          \
    row(84, GetIndexedProperty34)          \
    row(85, SetProperty39)                 \
    row(86, GetProperty39)                 \
    row(87, SetProperty40)                 \
    row(88, GetProperty40)                 \
    row(89, SetProperty41)                 \
    row(90, GetProperty41)                 \
    row(91, SetProperty42)                 \
    row(92, GetProperty42)                 \
    row(93, SetPropertyById)               \
    row(94, GetPropertyById)               \
    row(95, GetProperty51)                 \
    row(96, GetProperty52)                 \
    row(97, GetProperty56Composite)        \
    row(98, IsFeaturePresent)              \
    row(99, GetFeatureMin)                 \
    row(100, GetFeatureMax)                \
    row(101, GetFeatureRange)              \
    row(102, GetFeatureValue)              \
    row(103, GetFeatureValueAndMode)       \
    row(104, SetFeatureValue)              \
    row(105, SetFeatureValueAndMode)       \
    row(106, IsFeatureModeSupported)       \
    row(107, SetFeatureMode)               \
    row(108, GetFeatureMode)               \
    row(109, GetTriggerInquiry)            \
    row(110, GetTrigger)                   \
    row(111, SetTrigger)                   \
    row(112, GetIsoSpeed)                  \
    row(113, GetIsoSpeedRange)             \
    row(114, SetIsoSpeed)                  \
    row(115, GetProperty61)                \
    row(116, SetProperty61)                \
    row(117, ApplyMediaTypeComposite)      \
    row(118, GetImagePositionForMediaType) \
    row(119, SetImagePositionForMediaType)

/// The same for `IKolmStillImage`.
#define KOLM_STILL_IMAGE_SLOTS(row) \
    row(3, SelectDeviceByName) \
    row(4, SelectDeviceByIndex) \
    row(5, Close) \
    row(6, GetBufferSize) \
    row(7, Capture) \
    row(8, GetImageSize) \
    row(9, GetBitmapInfoHeader) \
    row(10, GetBitmapInfo) \
    row(11, GetBuffer) \
    row(12, ShowDevicePropertyPages) \
    row(13, ShowStreamPropertyPages) \
    row(14, GetDeviceUnknown) \
    row(15, GetDevicePath) \
    row(16, SetMediaTypeFile)

// clang-format on
