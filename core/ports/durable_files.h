#pragma once

#include <filesystem>

namespace quorlin {

// What a safe save needs of the file system beyond the standard library.
class DurableFiles {
public:
    virtual ~DurableFiles() = default;
    // Returns once the file's content, or a folder's list of entries, is on the disk.
    virtual bool flushToDisk(const std::filesystem::path& path) = 0;
    // Gives `copy` the owner and group of `original`, as far as the user may.
    virtual void copyOwner(const std::filesystem::path& original, const std::filesystem::path& copy) = 0;
};

}  // namespace quorlin
