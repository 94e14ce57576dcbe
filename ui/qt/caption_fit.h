#pragma once

#include <QFont>
#include <QSize>
#include <QString>

class QWidget;

namespace quorlin::qt {

struct FittedCaption {
    QString text;  // the caption, possibly wrapped at one blank onto two lines
    QFont font;
};

// The caption at the largest font, from the given one down, that fits the room on one
// line or wrapped onto two; a word is never cut.
FittedCaption fitCaption(const QString& caption, QFont font, QSize room);

// Gives the control its caption as it fits the box the control has now.
void showFittedCaption(QWidget* control, const QString& caption);

}  // namespace quorlin::qt
