#include "support/resources.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <functional>
#include <ostream>
#include <vector>

#include <windows.h>

#include <tlhelp32.h>

namespace kolmfluxor::test {
namespace {

template <class Function> Function NtFunction(const char* name) {
    const FARPROC found = ::GetProcAddress(::GetModuleHandleW(L"ntdll.dll"), name);
    Function function = nullptr;
    std::memcpy(&function, &found, sizeof function);
    return function;
}

/// Objects in the table of GDI handles that each process shares with the system.
int GdiObjects() {
    struct Entry {
        void* object;
        USHORT process, lock, generation;
        UCHAR type, flags;
        void* user;
    };
    static_assert(sizeof(Entry) == 24);
    constexpr std::size_t kEntries = 0x4000;
    constexpr std::size_t kTable = 0xF8;  // of the process's block: address of the table
    struct Basics {
        void* status;
        const BYTE* process;
        void* others[4];
    } basics{};
    using Query = LONG(WINAPI*)(HANDLE, ULONG, void*, ULONG, ULONG*);
    if (NtFunction<Query>("NtQueryInformationProcess")(::GetCurrentProcess(), 0, &basics, sizeof basics, nullptr) != 0)
        return 0;
    const BYTE* table = nullptr;
    std::memcpy(&table, basics.process + kTable, sizeof table);
    if (table == nullptr) return 0;
    int count = 0;
    for (std::size_t i = 0; i < kEntries; ++i) {
        Entry entry{};
        std::memcpy(&entry, table + i * sizeof entry, sizeof entry);
        count += entry.type != 0 ? 1 : 0;
    }
    return count;
}

/// Windows of this process on this thread's desktop, children too.
int Windows() {
    const auto countOwn = [](HWND window, LPARAM sum) -> BOOL {
        DWORD process = 0;
        ::GetWindowThreadProcessId(window, &process);
        *reinterpret_cast<int*>(sum) += process == ::GetCurrentProcessId() ? 1 : 0;
        return TRUE;
    };
    struct Sum {
        WNDENUMPROC each;
        int count;
    } sum = {countOwn, 0};
    ::EnumDesktopWindows(
        ::GetThreadDesktop(::GetCurrentThreadId()),
        [](HWND window, LPARAM param) -> BOOL {
            auto& all = *reinterpret_cast<Sum*>(param);
            all.each(window, reinterpret_cast<LPARAM>(&all.count));
            ::EnumChildWindows(window, all.each, reinterpret_cast<LPARAM>(&all.count));
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&sum));
    return sum.count;
}

/// Where the system does not count for us (Wine says 0), what can be seen from here.
int GuiObjects(DWORD kind) {
    const auto told = static_cast<int>(::GetGuiResources(::GetCurrentProcess(), kind));
    if (told != 0) return told;
    return kind == GR_GDIOBJECTS ? GdiObjects() : Windows();
}

bool IsFlat(const Resources& before, const Resources& now, int slack, int gdiAllowance) {
    return now.handles <= before.handles + slack && now.threads <= before.threads + slack &&
           now.gdiObjects <= before.gdiObjects + slack + gdiAllowance && now.userObjects <= before.userObjects + slack;
}

}  // namespace

int CountThreads() {
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

int CountHandles() {
    struct Entry {
        ULONG process;
        UCHAR type, flags;
        USHORT handle;
        void* object;
        ULONG access;
    };
    using Query = LONG(WINAPI*)(ULONG, void*, ULONG, ULONG*);
    const auto query = NtFunction<Query>("NtQuerySystemInformation");
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

Resources CountResources() {
    const Resources now = {.handles = CountHandles(),
                           .threads = CountThreads(),
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

void ExpectFlat(const Resources& before, int slack, int gdiAllowance) {
    const Resources now = CountResources();
    std::printf("%s\n", ::testing::PrintToString(now).c_str());
    EXPECT_TRUE(IsFlat(before, now, slack, gdiAllowance))
        << ::testing::PrintToString(before) << " became " << ::testing::PrintToString(now);
}

void ExpectFlatRound(std::span<const Resources> counts, int slack) {
    const auto grown = [slack](const Resources& before, const Resources& now) {
        return !IsFlat(before, now, slack, 0);
    };
    EXPECT_NE(std::ranges::adjacent_find(counts, std::not_fn(grown)), counts.end())
        << "each round keeps something: " << ::testing::PrintToString(counts);
}

}  // namespace kolmfluxor::test
