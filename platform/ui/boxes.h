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

/// The box of `MsgBox` for the program's end: it returns even when the program has ended.
void showBox(const QString &text, Icon icon, const QString &title);

} // namespace ui
