#pragma once
/// @file  Control interface of the simulated camera: what its capture filter, kolmctl and the tests see of it.
///
/// The simulated camera lives in the stand-in `ksproxy.ax`. Load that library by full path, before any module that
/// imports from `ksproxy.ax`, and take the functions below with `GetProcAddress`. Both sides must come from the same
/// compiler. Every method may be called from any thread.

#include <cstddef>
#include <cstdint>

#include <windows.h>

#include "model/video_format.h"  // portable data alone

namespace kolmsim {

/// Matches every property id in a SimFault.
inline constexpr std::uint32_t kSimAnyId = 0xFFFFFFFF;

/// How many requests the log keeps; beyond that the oldest are dropped.
inline constexpr std::size_t kSimLogLimit = 100'000;

/// One logged driver request.
struct SimRequest {
    std::uint32_t id;              ///< property id; 0xFFFFFFFF when the record is too short to hold one
    std::uint32_t flags;           ///< 1 GET, 2 SET, anything else as it came
    std::uint32_t sizeBytes;       ///< of the record; `sent` and `answered` hold as many bytes
    HRESULT result;                ///< what the request returned
    const std::uint8_t* sent;      ///< the record as it came; null for 0 bytes
    const std::uint8_t* answered;  ///< the caller's record afterwards; null for 0 bytes
    const char* objection;         ///< which rule of the driver contract the request broke; null when none
};

enum class SimFaultAction : std::uint32_t {
    fail,         ///< the request does not reach the camera and returns `code`
    shortAnswer,  ///< only the first `offset` bytes are answered and reported as returned; returns `code`
    patchAnswer,  ///< the answer carries `word` at byte `offset` of the record; returns `code`
    delay,        ///< the request takes `milliseconds` longer
    unplug,       ///< from this request on the camera is not connected, until Plug(true)

    /// The request does not reach the camera: the record comes back as it was sent, with `code`.
    ///
    /// Only its header is checked, so any id and any size is answered without an objection. Faults patchAnswer and
    /// shortAnswer of the same request then shape the answer. The camera's own state stays; a plugged camera is needed.
    answer,
};

/// A fault to inject; start from `SimFault{}` and set what matters.
///
/// Each fault counts the requests that it matches by itself. When several strike one request, `fail` goes before all
/// others (the first one's code), and of the rest the last one added that has a code gives it.
struct SimFault {
    int nth = 1;                   ///< strikes the n-th matching request from now on, 1-based; 0: every one
    std::uint32_t id = kSimAnyId;  ///< property id to match
    std::uint32_t flags = 0;       ///< 1 GET, 2 SET, 0 both
    SimFaultAction action = SimFaultAction::fail;
    HRESULT code = S_OK;             ///< for fail a failure; for the answers a success, e.g. S_FALSE
    std::uint32_t offset = 0;        ///< in bytes, see the actions
    std::uint32_t word = 0;          ///< for patchAnswer
    std::uint32_t milliseconds = 0;  ///< for delay
};

/// Room for one picture of a stream.
struct SimPicture {
    bool topDown;          ///< the first row of an uncompressed RGB picture is its top; all others are top-down anyhow
    std::uint64_t number;  ///< position of what moves in the scene
    std::uint8_t* data;
    std::size_t sizeBytes;  ///< exactly the size of such a picture
};

/// A picture to be drawn, whole.
struct SimFrame {
    std::uint32_t compression;  ///< as in biCompression: a FOURCC such as 'Y800', or BI_RGB
    std::uint32_t bitsPerPixel;
    std::uint32_t width;
    std::uint32_t height;
    std::uint64_t number;  ///< position of what moves in the scene
    std::uint8_t* data;
    std::size_t sizeBytes;  ///< exactly the size of such a picture
};

/// Called after each successful SET, on the requesting thread and with no lock held.
using SimWriteHook = void (*)(void* context, const SimRequest& request);

/// One simulated camera. A plain C++ interface: not counted, destroyed by Close.
struct ISimulatedCamera {
    /// The camera's device handle, a real kernel handle; `KsSynchronousDeviceControl` recognizes it. Do not close it.
    virtual HANDLE Handle() = 0;

    /// How many requests the log holds.
    virtual std::size_t RequestCount() = 0;

    /// Looks at a logged request; its bytes stay valid until ClearLog, Close, or until the log drops it.
    ///
    /// @return  false for an index beyond the log; `*request` is left alone then
    virtual bool Request(std::size_t index, SimRequest* request) = 0;
    virtual void ClearLog() = 0;

    virtual void AddFault(const SimFault& fault) = 0;
    virtual void ClearFaults() = 0;

    /// Pulls or restores the camera's cable. Unplugged, each request returns 0x8007048F and no picture can be drawn.
    virtual void Plug(bool plugged) = 0;

