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

TEST(QtDialogs, ShowTheFilterTheyAreGivenOnce) {
    qt::QtDialogs dialogs;
    QTimer::singleShot(0, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        EXPECT_EQ(dialog->nameFilters(), QStringList{"Files (*.tpl)"});
        dialog->reject();
    });
    EXPECT_FALSE(dialogs.openFile({"Load Attachement", "Files (*.tpl)", "*.tpl", "tpl", ""}));
}

// The real window, Qt timers and event pump over the in-memory desktop.
class MainWindowUi : public ::testing::Test {
protected:
    explicit MainWindowUi(std::optional<double> dpi = std::nullopt) : window(frm, dpi) {
        frm.Form_Load(7);
        window.show();
    }
    template <typename W>
    W* get(Ctl id) { return qobject_cast<W*>(window.widgetFor(id)); }
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

    FakeDesktop desktop;
    FakeScreen screen;
    FakeDialogs dialogs;
    ScriptedRandom random;
    qt::QtTimers timers{[this](TimerId id) { frm.timerTick(id); }};
    qt::QtEventPump pump;
    FrmMain frm{Ports{desktop, screen, timers, pump, dialogs, random}};
    qt::MainWindow window;
    QTableWidget* table = window.grid();
};

TEST_F(MainWindowUi, ComesUpShowingTheCoresStateWithEveryControlNamed) {
    EXPECT_EQ(window.windowTitle(), "Quorlin");
    EXPECT_TRUE(window.windowIcon().availableSizes().contains(QSize(32, 32)));
    EXPECT_TRUE(get<QPlainTextEdit>(Ctl::txtComm2)->toPlainText().endsWith("Maximum row count is 30.\n"));
    EXPECT_EQ(table->rowCount(), 1) << "the blank row below the fixed header";
    for (const ControlLayout& layout : windowLayout())
        EXPECT_FALSE(window.widgetFor(layout.id)->accessibleName().isEmpty()) << layout.name;
    EXPECT_EQ(window.widgetFor(Ctl::optImageNotInclude)->accessibleName(), "Click if screen picture is Not :");
    frm.setText(Ctl::txtX, std::string(40000, '7'));
    EXPECT_EQ(get<QLineEdit>(Ctl::txtX)->text().size(), 40000) << "one-line fields take any length";
}

// Enter presses the focused button as Space does.
TEST_F(MainWindowUi, TheKeyboardStartsInTheXFieldPressesButtonsWithEnterAndOpensTheMenuWithF10) {
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_EQ(QApplication::focusWidget(), window.widgetFor(Ctl::txtX));
    for (Qt::Key enter : {Qt::Key_Return, Qt::Key_Enter}) {  // the help shown, and hidden again
        QTest::keyClick(window.widgetFor(Ctl::cmdHelp), enter);
        EXPECT_EQ(window.widgetFor(Ctl::txtComments)->isVisible(), enter == Qt::Key_Return) << enter;
    }
    QTest::keyClick(&window, Qt::Key_F10);
    EXPECT_TRUE(window.findChild<QMenu*>("mnuAbout")->isVisible());
}

