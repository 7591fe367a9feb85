#pragma once

#include "platform/runtime/value.h"

#include <QString>

namespace dao
{
class Recordset;
}

/// The rows of money that is still to come or to go: accounts, cheques and pending orders. Whoever leaves one leaves it
/// by these functions, unpaid. Values are texts of the screen or numbers; an empty text of a cheque is Null.
namespace core
{

enum class TabelaContas { Receber, Pagar };
QStringView NomeDaTabela(TabelaContas tabela);

/// An account to receive or to pay.
struct Conta {
    runtime::Value data = {}; ///< today where none is given
    QString descricao;
    runtime::Value valor;
    runtime::Value vencimento;
    runtime::Value codOs = {}; ///< the order behind it; not written where none is given
};
void IncluiConta(TabelaContas tabela, const Conta &conta);

/// Marks an account's current row as paid on a day, with `valor` at another value than it was written with.
void BaixaConta(dao::Recordset &conta, const runtime::Value &data, const runtime::Value &valor = {});

struct Cheque {
    QString codOs; ///< "0" for one that no order brought
    QString banco;
    QString conta;
    QString numero;
    runtime::Value valor;
    runtime::Value vencimento;
    QString observacoes = {};
};

/// Dated today. Gives the cheque's number in the system, which the account receivable names.
qint32 IncluiCheque(const Cheque &cheque);

/// An order whose customer pays later.
struct Fiado {
    QString codOs;
    QString codCliente;
    runtime::Value valor;
    runtime::Value vencimento;
};
void IncluiFiado(const Fiado &fiado);

/// The mark of a row that is settled: an account, a cheque, a supplier's note.
bool EstaPago(const dao::Recordset &linha);
bool NaoEstaPago(const dao::Recordset &linha);

/// Whose money it is: the code of an order's customer, and a customer's name. "" for a code that is none.
QString ClienteDaOrdem(const QString &ordem);
QString NomeDoCliente(const QString &codigo);

} // namespace core
