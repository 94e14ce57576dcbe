#pragma once

#include <QIcon>
#include <QImage>
#include <QPixmap>

namespace quorlin::qt {

// Quorlin's own pictures, drawn at start-up.
QPixmap logoPixmap();        // 108 x 96
QPixmap helpPixmap();        // 19 x 20
QIcon windowIcon();          // 32 x 32
QImage iconImage(int size);  // the window icon's picture, size x size, for the desktop's icon themes

}  // namespace quorlin::qt
