#include "kolmview/camera_feed.h"

#include <exception>

#include "hresult_text.h"

namespace kolmview {
namespace {

using namespace std::chrono_literals;

/// A stream that is silent for so long has something to explain.
constexpr auto kSilence = 2s;
/// How often a silent camera is asked what is wrong: each question is a request to its driver.
constexpr auto kBetweenQuestions = 1s;

constexpr ULONG kIsoEnable = 0xF0F00614;  // IIDC "ISOEnable": every camera has it, reading changes nothing

constexpr char kStartAnew[] = "\nF5 starts the stream anew.";

}  // namespace

void CameraFeed::Start(Time now) {
    Stop();
    m_failure.reset();
    m_lost = false;
    try {
        if (m_camera == nullptr) {
            m_camera = kolmctl::OpenChosenCamera(m_choice);
        }
        m_graph = std::make_unique<LiveGraph>(*m_camera);
        m_notice.clear();
        m_started = now;
        m_asked = {};
    } catch (const kolmctl::Error& error) {
        Fail(error.what(), error.Hint(), error.Code());
    } catch (const std::exception& error) {
        // The interface lets exceptions pass, of the module and of the standard library.
        Fail(error.what(), "", kolmctl::ExitCode::refused);
    }
}

void CameraFeed::Fail(const std::string& message, const std::string& hint, kolmctl::ExitCode code) {
    m_notice = message + (hint.empty() ? "" : "\n" + hint) + "\nF5 tries again.";
    m_failure = code;
    m_lost = m_camera != nullptr && AskCamera() != S_OK;
}

void CameraFeed::Stop() {
    m_graph.reset();
    m_notice = std::string("Stopped.") + kStartAnew;
}

void CameraFeed::Close() {
    Stop();
    m_camera.reset();
    m_lost = false;
}

bool CameraFeed::TakePicture(kolmctl::Picture* picture) {
    if (m_graph == nullptr || !m_graph->Newest().Take(&m_sample)) {
        return false;
    }
    const SampleFormat& format = m_graph->Format();
    if (m_sample.size() < format.Bytes()) {
        return false;  // cut short on its way
    }
    picture->width = static_cast<UINT>(format.width);
    picture->height = static_cast<UINT>(format.height);
    picture->pixels.resize(picture->RowBytes() * picture->height);
    ConvertSample(format, m_sample, picture->pixels);
    return true;
}

void CameraFeed::Watch(Time now) {
    if (m_graph == nullptr) {
        return;
    }
    if (const auto broken = m_graph->TakeBreak()) {
        Stop();
        m_lost = true;
        m_notice = (*broken == S_FALSE ? "The camera was unplugged."
                                       : "The stream has broken off: " + kolmctl::HResultText(*broken)) +
                   kStartAnew;
        return;
    }
    const RateMeter::Duration silence = m_graph->Newest().FiguresAt(now).silence.value_or(now - m_started);
    if (silence <= kSilence) {
        m_notice.clear();
        m_lost = false;
    } else if (now - m_asked >= kBetweenQuestions) {
        m_asked = now;
        m_notice = ReasonForSilence(silence);
    }
}

HRESULT CameraFeed::AskCamera() const {
    try {
        ULONG word = 0;
        return m_camera->PropertySet().ReadRegister(kIsoEnable, &word);
    } catch (const std::exception&) {
        return E_UNEXPECTED;
    }
}

bool CameraFeed::WaitsForTrigger() const {
    try {
        ULONG on = 0;
        return m_camera->PropertySet().GetTrigger(nullptr, &on, nullptr, nullptr) == S_OK && on == 1;
    } catch (const std::exception&) {
        return false;
    }
}

std::string CameraFeed::ReasonForSilence(RateMeter::Duration silence) {
    const HRESULT hr = AskCamera();
    m_lost = hr != S_OK;
    if (m_lost) {
        return "The camera does not answer: " + kolmctl::HResultText(hr) + kStartAnew;
    }
    if (WaitsForTrigger()) {
        return "The camera waits for its trigger.";
    }
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(silence).count();
    return "No picture for " + std::to_string(seconds) + " s." + kStartAnew;
}

}  // namespace kolmview
