#pragma once

#include <cstddef>
#include <cstdint>

namespace quorlin {

// Every control of the main window, named as the window names it.
enum class Ctl : std::uint8_t {
    Picture1, frmStayOnTop, optTopMost, optNotOnTop,
    frmPosition, cmdHelp, lblXPos, lblX, txtX, lblYPos, lblY, txtY,
    frmLoop, optCount, optLoop, txtCount, frmWeb, optWeb, optApplication,
    frmOptions, optClick, optDbClick, optRightClick,
    frmInterval, optRandom, lblFromSec, txtFromSec, lblToSec, txtToSec, optCustom,
    lblMinutes, txtMinutes, UpDown2, lblSeconds, txtSeconds, UpDown3,
    lblMiliseconds, txtMiliseconds, UpDown4,
    chkText, txtText, chkRecImage,
    frmImage, optImageInclude, optImageNotInclude, txtTopX, lblTopX, cmdGetPic,
    txtTopY, lblTopY, picScreen, lblBottomX, txtBottomX, lblBottomY, txtBottomY,
    fgResult, cmdAddtoList, cmdUpdate, cmdRemove, cmdClearTrackList,
    optFromTrack, optManual, frmTrack, optRepeatTrack, optLooptrack, txtTrackNum,
    cmdSave, cmdLoad, cmdStart, cmdStop,
    txtComments, txtComm2,
    frmMain,  // the window itself; also the number of controls
};

inline constexpr std::size_t kControlCount = static_cast<std::size_t>(Ctl::frmMain);

inline constexpr std::size_t indexOf(Ctl c) { return static_cast<std::size_t>(c); }

// The four corners of the picture rectangle, in the order the window and its files use.
inline constexpr Ctl kRectangleFields[] = {Ctl::txtTopX, Ctl::txtTopY, Ctl::txtBottomX, Ctl::txtBottomY};

enum class ControlKind : std::uint8_t {
    Frame, Option, CheckBox, TextField, MultiLineText, Label, Button, PictureBox, Grid, SpinButton,
};

}  // namespace quorlin
