#pragma once

#include "core/modulo.h"
#include "platform/runtime/error.h"
#include "platform/ui/form.h"
#include "platform/ui/listview.h"
#include "support/program.h"

#include <QClipboard>
#include <QComboBox>
#include <QGridLayout>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

/// What the tests of the registers share: a register is opened in a mode, its fields are filled from a table, its list
/// is used and read as texts. Everything goes by control names, with real events.
namespace cadastro
{

using Rows = std::vector<QStringList>;

/// Controls and their texts, in the order of filling and reading.
using Fields = QList<std::pair<QString, QString>>;

/// Opens a register as a caller does that wants it in a mode.
inline ui::Form *open(const QString &form, int mode = 0)
{
    core::ModoChamada = qint16(mode);
    return support::show(form);
}

inline bool isOpen(const QString &form)
{
    return ui::Forms::instance().find(form) != nullptr;
}

/// The control that has the window's focus; "" for none.
inline QString focusOf(ui::Form *form)
{
    QWidget *focus = form->focusWidget();
    return focus != nullptr ? form->controlOf(focus)->objectName() : QString();
}

/// Puts the focus into a control before a case begins that is not about how it got there.
inline void focus(ui::Form *form, const QString &control)
{
    support::controlOf(form, control)->setFocus();
    QCOMPARE(focusOf(form), control);
}

/// Picks an entry of a combo by the keyboard.
inline void choose(ui::Form *form, const QString &combo, int index)
{
    support::key(form, combo, Qt::Key_Home);
    for (int step = 0; step < index; ++step) {
        support::key(form, combo, Qt::Key_Down);
    }
    QCOMPARE(support::control<QComboBox>(form, combo)->currentIndex(), index);
}

/// Types every field and leaves it by Tab.
inline void fill(ui::Form *form, const Fields &fields)
{
    for (const auto &[name, value] : fields) {
        support::type(form, name, value);
    }
}

/// Puts a text into a field as the clipboard does, in place of what stands there; the field is not left.
inline void paste(ui::Form *form, const QString &field, const QString &text)
{
    QGuiApplication::clipboard()->setText(text);
    support::key(form, field, Qt::Key_A, Qt::ControlModifier);
    support::key(form, field, Qt::Key_V, Qt::ControlModifier);
}

/// What the fields of the table show, for one comparison with the table.
inline Fields shown(ui::Form *form, const Fields &fields)
{
    Fields all;
    for (const auto &[name, value] : fields) {
        all.append({name, support::text(form, name)});
    }
    return all;
}

/// A table of fields with one value changed.
inline Fields with(Fields fields, const QString &name, const QString &value)
{
    for (auto &field : fields) {
        if (field.first == name) {
            field.second = value;
        }
    }
    return fields;
}

// --- the list

inline ui::ListView *list(QWidget *form, const QString &name = QStringLiteral("Lista"))
{
    return support::control<ui::ListView>(form, name);
}

inline Rows rowsOf(QWidget *form)
{
    Rows all;
    for (int row = 0; row < list(form)->count(); ++row) {
        QStringList cells;
        for (int column = 0; column < list(form)->columnCount(); ++column) {
            cells << list(form)->item(row).subItem(column);
        }
        all.push_back(cells);
    }
    return all;
}

/// The texts of one column, from above; column 0 holds the codes.
inline QStringList columnOf(QWidget *form, int column = 0)
{
    QStringList texts;
    for (int row = 0; row < list(form)->count(); ++row) {
        texts << list(form)->item(row).subItem(column);
    }
    return texts;
}

inline QStringList titlesOf(QWidget *form)
{
    QStringList titles;
    for (int column = 0; column < list(form)->columnCount(); ++column) {
        titles << list(form)->model()->headerData(column, Qt::Horizontal).toString();
    }
    return titles;
}

/// The point of a row, in the coordinates of its window.
inline QPoint placeOfRow(QWidget *form, int row)
{
    auto *view = list(form);
    view->ensureVisible(row);
    const QPoint place = view->visualRect(view->model()->index(row, 0)).center();
    return view->viewport()->mapTo(view->window(), place);
}

inline void clickRow(QWidget *form, int row)
{
    const QPoint place = placeOfRow(form, row);
    QTest::mouseClick(form->window()->windowHandle(), Qt::LeftButton, {}, place);
    QCOMPARE(list(form)->selectedRow(), row);
}

inline void doubleClickRow(QWidget *form, int row)
{
    const QPoint place = placeOfRow(form, row);
    QTest::mouseDClick(form->window()->windowHandle(), Qt::LeftButton, {}, place);
}

inline void clickHeader(QWidget *form, int column)
{
    auto *view = list(form);
    view->scrollTo(view->model()->index(0, column));
    auto *header = view->header();
    const QPoint place(header->sectionViewportPosition(column) + header->sectionSize(column) / 2, header->height() / 2);
    QTest::mouseClick(form->window()->windowHandle(), Qt::LeftButton, {},
                      header->viewport()->mapTo(form->window(), place));
}

// --- around the window

/// The text of the box that an untrapped run-time error shows.
inline QString errorBox(int number, const QString &description)
{
    return QStringLiteral("Erro em tempo de execução '%1':\n\n%2").arg(number).arg(description);
}

/// The same for an error with a standing text.
inline QString errorBox(int number)
{
    return errorBox(number, runtime::errorText(number));
}

/// The same for the error that a statement raises; "" where it succeeds.
inline QString errorBox(const QString &statement)
{
    try {
        core::DBDados->OpenRecordset(statement);
    } catch (const runtime::RuntimeError &error) {
        return errorBox(error.number(), error.description());
    }
    return {};
}

/// The controls that Tab reaches from the first one on, as many as asked for.
inline QStringList tabOrder(ui::Form *form, const QString &first, qsizetype count)
{
    QStringList order;
    support::controlOf(form, first)->setFocus();
    while (order.size() < count) {
        order << focusOf(form);
        support::key(form, order.last(), Qt::Key_Tab);
    }
    return order;
}

/// Stands in for a window that is not under test: controls of given names and no rules. A name that begins with "lbl"
/// is a label, any other a text box.
class StandIn : public ui::Form
{
public:
    StandIn(const QString &name, const QStringList &controls) : Form(name)
    {
        modeAtLoad = core::ModoChamada;
        auto *grid = new QGridLayout(this);
        for (const QString &control : controls) {
            QWidget *widget = control.startsWith(QLatin1String("lbl")) ? static_cast<QWidget *>(new QLabel(this))
                                                                       : new QLineEdit(this);
            widget->setObjectName(control);
            grid->addWidget(widget);
        }
    }

    /// `ModoChamada` when a stand-in was loaded last.
    static inline qint16 modeAtLoad = -1;
};

/// Makes a stand-in known under a name, in place of the window of that name if there is one.
inline void standIn(const QString &name, const QStringList &controls)
{
    ui::Forms::instance().add(name, [name, controls] { return new StandIn(name, controls); });
}

} // namespace cadastro