    /// A word of a feature's 64-byte record as the camera holds it; not logged, and no time passes for auto modes.
    ///
    /// Test image (3), shading (30), output 1 (34), trigger (53), ISO speed (54) and geometry switch (61) count too.
    ///
    /// @param driverId  driver property id, not the feature id of the interface
    /// @param offset    in bytes from the start of the record: 24 value, 28 mode bit, 32 modes, 36 minimum, 40 maximum
    /// @return          false for an id or offset that does not exist
    virtual bool GetFeatureWord(std::uint32_t driverId, std::uint32_t offset, std::uint32_t* word) = 0;

    /// The camera changes such a word by itself. A mode takes AutoOn (44) and OnePushOn (52) along; set these after it
    /// to make them differ; a value of shutter, time base or extended shutter takes the exposure time along. Nothing is
    /// checked: any mode word, any value.
    virtual bool SetFeatureWord(std::uint32_t driverId, std::uint32_t offset, std::uint32_t word) = 0;

    /// The camera has a feature, or its trigger (53), no longer, or again.
    virtual bool SetFeaturePresent(std::uint32_t driverId, bool present) = 0;

    /// What a register shows; not logged, and no time passes. False where there is none.
    virtual bool PeekRegister(std::uint32_t address, std::uint32_t* word) = 0;

    /// The camera changes a register by itself; not logged. Where a write acts (controls, the GP buffer) it acts the
    /// same; every other register shows the word from now on until Reset, one that can only be read too.
    virtual bool PokeRegister(std::uint32_t address, std::uint32_t word) = 0;

    /// Bytes of one lookup table as the camera's memory holds them: values in 16 bits each, high byte first.
    ///
    /// @param bytes  receives at most `count` bytes; may be null when `count` is 0
    /// @return       how many bytes the table has, whatever `count` is; 0 when there is no such table
    virtual std::size_t ReadLutMemory(std::uint32_t lut, std::uint8_t* bytes, std::size_t count) = 0;

    /// At most one hook; null takes it away.
    virtual void SetWriteHook(SimWriteHook hook, void* context) = 0;

    /// Puts every setting back to the factory's.
    virtual void Reset() = 0;

    /// Draws what the camera sees with its current settings, and counts the picture: 'Y800' or 'ARW8' with 8 bits per
    /// pixel, 'AY16' or 'UYVY' with 16, 'Y411' with 12, BI_RGB with 24 (bottom-up). Neither stream nor trigger matter.
    ///
    /// @return  false when the camera is unplugged, does not know the layout, or `sizeBytes` does not fit it
    virtual bool RenderFrame(const SimFrame& frame) = 0;

    /// An entry of the list of video formats, in the order in which a capture pin offers them; false beyond its end.
    virtual bool OfferedVideoFormat(std::size_t index, OfferedFormat* format) = 0;

    /// The video format that the camera is set to; false in a mode that it lacks.
    virtual bool CurrentVideoFormat(VideoFormat* format) = 0;

    /// Whether the camera can be set to a format, as CheckFormat says; nothing is logged, as below.
    ///
    /// @return  S_OK; 0x80070057 for what it does not offer, 0x800705AA where the bus is too slow for it, 0x8007048F
    ///          for a camera that is unplugged
    virtual HRESULT CheckVideoFormat(Geometry geometry, VideoFormat* wanted) = 0;

    /// Sets the camera to a format, as ApplyFormat says; same results.
    virtual HRESULT SetVideoFormat(Geometry geometry, VideoFormat* wanted) = 0;

    /// Switches the camera's isochronous transmission.
    virtual void SetStreaming(bool on) = 0;

    /// Takes the next picture of a stream, drawn with the settings of this moment.
    ///
    /// @return  false when there is none now (the camera is unplugged, does not stream, is set to another layout, or
    ///          waits for a trigger), or when `sizeBytes` does not fit
    virtual bool TakeStreamPicture(const VideoFormat& stream, const SimPicture& picture) = 0;

    /// A pulse at the camera's trigger input; false while the trigger is off.
    virtual bool PulseTriggerInput() = 0;

    /// How many bytes a picture of a format takes; 0 where there is no such picture.
    virtual std::size_t PictureBytes(const VideoFormat& format) = 0;

    /// Destroys the camera object. A state file keeps the settings.
    virtual void Close() = 0;

protected:
    ~ISimulatedCamera() = default;
};

/// Type of the export `KolmSimOpenCamera`.
///
/// @param variant    L"mono" or L"color"
/// @param stateFile  file that keeps the camera's memory; processes that name the same file share one camera. A file
///                   that is damaged, of another variant or of another version is replaced. Null: a private camera
///                   in its factory state.
/// @return           null with the last error set: ERROR_INVALID_PARAMETER for an unknown variant, otherwise why the
///                   file could not be opened or memory not be had
using KolmSimOpenCameraFunction = ISimulatedCamera*(__cdecl*)(const wchar_t* variant, const wchar_t* stateFile);

/// Type of the export `KolmSimCameraOfHandle`: the open camera with this device handle, or null.
using KolmSimCameraOfHandleFunction = ISimulatedCamera*(__cdecl*)(HANDLE handle);

}  // namespace kolmsim
