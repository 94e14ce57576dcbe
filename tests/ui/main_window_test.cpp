#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QElapsedTimer>
#include <QExposeEvent>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QStyleOptionButton>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <filesystem>
#include <optional>

#include "control_widgets.h"
#include "main_window.h"
#include "qt_ports.h"
#include "support/fake_platform.h"
#include "track_grid_view.h"

namespace quorlin::testing {
namespace {

using ::testing::ElementsAre, ::testing::StartsWith;

// The real window, Qt timers and event pump over the in-memory desktop.
struct UiWindow {
    FakeDesktop desktop;
    FakeScreen screen;
    FakeDialogs dialogs;
    ScriptedRandom random;
    qt::QtTimers timers{[this](TimerId id) { frm.timerTick(id); }};
    qt::QtEventPump pump;
    FrmMain frm{Ports{desktop, screen, timers, pump, dialogs, random}};
    qt::MainWindow window;
    QTableWidget* table = window.grid();

    explicit UiWindow(std::optional<double> dpi = std::nullopt) : window(frm, dpi) {
        frm.Form_Load(7);
        window.show();
    }
    template <typename W>
    W* get(Ctl id) {
        return qobject_cast<W*>(window.widgetFor(id));
    }
    void click(Ctl id) { QTest::mouseClick(window.widgetFor(id), Qt::LeftButton, {}, QPoint(5, 5)); }
    // Entries whose X cells read "1", "2", ...
    void add(int entries) {
        for (int i = 1; i <= entries; ++i) {
            frm.setText(Ctl::txtX, std::to_string(i));
            frm.setText(Ctl::txtY, "5");
            frm.cmdAddtoList_Click();
        }
    }
    QPoint centreOf(int entryRow) { return table->visualRect(table->model()->index(entryRow - 1, 2)).center(); }
    // The row the user sees highlighted, in the grid's numbering.
    int highlighted() {
        const auto rows = table->selectionModel()->selectedRows();
        return rows.size() == 1 ? rows.front().row() + 1 : 0;
    }
};

// Shown and hidden controls are switched by the help button.
TEST(MainWindowUi, ComesUpWithItsDefaultsAndDialogFilterAndEveryControlIsNamedReachesTheCoreAndShowsItsState) {
    qt::QtDialogs dialogs;
    QStringList filters;
    QTimer::singleShot(0, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        filters = dialog->nameFilters();
        dialog->reject();
    });
    EXPECT_FALSE(dialogs.openFile({"Load Attachement", "Files (*.tpl)", "*.tpl", "tpl", ""}));
    EXPECT_EQ(filters, QStringList{"Files (*.tpl)"});

    UiWindow ui;
    EXPECT_EQ(ui.window.windowTitle(), "Quorlin");
    EXPECT_TRUE(ui.window.windowIcon().availableSizes().contains(QSize(32, 32)));
    EXPECT_EQ(ui.get<QLineEdit>(Ctl::txtSeconds)->text(), "3");
    EXPECT_EQ(ui.table->rowCount(), 1) << "the blank row below the fixed header";
    for (const ControlLayout& layout : windowLayout())
        EXPECT_FALSE(ui.window.widgetFor(layout.id)->accessibleName().isEmpty()) << layout.name;
    EXPECT_EQ(ui.window.widgetFor(Ctl::optImageNotInclude)->accessibleName(), "Click if screen picture is Not :");
    ui.frm.setText(Ctl::txtX, std::string(40000, '7'));
    EXPECT_EQ(ui.get<QLineEdit>(Ctl::txtX)->text().size(), 40000) << "one-line fields take any length";

