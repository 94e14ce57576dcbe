#include "run/track_run.h"

#include "form/message_texts.h"
#include "model/interval_rules.h"
#include "run/run_controller.h"
#include "text/colon_split.h"

namespace quorlin {

using C = Ctl;

namespace {

// Marks the track run as playing however it ends.
class ActiveRun {
public:
    explicit ActiveRun(bool& active) : active_(active) { active_ = true; }
    ~ActiveRun() { active_ = false; }
    ActiveRun(const ActiveRun&) = delete;
    ActiveRun& operator=(const ActiveRun&) = delete;

private:
    bool& active_;
};

// A missing colon leaves the rest empty: the missing parts read as 0.
std::pair<std::string_view, std::string_view> splitOrWhole(std::string_view s) {
    return splitAtColon(s).value_or(std::pair{s, std::string_view()});
}

}  // namespace

void TrackRun::StartTrackRun() {
    ActiveRun active(m_.trackRunActive);
    ++m_.countRun;

    m_.fgResult.setRow(1);
    m_.fgResult.setCol(0);
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
    const double times = m_.form.valueOf(C::txtTrackNum);
    for (double k = 0; k <= times - 1 && !m_.closing; ++k) {
        m_.fgResult.setRow(1);
        m_.run.bStop = false;
        PlayTrackPass();
    }
}

// A pass that waited for no row (with "Non-stop" clicks nothing is timed) is followed by
// a sleep until the next event instead of a busy pass of the pump.
void TrackRun::passesUntilStop() {
    m_.run.bStop = false;
    while (!ended()) {
        m_.fgResult.setRow(1);
        const long waitsBefore = waits_;
        PlayTrackPass();
        if (waits_ == waitsBefore) p_.pump.waitForEvents();
        else p_.pump.pumpOnce();
    }
}

void TrackRun::PlayTrackPass() {
    TrackGrid& grid = m_.fgResult;
    bool passDone = false;
    while (grid.row() <= grid.rowCount() - 1 && !passDone && !ended()) {
        const int r = grid.row();
        const double interval = PrepareRowStep();
        if (refuseUntimableInterval(interval, m_.run, p_.dialogs)) return;
        if (!m_.form.selected(C::optLoop)) playRowClicks(interval);
        if (r < grid.rowCount() - 1) grid.setRow(r + 1);
        else passDone = true;
    }
}

void TrackRun::playRowClicks(double interval) {
    const int r = m_.fgResult.row();
    RunState& run = m_.run;
    run.lClickCount = 0;
    run.iClickTarget = clampToInt32(leadingNumber(m_.fgResult.cell(r, colRep)));
    const bool fill = m_.fgResult.cell(r, colFill) == "Yes";
    m_.step.bTypeText = fill;
    m_.step.sTypeText = fill ? m_.fgResult.cell(r, colText) : std::string();
    run.bCountDone = false;
    p_.timers.setInterval(TimerId::tmrCount, timerInterval(interval));
    while (!run.bCountDone && !ended()) {
        p_.pump.waitForEvents();
        ++waits_;
    }
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
    auto [first, rest] = splitOrWhole(cell);
    if (m_.form.selected(C::optRandom)) return randomInterval(leadingNumber(first), leadingNumber(rest), p_.random.next());
    auto [seconds, milliseconds] = splitOrWhole(rest);
    return roundHalfEven(leadingNumber(first) * 60 * 1000 + leadingNumber(seconds) * 1000 + leadingNumber(milliseconds));
}

}  // namespace quorlin
