#include "window_scale.h"

#include <QScreen>
#include <cmath>

namespace quorlin::qt {

namespace {
constexpr double kTwipsPerInch = 1440;
constexpr double kPointsPerInch = 72;
constexpr double kPlainDpi = 96;
constexpr double kDenseScreenDpi = 144;
constexpr double kImplausibleDpi = 600;
}  // namespace

int WindowScale::pixels(int twips) const { return static_cast<int>(std::lround(twips * dpi_ / kTwipsPerInch)); }

double WindowScale::factor() const { return dpi_ / kPlainDpi; }

int WindowScale::scaled(int pixelsAt96) const { return static_cast<int>(std::lround(pixelsAt96 * factor())); }

QRect WindowScale::rect(const TwipsRect& r) const {
    const int left = pixels(r.left);
    const int top = pixels(r.top);
    return {left, top, pixels(r.left + r.width) - left, pixels(r.top + r.height) - top};
}

// The classic families come first; the nearest installed ones stand in where they are missing.
QFont WindowScale::font(FontRole role) const {
    QFont font;
    if (role == FontRole::BoldTahoma) font.setFamilies({"Tahoma", "Liberation Sans", "DejaVu Sans"});
    else font.setFamilies({"MS Sans Serif", "Microsoft Sans Serif", "Liberation Sans", "DejaVu Sans"});
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(8.25 * dpi_ / kPointsPerInch))));
    font.setBold(role != FontRole::Default);
    return font;
}

double screenDpi(const QScreen* screen) {
    if (!screen) return kPlainDpi;
    const double logical = screen->logicalDotsPerInchY();
    const double physical = screen->physicalDotsPerInchY();
    if (logical == kPlainDpi && physical >= kDenseScreenDpi && physical < kImplausibleDpi) return physical;
    return logical;
}

int WindowStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
        case PM_ExclusiveIndicatorWidth:
        case PM_ExclusiveIndicatorHeight:
        case PM_IndicatorWidth:
        case PM_IndicatorHeight: return scale_.scaled(13);
        case PM_RadioButtonLabelSpacing:
        case PM_CheckBoxLabelSpacing: return scale_.scaled(4);
        case PM_ScrollBarExtent: return scale_.scaled(16);
        default: return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

}  // namespace quorlin::qt
