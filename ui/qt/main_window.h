#pragma once

#include <QMainWindow>
#include <array>

#include "window/frm_main.h"
#include "form/layout.h"

class QTableWidget;

namespace quorlin::qt {

class PictureBoxWidget;

// frmMain drawn with Qt widgets: it shows core's state and hands every widget event
// to its reaction; it decides nothing itself.
class MainWindow : public QMainWindow, private FormObserver {
public:
    explicit MainWindow(FrmMain& frm);
    ~MainWindow() override;

    QWidget* widgetFor(Ctl id) const { return widgets_[indexOf(id)]; }
    QTableWidget* grid() const;

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
    void pressButton(Ctl id);
    void showGridCell(int row, int col);

    FrmMain& frm_;
    std::array<QWidget*, kControlCount> widgets_{};
    bool syncing_ = false;
};

}  // namespace quorlin::qt
