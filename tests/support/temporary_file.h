#pragma once
/// @file  A file with a content, for as long as a test needs it.

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include <windows.h>

namespace kolmfluxor::test {

/// Deleted with the object. Its name is short and plain ANSI.
class CTemporaryFile {
public:
    explicit CTemporaryFile(const std::vector<std::uint8_t>& content) {
        std::array<char, MAX_PATH> folder{};
        std::array<char, MAX_PATH> name{};
        ::GetTempPathA(static_cast<DWORD>(folder.size()), folder.data());
        EXPECT_NE(::GetTempFileNameA(folder.data(), "tst", 0, name.data()), 0u);
        m_name = name.data();
        HANDLE const file =
            ::CreateFileA(name.data(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
        DWORD written = 0;
        EXPECT_TRUE(::WriteFile(file, content.data(), static_cast<DWORD>(content.size()), &written, nullptr));
        EXPECT_EQ(written, content.size());
        ::CloseHandle(file);
    }
    ~CTemporaryFile() { EXPECT_TRUE(::DeleteFileA(m_name.c_str())) << "somebody still has the file open"; }
    CTemporaryFile(const CTemporaryFile&) = delete;
    CTemporaryFile& operator=(const CTemporaryFile&) = delete;

    [[nodiscard]] const std::string& Name() const { return m_name; }

private:
    std::string m_name;
};

}  // namespace kolmfluxor::test