    ui.window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&ui.window));
    EXPECT_EQ(QApplication::focusWidget(), ui.window.widgetFor(Ctl::txtX));
    for (Qt::Key enter : {Qt::Key_Return, Qt::Key_Enter}) {
        const bool shown = ui.get<QPlainTextEdit>(Ctl::txtComments)->isVisible();
        QTest::keyClick(ui.window.widgetFor(Ctl::cmdHelp), enter);
        EXPECT_NE(ui.get<QPlainTextEdit>(Ctl::txtComments)->isVisible(), shown) << enter;
    }
    EXPECT_TRUE(ui.get<QPlainTextEdit>(Ctl::txtComm2)->toPlainText().endsWith("Maximum row count is 30.\n"));

    // Once round the tab order: no stop is a bare arrow button.
    QWidget* start = ui.window.widgetFor(Ctl::txtX);
    int stops = 0;
    for (QWidget* stop = start->nextInFocusChain(); stop != start; stop = stop->nextInFocusChain()) {
        if (!(stop->focusPolicy() & Qt::TabFocus) || !stop->isVisible() || !stop->isEnabled()) continue;
        ++stops;
        EXPECT_EQ(qobject_cast<QToolButton*>(stop), nullptr) << stop->accessibleName().toStdString();
    }
    EXPECT_GT(stops, 20);

    const auto arrows = ui.window.widgetFor(Ctl::UpDown3)->findChildren<QToolButton*>();
    ASSERT_EQ(arrows.size(), 2);
    arrows[0]->click();
    EXPECT_EQ(ui.get<QLineEdit>(Ctl::txtSeconds)->text(), "4");
    arrows[1]->click();
    arrows[1]->click();
    EXPECT_EQ(ui.get<QLineEdit>(Ctl::txtSeconds)->text(), "2");

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
    QTest::keyClicks(ui.get<QPlainTextEdit>(Ctl::txtText), "a\rb");
    EXPECT_EQ(ui.frm.model().step.sTypeText, "a\r\nb");
    ui.click(Ctl::chkText);
    EXPECT_FALSE(ui.get<QPlainTextEdit>(Ctl::txtText)->isEnabled()) << "unticked";

    ui.window.findChild<QAction*>("mnuFeedback")->trigger();
    ui.window.findChild<QAction*>("mnuGoToWebsite")->trigger();
    ui.click(Ctl::Picture1);
    EXPECT_THAT(ui.desktop.links, ElementsAre(StartsWith("mailto:"), StartsWith("http"), StartsWith("http")));
    QTest::keyClick(&ui.window, Qt::Key_F10);
    EXPECT_TRUE(ui.window.findChild<QMenu*>("mnuAbout")->isVisible());
}

TEST(MainWindowUi, AnErasedPictureBoxStaysBlankUntilTheWindowIsExposedAndClosingTheWindowEndsARunInsideStart) {
    UiWindow ui;
    ReferencePicture& picture = ui.frm.model().picture;
    picture.iPicMaxX = 1;  // two pixels wide, one high
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

    QTest::keyClicks(ui.get<QLineEdit>(Ctl::txtSeconds), "0");
    EXPECT_EQ(ui.frm.form().text(Ctl::txtSeconds), "30") << "typing reaches the core";
    ui.add(1);
    ui.frm.fgResult_Click(1, 1);
    EXPECT_EQ(shown(0), blank) << "a row without an image erases the box";
    box->repaint();
    EXPECT_EQ(shown(0), blank) << "a repaint of the box alone draws nothing back";
    expose();
    EXPECT_EQ(shown(0), QColor(255, 0, 0));

    ui.click(Ctl::optFromTrack);
    QTimer::singleShot(200, &ui.window, [&] { ui.window.close(); });
    QElapsedTimer clock;
    clock.start();
    ui.click(Ctl::cmdStart);  // returns only when the run has ended
    EXPECT_LT(clock.elapsed(), 5000);
    EXPECT_FALSE(ui.window.isVisible());
}

