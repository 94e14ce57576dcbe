#include <gtest/gtest.h>

#include "run/window_messages.h"
#include "support/test_window.h"

namespace quorlin::testing {
namespace {

using namespace wm;

struct Msg {
    std::uint32_t code;
    std::uint32_t wParam;
    std::uint32_t lParam;
};

std::vector<Msg> sent(const FakeDesktop& d) {
    std::vector<Msg> out;
    for (const auto& m : d.posted) out.push_back({m.code, m.wParam, m.lParam});
    return out;
}

bool operator==(const Msg& a, const Msg& b) { return a.code == b.code && a.wParam == b.wParam && a.lParam == b.lParam; }
void PrintTo(const Msg& m, std::ostream* os) { *os << std::hex << "{0x" << m.code << ", 0x" << m.wParam << ", 0x" << m.lParam << "}"; }

// One manual step of one click: Start, then one interval on the clock.
class ClickStepTest : public ::testing::Test {
protected:
    TestWindow w;

    void SetUp() override {
        w.type(Ctl::txtX, "100");
        w.type(Ctl::txtY, "200");
        w.type(Ctl::txtSeconds, "1");
        w.desktop.clientOrigin = {80, 150};
    }
    void clickOnce() {
        w.frm.cmdStart_Click();
        w.clock.advanceBy(1000);
    }
};

TEST_F(ClickStepTest, ApplicationClickPostsOnePairThenTheLongPause) {
    w.frm.selectOption(Ctl::optApplication);
    clickOnce();
    const std::uint32_t lp = 0x00320014;  // (20, 50) in the client area
    EXPECT_EQ(sent(w.desktop), (std::vector<Msg>{{WM_LBUTTONDOWN, MK_LBUTTON, lp}, {WM_LBUTTONUP, 0, lp}}));
    EXPECT_EQ(w.desktop.lookedUp, (std::vector<ScreenPoint>{{100, 200}}));
    EXPECT_EQ(w.clock.passes, kLongPause);
}

TEST_F(ClickStepTest, WebBrowserClickRepeatsThePairAfterALongPause) {
    clickOnce();
    ASSERT_EQ(w.desktop.posted.size(), 4u);
    EXPECT_EQ(w.desktop.posted[1].pumpPassesBefore, 0);
    EXPECT_EQ(w.desktop.posted[2].pumpPassesBefore, kLongPause);
    EXPECT_EQ(w.desktop.posted[2].code, WM_LBUTTONDOWN);
    EXPECT_EQ(w.desktop.posted[3].code, WM_LBUTTONUP);
    EXPECT_EQ(w.clock.passes, 2 * kLongPause);
}

TEST_F(ClickStepTest, DoubleClickIgnoresTargetModeAndTypingAndNeverPauses) {
    for (Ctl mode : {Ctl::optWeb, Ctl::optApplication}) {
        TestWindow dbl;
        dbl.type(Ctl::txtX, "0");
        dbl.type(Ctl::txtY, "0");
        dbl.type(Ctl::txtSeconds, "1");
        dbl.frm.selectOption(mode);
        dbl.frm.selectOption(Ctl::optDbClick);
        dbl.frm.setCheck(Ctl::chkText, 1);
        dbl.type(Ctl::txtText, "x");
        dbl.frm.cmdStart_Click();
        dbl.clock.advanceBy(1000);
        EXPECT_EQ(sent(dbl.desktop), (std::vector<Msg>{{WM_LBUTTONDOWN, MK_LBUTTON, 0},
                                                       {WM_LBUTTONUP, 0, 0},
                                                       {WM_LBUTTONDBLCLK, MK_LBUTTON, 0},
                                                       {WM_LBUTTONUP, 0, 0}}));
        EXPECT_EQ(dbl.clock.passes, 0);
    }
}

TEST_F(ClickStepTest, RightClickLeftOfTheClientAreaPostsOnlyTheRelease) {
    w.frm.selectOption(Ctl::optRightClick);
    w.desktop.clientOrigin = {105, 190};  // client (-5, 10)
    clickOnce();
    EXPECT_EQ(sent(w.desktop), (std::vector<Msg>{{WM_RBUTTONUP, 0, 0x000AFFFB}}));
    EXPECT_EQ(w.clock.passes, 0);

    w.desktop.posted.clear();
    w.desktop.clientOrigin = {0, 0};
    w.clock.advanceBy(1000);  // "# of times" is 1: the run is over
    EXPECT_TRUE(w.desktop.posted.empty());
    clickOnce();
    EXPECT_EQ(sent(w.desktop), (std::vector<Msg>{{WM_RBUTTONDOWN, MK_RBUTTON, 0x00C80064}, {WM_RBUTTONUP, 0, 0x00C80064}}));
}

TEST_F(ClickStepTest, NegativeClientCoordinatesKeepTheirLowSixteenBits) {
    w.frm.selectOption(Ctl::optApplication);
    w.desktop.clientOrigin = {105, 300};  // client (-5, -100)
    clickOnce();
    EXPECT_EQ(w.desktop.posted[0].lParam, 0xFF9CFFFBu);
}

TEST_F(ClickStepTest, NoWindowUnderThePointStillPostsToWindowZeroWithScreenCoordinates) {
    w.frm.selectOption(Ctl::optApplication);
    w.desktop.target = 0;
    clickOnce();
    ASSERT_EQ(w.desktop.posted.size(), 2u);
    EXPECT_EQ(w.desktop.posted[0].window, 0u);
    EXPECT_EQ(w.desktop.posted[0].lParam, 0x00C80064u);
    EXPECT_EQ(w.clock.passes, kLongPause);
}

TEST_F(ClickStepTest, TypedTextFollowsTheClickWithThreeMessagesAndAPausePerCharacter) {
    w.frm.selectOption(Ctl::optApplication);
    w.frm.setCheck(Ctl::chkText, 1);
    w.type(Ctl::txtText, "ab");
    clickOnce();
    const auto k = kKeyLParam;
    std::vector<Msg> expected{{WM_LBUTTONDOWN, MK_LBUTTON, 0x00320014}, {WM_LBUTTONUP, 0, 0x00320014},
                              {WM_KEYDOWN, 65, k}, {WM_CHAR, 97, k}, {WM_KEYUP, 65, k},
                              {WM_KEYDOWN, 66, k}, {WM_CHAR, 98, k}, {WM_KEYUP, 66, k}};
    EXPECT_EQ(sent(w.desktop), expected);
    for (std::size_t i = 3; i < 8; ++i)
        EXPECT_EQ(w.desktop.posted[i].pumpPassesBefore - w.desktop.posted[i - 1].pumpPassesBefore, kKeyPause);
    EXPECT_EQ(w.clock.passes, 6 * kKeyPause + kLongPause);
}

TEST_F(ClickStepTest, KeyCodesOfLineBreaksAndLatinLettersComeFromTheAnsiCodePage) {
    w.frm.selectOption(Ctl::optApplication);
    w.frm.setCheck(Ctl::chkText, 1);
    w.type(Ctl::txtText, "A\r\n\xC3\xA9 ");  // A, CR, LF, e-acute (0xE9), blank
    clickOnce();
    std::vector<std::uint32_t> chars, keys;
    for (const auto& m : w.desktop.posted) {
        if (m.code == WM_CHAR) chars.push_back(m.wParam);
        if (m.code == WM_KEYDOWN) keys.push_back(m.wParam);
    }
    EXPECT_EQ(chars, (std::vector<std::uint32_t>{65, 13, 10, 0xE9, 32}));
    EXPECT_EQ(keys, (std::vector<std::uint32_t>{33, 0xFFFFFFED, 0xFFFFFFEA, 0xC9, 0}));
}

TEST_F(ClickStepTest, TypingNeedsTheSwitchAndAnUnemptyTextBoxButTypesTheKeptCopy) {
    w.frm.selectOption(Ctl::optApplication);
    w.frm.setCheck(Ctl::chkText, 1);
    w.model().step.sTypeText = "zz";  // as a track row would set it
    clickOnce();
    EXPECT_EQ(w.desktop.posted.size(), 2u) << "an empty text box types nothing";
    EXPECT_EQ(w.clock.passes, kLongPause);

    w.type(Ctl::txtText, "q");
    w.model().step.sTypeText = "zz";
    w.desktop.posted.clear();
    clickOnce();
    EXPECT_EQ(w.desktop.posted.size(), 2u + 6u) << "the kept text is typed, not the box's";
    EXPECT_EQ(w.desktop.posted[3].wParam, static_cast<std::uint32_t>('z'));
}

TEST_F(ClickStepTest, EditsDuringThePausesChangeNeitherTheTargetNorTheTypedText) {
    w.frm.selectOption(Ctl::optApplication);
    w.frm.setCheck(Ctl::chkText, 1);
    w.type(Ctl::txtText, "ab");
    w.frm.cmdStart_Click();
    w.clock.atPumpPass(5, [&] {
        w.type(Ctl::txtX, "0");
        w.type(Ctl::txtText, "xyz");
        w.desktop.target = 0x99;
    });
    w.clock.advanceBy(1000);
    ASSERT_EQ(w.desktop.posted.size(), 8u);
    for (const auto& m : w.desktop.posted) EXPECT_EQ(m.window, 0x42u);
    EXPECT_EQ(w.desktop.posted[7].wParam, 66u);
}

}  // namespace
}  // namespace quorlin::testing
