#include <gtest/gtest.h>

#include "support/test_window.h"
#include "window/help_and_links.h"

namespace quorlin::testing {
namespace {

using C = Ctl;

std::vector<Ctl> disabledOf(const EntryForm& form, std::initializer_list<Ctl> controls) {
    std::vector<Ctl> off;
    for (Ctl c : controls)
        if (!form.enabled(c)) off.push_back(c);
    return off;
}

const std::initializer_list<Ctl> kFixed = {C::lblMinutes, C::lblSeconds, C::lblMiliseconds, C::UpDown2, C::UpDown3,
                                           C::UpDown4, C::txtMinutes, C::txtSeconds, C::txtMiliseconds};
const std::initializer_list<Ctl> kRandom = {C::lblFromSec, C::lblToSec, C::txtFromSec, C::txtToSec};
const std::initializer_list<Ctl> kImage = {C::frmImage, C::optImageInclude, C::optImageNotInclude, C::txtTopX,
                                           C::txtTopY, C::txtBottomX, C::txtBottomY, C::lblTopX, C::lblTopY,
                                           C::lblBottomX, C::lblBottomY};

TEST(WindowDefaults, MatchTheFreshWindow) {
    TestWindow w;
    const EntryForm& f = w.form();
    EXPECT_EQ(f.text(C::txtSeconds), "3");
    EXPECT_EQ(f.text(C::txtMinutes), "0");
    EXPECT_EQ(f.text(C::txtMiliseconds), "0");
    EXPECT_EQ(f.text(C::txtCount), "1");
    EXPECT_EQ(f.text(C::txtTrackNum), "1");
    for (Ctl c : {C::txtX, C::txtY, C::txtFromSec, C::txtToSec, C::txtText, C::txtTopX, C::txtBottomY})
        EXPECT_EQ(f.text(c), "");
    for (Ctl c : {C::optClick, C::optCustom, C::optCount, C::optWeb, C::optManual, C::optRepeatTrack,
                  C::optImageInclude, C::optTopMost})
        EXPECT_TRUE(f.selected(c));
    EXPECT_EQ(disabledOf(f, {C::txtFromSec, C::txtToSec, C::txtText, C::txtTopX, C::txtTopY, C::txtBottomX,
                             C::txtBottomY, C::txtTrackNum, C::txtX, C::txtY, C::txtCount, C::txtMinutes,
                             C::txtSeconds, C::txtMiliseconds}),
              (std::vector<Ctl>{C::txtFromSec, C::txtToSec, C::txtText, C::txtTopX, C::txtTopY, C::txtBottomX,
                                C::txtBottomY, C::txtTrackNum}));
    EXPECT_TRUE(f.enabled(C::optImageInclude)) << "only their frame is off at start";
    EXPECT_FALSE(f.enabled(C::frmImage));
    EXPECT_FALSE(f.visible(C::txtComments));
    EXPECT_FALSE(f.visible(C::txtComm2));
    EXPECT_EQ(w.desktop.topMostCalls, (std::vector<std::pair<WindowHandle, bool>>{{0x1000, true}}));
    EXPECT_EQ(w.model().step.ClickKind, "Click");
}

TEST(Interlocks, IntervalOptionsSwitchMirrorGroupsAndKeepTexts) {
    TestWindow w;
    w.type(C::txtSeconds, "7");
    w.frm.selectOption(C::optRandom);
    EXPECT_EQ(disabledOf(w.form(), kFixed), std::vector<Ctl>(kFixed));
    EXPECT_TRUE(disabledOf(w.form(), kRandom).empty());
    w.frm.selectOption(C::optCustom);
    EXPECT_TRUE(disabledOf(w.form(), kFixed).empty());
    EXPECT_EQ(disabledOf(w.form(), kRandom), std::vector<Ctl>(kRandom));
    EXPECT_EQ(w.form().text(C::txtSeconds), "7");
}

TEST(Interlocks, RecognizeImageSwitchesElevenControlsNotThePictureButton) {
    TestWindow w;
    w.frm.setCheck(C::chkRecImage, 1);
    EXPECT_TRUE(disabledOf(w.form(), kImage).empty());
    w.frm.setCheck(C::chkRecImage, 0);
    EXPECT_EQ(disabledOf(w.form(), kImage), std::vector<Ctl>(kImage));
    EXPECT_TRUE(w.form().enabled(C::cmdGetPic));
}

TEST(Interlocks, CountOptionResetsTheCountNonStopKeepsIt) {
    TestWindow w;
    w.type(C::txtCount, "5");
    w.frm.selectOption(C::optLoop);
    EXPECT_FALSE(w.form().enabled(C::txtCount));
    EXPECT_EQ(w.form().text(C::txtCount), "5");
    w.frm.selectOption(C::optCount);
    EXPECT_TRUE(w.form().enabled(C::txtCount));
    EXPECT_EQ(w.form().text(C::txtCount), "1");
}

TEST(Interlocks, TrackSourceOptionsFollowTheRepetitionChoice) {
    TestWindow w;
    w.frm.selectOption(C::optLooptrack);  // the program may select it while the frame is off
    w.frm.selectOption(C::optFromTrack);
    EXPECT_TRUE(w.form().enabled(C::frmTrack));
    EXPECT_TRUE(w.form().enabled(C::optRepeatTrack));
    EXPECT_FALSE(w.form().enabled(C::txtTrackNum));
    w.frm.selectOption(C::optRepeatTrack);
    EXPECT_TRUE(w.form().enabled(C::txtTrackNum));
    w.frm.selectOption(C::optManual);
    EXPECT_EQ(disabledOf(w.form(), {C::frmTrack, C::optRepeatTrack, C::optLooptrack, C::txtTrackNum}).size(), 4u);
}

TEST(Interlocks, StepInputsFollowTheWindow) {
    TestWindow w;
    w.frm.selectOption(C::optDbClick);
    w.frm.optionDoubleClicked(C::optDbClick);
    EXPECT_EQ(w.model().step.ClickKind, "DBClick");
    w.frm.selectOption(C::optRightClick);
    EXPECT_EQ(w.model().step.ClickKind, "RightClick");

    w.frm.setCheck(C::chkText, 1);
    EXPECT_TRUE(w.model().step.bTypeText);
    EXPECT_TRUE(w.form().enabled(C::txtText));
    w.type(C::txtText, "hi\r\nthere");
    EXPECT_EQ(w.model().step.sTypeText, "hi\r\nthere");
    w.type(C::txtText, "");
    EXPECT_EQ(w.model().step.sTypeText, "");
    w.frm.setCheck(C::chkText, 0);
    EXPECT_FALSE(w.model().step.bTypeText);
}

TEST(Interlocks, StayOnTopOptionsCallTheDesktopWithTheOwnWindow) {
    TestWindow w;
    w.frm.selectOption(C::optNotOnTop);
    w.frm.selectOption(C::optTopMost);
    EXPECT_EQ(w.desktop.topMostCalls,
              (std::vector<std::pair<WindowHandle, bool>>{{0x1000, true}, {0x1000, false}, {0x1000, true}}));
}

TEST(SpinButtons, StepWithinTheirRangeFromTheBuddysNumber) {
    TestWindow w;
    w.frm.spinButton(C::UpDown2, +1);
    EXPECT_EQ(w.form().text(C::txtMinutes), "1");
    w.frm.spinButton(C::UpDown2, +1);
    EXPECT_EQ(w.form().text(C::txtMinutes), "1");
    w.type(C::txtSeconds, "75");
    w.frm.spinButton(C::UpDown3, -1);
    EXPECT_EQ(w.form().text(C::txtSeconds), "60");
    w.type(C::txtMiliseconds, "abc");
    w.frm.spinButton(C::UpDown4, +1);
    EXPECT_EQ(w.form().text(C::txtMiliseconds), "1");
}

TEST(Readout, ShowsScreenCoordinatesIncludingNegativeOnes) {
    TestWindow w;
    w.desktop.cursor = {-200, 0};
    w.frm.timer_Timer();
    EXPECT_EQ(w.form().text(C::lblXPos), "-200");
    EXPECT_EQ(w.form().text(C::lblYPos), "0");
}

TEST(HelpAndLinks, HelpTextsToggleTogetherAndLinksGoToTheDesktop) {
    TestWindow w;
    w.frm.cmdHelp_Click();
    EXPECT_TRUE(w.form().visible(C::txtComments));
    EXPECT_TRUE(w.form().visible(C::txtComm2));
    EXPECT_EQ(w.form().text(C::txtComments).substr(0, 50), "To set X ,Y coordinates move the mouse to desired ");
    w.frm.cmdHelp_Click();
    EXPECT_FALSE(w.form().visible(C::txtComments));
    EXPECT_FALSE(w.form().visible(C::txtComm2));

    w.frm.Picture1_Click();
    w.frm.mnuGoToWebsite_Click();
    w.frm.mnuFeedback_Click();
    ASSERT_EQ(w.desktop.links.size(), 3u);
    EXPECT_EQ(w.desktop.links[0], w.desktop.links[1]);
    EXPECT_EQ(w.desktop.links[2].rfind("mailto:", 0), 0u);
    EXPECT_TRUE(w.desktop.links[2].ends_with("?Subject=Feedback"));
}

}  // namespace
}  // namespace quorlin::testing
