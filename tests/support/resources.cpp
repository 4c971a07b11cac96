#include "support/resources.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <ostream>
#include <vector>

#include <windows.h>

#include <tlhelp32.h>

namespace kolmfluxor::test {
namespace {

int Threads() {
    const HANDLE snapshot = ::CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
    THREADENTRY32 entry{};
    entry.dwSize = sizeof entry;
    int count = 0;
    for (BOOL more = ::Thread32First(snapshot, &entry); more != FALSE; more = ::Thread32Next(snapshot, &entry)) {
        count += entry.th32OwnerProcessID == ::GetCurrentProcessId() ? 1 : 0;
    }
    ::CloseHandle(snapshot);
    return count;
}

int Handles() {
    struct Entry {
        ULONG process;
        UCHAR type, flags;
        USHORT handle;
        void* object;
        ULONG access;
    };
    using Query = LONG(WINAPI*)(ULONG, void*, ULONG, ULONG*);
    Query query = nullptr;
    const FARPROC found = ::GetProcAddress(::GetModuleHandleW(L"ntdll.dll"), "NtQuerySystemInformation");
    std::memcpy(&query, &found, sizeof query);
    constexpr ULONG kHandleInformation = 16;
    std::vector<BYTE> buffer(1 << 20);
    ULONG needed = 0;
    while (query(kHandleInformation, buffer.data(), static_cast<ULONG>(buffer.size()), &needed) != 0) {
        if (buffer.size() > (1U << 28)) return -1;
        buffer.resize(buffer.size() * 2);
    }
    ULONG total = 0;
    std::memcpy(&total, buffer.data(), sizeof total);
    int count = 0;
    for (ULONG i = 0; i < total; ++i) {
        Entry entry{};
        std::memcpy(&entry, buffer.data() + 8 + i * sizeof entry, sizeof entry);
        count += entry.process == ::GetCurrentProcessId() ? 1 : 0;
    }
    return count;
}

int GuiObjects(DWORD kind) {
    return static_cast<int>(::GetGuiResources(::GetCurrentProcess(), kind));
}

}  // namespace

Resources CountResources() {
    const Resources now = {.handles = Handles(),
                           .threads = Threads(),
                           .gdiObjects = GuiObjects(GR_GDIOBJECTS),
                           .userObjects = GuiObjects(GR_USEROBJECTS)};
    EXPECT_GT(now.handles, 3) << "the list of handles can't be read";
    EXPECT_GT(now.threads, 0);
    return now;
}

void PrintTo(const Resources& resources, std::ostream* out) {
    *out << resources.handles << " handles, " << resources.threads << " threads, " << resources.gdiObjects
         << " GDI objects, " << resources.userObjects << " USER objects";
}

void ExpectFlat(const Resources& before, int slack) {
    const Resources now = CountResources();
    const bool flat = now.handles <= before.handles + slack && now.threads <= before.threads + slack &&
                      now.gdiObjects <= before.gdiObjects + slack && now.userObjects <= before.userObjects + slack;
    std::printf("%s\n", ::testing::PrintToString(now).c_str());
    EXPECT_TRUE(flat) << ::testing::PrintToString(before) << " became " << ::testing::PrintToString(now);
}

}  // namespace kolmfluxor::test
