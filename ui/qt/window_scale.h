#pragma once

#include <QFont>
#include <QProxyStyle>
#include <QRect>

#include "form/layout.h"

class QScreen;

namespace quorlin::qt {

// Twips and points in device pixels at one density, so that the whole window grows
// with the screen: pixels = twips x DPI / 1440, fonts at their point sizes.
class WindowScale {
public:
    explicit WindowScale(double dpi) : dpi_(dpi) {}

    // How much larger than at 96 DPI.
    double factor() const;
    int pixels(int twips) const;
    // A length that is so many pixels at 96 DPI.
    int scaled(int pixelsAt96) const;
    // Both edges rounded, so that neighbours keep meeting where they meet in twips.
    QRect rect(const TwipsRect& r) const;
    QFont font(FontRole role) const;

private:
    double dpi_;
};

// The density the window is drawn at: the desktop's setting (Xft.dpi). Without one Qt
// reports 96, and then a monitor that is clearly high density gives its own.
double screenDpi(const QScreen* screen);

// The platform's style with the indicators and spacings that scale with the window.
class WindowStyle : public QProxyStyle {
public:
    explicit WindowStyle(const WindowScale& scale) : scale_(scale) {}
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;

private:
    WindowScale scale_;
};

}  // namespace quorlin::qt
