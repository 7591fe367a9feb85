#pragma once

#include <QString>

class QWidget;

namespace core
{

/// Writes what is stored into a box or a combo: a text that is longer than it shows its beginning.
void EscreveTexto(QWidget *caixa, const QString &texto);

} // namespace core