TEST_F(MainWindowUi, EachKindOfControlHandsItsEventsToTheCoreAndShowsWhatItMadeOfThem) {
    const auto arrows = window.widgetFor(Ctl::UpDown3)->findChildren<QToolButton*>();
    ASSERT_EQ(arrows.size(), 2);
    for (QToolButton* arrow : arrows) EXPECT_FALSE(arrow->focusPolicy() & Qt::TabFocus) << "no tab stops at an arrow";
    // Up once and down twice from 3: the field shows the 2 that typing then goes on from.
    arrows[0]->click();
    arrows[1]->click();
    arrows[1]->click();
    QTest::keyClicks(window.widgetFor(Ctl::txtSeconds), "0");
    EXPECT_EQ(frm.form().text(Ctl::txtSeconds), "20");

    click(Ctl::optRandom);
    EXPECT_FALSE(get<QRadioButton>(Ctl::optCustom)->isChecked());
    click(Ctl::optRandom);  // clicking the selected option keeps it selected
    EXPECT_TRUE(get<QRadioButton>(Ctl::optRandom)->isChecked());

    // A double click alone, with no click before it, has its own reaction.
    const QPointF at(5, 5);
    QMouseEvent doubleClick(QEvent::MouseButtonDblClick, at, at, Qt::LeftButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(window.widgetFor(Ctl::optRightClick), &doubleClick);
    EXPECT_EQ(frm.model().step.ClickKind, "RightClick");

    click(Ctl::chkText);
    QTest::keyClicks(get<QPlainTextEdit>(Ctl::txtText), "a\rb");
    EXPECT_EQ(frm.model().step.sTypeText, "a\r\nb");
    click(Ctl::chkText);
    EXPECT_FALSE(get<QPlainTextEdit>(Ctl::txtText)->isEnabled()) << "unticked";

    window.findChild<QAction*>("mnuFeedback")->trigger();
    window.findChild<QAction*>("mnuGoToWebsite")->trigger();
    click(Ctl::Picture1);
    EXPECT_THAT(desktop.links, ElementsAre(StartsWith("mailto:"), StartsWith("http"), StartsWith("http")));
}

TEST_F(MainWindowUi, AnErasedPictureBoxStaysBlankUntilTheWindowIsExposed) {
    ReferencePicture& picture = frm.model().picture;
    picture.iPicMaxX = 1;  // two pixels wide, one high
    picture.pixel(0, 0) = 0x0000FF;  // red
    picture.pixel(1, 0) = 0xFF0000;  // blue
    QWidget* box = window.widgetFor(Ctl::picScreen);
    auto shown = [&](int x) { return QColor(box->grab().toImage().pixel(x, 0)); };
    auto expose = [&] {
        QExposeEvent event(QRegion(window.rect()));
        QCoreApplication::sendEvent(window.windowHandle(), &event);
    };
    const QColor blank = box->palette().color(QPalette::Window);

    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    expose();
    EXPECT_EQ(shown(0), QColor(255, 0, 0));
    EXPECT_EQ(shown(1), QColor(0, 0, 255));

    add(1);
    frm.fgResult_Click(1, 1);
    EXPECT_EQ(shown(0), blank) << "a row without an image erases the box";
    box->repaint();
    EXPECT_EQ(shown(0), blank) << "a repaint of the box alone draws nothing back";
    expose();
    EXPECT_EQ(shown(0), QColor(255, 0, 0));
}

TEST_F(MainWindowUi, ClosingTheWindowEndsARunInsideStart) {
    frm.setText(Ctl::txtSeconds, "30");
    add(1);  // its one click comes after 30 s
    click(Ctl::optFromTrack);
    QTimer::singleShot(200, &window, [&] { window.close(); });
    QElapsedTimer clock;
    clock.start();
    click(Ctl::cmdStart);  // returns only when the run has ended
    EXPECT_LT(clock.elapsed(), 5000);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(MainWindowUi, TheGridHighlightsTheCurrentRowAndOnlyAClickLoadsARow) {
    add(4);
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, centreOf(2));
    EXPECT_EQ(frm.form().text(Ctl::txtX), "2") << "a click loads its row";

    auto expectCurrent = [&](int row, const char* how) {
        EXPECT_EQ(frm.model().fgResult.row(), row) << how;
        EXPECT_EQ(highlighted(), row) << how;
        EXPECT_EQ(frm.form().text(Ctl::txtX), "2") << how << " loads nothing";
    };
    QTest::keyClick(table, Qt::Key_Down);
    expectCurrent(3, "Down");
    QTest::keyClick(table, Qt::Key_Home, Qt::ControlModifier);
    expectCurrent(1, "Ctrl+Home");
    QTest::mousePress(table->viewport(), Qt::LeftButton, {}, centreOf(1));
    QTest::mouseMove(table->viewport(), centreOf(2));
    QTest::mouseRelease(table->viewport(), Qt::LeftButton, {}, centreOf(2));
    expectCurrent(2, "a drag from 1 to 2");

    QTest::keyClick(table, Qt::Key_End, Qt::ControlModifier);
    click(Ctl::cmdRemove);
    EXPECT_EQ(table->item(table->rowCount() - 1, colX)->text(), "3") << "the highlighted entry 4 is the one removed";
    EXPECT_EQ(highlighted(), 3) << "the last row is current after removing";

    click(Ctl::cmdClearTrackList);
    EXPECT_EQ(highlighted(), 0) << "no row is highlighted while no entry is selected";
    EXPECT_EQ(table->currentRow(), -1);
}

// Every cell's whole text is also its tool tip, and the header row is the first thing in
// the grid's box however its rows are scrolled.
TEST_F(MainWindowUi, TheGridShowsThirtyLoadedEntriesUnderItsHeaderWithTheirTextsAsToolTips) {
    click(Ctl::chkText);
    QTest::keyClicks(window.widgetFor(Ctl::txtText), "a long text to type");
    add(30);
    const auto path = std::filesystem::temp_directory_path() / "quorlin-ui-grid.tpl";
    dialogs.answers.push(path.string());
    frm.cmdSave_Click();
    dialogs.answers.push(path.string());
    click(Ctl::cmdLoad);
    std::filesystem::remove(path);

    table->scrollToBottom();
    EXPECT_GT(table->verticalScrollBar()->value(), 0);
    EXPECT_EQ(table->rowCount(), 30);
    EXPECT_EQ(table->item(29, colText)->toolTip(), "a long text to type");
    EXPECT_EQ(table->horizontalHeaderItem(colImage)->toolTip(), "Image");
    QHeaderView* header = table->horizontalHeader();
    EXPECT_TRUE(header->isVisible());
    EXPECT_LT(header->geometry().bottom(), table->viewport()->geometry().top());
    EXPECT_EQ(header->sectionViewportPosition(0), 0) << "\"#\" is shown from the left edge";
    EXPECT_EQ(table->horizontalHeaderItem(0)->text(), "#");
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

class WindowAtDpi : public MainWindowUi, public ::testing::WithParamInterface<double> {
protected:
    WindowAtDpi() : MainWindowUi(GetParam()) {}
};

TEST_P(WindowAtDpi, TheWholeWindowScalesWithTheDensityAndShowsEveryCaptionWhole) {
    auto px = [](int twips) { return qRound(twips * GetParam() / 1440); };
    auto rect = [&](int left, int top, int width, int height) {
        return QRect(QPoint(px(left), px(top)), QPoint(px(left + width) - 1, px(top + height) - 1));
    };
    EXPECT_EQ(window.centralWidget()->size(), QSize(px(6825), px(9345)));
    EXPECT_EQ(window.widgetFor(Ctl::cmdStart)->geometry(), rect(120, 8745, 1500, 405));
    EXPECT_EQ((std::pair{table->columnWidth(0), table->columnWidth(8)}), (std::pair{px(400), px(900)}));
    EXPECT_NEAR(window.widgetFor(Ctl::txtX)->font().pixelSize(), 8.25 * GetParam() / 72, 0.5);
    const QSize box = window.widgetFor(Ctl::picScreen)->size();
    EXPECT_EQ(box, rect(470, 1000, 2750, 880).size());
    EXPECT_EQ(QSize(frm.model().pictureBox.width(), frm.model().pictureBox.height()), box)
        << "one picture pixel per screen pixel, as far as the box reaches";

    for (const ControlLayout& layout : windowLayout()) {
        if (!*layout.caption) continue;
        QWidget* control = window.widgetFor(layout.id);
        const auto [text, room] = captionOf(control);
        const QString written = control->property(control->inherits("QGroupBox") ? "title" : "text").toString();
        EXPECT_EQ(written.simplified().remove(' '), QString(layout.caption).remove(' ').remove('\n')) << layout.name;
        EXPECT_TRUE(room.contains(text) && control->rect().contains(text)) << layout.name << ": " << text.width()
            << "x" << text.height() << " in " << room.width() << "x" << room.height();
        // Later siblings are drawn over it.
        const auto siblings = control->parentWidget()->children();
        for (auto i = siblings.indexOf(control) + 1; i < siblings.size(); ++i) {
            auto* over = qobject_cast<QWidget*>(siblings[i]);
            EXPECT_FALSE(over && over->isVisible() && over->geometry().intersects(text.translated(control->pos())))
                << layout.name;
        }
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
