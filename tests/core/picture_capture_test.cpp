#include <gtest/gtest.h>

#include "support/test_window.h"
#include "window/messages.h"

namespace quorlin::testing {
namespace {

using C = Ctl;

// The screen as a function of the point, so every stored pixel tells where it came from.
Colour colourAt(int x, int y) { return x * 1000 + y; }

class Capture : public ::testing::Test {
protected:
    TestWindow w;
    void SetUp() override { w.screen.pixelAt = colourAt; }
    void capture(const char* topX, const char* topY, const char* bottomX, const char* bottomY) {
        w.type(C::txtTopX, topX);
        w.type(C::txtTopY, topY);
        w.type(C::txtBottomX, bottomX);
        w.type(C::txtBottomY, bottomY);
        w.frm.cmdGetPic_Click();
    }
    const ReferencePicture& picture() { return w.model().picture; }
};

TEST_F(Capture, TakesTheRectangleCornersInclusiveColumnByColumn) {
    capture("100", "100", "109", "104");
    EXPECT_EQ(w.screen.reads.size(), 1u);
    EXPECT_EQ(picture().iPicMaxX, 9);
    EXPECT_EQ(picture().iPicMaxY, 4);
    EXPECT_EQ(picture().pixel(0, 0), colourAt(100, 100));
    EXPECT_EQ(picture().pixel(9, 4), colourAt(109, 104));
    EXPECT_EQ(picture().pixel(3, 2), colourAt(103, 102));
    EXPECT_EQ(w.model().pictureBox.pixel(9, 4), colourAt(109, 104));
    EXPECT_EQ(w.model().pictureBox.pixel(10, 0), PictureBox::kBackground);
    EXPECT_EQ((std::array{picture().iTopX, picture().iTopY, picture().iBottomX, picture().iBottomY}),
              (std::array<std::int16_t, 4>{100, 100, 109, 104}));
}

TEST_F(Capture, ASinglePixelLeavesExtentsOfZeroThatIsNoPicture) {
    capture("5", "5", "5", "5");
    EXPECT_EQ(picture().iPicMaxX, 0);
    EXPECT_EQ(picture().iPicMaxY, 0);
    EXPECT_EQ(picture().pixel(0, 0), colourAt(5, 5));
}

struct Refusal {
    const char* topX;
    const char* bottomX;
    const char* message;
};

class CaptureRefusal : public Capture, public ::testing::WithParamInterface<Refusal> {};

TEST_P(CaptureRefusal, ReadsNothingAndKeepsTheOldPicture) {
    capture("1", "1", "2", "2");
    w.screen.reads.clear();
    capture(GetParam().topX, "1", GetParam().bottomX, "2");
    EXPECT_EQ(w.dialogs.messages, std::vector<std::string>{GetParam().message});
    EXPECT_TRUE(w.screen.reads.empty());
    EXPECT_EQ(picture().iTopX, 1);
    EXPECT_EQ(picture().iPicMaxX, 1);
}

INSTANTIATE_TEST_SUITE_P(Fields, CaptureRefusal, ::testing::Values(
    Refusal{"", "2", msg::kFieldsIncorrect}, Refusal{"1", "abc", msg::kFieldsIncorrect},
    Refusal{"40000", "40001", msg::kPictureRectOutOfLimits}, Refusal{"0", "1001", msg::kPictureRectOutOfLimits},
    Refusal{"-32769", "0", msg::kPictureRectOutOfLimits}));

TEST_F(Capture, BlanksAroundAndHalvesToEven) {
    capture(" 12 ", "13.5", "12.5", "14");
    EXPECT_TRUE(w.dialogs.messages.empty());
    EXPECT_EQ(picture().iTopX, 12);
    EXPECT_EQ(picture().iBottomX, 12);
    EXPECT_EQ(picture().iTopY, 14);
}

TEST_F(Capture, TheLargestRectangleFits) {
    capture("0", "0", "1000", "1000");
    EXPECT_EQ(picture().iPicMaxX, 1000);
    EXPECT_EQ(picture().pixel(1000, 1000), colourAt(1000, 1000));
}

TEST_F(Capture, ReversedEdgesReadNothingAndClearTheBox) {
    capture("1", "1", "3", "3");
    capture("50", "10", "40", "20");
    EXPECT_EQ(picture().iPicMaxX, -1);
    EXPECT_EQ(picture().iPicMaxY, -1);
    EXPECT_EQ(w.model().pictureBox.pixel(0, 0), PictureBox::kBackground);
    capture("10", "20", "12", "10");
    EXPECT_EQ(picture().iPicMaxX, 2);
    EXPECT_EQ(picture().iPicMaxY, -1);
}

TEST_F(Capture, ASmallerCaptureKeepsTheLeftoversOfALargerOne) {
    capture("0", "0", "9", "9");
    capture("500", "500", "501", "501");
    EXPECT_EQ(picture().pixel(0, 0), colourAt(500, 500));
    EXPECT_EQ(picture().pixel(5, 5), colourAt(5, 5));
}

TEST_F(Capture, OffScreenPixelsAreStoredAsMinusOne) {
    w.screen.pixelAt = [](int x, int y) { return x < 0 || y < 0 ? kOffScreen : colourAt(x, y); };
    capture("-2", "0", "1", "0");
    EXPECT_EQ(picture().pixel(0, 0), kOffScreen);
    EXPECT_EQ(picture().pixel(1, 0), kOffScreen);
    EXPECT_EQ(picture().pixel(2, 0), colourAt(0, 0));
}

TEST_F(Capture, TheRepaintDrawsThePictureCutAtTheBoxEdges) {
    capture("0", "0", "400", "300");
    w.model().pictureBox.clear();
    w.frm.Form_Paint();
    EXPECT_EQ(w.model().pictureBox.pixel(PictureBox::kWidth - 1, PictureBox::kHeight - 1),
              colourAt(PictureBox::kWidth - 1, PictureBox::kHeight - 1));
}

}  // namespace
}  // namespace quorlin::testing
