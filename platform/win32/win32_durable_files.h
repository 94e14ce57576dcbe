#pragma once

#include "ports/durable_files.h"

namespace quorlin::win32 {

// FlushFileBuffers and the security descriptor for the safe save of project files.
class Win32DurableFiles : public DurableFiles {
public:
    bool flushToDisk(const std::filesystem::path& path) override;
    void copyOwner(const std::filesystem::path& original, const std::filesystem::path& copy) override;
};

}  // namespace quorlin::win32
