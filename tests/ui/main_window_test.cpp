#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>
#include <QTimer>

#include "main_window.h"
#include "qt_ports.h"
#include "support/fake_platform.h"

namespace quorlin::testing {
namespace {

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
    qt::MainWindow window{frm};

    UiWindow() {
        frmPointer = &frm;
        frm.Form_Load(7);
        window.show();
    }
    template <typename W>
    W* get(Ctl id) {
        return qobject_cast<W*>(window.widgetFor(id));
    }
    void click(Ctl id) { QTest::mouseClick(window.widgetFor(id), Qt::LeftButton, {}, QPoint(5, 5)); }
    void typeInto(Ctl id, const QString& text) {
        auto* edit = get<QLineEdit>(id);
        edit->selectAll();
        QTest::keyClicks(edit, text);
    }
    void waitUntil(const std::function<bool()>& done, int ms) {
        QElapsedTimer clock;
        clock.start();
        while (!done() && clock.elapsed() < ms) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
    }
};

TEST(MainWindowUi, ComesUpWithTheDefaults) {
    UiWindow ui;
    EXPECT_EQ(ui.window.windowTitle(), "Quorlin");
    EXPECT_EQ(ui.get<QLineEdit>(Ctl::txtMinutes)->text(), "0");
    EXPECT_EQ(ui.get<QLineEdit>(Ctl::txtSeconds)->text(), "3");
    EXPECT_EQ(ui.get<QLineEdit>(Ctl::txtMiliseconds)->text(), "0");
    EXPECT_EQ(ui.get<QLineEdit>(Ctl::txtCount)->text(), "1");
    EXPECT_EQ(ui.get<QLineEdit>(Ctl::txtTrackNum)->text(), "1");
    EXPECT_TRUE(ui.get<QRadioButton>(Ctl::optWeb)->isChecked());
    EXPECT_FALSE(ui.get<QRadioButton>(Ctl::optApplication)->isChecked());
    EXPECT_TRUE(ui.get<QRadioButton>(Ctl::optTopMost)->isChecked());
    EXPECT_FALSE(ui.get<QLineEdit>(Ctl::txtFromSec)->isEnabled());
    EXPECT_FALSE(ui.get<QLineEdit>(Ctl::txtTopX)->isEnabled());
    EXPECT_FALSE(ui.get<QLineEdit>(Ctl::txtTrackNum)->isEnabled());
    EXPECT_TRUE(ui.get<QLineEdit>(Ctl::txtX)->isEnabled());
    EXPECT_FALSE(ui.get<QPlainTextEdit>(Ctl::txtComments)->isVisible());
    EXPECT_TRUE(ui.get<QPushButton>(Ctl::cmdStart)->isVisible());
    EXPECT_EQ(ui.window.grid()->rowCount(), 2);
    EXPECT_EQ(ui.window.grid()->item(0, 3)->text(), "Intr Type");
    EXPECT_EQ(ui.window.grid()->columnWidth(8), 60);
    EXPECT_EQ(ui.window.centralWidget()->size(), QSize(455, 623));
}

TEST(MainWindowUi, OptionsSwitchTheirFieldsThroughTheCore) {
    UiWindow ui;
    ui.click(Ctl::optRandom);
    EXPECT_TRUE(ui.get<QRadioButton>(Ctl::optRandom)->isChecked());
    EXPECT_FALSE(ui.get<QRadioButton>(Ctl::optCustom)->isChecked());
    EXPECT_TRUE(ui.get<QLineEdit>(Ctl::txtFromSec)->isEnabled());
    EXPECT_FALSE(ui.get<QLineEdit>(Ctl::txtMinutes)->isEnabled());
    ui.click(Ctl::optRandom);  // clicking the selected option keeps it selected
    EXPECT_TRUE(ui.get<QRadioButton>(Ctl::optRandom)->isChecked());

    ui.click(Ctl::chkText);
    EXPECT_TRUE(ui.get<QPlainTextEdit>(Ctl::txtText)->isEnabled());
    QTest::keyClicks(ui.get<QPlainTextEdit>(Ctl::txtText), "a");
    QTest::keyClick(ui.get<QPlainTextEdit>(Ctl::txtText), Qt::Key_Return);
    QTest::keyClicks(ui.get<QPlainTextEdit>(Ctl::txtText), "b");
    EXPECT_EQ(ui.frm.model().step.sTypeText, "a\r\nb");
}

TEST(MainWindowUi, StartAndStopDriveRunsOnTheRealTimers) {
    UiWindow ui;
    ui.typeInto(Ctl::txtX, "10");
    ui.typeInto(Ctl::txtY, "20");
    ui.typeInto(Ctl::txtSeconds, "0");
    ui.typeInto(Ctl::txtMiliseconds, "50");
    ui.typeInto(Ctl::txtCount, "2");
    ui.click(Ctl::optApplication);
    ui.click(Ctl::cmdStart);
    auto downs = [&] {
        std::size_t n = 0;
        for (const auto& m : ui.desktop.posted) n += m.code == 0x0201;
        return n;
    };
    ui.waitUntil([&] { return downs() >= 2; }, 3000);
    EXPECT_EQ(downs(), 2u);
    EXPECT_EQ(ui.desktop.lookedUp.front(), (ScreenPoint{10, 20}));

    ui.click(Ctl::optLoop);
    ui.click(Ctl::cmdStart);
    ui.waitUntil([&] { return downs() >= 4; }, 3000);
    ui.click(Ctl::cmdStop);
    const std::size_t afterStop = downs();
    ui.waitUntil([] { return false; }, 300);
    EXPECT_GE(afterStop, 4u);
    EXPECT_EQ(downs(), afterStop);
}

TEST(MainWindowUi, ClosingTheWindowEndsATrackListRunWaitingInsideStart) {
    UiWindow ui;
    ui.typeInto(Ctl::txtX, "1");
    ui.typeInto(Ctl::txtY, "1");
    ui.typeInto(Ctl::txtSeconds, "60");
    ui.click(Ctl::cmdAddtoList);
    ui.click(Ctl::optFromTrack);
    QTimer::singleShot(200, &ui.window, [&] { ui.window.close(); });
    QElapsedTimer clock;
    clock.start();
    ui.click(Ctl::cmdStart);  // returns only when the run has ended
    EXPECT_LT(clock.elapsed(), 5000);
    EXPECT_TRUE(ui.frm.model().closing);
    EXPECT_FALSE(ui.window.isVisible());
}

TEST(MainWindowUi, HelpButtonShowsAndHidesBothTexts) {
    UiWindow ui;
    ui.click(Ctl::cmdHelp);
    EXPECT_TRUE(ui.get<QPlainTextEdit>(Ctl::txtComments)->isVisible());
    EXPECT_TRUE(ui.get<QPlainTextEdit>(Ctl::txtComm2)->isVisible());
    EXPECT_TRUE(ui.get<QPlainTextEdit>(Ctl::txtComm2)->toPlainText().endsWith("Maximum row count is 30.\n"));
    ui.click(Ctl::cmdHelp);
    EXPECT_FALSE(ui.get<QPlainTextEdit>(Ctl::txtComments)->isVisible());
}

TEST(MainWindowUi, OnlyAUsersClickOnARowLoadsIt) {
    UiWindow ui;
    WindowModel& m = ui.frm.model();
    m.fgResult.setRowCount(3);
    m.setEntryCells(1, {"1", "11", "12", "Custom", "0:1:0", "Click", "1", "No", "", "No"});
    m.setEntryCells(2, {"2", "21", "22", "Custom", "0:2:0", "Click", "1", "No", "", "No"});
    m.vFirstRowUsed = true;
    m.fgResult.setRow(2);
    EXPECT_EQ(ui.window.grid()->currentRow(), 2);
    EXPECT_EQ(ui.frm.form().text(Ctl::txtX), "") << "a program move of the current cell loads nothing";

    QTableWidget* table = ui.window.grid();
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, table->visualItemRect(table->item(1, 2)).center());
    EXPECT_EQ(m.fgResult.row(), 1);
    EXPECT_EQ(ui.frm.form().text(Ctl::txtX), "11");
    EXPECT_EQ(ui.get<QLineEdit>(Ctl::txtY)->text(), "12");
}

TEST(MainWindowUi, ThePictureBoxShowsThePictureAgainAfterARepaint) {
    UiWindow ui;
    ReferencePicture& picture = ui.frm.model().picture;
    picture.iPicMaxX = 1;
    picture.iPicMaxY = 0;
    picture.pixel(0, 0) = 0x0000FF;  // red
    picture.pixel(1, 0) = 0xFF0000;  // blue
    ui.frm.model().pictureBox.clear();
    QImage shown = ui.window.widgetFor(Ctl::picScreen)->grab().toImage();
    EXPECT_EQ(QColor(shown.pixel(0, 0)), QColor(255, 0, 0));
    EXPECT_EQ(QColor(shown.pixel(1, 0)), QColor(0, 0, 255));
}

}  // namespace
}  // namespace quorlin::testing

int main(int argc, char** argv) {
    // Widgets are tested off screen; the X11 suites test the real desktop.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
