#pragma once

#include "documents/itens.h"

#include <QStringView>

namespace dao
{
class Recordset;
}

namespace documents
{

/// An item as its table holds it: the letter that names its list, the row as the list shows it, and its key.
struct ItemGravado {
    QString psa;
    LinhaItem linha;
    QString chave;
};

/// The items that a statement over `OSPecas`, `OrcaPecas` or `NotasPecas` brings, quantities formatted by the `UM` of
/// their parts. What was never written counts as 0.
std::vector<ItemGravado> LeItens(const QString &consulta);

/// Writes code, quantity, description, unit value and PSA code of an item into the row that is open for it.
void GravaColunas(dao::Recordset &item, const LinhaItem &linha);

/// Adds one item to `itens`, an open table of items, under the number of its document in the column `coluna`, and gives
/// its key. `tipo` is the PSA code that goes to the table.
QString GravaItem(dao::Recordset &itens, QStringView coluna, qint32 numero, const LinhaItem &linha);

} // namespace documents
