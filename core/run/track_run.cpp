#include "run/track_run.h"

#include <cmath>
#include <limits>
#include <string_view>

#include "run/run_controller.h"
#include "window/messages.h"

namespace quorlin {

using C = Ctl;

namespace {

// Ends playing_ however the run ends.
class PlayingFlag {
public:
    PlayingFlag(bool& flag, bool& trackRunActive) : flag_(flag), active_(trackRunActive) { flag_ = active_ = true; }
    ~PlayingFlag() { flag_ = active_ = false; }
    PlayingFlag(const PlayingFlag&) = delete;
    PlayingFlag& operator=(const PlayingFlag&) = delete;

private:
    bool& flag_;
    bool& active_;
};

// The text before the first colon and the whole text after it; a missing colon
// leaves the rest empty.
std::pair<std::string_view, std::string_view> splitAtColon(std::string_view s) {
    auto colon = s.find(':');
    if (colon == std::string_view::npos) return {s, {}};
    return {s.substr(0, colon), s.substr(colon + 1)};
}

// Counts beyond 32 bits click as often as a 32-bit count can.
std::int32_t clickTarget(double rep) {
    if (auto whole = toInt32(rep)) return *whole;
    return rep < 0 ? std::numeric_limits<std::int32_t>::min() : std::numeric_limits<std::int32_t>::max();
}

}  // namespace

void TrackRun::StartTrackRun() {
    PlayingFlag playing(playing_, m_.trackRunActive);

    m_.fgResult.setRow(1);
    m_.fgResult.setCol(0);
    m_.form.observer().gridChanged();
    if (!gateOpen()) {
        p_.dialogs.messageBox(msg::kFieldsIncorrect);
        return;
    }
    if (m_.form.selected(C::optRepeatTrack)) repeatPasses();
    else passesUntilStop();
}

bool TrackRun::gateOpen() const {
    const std::string& number = m_.fgResult.cell(1, colNumber);
    return number == "1" || (!number.empty() && m_.form.selected(C::optFromTrack));
}

// Stop ends only the pass in progress: bStop is cleared before every pass.
void TrackRun::repeatPasses() {
    const double times = m_.valueOf(C::txtTrackNum);
    for (double k = 0; k <= times - 1 && !m_.closing; ++k) {
        m_.fgResult.setRow(1);
        m_.run.bStop = false;
        PlayTrackPass();
    }
}

void TrackRun::passesUntilStop() {
    m_.run.bStop = false;
    while (!ended()) {
        m_.fgResult.setRow(1);
        PlayTrackPass();
        p_.pump.pumpOnce();
    }
}

void TrackRun::PlayTrackPass() {
    TrackGrid& grid = m_.fgResult;
    bool passDone = false;
    while (grid.row() <= grid.rowCount() - 1 && !passDone && !ended()) {
        const int r = grid.row();
        m_.form.observer().gridChanged();
        const double interval = PrepareRowStep();
        if (refuseTooLongInterval(interval, m_.run, p_.dialogs)) return;
        if (!m_.form.selected(C::optLoop)) playRowClicks(interval);
        if (r < grid.rowCount() - 1) grid.setRow(r + 1);
        else passDone = true;
    }
    m_.form.observer().gridChanged();
}

// A row whose interval comes out negative cannot be timed; it ends at once without
// a click, as a row with "Rep" 0 would, and the pass moves on.
void TrackRun::playRowClicks(double interval) {
    const int r = m_.fgResult.row();
    RunState& run = m_.run;
    run.lClickCount = 0;
    run.iClickTarget = clickTarget(leadingNumber(m_.fgResult.cell(r, colRep)));
    const bool fill = m_.fgResult.cell(r, colFill) == "Yes";
    m_.step.bTypeText = fill;
    m_.step.sTypeText = fill ? m_.fgResult.cell(r, colText) : std::string();
    if (interval < 0) {
        run.bCountDone = true;
        return;
    }
    run.bCountDone = false;
    p_.timers.setInterval(TimerId::tmrCount, timerInterval(interval));
    while (!run.bCountDone && !ended()) p_.pump.waitForEvents();
}

double TrackRun::PrepareRowStep() {
    const int r = m_.fgResult.row();
    m_.form.setText(C::txtX, m_.fgResult.cell(r, colX));
    m_.form.setText(C::txtY, m_.fgResult.cell(r, colY));
    const double interval = rowInterval(m_.fgResult.cell(r, colInterval));
    const std::string& type = m_.fgResult.cell(r, colType);
    if (type == kClick || type == kDBClick || type == kRightClick) m_.step.ClickKind = type;
    return interval;
}

// Read as the interval option selected now says, whatever the row's "Intr Type".
// Missing parts read as empty texts, that is as 0.
double TrackRun::rowInterval(const std::string& cell) {
    auto [first, rest] = splitAtColon(cell);
    if (m_.form.selected(C::optRandom)) {
        const double from = leadingNumber(first);
        const double to = leadingNumber(rest);
        return std::floor(to * p_.random.next() + from);
    }
    auto [seconds, milliseconds] = splitAtColon(rest);
    return roundHalfEven(leadingNumber(first) * 60 * 1000 + leadingNumber(seconds) * 1000 + leadingNumber(milliseconds));
}

}  // namespace quorlin
