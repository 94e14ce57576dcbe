#pragma once

#include <filesystem>
#include <functional>
#include <ostream>

namespace quorlin {

// Writes a file so that it is replaced only when the whole of it was written: the
// content goes to a temporary file beside it, which then takes the file's place.
// When writing fails the former file stays as it was and the temporary is removed.
bool writeFileAtomically(const std::filesystem::path& path, const std::function<bool(std::ostream&)>& write);

}  // namespace quorlin
