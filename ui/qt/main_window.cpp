#include "main_window.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QTableWidget>

#include "artwork.h"
#include "control_widgets.h"

namespace quorlin::qt {

namespace {

QRect pixels(const TwipsRect& r) {
    return {r.left / kTwipsPerPixel, r.top / kTwipsPerPixel, r.width / kTwipsPerPixel, r.height / kTwipsPerPixel};
}

// The window's fonts, with the nearest installed families where the classic ones are missing.
QFont fontFor(FontRole role) {
    QFont font;
    if (role == FontRole::BoldTahoma) font.setFamilies({"Tahoma", "Liberation Sans", "DejaVu Sans"});
    else font.setFamilies({"MS Sans Serif", "Microsoft Sans Serif", "Liberation Sans", "DejaVu Sans"});
    font.setPointSizeF(8.25);
    font.setBold(role != FontRole::Default);
    return font;
}

const QColor kLightYellow(255, 255, 192);

QString toQt(const std::string& text) { return QString::fromStdString(text).replace("\r\n", "\n"); }
std::string fromQt(const QString& text) { return QString(text).replace("\n", "\r\n").toStdString(); }

// A caption wider than its button goes on two lines, as the classic buttons wrap theirs.
void wrapCaption(QPushButton* button) {
    const QString caption = button->text();
    if (button->fontMetrics().horizontalAdvance(caption) <= button->width() - 6) return;
    const int middle = static_cast<int>(caption.size()) / 2;
    int split = static_cast<int>(caption.lastIndexOf(' ', middle));
    if (split < 0) split = static_cast<int>(caption.indexOf(' ', middle));
    if (split > 0) button->setText(caption.left(split) + "\n" + caption.mid(split + 1));
}

// The help texts are made to fit their boxes line for line, so that nothing scrolls away.
void helpText(QPlainTextEdit* edit) {
    edit->setReadOnly(true);
    edit->document()->setDocumentMargin(1);
    edit->setLineWrapMode(QPlainTextEdit::NoWrap);
    edit->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    edit->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    QFont font = edit->font();
    font.setPixelSize(10);
    edit->setFont(font);
}

bool isReadout(Ctl id) { return id == Ctl::lblXPos || id == Ctl::lblYPos; }

}  // namespace

MainWindow::MainWindow(FrmMain& frm) : frm_(frm) {
    setWindowTitle(kWindowTitle);
    setWindowIcon(windowIcon());
    buildMenu();
    auto* client = new QWidget(this);
    client->setFont(fontFor(FontRole::Default));
    client->setFixedSize(kClientWidthTwips / kTwipsPerPixel, kClientHeightTwips / kTwipsPerPixel);
    setCentralWidget(client);

    for (const ControlLayout& layout : windowLayout()) {
        QWidget* parent = layout.parent == Ctl::frmMain ? client : widgetFor(layout.parent);
        QWidget* widget = createControl(layout, parent);
        widgets_[indexOf(layout.id)] = widget;
        widget->setObjectName(layout.name);
        widget->setGeometry(pixels(layout.rect));
        applyLook(layout, widget);
        connectControl(layout, widget);
    }
    for (Ctl above : {Ctl::chkRecImage, Ctl::txtComments, Ctl::txtComm2}) widgetFor(above)->raise();
    frm_.setObserver(this);
    for (const ControlLayout& layout : windowLayout()) controlChanged(layout.id);
    gridChanged();
    setFixedSize(sizeHint());
}

MainWindow::~MainWindow() { frm_.setObserver(nullptr); }

QTableWidget* MainWindow::grid() const { return static_cast<QTableWidget*>(widgetFor(Ctl::fgResult)); }

void MainWindow::buildMenu() {
    QMenu* about = menuBar()->addMenu("About");
    about->setObjectName("mnuAbout");
    about->addAction("Go To Website", [this] { frm_.mnuGoToWebsite_Click(); })->setObjectName("mnuGoToWebsite");
    about->addAction("Send Feedback", [this] { frm_.mnuFeedback_Click(); })->setObjectName("mnuFeedback");
}

QWidget* MainWindow::createControl(const ControlLayout& layout, QWidget* parent) {
    const QString caption = layout.caption;
    switch (layout.kind) {
        case ControlKind::Frame: return new QGroupBox(caption, parent);
        case ControlKind::Option: {
            auto* option = new QRadioButton(caption, parent);
            option->setAutoExclusive(false);
            option->installEventFilter(this);
            return option;
        }
        case ControlKind::CheckBox: return new QCheckBox(caption, parent);
        case ControlKind::TextField: return new QLineEdit(parent);
        case ControlKind::MultiLineText: return new QPlainTextEdit(parent);
        case ControlKind::Label: return new QLabel(caption, parent);
        case ControlKind::Button: return new QPushButton(caption, parent);
        case ControlKind::PictureBox: return createPictureBox(layout, parent);
        case ControlKind::Grid: return new QTableWidget(parent);
        case ControlKind::SpinButton:
            return new SpinArrows([this, id = layout.id](int direction) { frm_.spinButton(id, direction); }, parent);
    }
    return new QWidget(parent);
}

QWidget* MainWindow::createPictureBox(const ControlLayout& layout, QWidget* parent) {
    if (layout.id == Ctl::Picture1) {
        auto* logo = new ClickableLabel(parent);
        logo->setPixmap(logoPixmap());
        logo->setAlignment(Qt::AlignCenter);
        logo->setCursor(Qt::PointingHandCursor);
        logo->onClick = [this] { frm_.Picture1_Click(); };
        return logo;
    }
    auto* box = new PictureBoxWidget(frm_.model().pictureBox, parent);
    box->beforePaint = [this] { frm_.Form_Paint(); };
    return box;
}

void MainWindow::applyLook(const ControlLayout& layout, QWidget* widget) {
    if (layout.font != FontRole::Default) widget->setFont(fontFor(layout.font));
    QPalette palette = widget->palette();
    switch (layout.colours) {
        case ColourRole::YellowOnRed:
            widget->setStyleSheet("QRadioButton { background-color: rgb(255, 0, 0); color: rgb(255, 255, 192); }");
            break;
        case ColourRole::YellowBackground:
            palette.setColor(QPalette::Base, kLightYellow);
            helpText(static_cast<QPlainTextEdit*>(widget));
            break;
        case ColourRole::WindowBackground:
        case ColourRole::Platform: break;
    }
    widget->setPalette(palette);
    if (auto* button = qobject_cast<QPushButton*>(widget)) wrapCaption(button);
    if (layout.id == Ctl::cmdHelp) {
        auto* help = static_cast<QPushButton*>(widget);
        help->setIcon(QIcon(helpPixmap()));
        help->setIconSize(QSize(19, 20));
    }
    if (layout.id == Ctl::fgResult) {
        auto* table = static_cast<QTableWidget*>(widget);
        table->setColumnCount(kGridColumns);
        table->horizontalHeader()->hide();
        table->verticalHeader()->hide();
        table->setEditTriggers(QAbstractItemView::NoEditTriggers);
        table->setSelectionMode(QAbstractItemView::SingleSelection);
        table->verticalHeader()->setDefaultSectionSize(17);
    }
}

void MainWindow::connectControl(const ControlLayout& layout, QWidget* widget) {
    const Ctl id = layout.id;
    switch (layout.kind) {
        case ControlKind::Option:
            connect(static_cast<QRadioButton*>(widget), &QRadioButton::clicked, this, [this, id] {
                frm_.selectOption(id);
                controlChanged(id);
            });
            break;
        case ControlKind::CheckBox:
            connect(static_cast<QCheckBox*>(widget), &QCheckBox::clicked, this,
                    [this, id](bool checked) { frm_.setCheck(id, checked ? 1 : 0); });
            break;
        case ControlKind::TextField:
            connect(static_cast<QLineEdit*>(widget), &QLineEdit::textEdited, this,
                    [this, id](const QString& text) { frm_.setText(id, text.toStdString()); });
            break;
        case ControlKind::MultiLineText:
            if (id == Ctl::txtText) {
                auto* edit = static_cast<QPlainTextEdit*>(widget);
                connect(edit, &QPlainTextEdit::textChanged, this, [this, id, edit] {
                    if (!syncing_) frm_.setText(id, fromQt(edit->toPlainText()));
                });
            }
            break;
        case ControlKind::Button:
            connect(static_cast<QPushButton*>(widget), &QPushButton::clicked, this, [this, id] { pressButton(id); });
            break;
        case ControlKind::Grid:
            // Only the user's click loads a row; the header row loads nothing.
            connect(static_cast<QTableWidget*>(widget), &QTableWidget::cellClicked, this, [this](int row, int col) {
                if (row >= 1) frm_.fgResult_Click(row, col);
                else showGridCell(frm_.model().fgResult.row(), frm_.model().fgResult.col());
            });
            break;
        default: break;
    }
}

void MainWindow::pressButton(Ctl id) {
    switch (id) {
        case Ctl::cmdStart: return frm_.cmdStart_Click();
        case Ctl::cmdStop: return frm_.cmdStop_Click();
        case Ctl::cmdHelp: return frm_.cmdHelp_Click();
        case Ctl::cmdGetPic: return frm_.cmdGetPic_Click();
        case Ctl::cmdAddtoList: return frm_.cmdAddtoList_Click();
        case Ctl::cmdUpdate: return frm_.cmdUpdate_Click();
        case Ctl::cmdRemove: return frm_.cmdRemove_Click();
        case Ctl::cmdClearTrackList: return frm_.cmdClearTrackList_Click();
        case Ctl::cmdSave: return frm_.cmdSave_Click();
        case Ctl::cmdLoad: return frm_.cmdLoad_Click();
        default: return;
    }
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonDblClick) {
        for (const ControlLayout& layout : windowLayout())
            if (widgetFor(layout.id) == watched) frm_.optionDoubleClicked(layout.id);
    }
    return QMainWindow::eventFilter(watched, event);
}

