#include "system/support_kolmctl.h"

#include <array>
#include <cstring>
#include <optional>
#include <ostream>
#include <stdexcept>
#include <tuple>

#include <objbase.h>
#include <strmif.h>
#include <uuids.h>
#include <wrl/client.h>

#include "support/module.h"

namespace kolmfluxor::test {
namespace {

std::optional<CRegistrar> g_module;
std::optional<CRegistrar> g_captureFilter;

template <class Function> Function Find(HMODULE library, const char* name) {
    const FARPROC found = ::GetProcAddress(library, name);
    Function function = nullptr;
    static_assert(sizeof function == sizeof found);
    std::memcpy(&function, &found, sizeof function);
    return function;
}

Microsoft::WRL::ComPtr<IFilterMapper2> FilterMapper() {
    Microsoft::WRL::ComPtr<IFilterMapper2> mapper;
    EXPECT_EQ(::CoCreateInstance(CLSID_FilterMapper2, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IFilterMapper2),
                                 reinterpret_cast<void**>(mapper.GetAddressOf())),
              S_OK);
    return mapper;
}

}  // namespace

CRegistrar::CRegistrar(const std::wstring& path) : m_library(::LoadLibraryW(path.c_str())) {
    EXPECT_NE(m_library, nullptr) << "error " << ::GetLastError();
}

CRegistrar::~CRegistrar() {
    ::FreeLibrary(m_library);
}

void CRegistrar::Call(const char* entryPoint) const {
    const auto call = Find<HRESULT(STDAPICALLTYPE*)()>(m_library, entryPoint);
    ASSERT_NE(call, nullptr) << entryPoint;
    EXPECT_EQ(call(), S_OK) << entryPoint;
}

COtherDevice::COtherDevice(const wchar_t* friendlyName, REFCLSID filter) : m_filter(filter) {
    REGFILTER2 description{};
    description.dwVersion = 2;
    description.dwMerit = MERIT_DO_NOT_USE;
    EXPECT_EQ(FilterMapper()->RegisterFilter(m_filter, friendlyName, nullptr, &CLSID_VideoInputDeviceCategory, nullptr,
                                             &description),
              S_OK);
}

COtherDevice::~COtherDevice() {
    EXPECT_EQ(FilterMapper()->UnregisterFilter(&CLSID_VideoInputDeviceCategory, nullptr, m_filter), S_OK);
}

void KolmctlTest::SetUpTestSuite() {
    ASSERT_EQ(::CoInitialize(nullptr), S_OK);
    std::ignore = CModule::Get();  // loads the stand-in driver first
    g_module.emplace(CModule::BesideTheTests(L"kolmfluxor.dll"));
    g_captureFilter.emplace(CModule::BesideTheTests(L"simulator\\kolmsimcam.ax"));
}

void KolmctlTest::TearDownTestSuite() {
    g_module->Unregister();
    g_captureFilter->Unregister();
    g_captureFilter.reset();
    g_module.reset();
    ::CoUninitialize();
}

void KolmctlTest::SetUp() {
    // For each test, since some take the registration away.
    g_module->Register();
    g_captureFilter->Register();

    std::array<wchar_t, MAX_PATH> folder{};
    std::array<wchar_t, MAX_PATH> path{};
    ::GetTempPathW(static_cast<DWORD>(folder.size()), folder.data());
    ASSERT_NE(::GetTempFileNameW(folder.data(), L"cam", 0, path.data()), 0U);
    m_stateFile = path.data();
    ASSERT_TRUE(::SetEnvironmentVariableW(L"KOLMSIM_STATE", m_stateFile.c_str()));
    ::SetEnvironmentVariableW(L"KOLMSIM_FAULTS", nullptr);  // of an earlier test that did not come to its end
}

void KolmctlTest::TearDown() {
    EXPECT_TRUE(::DeleteFileW(m_stateFile.c_str())) << "a process still has the camera: " << ::GetLastError();
}

ProcessOutcome KolmctlTest::Kolmctl(const std::vector<std::wstring>& arguments, const std::string& input) {
    return RunProcess(CModule::BesideTheTests(L"kolmctl.exe"), arguments, input);
}

ProcessOutcome KolmctlTest::KolmctlWithFaults(const std::wstring& faults, const std::vector<std::wstring>& arguments) {
    ::SetEnvironmentVariableW(L"KOLMSIM_FAULTS", faults.c_str());
    ProcessOutcome outcome = Kolmctl(arguments);
    ::SetEnvironmentVariableW(L"KOLMSIM_FAULTS", nullptr);
    return outcome;
}

void KolmctlTest::ChangeToFreshCamera() const {
    ASSERT_TRUE(::DeleteFileW(m_stateFile.c_str())) << "a process still has the camera: " << ::GetLastError();
    const UniqueCamera made = OpenCamera();  // makes the file anew
}

UniqueCamera KolmctlTest::OpenCamera(const wchar_t* variant) const {
    const HMODULE standIn = ::GetModuleHandleW(CModule::BesideTheTests(L"simulator\\ksproxy.ax").c_str());
    const auto open = Find<kolmsim::KolmSimOpenCameraFunction>(standIn, "KolmSimOpenCamera");
    UniqueCamera camera(open(variant, m_stateFile.c_str()));
    if (camera == nullptr) {
        throw std::runtime_error("the camera's state file cannot be opened");
    }
    return camera;
}

std::uint32_t KolmctlTest::Word(std::uint32_t driverId, std::uint32_t offset) const {
    std::uint32_t word = 0xDEADBEEF;
    EXPECT_TRUE(OpenCamera()->GetFeatureWord(driverId, offset, &word));
    return word;
}

const CRegistrar& KolmctlTest::Module() {
    return *g_module;
}

const CRegistrar& KolmctlTest::CaptureFilter() {
    return *g_captureFilter;
}

void PrintTo(const ProcessOutcome& outcome, std::ostream* stream) {
    *stream << "exit code " << outcome.exitCode << ", out:\n" << outcome.out << "err:\n" << outcome.err;
}

}  // namespace kolmfluxor::test
