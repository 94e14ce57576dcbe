#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "project/atomic_file.h"
#include "support/test_window.h"
#include "track_fixture.h"

namespace quorlin::testing {
namespace {

using C = Ctl;
namespace fs = std::filesystem;

std::string lines(std::initializer_list<const char*> values, const char* end = "\r\n") {
    std::string out;
    for (const char* v : values) out += std::string(v) + end;
    return out;
}

const std::string kExampleFile =
    lines({"True", "False", "10", "20", "11", "21", "1"}) + lines({"1", "1", "16777215", "0", "255", "65280"}) +
    lines({"False", "True", "False", "0", "", "True", "False", "False", "True", "1", "True", "False", "True", "False",
           "False", "5", "200", "150", "0", "3", "0", "1", "5"}) +
    lines({"1", "200", "150", "Custom", "0:3:0", "Click", "5", "No", "", "No", "False", "No"}) +
    lines({"2", "640", "300", "Random", "1:5", "DBClick", "2", "Yes", "hello", "Yes", "True", "Yes"}) +
    lines({"0", "1", "16711680", "16777215", "-1", "100", "50", "100", "51"});

// Project files in a folder of their own, chosen through the dialog.
class ProjectFile : public TrackFixture {
protected:
    fs::path dir = fs::temp_directory_path() / ("quorlin-project-" + std::to_string(::getpid()));
    fs::path file = dir / "setup.tpl";

    void SetUp() override {
        TrackFixture::SetUp();
        fs::create_directories(dir);
    }
    void TearDown() override { fs::remove_all(dir); }

