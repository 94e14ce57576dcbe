#pragma once

#include <filesystem>
#include <functional>
#include <ostream>

#include "ports/durable_files.h"

namespace quorlin {

// Writes a file so that it is replaced only when the whole of it was written, as a good
// editor saves: the file a link points to is the one written, its mode, owner and other
// names (hard links) are kept, and a read-only file is left alone. The content goes to a
// hidden temporary of a unique name beside the file, which reaches the disk before it
// takes the file's place; concurrent saves each replace the file whole. When the folder
// takes no new file but the file may be written, the finished content is copied into it.
// When writing fails the former file stays as it was and no temporary is left.
bool writeFileAtomically(const std::filesystem::path& path, const std::function<bool(std::ostream&)>& write,
                         DurableFiles* durable = nullptr);

}  // namespace quorlin
