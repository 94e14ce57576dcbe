#include "track_fixture.h"

namespace quorlin::testing {
namespace {

using C = Ctl;

class TrackSelectTest : public TrackFixture {
public:
    // Writes an entry's cells straight into row r, as a loaded project may hold them.
    void putRow(int r, Cells cells) {
        if (m().fgResult.rowCount() <= r) m().fgResult.setRowCount(r + 1);
        for (int c = 0; c < kGridColumns; ++c) m().fgResult.setCell(r, c, cells[static_cast<std::size_t>(c)]);
        m().rows.sRowCells[static_cast<std::size_t>(r)] = cells;
        m().vFirstRowUsed = true;
    }
    const std::string& text(Ctl c) { return w.form().text(c); }
};

struct Split {
    const char* name;
    const char* cell;
    bool random;
    std::array<const char*, 5> fields;  // from, to, minutes, seconds, milliseconds afterwards
    const char* count;                  // "Rep" loaded only when the split succeeds
};

const Split kSplits[] = {
    {"CustomWhileCustom", "0:3:0", false, {"", "", "0", "3", "0"}, "4"},
    {"RandomWhileRandom", "2:5", true, {"2", "5", "0", "3", "0"}, "4"},
    {"CustomWhileRandom", "0:3:0", true, {"0", "3:0", "0", "3", "0"}, "4"},
    {"RandomWhileCustomFails", "2:5", false, {"", "", "0", "3", "0"}, "1"},
    {"EmptyParts", ":5", true, {"", "5", "0", "3", "0"}, "4"},
    {"MillisecondsKeepLaterColons", "1:2:3:4", false, {"", "", "1", "2", "3:4"}, "4"},
    {"NoColonFailsForRandom", "25", true, {"", "", "0", "3", "0"}, "1"},
};

class TrackSplitTest : public TrackSelectTest, public ::testing::WithParamInterface<Split> {};

TEST_P(TrackSplitTest, FollowsTheIntervalOptionSelectedNow) {
    const Split& s = GetParam();
    putRow(1, {"1", "5", "6", "Custom", s.cell, "DBClick", "4", "No", "", "No"});
    if (s.random) w.frm.selectOption(C::optRandom);
    w.frm.fgResult_Click(1, 3);
    EXPECT_EQ(text(C::txtX), "5");
    EXPECT_EQ(text(C::txtY), "6");
    const Ctl fields[] = {C::txtFromSec, C::txtToSec, C::txtMinutes, C::txtSeconds, C::txtMiliseconds};
    for (std::size_t i = 0; i < 5; ++i) EXPECT_EQ(text(fields[i]), s.fields[i]) << i;
    EXPECT_EQ(text(C::txtCount), s.count);
    EXPECT_EQ(w.form().selected(C::optDbClick), std::string(s.count) == "4");
    EXPECT_EQ(m().fgResult.row(), 1);
    EXPECT_EQ(m().fgResult.col(), 3);
    EXPECT_TRUE(messages().empty());
}

INSTANTIATE_TEST_SUITE_P(Splits, TrackSplitTest, ::testing::ValuesIn(kSplits),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(TrackSelectTest, OnlyTheExactClickNamesSelectTheirOption) {
    struct Case {
        const char* type;
        Ctl option;
        const char* kind;
    };
    const Case cases[] = {{"Click", C::optClick, kClick},
                          {"DBClick", C::optDbClick, kDBClick},
                          {"click", C::optRightClick, kRightClick},
                          {"DbClick", C::optRightClick, kRightClick},
                          {"", C::optRightClick, kRightClick}};
    for (const Case& c : cases) {
        w.frm.selectOption(C::optClick == c.option ? C::optDbClick : C::optClick);
        putRow(1, {"1", "5", "6", "Custom", "0:1:0", c.type, "1", "No", "", "No"});
        w.frm.fgResult_Click(1, 0);
        EXPECT_TRUE(w.form().selected(c.option)) << c.type;
        EXPECT_EQ(m().step.ClickKind, c.kind) << c.type;
    }
}

TEST_F(TrackSelectTest, LoadsTheTypedTextWithItsLineBreaks) {
    putRow(1, {"1", "5", "6", "Custom", "0:1:0", "Click", "1", "Yes", "a\r\nb", "No"});
    putRow(2, {"2", "5", "6", "Custom", "0:1:0", "Click", "1", "yes", "ignored", "No"});
    w.frm.fgResult_Click(1, 0);
    EXPECT_EQ(w.form().value(C::chkText), 1);
    EXPECT_TRUE(w.form().enabled(C::txtText));
    EXPECT_TRUE(m().step.bTypeText);
    EXPECT_EQ(text(C::txtText), "a\r\nb");
    EXPECT_EQ(m().step.sTypeText, "a\r\nb");
    w.frm.fgResult_Click(2, 0);
    EXPECT_EQ(w.form().value(C::chkText), 0);
    EXPECT_FALSE(m().step.bTypeText);
    EXPECT_EQ(text(C::txtText), "");
}

TEST_F(TrackSelectTest, AnImageRowBecomesTheReferencePictureAndIsDrawnOverTheBox) {
    addWithImage("1", 3000, 4);
    m().picture = ReferencePicture{};
    m().pictureBox.setPixel(10, 10, 77);
    w.frm.setCheck(C::chkRecImage, 0);
    w.frm.selectOption(C::optImageNotInclude);
    w.frm.fgResult_Click(1, 0);
    const ReferencePicture& p = m().picture;
    EXPECT_EQ(p.iPicMaxX, 3);
    EXPECT_EQ(p.iPicMaxY, 3);
    EXPECT_EQ(p.pixel(3, 2), 6002);
    EXPECT_EQ(m().pictureBox.pixel(3, 2), 6002);
    EXPECT_EQ(m().pictureBox.pixel(10, 10), 77) << "the box is not cleared first";
    EXPECT_EQ(p.rect().left, 100);
    EXPECT_EQ(p.rect().bottom, 203);
    EXPECT_EQ(text(C::txtTopX), "100");
    EXPECT_EQ(text(C::txtTopY), "200");
    EXPECT_EQ(text(C::txtBottomX), "103");
    EXPECT_EQ(text(C::txtBottomY), "203");
    EXPECT_EQ(w.form().value(C::chkRecImage), 1);
    EXPECT_TRUE(w.form().enabled(C::txtTopX));
    EXPECT_TRUE(w.form().selected(C::optImageInclude));
}

TEST_F(TrackSelectTest, ARowWithoutImageForgetsTheRectangleButKeepsThePixels) {
    addWithImage("1", 3000, 4);
    putRow(2, {"2", "5", "6", "Custom", "0:1:0", "Click", "1", "Yes", "t", "No"});
    w.frm.fgResult_Click(1, 0);
    w.frm.fgResult_Click(2, 0);
    EXPECT_EQ(m().picture.rect().left, 0);
    EXPECT_EQ(m().picture.rect().bottom, 0);
    EXPECT_EQ(m().picture.iPicMaxX, 3);
    EXPECT_EQ(m().picture.pixel(3, 2), 6002);
    EXPECT_EQ(m().pictureBox.pixel(3, 2), PictureBox::kBackground);
    for (Ctl c : {C::txtTopX, C::txtTopY, C::txtBottomX, C::txtBottomY}) EXPECT_EQ(text(c), "");
    EXPECT_EQ(w.form().value(C::chkRecImage), 0);
    EXPECT_FALSE(w.form().enabled(C::txtTopX));
    EXPECT_EQ(w.form().value(C::chkText), 1);
}

TEST_F(TrackSelectTest, TheBlankRowOfAnEmptyListLoadsOnlyAnEmptyPoint) {
    w.frm.setCheck(C::chkRecImage, 1);
    w.frm.fgResult_Click(1, 0);
    EXPECT_EQ(text(C::txtX), "");
    EXPECT_EQ(text(C::txtY), "");
    EXPECT_EQ(text(C::txtMinutes), "0");
    EXPECT_EQ(w.form().value(C::chkRecImage), 1);
    EXPECT_EQ(m().fgResult.row(), 1);
}

TEST_F(TrackSelectTest, TheHeaderRowLoadsNothingAndKeepsTheCurrentRow) {
    putRow(1, {"1", "5", "6", "Custom", "0:1:0", "Click", "1", "No", "", "No"});
    m().fgResult.setRow(1);
    w.frm.fgResult_Click(0, 2);
    EXPECT_EQ(m().fgResult.row(), 1);
    EXPECT_EQ(text(C::txtX), "10");
}

TEST_F(TrackSelectTest, AnUpdatedPictureDoesNotChangeTheOneLoadedFromTheEntry) {
    addWithImage("1", 3000, 2);
    w.frm.fgResult_Click(1, 0);
    m().picture.pixel(0, 0) = 1;
    EXPECT_EQ(rowPicture(1).at(0, 0), 3000);
    w.frm.cmdUpdate_Click();
    EXPECT_EQ(rowPicture(1).at(0, 0), 1);
    m().picture.pixel(0, 0) = 2;
    EXPECT_EQ(rowPicture(1).at(0, 0), 1);
}

}  // namespace
}  // namespace quorlin::testing
