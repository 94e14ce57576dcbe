#pragma once

#include <windows.h>

#include <array>
#include <string>

#include "grid_view.h"
#include "picture_box_view.h"
#include "window/frm_main.h"
#include "form/layout.h"
#include "window_geometry.h"

namespace quorlin::win32 {

// frmMain drawn with native controls: it shows core's state and hands every control's
// notification to its reaction; it decides nothing itself.
class MainWindow : private FormObserver {
public:
    explicit MainWindow(FrmMain& frm);
    ~MainWindow() override;
    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;

    HWND handle() const { return hwnd_; }
    HWND control(Ctl id) const { return controls_[indexOf(id)]; }
    void show(int showCommand);

private:
    static LRESULT CALLBACK windowProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT handleMessage(UINT message, WPARAM wParam, LPARAM lParam);

    void createControls();
    void stackControls();
    void applyDpi(UINT dpi, const RECT* suggested);
    void onCommand(int id, int code);
    LRESULT onNotify(const NMHDR& header);
    LRESULT onControlColour(UINT message, WPARAM wParam, LPARAM lParam);
    void pressButton(Ctl id);

    void controlChanged(Ctl id) override;
    void gridChanged() override;
    void pictureBoxChanged() override;

    FrmMain& frm_;
    HWND hwnd_ = nullptr;
    std::array<HWND, kControlCount> controls_{};
    WindowFonts fonts_;
    GridView grid_;
    PictureBoxView pictureBox_;
    HBITMAP logo_ = nullptr;
    HBITMAP helpImage_ = nullptr;
    HICON bigIcon_ = nullptr;
    HICON smallIcon_ = nullptr;
    HBRUSH red_ = nullptr;
    HBRUSH lightYellow_ = nullptr;
    UINT dpi_ = USER_DEFAULT_SCREEN_DPI;
    bool syncing_ = false;
};

}  // namespace quorlin::win32
