#include "artwork.h"

#include <QFont>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <cmath>

namespace quorlin::qt {

namespace {

// A mouse pointer over a target ring: the emblem of the logo and the icon.
void drawEmblem(QPainter& p, QRectF area) {
    p.setRenderHint(QPainter::Antialiasing);
    const QPointF centre = area.center();
    const qreal r = std::min(area.width(), area.height()) / 2 - 1;
    p.setPen(QPen(QColor(200, 30, 30), r / 6));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(centre, r * 0.85, r * 0.85);
    p.drawEllipse(centre, r * 0.4, r * 0.4);
    QPainterPath arrow;
    const qreal s = r / 10;
    arrow.moveTo(centre);
    arrow.lineTo(centre + QPointF(0, 9 * s));
    arrow.lineTo(centre + QPointF(2.3 * s, 6.8 * s));
    arrow.lineTo(centre + QPointF(4 * s, 10 * s));
    arrow.lineTo(centre + QPointF(5.5 * s, 9.3 * s));
    arrow.lineTo(centre + QPointF(3.8 * s, 6.2 * s));
    arrow.lineTo(centre + QPointF(6.8 * s, 6.2 * s));
    arrow.closeSubpath();
    p.setPen(QPen(Qt::black, std::max<qreal>(1, s / 2)));
    p.setBrush(Qt::white);
    p.drawPath(arrow);
}

void drawLabel(QPainter& p, QRectF area, int pixelSize, QColor colour, const QString& text) {
    QFont font("DejaVu Sans");
    font.setPixelSize(pixelSize);
    font.setBold(true);
    p.setFont(font);
    p.setPen(colour);
    p.drawText(area, Qt::AlignCenter, text);
}

QPixmap transparentPixmap(int width, int height, double scale = 1) {
    QPixmap pixmap(static_cast<int>(std::lround(width * scale)), static_cast<int>(std::lround(height * scale)));
    pixmap.fill(Qt::transparent);
    return pixmap;
}

}  // namespace

QPixmap logoPixmap(double scale) {
    QPixmap pixmap = transparentPixmap(108, 96, scale);
    QPainter p(&pixmap);
    p.scale(scale, scale);
    drawEmblem(p, QRectF(24, 4, 60, 60));
    drawLabel(p, QRectF(0, 66, 108, 26), 17, QColor(40, 40, 110), "Quorlin");
    return pixmap;
}

QPixmap helpPixmap(double scale) {
    QPixmap pixmap = transparentPixmap(19, 20, scale);
    QPainter p(&pixmap);
    p.scale(scale, scale);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(40, 90, 200));
    p.drawEllipse(QRectF(0.5, 1, 18, 18));
    drawLabel(p, QRectF(0, 1, 19, 19), 14, Qt::white, "?");
    return pixmap;
}

QIcon quorlinIcon() { return QIcon(QPixmap::fromImage(iconImage(32))); }

// Drawn into an image, not a pixmap, so that a build step can draw it with no display.
QImage iconImage(int size) {
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter p(&image);
    drawEmblem(p, QRectF(0, 0, size, size));
    return image;
}

}  // namespace quorlin::qt
