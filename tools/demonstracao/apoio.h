#pragma once

#include "platform/runtime/value.h"
#include "support/boxes.h"
#include "support/cadastro.h"

#include <QDir>

class QMainWindow;

/// What every subject does: choosing from the menu, telling a step, taking a picture, using a register.
namespace demonstracao
{

using cadastro::Fields;

/// Where pictures and printed pages go, and what the pictures' names end in.
void setResults(const QDir &folder, const QString &suffix);
const QDir &results();

/// The open window of that name; the demonstration ends where there is none.
ui::Form *form(const QString &name);
QMainWindow *mainWindow(); ///< nullptr before the login

/// Tells a step that went well; nothing when the running one has failed.
void done(const QString &step);

/// A picture of the widget's window, of the main window where none is given.
void picture(const QString &name, const QWidget *widget = nullptr);

/// Chooses an item of the menu; with the name of a window the item must open that one.
void choose(const QString &item);
ui::Form *choose(const QString &item, const QString &window);
void close(ui::Form *window); ///< by its button "Voltar"

runtime::Value value(const QString &select); ///< the first value of a statement that gives a row

// --- a register

/// Presses "Incluir", must be refused with this message, and fills the fields that it takes to go on.
void refused(ui::Form *window, support::Boxes &boxes, const QString &message, const Fields &then);

/// Presses a button and answers its question with yes.
void confirmed(ui::Form *window, support::Boxes &boxes, const QString &button, const QString &question);

/// Searches a text, must find one record, and clicks on its row.
void findOne(ui::Form *window, const QString &text);

/// Picks a record that a search finds, by Enter or by double click; the register must be gone then.
enum class By { Enter, DoubleClick };
void pick(const QString &window, const QString &text, By by);

/// Adds, finds, deletes: the steps that no register does otherwise.
void include(ui::Form *window, support::Boxes &boxes);
void erase(ui::Form *window, support::Boxes &boxes, const QString &table, const QString &text);

} // namespace demonstracao
