#pragma once

#include <QDateEdit>
#include <QIcon>
#include <QLabel>

namespace ui
{

/// A label whose caption tells when it changes, as the windows use labels to hold their state.
class Label : public QLabel
{
    Q_OBJECT

public:
    using QLabel::QLabel;

    void setText(const QString &text);

signals:
    void textChanged(const QString &text);
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

/// A themed icon by its freedesktop name, with a drawn one of the program where the theme lacks it.
QIcon icon(const QString &name);

} // namespace ui
