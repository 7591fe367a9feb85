#pragma once

#include <QString>

#include <optional>

class QWidget;

namespace ui
{

enum class Icon { None, Critical, Question, Exclamation, Information };

/// The title of every box from here on, where the call gives none: the workshop's name.
void setBoxTitle(const QString &title);
QString boxTitle();

/// Shows a box with OK and waits for it. A real QMessageBox, modal above the active window.
void MsgBox(const QString &text, Icon icon, const QString &title = boxTitle());

/// A Yes/No question with the question icon; true for Yes. Yes is the default button, Esc is No.
bool Confirm(const QString &text, const QString &title = boxTitle());

/// A box with OK and Cancel; true for OK.
bool ConfirmOk(const QString &text, Icon icon, const QString &title = boxTitle());

/// A real QInputDialog. Cancel and an empty answer are both "".
QString InputBox(const QString &prompt, const QString &title = boxTitle(), const QString &defaultText = {});

/// A value that the user has to read out while a box is open: boxes come up beside it.
void keepVisible(QWidget *value);

/// A critical box behind which the program closes, and says so below its text. It returns even when the program has
/// ended.
void ClosingBox(const QString &text, const QString &title = boxTitle());

} // namespace ui
