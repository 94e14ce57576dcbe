#include <gtest/gtest.h>
#include <windows.h>
#include <aclapi.h>
#include <sddl.h>

#include <filesystem>
#include <fstream>

#include "project/atomic_file.h"
#include "win32/win32_durable_files.h"

namespace quorlin::testing {
namespace {

namespace fs = std::filesystem;

std::wstring accessListOf(const fs::path& path) {
    PACL access = nullptr;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    if (GetNamedSecurityInfoW(path.c_str(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr, &access,
                              nullptr, &descriptor) != ERROR_SUCCESS)
        return L"unreadable";
    LPWSTR text = nullptr;
    ConvertSecurityDescriptorToStringSecurityDescriptorW(descriptor, SDDL_REVISION_1, DACL_SECURITY_INFORMATION, &text,
                                                         nullptr);
    std::wstring list = text ? text : L"";
    LocalFree(text);
    LocalFree(descriptor);
    return list;
}

// A save replaces the file with a new one: the content reaches the disk first, and the
// new file keeps the access list the user gave the old one.
TEST(Win32DurableFiles, ASaveFlushesTheFileAndKeepsItsAccessList) {
    const fs::path dir = fs::temp_directory_path() / "quorlin-durable";
    fs::create_directories(dir);
    const fs::path file = dir / "setup.tpl";
    std::ofstream(file) << "former";
    PSECURITY_DESCRIPTOR own = nullptr;
    ASSERT_TRUE(ConvertStringSecurityDescriptorToSecurityDescriptorW(L"D:P(A;;FA;;;WD)", SDDL_REVISION_1, &own, nullptr));
    BOOL present = FALSE, defaulted = FALSE;
    PACL access = nullptr;
    GetSecurityDescriptorDacl(own, &present, &access, &defaulted);
    std::wstring name = file.wstring();
    ASSERT_EQ(SetNamedSecurityInfoW(name.data(), SE_FILE_OBJECT,
                                    DACL_SECURITY_INFORMATION | PROTECTED_DACL_SECURITY_INFORMATION, nullptr, nullptr,
                                    access, nullptr),
              static_cast<DWORD>(ERROR_SUCCESS));
    LocalFree(own);
    const std::wstring before = accessListOf(file);

    win32::Win32DurableFiles files;
    EXPECT_TRUE(writeFileAtomically(file, [](std::ostream& out) { return static_cast<bool>(out << "new"); }, &files));
    std::ifstream in(file);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}), "new");
    in.close();
    EXPECT_EQ(accessListOf(file), before);
    EXPECT_TRUE(files.flushToDisk(file));
    EXPECT_TRUE(files.flushToDisk(dir));
    EXPECT_FALSE(files.flushToDisk(dir / "missing.tpl"));
    fs::remove_all(dir);
}

}  // namespace
}  // namespace quorlin::testing
