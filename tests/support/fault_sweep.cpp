#include "support/fault_sweep.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <random>
#include <utility>

namespace kolmfluxor::test {
namespace {

constexpr std::chrono::seconds kPatience(40);
constexpr std::uint32_t kHeaderBytes = 24;
constexpr std::uint32_t kLongestRecord = 840;  // but for blocks
constexpr std::uint32_t kLateMs = 2;
constexpr std::uint32_t kNowhere = 0xFFFFFFF0;  // a patch there changes the code alone

constexpr HRESULT Code(std::uint32_t code) {
    return static_cast<HRESULT>(code);
}

// clang-format off
constexpr SweptFault kFaults[] = {
    {.name = "fails with E_FAIL",                .kind = FaultKind::fail, .code = E_FAIL},
    {.name = "fails with 0x800701E7",            .kind = FaultKind::fail, .code = Code(0x800701E7)},
    {.name = "fails with 0x80070490",            .kind = FaultKind::fail, .code = Code(0x80070490)},
    {.name = "fails with 0x8007048F",            .kind = FaultKind::fail, .code = Code(0x8007048F)},
    {.name = "returns S_FALSE",                  .kind = FaultKind::qualified, .code = S_FALSE},
    {.name = "is answered with no byte",         .kind = FaultKind::cut, .bytes = 0},
    {.name = "is answered with its header",      .kind = FaultKind::cut, .bytes = kHeaderBytes},
    {.name = "is answered with one word",        .kind = FaultKind::cut, .bytes = kHeaderBytes + 4},
    {.name = "is answered with random words",    .kind = FaultKind::garbage, .seed = 20260107},
    {.name = "is answered with random numbers",  .kind = FaultKind::garbage, .seed = 20260108, .mask = 0xFF},
    {.name = "is answered late",                 .kind = FaultKind::late},
    {.name = "finds the camera unplugged",       .kind = FaultKind::unplug, .code = Code(0x8007048F)},
};
// clang-format on

}  // namespace

std::span<const SweptFault> SweptFaults() {
    return kFaults;
}

void Inject(kolmsim::ISimulatedCamera& camera, const SweptFault& fault, int nth) {
    using kolmsim::SimFaultAction;
    switch (fault.kind) {
    case FaultKind::fail:
        camera.AddFault({.nth = nth, .action = SimFaultAction::fail, .code = fault.code});
        break;
    case FaultKind::qualified:
        camera.AddFault(
            {.nth = nth, .action = SimFaultAction::patchAnswer, .code = fault.code, .offset = kNowhere, .word = 0});
        break;
    case FaultKind::cut:
        camera.AddFault({.nth = nth, .action = SimFaultAction::shortAnswer, .offset = fault.bytes});
        break;
    case FaultKind::garbage: {
        std::mt19937 words(fault.seed + static_cast<unsigned>(nth));
        for (std::uint32_t offset = kHeaderBytes; offset < kLongestRecord; offset += 4) {
            const auto word = static_cast<std::uint32_t>(words()) & fault.mask;
            camera.AddFault({.nth = nth, .action = SimFaultAction::patchAnswer, .offset = offset, .word = word});
        }
        break;
    }
    case FaultKind::late:
        camera.AddFault({.nth = nth, .action = SimFaultAction::delay, .milliseconds = kLateMs});
        break;
    case FaultKind::unplug:
        camera.AddFault({.nth = nth, .action = SimFaultAction::unplug});
        break;
    }
}

void Heal(kolmsim::ISimulatedCamera& camera) {
    camera.ClearFaults();
    camera.Plug(true);
}

CHangGuard::CHangGuard() : m_watch([this] { Watch(); }) {}

CHangGuard::~CHangGuard() {
    {
        const std::scoped_lock lock(m_lock);
        m_stopped = true;
    }
    m_wake.notify_all();
    m_watch.join();
}

void CHangGuard::Step(std::string step) {
    const std::scoped_lock lock(m_lock);
    m_step = std::move(step);
    ++m_steps;
}

void CHangGuard::Watch() {
    std::unique_lock lock(m_lock);
    int seen = -1;
    while (!m_stopped) {
        if (m_steps == seen) {
            std::fprintf(stderr, "no end within %lld s: %s\n", static_cast<long long>(kPatience.count()),
                         m_step.c_str());
            std::fflush(stderr);
            ::TerminateProcess(::GetCurrentProcess(), 3);
        }
        seen = m_steps;
        m_wake.wait_for(lock, kPatience, [this] { return m_stopped; });
    }
}

void ReportTried(const char* what, int tried) {
    std::printf("%s: %d\n", what, tried);
    ::testing::Test::RecordProperty("tried", tried);
    EXPECT_GT(tried, 0) << what;
}

}  // namespace kolmfluxor::test
