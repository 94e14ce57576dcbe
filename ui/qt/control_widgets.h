#pragma once

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

// Draws the picture box's content one picture pixel per device pixel. Before each paint
// the window gets the chance to draw its picture again, as a covered window repaints.
class PictureBoxWidget : public QWidget {
public:
    PictureBoxWidget(const PictureBox& box, QWidget* parent) : QWidget(parent), box_(box) {}
    std::function<void()> beforePaint;
    bool painting() const { return painting_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const PictureBox& box_;
    bool painting_ = false;
};

// The up and down arrows of a spin button.
class SpinArrows : public QWidget {
public:
    SpinArrows(std::function<void(int)> onStep, QWidget* parent);
};

}  // namespace quorlin::qt