    void save() {
        w.dialogs.answers.push(file.string());
        w.frm.cmdSave_Click();
    }
    void load(const std::string& content) {
        std::ofstream(file, std::ios::binary) << content;
        w.dialogs.answers.push(file.string());
        w.frm.cmdLoad_Click();
    }
    std::string saved() {
        std::ifstream in(file, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    }
    void row(int r, const Cells& cells) {
        m().fgResult.setRowCount(std::max(m().fgResult.rowCount(), r + 1));
        for (int c = 0; c < kGridColumns; ++c) m().fgResult.setCell(r, c, cells[static_cast<std::size_t>(c)]);
        m().rows.sRowCells[static_cast<std::size_t>(r)] = cells;
        m().rows.bRowImage[static_cast<std::size_t>(r)] = cells[colImage] == "Yes";
        m().vFirstRowUsed = true;
    }
    // The window of the example file, set up control by control.
    void exampleWindow() {
        w.frm.setCheck(C::chkRecImage, 1);
        for (auto [field, text] : {std::pair{C::txtTopX, "10"}, {C::txtTopY, "20"}, {C::txtBottomX, "11"},
                                   {C::txtBottomY, "21"}, {C::txtCount, "5"}, {C::txtX, "200"}, {C::txtY, "150"},
                                   {C::txtFromSec, "1"}, {C::txtToSec, "5"}})
            w.type(field, text);
        w.frm.selectOption(C::optApplication);
        ReferencePicture& p = m().picture;
        p.iPicMaxX = p.iPicMaxY = 1;
        p.pixel(0, 0) = 16777215;
        p.pixel(0, 1) = 0;
        p.pixel(1, 0) = 255;
        p.pixel(1, 1) = 65280;
        row(1, {"1", "200", "150", "Custom", "0:3:0", "Click", "5", "No", "", "No"});
        row(2, {"2", "640", "300", "Random", "1:5", "DBClick", "2", "Yes", "hello", "Yes"});
        RowPicture& rp = m().rows.lRowPixels[2];
        rp.resize(0, 1);
        rp.at(0, 0) = 16711680;
        rp.at(0, 1) = 16777215;
        m().rows.lRowInclude[2] = -1;
        m().rows.lRowRect[2] = {100, 50, 100, 51};
    }
};

TEST_F(ProjectFile, TheExampleSetupIsWrittenByteForByte) {
    exampleWindow();
    save();
    EXPECT_EQ(saved(), kExampleFile);
    EXPECT_EQ(w.dialogs.shown.back().title, "Load Attachement");
    EXPECT_EQ(w.dialogs.shown.back().filterPattern, "*.tpl");
    EXPECT_EQ(w.dialogs.shown.back().defaultExtension, "tpl");
    EXPECT_EQ(m().fgResult.row(), 2);
    EXPECT_EQ(m().fgResult.col(), 9);
}

TEST_F(ProjectFile, TheExampleFileLoadsBackIntoTheSameWindow) {
    load(kExampleFile);
    EXPECT_EQ(w.form().text(C::txtTopX), "10");
    EXPECT_EQ(m().picture.iBottomY, 21);
    EXPECT_EQ(m().picture.pixel(1, 1), 65280);
    EXPECT_EQ(m().rows.lRowPixels[2].at(0, 0), 16711680);
    EXPECT_EQ(m().picture.pixel(0, 0), 16711680) << "row pictures lie over the main picture";
    EXPECT_TRUE(w.form().selected(C::optApplication));
    EXPECT_EQ(m().step.ClickKind, "Click");
    EXPECT_EQ(m().fgResult.rowCount(), 3);
    EXPECT_EQ(m().fgResult.cell(2, colText), "hello");
    EXPECT_EQ(m().rows.lRowRect[2], (std::array<std::int32_t, 4>{100, 50, 100, 51}));
    EXPECT_EQ(m().rows.lRowInclude[2], -1);
    EXPECT_EQ(m().fgResult.row(), 2);
    EXPECT_EQ(m().fgResult.col(), 9);
    save();
    std::string overlaid = kExampleFile;
    overlaid.replace(overlaid.find("16777215\r\n0\r\n255"), 13, "16711680\r\n16777215\r\n");
    EXPECT_EQ(saved(), overlaid) << "the picture now holds the row picture where it reaches";
}

TEST_F(ProjectFile, MultiLineAndNonAsciiTextsSurviveASaveAndALoad) {
    w.frm.setCheck(C::chkText, 1);
    w.type(C::txtText, "Grüße\r\nline two\r\n");
    w.frm.cmdAddtoList_Click();
    w.type(C::txtX, "€5");
    save();
    const std::string bytes = saved();
    EXPECT_NE(bytes.find("Gr\xFC\xDF" "e\nline two\n\r\n"), std::string::npos);
    EXPECT_NE(bytes.find("\x80" "5\r\n"), std::string::npos);

    TestWindow other;
    other.dialogs.answers.push(file.string());
    other.frm.cmdLoad_Click();
    EXPECT_EQ(other.form().text(C::txtText), "Grüße\r\nline two\r\n");
    EXPECT_EQ(other.model().fgResult.cell(1, colText), "Grüße\r\nline two\r\n");
    EXPECT_EQ(other.form().text(C::txtX), "€5");
}

TEST_F(ProjectFile, ACharacterTheCodePageLacksIsWrittenAsAQuestionMark) {
    w.type(C::txtX, "a\xE2\x86\x92" "b");  // an arrow
    save();
    EXPECT_NE(saved().find("\r\na?b\r\n"), std::string::npos);
}

TEST_F(ProjectFile, FilesWithLoneLineFeedsLoadToo) {
    std::string unix = kExampleFile;
    for (std::size_t at = unix.find("\r\n"); at != std::string::npos; at = unix.find("\r\n", at)) unix.erase(at, 1);
    load(unix);
    EXPECT_EQ(m().fgResult.cell(2, colText), "hello");
    EXPECT_EQ(m().rows.lRowRect[2][3], 51);
}

struct LoadCase {
    const char* name;
    std::string file;
    std::function<void(ProjectFile&)> check;
};

std::string imageOff(std::initializer_list<const char*> first7 = {"True", "False", "", "", "", "", "0"}) {
    return lines(first7);
}
std::string runSettings() {
    return lines({"False", "True", "True", "0", "", "True", "False", "False", "True", "1", "True", "False", "True",
                  "False", "False", "1", "1", "1", "0", "3", "0", "", ""});
}
std::string record(const char* n, const char* image = "No") {
    return lines({n, "1", "1", "Custom", "0:3:0", "Click", "1", "No", "", image, "False", image});
}

TEST_F(ProjectFile, EndsAfterTheRunSettingsWithTheListEmpty) {
    load(imageOff() + runSettings());
    EXPECT_FALSE(m().vFirstRowUsed);
    EXPECT_EQ(m().fgResult.rowCount(), 2);
    w.frm.cmdAddtoList_Click();
    EXPECT_EQ(m().fgResult.rowCount(), 2);
}

TEST_F(ProjectFile, AnEmptyListFileGivesOneRowOfEmptyCells) {
    load(imageOff() + runSettings() + lines({"", "", "", "", "", "", "", "", "", "", "False", ""}));
    EXPECT_TRUE(m().vFirstRowUsed);
    w.frm.cmdAddtoList_Click();
    EXPECT_EQ(m().fgResult.rowCount(), 3);
}

TEST_F(ProjectFile, AnExtraEmptyLineAddsARowAndEnds) {
    load(imageOff() + runSettings() + record("1") + "\r\n");
    EXPECT_EQ(m().fgResult.rowCount(), 3);
    EXPECT_EQ(m().fgResult.cell(2, 0), "");
}

TEST_F(ProjectFile, AThirtyFirstRecordIsNotLoaded) {
    std::string file = imageOff() + runSettings();
    for (int i = 1; i <= 31; ++i) file += record(std::to_string(i).c_str());
    load(file);
    EXPECT_EQ(m().fgResult.rowCount(), 31);
    EXPECT_EQ(m().fgResult.cell(30, 0), "30");
}

TEST_F(ProjectFile, OptionLinesMustBeExactlyTrue) {
    load(imageOff({"True ", "true", "", "", "", "", "0"}) + runSettings());
    EXPECT_FALSE(w.form().selected(C::optImageInclude));
    EXPECT_FALSE(w.form().selected(C::optImageNotInclude));
}

TEST_F(ProjectFile, IntervalOptionsBothFalseKeepTheFormerChoice) {
    w.frm.selectOption(C::optRandom);
    std::string settings = runSettings();
    settings.replace(0, std::string("False\r\nTrue").size(), "False\r\nFalse");
    load(imageOff() + settings);
    EXPECT_TRUE(w.form().selected(C::optRandom));
}

TEST_F(ProjectFile, CheckLinesClearOnOtherNumbersAndStopOnText) {
    w.frm.setCheck(C::chkRecImage, 1);
    load(imageOff({"True", "False", "", "", "", "", "2"}) + runSettings());
    EXPECT_EQ(w.form().value(C::chkRecImage), 0);
    EXPECT_EQ(w.form().text(C::txtY), "1") << "the load went on";

    w.frm.setCheck(C::chkRecImage, 1);
    load(imageOff({"True", "False", "", "", "", "", ""}) + runSettings());
    EXPECT_EQ(w.form().value(C::chkRecImage), 0);

    w.type(C::txtY, "keep");
    load(imageOff({"True", "False", "", "", "", "", "x"}) + runSettings());
    EXPECT_EQ(w.form().text(C::txtY), "keep") << "the load stopped at the check line";
}

TEST_F(ProjectFile, CornersTakeTheLeadingNumberAndStopOutsideSixteenBits) {
    load(imageOff({"True", "False", "12abc", "40000", "", "", "0"}) + runSettings());
    EXPECT_EQ(w.form().text(C::txtTopX), "12abc");
    EXPECT_EQ(m().picture.iTopX, 12);
    EXPECT_EQ(w.form().text(C::txtTopY), "40000");
    EXPECT_EQ(w.form().text(C::txtBottomX), "") << "the load stopped after the corner 40000";
}

TEST_F(ProjectFile, MainPicturePixelsAreLenientRowPixelsStrict) {
    load(lines({"True", "False", "0", "0", "0", "0", "1", "0", "0", "abc"}) + runSettings() +
         lines({"1", "1", "1", "Custom", "0:3:0", "Click", "1", "No", "", "Yes", "True", "Yes", "0", "0", "abc"}));
    EXPECT_EQ(m().picture.pixel(0, 0), 0);
    EXPECT_TRUE(w.form().enabled(C::picScreen));
    EXPECT_EQ(m().fgResult.cell(1, colImage), "Yes");
    EXPECT_FALSE(m().rows.bRowImage[1]) << "the load stopped at the row pixel";
}

TEST_F(ProjectFile, ARecordWithoutImageReadsFollowingPictureLinesAsTheNextRecord) {
    load(imageOff() + runSettings() + record("1") + lines({"0", "0", "255", "-1", "1", "2", "1", "2"}));
    EXPECT_EQ(m().fgResult.rowCount(), 3);
    EXPECT_EQ(m().fgResult.cell(2, 0), "0");
    EXPECT_EQ(m().fgResult.cell(2, 2), "255");
}

TEST_F(ProjectFile, LoadingTwiceGivesTheSameWindow) {
    load(kExampleFile);
    save();
    const std::string once = saved();
    w.dialogs.answers.push(file.string());
    w.frm.cmdLoad_Click();
    EXPECT_EQ(m().fgResult.rowCount(), 3);
    save();
    EXPECT_EQ(saved(), once);
}

TEST_F(ProjectFile, CancelOrAMissingFileLeavesTheListAndBoxEmptiedAndTheFieldsAsTheyWere) {
    addAt("7");
    m().pictureBox.setPixel(0, 0, 5);
    w.frm.cmdLoad_Click();  // the dialog is cancelled
    EXPECT_FALSE(m().vFirstRowUsed);
    EXPECT_EQ(m().fgResult.cell(1, colX), "");
    EXPECT_EQ(m().pictureBox.pixel(0, 0), PictureBox::kBackground);
    EXPECT_EQ(w.form().text(C::txtX), "7");

    addAt("8");
    w.dialogs.answers.push((dir / "missing.tpl").string());
    w.frm.cmdLoad_Click();
    EXPECT_FALSE(m().vFirstRowUsed);
    EXPECT_EQ(w.form().text(C::txtX), "8");
}

TEST_F(ProjectFile, AFailedSaveLeavesTheFormerFileByteForByte) {
    std::ofstream(file, std::ios::binary) << "former\r\ncontent\r\n";
    const bool saved = writeFileAtomically(file, [](std::ostream& out) {
        out << "half a file";
        out.setstate(std::ios::badbit);
        return false;
    });
    EXPECT_FALSE(saved);
    EXPECT_EQ(this->saved(), "former\r\ncontent\r\n");
    EXPECT_EQ(std::distance(fs::directory_iterator(dir), fs::directory_iterator()), 1) << "no temporary is left";
}

TEST_F(ProjectFile, SavingIntoAMissingFolderChangesNothing) {
    w.dialogs.answers.push((dir / "no-such-folder" / "x.tpl").string());
    w.frm.cmdSave_Click();
    EXPECT_FALSE(fs::exists(dir / "no-such-folder"));
    EXPECT_TRUE(w.dialogs.messages.empty());
}

}  // namespace
}  // namespace quorlin::testing
