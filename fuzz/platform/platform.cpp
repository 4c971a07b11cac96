/// @file  The platform's functions over the standard library.

#include "platform.h"

#include <cstdlib>
#include <limits>
#include <mutex>

namespace {

unsigned g_taskMemoryLeft = std::numeric_limits<unsigned>::max();

std::recursive_mutex& MutexOf(HANDLE mutex) {
    return *static_cast<std::recursive_mutex*>(mutex);
}

}  // namespace

BOOL GetVersionExA(OSVERSIONINFOA* info) {
    info->dwMajorVersion = 6;
    return TRUE;
}

DWORD GetLastError() {
    return 0;
}

LONG RegCloseKey(HKEY /*key*/) {
    return 0;
}

HANDLE CreateMutexA(void* /*security*/, BOOL /*owned*/, const char* /*name*/) {
    return new std::recursive_mutex;
}

DWORD WaitForSingleObject(HANDLE mutex, DWORD /*timeoutMs*/) {
    MutexOf(mutex).lock();
    return WAIT_OBJECT_0;
}

BOOL ReleaseMutex(HANDLE mutex) {
    MutexOf(mutex).unlock();
    return TRUE;
}

BOOL CloseHandle(HANDLE mutex) {
    delete &MutexOf(mutex);
    return TRUE;
}

void* CoTaskMemAlloc(std::size_t size) {
    if (g_taskMemoryLeft == 0) return nullptr;
    --g_taskMemoryLeft;
    return std::malloc(size);
}

void CoTaskMemFree(void* memory) {
    std::free(memory);
}

void PlatformLimitTaskMemory(unsigned successes) {
    g_taskMemoryLeft = successes;
}
