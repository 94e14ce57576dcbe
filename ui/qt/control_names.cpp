#include "control_names.h"

#include <utility>

namespace quorlin::qt {

namespace {
using C = Ctl;

constexpr std::pair<Ctl, const char*> kRoles[] = {
    {C::Picture1, "Quorlin web site"},
    {C::cmdHelp, "Help"},
    {C::lblXPos, "Mouse X"},
    {C::lblYPos, "Mouse Y"},
    {C::txtX, "X"},
    {C::txtY, "Y"},
    {C::txtCount, "Number of clicks"},
    {C::txtFromSec, "From seconds"},
    {C::txtToSec, "To seconds"},
    {C::txtMinutes, "Minutes"},
    {C::UpDown2, "Minutes up and down"},
    {C::txtSeconds, "Seconds"},
    {C::UpDown3, "Seconds up and down"},
    {C::txtMiliseconds, "Miliseconds"},
    {C::UpDown4, "Miliseconds up and down"},
    {C::txtText, "Text to type"},
    {C::chkRecImage, "Recognize Image"},
    {C::txtTopX, "Top left X"},
    {C::txtTopY, "Top left Y"},
    {C::picScreen, "Screen picture"},
    {C::txtBottomX, "Bottom right X"},
    {C::txtBottomY, "Bottom right Y"},
    {C::fgResult, "Track list"},
    {C::txtTrackNum, "Repeat count"},
    {C::txtComments, "Help on coordinates"},
    {C::txtComm2, "General help"},
};
}  // namespace

QString accessibleNameOf(const ControlLayout& layout) {
    for (const auto& [id, role] : kRoles)
        if (id == layout.id) return role;
    return QString(layout.caption).trimmed();
}

}  // namespace quorlin::qt
