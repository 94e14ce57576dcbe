#include "track_fixture.h"

namespace quorlin::testing {
namespace {

using C = Ctl;

class TrackUpdateTest : public TrackFixture {
public:
    void SetUp() override {
        TrackFixture::SetUp();
        w.frm.setCheck(C::chkText, 1);
        w.type(C::txtText, "hello");
        addAt("1");
        addAt("2");
        w.frm.setCheck(C::chkText, 0);
        w.frm.fgResult_Click(1, 0);
        w.dialogs.messages.clear();
    }
    void random(const char* from, const char* to) {
        w.frm.selectOption(C::optRandom);
        w.type(C::txtFromSec, from);
        w.type(C::txtToSec, to);
    }
};

TEST_F(TrackUpdateTest, RewritesTheCurrentRowAndKeepsItCurrent) {
    ASSERT_EQ(w.form().value(C::chkText), 1) << "the click loaded the entry's text";
    w.frm.setCheck(C::chkText, 0);
    w.type(C::txtX, "77");
    w.frm.selectOption(C::optRightClick);
    w.frm.cmdUpdate_Click();
    const Cells expected{"1", "77", "20", "Custom", "0:3:0", "RightClick", "1", "No", "", "No"};
    EXPECT_EQ(gridRow(1), expected) << "Fill No empties the text the entry had";
    EXPECT_EQ(storedRow(1), expected);
    EXPECT_EQ(gridRow(2)[colX], "2");
    EXPECT_EQ(m().fgResult.row(), 1);
    EXPECT_EQ(m().fgResult.rowCount(), 3);
    EXPECT_TRUE(messages().empty());
}

TEST_F(TrackUpdateTest, DoesNothingWithoutASelectedEntry) {
    w.frm.cmdClearTrackList_Click();
    w.frm.cmdUpdate_Click();
    EXPECT_EQ(gridRow(1), Cells{});
    EXPECT_FALSE(m().vFirstRowUsed);
    EXPECT_TRUE(messages().empty());
}

TEST_F(TrackUpdateTest, FillsTheBlankRowOfAnEmptyListWhenItIsCurrent) {
    w.frm.cmdClearTrackList_Click();
    m().fgResult.setRow(1);
    w.frm.cmdUpdate_Click();
    EXPECT_TRUE(m().vFirstRowUsed);
    EXPECT_EQ(gridRow(1)[colNumber], "1");
    EXPECT_EQ(m().fgResult.rowCount(), 2);
}

struct Refusal {
    const char* name;
    void (*arrange)(TrackUpdateTest&);
    const char* message;
};

// Each case also sets up every later problem, so the order of the checks shows;
// an update has no picture or row-count check.
const Refusal kRefusals[] = {
    {"NonStopFirst", [](TrackUpdateTest& t) {
         t.w.frm.selectOption(C::optLoop);
         t.w.type(C::txtX, "abc");
     }, msg::kSwitchOnCount},
    {"ValidationBeforeTotal", [](TrackUpdateTest& t) {
         t.w.type(C::txtMinutes, "2");
         t.w.type(C::txtX, "abc");
     }, msg::kMaxMinute},
    {"InputErrorBeforeTotal", [](TrackUpdateTest& t) { t.random("1", "1000000"), t.w.type(C::txtX, ""); },
     msg::kErrorInInput},
    {"CustomTotalOfRealParts", [](TrackUpdateTest& t) {
         t.w.type(C::txtMinutes, "1");
         t.w.type(C::txtSeconds, "5");
         t.w.type(C::txtMiliseconds, "535.25");
     }, msg::kMaxMinute},
    {"RandomTotalDrawn", [](TrackUpdateTest& t) {
         t.random("0", "100000");
         t.w.random.values.push(0.7);
     }, msg::kMaxMinute},
    {"RandomTotalBeyond32Bits", [](TrackUpdateTest& t) {
         t.random("0", "1e12");
         t.w.random.values.push(0.5);
     }, msg::kIntervalOverflow},
};

class TrackUpdateRefusalTest : public TrackUpdateTest, public ::testing::WithParamInterface<Refusal> {};

TEST_P(TrackUpdateRefusalTest, ShowsOnlyTheFirstProblemAndChangesNothing) {
    GetParam().arrange(*this);
    const Cells before = gridRow(1);
    w.frm.cmdUpdate_Click();
    EXPECT_EQ(messages(), std::vector<std::string>{GetParam().message});
    EXPECT_EQ(gridRow(1), before);
    EXPECT_EQ(storedRow(1), before);
}

INSTANTIATE_TEST_SUITE_P(Refusals, TrackUpdateRefusalTest, ::testing::ValuesIn(kRefusals),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(TrackUpdateTest, TheSameRandomFieldsMayBeRefusedOrAccepted) {
    random("0", "100000");
    w.random.values.push(0.7);
    w.random.values.push(0.6);
    w.frm.cmdUpdate_Click();
    EXPECT_EQ(messages(), std::vector<std::string>{msg::kMaxMinute});
    w.dialogs.messages.clear();
    w.frm.cmdUpdate_Click();  // floor(100000 * 0.6 + 0) = 60000
    EXPECT_TRUE(messages().empty());
    EXPECT_EQ(gridRow(1)[colInterval], "0:100000");
}

TEST_F(TrackUpdateTest, CustomPartsOfExactlyZeroTextAreLeftOut) {
    w.type(C::txtMinutes, "0");
    w.type(C::txtSeconds, "60");
    w.type(C::txtMiliseconds, "600");
    w.frm.cmdUpdate_Click();
    EXPECT_TRUE(messages().empty());
    EXPECT_EQ(gridRow(1)[colInterval], "0:60:600");
}

TEST_F(TrackUpdateTest, ReplacesOnlyTheCurrentEntrysPicture) {
    addWithImage("3", 1000);
    addWithImage("4", 2000);
    w.frm.fgResult_Click(3, 0);
    capture(50, 60, 51, 60, 9000);
    w.frm.setCheck(C::chkRecImage, 1);
    w.frm.cmdUpdate_Click();
    EXPECT_EQ(rowPicture(3).lastX, 1);
    EXPECT_EQ(rowPicture(3).lastY, 0);
    EXPECT_EQ(rowPicture(3).at(1, 0), 10000);
    EXPECT_EQ(m().rows.lRowRect[3], (std::array<std::int32_t, 4>{50, 60, 51, 60}));
    EXPECT_EQ(rowPicture(4).at(2, 2), 4002) << "the other entry keeps its own picture";

    w.frm.setCheck(C::chkRecImage, 0);
    w.frm.cmdUpdate_Click();
    EXPECT_FALSE(rowImage(3));
    EXPECT_EQ(gridRow(3)[colImage], "No");
}

}  // namespace
}  // namespace quorlin::testing
