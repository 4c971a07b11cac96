#include "support/registry.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <iomanip>
#include <ostream>

#include <sddl.h>

namespace kolmfluxor::test {
namespace {

constexpr wchar_t kPrivateRoot[] = L"Software\\KolmFluxorTests";

struct Redirection {
    HKEY root;
    const wchar_t* path;
};
const Redirection kRedirections[] = {
    {HKEY_LOCAL_MACHINE, L"Software\\KolmFluxorTests\\machine"},
    {HKEY_CLASSES_ROOT, L"Software\\KolmFluxorTests\\classes"},
};

void Collect(HKEY key, const std::wstring& path, RegistryContent& content) {
    std::array<wchar_t, 512> name{};
    const std::size_t before = content.size();
    DWORD largest = 0;
    // The texts of performance counters look like keys, but cannot be read like them.
    if (::RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &largest,
                           nullptr, nullptr) == ERROR_INVALID_HANDLE)
        return;
    std::vector<BYTE> bytes(largest + 1);
    for (DWORD i = 0;; ++i) {
        DWORD nameLength = name.size();
        DWORD type = 0;
        DWORD size = largest;
        const LSTATUS status = ::RegEnumValueW(key, i, name.data(), &nameLength, nullptr, &type, bytes.data(), &size);
        if (status == ERROR_NO_MORE_ITEMS) break;
        if (status != ERROR_SUCCESS) {
            ADD_FAILURE() << "cannot read a value: error " << status;
            break;
        }
        content[path + L":" + name.data()] = {type, {bytes.begin(), bytes.begin() + size}};
    }
    for (DWORD i = 0;; ++i) {
        DWORD nameLength = name.size();
        if (::RegEnumKeyExW(key, i, name.data(), &nameLength, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
            break;
        HKEY subkey = nullptr;
        const LSTATUS status = ::RegOpenKeyExW(key, name.data(), 0, KEY_READ, &subkey);
        if (status != ERROR_SUCCESS) {
            ADD_FAILURE() << "cannot open a key: error " << status;
            continue;
        }
        Collect(subkey, path.empty() ? name.data() : path + L"\\" + name.data(), content);
        ::RegCloseKey(subkey);
    }
    if (content.size() == before && !path.empty()) content[path] = {REG_NONE, {}};
}

}  // namespace

void PrintTo(const RawValue& value, std::ostream* out) {
    *out << "type " << value.type << ", " << value.bytes.size() << " bytes:" << std::hex << std::setfill('0');
    for (const BYTE byte : value.bytes)
        *out << ' ' << std::setw(2) << unsigned{byte};
    *out << std::dec;
}

CPrivateRegistry::CPrivateRegistry() {
    for (const auto& [root, path] : kRedirections) {
        HKEY key = nullptr;
        EXPECT_EQ(::RegCreateKeyExW(HKEY_CURRENT_USER, path, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr),
                  ERROR_SUCCESS);
        EXPECT_EQ(::RegOverridePredefKey(root, key), ERROR_SUCCESS);
        ::RegCloseKey(key);
    }
}

CPrivateRegistry::~CPrivateRegistry() {
    Unlock();
    for (const auto& [root, path] : kRedirections)
        EXPECT_EQ(::RegOverridePredefKey(root, nullptr), ERROR_SUCCESS);
    EXPECT_EQ(::RegDeleteTreeW(HKEY_CURRENT_USER, kPrivateRoot), ERROR_SUCCESS);
}

void CPrivateRegistry::SetAccess(HKEY key, const wchar_t* access) {
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    ASSERT_TRUE(::ConvertStringSecurityDescriptorToSecurityDescriptorW(access, SDDL_REVISION_1, &descriptor, nullptr));
    EXPECT_EQ(::RegSetKeySecurity(key, DACL_SECURITY_INFORMATION, descriptor), ERROR_SUCCESS);
    ::LocalFree(descriptor);
}

void CPrivateRegistry::Unlock() {
    for (HKEY key : m_locked) {
        SetAccess(key, L"D:(A;;KA;;;WD)");
        ::RegCloseKey(key);
    }
    m_locked.clear();
}

RegistryContent CPrivateRegistry::ContentOf(HKEY root) {
    RegistryContent content;
    HKEY opened = nullptr;
    EXPECT_EQ(::RegOpenKeyExW(root, L"", 0, KEY_READ, &opened), ERROR_SUCCESS);
    Collect(opened, L"", content);
    ::RegCloseKey(opened);
    return content;
}

void CPrivateRegistry::Lock(HKEY root, const std::wstring& path) {
    HKEY key = nullptr;
    ASSERT_EQ(::RegCreateKeyExW(root, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr),
              ERROR_SUCCESS);
    SetAccess(key, L"D:(A;;KR;;;WD)");
    m_locked.push_back(key);
}

RawValue Text(const std::wstring& text, bool terminated) {
    RawValue value{REG_SZ, std::vector<BYTE>((text.size() + (terminated ? 1 : 0)) * sizeof(wchar_t))};
    std::memcpy(value.bytes.data(), text.c_str(), value.bytes.size());
    return value;
}

}  // namespace kolmfluxor::test
