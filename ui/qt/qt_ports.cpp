#include "qt_ports.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QLocale>
#include <QMessageBox>

#include "form/layout.h"

namespace quorlin::qt {

QtTimers::QtTimers(TickHandler onTick) {
    for (auto [timer, id] : {std::pair{&count_, TimerId::tmrCount}, {&loop_, TimerId::tmrLoop},
                             {&readout_, TimerId::timer}}) {
        timer->setTimerType(Qt::PreciseTimer);
        QObject::connect(timer, &QTimer::timeout, [onTick, id = id] { onTick(id); });
    }
}

QTimer& QtTimers::timerFor(TimerId id) {
    switch (id) {
        case TimerId::tmrCount: return count_;
        case TimerId::tmrLoop: return loop_;
        case TimerId::timer: break;
    }
    return readout_;
}

void QtTimers::setInterval(TimerId id, std::int32_t milliseconds) {
    QTimer& timer = timerFor(id);
    if (milliseconds > 0) timer.start(milliseconds);
    else timer.stop();
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
