#include "project/atomic_file.h"

#include <fstream>
#include <vector>

namespace quorlin {

bool writeFileAtomically(const std::filesystem::path& path, const std::function<bool(std::ostream&)>& write) {
    std::filesystem::path temporary = path;
    temporary += ".saving";
    bool written = false;
    {
        std::vector<char> buffer(1 << 20);
        std::ofstream out;
        out.rdbuf()->pubsetbuf(buffer.data(), static_cast<std::streamsize>(buffer.size()));
        out.open(temporary, std::ios::binary | std::ios::trunc);
        if (!out) return false;
        written = write(out) && out.flush();
        out.close();
        written = written && !out.fail();
    }
    std::error_code error;
    if (written) std::filesystem::rename(temporary, path, error);
    if (!written || error) {
        std::filesystem::remove(temporary, error);
        return false;
    }
    return true;
}

}  // namespace quorlin
