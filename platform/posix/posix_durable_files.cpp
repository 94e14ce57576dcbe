#include "posix/posix_durable_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quorlin::posix {

// A descriptor opened for reading is enough for fsync, and works for folders too.
bool PosixDurableFiles::flushToDisk(const std::filesystem::path& path) {
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) return false;
    const bool flushed = ::fsync(fd) == 0;
    ::close(fd);
    return flushed;
}

// Only a privileged user may give a file away; anyone may keep a group they belong to.
// What is refused leaves the copy as the user's own, which is no failure of the save.
void PosixDurableFiles::copyOwner(const std::filesystem::path& original, const std::filesystem::path& copy) {
    struct stat status {};
    if (::stat(original.c_str(), &status) != 0) return;
    if (::chown(copy.c_str(), status.st_uid, status.st_gid) != 0) (void)::chown(copy.c_str(), static_cast<uid_t>(-1), status.st_gid);
}

}  // namespace quorlin::posix
