#include "caption_fit.h"

#include <QCheckBox>
#include <QFontMetrics>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionButton>

#include "control_widgets.h"

namespace quorlin::qt {

namespace {

// Never shrunk below this share of the font's size: a smaller caption could not be read.
constexpr int kSmallestPercent = 60;

// The caption split at the blank that gives the shortest longer line.
QString balancedTwoLines(const QString& caption, const QFontMetrics& metrics) {
    const QString trimmed = caption.trimmed();
    QString best;
    int bestWidth = 0;
    for (qsizetype i = trimmed.indexOf(' '); i > 0; i = trimmed.indexOf(' ', i + 1)) {
        const QString wrapped = caption.left(i) + '\n' + caption.mid(i + 1);
        const int width = metrics.size(0, wrapped).width();
        if (best.isEmpty() || width < bestWidth) {
            best = wrapped;
            bestWidth = width;
        }
    }
    return best;
}

bool fits(const QFontMetrics& metrics, const QString& text, QSize room) {
    const QSize needed = metrics.size(0, text);
    return needed.width() <= room.width() && needed.height() <= room.height();
}

QRect buttonContents(const QAbstractButton* button, QStyle::SubElement element) {
    QStyleOptionButton option;
    option.initFrom(button);
    option.rect = button->rect();
    return button->style()->subElementRect(element, &option, button);
}

// A label may end under the field that follows it: the part left of that field.
int uncoveredWidth(const QWidget* label) {
    int width = label->contentsRect().right() + 1;
    const QRect box = label->geometry();
    const auto siblings = label->parentWidget()->children();
    for (auto i = siblings.indexOf(label) + 1; i < siblings.size(); ++i) {
        auto* sibling = qobject_cast<const QWidget*>(siblings[i]);
        if (sibling && !sibling->isHidden() && sibling->x() > box.x() && sibling->geometry().intersects(box))
            width = std::min(width, sibling->x() - box.x());
    }
    return width - label->contentsRect().left();
}

// The room a control leaves its caption inside its box.
QSize captionRoom(const QWidget* control) {
    const int margin = std::max(1, control->fontMetrics().averageCharWidth() / 3);
    if (auto* option = qobject_cast<const QRadioButton*>(control))
        return buttonContents(option, QStyle::SE_RadioButtonContents).size() - QSize(margin, 0);
    if (auto* check = qobject_cast<const QCheckBox*>(control))
        return buttonContents(check, QStyle::SE_CheckBoxContents).size() - QSize(margin, 0);
    if (auto* button = qobject_cast<const QPushButton*>(control))
        return buttonContents(button, QStyle::SE_PushButtonContents).size() - QSize(2 * margin, 0);
    if (auto* frame = dynamic_cast<const ClassicFrame*>(control)) return frame->titleRoom();
    return {uncoveredWidth(control), control->contentsRect().height()};
}

void setCaption(QWidget* control, const QString& text) {
    if (auto* button = qobject_cast<QAbstractButton*>(control)) button->setText(text);
    else if (auto* label = qobject_cast<QLabel*>(control)) label->setText(text);
    else if (auto* frame = dynamic_cast<ClassicFrame*>(control)) frame->setTitle(text);
}

}  // namespace

FittedCaption fitCaption(const QString& caption, QFont font, QSize room) {
    const int largest = font.pixelSize();
    const int smallest = std::max(1, largest * kSmallestPercent / 100);
    for (int size = largest; size >= smallest; --size) {
        font.setPixelSize(size);
        const QFontMetrics metrics(font);
        if (fits(metrics, caption, room)) return {caption, font};
        const QString wrapped = balancedTwoLines(caption, metrics);
        if (!wrapped.isEmpty() && fits(metrics, wrapped, room)) return {wrapped, font};
    }
    return {caption, font};
}

void showFittedCaption(QWidget* control, const QString& caption) {
    const FittedCaption fitted = fitCaption(caption, control->font(), captionRoom(control));
    control->setFont(fitted.font);
    setCaption(control, fitted.text);
}

}  // namespace quorlin::qt
