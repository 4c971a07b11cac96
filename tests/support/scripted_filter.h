#pragma once
/// @file  A capture filter's pins and formats, scripted: what a driver may answer, and in which order it is asked.

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <windows.h>

#include <strmif.h>

#include <amvideo.h>  // needs strmif.h before it

#include "support/call_faults.h"

namespace kolmfluxor::test {

template <class Interface> class CCounted;

/// A media type with its capability record, and how the pin answers for it.
struct ScriptedFormat {
    GUID majorType{};
    GUID subtype{};
    GUID formatType{};
    VIDEOINFOHEADER header{};
    ULONG blockBytes = sizeof(VIDEOINFOHEADER);  ///< of the format block; 0: none
    ULONG sampleBytes = 0;
    VIDEO_STREAM_CONFIG_CAPS caps{};
    bool noBlock = false;   ///< names the block's size and gives no block
    HRESULT result = S_OK;  ///< of GetStreamCaps
    bool noType = false;    ///< hands out no media type whatever the result is
};

/// The FOURCC of four characters, as in biCompression.
constexpr DWORD FourCc(const char (&text)[5]) {
    return static_cast<DWORD>(static_cast<unsigned char>(text[0])) |
           static_cast<DWORD>(static_cast<unsigned char>(text[1])) << 8 |
           static_cast<DWORD>(static_cast<unsigned char>(text[2])) << 16 |
           static_cast<DWORD>(static_cast<unsigned char>(text[3])) << 24;
}

/// A fixed IIDC mode at 15 fps, from 3.75 to 30 fps.
ScriptedFormat FixedMode(LONG width, LONG height, DWORD fourCc, WORD bits, DWORD mode);

/// Scalable mode `mode` of a sensor of this size: full area, steps of 4 (x), 2 (y), 8 (width) and 2 (height), from
/// 16 x 16, 15 fps, from 1.875 to 60 fps.
ScriptedFormat Format7Mode(DWORD mode, LONG sensorWidth, LONG sensorHeight);

/// Gives a format another area; bitmap and sizes follow.
void SetArea(ScriptedFormat& format, const RECT& area);

/// A filter, an enumerator of its one pin, the pin, and the pin's configuration, each an object with its own count.
///
/// Every call is noted; `references` tells whether all was given back.
class CScriptedFilter {
public:
    CScriptedFilter();
    ~CScriptedFilter();
    CScriptedFilter(const CScriptedFilter&) = delete;
    CScriptedFilter& operator=(const CScriptedFilter&) = delete;

    [[nodiscard]] IBaseFilter* Filter();

    // The script
    std::vector<ScriptedFormat> formats;
    int current = 0;          ///< the format that GetFormat gives
    HRESULT enumPins = S_OK;  ///< results of the calls; a failing one gives nothing
    HRESULT next = S_OK;
    HRESULT queryConfig = S_OK;
    HRESULT getFormat = S_OK;
    HRESULT getCount = S_OK;
    HRESULT setFormat = S_OK;
    bool givesNothing = false;        ///< EnumPins succeeds without an enumerator
    bool givesNoPin = false;          ///< Next succeeds without a pin
    bool noCurrent = false;           ///< GetFormat succeeds without a media type
    std::optional<int> currents;      ///< GetFormat gives a media type so many times only; always without it
    std::optional<int> claimedCount;  ///< of capabilities; as many as there are without it
    int recordBytes = sizeof(VIDEO_STREAM_CONFIG_CAPS);

    CCallFaults* faults = nullptr;  ///< counts the queries of the filter itself, as "query device"

    /// Answers queries of the filter for interfaces that it does not have itself; `*out` is null on entry.
    std::function<HRESULT(REFIID riid, void** out)> otherInterfaces;

    /// Called with the object's name at each release, before it counts.
    std::function<void(const std::string&)> onRelease;

    // What was seen
    std::vector<std::string> calls;
    std::vector<ScriptedFormat> set;  ///< what SetFormat was given
    struct {
        ULONG filter = 0, pins = 0, pin = 0, config = 0, types = 0;
    } references;  ///< given out and not yet released; media types, too

private:
    class CFilter;
    class CPins;
    class CPin;
    class CConfig;
    class CTypeMark;
    template <class Interface> friend class CCounted;

    /// A media type in task memory, as a driver hands it out.
    AM_MEDIA_TYPE* NewType(const ScriptedFormat& format);
    void Note(const char* released);

    std::unique_ptr<CFilter> m_filter;
    std::unique_ptr<CPins> m_pins;
    std::unique_ptr<CPin> m_pin;
    std::unique_ptr<CConfig> m_config;
    std::unique_ptr<CTypeMark> m_typeMark;
};

}  // namespace kolmfluxor::test
