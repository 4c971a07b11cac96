#include "module/slot_cases.h"

namespace kolmfluxor::test {
namespace {

/// A value between the scripted minimum (at 36) and maximum (at 40).
constexpr ULONG kInside = Scripted(36) + 1;

/// The scripted answer to a GET of a 64-byte record, sent back as a SET.
CWireRequest ScriptedAnswer(std::uint32_t id) {
    CWireRequest answer = Set(id);
    for (std::size_t offset = 24; offset < 64; offset += 4) {
        answer = answer.With(offset, Scripted(static_cast<ULONG>(offset)));
    }
    return answer;
}

#define KOLM_CALL(...) \
    [](IKolmFluxorPropertySet& set, [[maybe_unused]] COutputs& o) -> HRESULT { return set.__VA_ARGS__; }

}  // namespace

const std::vector<SlotCase>& SlotCases() {
    static const std::vector<SlotCase> cases = {
        // clang-format off
        {3, "GetGammaOnOff", KOLM_CALL(GetGammaOnOff(o.B(0))), {ModeIs(0x2)}, {Get(8)}},
        {.slot = 4, .name = "SetGammaOnOff", .walk = Walk::elsewhere, .note = "SwitchedFeatures"},
        {5, "GetGain", KOLM_CALL(GetGain(o.W(0), o.B(1), o.B(2))), {Word(24, 0), ModeIs(0x8), ModeIs(0x10)}, {Get(0)}},
        {6, "SetGain", KOLM_CALL(SetGain(kInside, FALSE, FALSE)), {}, {Get(0), Set(0).With(24, kInside).With(28, 0x2)}},
        {7, "GetGainRange", KOLM_CALL(GetGainRange(o.W(0), o.W(1), o.B(2), o.B(3))), {Word(36, 0), Word(40, 0), ModeIs(0x8, kPoison), ModeIs(0x10, kPoison)}, {Get(0), Get(0)}, S_OK, Walk::range},
        {8, "GetWhiteBalanceUB", KOLM_CALL(GetWhiteBalanceUB(o.W(0), o.B(1), o.B(2))), {Word(24, 0), ModeIs(0x8), ModeIs(0x10)}, {Get(1)}},
        {9, "SetWhiteBalanceUB", KOLM_CALL(SetWhiteBalanceUB(kInside, FALSE, FALSE)), {}, {Get(1), Set(1).With(24, kInside).With(28, 0x2)}},
        {10, "GetWhiteBalanceUBRange", KOLM_CALL(GetWhiteBalanceUBRange(o.W(0), o.W(1), o.B(2), o.B(3))), {Word(36, 0), Word(40, 0), ModeIs(0x8, kPoison), ModeIs(0x10, kPoison)}, {Get(1), Get(1)}, S_OK, Walk::range},
        {11, "GetWhiteBalanceVR", KOLM_CALL(GetWhiteBalanceVR(o.W(0), o.B(1), o.B(2))), {Word(24, 0), ModeIs(0x8), ModeIs(0x10)}, {Get(2)}},
        {12, "SetWhiteBalanceVR", KOLM_CALL(SetWhiteBalanceVR(kInside, FALSE, FALSE)), {}, {Get(2), Set(2).With(24, kInside).With(28, 0x2)}},
        {13, "GetWhiteBalanceVRRange", KOLM_CALL(GetWhiteBalanceVRRange(o.W(0), o.W(1), o.B(2), o.B(3))), {Word(36, 0), Word(40, 0), ModeIs(0x8, kPoison), ModeIs(0x10, kPoison)}, {Get(2), Get(2)}, S_OK, Walk::range},
        {14, "GetTestImage", KOLM_CALL(GetTestImage(o.W(0))), {Word(24)}, {Get(3)}},
        {15, "SetTestImage", KOLM_CALL(SetTestImage(0x11)), {}, {Set(3).With(24, 0x11)}},
        {16, "GetTestImageInquiry", KOLM_CALL(GetTestImageInquiry(o.W(0))), {Word(32)}, {Get(3)}},
        {17, "GetBrightness", KOLM_CALL(GetBrightness(o.W(0), o.B(1), o.B(2))), {Word(24, 0), ModeIs(0x8), ModeIs(0x10)}, {Get(4)}},
        {18, "SetBrightness", KOLM_CALL(SetBrightness(kInside, FALSE, FALSE)), {}, {Get(4), Set(4).With(24, kInside).With(28, 0x2)}},
        {19, "GetBrightnessRange", KOLM_CALL(GetBrightnessRange(o.W(0), o.W(1), o.B(2), o.B(3))), {Word(36, 0), Word(40, 0), ModeIs(0x8, kPoison), ModeIs(0x10, kPoison)}, {Get(4), Get(4)}, S_OK, Walk::range},
        {20, "GetShutter", KOLM_CALL(GetShutter(o.W(0), o.B(1), o.B(2))), {Word(24, 0), ModeIs(0x8), ModeIs(0x10)}, {Get(5)}},
        {21, "SetShutter", KOLM_CALL(SetShutter(kInside, FALSE, FALSE)), {}, {Get(5), Set(5).With(24, kInside).With(28, 0x2)}},
        {22, "GetShutterRange", KOLM_CALL(GetShutterRange(o.W(0), o.W(1), o.B(2), o.B(3))), {Word(36, 0), Word(40, 0), ModeIs(0x8, kPoison), ModeIs(0x10, kPoison)}, {Get(5), Get(5)}, S_OK, Walk::range},
        {23, "GetExtendedShutter", KOLM_CALL(GetExtendedShutter(o.W(0))), {Word(24, 0)}, {Get(7)}},
        {24, "SetExtendedShutter", KOLM_CALL(SetExtendedShutter(kInside)), {}, {Get(7), ScriptedAnswer(7).With(24, kInside)}},
        {25, "GetExtendedShutterRange", KOLM_CALL(GetExtendedShutterRange(o.W(0), o.W(1))), {Word(36, 0), Word(40, 0)}, {Get(7)}},
        {26, "GetTimeBase", KOLM_CALL(GetTimeBase(o.W(0))), {Word(24, 0)}, {Get(6)}},
        {27, "SetTimeBase", KOLM_CALL(SetTimeBase(kInside)), {}, {Get(6), ScriptedAnswer(6).With(24, kInside)}},
        {.slot = 28, .name = "GetCameraInfo", .walk = Walk::elsewhere, .note = "CameraInfo"},
        {.slot = 29, .name = "GetCameraInfoEx", .walk = Walk::elsewhere, .note = "CameraInfo"},
        {30, "Reserved30", KOLM_CALL(Reserved30()), {}, {}, E_NOTIMPL},
        {31, "GetProperty10Block", KOLM_CALL(GetProperty10Block(o.W(0), o.W(1), o.W(2), o.W(3), o.W(4), o.W(5), o.W(6), o.W(7), o.W(8), o.W(9), o.W(10), o.W(11), o.W(12))), {Word(612), Word(616), Word(620), Word(624), Word(628), Word(632), Word(612), Word(616), Word(620), Word(624), Word(628), Word(632), Word(24)}, {Get(10, 840)}, E_NOTIMPL},
        {32, "ReadRegister", KOLM_CALL(ReadRegister(0x11, o.W(0))), {Word(28, 0xFFFFFFFF)}, {Get(11, 32).With(24, 0x11)}},
        {33, "WriteRegister", KOLM_CALL(WriteRegister(0x11, 0x22)), {}, {Set(11, 32).With(24, 0x11).With(28, 0x22)}},
        {.slot = 34, .name = "WriteBlock", .walk = Walk::elsewhere, .note = "Blocks"},
        {.slot = 35, .name = "ReadBlock", .walk = Walk::elsewhere, .note = "Blocks"},
        {36, "GetProperty12Value", KOLM_CALL(GetProperty12Value(o.W(0))), {Word(28)}, {Get(12, 32)}},
        {37, "GetFormat7Info", KOLM_CALL(GetFormat7Info(0x11, o.W(0), o.W(1), o.W(2), o.W(3), o.W(4), o.W(5), o.W(6), o.W(7), o.W(8), o.W(9), o.W(10))), {Word(48), Word(52), Word(56), Word(60), Word(64), Word(72), Word(76), Word(80), Word(84), Word(68), Word(32)}, {Get(13, 96).With(28, 0x11)}},
        {38, "SetFormat7Info", KOLM_CALL(SetFormat7Info(0x11, 0x22, 0x33, 0x44, 0x55, 0x66, 0x77, 0x88)), {}, {Set(15, 96).With(28, 0x11), Set(13, 96).With(28, 0x11).With(48, 0x22).With(52, 0x33).With(56, 0x44).With(60, 0x55).With(68, 0x66).With(32, 0x77)}},
        {39, "SetProperty14", KOLM_CALL(SetProperty14(0x11)), {}, {Set(14, 96).With(28, 0x11)}},
        {40, "GetProperty14", KOLM_CALL(GetProperty14(o.W(0), o.W(1))), {Word(28), Word(44)}, {Get(14, 96)}},
        {41, "SelectFormat7Mode", KOLM_CALL(SelectFormat7Mode(0x11)), {}, {Set(15, 96).With(28, 0x11)}},
        {42, "SetProperty16", KOLM_CALL(SetProperty16(0x11)), {}, {Set(16, 32).With(24, 0x11)}},
        {43, "GetProperty16", KOLM_CALL(GetProperty16(o.W(0))), {Word(24)}, {Get(16, 32)}},
        {44, "SetProperty17", KOLM_CALL(SetProperty17(0x11, 0x22, 0x33, 0x44, 0x55, 0x66, 0x77, 0x88, 0x99)), {}, {Set(17, 96).With(28, 0x11).With(48, 0x22).With(52, 0x33).With(56, 0x44).With(60, 0x55).With(68, 0x66).With(32, 0x77).With(64, 0x88)}},
        {45, "GetProperty18", KOLM_CALL(GetProperty18(0x11, o.W(0), o.W(1))), {Word(88), Word(92)}, {Set(15, 96).With(28, 0x11), Get(18, 96)}},
        {46, "IsFeature523Present", KOLM_CALL(IsFeature523Present(o.B(0))), {Constant(TRUE, FALSE)}, {Get(19)}},
        {47, "GetFeature523OnOff", KOLM_CALL(GetFeature523OnOff(o.B(0))), {ModeIs(0x2)}, {Get(19)}},
        {.slot = 48, .name = "SetFeature523OnOff", .walk = Walk::elsewhere, .note = "SwitchedFeatures"},
        {49, "CalculateProperty20", KOLM_CALL(CalculateProperty20(0x11, 0x22, 0x33, 0x44, 0x55, 0x66, o.W(0), o.W(1))), {Word(88), Word(92)}, {Set(20, 96).With(28, 0x11).With(68, 0x22).With(48, 0x33).With(52, 0x44).With(56, 0x55).With(60, 0x66)}},
        {50, "GetSharpness", KOLM_CALL(GetSharpness(o.W(0), o.B(1), o.B(2))), {Word(24, 0), ModeIs(0x8), ModeIs(0x10)}, {Get(21)}},
        {51, "SetSharpness", KOLM_CALL(SetSharpness(kInside, FALSE, FALSE)), {}, {Get(21), Set(21).With(24, kInside).With(28, 0x2)}},
        {52, "GetSharpnessRange", KOLM_CALL(GetSharpnessRange(o.W(0), o.W(1), o.B(2), o.B(3))), {Word(36, 0), Word(40, 0), ModeIs(0x8, kPoison), ModeIs(0x10, kPoison)}, {Get(21), Get(21)}, S_OK, Walk::range},
        {53, "GetHue", KOLM_CALL(GetHue(o.W(0), o.B(1), o.B(2))), {Word(24, 0), ModeIs(0x8), ModeIs(0x10)}, {Get(22)}},
        {54, "SetHue", KOLM_CALL(SetHue(kInside, FALSE, FALSE)), {}, {Get(22), Set(22).With(24, kInside).With(28, 0x2)}},
        {55, "GetHueRange", KOLM_CALL(GetHueRange(o.W(0), o.W(1), o.B(2), o.B(3))), {Word(36, 0), Word(40, 0), ModeIs(0x8, kPoison), ModeIs(0x10, kPoison)}, {Get(22), Get(22)}, S_OK, Walk::range},
        {56, "GetSaturation", KOLM_CALL(GetSaturation(o.W(0), o.B(1), o.B(2))), {Word(24, 0), ModeIs(0x8), ModeIs(0x10)}, {Get(23)}},
        {57, "SetSaturation", KOLM_CALL(SetSaturation(kInside, FALSE, FALSE)), {}, {Get(23), Set(23).With(24, kInside).With(28, 0x2)}},
        {58, "GetSaturationRange", KOLM_CALL(GetSaturationRange(o.W(0), o.W(1), o.B(2), o.B(3))), {Word(36, 0), Word(40, 0), ModeIs(0x8, kPoison), ModeIs(0x10, kPoison)}, {Get(23), Get(23)}, S_OK, Walk::range},
        {59, "GetProperty24", KOLM_CALL(GetProperty24(o.W(0), o.W(1))), {Word(36), Word(40)}, {Get(24)}},
        {60, "SetProperty24", KOLM_CALL(SetProperty24(0x11, 0x22)), {}, {Set(24).With(36, 0x11).With(40, 0x22)}},
        {61, "GetProperty25", KOLM_CALL(GetProperty25(o.W(0), o.W(1))), {Word(36), Word(40)}, {Get(25)}},
        {62, "SetProperty25", KOLM_CALL(SetProperty25(0x11, 0x22)), {}, {Set(25).With(36, 0x11).With(40, 0x22)}},
        {63, "GetProperty26", KOLM_CALL(GetProperty26(o.W(0), o.W(1), o.W(2), o.W(3), o.W(4), o.W(5))), {Word(28), Word(24), Word(32), Word(36), Word(40), Word(44)}, {Get(26, 48)}},
        {64, "SetProperty26", KOLM_CALL(SetProperty26(0x11, 0x22, 0x33, 0x44, 0x55, 0x66)), {}, {Set(26, 48).With(28, 0x11).With(24, 0x22).With(32, 0x33).With(36, 0x44).With(40, 0x55).With(44, 0x66)}},
        {65, "GetColorCorrectionOnOff", KOLM_CALL(GetColorCorrectionOnOff(o.B(0))), {Constant(kPoison, kPoison)}, {Get(27)}},
        {.slot = 66, .name = "SetColorCorrectionOnOff", .walk = Walk::elsewhere, .note = "SwitchedFeatures"},
        {67, "GetProperty28", KOLM_CALL(GetProperty28(o.W(0))), {Word(24)}, {Get(28)}},
        {68, "ExecuteProperty28", KOLM_CALL(ExecuteProperty28()), {}, {Set(28)}},
        {69, "ExecuteProperty29", KOLM_CALL(ExecuteProperty29()), {}, {Set(29)}},
        {70, "GetProperty30", KOLM_CALL(GetProperty30(o.B(0), o.B(1), o.B(2), o.B(3), o.B(4), o.W(5))), {Flag(0x2), Flag(0x80), Flag(0x2000), Flag(0x1000), Flag(0x40), Word(24)}, {Get(30)}},
        {71, "SetProperty30", KOLM_CALL(SetProperty30(2, TRUE, -1, 0x44, 0x55, 0x66)), {}, {Set(30).With(24, 0x66).With(28, 0x2082)}},
        {.slot = 72, .name = "GetRegisterComposite72", .walk = Walk::elsewhere, .note = "Shading"},
        {.slot = 73, .name = "SetRegisterComposite73", .walk = Walk::elsewhere, .note = "Shading"},
        {74, "GetLutControl", KOLM_CALL(GetLutControl(o.B(0), o.W(1), o.W(2), o.W(3))), {Flag(0x2), Word(24), Word(40), Word(36)}, {Get(31)}},
        {75, "SetLutControl", KOLM_CALL(SetLutControl(2, 0x22)), {}, {Set(31).With(24, 0x22).With(28, 0x2)}},
        {.slot = 76, .name = "UploadLut", .walk = Walk::elsewhere, .note = "LutUpload"},
        {77, "SetProperty32", KOLM_CALL(SetProperty32(TRUE, TRUE, TRUE, TRUE, TRUE, 0x66)), {}, {Set(32).With(24, 0x66).With(28, 0x8082)}},
        {78, "GetProperty32", KOLM_CALL(GetProperty32(o.B(0), o.B(1), o.B(2), o.B(3), o.W(4))), {Flag(0x2), Flag(0x80), Flag(0x4000), Flag(0x40), Word(24)}, {Get(32)}},
        {79, "SetProperty33", KOLM_CALL(SetProperty33(TRUE, TRUE, TRUE, TRUE, TRUE, 0x66)), {}, {Set(33).With(24, 0x66).With(28, 0x8082)}},
        {80, "GetProperty33", KOLM_CALL(GetProperty33(o.B(0), o.B(1), o.B(2), o.B(3), o.W(4))), {Flag(0x2), Flag(0x80), Flag(0x4000), Flag(0x40), Word(24)}, {Get(33)}},
        {81, "SetProperty34", KOLM_CALL(SetProperty34(0x11, 0x22)), {}, {Set(34).With(24, 0x22)}},
        {82, "GetProperty34", KOLM_CALL(GetProperty34(o.B(0), o.W(1), o.W(2))), {Flag(0x2), Word(24), Word(40)}, {Get(34)}},
        {83, "SetIndexedProperty34", KOLM_CALL(SetIndexedProperty34(2, 0x22)), {}, {Set(36).With(24, 0x22)}},
        {84, "GetIndexedProperty34", KOLM_CALL(GetIndexedProperty34(3, o.W(0))), {Word(24)}, {Get(37)}},
        {85, "SetProperty39", KOLM_CALL(SetProperty39(0x11, 0x22)), {}, {Set(39).With(24, 0x22)}},
        {86, "GetProperty39", KOLM_CALL(GetProperty39(o.B(0), o.W(1))), {Flag(0x2), Word(24)}, {Get(39)}},
        {87, "SetProperty40", KOLM_CALL(SetProperty40(0x11, 0x22)), {}, {Set(40).With(24, 0x22)}},
        {88, "GetProperty40", KOLM_CALL(GetProperty40(o.B(0), o.W(1))), {Flag(0x2), Word(24)}, {Get(40)}},
        {89, "SetProperty41", KOLM_CALL(SetProperty41(0x11, 0x22)), {}, {Set(41).With(24, 0x22)}},
        {90, "GetProperty41", KOLM_CALL(GetProperty41(o.B(0), o.W(1))), {Flag(0x2), Word(24)}, {Get(41)}},
        {91, "SetProperty42", KOLM_CALL(SetProperty42(0x11, 0x22, 0x33, 0x44)), {}, {Set(42).With(24, 0x44)}},
        {92, "GetProperty42", KOLM_CALL(GetProperty42(o.B(0), o.B(1), o.B(2), o.W(3), o.W(4))), {Flag(0x8), Flag(0x40000000), Flag(0x80000000), Word(24), Word(36)}, {Get(42)}},
        {93, "SetPropertyById", KOLM_CALL(SetPropertyById(0x77, 2, 0x22, TRUE)), {}, {Set(0x77).With(24, 0x22).With(28, 0x30000)}},
        {94, "GetPropertyById", KOLM_CALL(GetPropertyById(0x77, o.W(0), o.W(1), o.W(2))), {Word(44), Word(24), Word(48)}, {Get(0x77)}},
        {95, "GetProperty51", KOLM_CALL(GetProperty51(o.W(0))), {Word(24)}, {Get(51)}},
        {96, "GetProperty52", KOLM_CALL(GetProperty52(0x11, o.W(0), o.W(1), o.W(2), o.W(3))), {Word(28), Word(36), Word(40), Word(44)}, {Get(52, 48).With(24, 0x11)}},
        {.slot = 97, .name = "GetProperty56Composite", .walk = Walk::elsewhere, .note = "Composites"},
        {98, "IsFeaturePresent", KOLM_CALL(IsFeaturePresent(265, o.B(0))), {Constant(TRUE, FALSE)}, {Get(0)}},
        {99, "GetFeatureMin", KOLM_CALL(GetFeatureMin(265, o.W(0))), {Word(36, 0)}, {Get(0)}},
        {100, "GetFeatureMax", KOLM_CALL(GetFeatureMax(265, o.W(0))), {Word(40, 0)}, {Get(0)}},
        {101, "GetFeatureRange", KOLM_CALL(GetFeatureRange(265, o.W(0), o.W(1))), {Word(36, 0), Word(40, 0)}, {Get(0)}},
        {102, "GetFeatureValue", KOLM_CALL(GetFeatureValue(265, o.W(0))), {Word(24, 0)}, {Get(0)}},
        {103, "GetFeatureValueAndMode", KOLM_CALL(GetFeatureValueAndMode(265, o.W(0), o.W(1))), {Word(24, 0), ModeNumber()}, {Get(0)}},
        {104, "SetFeatureValue", KOLM_CALL(SetFeatureValue(265, kInside)), {}, {Get(0), ScriptedAnswer(0).With(24, kInside)}},
        {105, "SetFeatureValueAndMode", KOLM_CALL(SetFeatureValueAndMode(265, kInside, 3)), {}, {Get(0), Set(0).With(24, kInside).With(28, 0x8)}},
        {106, "IsFeatureModeSupported", KOLM_CALL(IsFeatureModeSupported(265, 1, o.B(0))), {Constant(Scripted(32) & 0x2 ? TRUE : FALSE, FALSE)}, {Get(0)}},
        {.slot = 107, .name = "SetFeatureMode", .walk = Walk::elsewhere, .note = "FeatureModes"},
        {108, "GetFeatureMode", KOLM_CALL(GetFeatureMode(265, o.W(0))), {ModeNumber()}, {Get(0)}},
        {109, "GetTriggerInquiry", KOLM_CALL(GetTriggerInquiry(o.W(0))), {Word(32, 0)}, {Get(53)}},
        {.slot = 110, .name = "GetTrigger", .walk = Walk::elsewhere, .note = "Trigger"},
        {111, "SetTrigger", KOLM_CALL(SetTrigger(0x20000, 1, 1, 0x44)), {}, {Set(53).With(24, 0x44).With(28, 0x20060)}},
        {112, "GetIsoSpeed", KOLM_CALL(GetIsoSpeed(o.W(0))), {Word(24)}, {Get(54)}},
        {113, "GetIsoSpeedRange", KOLM_CALL(GetIsoSpeedRange(o.W(0), o.W(1))), {Word(36), Word(40)}, {Get(54)}},
        {114, "SetIsoSpeed", KOLM_CALL(SetIsoSpeed(0x11)), {}, {Set(54).With(24, 0x11)}},
        {115, "GetProperty61", KOLM_CALL(GetProperty61(o.W(0))), {Word(24)}, {Get(61)}},
        {116, "SetProperty61", KOLM_CALL(SetProperty61(0x11)), {}, {Set(61).With(24, 0x11)}},
        {.slot = 117, .name = "ApplyMediaTypeComposite", .walk = Walk::elsewhere, .note = "MediaTypes"},
        {.slot = 118, .name = "GetImagePositionForMediaType", .walk = Walk::elsewhere, .note = "MediaTypes"},
        {.slot = 119, .name = "SetImagePositionForMediaType", .walk = Walk::elsewhere, .note = "MediaTypes"},
        // clang-format on
    };
    return cases;
}

#undef KOLM_CALL

}  // namespace kolmfluxor::test
