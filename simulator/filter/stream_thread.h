#pragma once
/// @file  The thread that draws pictures and hands them to the next filter.

#include <chrono>
#include <cstdint>
#include <functional>
#include <thread>

#include <windows.h>

#include <strmif.h>
#include <wrl/client.h>

#include "base/handles.h"
#include "ksproxy/simulator_control.h"

namespace kolmsim {

/// What a streaming thread works with.
struct StreamSetup {
    ISimulatedCamera* camera;  ///< outlives the thread
    Microsoft::WRL::ComPtr<IMemAllocator> allocator;
    Microsoft::WRL::ComPtr<IMemInputPin> receiver;
    VideoFormat format;     ///< of the pictures
    SimPicture picture;     ///< `topDown` and `sizeBytes`; the rest is filled in here
    LONGLONG paceTime = 0;  ///< from one picture to the next, in 100 ns units; 0 for as fast as the graph takes them
};

/// Delivers pictures while it is told to run, until the allocator is decommitted or the next filter takes no more.
///
/// As from any live source, nothing is delivered while the filter is paused, and nothing while the camera has no
/// picture for the stream: unplugged, set to another format, or waiting for a trigger. Samples carry no time stamps:
/// they are to be shown as they come. The picture number starts at 0.
class StreamThread {
public:
    explicit StreamThread(StreamSetup setup);

    /// Ends the thread and waits for it. The allocator must have been decommitted, and the next filter must not keep a
    /// sample in its `Receive` for ever.
    ~StreamThread();

    StreamThread(const StreamThread&) = delete;
    StreamThread& operator=(const StreamThread&) = delete;

    /// Starts or holds the delivery.
    void SetRunning(bool running);

private:
    void Main();

    /// Draws and delivers one picture; false when the stream is over.
    [[nodiscard]] bool DeliverOne();

    /// Waits until the next picture is due; false when the stream is over.
    [[nodiscard]] bool WaitForPace();

    StreamSetup m_setup;
    std::chrono::steady_clock::time_point m_due{};  ///< when the next picture may come
    kolmfluxor::UniqueHandle m_stop;                ///< manual-reset events
    kolmfluxor::UniqueHandle m_run;
    std::thread m_thread;
};

}  // namespace kolmsim
