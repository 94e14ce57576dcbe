#include "control_widgets.h"

#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QToolButton>
#include <QVBoxLayout>

namespace quorlin::qt {

void ClickableLabel::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()) && onClick) onClick();
    QLabel::mouseReleaseEvent(event);
}

void PictureBoxWidget::paintEvent(QPaintEvent*) {
    painting_ = true;
    if (beforePaint) beforePaint();
    painting_ = false;

    QImage image(PictureBox::kWidth, PictureBox::kHeight, QImage::Format_ARGB32);
    const QRgb background = palette().color(QPalette::Window).rgba();
    for (int y = 0; y < PictureBox::kHeight; ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < PictureBox::kWidth; ++x) {
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
    for (auto [arrow, direction] : {std::pair{Qt::UpArrow, +1}, {Qt::DownArrow, -1}}) {
        auto* button = new QToolButton(this);
        button->setArrowType(arrow);
        button->setAutoRepeat(true);
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        connect(button, &QToolButton::clicked, this, [onStep, d = direction] { onStep(d); });
        layout->addWidget(button);
    }
}

}  // namespace quorlin::qt
