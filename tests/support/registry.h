#pragma once
/// @file  A registry of a test's own, and what stands in it, byte for byte.

#include <map>
#include <string>
#include <vector>

#include <windows.h>

namespace kolmfluxor::test {

/// A registry value as it is stored.
struct RawValue {
    DWORD type;
    std::vector<BYTE> bytes;
    bool operator==(const RawValue&) const = default;
};
void PrintTo(const RawValue& value, std::ostream* out);

/// Values by "key\\subkey:name"; a key without values shows as "key\\subkey".
using RegistryContent = std::map<std::wstring, RawValue>;

/// As long as it lives, HKEY_LOCAL_MACHINE and HKEY_CLASSES_ROOT of this process are empty keys of the test's own.
///
/// Class lookup by COM still sees the real ones.
class CPrivateRegistry {
public:
    CPrivateRegistry();
    ~CPrivateRegistry();
    CPrivateRegistry(const CPrivateRegistry&) = delete;
    CPrivateRegistry& operator=(const CPrivateRegistry&) = delete;

    /// Everything below a root.
    [[nodiscard]] static RegistryContent ContentOf(HKEY root);

    /// Gives a key an access list, in the system's text form.
    static void SetAccess(HKEY key, const wchar_t* access);
    /// Creates a key that can be read but neither written nor deleted.
    void Lock(HKEY root, const std::wstring& path);
    /// Gives every locked key back to everybody.
    void Unlock();

private:
    std::vector<HKEY> m_locked;
};

/// Text as the registry stores it. @param terminated  whether its NUL is stored
[[nodiscard]] RawValue Text(const std::wstring& text, bool terminated);

}  // namespace kolmfluxor::test
