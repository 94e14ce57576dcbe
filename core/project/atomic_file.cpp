#include "project/atomic_file.h"

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <random>
#include <string>

namespace quorlin {

namespace fs = std::filesystem;

namespace {

// A temporary this old belongs to no save in progress, but to one that was cut off.
constexpr auto kStaleAfter = std::chrono::hours(1);

enum class NewFile { Written, NotCreated, Failed };

fs::path folderOf(const fs::path& file) { return file.has_parent_path() ? file.parent_path() : fs::path("."); }

// The file that is really written: a link is followed to its final target.
fs::path realTarget(const fs::path& path) {
    std::error_code error;
    if (!fs::is_symlink(fs::symlink_status(path, error))) return path;
    fs::path target = fs::weakly_canonical(path, error);
    return error ? path : target;
}

// A mode without any write permission means read-only, even for a user the system would let write.
bool mayWrite(const fs::path& file) {
    std::error_code error;
    constexpr auto anyWrite = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    if ((fs::status(file, error).permissions() & anyWrite) == fs::perms::none) return false;
    std::fstream probe(file, std::ios::in | std::ios::out | std::ios::binary);
    return probe.is_open();
}

// Hidden, and named after the file, so that stale ones are found again.
std::string temporaryPrefix(const fs::path& target) {
    std::string prefix(1, '.');
    prefix += target.filename().string();
    prefix += '.';
    return prefix;
}

std::string uniqueName(const fs::path& target) {
    std::random_device device;
    const std::uint64_t bits = (std::uint64_t{device()} << 32) ^ device();
    char hex[17];
    std::snprintf(hex, sizeof hex, "%016llx", static_cast<unsigned long long>(bits));
    return temporaryPrefix(target).append(hex).append(".saving");
}

void removeStaleTemporaries(const fs::path& target) {
    const std::string prefix = temporaryPrefix(target);
    std::error_code error;
    for (fs::directory_iterator it(folderOf(target), error), end; !error && it != end; it.increment(error)) {
        const std::string name = it->path().filename().string();
        if (!name.starts_with(prefix) || !name.ends_with(".saving")) continue;
        std::error_code timeError;
        const auto written = fs::last_write_time(it->path(), timeError);
        if (!timeError && fs::file_time_type::clock::now() - written > kStaleAfter) fs::remove(it->path(), timeError);
    }
}

NewFile writeNew(const fs::path& file, const std::function<bool(std::ostream&)>& write, DurableFiles* durable) {
    std::error_code error;
    if (fs::exists(file, error)) return NewFile::NotCreated;
    bool written = false;
    {
        std::ofstream out(file, std::ios::binary | std::ios::trunc);
        if (!out) return NewFile::NotCreated;
        written = write(out) && out.flush();
        out.close();
        written = written && !out.fail();
    }
    written = written && (!durable || durable->flushToDisk(file));
    if (!written) fs::remove(file, error);
    return written ? NewFile::Written : NewFile::Failed;
}

// Copied over the file's own content, so the file keeps its other names, mode and owner.
bool copyInto(const fs::path& finished, const fs::path& target, DurableFiles* durable) {
    bool copied = false;
    {
        std::ifstream in(finished, std::ios::binary);
        std::ofstream out(target, std::ios::binary | std::ios::trunc);
        copied = in && out && (out << in.rdbuf()) && out.flush();
    }
    std::error_code error;
    fs::remove(finished, error);
    return copied && (!durable || durable->flushToDisk(target));
}

bool replace(const fs::path& temporary, const fs::path& target, DurableFiles* durable) {
    std::error_code error;
    fs::rename(temporary, target, error);
    if (error) {
        fs::remove(temporary, error);
        return false;
    }
    return !durable || durable->flushToDisk(folderOf(target));
}

}  // namespace

bool writeFileAtomically(const fs::path& path, const std::function<bool(std::ostream&)>& write, DurableFiles* durable) {
    const fs::path target = realTarget(path);
    std::error_code error;
    const bool exists = fs::exists(target, error);
    if (exists && !mayWrite(target)) return false;
    removeStaleTemporaries(target);

    const fs::path temporary = folderOf(target) / uniqueName(target);
    switch (writeNew(temporary, write, durable)) {
        case NewFile::Failed: return false;
        case NewFile::Written: break;
        case NewFile::NotCreated: {
            if (!exists) return false;
            const fs::path elsewhere = fs::temp_directory_path(error) / uniqueName(target);
            return !error && writeNew(elsewhere, write, durable) == NewFile::Written &&
                   copyInto(elsewhere, target, durable);
        }
    }
    if (!exists) return replace(temporary, target, durable);
    if (fs::hard_link_count(target, error) > 1) return copyInto(temporary, target, durable);
    fs::permissions(temporary, fs::status(target, error).permissions(), error);
    if (durable) durable->copyOwner(target, temporary);
    return replace(temporary, target, durable);
}

}  // namespace quorlin
