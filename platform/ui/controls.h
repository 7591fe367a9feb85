#pragma once

#include <QDateEdit>
#include <QIcon>
#include <QLabel>
#include <QStyleOptionFrame>

#include <optional>

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
/// selected, so that digits type over it; Tab leaves the whole. Digits typed in a row are the date that they say: a day
/// that the month on show does not have counts as soon as a month or a year that has it is typed behind it.
class DTPicker : public QDateEdit
{
    Q_OBJECT

public:
    explicit DTPicker(QWidget *parent = nullptr);

protected:
    bool focusNextPrevChild(bool next) override;
    bool eventFilter(QObject *object, QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    /// A first digit that another one may follow: what stood there before it, and what it has made of the text.
    struct Tens {
        Section section;
        int digit;
        QDate before;
        QString text;
    };

    void typeDigit(QKeyEvent *event);
    void typeTens(QKeyEvent *event, Section section, int digit);
    void typeYear(QKeyEvent *event);
    void endTens();
    void endYear();
    void put(Section section, int number, const QDate &before);
    void showDay(const QDate &month, int day);
    int dayOf(const QDate &date) const { return date == shown_ ? typedDay_ : date.day(); }

    std::optional<Tens> tens_;
    int typedDay_ = 0; ///< the day that was typed for the date on show
    QDate shown_;
};

/// A picture of the program's own set (`icones.txt`) by its name; an empty frame for a name that is not in it.
QIcon icon(const QString &name);

} // namespace ui
