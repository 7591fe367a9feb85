#pragma once

#include "documents/itens.h"

#include <QString>

#include <optional>

namespace documents
{

/// A document in the database: its table, that of its items, and the column there that holds its number.
struct DocumentoGravado {
    QStringView tabela;
    QStringView itens;
    QStringView coluna;
};

inline constexpr DocumentoGravado ordemGravada{u"OrdemServico", u"OSPecas", u"CodOS"};
inline constexpr DocumentoGravado orcamentoGravado{u"Orcamento", u"OrcaPecas", u"CodOrca"};

/// Adds all items of a new document, in their order; `tipo` is the PSA code that goes to the table.
void GravaItens(const DocumentoGravado &documento, qint32 numero, const std::vector<LinhaItem> &linhas);

/// What became of a change of an item. Nothing was written where the item or its document is gone.
enum class Mudanca { Gravada, SemItem, SemDocumento };

/// False for a document that somebody has deleted meanwhile.
bool ExisteDocumento(const DocumentoGravado &documento, qint32 numero);

/// Adds an item, then sets the document's `Valor`; gives the item's key. `tipo` is the PSA code that goes to the table.
/// Without the document nothing is written, so that no item is left alone.
std::optional<QString> AcrescentaItem(const DocumentoGravado &documento, qint32 numero, const LinhaItem &linha,
                                      const QString &total);

/// Deletes an item, then sets the document's `Valor`. False where the document is gone.
bool RemoveItem(const DocumentoGravado &documento, qint32 numero, const QString &chave, const QString &total);

/// Writes an item over the row that it was read from, then sets the document's `Valor`.
Mudanca AlteraItem(const DocumentoGravado &documento, qint32 numero, const QString &chave, const LinhaItem &linha,
                   const QString &total);

/// Deletes a document, then its items. What was posted for it elsewhere stays.
void ExcluiDocumento(const DocumentoGravado &documento, qint32 numero);

} // namespace documents
