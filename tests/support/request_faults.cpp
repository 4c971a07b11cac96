#include "support/request_faults.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstddef>
#include <cstring>
#include <string_view>

#include "support/module.h"

namespace kolmfluxor::test {
namespace {

using DeviceControl = HRESULT(WINAPI*)(HANDLE, ULONG, PVOID, ULONG, PVOID, ULONG, PULONG);

constexpr char kDriverLibrary[] = "ksproxy.ax";
constexpr char kRequest[] = "KsSynchronousDeviceControl";

DeviceControl g_driver = nullptr;
std::atomic<int> g_count = 0;
const SweptFault* g_fault = nullptr;
int g_nth = 0;

HRESULT WINAPI Disturbed(HANDLE device, ULONG code, PVOID in, ULONG inBytes, PVOID out, ULONG outBytes,
                         PULONG returned) {
    if (++g_count == g_nth && g_fault != nullptr) {
        kolmsim::ISimulatedCamera* const camera = CModule::Get().CameraOfHandle(device);
        EXPECT_NE(camera, nullptr);
        if (camera != nullptr) Inject(*camera, *g_fault, 1);
    }
    return g_driver(device, code, in, inBytes, out, outBytes, returned);
}

/// Where a loaded library keeps the address of an imported function; null where it imports none of that name.
void** ImportOf(HMODULE library, std::string_view from, std::string_view function) {
    auto* const base = reinterpret_cast<std::byte*>(library);
    const auto at = [base](auto offset, auto* type) { return reinterpret_cast<decltype(type)>(base + offset); };
    const auto* const dos = at(0, static_cast<const IMAGE_DOS_HEADER*>(nullptr));
    const auto* const headers = at(dos->e_lfanew, static_cast<const IMAGE_NT_HEADERS64*>(nullptr));
    const auto& directory = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    for (const auto* row = at(directory.VirtualAddress, static_cast<const IMAGE_IMPORT_DESCRIPTOR*>(nullptr));
         row->Name != 0; ++row) {
        if (from != at(row->Name, static_cast<const char*>(nullptr))) continue;
        const auto* const names = at(row->OriginalFirstThunk, static_cast<const IMAGE_THUNK_DATA64*>(nullptr));
        auto* const addresses = at(row->FirstThunk, static_cast<void**>(nullptr));
        for (std::size_t i = 0; names[i].u1.AddressOfData != 0; ++i) {
            if (IMAGE_SNAP_BY_ORDINAL64(names[i].u1.Ordinal)) continue;
            const auto* const name = at(names[i].u1.AddressOfData, static_cast<const IMAGE_IMPORT_BY_NAME*>(nullptr));
            if (function == name->Name) return addresses + i;
        }
    }
    return nullptr;
}

void Write(void** place, void* function) {
    DWORD before = 0;
    EXPECT_TRUE(::VirtualProtect(place, sizeof *place, PAGE_READWRITE, &before));
    *place = function;
    EXPECT_TRUE(::VirtualProtect(place, sizeof *place, before, &before));
}

}  // namespace

CRequestFaults::CRequestFaults()
    : m_import(ImportOf(::GetModuleHandleW(CModule::Get().Path().c_str()), kDriverLibrary, kRequest)) {
    EXPECT_EQ(g_driver, nullptr) << "one at a time";
    EXPECT_NE(m_import, nullptr);
    if (m_import == nullptr) return;
    static_assert(sizeof g_driver == sizeof *m_import);
    std::memcpy(&g_driver, m_import, sizeof g_driver);
    Start();
    Write(m_import, reinterpret_cast<void*>(&Disturbed));
}

CRequestFaults::~CRequestFaults() {
    if (m_import == nullptr) return;
    void* driver = nullptr;
    std::memcpy(&driver, &g_driver, sizeof driver);
    Write(m_import, driver);
    g_driver = nullptr;
    g_fault = nullptr;
}

void CRequestFaults::Start(const SweptFault* fault, int nth) {
    g_fault = fault;
    g_nth = nth;
    g_count = 0;
}

int CRequestFaults::Count() const {
    return g_count;
}

}  // namespace kolmfluxor::test
