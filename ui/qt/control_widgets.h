#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QWidget>
#include <functional>

#include "model/picture_box.h"

namespace quorlin::qt {

// A label that reports clicks (the logo).
class ClickableLabel : public QLabel {
public:
    using QLabel::QLabel;
    std::function<void()> onClick;

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
};

// A frame drawn the classic way: its border runs through the middle of the caption's
// line, so the controls placed just below the caption stay clear of it.
class ClassicFrame : public QGroupBox {
public:
    using QGroupBox::QGroupBox;
    // Where the caption is written, and the room it may take.
    QRect titleRect() const;
    QSize titleRoom() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int titleInset() const;
};

// Shows what is drawn in the picture box, one picture pixel per device pixel.
class PictureBoxWidget : public QWidget {
public:
    PictureBoxWidget(const PictureBox& box, QWidget* parent) : QWidget(parent), box_(box) {}

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const PictureBox& box_;
};

// The up and down arrows of a spin button. They take no focus: the buddy field is
// where the keyboard enters the number.
class SpinArrows : public QWidget {
public:
    SpinArrows(std::function<void(int)> onStep, QWidget* parent);
};

}  // namespace quorlin::qt
