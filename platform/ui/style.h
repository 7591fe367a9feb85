#pragma once

#include <QProxyStyle>

namespace ui
{

/// The program's look: one drawn style on every desktop. On a dark palette the marks of check boxes and options
/// get an outline, which the drawn style leaves as dark as the ground.
class Style : public QProxyStyle
{
    Q_OBJECT

public:
    Style();

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
};

/// True where the palette's windows are dark.
bool isDark(const QPalette &palette);

} // namespace ui
