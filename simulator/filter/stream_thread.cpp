#include "filter/stream_thread.h"

#include <algorithm>
#include <ratio>
#include <system_error>
#include <utility>

namespace kolmsim {
namespace {

/// How long to wait before looking again when the camera has no picture.
constexpr DWORD kNoPictureMs = 5;

kolmfluxor::UniqueHandle MakeEvent() {
    kolmfluxor::UniqueHandle event(::CreateEventW(nullptr, TRUE, FALSE, nullptr));
    if (event == nullptr) {
        throw std::system_error(static_cast<int>(::GetLastError()), std::system_category());
    }
    return event;
}

}  // namespace

StreamThread::StreamThread(StreamSetup setup)
    : m_setup(std::move(setup)), m_stop(MakeEvent()), m_run(MakeEvent()), m_thread([this] { Main(); }) {}

StreamThread::~StreamThread() {
    ::SetEvent(m_stop.get());
    m_thread.join();
}

void StreamThread::SetRunning(bool running) {
    running ? ::SetEvent(m_run.get()) : ::ResetEvent(m_run.get());
}

void StreamThread::Main() {
    const bool initialized = SUCCEEDED(::CoInitializeEx(nullptr, COINIT_MULTITHREADED));
    try {
        const HANDLE stopOrRun[] = {m_stop.get(), m_run.get()};
        bool goesOn = true;
        while (goesOn && ::WaitForMultipleObjects(2, stopOrRun, FALSE, INFINITE) == WAIT_OBJECT_0 + 1) {
            goesOn = DeliverOne();
        }
    } catch (...) {
        // Memory is short: the stream is over, the host's process is not.
    }
    if (initialized) {
        ::CoUninitialize();
    }
}

bool StreamThread::DeliverOne() {
    Microsoft::WRL::ComPtr<IMediaSample> sample;
    if (m_setup.allocator->GetBuffer(sample.GetAddressOf(), nullptr, nullptr, 0) != S_OK) {
        return false;
    }
    BYTE* data = nullptr;
    const auto bytes = static_cast<LONG>(m_setup.picture.sizeBytes);
    if (sample->GetPointer(&data) != S_OK || sample->GetSize() < bytes) {
        return false;
    }
    m_setup.picture.data = data;
    if (!m_setup.camera->TakeStreamPicture(m_setup.format, m_setup.picture)) {
        sample.Reset();
        return ::WaitForSingleObject(m_stop.get(), kNoPictureMs) == WAIT_TIMEOUT;
    }
    sample->SetActualDataLength(bytes);
    sample->SetSyncPoint(TRUE);
    sample->SetPreroll(FALSE);
    sample->SetDiscontinuity(m_setup.picture.number == 0);
    sample->SetTime(nullptr, nullptr);
    sample->SetMediaTime(nullptr, nullptr);
    ++m_setup.picture.number;

    // S_FALSE asks for no more; a failure says that nobody takes the samples any longer.
    if (m_setup.receiver->Receive(sample.Get()) != S_OK) {
        return false;
    }
    sample.Reset();
    return WaitForPace();
}

bool StreamThread::WaitForPace() {
    using std::chrono::steady_clock;
    if (m_setup.paceTime == 0) {
        return true;
    }
    const std::chrono::duration<LONGLONG, std::ratio<1, 10'000'000>> frameTime(m_setup.paceTime);
    const auto now = steady_clock::now();
    // One that came a whole frame late delays all that follow: a camera does not catch up.
    m_due = (m_due + frameTime < now ? now : m_due) + frameTime;
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(m_due - now);
    return left.count() <= 0 || ::WaitForSingleObject(m_stop.get(), static_cast<DWORD>(left.count())) == WAIT_TIMEOUT;
}

}  // namespace kolmsim
