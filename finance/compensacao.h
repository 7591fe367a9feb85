#pragma once

#include <QString>

#include <optional>

/// Clearing a cheque, and taking that back.
namespace finance
{

/// What a cheque's posting needs of its row.
struct ChequeAlternado {
    qint32 codigo = 0;
    qint32 codOs = 0; ///< 0 where no order brought it
    float valor = 0;
};

/// Marks a cheque as cleared, or one that is cleared as not; nothing where its row is gone.
std::optional<ChequeAlternado> AlternaCheque(const QString &codigo);

/// Posts a cheque's value to the cash book as money that came in, whichever way it was turned: what was posted for one
/// that came back is taken out by hand. Error 13 for an empty book; nothing is written then.
void LancaCheque(const ChequeAlternado &cheque);

} // namespace finance
