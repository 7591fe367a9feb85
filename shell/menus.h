#pragma once

#include <QString>

class QMenuBar;
class QToolBar;

namespace shell
{

/// Builds the menus. A menu and its action carry the same name; items that are not available are disabled.
void montaMenus(QMenuBar &barra);

/// Builds the toolbar over finished menus, as actions (and buttons) named after the toolbar and their number. A button
/// whose item is disabled is disabled with it.
void montaBarra(QToolBar &barra, QMenuBar &menuBar);

/// For an operator who is no administrator: movements, settings and reports become unavailable, as their buttons.
void fechaAoUsuario(QMenuBar &menuBar, QToolBar &barra);

/// Makes the items of a customisation available for its code only ("1-1" book of origin, "2-2" notes).
void personaliza(QMenuBar &menuBar, const QString &codigo);

} // namespace shell
