#include "form/layout.h"

#include <algorithm>
#include <array>

namespace quorlin {

namespace {

using K = ControlKind;
using C = Ctl;
constexpr Ctl W = Ctl::frmMain;

constexpr std::array<ControlLayout, kControlCount> kLayout = {{
    {C::Picture1, "Picture1", K::PictureBox, W, "", {75, 0, 1620, 1440}, FontRole::Default, ColourRole::WindowBackground},
    {C::frmStayOnTop, "frmStayOnTop", K::Frame, W, "Stay On Top", {4200, 0, 2535, 495}},
    {C::optTopMost, "optTopMost", K::Option, C::frmStayOnTop, "Top Most", {120, 240, 1095, 195}},
    {C::optNotOnTop, "optNotOnTop", K::Option, C::frmStayOnTop, "Not On Top", {1200, 240, 1215, 195}},
    {C::frmPosition, "frmPosition", K::Frame, W, "Mouse Position", {1680, 480, 2415, 1245}},
    {C::cmdHelp, "cmdHelp", K::Button, C::frmPosition, "", {120, 360, 375, 375}},
    {C::lblXPos, "lblXPos", K::Label, C::frmPosition, "", {600, 280, 615, 255}},
    {C::lblX, "lblX", K::Label, C::frmPosition, "X :", {1080, 270, 255, 255}},
    {C::txtX, "txtX", K::TextField, C::frmPosition, "", {1440, 240, 855, 285}},
    {C::lblYPos, "lblYPos", K::Label, C::frmPosition, "", {600, 640, 615, 255}},
    {C::lblY, "lblY", K::Label, C::frmPosition, "Y :", {1080, 630, 255, 255}},
    {C::txtY, "txtY", K::TextField, C::frmPosition, "", {1440, 615, 855, 285}},
    {C::frmLoop, "frmLoop", K::Frame, W, "Number of clicks", {4200, 480, 2535, 1245}},
    {C::optCount, "optCount", K::Option, C::frmLoop, "# of times", {120, 200, 1215, 255}},
    {C::optLoop, "optLoop", K::Option, C::frmLoop, "Non-stop", {1320, 200, 975, 255}},
    {C::txtCount, "txtCount", K::TextField, C::frmLoop, "", {120, 615, 975, 285}},
    {C::frmWeb, "frmWeb", K::Frame, C::frmLoop, "Type ", {1100, 480, 1400, 735}},
    {C::optWeb, "optWeb", K::Option, C::frmWeb, "Web browser", {50, 240, 1300, 195}},
    {C::optApplication, "optApplication", K::Option, C::frmWeb, "Application", {50, 480, 1300, 195}},
    {C::frmOptions, "frmOptions", K::Frame, W, "Click options", {120, 1755, 1455, 1095}},
    {C::optClick, "optClick", K::Option, C::frmOptions, "Click", {120, 230, 855, 255}},
    {C::optDbClick, "optDbClick", K::Option, C::frmOptions, "DbClick", {120, 480, 975, 255}},
    {C::optRightClick, "optRightClick", K::Option, C::frmOptions, "RightClick", {120, 730, 1095, 255}},
    {C::frmInterval, "frmInterval", K::Frame, W, "Clicking interval", {1680, 1755, 5100, 1455}},
    {C::optRandom, "optRandom", K::Option, C::frmInterval, "Random Interval", {120, 360, 1575, 255}},
    {C::lblFromSec, "lblFromSec", K::Label, C::frmInterval, "From Sec. :", {120, 600, 855, 255}},
    {C::txtFromSec, "txtFromSec", K::TextField, C::frmInterval, "", {960, 600, 375, 285}},
    {C::lblToSec, "lblToSec", K::Label, C::frmInterval, "To Sec. :", {1320, 600, 735, 255}},
    {C::txtToSec, "txtToSec", K::TextField, C::frmInterval, "", {2040, 600, 375, 285}},
    {C::optCustom, "optCustom", K::Option, C::frmInterval, "Custom Interval", {120, 960, 1575, 255}},
    {C::lblMinutes, "lblMinutes", K::Label, C::frmInterval, "Minutes :", {2595, 240, 735, 255}},
    {C::txtMinutes, "txtMinutes", K::TextField, C::frmInterval, "", {3600, 240, 720, 285}},
    {C::UpDown2, "UpDown2", K::SpinButton, C::frmInterval, "", {4320, 240, 255, 285}},
    {C::lblSeconds, "lblSeconds", K::Label, C::frmInterval, "Seconds :", {2595, 600, 990, 255}},
    {C::txtSeconds, "txtSeconds", K::TextField, C::frmInterval, "", {3600, 600, 720, 285}},
    {C::UpDown3, "UpDown3", K::SpinButton, C::frmInterval, "", {4320, 600, 255, 285}},
    {C::lblMiliseconds, "lblMiliseconds", K::Label, C::frmInterval, "Miliseconds :", {2595, 960, 975, 255}},
    {C::txtMiliseconds, "txtMiliseconds", K::TextField, C::frmInterval, "", {3600, 960, 720, 285}},
    {C::UpDown4, "UpDown4", K::SpinButton, C::frmInterval, "", {4320, 960, 255, 285}},
    {C::chkText, "chkText", K::CheckBox, W, "and type text :", {120, 3240, 1455, 255}},
    {C::txtText, "txtText", K::MultiLineText, W, "", {120, 3600, 2895, 1695}},
    {C::chkRecImage, "chkRecImage", K::CheckBox, W, "", {2760, 3300, 255, 195}},
    {C::frmImage, "frmImage", K::Frame, W, "Recognize Image", {3120, 3240, 3675, 2325}},
    {C::optImageInclude, "optImageInclude", K::Option, C::frmImage, "Click if screen picture is : ", {120, 250, 1815, 360}},
    {C::optImageNotInclude, "optImageNotInclude", K::Option, C::frmImage, "Click if screen picture is Not : ", {2000, 250, 1575, 375}},
    {C::txtTopX, "txtTopX", K::TextField, C::frmImage, "", {480, 710, 375, 285}},
    {C::lblTopX, "lblTopX", K::Label, C::frmImage, "X", {960, 720, 105, 255}, FontRole::BoldTahoma},
    {C::cmdGetPic, "cmdGetPic", K::Button, C::frmImage, "Get Picture", {1200, 720, 1935, 255}},
    {C::txtTopY, "txtTopY", K::TextField, C::frmImage, "", {60, 960, 375, 285}},
    {C::lblTopY, "lblTopY", K::Label, C::frmImage, "Y", {210, 1320, 105, 255}, FontRole::BoldTahoma},
    {C::picScreen, "picScreen", K::PictureBox, C::frmImage, "", {470, 1000, 2750, 880}, FontRole::Default, ColourRole::WindowBackground},
    {C::lblBottomX, "lblBottomX", K::Label, C::frmImage, "X", {3360, 1440, 105, 255}, FontRole::BoldTahoma},
    {C::txtBottomX, "txtBottomX", K::TextField, C::frmImage, "", {3225, 1680, 375, 285}},
    {C::lblBottomY, "lblBottomY", K::Label, C::frmImage, "Y", {2640, 1980, 105, 255}, FontRole::BoldTahoma},
    {C::txtBottomY, "txtBottomY", K::TextField, C::frmImage, "", {2805, 1920, 375, 285}},
    {C::fgResult, "fgResult", K::Grid, W, "", {120, 5640, 5070, 2415}},
    {C::cmdAddtoList, "cmdAddtoList", K::Button, W, "Add to track list", {5235, 5640, 1500, 570}, FontRole::BoldTahoma},
    {C::cmdUpdate, "cmdUpdate", K::Button, W, "Update track list", {5235, 6285, 1500, 525}, FontRole::BoldTahoma},
    {C::cmdRemove, "cmdRemove", K::Button, W, "Remove from track list", {5235, 6885, 1500, 525}, FontRole::BoldTahoma},
    {C::cmdClearTrackList, "cmdClearTrackList", K::Button, W, "Clear track list", {5235, 7485, 1500, 525}, FontRole::BoldTahoma},
    {C::optFromTrack, "optFromTrack", K::Option, W, "From track list", {3600, 8160, 1695, 255}, FontRole::BoldSansSerif, ColourRole::YellowOnRed},
    {C::optManual, "optManual", K::Option, W, "Manual", {5520, 8160, 975, 255}, FontRole::BoldSansSerif, ColourRole::YellowOnRed},
    {C::frmTrack, "frmTrack", K::Frame, W, "Track list parametrs", {3480, 8400, 3255, 855}},
    {C::optRepeatTrack, "optRepeatTrack", K::Option, C::frmTrack, "Repeat track :", {120, 240, 1575, 195}},
    {C::optLooptrack, "optLooptrack", K::Option, C::frmTrack, "Non-Stop track", {1680, 240, 1455, 195}},
    {C::txtTrackNum, "txtTrackNum", K::TextField, C::frmTrack, "", {120, 480, 1335, 285}},
    {C::cmdSave, "cmdSave", K::Button, W, "Save project", {120, 8280, 1500, 405}, FontRole::BoldTahoma},
    {C::cmdLoad, "cmdLoad", K::Button, W, "Load project", {1920, 8280, 1500, 405}, FontRole::BoldTahoma},
    {C::cmdStart, "cmdStart", K::Button, W, "Start", {120, 8745, 1500, 405}, FontRole::BoldTahoma},
    {C::cmdStop, "cmdStop", K::Button, W, "Stop", {1920, 8745, 1500, 405}, FontRole::BoldTahoma},
    {C::txtComments, "txtComments", K::MultiLineText, W, "", {2520, 600, 4200, 735}, FontRole::Default, ColourRole::YellowBackground},
    {C::txtComm2, "txtComm2", K::MultiLineText, W, "", {120, 4320, 6615, 1245}, FontRole::Default, ColourRole::YellowBackground},
}};

constexpr bool inEnumOrder() {
    std::size_t i = 0;
    return std::ranges::all_of(kLayout, [&i](const ControlLayout& control) { return indexOf(control.id) == i++; });
}
static_assert(inEnumOrder(), "the layout table lists the controls in the order of Ctl");

}  // namespace

std::span<const ControlLayout> windowLayout() { return kLayout; }


}  // namespace quorlin
