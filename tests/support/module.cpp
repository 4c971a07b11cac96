#include "support/module.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <wrl/client.h>

namespace kolmfluxor::test {
namespace {

HMODULE Load(const std::wstring& path) {
    HMODULE const library = ::LoadLibraryW(path.c_str());
    if (library == nullptr) {
        std::fprintf(stderr, "cannot load %ls: error %lu\n", path.c_str(), ::GetLastError());
        std::exit(EXIT_FAILURE);
    }
    return library;
}

template <class Function> Function Find(HMODULE library, const char* name) {
    const FARPROC found = ::GetProcAddress(library, name);
    if (found == nullptr) {
        std::fprintf(stderr, "%s is not exported\n", name);
        std::exit(EXIT_FAILURE);
    }
    Function function = nullptr;
    std::memcpy(&function, &found, sizeof function);
    return function;
}

using EntryPoint = HRESULT(STDAPICALLTYPE*)();
using ClassObjectFunction = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);

}  // namespace

CModule::CModule()
    : m_path(BesideTheTests(L"kolmfluxor.dll")),
      m_simulator(Load(BesideTheTests(L"simulator\\ksproxy.ax"))),
      m_module(Load(m_path)) {}

const CModule& CModule::Get() {
    static const CModule module;
    return module;
}

std::wstring CModule::BesideTheTests(const std::wstring& name) {
    std::array<wchar_t, 1024> path{};
    ::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    const std::wstring program = path.data();
    return program.substr(0, program.find_last_of(L'\\') + 1) + name;
}

HRESULT CModule::GetClassObject(REFCLSID classId, REFIID riid, void** out) const {
    return Find<ClassObjectFunction>(m_module, "DllGetClassObject")(classId, riid, out);
}

HRESULT CModule::CanUnloadNow() const {
    return Find<EntryPoint>(m_module, "DllCanUnloadNow")();
}

HRESULT CModule::RegisterServer() const {
    return Find<EntryPoint>(m_module, "DllRegisterServer")();
}

HRESULT CModule::UnregisterServer() const {
    return Find<EntryPoint>(m_module, "DllUnregisterServer")();
}

HRESULT CModule::Create(REFCLSID classId, IUnknown* outer, REFIID riid, void** out) const {
    Microsoft::WRL::ComPtr<IClassFactory> factory;
    const HRESULT hr = GetClassObject(classId, IID_IClassFactory, reinterpret_cast<void**>(factory.GetAddressOf()));
    return hr != S_OK ? hr : factory->CreateInstance(outer, riid, out);
}

kolmsim::ISimulatedCamera* CModule::OpenCamera(const wchar_t* variant) const {
    return Find<kolmsim::KolmSimOpenCameraFunction>(m_simulator, "KolmSimOpenCamera")(variant, nullptr);
}

kolmsim::ISimulatedCamera* CModule::CameraOfHandle(HANDLE handle) const {
    return Find<kolmsim::KolmSimCameraOfHandleFunction>(m_simulator, "KolmSimCameraOfHandle")(handle);
}

}  // namespace kolmfluxor::test
