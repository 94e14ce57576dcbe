#pragma once

#include <QLineEdit>
#include <QTest>
#include <optional>

#include "main_window.h"
#include "track_grid_view.h"
#include "qt_ports.h"
#include "support/fake_platform.h"

namespace quorlin::testing {

// The real window, Qt timers and event pump over the in-memory desktop.
struct UiWindow {
    FakeDesktop desktop;
    FakeScreen screen;
    FakeDialogs dialogs;
    ScriptedRandom random;
    FrmMain* frmPointer = nullptr;
    qt::QtTimers timers{[this](TimerId id) { frmPointer->timerTick(id); }};
    qt::QtEventPump pump;
    FrmMain frm{Ports{desktop, screen, timers, pump, dialogs, random}};
    qt::MainWindow window;

    explicit UiWindow(std::optional<double> dpi = std::nullopt) : window(frm, dpi) {
        frmPointer = &frm;
        frm.Form_Load(7);
        window.show();
    }
    template <typename W>
    W* get(Ctl id) {
        return qobject_cast<W*>(window.widgetFor(id));
    }
    void click(Ctl id) { QTest::mouseClick(window.widgetFor(id), Qt::LeftButton, {}, QPoint(5, 5)); }
    void typeInto(std::initializer_list<std::pair<Ctl, const char*>> fields) {
        for (auto [id, text] : fields) {
            auto* edit = get<QLineEdit>(id);
            edit->selectAll();
            QTest::keyClicks(edit, text);
        }
    }
};

}  // namespace quorlin::testing
