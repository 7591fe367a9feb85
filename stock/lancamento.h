#pragma once

#include "platform/dao/recordset.h"

#include <QString>

/// The ledger of a part without its window: the last row taken back, the rows of a period.
namespace stock
{

/// Deletes the part's newest row, whatever wrote it: the balance before it is the current one again. Nothing for a
/// part without rows.
void ExcluiUltimo(const QString &codPeca);

/// The part's rows of a period as it follows BETWEEN, in the order of posting. A part without any row gets its
/// first one here, of 0.
dao::Recordset LinhasDoPeriodo(const QString &codPeca, const QString &periodo);

/// The order that a sale left by, by its description: four digits; "" for any other row.
QString OrdemDaVenda(const QString &descricao);

} // namespace stock
