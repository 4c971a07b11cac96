/// @file  Generic feature operations, standard families, and switches.

#include "driver/slots.h"

namespace kolmfluxor::fuzz {
namespace {

using Set = IKolmFluxorPropertySet;
using Limits = CPlainFeatures::Limits;
using State = CPlainFeatures::State;

constexpr ULONG kOff = 0;
constexpr ULONG kManual = 1;
constexpr ULONG kOnePush = 2;
constexpr ULONG kAuto = 3;

ULONG Feature(CFuzzInput& input) {
    const std::uint8_t choice = input.Byte();
    return choice < std::size(kFeatureIds) ? kFeatureIds[choice] : choice < 250 ? choice * 16U : input.Word();
}

ULONG Flag(bool on) {
    return on ? 1 : 0;
}

// ---- Generic operations: the feature from the input, or a fixed one for the methods that stand for it.

using Which = std::function<ULONG(CFuzzInput&)>;

Which Fixed(ULONG feature) {
    return [feature](CFuzzInput&) { return feature; };
}

using PresentMethod = std::function<HRESULT(Set&, ULONG, BOOL*)>;
Slot PresentSlot(const char* name, Which which, PresentMethod method) {
    return {name, [=](const Call& c) {
                const ULONG feature = which(c.input);
                const COutputs o = c.Outputs(1);
                const HRESULT hr = method(c.set, feature, o.B(0));
                if (o.HasNull()) return c.Expect(hr, E_POINTER, o, {kPoison});
                BOOL present = FALSE;
                const HRESULT expected = c.features.Present(c.wire, feature, &present);
                c.Expect(hr, expected, o, {Flag(present != FALSE)});
            }};
}

enum class Limit { min, max };
Slot LimitSlot(const char* name, Limit limit) {
    return {name, [=](const Call& c) {
                const ULONG feature = Feature(c.input);
                const COutputs o = c.Outputs(1);
                const HRESULT hr =
                    limit == Limit::min ? c.set.GetFeatureMin(feature, o.W(0)) : c.set.GetFeatureMax(feature, o.W(0));
                if (o.HasNull()) return c.Expect(hr, E_POINTER, o, {kPoison});
                Limits limits;
                const HRESULT expected = c.features.Range(c.wire, feature, &limits);
                c.Expect(hr, expected, o, {limit == Limit::min ? limits.min : limits.max});
            }};
}

using RangeMethod = std::function<HRESULT(Set&, ULONG, ULONG*, ULONG*)>;
Slot RangeSlot(const char* name, Which which, RangeMethod method) {
    return {name, [=](const Call& c) {
                const ULONG feature = which(c.input);
                const COutputs o = c.Outputs(2);
                const HRESULT hr = method(c.set, feature, o.W(0), o.W(1));
                if (o.HasNull()) return c.Expect(hr, E_POINTER, o, {kPoison, kPoison});
                Limits limits;
                const HRESULT expected = c.features.Range(c.wire, feature, &limits);
                c.Expect(hr, expected, o, {limits.min, limits.max});
            }};
}

using ValueMethod = std::function<HRESULT(Set&, ULONG, ULONG*)>;
Slot ValueSlot(const char* name, Which which, ValueMethod method, bool ofMode = false) {
    return {name, [=](const Call& c) {
                const ULONG feature = which(c.input);
                const COutputs o = c.Outputs(1);
                const HRESULT hr = method(c.set, feature, o.W(0));
                if (o.HasNull()) return c.Expect(hr, E_POINTER, o, {kPoison});
                State state;
                const HRESULT expected = c.features.Value(c.wire, feature, &state);
                c.Expect(hr, expected, o, {ofMode ? state.mode : state.value});
            }};
}

using SetValueMethod = std::function<HRESULT(Set&, ULONG, ULONG)>;
Slot SetValueSlot(const char* name, Which which, SetValueMethod method) {
    return {name, [=](const Call& c) {
                const ULONG feature = which(c.input);
                const ULONG value = c.input.Number();
                const HRESULT hr = method(c.set, feature, value);
                c.Expect(hr, c.features.SetValue(c.wire, feature, value));
            }};
}

void ValueAndMode(const Call& c) {
    const ULONG feature = Feature(c.input);
    const COutputs o = c.Outputs(2);
    const HRESULT hr = c.set.GetFeatureValueAndMode(feature, o.W(0), o.W(1));
    if (o.HasNull()) return c.Expect(hr, E_POINTER, o, {kPoison, kPoison});
    State state;
    const HRESULT expected = c.features.Value(c.wire, feature, &state);
    c.Expect(hr, expected, o, {state.value, state.mode});
}

void SetValueAndMode(const Call& c) {
    const ULONG feature = Feature(c.input);
    const ULONG value = c.input.Number();
    const ULONG mode = c.input.Number();
    const HRESULT hr = c.set.SetFeatureValueAndMode(feature, value, mode);
    c.Expect(hr, c.features.SetValueAndMode(c.wire, feature, value, mode));
}

void ModeSupported(const Call& c) {
    const ULONG feature = Feature(c.input);
    const ULONG mode = c.input.Number();
    const COutputs o = c.Outputs(1);
    const HRESULT hr = c.set.IsFeatureModeSupported(feature, mode, o.B(0));
    if (o.HasNull()) return c.Expect(hr, E_POINTER, o, {kPoison});
    BOOL supported = FALSE;
    const HRESULT expected = c.features.Supported(c.wire, feature, mode, &supported);
    c.Expect(hr, expected, o, {Flag(supported != FALSE)});
}

void SetMode(const Call& c) {
    const ULONG feature = Feature(c.input);
    const ULONG mode = c.input.Number();
    const HRESULT hr = c.set.SetFeatureMode(feature, mode);
    c.Expect(hr, c.features.SetMode(c.wire, feature, mode));
}

// ---- Families

using FamilyGet = HRESULT (Set::*)(ULONG*, BOOL*, BOOL*);
Slot FamilyGetSlot(const char* name, ULONG feature, FamilyGet method) {
    return {name, [=](const Call& c) {
                const COutputs o = c.Outputs(3);
                const HRESULT hr = (c.set.*method)(o.W(0), o.B(1), o.B(2));
                if (o.HasNull()) return c.Expect(hr, E_POINTER, o, {kPoison, kPoison, kPoison});
                State state;
                const HRESULT expected = c.features.Value(c.wire, feature, &state);
                c.Expect(hr, expected, o, {state.value, Flag(state.mode == kAuto), Flag(state.mode == kOnePush)});
            }};
}

using FamilySet = HRESULT (Set::*)(ULONG, BOOL, BOOL);
Slot FamilySetSlot(const char* name, ULONG feature, FamilySet method) {
    return {name, [=](const Call& c) {
                const ULONG value = c.input.Number();
                const BOOL autoOn = c.Bool();
                const BOOL onePush = c.Bool();
                const HRESULT hr = (c.set.*method)(value, autoOn, onePush);
                if (autoOn != 0 && onePush != 0) return c.Expect(hr, E_INVALIDARG);
                const ULONG mode = autoOn != 0 ? kAuto : onePush != 0 ? kOnePush : kManual;
                c.Expect(hr, c.features.SetValueAndMode(c.wire, feature, value, mode));
            }};
}

using FamilyRange = HRESULT (Set::*)(ULONG*, ULONG*, BOOL*, BOOL*);
Slot FamilyRangeSlot(const char* name, ULONG feature, FamilyRange method) {
    return {name, [=](const Call& c) {
                const COutputs o = c.Outputs(4);
                const HRESULT hr = (c.set.*method)(o.W(0), o.W(1), o.B(2), o.B(3));
                std::vector<ULONG> words(4, kPoison);
                if (o.HasNull()) return c.Expect(hr, E_POINTER, o, words);
                Limits limits;
                HRESULT expected = c.features.Range(c.wire, feature, &limits);
                words[0] = limits.min;
                words[1] = limits.max;
                if (expected == S_OK) {
                    State state;
                    expected = c.features.Value(c.wire, feature, &state);
                    words[2] = Flag(state.mode == kAuto);
                    words[3] = Flag(state.mode == kOnePush);
                }
                c.Expect(hr, expected, o, words);
            }};
}

// ---- Switches

using SwitchGet = HRESULT (Set::*)(BOOL*);
Slot SwitchGetSlot(const char* name, ULONG feature, SwitchGet method, ULONG inAnyOtherMode) {
    return {name, [=](const Call& c) {
                const COutputs o = c.Outputs(1);
                const HRESULT hr = (c.set.*method)(o.B(0));
                if (o.HasNull()) return c.Expect(hr, E_POINTER, o, {kPoison});
                State state;
                const HRESULT expected = c.features.Value(c.wire, feature, &state);
                const ULONG on = state.mode == kManual ? 1 : state.mode == kOff ? 0 : inAnyOtherMode;
                c.Expect(hr, expected, o, {on});
            }};
}

using SwitchSet = HRESULT (Set::*)(BOOL);
Slot SwitchSetSlot(const char* name, ULONG feature, SwitchSet method) {
    return {name, [=](const Call& c) {
                const BOOL on = c.Bool();
                const HRESULT hr = (c.set.*method)(on);
                c.Expect(hr, c.features.SetMode(c.wire, feature, on == 1 ? kManual : kOff));
            }};
}

}  // namespace

std::vector<Slot> FeatureSlots() {
    std::vector<Slot> slots = {
        PresentSlot("IsFeaturePresent", Feature, &Set::IsFeaturePresent),
        PresentSlot("IsFeature523Present", Fixed(523),
                    [](Set& s, ULONG, BOOL* present) { return s.IsFeature523Present(present); }),
        LimitSlot("GetFeatureMin", Limit::min),
        LimitSlot("GetFeatureMax", Limit::max),
        RangeSlot("GetFeatureRange", Feature, &Set::GetFeatureRange),
        RangeSlot("GetExtendedShutterRange", Fixed(514),
                  [](Set& s, ULONG, ULONG* min, ULONG* max) { return s.GetExtendedShutterRange(min, max); }),
        ValueSlot("GetFeatureValue", Feature, &Set::GetFeatureValue),
        ValueSlot("GetFeatureMode", Feature, &Set::GetFeatureMode, true),
        ValueSlot("GetExtendedShutter", Fixed(514), [](Set& s, ULONG, ULONG* v) { return s.GetExtendedShutter(v); }),
        ValueSlot("GetTimeBase", Fixed(512), [](Set& s, ULONG, ULONG* v) { return s.GetTimeBase(v); }),
        SetValueSlot("SetFeatureValue", Feature, &Set::SetFeatureValue),
        SetValueSlot("SetExtendedShutter", Fixed(514), [](Set& s, ULONG, ULONG v) { return s.SetExtendedShutter(v); }),
        SetValueSlot("SetTimeBase", Fixed(512), [](Set& s, ULONG, ULONG v) { return s.SetTimeBase(v); }),
        {"GetFeatureValueAndMode", ValueAndMode},
        {"SetFeatureValueAndMode", SetValueAndMode},
        {"IsFeatureModeSupported", ModeSupported},
        {"SetFeatureMode", SetMode},
        SwitchGetSlot("GetGammaOnOff", 263, &Set::GetGammaOnOff, 0),
        SwitchSetSlot("SetGammaOnOff", 263, &Set::SetGammaOnOff),
        SwitchGetSlot("GetFeature523OnOff", 523, &Set::GetFeature523OnOff, 0),
        SwitchSetSlot("SetFeature523OnOff", 523, &Set::SetFeature523OnOff),
        SwitchGetSlot("GetColorCorrectionOnOff", 521, &Set::GetColorCorrectionOnOff, kPoison),
        SwitchSetSlot("SetColorCorrectionOnOff", 521, &Set::SetColorCorrectionOnOff),
    };
#define FAMILY(name, feature)                                              \
    slots.push_back(FamilyGetSlot("Get" #name, feature, &Set::Get##name)); \
    slots.push_back(FamilySetSlot("Set" #name, feature, &Set::Set##name)); \
    slots.push_back(FamilyRangeSlot("Get" #name "Range", feature, &Set::Get##name##Range))
    FAMILY(Gain, 265);
    FAMILY(WhiteBalanceUB, 259);
    FAMILY(WhiteBalanceVR, 260);
    FAMILY(Brightness, 256);
    FAMILY(Shutter, 264);
    FAMILY(Sharpness, 258);
    FAMILY(Hue, 261);
    FAMILY(Saturation, 262);
#undef FAMILY
    return slots;
}

}  // namespace kolmfluxor::fuzz
