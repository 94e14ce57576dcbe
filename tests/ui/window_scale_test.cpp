#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionButton>

#include "control_widgets.h"
#include "ui_window.h"

namespace quorlin::testing {
namespace {

struct Caption {
    QRect text;  // where the style writes it, in the control's coordinates
    QRect room;  // what the control shows of it
};

Caption captionOf(QWidget* control) {
    if (auto* frame = dynamic_cast<qt::ClassicFrame*>(control))
        return {QRect(frame->titleRect().topLeft(), frame->fontMetrics().size(0, frame->title())), frame->rect()};
    auto* button = qobject_cast<QAbstractButton*>(control);
    auto* label = qobject_cast<QLabel*>(control);
    QRect room = control->contentsRect();
    Qt::Alignment alignment = label ? label->alignment() : Qt::AlignLeft | Qt::AlignVCenter;
    if (button) {
        QStyleOptionButton option;
        option.initFrom(button);
        option.rect = button->rect();
        const auto contents = qobject_cast<QRadioButton*>(button) ? QStyle::SE_RadioButtonContents
                              : qobject_cast<QCheckBox*>(button) ? QStyle::SE_CheckBoxContents
                                                                 : QStyle::SE_PushButtonContents;
        room = button->style()->subElementRect(contents, &option, button);
        if (qobject_cast<QPushButton*>(button)) alignment = Qt::AlignCenter;
    }
    const QString text = button ? button->text() : label->text();
    const QRect written = control->style()->itemTextRect(control->fontMetrics(), room, int(alignment), true, text);
    return {written, room};
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

TEST_P(WindowAtDpi, EveryCaptionIsWhollyShownInItsControl) {
    UiWindow ui(GetParam());
    for (const ControlLayout& layout : windowLayout()) {
        if (!*layout.caption) continue;
        QWidget* control = ui.window.widgetFor(layout.id);
        const Caption caption = captionOf(control);
        const QString shown = QString(layout.caption).replace(' ', "").remove('\n');
        const QString written = control->property(control->inherits("QGroupBox") ? "title" : "text").toString();
        EXPECT_EQ(written.simplified().remove(' '), shown) << layout.name << ": every word is written";
        EXPECT_TRUE(caption.room.contains(caption.text) && control->rect().contains(caption.text))
            << layout.name << " at " << GetParam() << " DPI: text " << caption.text.width() << "x"
            << caption.text.height() << " in " << caption.room.width() << "x" << caption.room.height();
        EXPECT_FALSE(coveredBySibling(control, caption.text.translated(control->pos()))) << layout.name;
    }
}

TEST_P(WindowAtDpi, TheWholeWindowScalesWithTheDensity) {
    const double dpi = GetParam();
    UiWindow ui(dpi);
    auto px = [dpi](int twips) { return qRound(twips * dpi / 1440); };
    auto rect = [&](int left, int top, int width, int height) {
        return QRect(QPoint(px(left), px(top)), QPoint(px(left + width) - 1, px(top + height) - 1));
    };
    EXPECT_EQ(ui.window.centralWidget()->size(), QSize(px(6825), px(9345)));
    EXPECT_EQ(ui.window.widgetFor(Ctl::cmdStart)->geometry(), rect(120, 8745, 1500, 405));
    EXPECT_EQ(ui.window.grid()->columnWidth(0), px(400));
    EXPECT_EQ(ui.window.grid()->columnWidth(8), px(900));
    EXPECT_NEAR(ui.window.widgetFor(Ctl::txtX)->font().pixelSize(), 8.25 * dpi / 72, 0.5);
    const QSize box = ui.window.widgetFor(Ctl::picScreen)->size();
    EXPECT_EQ(box, rect(470, 1000, 2750, 880).size());
    EXPECT_EQ(QSize(ui.frm.model().pictureBox.width(), ui.frm.model().pictureBox.height()), box)
        << "one picture pixel per screen pixel, as far as the box reaches";
}

INSTANTIATE_TEST_SUITE_P(Dpi, WindowAtDpi, ::testing::Values(96.0, 120.0, 144.0, 192.0));

}  // namespace
}  // namespace quorlin::testing
