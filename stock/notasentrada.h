#pragma once

#include <QString>

#include <optional>

/// The suppliers' notes once they stand: what marks them as paid, their observations, their end. No window is needed,
/// and nothing else is touched: neither a cash book nor an account, and of the stock nothing is taken back.
namespace stock
{

/// The mark of a note; nothing where the note is gone.
std::optional<bool> NotaPaga(qint32 codigo);

// One note, as the query of all notes marks it. False where it is gone; nothing is written then.

/// Paid on a day that the user has typed. Any other text leaves the day as it was: empty, or that of an earlier
/// payment.
bool PagaNota(qint32 codigo, const QString &dia);
/// Unpaid, and without a day.
bool DesfazPagamento(qint32 codigo);

// The same by the check boxes of the query of one supplier, where a day has no time of day.

bool MarcaPaga(qint32 codigo, const QString &dia);
bool MarcaNaoPaga(qint32 codigo);

/// One of all the notes that are marked together: the day of payment stays as it is, whichever way.
bool MarcaSemData(qint32 codigo, bool paga);

/// "dd/mm/yyyy", or "" for a note without a day of payment, or that is gone.
QString DiaDoPagamento(qint32 codigo);

/// Written in capitals, and as much of it as the column holds. Gives what was written; nothing where the note is gone.
std::optional<QString> GravaObservacoes(qint32 codigo, const QString &texto);

/// Deletes a note, then its lines. What it posted to the stock stays, and so do the costs that it brought.
void ExcluiNota(qint32 codigo);

} // namespace stock
