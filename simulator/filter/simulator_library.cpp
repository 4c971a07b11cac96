#include "filter/simulator_library.h"

#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include "base/errors.h"
#include "base/module_state.h"
#include "ksproxy/fault_text.h"

namespace kolmsim {
namespace {

/// The stand-in's path: in this library's own folder.
std::wstring StandInPath() {
    std::wstring path(32768, L'\0');  // the longest path there is
    const DWORD length =
        ::GetModuleFileNameW(kolmfluxor::ModuleInstance(), path.data(), static_cast<DWORD>(path.size()));
    path.resize(length);
    return path.substr(0, path.find_last_of(L'\\') + 1) + L"ksproxy.ax";
}

/// An environment variable's value, empty when it is not set.
std::wstring Environment(const wchar_t* name) {
    std::wstring value(::GetEnvironmentVariableW(name, nullptr, 0), L'\0');
    if (!value.empty()) {
        value.resize(::GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
    }
    return value;
}

/// The file that keeps the camera's memory, its folder made if need be; empty for none.
std::wstring StateFile(const wchar_t* variant) {
    const std::wstring chosen = Environment(L"KOLMSIM_STATE");
    if (!chosen.empty()) {
        return chosen == L"none" ? std::wstring() : chosen;
    }
    const std::wstring home = Environment(L"LOCALAPPDATA");
    if (home.empty()) {
        return {};
    }
    const std::wstring folder = home + L"\\KolmFluxor";
    ::CreateDirectoryW(folder.c_str(), nullptr);  // there already, usually; opening the file tells if not
    return folder + L"\\simulated-" + variant + L".camera";
}

/// The faults that KOLMSIM_FAULTS asks for; nothing, and a message on the error stream, when it cannot be understood.
std::optional<std::vector<SimFault>> WantedFaults() {
    std::string text;
    for (const wchar_t c : Environment(L"KOLMSIM_FAULTS")) {
        text += c > 0 && c < 0x80 ? static_cast<char>(c) : '?';  // words of the text are ASCII
    }
    try {
        return ParseFaults(text);
    } catch (const FaultTextError& error) {
        std::fprintf(stderr, "KOLMSIM_FAULTS: %s\n", error.what());
        std::fflush(stderr);
        return std::nullopt;
    }
}

}  // namespace

OpenedCamera OpenVariant(const wchar_t* variant, HRESULT* hr) {
    OpenedCamera opened;
    const auto faults = WantedFaults();
    if (!faults) {
        *hr = E_INVALIDARG;
        return opened;
    }
    opened.library.reset(::LoadLibraryW(StandInPath().c_str()));
    if (opened.library == nullptr) {
        *hr = kolmfluxor::HResultFromLastError();
        return opened;
    }
    const FARPROC address = ::GetProcAddress(opened.library.get(), "KolmSimOpenCamera");
    if (address == nullptr) {
        *hr = kolmfluxor::HResultFromLastError();
        return opened;
    }
    const auto open = reinterpret_cast<KolmSimOpenCameraFunction>(reinterpret_cast<void*>(address));

    const std::wstring file = StateFile(variant);
    opened.camera.reset(open(variant, file.empty() ? nullptr : file.c_str()));
    if (opened.camera == nullptr && !file.empty()) {
        opened.camera.reset(open(variant, nullptr));
    }
    if (opened.camera == nullptr) {
        *hr = kolmfluxor::HResultFromLastError();
        return opened;
    }
    for (const SimFault& fault : *faults) {
        opened.camera->AddFault(fault);
    }
    return opened;
}

}  // namespace kolmsim
