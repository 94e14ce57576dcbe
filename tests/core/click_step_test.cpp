#include <gtest/gtest.h>

#include "support/test_window.h"

namespace quorlin::testing {
namespace {

using C = Ctl;

struct Msg {
    std::uint32_t code;
    std::uint32_t wParam;
    std::uint32_t lParam;
    long passesBefore;  // pump passes made before the message was posted
    friend bool operator==(const Msg&, const Msg&) = default;
};

void PrintTo(const Msg& m, std::ostream* os) {
    *os << std::hex << "{0x" << m.code << ", 0x" << m.wParam << ", 0x" << m.lParam << std::dec << ", " << m.passesBefore
        << "}";
}

std::vector<Msg> sent(const FakeDesktop& d) {
    std::vector<Msg> out;
    for (const auto& m : d.posted) out.push_back({m.code, m.wParam, m.lParam, m.pumpPassesBefore});
    return out;
}

constexpr std::uint32_t kDown = 0x0201, kUp = 0x0202, kDbl = 0x0203, kRDown = 0x0204, kRUp = 0x0205;
constexpr std::uint32_t kKeyDown = 0x0100, kChar = 0x0102, kKeyUp = 0x0101, kKey = 0xC0100001;
constexpr long kLong = 100'000, kKeyPause = 10'000;

struct StepCase {
    const char* name;
    Ctl kind;
    Ctl mode;
    ScreenPoint clientOrigin;  // the point (100, 200) is (100 - x, 200 - y) in the client area
    const char* text;          // typed after the click when not empty
    std::vector<Msg> messages;
    long passes;
};

const StepCase kSteps[] = {
    {"ApplicationClick", C::optClick, C::optApplication, {80, 150}, "",
     {{kDown, 1, 0x00320014, 0}, {kUp, 0, 0x00320014, 0}}, kLong},
    {"WebClickRepeatsAfterALongPause", C::optClick, C::optWeb, {80, 150}, "",
     {{kDown, 1, 0x00320014, 0}, {kUp, 0, 0x00320014, 0}, {kDown, 1, 0x00320014, kLong}, {kUp, 0, 0x00320014, kLong}},
     2 * kLong},
    {"NegativeClientPointKeepsLowSixteenBits", C::optClick, C::optApplication, {105, 300}, "",
     {{kDown, 1, 0xFF9CFFFB, 0}, {kUp, 0, 0xFF9CFFFB, 0}}, kLong},
    {"ClickTypesThreeMessagesAPausePerCharacter", C::optClick, C::optApplication, {100, 200}, "ab",
     {{kDown, 1, 0, 0}, {kUp, 0, 0, 0}, {kKeyDown, 65, kKey, 0}, {kChar, 97, kKey, kKeyPause},
      {kKeyUp, 65, kKey, 2 * kKeyPause}, {kKeyDown, 66, kKey, 3 * kKeyPause}, {kChar, 98, kKey, 4 * kKeyPause},
      {kKeyUp, 66, kKey, 5 * kKeyPause}},
     6 * kKeyPause + kLong},
    {"DoubleClickNeverTypesOrPauses", C::optDbClick, C::optWeb, {100, 200}, "x",
     {{kDown, 1, 0, 0}, {kUp, 0, 0, 0}, {kDbl, 1, 0, 0}, {kUp, 0, 0, 0}}, 0},
    {"DoubleClickInApplicationMode", C::optDbClick, C::optApplication, {100, 200}, "",
     {{kDown, 1, 0, 0}, {kUp, 0, 0, 0}, {kDbl, 1, 0, 0}, {kUp, 0, 0, 0}}, 0},
    {"RightClickAtTheClientOrigin", C::optRightClick, C::optWeb, {100, 200}, "x",
     {{kRDown, 2, 0, 0}, {kRUp, 0, 0, 0}}, 0},
    {"RightClickLeftOfTheClientAreaOnlyReleases", C::optRightClick, C::optWeb, {105, 190}, "",
     {{kRUp, 0, 0x000AFFFB, 0}}, 0},
    {"RightClickAboveTheClientAreaOnlyReleases", C::optRightClick, C::optWeb, {90, 201}, "",
     {{kRUp, 0, 0xFFFF000A, 0}}, 0},
};

// One manual step in "Application" mode: Start, then one interval of one second on the clock.
class ClickStep : public ::testing::TestWithParam<StepCase> {
protected:
    TestWindow w;
    void SetUp() override {
        w.typeAll({{C::txtX, "100"}, {C::txtY, "200"}, {C::txtSeconds, "1"}});
        w.frm.selectOption(C::optApplication);
    }
    void clickOnce() {
        w.frm.cmdStart_Click();
        w.clock.advanceBy(1000);
    }
};

TEST_P(ClickStep, PostsTheMessagesOfItsKindWithThePausesBetween) {
    const StepCase& c = GetParam();
    w.frm.selectOption(c.kind);
    w.frm.selectOption(c.mode);
    w.desktop.clientOrigin = c.clientOrigin;
    w.frm.setCheck(C::chkText, 1);
    w.type(C::txtText, c.text);
    clickOnce();
    EXPECT_EQ(sent(w.desktop), c.messages);
    EXPECT_EQ(w.clock.passes, c.passes);
    EXPECT_EQ(w.desktop.lookedUp, (std::vector<ScreenPoint>{{100, 200}}));
    for (const auto& m : w.desktop.posted) EXPECT_EQ(m.window, 0x42u);
}

INSTANTIATE_TEST_SUITE_P(Kinds, ClickStep, ::testing::ValuesIn(kSteps),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(ClickStep, NoWindowUnderThePointStillPostsToWindowZeroWithScreenCoordinates) {
    w.desktop.target = 0;
    clickOnce();
    EXPECT_EQ(sent(w.desktop), (std::vector<Msg>{{kDown, 1, 0x00C80064, 0}, {kUp, 0, 0x00C80064, 0}}));
}

TEST_F(ClickStep, KeyCodesOfLineBreaksAndLatinLettersComeFromTheAnsiCodePage) {
    w.frm.setCheck(C::chkText, 1);
    w.type(C::txtText, "A\r\n\xC3\xA9 ");  // A, CR, LF, e-acute (0xE9), blank
    clickOnce();
    std::vector<std::uint32_t> chars, keys;
    for (const auto& m : w.desktop.posted) {
        if (m.code == kChar) chars.push_back(m.wParam);
        if (m.code == kKeyDown) keys.push_back(m.wParam);
    }
    EXPECT_EQ(chars, (std::vector<std::uint32_t>{65, 13, 10, 0xE9, 32}));
    EXPECT_EQ(keys, (std::vector<std::uint32_t>{33, 0xFFFFFFED, 0xFFFFFFEA, 0xC9, 0}));
}

TEST_F(ClickStep, TypingNeedsTheSwitchAndAnUnemptyBoxAndTypesTheKeptCopyWhateverIsEdited) {
    w.frm.setCheck(C::chkText, 1);
    w.model().step.sTypeText = "zz";  // as a track row would set it
    clickOnce();
    EXPECT_EQ(w.desktop.posted.size(), 2u) << "an empty text box types nothing";

    w.type(C::txtText, "q");
    w.model().step.sTypeText = "zy";
    w.desktop.posted.clear();
    w.frm.cmdStart_Click();
    w.clock.atPumpPass(5, [&] {
        w.type(C::txtX, "0");
        w.type(C::txtText, "xyz");
        w.desktop.target = 0x99;
    });
    w.clock.advanceBy(1000);
    ASSERT_EQ(w.desktop.posted.size(), 8u);
    EXPECT_EQ(w.desktop.posted[3].wParam, static_cast<std::uint32_t>('z'));
    EXPECT_EQ(w.desktop.posted[6].wParam, static_cast<std::uint32_t>('y'));
    for (const auto& m : w.desktop.posted) EXPECT_EQ(m.window, 0x42u);

    w.frm.setCheck(C::chkText, 0);
    w.desktop.posted.clear();
    clickOnce();
    EXPECT_EQ(w.desktop.posted.size(), 2u) << "without the switch nothing is typed";
}

TEST_F(ClickStep, PointsBeyondThirtyTwoBitsClickAtTheNearestEdge) {
    w.typeAll({{C::txtX, "1e12"}, {C::txtY, "-3e10"}});
    clickOnce();
    EXPECT_EQ(w.desktop.lookedUp, (std::vector<ScreenPoint>{{2147483647, -2147483647 - 1}}));
}

}  // namespace
}  // namespace quorlin::testing
