#pragma once

#include <QIcon>
#include <QImage>
#include <QPixmap>

namespace quorlin::qt {

// Quorlin's own pictures, drawn at start-up; scale 1 gives their sizes at 96 DPI.
QPixmap logoPixmap(double scale);  // 108 x 96
QPixmap helpPixmap(double scale);  // 19 x 20
QIcon quorlinIcon();               // 32 x 32
QImage iconImage(int size);        // the window icon's picture, size x size, for the desktop's icon themes

}  // namespace quorlin::qt
