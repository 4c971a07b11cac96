#pragma once
/// @file  A camera and its stream, as a viewer sees them.

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "camera.h"
#include "camera_choice.h"
#include "errors.h"
#include "kolmview/live_graph.h"
#include "picture.h"

namespace kolmview {

/// Opens the camera, keeps its stream, and says in words why there are no pictures when there are none. Whatever fails
/// ends in those words: no method throws for the camera's sake. On one thread, with single-threaded COM.
class CameraFeed {
public:
    using Time = std::chrono::steady_clock::time_point;

    explicit CameraFeed(kolmctl::CameraChoice choice) : m_choice(std::move(choice)) {}

    /// Starts the stream anew, with the format that the camera is set to now; opens the camera where there is none.
    void Start(Time now);
    void Stop();
    /// Stops and lets the camera go. Everything else that holds the camera has to go before.
    void Close();

    [[nodiscard]] bool IsRunning() const { return m_graph != nullptr; }
    /// The camera; null as long as none could be opened. Valid until Close.
    [[nodiscard]] kolmctl::Camera* OpenedCamera() const { return m_camera.get(); }
    /// Whether the camera did not answer when it was last asked: the next Start should come after a Close.
    [[nodiscard]] bool IsLost() const { return m_lost; }

    /// Takes the newest picture if there is one that was not taken yet.
    ///
    /// @param picture  receives it; left alone otherwise
    bool TakePicture(kolmctl::Picture* picture);

    /// Looks after the stream; for calling a few times a second.
    void Watch(Time now);

    /// What to tell the user in the picture's place, in UTF-8; empty while pictures come.
    [[nodiscard]] const std::string& Notice() const { return m_notice; }
    /// What the last Start failed with.
    [[nodiscard]] const std::optional<kolmctl::ExitCode>& Failure() const { return m_failure; }

    /// The stream's graph; only while running.
    [[nodiscard]] LiveGraph& Graph() const { return *m_graph; }

private:
    void Fail(const std::string& message, const std::string& hint, kolmctl::ExitCode code);
    /// What the camera answers to a harmless question. The interface lets exceptions pass; they count as E_UNEXPECTED.
    [[nodiscard]] HRESULT AskCamera() const;
    [[nodiscard]] bool WaitsForTrigger() const;
    /// Why there are no pictures, as far as the camera tells.
    [[nodiscard]] std::string ReasonForSilence(RateMeter::Duration silence);

    const kolmctl::CameraChoice m_choice;
    std::unique_ptr<kolmctl::Camera> m_camera;
    std::unique_ptr<LiveGraph> m_graph;  ///< gone before the camera
    std::vector<std::uint8_t> m_sample;  ///< memory for the next sample
    Time m_started;
    Time m_asked;  ///< when the camera was last asked what is wrong
    bool m_lost = false;
    std::string m_notice;
    std::optional<kolmctl::ExitCode> m_failure;
};

}  // namespace kolmview
