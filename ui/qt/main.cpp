#include <QApplication>
#include <cstdio>
#include <exception>

#include "main_window.h"
#include "qt_ports.h"
#include "run/seeded_random.h"
#include "x11/x11_connection.h"
#include "x11/x11_desktop.h"
#include "x11/x11_screen_reader.h"

int main(int argc, char** argv) {
    // Layout and readout are in physical pixels: no scaling of widgets.
    qputenv("QT_ENABLE_HIGHDPI_SCALING", "0");
    QApplication app(argc, argv);
    try {
        quorlin::x11::X11Connection connection;
        quorlin::x11::X11Desktop desktop(connection);
        quorlin::x11::X11ScreenReader screen(connection);
        quorlin::FrmMain* frmPointer = nullptr;
        quorlin::qt::QtTimers timers([&frmPointer](quorlin::TimerId id) {
            if (!frmPointer) return;
            frmPointer->timerTick(id);
        });
        quorlin::qt::QtEventPump pump;
        quorlin::qt::QtDialogs dialogs;
        quorlin::SeededRandom random;
        quorlin::FrmMain frm({desktop, screen, timers, pump, dialogs, random}, quorlin::qt::systemNumberLocale());
        frmPointer = &frm;

        quorlin::qt::MainWindow window(frm);
        dialogs.setParent(&window);
        frm.Form_Load(static_cast<quorlin::WindowHandle>(window.winId()));
        timers.startReadout();
        window.show();
        return app.exec();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "quorlin: %s\n", error.what());
        return 1;
    }
}