void MainWindow::controlChanged(Ctl id) {
    QWidget* widget = widgetFor(id);
    if (!widget) return;
    QScopedValueRollback guard(syncing_, true);
    const ControlState& state = frm_.form()[id];
    widget->setEnabled(state.enabled);
    widget->setVisible(state.visible);
    if (auto* option = qobject_cast<QRadioButton*>(widget)) option->setChecked(state.selected);
    else if (auto* check = qobject_cast<QCheckBox*>(widget)) check->setChecked(state.value == 1);
    else if (auto* line = qobject_cast<QLineEdit*>(widget)) {
        const QString text = QString::fromStdString(state.text);
        if (line->text() != text) line->setText(text);
    } else if (auto* edit = qobject_cast<QPlainTextEdit*>(widget)) {
        const QString text = toQt(state.text);
        if (edit->toPlainText() != text) edit->setPlainText(text);
    } else if (auto* label = qobject_cast<QLabel*>(widget); label && isReadout(id)) {
        label->setText(QString::fromStdString(state.text));
    }
}

void MainWindow::gridChanged() {
    QScopedValueRollback guard(syncing_, true);
    const TrackGrid& model = frm_.model().fgResult;
    QTableWidget* table = grid();
    table->setRowCount(model.rowCount());
    QFont headerFont = table->font();
    headerFont.setBold(true);
    for (int c = 0; c < kGridColumns; ++c) table->setColumnWidth(c, model.colWidth(c) / kTwipsPerPixel);
    for (int r = 0; r < model.rowCount(); ++r) {
        for (int c = 0; c < kGridColumns; ++c) {
            QTableWidgetItem* item = table->item(r, c);
            if (!item) {
                item = new QTableWidgetItem;
                table->setItem(r, c, item);
            }
            item->setText(toQt(model.cell(r, c)));
            if (r == 0) {
                item->setFont(headerFont);
                item->setBackground(table->palette().color(QPalette::Button));
            }
        }
    }
    showGridCell(model.row(), model.col());
}

void MainWindow::showGridCell(int row, int col) {
    QTableWidget* table = grid();
    const QSignalBlocker blocker(table);
    if (row >= 0 && row < table->rowCount()) table->setCurrentCell(row, col);
}

void MainWindow::pictureBoxChanged() {
    auto* box = static_cast<PictureBoxWidget*>(widgetFor(Ctl::picScreen));
    if (box && !box->painting()) box->update();
}

void MainWindow::closeEvent(QCloseEvent* event) {
    frm_.Form_Unload();
    event->accept();
}

}  // namespace quorlin::qt
