#pragma once

#include <optional>
#include <vector>

#include "ports/platform_ports.h"
#include "model/window_model.h"

namespace quorlin {

// Taking the current reference picture from the screen and drawing it in picScreen.
class PictureCapture {
public:
    PictureCapture(WindowModel& model, Ports ports) : m_(model), p_(ports) {}

    bool ValidatePictureRect() const;
    // Takes the rectangle of the four fields from the screen into the current picture.
    void cmdGetPic_Click();
    // Draws the current picture into the picture box again.
    void Form_Paint();

private:
    std::optional<ScreenRect> requestedRect() const;
    void store(const ScreenRect& rect);
    void drawPicture(int lastX, int lastY);

    WindowModel& m_;
    Ports p_;
    std::vector<Colour> buffer_;
};

}  // namespace quorlin
