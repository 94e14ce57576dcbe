#include "qt_ports.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QLocale>
#include <QMessageBox>
#include <sys/timerfd.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <system_error>
#include <utility>

#include "form/layout.h"

namespace quorlin::qt {

ScheduledTimer::ScheduledTimer(std::function<void()> onTick)
    : fd_(timerfd_create(CLOCK_MONOTONIC, TFD_NONBLOCK | TFD_CLOEXEC)),
      notifier_(fd_, QSocketNotifier::Read),
      onTick_(std::move(onTick)) {
    if (fd_ < 0) throw std::system_error(errno, std::generic_category(), "cannot create a run timer");
    notifier_.setEnabled(false);
    QObject::connect(&notifier_, &QSocketNotifier::activated, [this] { expired(); });
}

ScheduledTimer::~ScheduledTimer() {
    notifier_.setEnabled(false);
    close(fd_);
}

void ScheduledTimer::setInterval(std::int32_t milliseconds) {
    ++arming_;
    armed_ = milliseconds > 0;
    const auto interval = std::chrono::milliseconds(armed_ ? milliseconds : 0);
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(interval);
    const timespec period{seconds.count(), std::chrono::nanoseconds(interval - seconds).count()};
    const itimerspec schedule{period, period};
    timerfd_settime(fd_, 0, &schedule, nullptr);
    notifier_.setEnabled(armed_);
}

// A tick's step pumps events, and a tick of the same arming must not start inside it,
// as a Qt timer's would not: the notifier rests until the step is over, and deadlines
// passed meanwhile make one tick at once. A run armed anew inside the step ticks in it.
void ScheduledTimer::expired() {
    std::uint64_t passed = 0;
    if (read(fd_, &passed, sizeof passed) != static_cast<ssize_t>(sizeof passed)) return;
    const std::uint64_t arming = arming_;
    notifier_.setEnabled(false);
    onTick_();
    if (arming_ == arming && armed_) notifier_.setEnabled(true);
}

QtTimers::QtTimers(TickHandler onTick)
    : count_([onTick] { onTick(TimerId::tmrCount); }), loop_([onTick] { onTick(TimerId::tmrLoop); }) {
    readout_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&readout_, &QTimer::timeout, [onTick] { onTick(TimerId::timer); });
}

void QtTimers::setInterval(TimerId id, std::int32_t milliseconds) {
    switch (id) {
        case TimerId::tmrCount: return count_.setInterval(milliseconds);
        case TimerId::tmrLoop: return loop_.setInterval(milliseconds);
        case TimerId::timer: break;
    }
    if (milliseconds > 0) readout_.start(milliseconds);
    else readout_.stop();
}

void QtEventPump::pumpOnce() { QCoreApplication::processEvents(); }

void QtEventPump::waitForEvents() { QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents); }

void QtDialogs::messageBox(const std::string& text) {
    QMessageBox box(QMessageBox::NoIcon, kWindowTitle, QString::fromStdString(text), QMessageBox::Ok, parent_);
    box.exec();
}

namespace {
// The description names its pattern already ("Files (*.tpl)"); Qt reads the pattern from it.
QString filterOf(const FileDialogSettings& s) {
    const std::string shown = "(" + s.filterPattern + ")";
    if (s.filterDescription.find(shown) != std::string::npos) return QString::fromStdString(s.filterDescription);
    return QString::fromStdString(s.filterDescription + " " + shown);
}

std::optional<std::string> chosen(QFileDialog& dialog) {
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    return dialog.selectedFiles().front().toStdString();
}

void prepare(QFileDialog& dialog, const FileDialogSettings& s) {
    dialog.setWindowTitle(QString::fromStdString(s.title));
    dialog.setNameFilter(filterOf(s));
    dialog.setDefaultSuffix(QString::fromStdString(s.defaultExtension));
    if (!s.fileName.empty()) dialog.selectFile(QString::fromStdString(s.fileName));
}
}  // namespace

std::optional<std::string> QtDialogs::openFile(const FileDialogSettings& settings) {
    QFileDialog dialog(parent_);
    prepare(dialog, settings);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::AnyFile);
    return chosen(dialog);
}

std::optional<std::string> QtDialogs::saveFile(const FileDialogSettings& settings) {
    QFileDialog dialog(parent_);
    prepare(dialog, settings);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    return chosen(dialog);
}

NumberLocale systemNumberLocale() { return NumberLocale{QLocale::system().decimalPoint().toStdString()}; }

}  // namespace quorlin::qt
