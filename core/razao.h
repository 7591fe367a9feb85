#pragma once

#include "platform/runtime/value.h"

#include <QString>

#include <functional>

namespace dao
{
class Recordset;
}

/// The running-balance ledger: a table whose every row carries the balance after it (Caixa, Banco1, Banco2, ContaFiado
/// by customer, Estoque by part). Balances are 32-bit floats, rounded after every row.
namespace core
{

/// The last row's `coluna` of a statement ordered by Codigo; 0 for no row. Costs one look-up.
float UltimoSaldo(const QString &consulta, const QString &coluna);

/// Appends a row to `tabela`: `preenche` sets its fields in the order of the caller.
/// The new row's counter is returned, 0 for a table without one.
qint32 AcrescentaLinha(const QString &tabela, const std::function<void(dao::Recordset &)> &preenche);

/// The balance after a movement, negative where something leaves, in 32-bit arithmetic. Error 6 for a sum out of range.
float SaldoDepois(float saldo, float movimento);

/// Appends the first row of a part's ledger, dated today: `quantidade` comes in and is the balance.
void AbreEstoque(const runtime::Value &codPeca, const QString &descricao, const runtime::Value &quantidade);

/// Walks a whole ledger in the order of `consulta` and rewrites each balance: `Entrada` adds, where it is Null
/// `Saida` takes away. One edit and update a row, whether or not it changed; no transaction.
void RecalculaRazao(const QString &consulta, const QString &colunaSaldo = QStringLiteral("Saldo"));

} // namespace core
