/// @file  The platform's functions over the standard library.

#include "platform.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <mutex>
#include <string_view>

namespace {

unsigned g_taskMemoryLeft = std::numeric_limits<unsigned>::max();

std::recursive_mutex& MutexOf(HANDLE mutex) {
    return *static_cast<std::recursive_mutex*>(mutex);
}

wchar_t Lower(wchar_t c) {
    return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c - L'A' + L'a') : c;
}

/// Copies a text as far as there is room, each unit changed; without room tells the size.
template <class From, class To, class Change>
int CopyChanged(const From* text, int length, To* out, int room, Change change) {
    if (room != 0) std::transform(text, text + std::min(length, room), out, change);
    return length;
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

int MultiByteToWideChar(UINT /*codePage*/, DWORD /*flags*/, const char* text, int length, wchar_t* out, int room) {
    const auto change = [](char c) { return c >= 0 ? static_cast<wchar_t>(c) : L'\xFFFD'; };
    return CopyChanged(text, length, out, room, change);
}

int WideCharToMultiByte(UINT /*codePage*/, DWORD /*flags*/, const wchar_t* text, int length, char* out, int room,
                        const char* /*unknown*/, BOOL* /*used*/) {
    const auto change = [](wchar_t c) { return c < 0x80 ? static_cast<char>(c) : '?'; };
    return CopyChanged(text, length, out, room, change);
}

int CompareStringOrdinal(const wchar_t* a, int aLength, const wchar_t* b, int bLength, BOOL ignoreCase) {
    const std::wstring_view first(a, static_cast<std::size_t>(aLength));
    const std::wstring_view second(b, static_cast<std::size_t>(bLength));
    const auto same = [ignoreCase](wchar_t x, wchar_t y) {
        return ignoreCase != FALSE ? Lower(x) == Lower(y) : x == y;
    };
    return std::ranges::equal(first, second, same) ? CSTR_EQUAL : CSTR_EQUAL + 1;
}