TEST(TrackGridUi, TheHighlightedRowIsTheCurrentRowOnlyAClickLoadsItAndThirtyEntriesShowUnderTheHeader) {
    UiWindow ui;
    ui.add(4);
    QTest::mouseClick(ui.table->viewport(), Qt::LeftButton, {}, ui.centreOf(2));
    EXPECT_EQ(ui.frm.form().text(Ctl::txtX), "2") << "a click loads its row";

    auto expectCurrent = [&](int row, const char* how) {
        EXPECT_EQ(ui.frm.model().fgResult.row(), row) << how;
        EXPECT_EQ(ui.highlighted(), row) << how;
        EXPECT_EQ(ui.frm.form().text(Ctl::txtX), "2") << how << " loads nothing";
    };
    QTest::keyClick(ui.table, Qt::Key_Down);
    expectCurrent(3, "Down");
    QTest::keyClick(ui.table, Qt::Key_Home, Qt::ControlModifier);
    expectCurrent(1, "Ctrl+Home");
    QTest::mousePress(ui.table->viewport(), Qt::LeftButton, {}, ui.centreOf(1));
    QTest::mouseMove(ui.table->viewport(), ui.centreOf(2));
    QTest::mouseRelease(ui.table->viewport(), Qt::LeftButton, {}, ui.centreOf(2));
    expectCurrent(2, "a drag from 1 to 2");

    QTest::keyClick(ui.table, Qt::Key_End, Qt::ControlModifier);
    ui.click(Ctl::cmdRemove);
    EXPECT_EQ(ui.table->rowCount(), 3) << "the highlighted entry 4 is the one removed";
    EXPECT_EQ(ui.table->item(2, colX)->text(), "3");
    EXPECT_EQ(ui.highlighted(), 3) << "the last row is current after removing";

    ui.click(Ctl::cmdClearTrackList);
    EXPECT_EQ(ui.highlighted(), 0) << "no row is highlighted while no entry is selected";
    EXPECT_EQ(ui.table->currentRow(), -1);

    // Every cell's whole text is also its tool tip, and the header row is the first thing
    // in the grid's box however its rows are scrolled; once added and once loaded.
    ui.click(Ctl::optRightClick);
    ui.click(Ctl::chkText);
    QTest::keyClicks(ui.window.widgetFor(Ctl::txtText), "a long text to type");
    ui.add(30);
    ui.table->scrollToBottom();
    EXPECT_GT(ui.table->verticalScrollBar()->value(), 0);
    auto expectThirtyUnderTheHeader = [&](const char* when) {
        SCOPED_TRACE(when);
        EXPECT_EQ(ui.table->rowCount(), 30);
        EXPECT_EQ(ui.table->item(29, colType)->toolTip(), "RightClick");
        EXPECT_EQ(ui.table->item(29, colText)->text(), "a long text to type");
        EXPECT_EQ(ui.table->item(29, colText)->toolTip(), "a long text to type");
        EXPECT_EQ(ui.table->horizontalHeaderItem(colImage)->toolTip(), "Image");
        QHeaderView* header = ui.table->horizontalHeader();
        EXPECT_TRUE(header->isVisible());
        EXPECT_LT(header->geometry().bottom(), ui.table->viewport()->geometry().top());
        EXPECT_EQ(header->sectionViewportPosition(0), 0) << "\"#\" is shown from the left edge";
        EXPECT_EQ(ui.table->horizontalHeaderItem(0)->text(), "#");
    };
    expectThirtyUnderTheHeader("added");
    const auto path = std::filesystem::temp_directory_path() / "quorlin-ui-grid.tpl";
    ui.dialogs.answers.push(path.string());
    ui.frm.cmdSave_Click();
    ui.dialogs.answers.push(path.string());
    ui.click(Ctl::cmdLoad);
    std::filesystem::remove(path);
    expectThirtyUnderTheHeader("loaded");
}

