#pragma once

#include <QString>

/// Orders whose customer pays later, and their settling. No window is needed: texts as the list shows them.
namespace finance
{

/// What the settling of a pending order found; each that was there has been marked.
enum class Pendencia { SemOrdem, SoOrdem, Completa };

/// Marks an order as paid, then its pending row, or takes the marks back: each goes by its own state. Where the order
/// is gone, or `codOs` is no number, nothing is touched; where only the row is gone, the order stays marked.
Pendencia AlternaPendencia(const QString &codOs, const QString &codigo);

/// Posts the value of a pending order to the cash book, behind a balance that is looked up: error 13 for an empty book,
/// and nothing is posted then.
void LancaPendencia(const QString &codOs, const QString &valor);

} // namespace finance
