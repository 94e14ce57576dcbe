#pragma once

#include <windows.h>

#include <functional>

#include "model/picture_box.h"

namespace quorlin::win32 {

// The child window that shows the picture box picScreen, one picture pixel per device
// pixel. Before each paint the window gets the chance to draw its picture again, as a
// covered window repaints.
class PictureBoxView {
public:
    PictureBoxView(const PictureBox& box, std::function<void()> beforePaint);

    HWND create(HWND parent, int id);
    bool painting() const { return painting_; }

private:
    static LRESULT CALLBACK windowProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
    void paint(HWND hwnd);

    const PictureBox& box_;
    std::function<void()> beforePaint_;
    bool painting_ = false;
};

}  // namespace quorlin::win32
