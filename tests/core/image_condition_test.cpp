#include <gtest/gtest.h>

#include "picture/image_condition.h"
#include "support/test_window.h"

namespace quorlin::testing {
namespace {

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

TEST_F(ImageConditionTest, WithoutAnImageTheClickGoesAheadUnread) {
    step.hasImage = false;
    EXPECT_TRUE(met(true));
    EXPECT_TRUE(met(false));
    EXPECT_TRUE(screen.reads.empty());
}

TEST_F(ImageConditionTest, TheRuleDecidesOnAWholeRectangleMatch) {
    EXPECT_TRUE(met(true));
    EXPECT_FALSE(met(false));
    ASSERT_EQ(screen.reads.size(), 2u);
    EXPECT_EQ(screen.reads[0].left, 10);
    EXPECT_EQ(screen.reads[0].width() * screen.reads[0].height(), 6);
}

TEST_F(ImageConditionTest, OneDifferentPixelAnywhereIsADifference) {
    for (auto [x, y] : {std::pair{10, 20}, {12, 21}, {11, 21}}) {
        screen.pixelAt = [this, x = x, y = y](int px, int py) {
            return px == x && py == y ? 0x777777 : picture.pixel(px - 10, py - 20);
        };
        EXPECT_FALSE(met(true)) << x << "," << y;
        EXPECT_TRUE(met(false)) << x << "," << y;
    }
}

TEST_F(ImageConditionTest, LeftoversAndOffScreenPixelsTakePart) {
    step.rect = {10, 20, 13, 21};  // one column wider than the picture
    picture.pixel(3, 0) = kOffScreen;
    picture.pixel(3, 1) = kOffScreen;
    screen.pixelAt = [this](int x, int y) { return x == 13 ? kOffScreen : picture.pixel(x - 10, y - 20); };
    EXPECT_TRUE(met(true));
    picture.pixel(3, 1) = 0;
    EXPECT_FALSE(met(true));
}

TEST_F(ImageConditionTest, AReversedRectangleComparesNothing) {
    step.rect = {12, 20, 10, 21};
    EXPECT_TRUE(met(true));
    EXPECT_FALSE(met(false));
}

TEST_F(ImageConditionTest, PixelsBeyondThePictureStoreNeverMatch) {
    step.rect = {0, 0, 1001, 0};
    screen.pixelAt = [](int, int) { return 0; };
    picture = ReferencePicture{};
    EXPECT_FALSE(met(true));
}

TEST(ManualRunImageCondition, ClicksOnlyWhileTheScreenShowsThePictureAndFollowsTheRuleLive) {
    TestWindow w;
    Colour shown = 0x123456;
    w.screen.pixelAt = [&](int, int) { return shown; };
    w.type(Ctl::txtX, "1");
    w.type(Ctl::txtY, "1");
    w.frm.selectOption(Ctl::optApplication);
    w.frm.selectOption(Ctl::optLoop);
    w.frm.setCheck(Ctl::chkRecImage, 1);
    w.type(Ctl::txtTopX, "0");
    w.type(Ctl::txtTopY, "0");
    w.type(Ctl::txtBottomX, "1");
    w.type(Ctl::txtBottomY, "1");
    w.frm.cmdGetPic_Click();
    w.frm.cmdStart_Click();
    w.clock.advanceBy(3000);
    EXPECT_EQ(w.clicks(), 1u);
    shown = 0;
    w.clock.advanceBy(3000);
    EXPECT_EQ(w.clicks(), 1u);
    w.frm.selectOption(Ctl::optImageNotInclude);
    w.clock.advanceBy(3000);
    EXPECT_EQ(w.clicks(), 2u);
    w.frm.setCheck(Ctl::chkRecImage, 0);  // counts from the next Start
    w.clock.advanceBy(3000);
    EXPECT_EQ(w.screen.reads.size(), 1u + 4u);
}

}  // namespace
}  // namespace quorlin::testing
