#include <QApplication>
#include <QFile>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <memory>

#include "command_line.h"
#include "file_argument_dialogs.h"
#include "main_window.h"
#include "posix/posix_durable_files.h"
#include "qt_ports.h"
#include "run/seeded_random.h"
#include "x11/x11_connection.h"
#include "x11/x11_desktop.h"
#include "x11/x11_screen_reader.h"

namespace {

// WM_CLASS is "quorlin", "quorlin" and the desktop entry is quorlin.desktop, so that
// docks and task bars find Quorlin's icon and name.
void nameApplication() {
    QCoreApplication::setApplicationName("quorlin");
    QCoreApplication::setApplicationVersion(QUORLIN_VERSION);
    QGuiApplication::setDesktopFileName("quorlin");
}

// Without an X display Qt aborts with advice to reinstall; say what is missing instead.
std::unique_ptr<quorlin::x11::X11Connection> openDisplay(const std::string& displayName) {
    try {
        return std::make_unique<quorlin::x11::X11Connection>(displayName.empty() ? nullptr : displayName.c_str());
    } catch (const std::exception&) {
        const char* name = displayName.empty() ? std::getenv("DISPLAY") : displayName.c_str();
        if (!name || !*name)
            std::fprintf(stderr, "quorlin: no X display: DISPLAY is not set. Quorlin runs on an X11 desktop.\n");
        else
            std::fprintf(stderr, "quorlin: cannot open the X display \"%s\".\n", name);
        return nullptr;
    }
}

// A project that cannot be read still leaves the window up, its track list emptied
// as "Load project" leaves it; the terminal is told why.
void reportUnreadable(const std::string& path) {
    QFile file(QFile::decodeName(path.c_str()));
    if (!file.open(QIODevice::ReadOnly))
        std::fprintf(stderr, "quorlin: cannot open %s: %s\n", path.c_str(), qPrintable(file.errorString()));
}

}  // namespace

int main(int argc, char** argv) {
    nameApplication();
    const quorlin::qt::CommandLine commandLine = quorlin::qt::readCommandLine(argc, argv);
    if (commandLine.exitCode) return *commandLine.exitCode;
    // The desktop operations work on X windows, so Qt's windows must be X windows too.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "xcb");
    // Layout and readout are in physical pixels: no scaling of widgets.
    qputenv("QT_ENABLE_HIGHDPI_SCALING", "0");
    const auto connection = openDisplay(commandLine.displayName);
    if (!connection) return 1;
    QApplication app(argc, argv);
    try {
        quorlin::x11::X11Desktop desktop(*connection);
        quorlin::x11::X11ScreenReader screen(*connection);
        quorlin::FrmMain* frmPointer = nullptr;
        quorlin::qt::QtTimers timers([&frmPointer](quorlin::TimerId id) {
            if (!frmPointer) return;
            frmPointer->timerTick(id);
        });
        quorlin::qt::QtEventPump pump;
        quorlin::qt::QtDialogs userDialogs;
        quorlin::qt::FileArgumentDialogs dialogs(userDialogs, commandLine.projectPath);
        quorlin::SeededRandom random;
        quorlin::posix::PosixDurableFiles files;
        quorlin::FrmMain frm({desktop, screen, timers, pump, dialogs, random, &files}, quorlin::qt::systemNumberLocale());
        frmPointer = &frm;

        quorlin::qt::MainWindow window(frm);
        userDialogs.setParent(&window);
        frm.Form_Load(static_cast<quorlin::WindowHandle>(window.winId()));
        if (commandLine.projectPath) {
            reportUnreadable(*commandLine.projectPath);
            frm.cmdLoad_Click();
        }
        timers.startReadout();
        window.show();
        return app.exec();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "quorlin: %s\n", error.what());
        return 1;
    }
}
