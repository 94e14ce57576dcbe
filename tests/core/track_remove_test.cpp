#include "track_fixture.h"

namespace quorlin::testing {
namespace {

using C = Ctl;

class TrackRemoveTest : public TrackFixture {
public:
    // Entries 1..n at x "1".."n", each with its own picture: i + 1 pixels square, seed i * 10000.
    void addEntries(int n) {
        for (int i = 1; i <= n; ++i) addWithImage(std::to_string(i), i * 10000, i + 1);
    }
};

TEST_F(TrackRemoveTest, LaterEntriesMoveUpWithTheirPicturesAndAreRenumbered) {
    addEntries(5);
    m().fgResult.setRow(3);
    w.frm.cmdRemove_Click();
    ASSERT_EQ(m().fgResult.rowCount(), 5);
    const char* xs[] = {"1", "2", "4", "5"};
    for (int r = 1; r <= 4; ++r) {
        const int former = std::stoi(xs[r - 1]);
        EXPECT_EQ(gridRow(r)[colNumber], std::to_string(r));
        EXPECT_EQ(storedRow(r)[colNumber], std::to_string(r));
        EXPECT_EQ(gridRow(r)[colX], xs[r - 1]);
        EXPECT_EQ(storedRow(r), gridRow(r));
        EXPECT_EQ(rowPicture(r).lastX, former);
        EXPECT_EQ(rowPicture(r).at(former, 0), former * 10000 + former * 1000);
        EXPECT_EQ(m().rows.lRowRect[static_cast<std::size_t>(r)][2], 100 + former);
        EXPECT_TRUE(rowImage(r));
    }
    EXPECT_EQ(m().fgResult.row(), 4) << "the last row becomes current";
    EXPECT_EQ(m().fgResult.col(), 0);
    EXPECT_TRUE(m().vFirstRowUsed);
}

TEST_F(TrackRemoveTest, RemovingTheOnlyEntryLeavesTheBlankRow) {
    addEntries(1);
    w.frm.cmdRemove_Click();
    EXPECT_EQ(m().fgResult.rowCount(), 2);
    EXPECT_EQ(gridRow(1), Cells{});
    EXPECT_EQ(storedRow(1), Cells{});
    EXPECT_FALSE(rowImage(1));
    EXPECT_FALSE(m().vFirstRowUsed);
    EXPECT_EQ(m().fgResult.row(), 1);

    addAt("9");
    EXPECT_EQ(m().fgResult.rowCount(), 2) << "the next add fills row 1";
    EXPECT_EQ(gridRow(1)[colX], "9");
}

TEST_F(TrackRemoveTest, NothingHappensWithoutASelectedEntry) {
    w.frm.cmdRemove_Click();
    EXPECT_EQ(m().fgResult.rowCount(), 2);
    addEntries(2);
    m().fgResult.setRow(0);
    w.frm.cmdRemove_Click();
    EXPECT_EQ(m().fgResult.rowCount(), 3);
    EXPECT_EQ(gridRow(1)[colX], "1");
}

TEST_F(TrackRemoveTest, ClearingEmptiesAFullListAndKeepsTheFields) {
    addEntries(2);
    for (int i = 3; i <= kMaxEntries; ++i) addAt(std::to_string(i));
    ASSERT_EQ(m().fgResult.rowCount(), 31);
    w.frm.cmdClearTrackList_Click();
    EXPECT_EQ(m().fgResult.rowCount(), 2);
    EXPECT_EQ(gridRow(0), (Cells{"#", "X", "Y", "Intr Type", "Interval", "Type", "Rep", "Fill", "Text", "Image"}));
    EXPECT_EQ(gridRow(1), Cells{});
    EXPECT_EQ(m().fgResult.row(), 0);
    EXPECT_FALSE(m().vFirstRowUsed);
    EXPECT_FALSE(rowImage(1));
    EXPECT_TRUE(rowPicture(2).pixels.empty()) << "the entries' pictures are given back";
    EXPECT_EQ(w.form().text(C::txtX), "30");
    EXPECT_EQ(m().picture.iBottomX, 102);

    w.frm.cmdRemove_Click();
    EXPECT_EQ(m().fgResult.rowCount(), 2);
}

}  // namespace
}  // namespace quorlin::testing
