#include "track_fixture.h"

namespace quorlin::testing {
namespace {

using C = Ctl;

class TrackAddTest : public TrackFixture {};

struct Refusal {
    const char* name;
    void (*arrange)(TrackAddTest&);
    const char* message;
};

void nonStop(TrackAddTest& t) { t.w.frm.selectOption(C::optLoop); }
void tooLong(TrackAddTest& t) {
    t.w.type(C::txtMinutes, "1");
    t.w.type(C::txtSeconds, "6");
}
void noPicture(TrackAddTest& t) { t.w.frm.setCheck(C::chkRecImage, 1); }
void badX(TrackAddTest& t) { t.w.type(C::txtX, "abc"); }

// Each case also sets up every later problem, so the order of the checks shows.
const Refusal kRefusals[] = {
    {"NonStopBeforeEverything", [](TrackAddTest& t) { nonStop(t), tooLong(t), noPicture(t), badX(t); },
     msg::kSwitchOnCount},
    {"TotalBeforePicture", [](TrackAddTest& t) { tooLong(t), noPicture(t), badX(t); }, msg::kMaxMinute},
    {"PictureBeforeValidation", [](TrackAddTest& t) { noPicture(t), badX(t); }, msg::kSelectPicture},
    {"ValidationLast", [](TrackAddTest& t) { badX(t); }, msg::kErrorInInput},
    {"SinglePixelPictureIsNoPicture", [](TrackAddTest& t) { t.capture(5, 5, 5, 5, 7), noPicture(t); },
     msg::kSelectPicture},
    {"OverflowingMinutes", [](TrackAddTest& t) { t.w.type(C::txtMinutes, "40000"); }, msg::kIntervalOverflow},
    {"OverflowingSum", [](TrackAddTest& t) {
         t.w.type(C::txtMinutes, "35000");
         t.w.type(C::txtSeconds, "1000000");
     }, msg::kIntervalOverflow},
    {"PictureBeyondItsStore", [](TrackAddTest& t) {
         t.m().picture.iPicMaxX = 1;
         t.m().picture.iBottomX = kPictureSide;
         noPicture(t);
     }, msg::kPictureTooLarge},
    {"NegativeOverflow", [](TrackAddTest& t) { t.w.type(C::txtMinutes, "-40000"); }, msg::kIntervalOverflow},
};

class TrackAddRefusalTest : public TrackAddTest, public ::testing::WithParamInterface<Refusal> {};

TEST_P(TrackAddRefusalTest, ShowsOnlyTheFirstProblemAndChangesNothing) {
    w.frm.cmdAddtoList_Click();  // one entry to keep
    GetParam().arrange(*this);
    const Cells before = gridRow(1);
    w.dialogs.messages.clear();
    w.frm.cmdAddtoList_Click();
    EXPECT_EQ(messages(), std::vector<std::string>{GetParam().message});
    EXPECT_EQ(m().fgResult.rowCount(), 2);
    EXPECT_EQ(gridRow(1), before);
    EXPECT_EQ(m().fgResult.row(), 1);
}

INSTANTIATE_TEST_SUITE_P(Refusals, TrackAddRefusalTest, ::testing::ValuesIn(kRefusals),
                         [](const auto& info) { return std::string(info.param.name); });

struct Total {
    const char* minutes;
    const char* seconds;
    const char* milliseconds;
    bool random;
    bool accepted;
};

// Only the total check can refuse these; ValidateInput passes them all.
const Total kTotals[] = {
    {"0", "60", "600", false, true},       // minutes "0": no total check
    {"1", "6", "0", false, false},         // 66000
    {"1", "5", "535", false, true},        // 65535 exactly
    {"1", "5", "536", false, false},
    {"1", "5", "535.6", false, false},     // rounded, not cut off
    {"1", "5.125", "410.5", false, true},  // 60000 + 5125 + 410 (half to even) = 65535
    {"1", "5.125", "411.5", false, false}, // ... + 412
    {"00", "60", "0", false, true},        // "00" is checked: 60000
    {"0", "70", "0", true, true},          // random: minutes "0" skips the seconds as well
    {"00", "70", "0", true, false},        // random: seconds still count, minutes not
    {"5", "60", "535", true, true},        // random: 60535, the minutes are left out
    {"1", "0", "65536", true, false},      // "0" seconds skipped, milliseconds counted
};

class TrackAddTotalTest : public TrackAddTest, public ::testing::WithParamInterface<Total> {};

TEST_P(TrackAddTotalTest, RefusesOnlyTotalsAboveOneMinute) {
    const Total& t = GetParam();
    if (t.random) {
        w.frm.selectOption(C::optRandom);
        w.type(C::txtFromSec, "1");
        w.type(C::txtToSec, "2");
    }
    w.type(C::txtMinutes, t.minutes);
    w.type(C::txtSeconds, t.seconds);
    w.type(C::txtMiliseconds, t.milliseconds);
    w.frm.cmdAddtoList_Click();
    EXPECT_EQ(m().vFirstRowUsed, t.accepted);
    const std::vector<std::string> refusal{msg::kMaxMinute};
    EXPECT_EQ(messages(), t.accepted ? std::vector<std::string>{} : refusal);
}

INSTANTIATE_TEST_SUITE_P(Totals, TrackAddTotalTest, ::testing::ValuesIn(kTotals));

TEST_F(TrackAddTest, GrowsOnlyOnceTheBlankRowIsUsed) {
    struct Step {
        int entriesBefore;
        int rowCountAfter;
    };
    for (Step s : {Step{0, 2}, Step{1, 3}, Step{29, 31}}) {
        while (entries() < s.entriesBefore) w.frm.cmdAddtoList_Click();
        ASSERT_EQ(entries(), s.entriesBefore);
        w.frm.cmdAddtoList_Click();
        EXPECT_EQ(m().fgResult.rowCount(), s.rowCountAfter) << s.entriesBefore;
        EXPECT_EQ(m().fgResult.row(), s.rowCountAfter - 1) << "the new row is current";
        EXPECT_EQ(m().fgResult.cell(s.rowCountAfter - 1, colNumber), std::to_string(s.rowCountAfter - 1));
        EXPECT_TRUE(m().vFirstRowUsed);
    }
    ASSERT_TRUE(messages().empty());
    w.frm.cmdAddtoList_Click();
    EXPECT_EQ(messages(), std::vector<std::string>{msg::kMaxRows});
    EXPECT_EQ(m().fgResult.rowCount(), 31);
}

TEST_F(TrackAddTest, WritesTheCellsAsTypedIntoGridAndStore) {
    w.type(C::txtX, " 03");
    w.type(C::txtY, "1.50");
    w.type(C::txtMinutes, "0");
    w.type(C::txtSeconds, "60");
    w.type(C::txtMiliseconds, "600");
    w.frm.selectOption(C::optDbClick);
    w.type(C::txtCount, "007");
    w.frm.setCheck(C::chkText, 1);
    w.type(C::txtText, "line one\r\nline two");
    w.frm.cmdAddtoList_Click();
    const Cells expected{"1", " 03", "1.50", "Custom", "0:60:600", "DBClick", "007", "Yes", "line one\r\nline two", "No"};
    EXPECT_EQ(gridRow(1), expected);
    EXPECT_EQ(storedRow(1), expected);
    EXPECT_FALSE(rowImage(1));
}

TEST_F(TrackAddTest, RandomRightClickWithoutTextKeepsNoText) {
    w.frm.selectOption(C::optRandom);
    w.type(C::txtFromSec, "2");
    w.type(C::txtToSec, "5");
    w.frm.selectOption(C::optRightClick);
    w.type(C::txtText, "not typed");
    w.frm.cmdAddtoList_Click();
    EXPECT_EQ(gridRow(1), (Cells{"1", "10", "20", "Random", "2:5", "RightClick", "1", "No", "", "No"}));
}

TEST_F(TrackAddTest, CopiesOnlyTheCapturedPixelsWithTheImageFields) {
    capture(100, 200, 102, 203, 5000);
    m().picture.pixel(3, 0) = 99;  // beyond the rectangle: left behind by an earlier picture
    w.frm.setCheck(C::chkRecImage, 1);
    w.frm.selectOption(C::optImageNotInclude);
    w.frm.cmdAddtoList_Click();
    const RowPicture& p = rowPicture(1);
    EXPECT_EQ(p.lastX, 2);
    EXPECT_EQ(p.lastY, 3);
    EXPECT_EQ(p.pixels.size(), 12u);
    EXPECT_EQ(p.at(0, 0), 5000);
    EXPECT_EQ(p.at(2, 3), 7003);
    EXPECT_EQ(m().rows.lRowInclude[1], 0);
    EXPECT_EQ(m().rows.lRowRect[1], (std::array<std::int32_t, 4>{100, 200, 102, 203}));
    EXPECT_TRUE(rowImage(1));
    EXPECT_EQ(m().fgResult.cell(1, colImage), "Yes");

    w.frm.selectOption(C::optImageInclude);
    w.frm.cmdAddtoList_Click();
    EXPECT_EQ(m().rows.lRowInclude[2], -1);
}

// Thirty full-size pictures must live side by side without anything near a full
// block per slot beyond what was captured.
TEST_F(TrackAddTest, ThirtyLargestPicturesFitWellUnderTwoHundredMegabytes) {
    capture(0, 0, 1000, 1000, 1);
    w.frm.setCheck(C::chkRecImage, 1);
    for (int i = 0; i < kMaxEntries; ++i) w.frm.cmdAddtoList_Click();
    ASSERT_EQ(m().fgResult.rowCount(), 31);
    std::size_t bytes = 0;
    for (const RowPicture& p : m().rows.lRowPixels) bytes += p.pixels.capacity() * sizeof(Colour);
    bytes += m().picture.lPixels.capacity() * sizeof(Colour);
    EXPECT_LT(bytes, 130u * 1000 * 1000);
    EXPECT_EQ(rowPicture(30).at(1000, 1000), 1 + 1000 * 1000 + 1000);
}

}  // namespace
}  // namespace quorlin::testing
