#include "ksproxy/state_storage.h"

#include <cwchar>
#include <iterator>
#include <new>
#include <string>

namespace kolmsim {
namespace {

using kolmfluxor::UniqueHandle;

/// The file's full path in lower case, or nothing with the last error set.
std::wstring CanonicalPath(const wchar_t* file) {
    if (*file == L'\0') {
        ::SetLastError(ERROR_PATH_NOT_FOUND);  // the system does not always say why an empty path has no full form
        return {};
    }
    const DWORD needed = ::GetFullPathNameW(file, 0, nullptr, nullptr);
    std::wstring path(needed, L'\0');
    const DWORD length = needed == 0 ? 0 : ::GetFullPathNameW(file, needed, path.data(), nullptr);
    if (length == 0 || length >= needed) {
        return {};
    }
    path.resize(length);
    ::CharLowerW(path.data());
    return path;
}

/// One mutex name for each state file; a path itself may be too long for a name and holds backslashes.
std::wstring MutexName(const std::wstring& path) {
    std::uint64_t hash = 14695981039346656037U;  // FNV-1a, 64 bits
    for (const wchar_t c : path) {
        hash = (hash ^ static_cast<std::uint64_t>(c)) * 1099511628211U;
    }
    wchar_t name[64];
    std::swprintf(name, std::size(name), L"Local\\KolmFluxorSimulatedCamera-%08lx%08lx",
                  static_cast<unsigned long>(hash >> 32), static_cast<unsigned long>(hash & 0xFFFFFFFFU));
    return name;
}

}  // namespace

StateStorage::Access::Access(StateStorage& storage) : m_storage(storage) {
    ::WaitForSingleObject(m_storage.m_mutex.get(), INFINITE);
}

StateStorage::Access::~Access() {
    ::ReleaseMutex(m_storage.m_mutex.get());
}

std::unique_ptr<StateStorage> StateStorage::Open(Variant variant, const wchar_t* file) {
    std::unique_ptr<StateStorage> storage(new StateStorage);

    std::wstring mutexName;
    if (file != nullptr) {
        const std::wstring path = CanonicalPath(file);
        if (path.empty()) {
            return nullptr;
        }
        mutexName = MutexName(path);
    }
    storage->m_mutex.reset(::CreateMutexW(nullptr, FALSE, file != nullptr ? mutexName.c_str() : nullptr));
    if (storage->m_mutex == nullptr) {
        return nullptr;
    }

    if (file == nullptr) {
        storage->m_private = std::make_unique<CameraState>();
        storage->m_state = storage->m_private.get();
    } else if (!storage->MapFile(file)) {
        return nullptr;
    }

    const Access access(*storage);
    if (!IsUsable(access.State(), variant)) {
        ResetState(access.State(), variant);
    }
    return storage;
}

bool StateStorage::MapFile(const wchar_t* file) {
    const HANDLE opened = ::CreateFileW(file, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                        OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (opened == INVALID_HANDLE_VALUE) {
        return false;
    }
    const UniqueHandle fileHandle(opened);

    // The mapping grows a shorter file to its size; what it adds reads as zero, which is no camera yet.
    const UniqueHandle mapping(
        ::CreateFileMappingW(fileHandle.get(), nullptr, PAGE_READWRITE, 0, sizeof(CameraState), nullptr));
    if (mapping == nullptr) {
        return false;
    }
    m_view.reset(
        static_cast<CameraState*>(::MapViewOfFile(mapping.get(), FILE_MAP_ALL_ACCESS, 0, 0, sizeof(CameraState))));
    m_state = m_view.get();
    return m_state != nullptr;
}

}  // namespace kolmsim
