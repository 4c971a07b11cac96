#include "sweep/module/swept_calls.h"

#include <array>
#include <cstring>
#include <map>

#include <strmif.h>
#include <uuids.h>

#include <amvideo.h>
#include <wrl/client.h>

#include "module/scripted_registers.h"
#include "support/scripted_filter.h"

namespace kolmfluxor::test {
namespace {

using Method = std::function<HRESULT(IKolmFluxorPropertySet&, COutputs&)>;

/// A text that was handed out, as a number: its length and one; 0 for none. Frees it.
ULONG Taken(char* text) {
    if (text == nullptr) return 0;
    if (reinterpret_cast<ULONG_PTR>(text) == kPoison) return kPoison;
    const auto length = static_cast<ULONG>(std::strlen(text));
    ::CoTaskMemFree(text);
    return length + 1;
}

char* PoisonedText() {
    return reinterpret_cast<char*>(ULONG_PTR{kPoison});
}

HRESULT CallCameraInfo(IKolmFluxorPropertySet& set, COutputs& o) {
    std::array<char*, 3> texts;
    texts.fill(PoisonedText());
    const HRESULT hr = set.GetCameraInfo(&texts[0], &texts[1], &texts[2], o.W(0));
    for (std::size_t i = 0; i < texts.size(); ++i)
        *o.W(static_cast<int>(i) + 1) = Taken(texts[i]);
    return hr;
}

HRESULT CallCameraInfoEx(IKolmFluxorPropertySet& set, COutputs& o) {
    std::array<char*, 5> texts;
    texts.fill(PoisonedText());
    const HRESULT hr = set.GetCameraInfoEx(&texts[0], &texts[1], &texts[2], o.W(0), &texts[3], &texts[4]);
    for (std::size_t i = 0; i < texts.size(); ++i)
        *o.W(static_cast<int>(i) + 1) = Taken(texts[i]);
    return hr;
}

/// Scalable mode 0, whole area.
struct ScalableType {
    ScriptedFormat format = Format7Mode(0, 1280, 960);
    AM_MEDIA_TYPE type{};
    ScalableType() {
        type.majortype = MEDIATYPE_Video;
        type.subtype = format.subtype;
        type.formattype = FORMAT_VideoInfo;
        type.cbFormat = sizeof format.header;
        type.pbFormat = reinterpret_cast<BYTE*>(&format.header);
    }
};

HRESULT CallApplyMediaType(IKolmFluxorPropertySet& set, COutputs&) {
    ScalableType scalable;
    CScriptedFilter filter;
    filter.formats = {scalable.format};
    HRESULT hr = E_UNEXPECTED;
    {
        Microsoft::WRL::ComPtr<IEnumPins> pins;
        Microsoft::WRL::ComPtr<IPin> pin;
        EXPECT_EQ(filter.Filter()->EnumPins(pins.GetAddressOf()), S_OK);
        EXPECT_EQ(pins->Next(1, pin.GetAddressOf(), nullptr), S_OK);
        hr = set.ApplyMediaTypeComposite(pin.Get(), &scalable.type, &scalable.format.caps);
    }
    EXPECT_EQ(filter.references.pin, 0U);
    EXPECT_EQ(filter.references.config, 0U);
    return hr;
}

std::vector<ULONG> Data(std::size_t quadlets) {
    return std::vector<ULONG>(quadlets, 0x01020304);
}

#define KOLM_CALL(...) \
    [](IKolmFluxorPropertySet& set, [[maybe_unused]] COutputs& o) -> HRESULT { return set.__VA_ARGS__; }

/// The slots that the table leaves to tests of their own.
std::map<int, SweptCall> OwnCalls() {
    const auto isBlock = [](const CWireRequest& request) { return request.Word(16) == kBlockId; };
    return {
        {4, {.call = KOLM_CALL(SetGammaOnOff(TRUE))}},
        {28, {.call = CallCameraInfo, .afterFailure = {kPoison, kPoison, kPoison, kPoison}}},
        {29, {.call = CallCameraInfoEx, .afterFailure = {kPoison, kPoison, kPoison, kPoison}}},
        {34,
         {.call = [](IKolmFluxorPropertySet& set,
                     COutputs&) { return set.WriteBlock(kGpBuffer, Data(4).data(), 4, 16, 1); }}},
        {35, {.call = KOLM_CALL(ReadBlock(kGpBuffer, o.W(0), 2, 8, 0, 0)), .afterFailure = {kPoison, kPoison}}},
        {48, {.call = KOLM_CALL(SetFeature523OnOff(TRUE))}},
        {66, {.call = KOLM_CALL(SetColorCorrectionOnOff(TRUE))}},
        {72, {.call = KOLM_CALL(GetRegisterComposite72(o.W(0), o.W(1))), .afterFailure = {kPoison, kPoison}}},
        {73,
         {.call = [](IKolmFluxorPropertySet& set,
                     COutputs&) { return set.SetRegisterComposite73(Data(600).data(), 600); },
          .tolerates = [=](std::size_t n, const CWireRequest& request) { return n == 3 || isBlock(request); }}},
        {76,
         {.call = [](IKolmFluxorPropertySet& set, COutputs&) { return set.UploadLut(Data(1024).data(), 1024, 0); },
          .tolerates = [=](std::size_t n, const CWireRequest& request) { return n == 4 || isBlock(request); }}},
        {97,
         {.call = KOLM_CALL(GetProperty56Composite(5, o.W(0))),
          .tolerates = [](std::size_t n, const CWireRequest&) { return n <= 3; }}},
        {107, {.call = KOLM_CALL(SetFeatureMode(265, 3))}},
        {110,
         {.call = KOLM_CALL(GetTrigger(o.W(0), o.W(1), o.W(2), o.W(3))),
          .afterFailure = {kPoison, kPoison, kPoison, kPoison}}},
        {117, {.call = CallApplyMediaType, .tolerates = [](std::size_t n, const CWireRequest&) { return n == 3; }}},
        {118,
         {.call =
              [](IKolmFluxorPropertySet& set, COutputs& o) {
                  ScalableType scalable;
                  return set.GetImagePositionForMediaType(o.W(0), o.W(1), &scalable.type);
              },
          .afterFailure = {kPoison, kPoison}}},
        {119,
         {.call =
              [](IKolmFluxorPropertySet& set, COutputs&) {
                  ScalableType scalable;
                  return set.SetImagePositionForMediaType(0, 0, &scalable.type);
              }}},
    };
}

#undef KOLM_CALL

}  // namespace

std::vector<SweptCall> SweptCalls() {
    std::map<int, SweptCall> own = OwnCalls();
    std::vector<SweptCall> calls;
    for (const SlotCase& row : SlotCases()) {
        SweptCall swept = {.call = row.call, .scripted = true, .result = row.result};
        for (const Output& output : row.outputs)
            swept.afterFailure.push_back(output.afterFailure);
        if (row.walk == Walk::elsewhere) swept = own[row.slot];
        swept.name = "slot " + std::to_string(row.slot) + ", " + row.name;
        calls.push_back(swept);
    }
    return calls;
}

}  // namespace kolmfluxor::test
