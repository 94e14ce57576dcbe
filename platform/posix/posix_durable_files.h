#pragma once

#include "ports/durable_files.h"

namespace quorlin::posix {

// fsync and chown for the safe save of project files.
class PosixDurableFiles : public DurableFiles {
public:
    bool flushToDisk(const std::filesystem::path& path) override;
    void copyOwner(const std::filesystem::path& original, const std::filesystem::path& copy) override;
};

}  // namespace quorlin::posix
