#include "module/simulator_fixture.h"

#include <cstring>
#include <tuple>

namespace kolmfluxor::test {
namespace {

template <class Function> Function Export(const char* name) {
    const FARPROC found = ::GetProcAddress(::GetModuleHandleW(L"ksproxy.ax"), name);
    EXPECT_NE(found, nullptr) << name;
    Function function = nullptr;
    std::memcpy(&function, &found, sizeof function);
    return function;
}

}  // namespace

SimulatorTest::SimulatorTest() {
    std::ignore = CModule::Get();  // loads the stand-in
    m_control = Export<DeviceControl>("KsSynchronousDeviceControl");
    m_open = Export<kolmsim::KolmSimOpenCameraFunction>("KolmSimOpenCamera");
    m_camera.reset(m_open(L"color", nullptr));
}

HRESULT SimulatorTest::Send(std::vector<std::uint8_t>& record, ULONG* returned) const {
    ULONG unused = 0;
    const auto bytes = static_cast<ULONG>(record.size());
    return m_control(m_camera->Handle(), IOCTL_KS_PROPERTY, record.data(), bytes, record.data(), bytes,
                     returned != nullptr ? returned : &unused);
}

HRESULT SimulatorTest::GetFeature(std::uint32_t id) {
    m_record = Get(id).Bytes();
    return Send(m_record);
}

HRESULT SimulatorTest::SetGain(std::uint32_t value) {
    constexpr std::uint32_t kManual = 0x2;
    m_record = Set(kGainId).With(24, value).With(28, kManual).Bytes();
    return Send(m_record);
}

std::uint32_t SimulatorTest::Word(std::size_t offset) const {
    return CWireRequest(m_record).Word(offset);
}

kolmsim::SimRequest SimulatorTest::Last() const {
    kolmsim::SimRequest request{};
    EXPECT_TRUE(m_camera->Request(m_camera->RequestCount() - 1, &request));
    return request;
}

std::uint32_t SimulatorTest::GainOf(kolmsim::ISimulatedCamera& camera) {
    std::uint32_t word = 0xDEADBEEF;
    EXPECT_TRUE(camera.GetFeatureWord(kGainId, 24, &word));
    return word;
}

}  // namespace kolmfluxor::test
