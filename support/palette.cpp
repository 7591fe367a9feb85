#include "support/palette.h"

#include <QApplication>
#include <QColor>
#include <QStyle>

#include <algorithm>
#include <cmath>

namespace support
{

namespace
{

/// A channel as the light that it gives.
double light(double channel)
{
    return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor &color)
{
    return 0.2126 * light(color.redF()) + 0.7152 * light(color.greenF()) + 0.0722 * light(color.blueF());
}

} // namespace

double contrast(const QColor &text, const QColor &ground)
{
    const auto [darker, lighter] = std::minmax({luminance(text), luminance(ground)});
    return (lighter + 0.05) / (darker + 0.05);
}

QPalette darkPalette()
{
    const QColor window(49, 54, 59);
    const QColor base(35, 38, 41);
    const QColor text(239, 240, 241);
    const QColor greyed(120, 124, 128);
    QPalette palette(text, window, window.lighter(140), window.darker(160), window.darker(120), text, Qt::white, base,
                     window);
    palette.setColor(QPalette::AlternateBase, window);
    palette.setColor(QPalette::Highlight, QColor(61, 142, 201));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::ToolTipBase, window);
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::PlaceholderText, greyed);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, greyed);
    }
    QApplication::style()->polish(palette); // as Qt does with the desktop's
    return palette;
}

} // namespace support
