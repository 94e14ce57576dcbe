#include <gtest/gtest.h>

#include <tuple>

#include "form/entry_validation.h"
#include "form/layout.h"
#include "run/seeded_random.h"
#include "support/test_window.h"

namespace quorlin::testing {
namespace {

using C = Ctl;

TEST(WindowDefaults, FieldsOptionsAndHelpOfAFreshWindow) {
    TestWindow w;
    EXPECT_EQ(w.texts({C::txtSeconds, C::txtMinutes, C::txtMiliseconds, C::txtCount, C::txtTrackNum, C::txtX,
                       C::txtToSec}),
              (std::vector<std::string>{"3", "0", "0", "1", "1", "", ""}));
    for (Ctl c : {C::optClick, C::optCustom, C::optCount, C::optWeb, C::optManual, C::optRepeatTrack,
                  C::optImageInclude, C::optTopMost})
        EXPECT_TRUE(w.form().selected(c));
    for (Ctl c : {C::txtFromSec, C::txtToSec, C::txtText, C::txtTopX, C::txtBottomY, C::txtTrackNum, C::frmImage})
        EXPECT_FALSE(w.form().enabled(c)) << indexOf(c);
    for (Ctl c : {C::txtX, C::txtY, C::txtCount, C::txtSeconds, C::optImageInclude}) EXPECT_TRUE(w.form().enabled(c));
    EXPECT_EQ(w.desktop.topMostCalls, (std::vector<std::pair<WindowHandle, bool>>{{0x1000, true}}));
    EXPECT_FALSE(w.model().step.bTypeText) << "a fresh window types nothing, whatever a load puts in the text box";
    EXPECT_EQ(w.gridRow(0), (Cells{"#", "X", "Y", "Intr Type", "Interval", "Type", "Rep", "Fill", "Text", "Image"}));
    EXPECT_EQ(w.text(C::txtComments),
              "To set X ,Y coordinates move the mouse to desired \r\n"
              "position. Coordinates will appear on the left side. Copy \r\n"
              "these coordinates to text boxes.\r\n");
    EXPECT_EQ(w.text(C::txtComm2),
              "When switching between intervals wait until current interval finishes it's task. \r\n"
              "When clicking on a web link set minimum number of clicks to 2 or Non-stop.\r\n"
              "  \r\n"
              "If the program generates two clicks instead of one then select Application option.\r\n"
              "         \r\n"
              "Maximum row count is 30.\r\n");
}

// The controls clicked in turn (an option is selected, a check box ticked or cleared) and
// those that must then be enabled and disabled.
struct Interlock {
    const char* name;
    std::vector<Ctl> clicks;
    std::vector<Ctl> on;
    std::vector<Ctl> off;
};

// The controls that an option or a check box switches together.
const std::vector<Ctl> kFixedInterval = {C::lblMinutes, C::lblSeconds, C::lblMiliseconds, C::UpDown2, C::UpDown3,
                                         C::UpDown4, C::txtMinutes, C::txtSeconds, C::txtMiliseconds};
const std::vector<Ctl> kRandomInterval = {C::lblFromSec, C::lblToSec, C::txtFromSec, C::txtToSec};
const std::vector<Ctl> kImage = {C::frmImage, C::optImageInclude, C::optImageNotInclude, C::txtTopX, C::txtTopY,
                                 C::txtBottomX, C::txtBottomY, C::lblTopX, C::lblTopY, C::lblBottomX, C::lblBottomY};

const Interlock kInterlocks[] = {
    {"Random", {C::optRandom}, kRandomInterval, kFixedInterval},
    {"CustomAgain", {C::optRandom, C::optCustom}, kFixedInterval, kRandomInterval},
    {"RecognizeImage", {C::chkRecImage}, kImage, {}},
    {"RecognizeImageOff", {C::chkRecImage, C::chkRecImage}, {C::cmdGetPic}, kImage},
    {"NonStop", {C::optLoop}, {}, {C::txtCount}},
    {"CountAgain", {C::optLoop, C::optCount}, {C::txtCount}, {}},
    // The program may select "Non-Stop track" while its frame is off.
    {"FromTrackWithNonStopTrack", {C::optLooptrack, C::optFromTrack}, {C::frmTrack, C::optRepeatTrack, C::optLooptrack},
     {C::txtTrackNum}},
    {"RepeatTrack", {C::optFromTrack, C::optRepeatTrack}, {C::txtTrackNum}, {}},
    {"ManualAgain", {C::optFromTrack, C::optManual}, {},
     {C::frmTrack, C::optRepeatTrack, C::optLooptrack, C::txtTrackNum}},
    {"TypeText", {C::chkText}, {C::txtText}, {}},
};

class Interlocks : public ::testing::TestWithParam<Interlock> {};

TEST_P(Interlocks, SwitchTheirControls) {
    TestWindow w;
    for (Ctl c : GetParam().clicks)
        c == C::chkRecImage || c == C::chkText ? w.frm.setCheck(c, 1 - w.form().value(c)) : w.frm.selectOption(c);
    for (Ctl c : GetParam().on) EXPECT_TRUE(w.form().enabled(c)) << indexOf(c);
    for (Ctl c : GetParam().off) EXPECT_FALSE(w.form().enabled(c)) << indexOf(c);
}

INSTANTIATE_TEST_SUITE_P(Changes, Interlocks, ::testing::ValuesIn(kInterlocks),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(Interlocks, ResetOnlyTheCountAndFollowDoubleClicksAndTheTopMostOption) {
    TestWindow w;
    w.type(C::txtCount, "5");
    w.frm.selectOption(C::optLoop);
    EXPECT_EQ(w.text(C::txtCount), "5");
    w.frm.selectOption(C::optCount);
    EXPECT_EQ(w.text(C::txtCount), "1");

    w.frm.selectOption(C::optRightClick);
    w.frm.optionDoubleClicked(C::optClick);
    EXPECT_EQ(w.model().step.ClickKind, "Click") << "a double click on an option does what its click does";

    w.frm.selectOption(C::optNotOnTop);
    w.frm.selectOption(C::optTopMost);
    EXPECT_EQ(w.desktop.topMostCalls,
              (std::vector<std::pair<WindowHandle, bool>>{{0x1000, true}, {0x1000, false}, {0x1000, true}}));
}

TEST(SpinButtons, StepFromTheBuddysNumberWithinTheirRange) {
    TestWindow w;
    // the spin button, its buddy field, the text before, the arrow, the text after
    using Press = std::tuple<Ctl, Ctl, const char*, int, const char*>;
    for (auto [spin, buddy, before, direction, after] :
         {Press{C::UpDown2, C::txtMinutes, "0", +1, "1"}, {C::UpDown2, C::txtMinutes, "1", +1, "1"},
          {C::UpDown3, C::txtSeconds, "75", -1, "60"}, {C::UpDown3, C::txtSeconds, "0", -1, "0"},
          {C::UpDown3, C::txtSeconds, "60", +1, "60"}, {C::UpDown4, C::txtMiliseconds, "600", +1, "600"},
          {C::UpDown4, C::txtMiliseconds, "0", -1, "0"}, {C::UpDown4, C::txtMiliseconds, "abc", +1, "1"},
          {C::UpDown4, C::txtMiliseconds, "2.5", +1, "3"}}) {
        w.type(buddy, before);
        w.frm.spinButton(spin, direction);
        EXPECT_EQ(w.text(buddy), after) << before;
    }
}

TEST(HelpReadoutAndLinks, ShowTheHelpFollowTheCursorAndOpenTheLinks) {
    TestWindow w;
    const auto shown = [&] {
        const EntryForm& f = w.form();
        return std::array{f.visible(C::cmdStart), f.visible(C::txtComments), f.visible(C::txtComm2)};
    };
    EXPECT_EQ(shown(), (std::array{true, false, false}));
    w.frm.cmdHelp_Click();
    EXPECT_EQ(shown(), (std::array{true, true, true}));
    w.desktop.cursor = {-200, 0};
    w.clock.setInterval(TimerId::timer, 1);
    w.clock.advanceBy(1);
    EXPECT_EQ(w.texts({C::lblXPos, C::lblYPos}), (std::vector<std::string>{"-200", "0"}));

    w.frm.Picture1_Click();
    w.frm.mnuGoToWebsite_Click();
    w.frm.mnuFeedback_Click();
    EXPECT_EQ(w.desktop.links, (std::vector<std::string>{"https://quorlin.example.org/", "https://quorlin.example.org/",
                                                         "mailto:feedback@quorlin.example.org?Subject=Feedback"}));
}

// The layout is data that the front ends draw; any change to a name, caption, position,
// font or colour of a control must be deliberate, and then this digest changes with it.
TEST(WindowLayout, StaysAsDescribedControlForControl) {
    std::uint64_t digest = 1469598103934665603ull;
    auto mix = [&](std::uint64_t v) { digest = (digest ^ v) * 1099511628211ull; };
    for (const ControlLayout& c : windowLayout()) {
        for (std::string_view text : {std::string_view(c.name), std::string_view(c.caption)})
            for (char ch : text) mix(static_cast<unsigned char>(ch));
        for (int v : {static_cast<int>(c.id), static_cast<int>(c.kind), static_cast<int>(c.parent), c.rect.left,
                      c.rect.top, c.rect.width, c.rect.height, static_cast<int>(c.font), static_cast<int>(c.colours)})
            mix(static_cast<std::uint64_t>(v));
    }
    EXPECT_EQ(digest, 4519930299312001554ull);
    EXPECT_EQ((std::tuple{kClientWidthTwips, kClientHeightTwips, kTwipsPerPixel}), (std::tuple{6825, 9345, 15}));
}

// Every start of the program draws the same sequence: the Mersenne twister from seed 5489,
// 53 bits a draw, whose first numbers are well known.
TEST(SeededRandom, StartsWithTheWellKnownSequence) {
    SeededRandom random;
    for (double expected : {0.81472368639317894, 0.90579193707561922, 0.12698681629350606})
        EXPECT_DOUBLE_EQ(random.next(), expected);
}

struct ValidationCase {
    const char* name;
    std::vector<Ctl> options;
    std::vector<std::pair<Ctl, const char*>> fields;
    const char* message;  // nullptr: the fields pass
};

class ValidateInputTable : public ::testing::TestWithParam<ValidationCase> {};

// The defaults plus a valid point; each case changes only what it is about.
TEST_P(ValidateInputTable, ShowsOnlyTheFirstProblemAndChangesNothing) {
    EntryForm form;
    form.setText(C::txtX, "1");
    form.setText(C::txtY, "1");
    for (Ctl option : GetParam().options) form.selectOption(option);
    for (auto [field, text] : GetParam().fields) form.setText(field, text);
    FakeDialogs dialogs;
    const bool ok = ValidateInput(form, NumberLocale{","}, dialogs);
    const char* message = GetParam().message;
    EXPECT_EQ(ok, message == nullptr);
    EXPECT_EQ(dialogs.messages, message ? std::vector<std::string>{message} : std::vector<std::string>{});
    for (auto [field, text] : GetParam().fields) EXPECT_EQ(form.text(field), text);
}

const char* const kError = "Error in input";
const char* const kMaxMinute = "Maximum interval is 1 minute";

const ValidationCase kValidations[] = {
    {"LimitsThemselvesPass", {}, {{C::txtMinutes, "1"}, {C::txtSeconds, "60"}, {C::txtMiliseconds, "600"}}, nullptr},
    {"MinutesJustAbove", {}, {{C::txtMinutes, "1.01"}}, kMaxMinute},
    {"SecondsAbove", {}, {{C::txtSeconds, "61"}}, "Maximum interval is 60 seconds"},
    {"MilisecondsAbove", {}, {{C::txtMiliseconds, "601"}}, "Maximum interval is 600 miliseconds"},
    {"NoLowerLimits", {}, {{C::txtMinutes, "-100"}, {C::txtSeconds, "-1e9"}}, nullptr},
    {"MinutesEmpty", {}, {{C::txtMinutes, ""}}, kError},
    {"MinutesBeforeSecondsAndPoint", {}, {{C::txtMinutes, "2"}, {C::txtSeconds, "x"}, {C::txtX, ""}}, kMaxMinute},
    {"CountFirst", {}, {{C::txtCount, "abc"}, {C::txtMinutes, "9"}}, kError},
    {"CountIgnoredWhenNonStop", {C::optLoop}, {{C::txtCount, "abc"}}, nullptr},
    {"FromBeforeTo", {C::optRandom}, {{C::txtFromSec, "abc"}, {C::txtToSec, "xyz"}}, "From Sec. must be decimal value"},
    {"ToAfterFrom", {C::optRandom}, {{C::txtFromSec, "2"}, {C::txtToSec, "xyz"}}, "To Sec. must be decimal value"},
    {"RandomSkipsFixed", {C::optRandom}, {{C::txtFromSec, "2"}, {C::txtToSec, "5"}, {C::txtMinutes, "9"}}, nullptr},
    {"CustomIgnoresRandomFields", {}, {{C::txtFromSec, "abc"}}, nullptr},
    {"PointNegativeFractionalCommaOrBlanks", {}, {{C::txtX, "  -5 "}, {C::txtY, "12,5"}}, nullptr},
    {"YAfterX", {}, {{C::txtY, "1y"}}, kError},
    {"XEmpty", {C::optRandom}, {{C::txtFromSec, "1"}, {C::txtToSec, "1"}, {C::txtX, ""}}, kError},
};

INSTANTIATE_TEST_SUITE_P(Cases, ValidateInputTable, ::testing::ValuesIn(kValidations),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace quorlin::testing
