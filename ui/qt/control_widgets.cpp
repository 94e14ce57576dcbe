#include "control_widgets.h"

#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

namespace quorlin::qt {

void ClickableLabel::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()) && onClick) onClick();
    QLabel::mouseReleaseEvent(event);
}

int ClassicFrame::titleInset() const { return std::max(2, fontMetrics().averageCharWidth()); }

QRect ClassicFrame::titleRect() const {
    const QSize text = fontMetrics().size(0, title());
    return {titleInset(), 0, text.width(), text.height()};
}

QSize ClassicFrame::titleRoom() const { return {width() - 2 * titleInset(), fontMetrics().size(0, title()).height()}; }

// An etched border, a dark line with a light one beside it, broken where the caption is.
void ClassicFrame::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const int middle = fontMetrics().height() / 2;
    const QRect border = rect().adjusted(0, middle, -2, -2);
    painter.setPen(palette().color(QPalette::Light));
    painter.drawRect(border.translated(1, 1));
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(border);
    if (title().isEmpty()) return;
    const QRect caption = titleRect();
    painter.fillRect(caption.adjusted(-2, 0, 2, 0), palette().color(QPalette::Window));
    style()->drawItemText(&painter, caption, Qt::AlignLeft | Qt::AlignTop, palette(), isEnabled(), title(),
                          QPalette::WindowText);
}

void PictureBoxWidget::paintEvent(QPaintEvent*) {
    QImage image(box_.width(), box_.height(), QImage::Format_ARGB32);
    const QRgb background = palette().color(QPalette::Window).rgba();
    for (int y = 0; y < box_.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < box_.width(); ++x) {
            const Colour c = box_.pixel(x, y);
            line[x] = c == PictureBox::kBackground ? background : qRgb(c & 0xFF, (c >> 8) & 0xFF, (c >> 16) & 0xFF);
        }
    }
    QPainter painter(this);
    painter.drawImage(0, 0, image);
}

SpinArrows::SpinArrows(std::function<void(int)> onStep, QWidget* parent) : QWidget(parent) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    for (auto [arrow, direction, name] : {std::tuple{Qt::UpArrow, +1, "Up"}, {Qt::DownArrow, -1, "Down"}}) {
        auto* button = new QToolButton(this);
        button->setArrowType(arrow);
        button->setAutoRepeat(true);
        button->setFocusPolicy(Qt::NoFocus);
        button->setAccessibleName(name);
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        connect(button, &QToolButton::clicked, this, [onStep, d = direction] { onStep(d); });
        layout->addWidget(button);
    }
}

}  // namespace quorlin::qt
