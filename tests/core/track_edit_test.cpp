#include <gtest/gtest.h>

#include <tuple>

#include "support/test_window.h"

namespace quorlin::testing {
namespace {

using C = Ctl;

const char* const kMaxMinute = "Maximum interval is 1 minute";
const char* const kOverflow = "Overflow: the interval is too large to be counted.";
const char* const kNoPicture = "Select a picture.Click 'Get Picture'.";
const char* const kTooLarge = "The captured picture is too large to be kept with the step.";
const char* const kSwitchOnCount =
    "Please switch on '# of times' option button. Can not run Non-stop clicks in Track list.";

// A window with a valid click point, ready to take track entries.
class TrackEdit : public ::testing::Test {
public:
    TestWindow w;
    WindowModel& m = w.model();

    void SetUp() override { w.typeAll({{C::txtX, "10"}, {C::txtY, "20"}}); }
    int entries() { return m.vFirstRowUsed ? m.fgResult.rowCount() - 1 : 0; }
    const Cells& storedRow(int r) { return m.rows.sRowCells[static_cast<std::size_t>(r)]; }
    // The blank row alone, with nothing kept for it.
    void expectNoEntries() {
        EXPECT_EQ(m.fgResult.rowCount(), 2);
        EXPECT_EQ((std::pair{w.gridRow(1), storedRow(1)}), (std::pair{Cells{}, Cells{}}));
        EXPECT_FALSE(m.vFirstRowUsed || m.rows.bRowImage[1]);
        EXPECT_EQ(w.rowPicture(1).pixels.size(), 1u) << "the entries' pictures are given back";
    }
};

struct Refusal {
    const char* name;
    bool update;  // refused by "Update track list" rather than "Add to track list"
    void (*arrange)(TrackEdit&);
    const char* message;
};

void nonStop(TrackEdit& t) { t.w.frm.selectOption(C::optLoop); }
void tooLong(TrackEdit& t) { t.w.typeAll({{C::txtMinutes, "1"}, {C::txtSeconds, "6"}}); }
void noPicture(TrackEdit& t) { t.w.frm.setCheck(C::chkRecImage, 1); }
void badX(TrackEdit& t) { t.w.type(C::txtX, "abc"); }
// A captured picture whose rectangle reaches the given bottom corner from (0, 0).
void oversized(TrackEdit& t, std::int16_t bottomX, std::int16_t bottomY) {
    t.w.setPicture(0, 0, 1, 1, 0);
    t.m.picture.iBottomX = bottomX;
    t.m.picture.iBottomY = bottomY;
    noPicture(t);
}

// Each case also sets up every later problem, so the order of the checks shows.
const Refusal kRefusals[] = {
    {"AddNonStopFirst", false, [](TrackEdit& t) { nonStop(t), tooLong(t), noPicture(t), badX(t); }, kSwitchOnCount},
    {"AddTotalBeforePicture", false, [](TrackEdit& t) { tooLong(t), noPicture(t), badX(t); }, kMaxMinute},
    {"AddPictureBeforeValidation", false, [](TrackEdit& t) { noPicture(t), badX(t); }, kNoPicture},
    {"AddValidationLast", false, badX, "Error in input"},
    {"AddSinglePixelIsNoPicture", false, [](TrackEdit& t) { t.w.setPicture(5, 5, 5, 5, 7), noPicture(t); }, kNoPicture},
    {"AddOverflowingMinutes", false, [](TrackEdit& t) { t.w.type(C::txtMinutes, "-40000"); }, kOverflow},
    {"AddOverflowMidwayStaysOverflow", false, [](TrackEdit& t) {
         t.w.typeAll({{C::txtMinutes, "35000"}, {C::txtSeconds, "100000"}, {C::txtMiliseconds, "-1000000000"}});
     }, kOverflow},
    {"AddOverflowingSum", false,
     [](TrackEdit& t) { t.w.typeAll({{C::txtMinutes, "35000"}, {C::txtSeconds, "1000000"}}); }, kOverflow},
    {"AddPictureWiderThanItsStore", false, [](TrackEdit& t) { oversized(t, 1001, 1); }, kTooLarge},
    {"AddPictureTallerThanItsStore", false, [](TrackEdit& t) { oversized(t, 1, 1001); }, kTooLarge},
    {"UpdateNonStopFirst", true, [](TrackEdit& t) { nonStop(t), badX(t); }, kSwitchOnCount},
    {"UpdateValidationBeforeTotal", true, [](TrackEdit& t) { t.w.type(C::txtMinutes, "2"), badX(t); }, kMaxMinute},
    {"UpdateInputErrorBeforeTotal", true, [](TrackEdit& t) { t.w.randomInterval("1", "1000000"), badX(t); },
     "Error in input"},
    {"UpdateRealParts", true, [](TrackEdit& t) {
         t.w.typeAll({{C::txtMinutes, "1"}, {C::txtSeconds, "5"}, {C::txtMiliseconds, "535.25"}});
     }, kMaxMinute},
    {"UpdateRandomDrawn", true, [](TrackEdit& t) { t.w.randomInterval("0", "100000", {0.7}); }, kMaxMinute},
    {"UpdateRandomBeyond32Bits", true, [](TrackEdit& t) { t.w.randomInterval("0", "1e12", {0.5}); },
     kOverflow},
};

class TrackRefusal : public TrackEdit, public ::testing::WithParamInterface<Refusal> {};

TEST_P(TrackRefusal, ShowsOnlyTheFirstProblemAndChangesNothing) {
    w.frm.cmdAddtoList_Click();  // one entry to keep
    GetParam().arrange(*this);
    const Cells before = w.gridRow(1);
    w.dialogs.messages.clear();
    GetParam().update ? w.frm.cmdUpdate_Click() : w.frm.cmdAddtoList_Click();
    EXPECT_EQ(w.messages(), std::vector<std::string>{GetParam().message});
    EXPECT_EQ(m.fgResult.rowCount(), 2);
    EXPECT_EQ(w.gridRow(1), before);
}

INSTANTIATE_TEST_SUITE_P(Refusals, TrackRefusal, ::testing::ValuesIn(kRefusals),
                         [](const auto& info) { return std::string(info.param.name); });

// Minutes, seconds, milliseconds, Random selected, added, updated. Only the total check can
// refuse these; the field check passes them all.
using Total = std::tuple<const char*, const char*, const char*, bool, bool, bool>;
const Total kTotals[] = {
    {"0", "60", "600", false, true, true},       // minutes "0": no total check when adding
    {"1", "5", "535", false, true, true},        // 65535 exactly
    {"1", "5", "536", false, false, false},
    {"1", "5", "535.6", false, false, false},    // rounded when adding, real when updating
    {"1", "5.125", "410.5", false, true, false}, // 60000 + 5125 + 410 (half to even) = 65535
    {"00", "60", "0", false, true, true},        // "00" is checked: 60000
    {"0", "70", "0", true, true, true},          // random: minutes "0" skips the seconds as well
    {"00", "70", "0", true, false, true},        // random: seconds still count when adding
    {"5", "60", "535", true, true, true},        // random: 60535, the minutes are left out
    {"1", "0", "65536", true, false, true},      // "0" seconds skipped, milliseconds counted
    {"-1", "0", "-2147423648", false, true, true},  // -2^31, the smallest total that fits
};

class TrackTotal : public TrackEdit, public ::testing::WithParamInterface<Total> {};

TEST_P(TrackTotal, RefusesOnlyTotalsAboveTheLongestInterval) {
    const auto [minutes, seconds, milliseconds, isRandom, added, updated] = GetParam();
    w.frm.cmdAddtoList_Click();
    if (isRandom) w.randomInterval("1", "2");
    w.typeAll({{C::txtMinutes, minutes}, {C::txtSeconds, seconds}, {C::txtMiliseconds, milliseconds}});
    w.dialogs.messages.clear();
    w.frm.cmdAddtoList_Click();
    EXPECT_EQ(entries(), added ? 2 : 1);
    w.frm.cmdUpdate_Click();
    const std::size_t refusals = (added ? 0 : 1) + (updated ? 0 : 1);
    EXPECT_EQ(w.messages(), std::vector<std::string>(refusals, kMaxMinute));
}

INSTANTIATE_TEST_SUITE_P(Totals, TrackTotal, ::testing::ValuesIn(kTotals));

TEST_F(TrackEdit, WritesTheCellsAsTypedIntoGridAndStore) {
    w.typeAll({{C::txtX, " 03"}, {C::txtY, "1.50"}, {C::txtSeconds, "60"}, {C::txtMiliseconds, "600"},
               {C::txtCount, "007"}});
    w.frm.selectOption(C::optDbClick);
    w.frm.setCheck(C::chkText, 1);
    w.type(C::txtText, "one\r\ntwo");
    w.frm.cmdAddtoList_Click();
    const Cells expected{"1", " 03", "1.50", "Custom", "0:60:600", "DBClick", "007", "Yes", "one\r\ntwo", "No"};
    EXPECT_EQ(w.gridRow(1), expected);

    w.randomInterval("2", "5");
    w.frm.selectOption(C::optRightClick);
    w.frm.setCheck(C::chkText, 0);
    w.frm.cmdUpdate_Click();
    EXPECT_EQ(w.gridRow(1), (Cells{"1", " 03", "1.50", "Random", "2:5", "RightClick", "007", "No", "", "No"}));
}

TEST_F(TrackEdit, EntriesKeepTheirOwnCopiesOfTheCapturedPixels) {
    w.setPicture(600, 500, 602, 503, 5000);  // the sums of the corners' coordinates exceed the store
    m.picture.pixel(3, 0) = 99;  // beyond the rectangle: left behind by an earlier picture
    w.frm.setCheck(C::chkRecImage, 1);
    w.frm.selectOption(C::optImageNotInclude);
    w.frm.cmdAddtoList_Click();
    w.frm.selectOption(C::optImageInclude);
    w.addAt("2", 2000);
    const RowPicture& p = w.rowPicture(1);
    EXPECT_EQ((std::pair{p.pixels.size(), p.at(2, 3)}), std::pair(std::size_t{12}, 7003));
    EXPECT_EQ((std::pair{m.rows.lRowInclude[1], m.rows.lRowInclude[2]}), std::pair(0, -1));
    EXPECT_EQ(m.rows.lRowRect[1], (std::array<std::int32_t, 4>{600, 500, 602, 503}));

    w.frm.fgResult_Click(1, 0);
    const ReferencePicture& loaded = m.picture;
    EXPECT_EQ((std::array{loaded.iTopX, loaded.iTopY, loaded.iBottomX, loaded.iBottomY}),
              (std::array<std::int16_t, 4>{600, 500, 602, 503}));
    w.setPicture(50, 60, 51, 60, 9000);
    m.picture.pixel(0, 0) = 1;
    EXPECT_EQ(w.rowPicture(1).at(0, 0), 5000) << "the loaded picture is a copy";
    w.frm.cmdUpdate_Click();
    EXPECT_EQ((std::pair{w.rowPicture(1).lastX, w.rowPicture(1).at(1, 0)}), std::pair(1, 10000));
    EXPECT_EQ(w.rowPicture(2).at(2, 2), 4002) << "the other entry keeps its own picture";
    w.frm.setCheck(C::chkRecImage, 0);
    w.frm.cmdUpdate_Click();
    EXPECT_FALSE(m.rows.bRowImage[1]);
}

TEST_F(TrackEdit, RemovalMovesLaterEntriesUpWithTheirPicturesAndRenumbersDownToTheBlankRow) {
    for (int i = 1; i <= 4; ++i) w.addAt(std::to_string(i), i * 10000, i + 1);
    for (auto [removed, xs] : {std::pair{1, std::vector<int>{2, 3, 4}}, {2, std::vector<int>{2, 4}}, {1, {4}}}) {
        m.fgResult.setRow(removed);
        w.frm.cmdRemove_Click();
        ASSERT_EQ(entries(), static_cast<int>(xs.size()));
        for (int r = 1; r <= entries(); ++r) {
            const int former = xs[static_cast<std::size_t>(r - 1)];
            EXPECT_EQ(w.gridRow(r)[colNumber], std::to_string(r));
            EXPECT_EQ(w.gridRow(r)[colX], std::to_string(former));
            EXPECT_EQ(storedRow(r), w.gridRow(r));
            EXPECT_EQ(w.rowPicture(r).at(former, 0), former * 11000);
            EXPECT_EQ(m.rows.lRowRect[static_cast<std::size_t>(r)][2], 100 + former);
        }
        EXPECT_EQ(m.fgResult.row(), entries()) << "the last row becomes current";
    }
    m.fgResult.setRow(0);
    w.frm.cmdRemove_Click();
    EXPECT_EQ(entries(), 1) << "the header row is no entry";

    m.fgResult.setRow(1);
    w.frm.cmdRemove_Click();
    expectNoEntries();
}

TEST_F(TrackEdit, AddGrowsOnceTheBlankRowIsUsedUpToThirtyEntriesAndClearingEmptiesThemAll) {
    for (int n = 1; n <= 30; ++n) {
        w.addAt(std::to_string(n), n == 1 ? std::optional<Colour>(100) : std::nullopt);
        ASSERT_EQ(m.fgResult.rowCount(), n + 1);
        EXPECT_EQ(m.fgResult.row(), n) << "the new row is current";
        EXPECT_EQ(m.fgResult.cell(n, colNumber), std::to_string(n));
    }
    EXPECT_TRUE(w.messages().empty());
    w.frm.cmdAddtoList_Click();
    EXPECT_EQ(w.messages(), std::vector<std::string>{"Maximum row count was exceeded."});
    EXPECT_EQ(m.fgResult.rowCount(), 31);

    w.frm.cmdClearTrackList_Click();
    expectNoEntries();
    EXPECT_EQ(w.gridRow(0), (Cells{"#", "X", "Y", "Intr Type", "Interval", "Type", "Rep", "Fill", "Text", "Image"}));
    std::vector<int> widths;
    for (int c = 0; c < kGridColumns; ++c) widths.push_back(m.fgResult.colWidth(c));
    EXPECT_EQ(widths, (std::vector<int>{400, 600, 600, 800, 800, 800, 800, 400, 900, 400}));
    EXPECT_EQ(m.fgResult.row(), 0);
    EXPECT_EQ(w.text(C::txtX), "30");
}

struct Split {
    const char* name;
    const char* cell;
    bool random;
    std::array<const char*, 5> fields;  // from, to, minutes, seconds, milliseconds afterwards
    bool loaded;                        // the rest of the row was loaded
};

const Split kSplits[] = {
    {"CustomWhileCustom", "0:3:0", false, {"", "", "0", "3", "0"}, true},
    {"RandomWhileRandom", "2:5", true, {"2", "5", "0", "3", "0"}, true},
    {"CustomWhileRandom", "0:3:0", true, {"0", "3:0", "0", "3", "0"}, true},
    {"RandomWhileCustomFails", "2:5", false, {"", "", "0", "3", "0"}, false},
    {"EmptyParts", ":5", true, {"", "5", "0", "3", "0"}, true},
    {"MillisecondsKeepLaterColons", "1:2:3:4", false, {"", "", "1", "2", "3:4"}, true},
    {"NoColonFailsForRandom", "25", true, {"", "", "0", "3", "0"}, false},
};

class TrackSplit : public TrackEdit, public ::testing::WithParamInterface<Split> {};

TEST_P(TrackSplit, ClickingARowReadsTheIntervalAsTheOptionSelectedNowSays) {
    const Split& s = GetParam();
    w.putRow(1, {"1", "5", "6", "Custom", s.cell, "DBClick", "4", "No", "", "No"});
    if (s.random) w.frm.selectOption(C::optRandom);
    w.frm.fgResult_Click(1, 3);
    EXPECT_EQ(w.texts({C::txtX, C::txtY}), (std::vector<std::string>{"5", "6"}));
    EXPECT_EQ(w.texts({C::txtFromSec, C::txtToSec, C::txtMinutes, C::txtSeconds, C::txtMiliseconds}),
              std::vector<std::string>(s.fields.begin(), s.fields.end()));
    EXPECT_EQ(w.text(C::txtCount), s.loaded ? "4" : "1");
    EXPECT_EQ(w.form().selected(C::optDbClick), s.loaded);
    EXPECT_EQ((std::pair{m.fgResult.row(), m.fgResult.col()}), std::pair(1, 3));
}

INSTANTIATE_TEST_SUITE_P(Splits, TrackSplit, ::testing::ValuesIn(kSplits),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(TrackEdit, ClickingARowSelectsOnlyExactNamesAndLoadsItsText) {
    // the row's type and fill cells; the option and kind they select; whether the text is typed
    using Case = std::tuple<const char*, const char*, Ctl, const char*, bool>;
    w.frm.setCheck(C::chkText, 1);
    for (auto [type, fill, option, kind, typing] :
         {Case{"Click", "Yes", C::optClick, "Click", true}, {"DBClick", "yes", C::optDbClick, "DBClick", false},
          {"RightClick", "Yes", C::optRightClick, "RightClick", true},
          {"click", "No", C::optRightClick, "RightClick", false}, {"", "Yes", C::optRightClick, "RightClick", true}}) {
        w.frm.selectOption(C::optClick == option ? C::optDbClick : C::optClick);
        m.step.bTypeText = !typing;  // as a track run leaves it, whatever the box shows
        w.putRow(1, {"1", "5", "6", "Custom", "0:1:0", type, "1", fill, "a\r\nb", "No"});
        w.frm.fgResult_Click(1, 0);
        EXPECT_TRUE(w.form().selected(option)) << type;
        EXPECT_EQ((std::tuple{m.step.ClickKind, m.step.bTypeText, w.form().value(C::chkText), m.step.sTypeText}),
                  (std::tuple{kind, typing, typing ? 1 : 0, typing ? "a\r\nb" : ""})) << type << " " << fill;
    }
}

TEST_F(TrackEdit, AnImageRowBecomesTheReferencePictureARowWithoutImageForgetsOnlyItsRectangle) {
    using Texts = std::vector<std::string>;
    const auto corners = [&] { return w.texts({C::txtTopX, C::txtTopY, C::txtBottomX, C::txtBottomY}); };
    w.addAt("1", 3000, 4);
    w.putRow(2, {"2", "5", "6", "Custom", "0:1:0", "Click", "1", "No", "", "No"});
    m.picture = ReferencePicture{};
    w.frm.setCheck(C::chkRecImage, 0);
    w.frm.selectOption(C::optImageNotInclude);
    w.frm.fgResult_Click(1, 0);
    EXPECT_EQ((std::pair{m.picture.iPicMaxX, m.picture.iPicMaxY}), (std::pair<std::int16_t, std::int16_t>(3, 3)));
    EXPECT_EQ((std::pair{m.picture.pixel(3, 2), m.pictureBox.pixel(3, 2)}), std::pair(6002, 6002));
    EXPECT_EQ(corners(), (Texts{"100", "200", "103", "203"}));
    EXPECT_TRUE(w.form().value(C::chkRecImage) == 1 && w.form().selected(C::optImageInclude));

    w.frm.fgResult_Click(2, 0);
    EXPECT_EQ((std::pair{m.picture.rect().left, m.picture.rect().bottom}), std::pair(0, 0));
    EXPECT_EQ(m.picture.pixel(3, 2), 6002) << "the reference pixels stay";
    EXPECT_EQ(m.pictureBox.pixel(3, 2), PictureBox::kBackground);
    EXPECT_EQ(corners(), Texts(4));
    EXPECT_EQ(w.form().value(C::chkRecImage), 0);

    m.rows.lRowRect[1] = {-5, 6, 100000, 9};  // as a file edited by hand may hold it
    w.frm.fgResult_Click(1, 0);
    EXPECT_EQ(corners(), (Texts{"-5", "6", "100000", "9"}));
    EXPECT_EQ((std::array{m.picture.iTopX, m.picture.iTopY, m.picture.iBottomX, m.picture.iBottomY}),
              (std::array<std::int16_t, 4>{-5, 6, 0, 0})) << "the loading ends at the corner beyond 16 bits";
}

TEST_F(TrackEdit, TheHeaderRowIsNoEntryAndTheBlankRowLoadsAnEmptyPointAndTakesAnUpdate) {
    w.frm.cmdUpdate_Click();
    EXPECT_FALSE(m.vFirstRowUsed) << "after start the header row is current";
    w.frm.fgResult_Click(2, 2);  // beyond the last row
    w.frm.fgResult_RowColChange(2, 2);
    w.frm.fgResult_Click(0, 2);
    EXPECT_EQ((std::pair{w.text(C::txtX), m.fgResult.row()}), (std::pair<std::string, int>("10", 0)));
    w.frm.fgResult_Click(1, 0);
    EXPECT_EQ(w.text(C::txtX), "");
    w.typeAll({{C::txtX, "10"}, {C::txtY, "20"}});
    w.frm.cmdUpdate_Click();
    EXPECT_TRUE(w.gridRow(1)[colNumber] == "1" && m.vFirstRowUsed);
}

// The view learns of every change of the controls, the grid and the picture box from the model itself.
TEST_F(TrackEdit, TheObserverHearsOfEveryControlGridAndPictureBoxChange) {
    struct Counter : FormObserver {
        int grid = 0, box = 0;
        std::vector<Ctl> controls;
        void controlChanged(Ctl c) override { controls.push_back(c); }
        void gridChanged() override { ++grid; }
        void pictureBoxChanged() override { ++box; }
    } counter;
    w.frm.setObserver(&counter);
    w.frm.setCheck(C::chkText, 1);
    w.frm.selectOption(C::optDbClick);
    w.type(C::txtY, "5");
    w.desktop.cursor = {7, 8};
    w.frm.timerTick(TimerId::timer);
    EXPECT_EQ(counter.controls, (std::vector<Ctl>{C::chkText, C::txtText, C::optClick, C::optDbClick, C::txtY,
                                                  C::lblXPos, C::lblYPos}));
    w.frm.cmdAddtoList_Click();
    w.frm.Form_Paint();
    EXPECT_EQ((std::pair{counter.grid > 0, counter.box}), std::pair(true, 1)) << "the window's grid and box tell";
    w.frm.setObserver(nullptr);

    TrackGrid grid;
    PictureBox box;
    grid.setObserver(&counter);
    box.setObserver(&counter);
    counter.grid = counter.box = 0;
    grid.setRowCount(3);
    grid.removeRow(2);
    grid.blankAll();
    grid.setRow(1);
    grid.setCol(1);
    grid.setCell(1, 1, "x");
    grid.setCells(1, {});
    grid.setColWidth(1, 600);
    box.setSize(2, 2);
    box.clear();
    box.draw(m.picture, 1, 1);
    EXPECT_EQ(counter.grid, 8) << "every change of the grid is told";
    EXPECT_EQ(counter.box, 3) << "every change of the box is told, once per drawing";
}

}  // namespace
}  // namespace quorlin::testing
