#pragma once

#include <QMainWindow>
#include <QPointer>
#include <array>
#include <optional>

#include "window/frm_main.h"
#include "form/layout.h"

class QStyle;

namespace quorlin::qt {

class TrackGridView;
class WindowScale;

// frmMain drawn with Qt widgets: it shows core's state and hands every widget event
// to its reaction; it decides nothing itself. Without a given density the window is
// drawn at its screen's and follows it to another screen.
class MainWindow : public QMainWindow, private FormObserver {
public:
    explicit MainWindow(FrmMain& frm, std::optional<double> dpi = std::nullopt);
    ~MainWindow() override;

    QWidget* widgetFor(Ctl id) const { return widgets_[indexOf(id)]; }
    TrackGridView* grid() const;

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void controlChanged(Ctl id) override;
    void gridChanged() override;
    void pictureBoxChanged() override;

    void buildMenu();
    QWidget* createControl(const ControlLayout& layout, QWidget* parent);
    QWidget* createPictureBox(const ControlLayout& layout, QWidget* parent);
    void connectControl(const ControlLayout& layout, QWidget* widget);
    void applyLook(const ControlLayout& layout, QWidget* widget);
    void applyScale(double dpi);
    void applyStyle(const WindowScale& scale);
    void scalePictures(const WindowScale& scale);
    void watchWindow(bool followScreen);
    void pressButton(Ctl id);

    FrmMain& frm_;
    std::array<QWidget*, kControlCount> widgets_{};
    QPointer<QStyle> style_;
    bool syncing_ = false;
};

}  // namespace quorlin::qt
