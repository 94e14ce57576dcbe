#include "win32/win32_durable_files.h"

#include <windows.h>
#include <aclapi.h>

namespace quorlin::win32 {

// NTFS journals a folder's entries itself, and a folder cannot be opened for flushing
// without privileges: only a file's content needs the flush.
bool Win32DurableFiles::flushToDisk(const std::filesystem::path& path) {
    std::error_code error;
    if (std::filesystem::is_directory(path, error)) return true;
    HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                              nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    const bool flushed = FlushFileBuffers(file) != 0;
    CloseHandle(file);
    return flushed;
}

// The copy takes the original's access list, and its owner where the user holds the
// right to give files away. What is refused leaves the copy as the user's own, which is
// no failure of the save.
void Win32DurableFiles::copyOwner(const std::filesystem::path& original, const std::filesystem::path& copy) {
    PSID owner = nullptr;
    PACL access = nullptr;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    constexpr SECURITY_INFORMATION kAccess = DACL_SECURITY_INFORMATION;
    if (GetNamedSecurityInfoW(original.c_str(), SE_FILE_OBJECT, kAccess | OWNER_SECURITY_INFORMATION, &owner, nullptr,
                              &access, nullptr, &descriptor) != ERROR_SUCCESS)
        return;
    std::wstring name = copy.wstring();
    if (SetNamedSecurityInfoW(name.data(), SE_FILE_OBJECT, kAccess | OWNER_SECURITY_INFORMATION, owner, nullptr, access,
                              nullptr) != ERROR_SUCCESS)
        SetNamedSecurityInfoW(name.data(), SE_FILE_OBJECT, kAccess, nullptr, nullptr, access, nullptr);
    LocalFree(descriptor);
}

}  // namespace quorlin::win32
