#include <gtest/gtest.h>

#include <sstream>
#include <streambuf>

#include "project/project_writer.h"
#include "support/test_window.h"

namespace quorlin::testing {
namespace {

// A disk that fills up after `room` bytes.
struct FullDisk : std::streambuf {
    explicit FullDisk(std::size_t room) : bytes(room, '\0') { setp(bytes.data(), bytes.data() + room); }
    std::string taken() const { return {pbase(), pptr()}; }
    std::string bytes;
};

// A write that fails anywhere, in the lines or amid the pixels being formatted ahead,
// fails the save, and what reached the disk is the project's own text up to there.
TEST(ProjectWriter, AFullDiskFailsTheSaveWherever) {
    TestWindow w;
    w.frm.setCheck(Ctl::chkRecImage, 1);
    w.model().picture.iPicMaxX = w.model().picture.iPicMaxY = 1000;
    w.putRow(1, {"1", "1", "1", "Custom", "0:3:0", "Click", "1", "No", "", "Yes"});
    w.model().rows.lRowPixels[1].resize(1000, 1000);
    std::ostringstream whole;
    ASSERT_TRUE(ProjectWriter(whole).write(w.model()));
    const std::string text = whole.str();
    for (std::size_t room : {std::size_t{0}, std::size_t{10}, text.size() / 3, text.size() - 1}) {
        FullDisk disk(room);
        std::ostream out(&disk);
        EXPECT_FALSE(ProjectWriter(out).write(w.model())) << room;
        EXPECT_EQ(disk.taken(), text.substr(0, room)) << room;
    }
}

}  // namespace
}  // namespace quorlin::testing
