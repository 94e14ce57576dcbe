#include <gtest/gtest.h>

#include "picture/image_condition.h"
#include "support/test_window.h"

namespace quorlin::testing {
namespace {

using C = Ctl;

// The screen as a function of the point, so every stored pixel tells where it came from.
Colour colourAt(int x, int y) { return x < 0 || y < 0 ? kOffScreen : x * 1000 + y; }

class Capture : public ::testing::Test {
protected:
    TestWindow w;
    const ReferencePicture& picture = w.model().picture;
    const PictureBox& box = w.model().pictureBox;

    void SetUp() override { w.screen.pixelAt = colourAt; }
    void capture(const char* topX, const char* topY, const char* bottomX, const char* bottomY) {
        w.typeAll({{C::txtTopX, topX}, {C::txtTopY, topY}, {C::txtBottomX, bottomX}, {C::txtBottomY, bottomY}});
        w.frm.cmdGetPic_Click();
    }
    std::pair<int, int> lastIndices() const { return {picture.iPicMaxX, picture.iPicMaxY}; }
};

TEST_F(Capture, TakesTheRectangleInOneReadDrawsItCutAtTheBoxAndKeepsLeftoversAndReversedEdges) {
    capture(" 100 ", "100", "109.5", "104");  // blanks pass, halves go to even
    EXPECT_EQ(w.screen.reads.size(), 1u);
    EXPECT_EQ((std::array{picture.iTopX, picture.iTopY, picture.iBottomX, picture.iBottomY, picture.iPicMaxX,
                          picture.iPicMaxY}),
              (std::array<std::int16_t, 6>{100, 100, 110, 104, 10, 4}));
    EXPECT_EQ((std::array{picture.pixel(3, 2), box.pixel(10, 4), box.pixel(11, 0)}),
              (std::array{colourAt(103, 102), colourAt(110, 104), PictureBox::kBackground}));

    capture("0", "0", "1000", "1000");
    EXPECT_EQ(picture.pixel(1000, 1000), colourAt(1000, 1000));
    w.model().pictureBox.clear();
    w.frm.Form_Paint();
    EXPECT_EQ(box.pixel(PictureBox::kWidth - 1, PictureBox::kHeight - 1),
              colourAt(PictureBox::kWidth - 1, PictureBox::kHeight - 1));

    capture("0", "0", "9", "9");
    capture("-2", "500", "-1", "501");
    EXPECT_EQ(picture.pixel(0, 0), kOffScreen);
    EXPECT_EQ(picture.pixel(5, 5), colourAt(5, 5)) << "a smaller capture keeps what a larger one left";

    capture("50", "10", "40", "20");
    EXPECT_EQ(lastIndices(), std::pair(-1, -1));
    EXPECT_EQ(box.pixel(0, 0), PictureBox::kBackground);
    capture("10", "20", "12", "10");
    EXPECT_EQ(lastIndices(), std::pair(2, -1));
    EXPECT_EQ(w.screen.reads.size(), 4u) << "reversed edges read nothing";
    capture("5", "5", "5", "5");
    EXPECT_EQ(lastIndices(), std::pair(0, 0)) << "a single pixel leaves extents of zero";
}

// The four corner fields and the message shown.
using Refusal = std::pair<std::array<const char*, 4>, const char*>;

class CaptureRefusal : public Capture, public ::testing::WithParamInterface<Refusal> {};

TEST_P(CaptureRefusal, ReadsNothingAndKeepsTheOldPicture) {
    capture("1", "1", "2", "2");
    w.screen.reads.clear();
    const auto& [c, message] = GetParam();
    capture(c[0], c[1], c[2], c[3]);
    EXPECT_EQ(w.messages(), std::vector<std::string>{message});
    EXPECT_TRUE(w.screen.reads.empty());
    EXPECT_EQ((std::array{picture.iTopX, picture.iBottomY}), (std::array<std::int16_t, 2>{1, 2}));
}

const char* const kIncorrect = "Input field are incorrect. Please enter a valid value.";
const char* const kLimits =
    "The picture rectangle must lie within -32768 to 32767 and be at most 1001 x 1001 pixels.";

INSTANTIATE_TEST_SUITE_P(Fields, CaptureRefusal, ::testing::Values(
    Refusal{{"", "1", "2", "2"}, kIncorrect}, Refusal{{"1", "1", "2", "abc"}, kIncorrect},
    Refusal{{"1", "x", "2", "2"}, kIncorrect}, Refusal{{"1", "1", "y", "2"}, kIncorrect},
    Refusal{{"40000", "1", "40001", "2"}, kLimits}, Refusal{{"0", "0", "1001", "0"}, kLimits},
    Refusal{{"0", "0", "0", "1001"}, kLimits}, Refusal{{"-32769", "0", "0", "0"}, kLimits},
    Refusal{{"0", "0", "0", "32768"}, kLimits}));

// A 3 x 2 picture at screen (10, 20) and a screen that shows it, unless told otherwise.
class ImageConditionTest : public ::testing::Test {
protected:
    FakeScreen screen;
    ReferencePicture picture;
    ImageCondition condition{screen};
    StepCondition step{true, {10, 20, 12, 21}};

    void SetUp() override {
        for (int dx = 0; dx < 3; ++dx)
            for (int dy = 0; dy < 2; ++dy) picture.pixel(dx, dy) = 0x010101 * (dx * 2 + dy + 1);
        screen.pixelAt = [this](int x, int y) { return picture.pixel(x - 10, y - 20); };
    }
    bool met(bool include) { return condition.ImageConditionMet(step, picture, include); }
};

TEST_F(ImageConditionTest, TheRuleDecidesOnAWholeRectangleMatchWithinTheStoreWhenTheStepHasAnImage) {
    EXPECT_TRUE(met(true) && !met(false));
    ASSERT_EQ(screen.reads.size(), 2u);
    const ScreenRect& read = screen.reads[0];
    EXPECT_EQ((std::array{read.left, read.top, read.right, read.bottom}), (std::array{10, 20, 12, 21}));

    for (auto [x, y] : {std::pair{10, 20}, {12, 21}, {11, 21}}) {
        screen.pixelAt = [this, x = x, y = y](int px, int py) {
            return px == x && py == y ? 0x777777 : picture.pixel(px - 10, py - 20);
        };
        EXPECT_TRUE(!met(true) && met(false)) << x << "," << y;
    }

    step.hasImage = false;
    screen.reads.clear();
    EXPECT_TRUE(met(true) && met(false));
    EXPECT_TRUE(screen.reads.empty()) << "without an image nothing is read";

    step = {true, {12, 20, 10, 21}};
    EXPECT_TRUE(met(true) && !met(false)) << "a reversed rectangle compares nothing";
    step = {true, {10, 20, 10, 21}};
    screen.pixelAt = [](int, int) { return 0x777777; };
    EXPECT_FALSE(met(true)) << "a rectangle one pixel wide is compared too";

    picture = ReferencePicture{};
    screen.pixelAt = [](int, int) { return 0; };
    step.rect = {0, 0, 1000, 0};
    EXPECT_TRUE(met(true)) << "the widest picture the store holds can match";
    step.rect = {0, 0, 1001, 0};
    EXPECT_FALSE(met(true)) << "a pixel beyond the store never matches";
}

}  // namespace
}  // namespace quorlin::testing
