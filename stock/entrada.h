#pragma once

#include "documents/documentogravado.h"

#include <QString>

#include <vector>

/// The receipt of parts without its window: a supplier's note on its way into the tables.
namespace stock
{

/// Where notes stand.
inline constexpr documents::DocumentoGravado notaGravada{u"NotasEntradas", u"NotasPecas", u"CodNota"};

/// A supplier's note as its window shows it, every value as text.
struct NotaDeEntrada {
    QString codFornecedor;
    QString observacoes;
    QString valor;                            ///< the total
    std::vector<documents::LinhaItem> linhas; ///< a free line has the code "0000" and the type "A"
};

/// Writes the note, dated today, and gives its number: header, all lines, then line by line the part's cost, which the
/// note's replaces, and the entry in its ledger. A line whose part is gone, without a ledger or without stock control
/// posts nothing. No transaction: what was written before a failure stays.
qint32 IncluiNota(const NotaDeEntrada &nota);

} // namespace stock
