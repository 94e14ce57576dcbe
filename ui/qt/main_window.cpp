#include "main_window.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QShortcut>
#include <QWindow>
#include <limits>

#include "artwork.h"
#include "caption_fit.h"
#include "control_names.h"
#include "control_widgets.h"
#include "track_grid_view.h"
#include "window_scale.h"

namespace quorlin::qt {

namespace {

const QColor kLightYellow(255, 255, 192);

QString toQt(const std::string& text) { return QString::fromStdString(text).replace("\r\n", "\n"); }
std::string fromQt(const QString& text) { return QString(text).replace("\n", "\r\n").toStdString(); }

// The help texts are made to fit their boxes line for line, so that nothing scrolls away.
void helpText(QPlainTextEdit* edit) {
    edit->setReadOnly(true);
    edit->document()->setDocumentMargin(1);
    edit->setLineWrapMode(QPlainTextEdit::NoWrap);
    edit->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    edit->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

constexpr int kHelpTextPixels = 10;

// Yellow on red as the window shows these two options, with the selected circle dark on
// white so that it reads at a glance.
void yellowOnRed(QWidget* option) {
    QPalette palette = option->palette();
    palette.setColor(QPalette::Window, QColor(255, 0, 0));
    palette.setColor(QPalette::WindowText, kLightYellow);
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Text, Qt::black);
    option->setPalette(palette);
    option->setBackgroundRole(QPalette::Window);
    option->setAutoFillBackground(true);
}

bool isReadout(Ctl id) { return id == Ctl::lblXPos || id == Ctl::lblYPos; }

}  // namespace

MainWindow::MainWindow(FrmMain& frm, std::optional<double> dpi) : frm_(frm) {
    setWindowTitle(kWindowTitle);
    setWindowIcon(quorlinIcon());
    buildMenu();
    auto* client = new QWidget(this);
    setCentralWidget(client);

    for (const ControlLayout& layout : windowLayout()) {
        QWidget* parent = layout.parent == Ctl::frmMain ? client : widgetFor(layout.parent);
        QWidget* widget = createControl(layout, parent);
        widgets_[indexOf(layout.id)] = widget;
        widget->setObjectName(layout.name);
        widget->setAccessibleName(accessibleNameOf(layout));
        applyLook(layout, widget);
        connectControl(layout, widget);
    }
    for (Ctl above : {Ctl::chkRecImage, Ctl::txtComments, Ctl::txtComm2}) widgetFor(above)->raise();
    frm_.setObserver(this);
    applyScale(dpi.value_or(screenDpi(screen())));
    for (const ControlLayout& layout : windowLayout()) controlChanged(layout.id);
    gridChanged();
    widgetFor(Ctl::txtX)->setFocus();
    watchWindow(!dpi);
}

MainWindow::~MainWindow() { frm_.setObserver(nullptr); }

TrackGridView* MainWindow::grid() const { return static_cast<TrackGridView*>(widgetFor(Ctl::fgResult)); }

void MainWindow::buildMenu() {
    QMenu* about = menuBar()->addMenu("About");
    about->setObjectName("mnuAbout");
    about->addAction("Go To Website", [this] { frm_.mnuGoToWebsite_Click(); })->setObjectName("mnuGoToWebsite");
    about->addAction("Send Feedback", [this] { frm_.mnuFeedback_Click(); })->setObjectName("mnuFeedback");
    auto* f10 = new QShortcut(QKeySequence(Qt::Key_F10), this);
    connect(f10, &QShortcut::activated, this, [this, about] { menuBar()->setActiveAction(about->menuAction()); });
}

QWidget* MainWindow::createControl(const ControlLayout& layout, QWidget* parent) {
    const QString caption = layout.caption;
    switch (layout.kind) {
        case ControlKind::Frame: return new ClassicFrame(caption, parent);
        case ControlKind::Option: {
            auto* option = new QRadioButton(caption, parent);
            option->setAutoExclusive(false);
            option->installEventFilter(this);
            return option;
        }
        case ControlKind::CheckBox: return new QCheckBox(caption, parent);
        case ControlKind::TextField: {
            auto* field = new QLineEdit(parent);
            field->setMaxLength(std::numeric_limits<int>::max());
            return field;
        }
        case ControlKind::MultiLineText: return new QPlainTextEdit(parent);
        case ControlKind::Label: return new QLabel(caption, parent);
        case ControlKind::Button: {
            auto* button = new QPushButton(caption, parent);
            button->setAutoDefault(true);  // Enter presses the focused button, as Space does
            return button;
        }
        case ControlKind::PictureBox: return createPictureBox(layout, parent);
        case ControlKind::Grid: return new TrackGridView(parent);
        case ControlKind::SpinButton:
            return new SpinArrows([this, id = layout.id](int direction) { frm_.spinButton(id, direction); }, parent);
    }
    return new QWidget(parent);
}

QWidget* MainWindow::createPictureBox(const ControlLayout& layout, QWidget* parent) {
    if (layout.id == Ctl::Picture1) {
        auto* logo = new ClickableLabel(parent);
        logo->setAlignment(Qt::AlignCenter);
        logo->setCursor(Qt::PointingHandCursor);
        logo->onClick = [this] { frm_.Picture1_Click(); };
        return logo;
    }
    return new PictureBoxWidget(frm_.model().pictureBox, parent);
}

void MainWindow::applyLook(const ControlLayout& layout, QWidget* widget) {
    switch (layout.colours) {
        case ColourRole::YellowOnRed: yellowOnRed(widget); break;
        case ColourRole::YellowBackground: {
            QPalette palette = widget->palette();
            palette.setColor(QPalette::Base, kLightYellow);
            widget->setPalette(palette);
            helpText(static_cast<QPlainTextEdit*>(widget));
            break;
        }
        case ColourRole::WindowBackground:
        case ColourRole::Platform: break;
    }
}

// Everything that depends on the density is set here, so that the window can be drawn again
// at another one as a whole.
void MainWindow::applyScale(double dpi) {
    const WindowScale scale(dpi);
    applyStyle(scale);
    centralWidget()->setFont(scale.font(FontRole::Default));
    menuBar()->setFont(scale.font(FontRole::Default));
    for (QMenu* menu : menuBar()->findChildren<QMenu*>()) menu->setFont(scale.font(FontRole::Default));
    centralWidget()->setFixedSize(scale.pixels(kClientWidthTwips), scale.pixels(kClientHeightTwips));
    for (const ControlLayout& layout : windowLayout()) {
        QWidget* widget = widgetFor(layout.id);
        widget->setGeometry(scale.rect(layout.rect));
        QFont font = scale.font(layout.font);
        if (layout.colours == ColourRole::YellowBackground) font.setPixelSize(scale.scaled(kHelpTextPixels));
        widget->setFont(font);
    }
    for (const ControlLayout& layout : windowLayout())
        if (*layout.caption) showFittedCaption(widgetFor(layout.id), layout.caption);
    grid()->applyScale(scale, frm_.model().fgResult);
    scalePictures(scale);
    setFixedSize(sizeHint());
}

void MainWindow::applyStyle(const WindowScale& scale) {
    QPointer<QStyle> previous = style_;
    style_ = new WindowStyle(scale);
    style_->setParent(this);
    for (QWidget* widget : centralWidget()->findChildren<QWidget*>()) widget->setStyle(style_);
    delete previous;
}

void MainWindow::scalePictures(const WindowScale& scale) {
    static_cast<QLabel*>(widgetFor(Ctl::Picture1))->setPixmap(logoPixmap(scale.factor()));
    auto* help = static_cast<QPushButton*>(widgetFor(Ctl::cmdHelp));
    help->setIcon(QIcon(helpPixmap(scale.factor())));
    help->setIconSize(QSize(scale.scaled(19), scale.scaled(20)));
    const QSize box = widgetFor(Ctl::picScreen)->size();
    frm_.model().pictureBox.setSize(box.width(), box.height());
}

// The window's paint reaction runs when the window itself must be drawn again (shown,
// uncovered), not each time a control repaints: an erased picture box stays blank till then.
void MainWindow::watchWindow(bool followScreen) {
    winId();
    QWindow* window = windowHandle();
    window->installEventFilter(this);
    if (followScreen)
        connect(window, &QWindow::screenChanged, this, [this](QScreen* screen) { applyScale(screenDpi(screen)); });
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
        case ControlKind::Grid: {
            auto* table = static_cast<TrackGridView*>(widget);
            table->onClick = [this](int row, int col) { frm_.fgResult_Click(row, col); };
            table->onCurrentMoved = [this](int row, int col) { frm_.fgResult_RowColChange(row, col); };
            break;
        }
        default: break;
    }
}

void MainWindow::pressButton(Ctl id) { frm_.buttonClicked(id); }

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Expose && watched == windowHandle() && windowHandle()->isExposed())
        frm_.Form_Paint();
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

void MainWindow::gridChanged() { grid()->showGrid(frm_.model().fgResult); }

void MainWindow::pictureBoxChanged() { widgetFor(Ctl::picScreen)->update(); }

void MainWindow::closeEvent(QCloseEvent* event) {
    frm_.Form_Unload();
    event->accept();
}

}  // namespace quorlin::qt
