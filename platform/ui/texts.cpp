#include "platform/runtime/dates.h"
#include "platform/runtime/numbers.h"
#include "platform/ui/controls.h"
#include "platform/ui/form.h"

#include <QComboBox>
#include <QDateTimeEdit>
#include <QGroupBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QTextEdit>

#include <algorithm>

namespace ui
{

namespace
{

constexpr auto tagProperty = "tag";

/// The entry of that text is chosen; a text that is no entry leaves none chosen.
void setComboText(QComboBox *combo, const QString &text)
{
    const int entry = combo->findText(text);
    if (entry >= 0 || !combo->isEditable()) {
        combo->setCurrentIndex(entry);
        return;
    }
    const auto before = combo->currentText();
    {
        const QSignalBlocker quiet(combo);
        const QSignalBlocker quietEdit(combo->lineEdit());
        combo->setCurrentIndex(-1);
        combo->setEditText(before);
    }
    combo->setEditText(text);
}

void setDateText(QDateTimeEdit *edit, const QString &text)
{
    if (const auto date = runtime::parseDate(text)) {
        edit->setDate(runtime::toDateTime(*date).date()); // a moment would be taken over into another time zone
    }
}

void setNumberText(QSpinBox *box, const QString &text)
{
    if (const auto number = runtime::parseNumber(text)) {
        box->setValue(int(std::clamp(*number, double(box->minimum()), double(box->maximum()))));
    }
}

} // namespace

QString textOf(const QWidget *control)
{
    if (const auto *edit = qobject_cast<const QLineEdit *>(control)) {
        return edit->text();
    }
    if (const auto *plain = qobject_cast<const QPlainTextEdit *>(control)) {
        return plain->toPlainText();
    }
    if (const auto *rich = qobject_cast<const QTextEdit *>(control)) {
        return rich->toPlainText();
    }
    if (const auto *combo = qobject_cast<const QComboBox *>(control)) {
        return combo->currentText();
    }
    if (const auto *label = qobject_cast<const QLabel *>(control)) {
        return label->text();
    }
    if (const auto *button = qobject_cast<const QAbstractButton *>(control)) {
        return button->text();
    }
    if (const auto *spin = qobject_cast<const QAbstractSpinBox *>(control)) {
        return spin->text();
    }
    if (const auto *group = qobject_cast<const QGroupBox *>(control)) {
        return group->title();
    }
    return control->windowTitle();
}

void setTextOf(QWidget *control, const QString &text)
{
    if (auto *edit = qobject_cast<QLineEdit *>(control)) {
        edit->setText(text);
    } else if (auto *plain = qobject_cast<QPlainTextEdit *>(control)) {
        plain->setPlainText(text);
    } else if (auto *rich = qobject_cast<QTextEdit *>(control)) {
        rich->setPlainText(text);
    } else if (auto *combo = qobject_cast<QComboBox *>(control)) {
        setComboText(combo, text);
    } else if (auto *telling = qobject_cast<Label *>(control)) {
        telling->setText(text);
    } else if (auto *label = qobject_cast<QLabel *>(control)) {
        label->setText(text);
    } else if (auto *button = qobject_cast<QAbstractButton *>(control)) {
        button->setText(text);
    } else if (auto *date = qobject_cast<QDateTimeEdit *>(control)) {
        setDateText(date, text);
    } else if (auto *spin = qobject_cast<QSpinBox *>(control)) {
        setNumberText(spin, text);
    } else if (auto *group = qobject_cast<QGroupBox *>(control)) {
        group->setTitle(text);
    } else {
        control->setWindowTitle(text);
    }
}

QString tagOf(const QWidget *control)
{
    return control->property(tagProperty).toString();
}

void setTagOf(QWidget *control, const QString &tag)
{
    control->setProperty(tagProperty, tag);
}

} // namespace ui
