#pragma once

#include "window/ports.h"
#include "window/window_model.h"

namespace quorlin {

// Taking the current reference picture from the screen and drawing it in picScreen.
class PictureCapture {
public:
    PictureCapture(WindowModel& model, Ports ports) : m_(model), p_(ports) {}

    bool ValidatePictureRect() const;
    void cmdGetPic_Click();
    void Form_Paint();

private:
    WindowModel& m_;
    Ports p_;
};

}  // namespace quorlin
