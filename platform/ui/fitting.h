#pragma once

#include <QObject>
#include <QString>

class QPoint;
class QWidget;

namespace ui
{

/// How wide the text is that a box is made for: its property "amostra" in the layout file, a value as long as it will
/// ever hold ("88/88/8888"), in the box's present font. 0 for a box that takes what the layout gives.
int sampleWidth(const QWidget *box);

/// The text that a box, a combo or a value shows only in part, as it is narrower than that; empty where all is seen. A
/// password is never told.
QString cutText(const QWidget *box);

/// Shows a whole text as a tool tip, above the tip that the control has of its own.
void showWhole(const QPoint &place, const QString &text, QWidget *control);

/// Enlarges the font of a control by its property "ampliacao", in per cent of the program's font.
void enlarge(QWidget *control);

/// What all boxes have in common, wherever they stand: a text that is cut is told by a tool tip, a text of several
/// lines that can't be typed in has the ground of a value, an enlarged text follows the program's font.
class Fitting : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    void watch(QWidget *widget);

protected:
    bool eventFilter(QObject *object, QEvent *event) override;
};

} // namespace ui
