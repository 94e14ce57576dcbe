#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <mutex>
#include <thread>

#include "posix/posix_durable_files.h"
#include "project/atomic_file.h"

namespace quorlin::testing {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre, ::testing::MatchesRegex;

// Notes what reached the disk, and passes the work on; concurrent saves share it.
struct CountingFiles : posix::PosixDurableFiles {
    std::mutex mutex;
    std::vector<std::string> flushed;
    bool flushToDisk(const fs::path& path) override {
        std::lock_guard lock(mutex);
        flushed.push_back(path.filename().string());
        return PosixDurableFiles::flushToDisk(path);
    }
};

class SafeSave : public ::testing::Test {
protected:
    fs::path dir = fs::temp_directory_path() / ("quorlin-save-" + std::to_string(::getpid()));
    fs::path file = dir / "setup.tpl";
    CountingFiles files;

    void SetUp() override { fs::create_directories(dir); }
    void TearDown() override {
        fs::permissions(dir, fs::perms::owner_all, fs::perm_options::add);
        fs::remove_all(dir);
    }
    static void put(const fs::path& path, const std::string& text) { std::ofstream(path, std::ios::binary) << text; }
    static std::string read(const fs::path& path) {
        std::ifstream in(path, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    }
    bool save(const std::string& text, const fs::path& to) {
        return writeFileAtomically(to, [&](std::ostream& out) { return static_cast<bool>(out << text); }, &files);
    }
};

TEST_F(SafeSave, WritesTheFileALinkPointsToAndKeepsItsOtherNamesModeAndOwner) {
    put(file, "old");
    fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink(file, dir / "link.tpl");
    fs::create_hard_link(file, dir / "other.tpl");
    EXPECT_TRUE(save("new", dir / "link.tpl"));
    EXPECT_TRUE(fs::is_symlink(dir / "link.tpl"));
    EXPECT_EQ(read(dir / "other.tpl"), "new") << "the linked file is written, and not split from its other name";
    EXPECT_THAT(files.flushed, ElementsAre(MatchesRegex(R"(\.setup\.tpl\.[0-9a-f]{16}\.saving)"), "setup.tpl"));

    fs::remove(dir / "other.tpl");
    ASSERT_EQ(::chown(file.c_str(), 65534, 65534) == 0, ::geteuid() == 0);
    EXPECT_TRUE(save("newer", file));
    struct stat status {};
    ::stat(file.c_str(), &status);
    EXPECT_EQ(status.st_uid, ::geteuid() == 0 ? 65534u : ::geteuid()) << "the owner is kept where the user may";
    EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

// A stale temporary is one of a save cut off long ago; a fresh one may be another save's.
TEST_F(SafeSave, ConcurrentSavesEachLeaveAWholeFileAndClearOnlyStaleTemporaries) {
    put(dir / "setup.tpl.saving", "the user's own");
    put(dir / ".setup.tpl.0123456789abcdef.saving", "cut off long ago");
    put(dir / ".setup.tpl.fedcba9876543210.saving", "another save in progress");
    for (const char* old : {"setup.tpl.saving", ".setup.tpl.0123456789abcdef.saving"})
        fs::last_write_time(dir / old, fs::file_time_type::clock::now() - std::chrono::minutes(90));
    const std::string first(3 << 20, 'a'), second(3 << 20, 'b');
    for (int round = 0; round < 5; ++round) {
        std::thread other([&] { save(second, file); });
        save(first, file);
        other.join();
        const std::string result = read(file);
        EXPECT_TRUE(result == first || result == second) << "round " << round;
    }
    EXPECT_EQ(std::ranges::distance(fs::directory_iterator(dir)), 3) << "the file, the user's and the fresh one";
    EXPECT_EQ(read(dir / "setup.tpl.saving"), "the user's own");
    EXPECT_EQ(read(dir / ".setup.tpl.fedcba9876543210.saving"), "another save in progress");
}

TEST_F(SafeSave, LeavesTheFileAsItWasAndNoTemporaryWhenASaveIsRefusedOrFails) {
    put(file, "former");
    fs::permissions(file, fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
    EXPECT_FALSE(save("new", file));
    fs::permissions(file, fs::perms::owner_write, fs::perm_options::add);
    EXPECT_FALSE(writeFileAtomically(file, [](std::ostream& out) { return !(out << "half a file"); }, &files));
    EXPECT_FALSE(save("x", dir / "no-such-folder" / "x.tpl"));
    EXPECT_EQ(read(file), "former");
    EXPECT_EQ(std::ranges::distance(fs::directory_iterator(dir)), 1) << "no temporary is left";
}

// Saved by a user who may write the file but create nothing beside it.
TEST_F(SafeSave, WritesInPlaceWhereTheFolderTakesNoNewFile) {
    put(file, "former");
    const bool root = ::geteuid() == 0;
    if (root) ASSERT_EQ(::chown(file.c_str(), 65534, 65534), 0);
    else fs::permissions(dir, fs::perms::owner_read | fs::perms::owner_exec);
    const pid_t child = ::fork();
    if (child == 0) {
        if (root && (::setgid(65534) != 0 || ::setuid(65534) != 0)) ::_exit(2);
        ::_exit(save("new", file) ? 0 : 1);
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    EXPECT_EQ(read(file), "new");
}

}  // namespace
}  // namespace quorlin::testing
