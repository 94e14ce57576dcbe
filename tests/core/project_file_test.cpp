#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <streambuf>

#include "project/project_writer.h"
#include "support/test_window.h"

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
class ProjectFile : public ::testing::Test {
public:
    TestWindow w;
    WindowModel& m = w.model();
    fs::path dir = fs::temp_directory_path() / ("quorlin-project-" + std::to_string(::getpid()));
    fs::path file = dir / "setup.tpl";

    void SetUp() override {
        fs::create_directories(dir);
        w.typeAll({{C::txtX, "10"}, {C::txtY, "20"}});
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
};

// Loaded and saved back, the example file comes out byte for byte but for the picture, whatever
// its line ends: CR LF, LF alone, a first line of each kind, a byte-order mark, or LF from a text
// on (no CR LF ahead ends the text at its LF) with the last line left without its end.
TEST_F(ProjectFile, TheExampleFileLoadsBackIntoTheSameWindowWhateverItsLineEnds) {
    std::string lfOnly = kExampleFile, overlaid = kExampleFile;
    std::erase(lfOnly, '\r');
    overlaid.replace(overlaid.find("16777215\r\n0\r\n255"), 13, "16711680\r\n16777215\r\n");
    const std::size_t text = lfOnly.find("hello") + 5;
    const std::string lfFromText =
        kExampleFile.substr(0, kExampleFile.find("hello") + 5) + lfOnly.substr(text, lfOnly.size() - text - 1);
    for (const std::string& file : {kExampleFile, lfOnly, lfFromText, "\xEF\xBB\xBF" + kExampleFile,
                                    "True\r\nFalse\n" + kExampleFile.substr(13)}) {
        // Every value differs from the file's, so one the load leaves out shows in the save.
        for (Ctl o : {C::optImageNotInclude, C::optRandom, C::optWeb, C::optFromTrack, C::optLooptrack, C::optLoop,
                      C::optRightClick})
            w.frm.selectOption(o);
        w.frm.setCheck(C::chkText, 1);
        w.typeAll({{C::txtTopX, "7"}, {C::txtTopY, "7"}, {C::txtBottomX, "7"}, {C::txtBottomY, "7"}, {C::txtX, "7"},
                   {C::txtY, "7"}, {C::txtText, "old"}, {C::txtTrackNum, "7"}, {C::txtCount, "7"},
                   {C::txtMinutes, "7"}, {C::txtSeconds, "7"}, {C::txtMiliseconds, "7"}, {C::txtFromSec, "7"},
                   {C::txtToSec, "7"}});
        load(file);
        EXPECT_EQ(m.picture.iBottomY, 21);
        EXPECT_EQ(m.step.ClickKind, "Click");
        EXPECT_EQ(m.fgResult.row(), 2);
        EXPECT_EQ(m.fgResult.col(), 9);
        w.frm.fgResult_RowColChange(1, 0);
        save();
        EXPECT_EQ(m.fgResult.row(), 2) << "the save walks the grid to its last cell";
        EXPECT_EQ(m.fgResult.col(), 9);
        EXPECT_EQ(saved(), overlaid) << "the picture now holds the row picture where it reaches";
    }
    const FileDialogSettings& dialog = w.dialogs.shown.back();
    EXPECT_EQ((std::array{dialog.title, dialog.filterPattern, dialog.defaultExtension}),
              (std::array<std::string, 3>{"Load Attachement", "*.tpl", "tpl"}));
}

// A disk that fills up after `room` bytes.
struct FullDisk : std::streambuf {
    explicit FullDisk(std::size_t room) : bytes(room, '\0') { setp(bytes.data(), bytes.data() + room); }
    std::string taken() const { return {pbase(), pptr()}; }
    std::string bytes;
};

// Pictures of many megabytes are written in parts on several threads and read in one
// pass; every pixel, of any width or sign, must come back where it was. A write that fails
// anywhere, in the lines or amid the pixels being formatted ahead, fails the save, and what
// reached the disk is the project's own text up to there.
TEST_F(ProjectFile, LargePicturesSurviveASaveAndALoadPixelForPixelOrFailWhereTheDiskFills) {
    const Colour edges[] = {0, 9, 10, 99, 9999, 10000, 99999999, 100000000, -1, -2147483647 - 1, 2147483647};
    const auto colour = [&](std::size_t i, int salt) {
        return i % 97 < std::size(edges) ? edges[i % 97] : static_cast<Colour>((i + salt) * 40503u & 0xFFFFFF);
    };
    w.frm.setCheck(C::chkRecImage, 1);
    m.picture.iPicMaxX = m.picture.iPicMaxY = 1000;
    for (std::size_t i = 0; i < m.picture.lPixels.size(); ++i) m.picture.lPixels[i] = colour(i, 0);
    w.putRow(1, {"1", "1", "1", "Custom", "0:3:0", "Click", "1", "No", "", "Yes"});
    RowPicture& rp = m.rows.lRowPixels[1];
    rp.resize(999, 1000);
    for (std::size_t i = 0; i < rp.pixels.size(); ++i) rp.pixels[i] = colour(i, 1);
    save();
    const std::string text = saved();
    for (std::size_t room : {std::size_t{0}, std::size_t{10}, text.size() / 3, text.size() - 1}) {
        FullDisk disk(room);
        std::ostream out(&disk);
        EXPECT_FALSE(ProjectWriter(out).write(m)) << room;
        EXPECT_EQ(disk.taken(), text.substr(0, room)) << room;
    }

    TestWindow other;
    other.dialogs.answers.push(file.string());
    other.frm.cmdLoad_Click();
    const RowPicture& back = other.model().rows.lRowPixels[1];
    EXPECT_TRUE(back.lastX == 999 && back.pixels == rp.pixels);
    const ReferencePicture& picture = other.model().picture;
    for (int x = 0; x <= 1000; ++x)
        for (int y = 0; y <= 1000; ++y)
            ASSERT_EQ(picture.pixel(x, y), x < 1000 ? rp.at(x, y) : m.picture.pixel(x, y)) << x << "," << y;
}

// Texts are kept in Windows-1252 with their line breaks as lone LF, lines of any length
// whole and in order: the two long cells outgrow the writer's buffer of 1 MiB one after the other.
TEST_F(ProjectFile, TextsSurviveASaveAndALoadInTheCodePage) {
    w.frm.setCheck(C::chkText, 1);
    w.type(C::txtText, "Grüße\r\nline two\r\n");
    w.frm.cmdAddtoList_Click();
    w.type(C::txtX, "€5Ÿ\xC2\xA0ÿ");  // a no-break space before the last letter of the code page
    w.type(C::txtY, "a\xE2\x86\x92" "b\xF0\x9F\x98\x80" "c");  // an arrow, a face: not in the code page
    const std::string longX(1 << 20 | 1, 'x'), longText((1 << 20) + 9, 'y');
    w.putRow(2, {"2", longX, "0", "Custom", "0:3:0", "Click", "1", "Yes", longText, "No"});
    save();
    const std::string bytes = saved();
    EXPECT_NE(bytes.find("Gr\xFC\xDF" "e\nline two\n\r\n"), std::string::npos);
    EXPECT_NE(bytes.find("\r\n\x80" "5\x9F\xA0\xFF\r\na?b?c\r\n"), std::string::npos);
    EXPECT_NE(bytes.find(lines({longX.c_str(), "0", "Custom", "0:3:0", "Click", "1", "Yes", longText.c_str(), "No"})),
              std::string::npos);

    TestWindow other;
    other.dialogs.answers.push(file.string());
    other.frm.cmdLoad_Click();
    EXPECT_EQ(other.text(C::txtText), other.model().fgResult.cell(1, colText));
    EXPECT_EQ(other.texts({C::txtText, C::txtX}), (std::vector<std::string>{"Grüße\r\nline two\r\n", "€5Ÿ\xC2\xA0ÿ"}));
    EXPECT_EQ(other.model().fgResult.cell(2, colText), longText);
}

std::string imageOff(std::initializer_list<const char*> first7 = {"True", "False", "", "", "", "", "0"}) {
    return lines(first7);
}
// The run settings with the click-type lines given: Click, DBClick, RightClick.
std::string runSettings(const char* click = "True", const char* dbClick = "False", const char* rightClick = "False") {
    return lines({"False", "True", "True", "0", "", "True", "False", "False", "True", "1", "True", "False", click,
                  dbClick, rightClick, "1", "1", "1", "0", "3", "0", "", ""});
}
std::string record(const char* n, const char* image = "No") {
    return lines({n, "1", "1", "Custom", "0:3:0", "Click", "1", "No", "", image, "False", image});
}

// Pixel lines that are not plain integers, amid millions that are, take their own rule.
TEST_F(ProjectFile, PixelLinesOfOtherFormsAmidPlainOnesTakeTheirRuleAndATextEndsAtItsLoneLf) {
    std::string file = lines({"True", "False", "0", "0", "0", "0", "1", "1000", "1000"});
    for (int i = 0; i < 1001 * 1001; ++i) file += i % 100000 == 99999 ? "&H10 \r\n" : std::to_string(i) + "\r\n";
    // No CR LF follows the text's LF, so its look-ahead runs to the end of the file.
    std::string tail = runSettings().substr(24) + record("1", "Yes") + lines({"0", "2", "4", "", "5.0"});
    std::erase(tail, '\r');
    tail.insert(tail.find("\n\n") + 1, "1\r2");  // a lone CR is no line end
    load(file + "False\r\nTrue\r\nTrue\r\n1\r\na\n" + tail);
    EXPECT_EQ(w.text(C::txtText), "a");
    EXPECT_EQ(m.picture.pixel(99, 900), 16) << "the main picture takes the leading number";
    EXPECT_EQ(m.picture.pixel(199, 800), 16);
    EXPECT_EQ(m.picture.pixel(1000, 1000), 1001 * 1001 - 1);
    EXPECT_EQ(m.rows.lRowPixels[1].pixels, (std::vector<Colour>{4, 0, 5})) << "a row takes a whole number";
    EXPECT_EQ(m.picture.pixel(0, 3), 3) << "the row lies over the picture only where it was read";
}

struct LoadCase {
    const char* name;
    std::string file;
    std::function<void(ProjectFile&)> check;
};

const LoadCase kLoads[] = {
    {"EndsAfterTheRunSettingsWithTheListEmpty", imageOff() + runSettings(), [](ProjectFile& t) {
         t.w.frm.cmdAddtoList_Click();
         EXPECT_EQ(t.m.fgResult.rowCount(), 2) << "the first entry takes the blank row";
     }},
    {"EmptyRecordIsAnEntry", imageOff() + runSettings() + lines({"", "", "", "", "", "", "", "", "", "", "False", ""}),
     [](ProjectFile& t) {
         t.w.frm.cmdAddtoList_Click();
         EXPECT_EQ(t.m.fgResult.rowCount(), 3) << "the empty record took the blank row";
     }},
    {"AnExtraEmptyLineAddsARowAndEnds", imageOff() + runSettings() + record("1") + "\r\n", [](ProjectFile& t) {
         EXPECT_EQ((std::pair{t.m.fgResult.rowCount(), t.m.fgResult.cell(2, 0)}), (std::pair<int, std::string>(3, "")));
     }},
    {"AThirtyFirstRecordIsNotLoaded", [] {
         std::string file = imageOff() + runSettings();
         for (int i = 1; i <= 31; ++i) file += record(std::to_string(i).c_str());
         return file;
     }(), [](ProjectFile& t) {
         EXPECT_EQ((std::pair{t.m.fgResult.rowCount(), t.m.fgResult.cell(30, 0)}),
                   (std::pair<int, std::string>(31, "30")));
     }},
    {"OptionLinesMustBeExactlyTrue", imageOff({"True ", "true", "", "", "", "", "0"}) + runSettings(),
     [](ProjectFile& t) {
         EXPECT_FALSE(t.w.form().selected(C::optImageInclude) || t.w.form().selected(C::optImageNotInclude));
     }},
    {"IntervalOptionsBothFalseKeepTheFormerChoice", imageOff() + "False\r\nFalse\r\n" + runSettings().substr(13),
     [](ProjectFile& t) { EXPECT_TRUE(t.w.form().selected(C::optRandom)); }},
    {"DoubleClickType", imageOff() + runSettings("False", "True", "False"),
     [](ProjectFile& t) { EXPECT_EQ(t.m.step.ClickKind, "DBClick"); }},
    {"RightClickType", imageOff() + runSettings("False", "False", "True"),
     [](ProjectFile& t) { EXPECT_EQ(t.m.step.ClickKind, "RightClick"); }},
    {"EndsBeforeAText", lines({"True", "False"}), [](ProjectFile& t) { EXPECT_EQ(t.m.picture.iTopX, 5); }},
    {"CheckLinesOtherThanOneClear", imageOff({"True", "False", "", "", "", "", "2"}) + runSettings(),
     [](ProjectFile& t) {
         EXPECT_EQ(t.w.form().value(C::chkRecImage), 0);
         EXPECT_EQ(t.w.text(C::txtY), "1") << "the load went on";
     }},
    {"ACheckLineOfTextStops", imageOff({"True", "False", "", "", "", "", "x"}) + runSettings(),
     [](ProjectFile& t) { EXPECT_EQ(t.w.text(C::txtY), "20"); }},
    {"ATypingCheckLineOfTextStops", imageOff() + "False\r\nTrue\r\nTrue\r\nx\r\n" + runSettings().substr(22),
     [](ProjectFile& t) { EXPECT_FALSE(t.m.vFirstRowUsed) << "no record is read after the run settings failed"; }},
    {"CornersTakeTheLeadingNumberAndStopOutsideSixteenBits",
     imageOff({"True", "False", "12abc", "40000", "", "", "0"}) + runSettings(), [](ProjectFile& t) {
         EXPECT_EQ(t.w.texts({C::txtTopX, C::txtTopY}), (std::vector<std::string>{"12abc", "40000"}));
         EXPECT_EQ(t.m.picture.iTopX, 12);
         EXPECT_TRUE(t.w.form().selected(C::optApplication)) << "the load stopped after the corner 40000";
     }},
    {"MainPicturePixelsAreLenientRowPixelsStrict",
     lines({"True", "False", "0", "0", "0", "0", "1", "0", "0", "abc"}) + runSettings() +
         lines({"1", "1", "1", "Custom", "0:3:0", "Click", "1", "No", "", "Yes", "True", "Yes", "0", "0", "abc"}) +
         record("2"),
     [](ProjectFile& t) {
         EXPECT_EQ(t.m.fgResult.rowCount(), 2) << "nothing after the bad pixel is read";
         EXPECT_EQ(t.m.picture.pixel(0, 0), 0);
         EXPECT_TRUE(t.w.form().enabled(C::picScreen));
         EXPECT_EQ(t.m.fgResult.cell(1, colImage), "Yes");
         EXPECT_FALSE(t.m.rows.bRowImage[1]) << "the load stopped at the row pixel";
     }},
    {"APictureCutShortShowsWhatArrivedAndEndsTheLoad",
     lines({"True", "False", "0", "0", "1", "1", "1", "1", "1", "5", "6", "7", "3000000000"}) + runSettings(),
     [](ProjectFile& t) {
         EXPECT_EQ((std::pair{t.m.pictureBox.pixel(1, 0), t.m.pictureBox.pixel(1, 1)}),
                   std::pair(7, PictureBox::kBackground));
         EXPECT_TRUE(t.w.form().selected(C::optApplication)) << "nothing after the picture was read";
     }},
    {"APictureWiderThanTheStoreEndsTheLoad",
     lines({"True", "False", "0", "0", "0", "0", "1", "1001", "0"}) + [] {
         std::string pixels;
         for (int x = 0; x <= 1000; ++x) pixels += "7\r\n";
         return pixels;
     }() + runSettings(),
     [](ProjectFile& t) {
         EXPECT_EQ(t.m.picture.pixel(1000, 0), 7);
         EXPECT_EQ(t.w.text(C::txtX), "10") << "nothing after the picture was read";
         const std::string before = t.saved();
         t.save();
         EXPECT_EQ(t.saved(), before) << "a picture beyond the store is never saved: the former file stays whole";
     }},
    {"ARowPictureWiderThanTheStoreKeepsWhatFitsAndEndsTheLoad",
     imageOff() + runSettings() + record("1", "Yes") + lines({"1001", "0"}) + [] {
         std::string pixels;
         for (int x = 0; x <= 1001; ++x) pixels += "7\r\n";
         return pixels;
     }() + lines({"-1", "1", "2", "3", "4"}) + record("2"),
     [](ProjectFile& t) {
         EXPECT_EQ((std::tuple{t.m.rows.bRowImage[1], t.m.fgResult.rowCount(), t.m.picture.pixel(1000, 0)}),
                   std::tuple(false, 2, 7));
     }},
    {"IncludeLinesEmptyOrOtherThanMinusOneReadAsZero",
     imageOff() + runSettings() + record("1", "Yes") + lines({"0", "0", "7", "", "1", "2", "3", "4"}) +
         record("2", "Yes") + lines({"0", "0", "7", "5", "1", "2", "3", "4"}),
     [](ProjectFile& t) {
         const RowStores& r = t.m.rows;
         const std::array<std::int32_t, 4> rect{1, 2, 3, 4};  // read after the include line
         EXPECT_EQ((std::tuple{r.lRowInclude[1], r.lRowInclude[2], r.lRowRect[1], r.lRowRect[2]}),
                   std::tuple(0, 0, rect, rect));
         EXPECT_EQ(t.m.picture.pixel(0, 0), 7) << "a one-pixel row picture lies over the picture too";
     }},
    {"EndsBeforeTheImageRecordsPictureYetClicksRunsAndSaves", imageOff() + runSettings() + record("1", "Yes"),
     [](ProjectFile& t) {
         EXPECT_EQ(t.m.fgResult.cell(1, colImage), "Yes");
         t.w.frm.fgResult_Click(1, 0);
         t.w.frm.cmdStart_Click();
         t.w.clock.advanceBy(3000);
         t.save();
         EXPECT_TRUE(t.saved().ends_with(lines({"Yes", "False", "Yes", "0", "0", "0", "0", "0", "0", "0", "0"})));
     }},
    {"NegativePictureSizesHoldNoPixelsAndSaveAsTheyCame",
     lines({"True", "False", "0", "0", "0", "0", "1", "5", "-1"}) + runSettings() + record("1", "Yes") +
         lines({"-1", "5", "-1", "1", "2", "3", "4"}),
     [](ProjectFile& t) {
         EXPECT_TRUE(t.m.rows.lRowPixels[1].pixels.empty());
         t.save();
         EXPECT_TRUE(t.saved().starts_with(lines({"True", "False", "0", "0", "0", "0", "1", "5", "-1", "False"})));
         EXPECT_TRUE(t.saved().ends_with(lines({"Yes", "True", "Yes", "-1", "5", "-1", "1", "2", "3", "4"})));
     }},
    {"ARecordCutShortInItsCornersIsNoEntry",
     imageOff() + runSettings() + record("1", "Yes") + lines({"0", "0", "7", "-1", "1", "2"}),
     [](ProjectFile& t) { EXPECT_FALSE(t.m.vFirstRowUsed || t.m.rows.bRowImage[1]); }},
    {"AHugeConditionRectangleNeverSizesABuffer",
     imageOff() + runSettings() + record("1", "Yes") + lines({"0", "0", "7", "-1", "0", "0", "100000", "100000"}),
     [](ProjectFile& t) {
         t.w.frm.selectOption(C::optFromTrack);
         t.w.frm.cmdStart_Click();
         EXPECT_EQ(t.w.clicks(), 0u) << "a rectangle beyond the picture store never shows the picture";
         EXPECT_TRUE(t.w.screen.reads.empty());
     }},
    {"ALineBeyondSixteenMebibytesEndsTheLoad",
     imageOff({"True", "False", "1", "2", "3", "4", "0"}) + "False\r\nTrue\r\nTrue\r\n0\r\n" +
         std::string(16 << 20 | 1, '7') + "\r\n" + runSettings().substr(24),
     [](ProjectFile& t) {
         EXPECT_EQ(t.w.texts({C::txtBottomY, C::txtText, C::txtTrackNum}), (std::vector<std::string>{"4", "kept", "1"}))
             << "nothing from the long line on was read";
     }},
    {"ALoneLfStaysInATextWhoseCrLfEndsWhereTheLongestLineDoes",
     imageOff() + "False\r\nTrue\r\nTrue\r\n1\r\na\n" + std::string((16 << 20) - 3, 'b') + "\r\n" +
         runSettings().substr(24),
     [](ProjectFile& t) { EXPECT_EQ(t.w.text(C::txtText).size(), std::size_t{16} << 20); }},
    {"ACrLfOneBeyondTheLongestLineLeavesTheTextAtItsLoneLf",
     imageOff() + "False\r\nTrue\r\nTrue\r\n1\r\na\n" + std::string((16 << 20) - 2, 'b') + "\r\n" +
         runSettings().substr(24),
     [](ProjectFile& t) { EXPECT_EQ(t.w.text(C::txtText), "a"); }},
    {"TheLastLineNeedsNoEndEvenAfterMebibytesOfLoneLfLines",
     imageOff() + runSettings() +
         lines({"1", "1", "1", "Custom", "0:3:0", "Click", "1", "Yes", std::string(9 << 20, 'x').c_str(), "No", "True"},
               "\n") +
         "No",
     [](ProjectFile& t) {
         EXPECT_EQ((std::pair{t.m.fgResult.cell(1, colText).size(), t.m.vFirstRowUsed}),
                   std::pair(std::size_t{9} << 20, true));
     }},
    {"ARecordWithoutImageReadsFollowingPictureLinesAsTheNextRecord",
     imageOff() + runSettings() + record("1") + lines({"0", "0", "255", "-1", "1", "2", "1", "2"}), [](ProjectFile& t) {
         EXPECT_EQ((std::pair{t.m.fgResult.rowCount(), t.m.fgResult.cell(2, 2)}),
                   (std::pair<int, std::string>(3, "255")));
     }},
};

// The window holds values that no file above does, so a line the load skips or stops before shows.
class ProjectLoad : public ProjectFile, public ::testing::WithParamInterface<LoadCase> {
    void SetUp() override {
        ProjectFile::SetUp();
        w.frm.selectOption(C::optRandom);
        w.frm.selectOption(C::optApplication);
        w.frm.setCheck(C::chkRecImage, 1);
        w.type(C::txtText, "kept");
        m.picture.iTopX = 5;
    }
};

TEST_P(ProjectLoad, ReadsPositionByPositionAndStopsAtTheFirstUnreadableLine) {
    load(GetParam().file);
    GetParam().check(*this);
}

INSTANTIATE_TEST_SUITE_P(Files, ProjectLoad, ::testing::ValuesIn(kLoads),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(ProjectFile, CancelOrAMissingFileEmptiesTheListTheBoxAndTheEntriesStores) {
    w.addAt("7", 100);
    w.frm.Form_Paint();  // the box shows the entry's picture
    w.frm.cmdLoad_Click();  // the dialog is cancelled
    EXPECT_FALSE(m.vFirstRowUsed);
    EXPECT_EQ(m.fgResult.cell(1, colX), "");
    EXPECT_EQ(m.pictureBox.pixel(0, 0), PictureBox::kBackground);
    EXPECT_EQ(w.text(C::txtX), "7");
    save();
    EXPECT_TRUE(saved().ends_with(lines({"", "", "", "", "", "", "", "", "", "", "False", ""})))
        << "the blank record keeps nothing of the former entry";

    w.addAt("8");
    w.dialogs.answers.push((dir / "missing.tpl").string());
    w.frm.cmdLoad_Click();
    EXPECT_FALSE(m.vFirstRowUsed);
    EXPECT_EQ(w.text(C::txtX), "8");
}

}  // namespace
}  // namespace quorlin::testing
