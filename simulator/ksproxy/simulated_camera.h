#pragma once
/// @file  One open simulated camera: its memory, its log, its faults and its device handle.

#include <memory>
#include <mutex>
#include <optional>
#include <span>

#include "base/handles.h"
#include "ksproxy/fault_list.h"
#include "ksproxy/request_log.h"
#include "ksproxy/simulator_control.h"
#include "ksproxy/state_storage.h"
#include "model/frame_renderer.h"
#include "model/render_settings.h"
#include "model/status.h"

namespace kolmsim {

/// The `HRESULT` by which a driver's Win32 error reaches the caller of `KsSynchronousDeviceControl`.
[[nodiscard]] HRESULT HResultOf(Status status);

/// Implements ISimulatedCamera. Made by the camera registry, which also shares it with requests under way.
class SimulatedCamera final : public ISimulatedCamera {
public:
    /// @param storage  the camera's memory
    /// @param handle   a kernel handle of its own, by which requests name the camera
    SimulatedCamera(std::unique_ptr<StateStorage> storage, kolmfluxor::UniqueHandle handle, Variant variant);

    /// Carries out one request: log, faults, cable, camera, hook.
    ///
    /// @param record     the caller's record, answered in place when the request succeeds
    /// @param objection  which rule of the contract the call already broke (it is then refused and logged), or null
    /// @param returned   receives the count of bytes answered
    HRESULT Perform(std::span<std::uint8_t> record, const char* objection, ULONG* returned);

    // ISimulatedCamera
    HANDLE Handle() override { return m_handle.get(); }
    std::size_t RequestCount() override;
    bool Request(std::size_t index, SimRequest* request) override;
    void ClearLog() override;
    void AddFault(const SimFault& fault) override;
    void ClearFaults() override;
    void Plug(bool plugged) override;
    bool GetFeatureWord(std::uint32_t driverId, std::uint32_t offset, std::uint32_t* word) override;
    bool SetFeatureWord(std::uint32_t driverId, std::uint32_t offset, std::uint32_t word) override;
    bool SetFeaturePresent(std::uint32_t driverId, bool present) override;
    bool PeekRegister(std::uint32_t address, std::uint32_t* word) override;
    bool PokeRegister(std::uint32_t address, std::uint32_t word) override;
    std::size_t ReadLutMemory(std::uint32_t lut, std::uint8_t* bytes, std::size_t count) override;
    void SetWriteHook(SimWriteHook hook, void* context) override;
    void Reset() override;
    bool RenderFrame(const SimFrame& frame) override;
    bool OfferedVideoFormat(std::size_t index, OfferedFormat* format) override;
    bool CurrentVideoFormat(VideoFormat* format) override;
    HRESULT CheckVideoFormat(Geometry geometry, VideoFormat* wanted) override;
    HRESULT SetVideoFormat(Geometry geometry, VideoFormat* wanted) override;
    void SetStreaming(bool on) override;
    bool TakeStreamPicture(const VideoFormat& stream, const SimPicture& picture) override;
    bool PulseTriggerInput() override;
    std::size_t PictureBytes(const VideoFormat& format) override;
    void Close() override;

private:
    /// Whether the camera is still reachable after the faults that strike this request; `*code` says why not.
    [[nodiscard]] bool ReachesCamera(std::span<const SimFault> faults, HRESULT* code);

    /// Lets the camera answer in place, or a fault in its place; `*objection` says which rule the record breaks.
    [[nodiscard]] Status AnswerInPlace(std::span<const SimFault> faults, std::span<std::uint8_t> record,
                                       const char** objection);

    [[nodiscard]] bool IsPlugged();

    /// The renderer of a scene of this drawable size; made anew only when the size changes.
    [[nodiscard]] std::shared_ptr<const FrameRenderer> RendererFor(std::uint32_t width, std::uint32_t height);

    const std::unique_ptr<StateStorage> m_storage;
    const kolmfluxor::UniqueHandle m_handle;
    const Variant m_variant;

    std::mutex m_lock;  ///< guards all below; never held while the camera's memory is or a hook runs
    RequestLog m_log;
    FaultList m_faults;
    bool m_plugged = true;
    SimWriteHook m_hook = nullptr;
    void* m_hookContext = nullptr;
    std::shared_ptr<const FrameRenderer> m_renderer;  ///< for the size drawn last
};

}  // namespace kolmsim
