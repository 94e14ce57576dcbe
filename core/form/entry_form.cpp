#include "form/entry_form.h"

#include <algorithm>
#include <span>
#include <utility>

#include "text/value_of_text.h"

namespace quorlin {

namespace {

using C = Ctl;

constexpr auto kClickType = std::to_array({C::optClick, C::optDbClick, C::optRightClick});
constexpr auto kIntervalKind = std::to_array({C::optCustom, C::optRandom});
constexpr auto kNumberOfClicks = std::to_array({C::optCount, C::optLoop});
constexpr auto kTargetType = std::to_array({C::optApplication, C::optWeb});
constexpr auto kStepSource = std::to_array({C::optManual, C::optFromTrack});
constexpr auto kTrackRepetition = std::to_array({C::optRepeatTrack, C::optLooptrack});
constexpr auto kImageRule = std::to_array({C::optImageInclude, C::optImageNotInclude});
constexpr auto kStayOnTop = std::to_array({C::optTopMost, C::optNotOnTop});

constexpr auto kGroups = std::to_array<std::span<const C>>({
    kClickType, kIntervalKind, kNumberOfClicks, kTargetType,
    kStepSource, kTrackRepetition, kImageRule, kStayOnTop});

constexpr auto kSelectedAtStart = std::to_array({
    C::optClick, C::optCustom, C::optCount, C::optWeb,
    C::optManual, C::optRepeatTrack, C::optImageInclude, C::optTopMost});

constexpr std::array<std::pair<C, const char*>, 5> kDefaultTexts = {{
    {C::txtMinutes, "0"}, {C::txtSeconds, "3"}, {C::txtMiliseconds, "0"},
    {C::txtCount, "1"}, {C::txtTrackNum, "1"}}};

constexpr auto kDisabledAtStart = std::to_array({
    C::txtFromSec, C::txtToSec, C::lblFromSec, C::lblToSec, C::txtText,
    C::frmImage, C::txtTopX, C::txtTopY, C::txtBottomX, C::txtBottomY,
    C::lblTopX, C::lblTopY, C::lblBottomX, C::lblBottomY,
    C::frmTrack, C::picScreen});

constexpr auto kDisabledTrackControls = std::to_array({C::optRepeatTrack, C::optLooptrack, C::txtTrackNum});

constexpr const char* kCoordinatesHelp =
    "To set X ,Y coordinates move the mouse to desired \r\n"
    "position. Coordinates will appear on the left side. Copy \r\n"
    "these coordinates to text boxes.\r\n";

constexpr const char* kGeneralHelp =
    "When switching between intervals wait until current interval finishes it's task. \r\n"
    "When clicking on a web link set minimum number of clicks to 2 or Non-stop.\r\n"
    "  \r\n"
    "If the program generates two clicks instead of one then select Application option.\r\n"
    "         \r\n"
    "Maximum row count is 30.\r\n";

// The option group an option belongs to.
std::span<const Ctl> optionGroupOf(Ctl option) {
    for (auto group : kGroups)
        if (std::find(group.begin(), group.end(), option) != group.end()) return group;
    return {};
}

}  // namespace

EntryForm::EntryForm() {
    for (Ctl c : kSelectedAtStart) at(c).selected = true;
    for (auto [c, text] : kDefaultTexts) at(c).text = text;
    for (Ctl c : kDisabledAtStart) at(c).enabled = false;
    for (Ctl c : kDisabledTrackControls) at(c).enabled = false;
    at(Ctl::txtComments).text = kCoordinatesHelp;
    at(Ctl::txtComm2).text = kGeneralHelp;
    at(Ctl::txtComments).visible = false;
    at(Ctl::txtComm2).visible = false;
}

double EntryForm::valueOf(Ctl field) const { return leadingNumber(text(field)); }

void EntryForm::selectOption(Ctl option) {
    if (at(option).selected) return;
    for (Ctl other : optionGroupOf(option)) {
        if (other != option && at(other).selected) {
            at(other).selected = false;
            changed(other);
        }
    }
    at(option).selected = true;
    changed(option);
    if (reactions_) reactions_->optionSelected(option);
}

void EntryForm::deselectOption(Ctl option) {
    if (!at(option).selected) return;
    at(option).selected = false;
    changed(option);
}

void EntryForm::setCheck(Ctl checkBox, int value) {
    if (at(checkBox).value == value) return;
    at(checkBox).value = value;
    changed(checkBox);
    if (reactions_) reactions_->checkClicked(checkBox);
}

void EntryForm::setText(Ctl field, std::string text) {
    if (at(field).text == text) return;
    at(field).text = std::move(text);
    changed(field);
    if (reactions_) reactions_->textChanged(field);
}

void EntryForm::setEnabled(Ctl c, bool enabled) {
    if (at(c).enabled == enabled) return;
    at(c).enabled = enabled;
    changed(c);
}

void EntryForm::setVisible(Ctl c, bool visible) {
    if (at(c).visible == visible) return;
    at(c).visible = visible;
    changed(c);
}

void EntryForm::setCaption(Ctl label, std::string caption) {
    if (at(label).text == caption) return;
    at(label).text = std::move(caption);
    changed(label);
}

}  // namespace quorlin
