#pragma once

#include <QDateEdit>
#include <QIcon>
#include <QLabel>
#include <QStyleOptionFrame>

namespace ui
{

/// A label whose caption tells when it changes, as the windows use labels to hold their state. With a frame it is a
/// value: it looks like a box that can't be typed in, its size follows from the font and its sample (`sampleWidth`),
/// never from the text that it happens to hold, and a text that is too long for it ends in dots.
class Label : public QLabel
{
    Q_OBJECT

public:
    using QLabel::QLabel;

    void setText(const QString &text);

    /// True where the value is longer than its box.
    bool isCut() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    void textChanged(const QString &text);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    bool isValue() const { return frameShape() != QFrame::NoFrame; }
    QStyleOptionFrame panel() const;
    QRect room() const;
    int wrapping() const { return wordWrap() ? int(Qt::TextWordWrap) : int(Qt::TextSingleLine); }
    QSize valueSize() const;
};

/// The date picker: "dd/mm/yyyy" with a calendar, today at first. The part that is entered (day, month, year) is
/// selected, so that digits type over it; Tab leaves the whole.
class DTPicker : public QDateEdit
{
    Q_OBJECT

public:
    explicit DTPicker(QWidget *parent = nullptr);

protected:
    bool focusNextPrevChild(bool next) override;
    bool eventFilter(QObject *object, QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
};

/// A picture of the program's own set (`icones.txt`) by its name; an empty frame for a name that is not in it.
QIcon icon(const QString &name);

} // namespace ui
