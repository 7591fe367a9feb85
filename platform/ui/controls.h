#pragma once

#include <QDateEdit>
#include <QIcon>
#include <QLabel>

namespace ui {

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

/// The date picker: "dd/mm/yyyy" with a calendar.
class DTPicker : public QDateEdit
{
    Q_OBJECT

public:
    explicit DTPicker(QWidget *parent = nullptr);
};

/// A themed icon by its freedesktop name, with a drawn one of the program where the theme lacks it.
QIcon icon(const QString &name);

} // namespace ui