// The rectangle the style writes a control's caption in, and the room the control shows of it.
std::pair<QRect, QRect> captionOf(QWidget* control) {
    if (auto* frame = dynamic_cast<qt::ClassicFrame*>(control))
        return {QRect(frame->titleRect().topLeft(), frame->fontMetrics().size(0, frame->title())), frame->rect()};
    auto* button = qobject_cast<QAbstractButton*>(control);
    auto* label = qobject_cast<QLabel*>(control);
    QRect room = control->contentsRect();
    Qt::Alignment alignment = label ? label->alignment() : Qt::AlignLeft | Qt::AlignVCenter;
    if (button) {
        QStyleOptionButton option;
        option.initFrom(button);
        const auto contents = qobject_cast<QRadioButton*>(button) ? QStyle::SE_RadioButtonContents
                              : qobject_cast<QCheckBox*>(button) ? QStyle::SE_CheckBoxContents
                                                                 : QStyle::SE_PushButtonContents;
        room = button->style()->subElementRect(contents, &option, button);
        if (qobject_cast<QPushButton*>(button)) alignment = Qt::AlignCenter;
    }
    const QString text = button ? button->text() : label->text();
    return {control->style()->itemTextRect(control->fontMetrics(), room, int(alignment), true, text), room};
}

// Later siblings are drawn over a control.
bool coveredBySibling(QWidget* control, QRect textInParent) {
    const auto siblings = control->parentWidget()->children();
    for (auto i = siblings.indexOf(control) + 1; i < siblings.size(); ++i) {
        auto* sibling = qobject_cast<QWidget*>(siblings[i]);
        if (sibling && sibling->isVisible() && sibling->geometry().intersects(textInParent)) return true;
    }
    return false;
}

class WindowAtDpi : public ::testing::TestWithParam<double> {};

TEST_P(WindowAtDpi, TheWholeWindowScalesWithTheDensityAndShowsEveryCaptionWhole) {
    const double dpi = GetParam();
    UiWindow ui(dpi);
    auto px = [dpi](int twips) { return qRound(twips * dpi / 1440); };
    auto rect = [&](int left, int top, int width, int height) {
        return QRect(QPoint(px(left), px(top)), QPoint(px(left + width) - 1, px(top + height) - 1));
    };
    EXPECT_EQ(ui.window.centralWidget()->size(), QSize(px(6825), px(9345)));
    EXPECT_EQ(ui.window.widgetFor(Ctl::cmdStart)->geometry(), rect(120, 8745, 1500, 405));
    EXPECT_EQ((std::pair{ui.table->columnWidth(0), ui.table->columnWidth(8)}), (std::pair{px(400), px(900)}));
    EXPECT_NEAR(ui.window.widgetFor(Ctl::txtX)->font().pixelSize(), 8.25 * dpi / 72, 0.5);
    const QSize box = ui.window.widgetFor(Ctl::picScreen)->size();
    EXPECT_EQ(box, rect(470, 1000, 2750, 880).size());
    EXPECT_EQ(QSize(ui.frm.model().pictureBox.width(), ui.frm.model().pictureBox.height()), box)
        << "one picture pixel per screen pixel, as far as the box reaches";

    for (const ControlLayout& layout : windowLayout()) {
        if (!*layout.caption) continue;
        QWidget* control = ui.window.widgetFor(layout.id);
        const auto [text, room] = captionOf(control);
        const QString written = control->property(control->inherits("QGroupBox") ? "title" : "text").toString();
        EXPECT_EQ(written.simplified().remove(' '), QString(layout.caption).remove(' ').remove('\n')) << layout.name;
        EXPECT_TRUE(room.contains(text) && control->rect().contains(text)) << layout.name << ": " << text.width()
            << "x" << text.height() << " in " << room.width() << "x" << room.height();
        EXPECT_FALSE(coveredBySibling(control, text.translated(control->pos()))) << layout.name;
    }
}

INSTANTIATE_TEST_SUITE_P(Dpi, WindowAtDpi, ::testing::Values(96.0, 120.0, 144.0, 192.0));

}  // namespace
}  // namespace quorlin::testing

int main(int argc, char** argv) {
    // Widgets are tested off screen; the X11 suites test the real desktop.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
