#include <gtest/gtest.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QExposeEvent>
#include <QFileDialog>
#include <QMenu>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTimer>
#include <QToolButton>

#include "ui_window.h"

namespace quorlin::testing {
namespace {

// Shown and hidden controls are left to the help test, which switches them.
TEST(MainWindowUi, ComesUpWithTheDefaultsItsIconAndANameForEveryControl) {
    UiWindow ui;
    EXPECT_EQ(ui.window.windowTitle(), "Quorlin");
    EXPECT_TRUE(ui.window.windowIcon().availableSizes().contains(QSize(32, 32)));
    EXPECT_EQ(ui.get<QLineEdit>(Ctl::txtSeconds)->text(), "3");
    EXPECT_TRUE(ui.get<QRadioButton>(Ctl::optWeb)->isChecked());
    EXPECT_FALSE(ui.get<QLineEdit>(Ctl::txtFromSec)->isEnabled());
    EXPECT_EQ(ui.window.grid()->rowCount(), 1) << "the blank row below the fixed header";
    for (const ControlLayout& layout : windowLayout())
        EXPECT_FALSE(ui.window.widgetFor(layout.id)->accessibleName().isEmpty()) << layout.name;
    EXPECT_EQ(ui.window.widgetFor(Ctl::optImageNotInclude)->accessibleName(), "Click if screen picture is Not :");
    EXPECT_EQ(ui.window.widgetFor(Ctl::cmdRemove)->accessibleName(), "Remove from track list");

    ui.frm.setText(Ctl::txtX, std::string(40000, '7'));
    EXPECT_EQ(ui.get<QLineEdit>(Ctl::txtX)->text().size(), 40000) << "one-line fields take any length";
}

TEST(QtDialogsUi, TheProjectDialogsOfferTheirFilterOnce) {
    qt::QtDialogs dialogs;
    QStringList filters;
    QTimer::singleShot(0, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        filters = dialog->nameFilters();
        dialog->reject();
    });
    EXPECT_FALSE(dialogs.openFile({"Load Attachement", "Files (*.tpl)", "*.tpl", "tpl", ""}));
    EXPECT_EQ(filters, QStringList{"Files (*.tpl)"});
}

TEST(MainWindowUi, OptionsSwitchTheirFieldsThroughTheCore) {
    UiWindow ui;
    ui.click(Ctl::optRandom);
    EXPECT_TRUE(ui.get<QRadioButton>(Ctl::optRandom)->isChecked());
    EXPECT_FALSE(ui.get<QRadioButton>(Ctl::optCustom)->isChecked());
    EXPECT_TRUE(ui.get<QLineEdit>(Ctl::txtFromSec)->isEnabled());
    ui.click(Ctl::optRandom);  // clicking the selected option keeps it selected
    EXPECT_TRUE(ui.get<QRadioButton>(Ctl::optRandom)->isChecked());

    // A double click alone, with no click before it, has its own reaction.
    const QPointF at(5, 5);
    QMouseEvent doubleClick(QEvent::MouseButtonDblClick, at, at, Qt::LeftButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(ui.window.widgetFor(Ctl::optRightClick), &doubleClick);
    EXPECT_EQ(ui.frm.model().step.ClickKind, "RightClick");

    ui.click(Ctl::chkText);
    EXPECT_TRUE(ui.get<QPlainTextEdit>(Ctl::txtText)->isEnabled());
    QTest::keyClicks(ui.get<QPlainTextEdit>(Ctl::txtText), "a\rb");
    EXPECT_EQ(ui.frm.model().step.sTypeText, "a\r\nb");
    ui.click(Ctl::chkText);
    EXPECT_FALSE(ui.get<QPlainTextEdit>(Ctl::txtText)->isEnabled()) << "unticked";
}

TEST(MainWindowUi, ClosingTheWindowEndsATrackListRunWaitingInsideStart) {
    UiWindow ui;
    ui.typeInto({{Ctl::txtX, "1"}, {Ctl::txtY, "1"}, {Ctl::txtSeconds, "60"}});
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

TEST(MainWindowUi, AnErasedPictureBoxStaysBlankUntilTheWindowIsExposed) {
    UiWindow ui;
    ReferencePicture& picture = ui.frm.model().picture;
    picture.iPicMaxX = 1;
    picture.iPicMaxY = 0;
    picture.pixel(0, 0) = 0x0000FF;  // red
    picture.pixel(1, 0) = 0xFF0000;  // blue
    QWidget* box = ui.window.widgetFor(Ctl::picScreen);
    auto shown = [&](int x) { return QColor(box->grab().toImage().pixel(x, 0)); };
    auto expose = [&] {
        QExposeEvent event(QRegion(ui.window.rect()));
        QCoreApplication::sendEvent(ui.window.windowHandle(), &event);
    };
    const QColor blank = box->palette().color(QPalette::Window);

    ASSERT_TRUE(QTest::qWaitForWindowExposed(&ui.window));
    expose();
    EXPECT_EQ(shown(0), QColor(255, 0, 0));
    EXPECT_EQ(shown(1), QColor(0, 0, 255));

    ui.typeInto({{Ctl::txtX, "1"}, {Ctl::txtY, "1"}});
    ui.click(Ctl::cmdAddtoList);
    ui.frm.fgResult_Click(1, 1);
    EXPECT_EQ(shown(0), blank) << "a row without an image erases the box";
    box->repaint();
    EXPECT_EQ(shown(0), blank) << "a repaint of the box alone draws nothing back";
    expose();
    EXPECT_EQ(shown(0), QColor(255, 0, 0));
}

TEST(MainWindowUi, TheKeyboardReachesEverythingAndHelpShowsBothTexts) {
    UiWindow ui;
    ui.window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&ui.window));
    EXPECT_EQ(QApplication::focusWidget(), ui.window.widgetFor(Ctl::txtX));

    for (Qt::Key enter : {Qt::Key_Return, Qt::Key_Enter}) {
        const bool shown = ui.get<QPlainTextEdit>(Ctl::txtComments)->isVisible();
        ui.window.widgetFor(Ctl::cmdHelp)->setFocus();
        QTest::keyClick(ui.window.widgetFor(Ctl::cmdHelp), enter);
        EXPECT_NE(ui.get<QPlainTextEdit>(Ctl::txtComments)->isVisible(), shown) << enter;
        EXPECT_NE(ui.get<QPlainTextEdit>(Ctl::txtComm2)->isVisible(), shown) << enter;
    }
    EXPECT_TRUE(ui.get<QPlainTextEdit>(Ctl::txtComm2)->toPlainText().endsWith("Maximum row count is 30.\n"));

    QMenu* about = ui.window.findChild<QMenu*>("mnuAbout");
    QTest::keyClick(&ui.window, Qt::Key_F10);
    EXPECT_TRUE(about->isVisible());
    about->close();

    // Once round the tab order: every stop has a name, and no stop is a bare arrow button.
    QWidget* start = ui.window.widgetFor(Ctl::txtX);
    QWidget* stop = start;
    int stops = 0;
    do {
        stop = stop->nextInFocusChain();
        if (!(stop->focusPolicy() & Qt::TabFocus) || !stop->isVisible() || !stop->isEnabled()) continue;
        ++stops;
        EXPECT_FALSE(stop->accessibleName().isEmpty()) << stop->metaObject()->className();
        EXPECT_EQ(qobject_cast<QToolButton*>(stop), nullptr) << stop->accessibleName().toStdString();
    } while (stop != start);
    EXPECT_GT(stops, 20);
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
