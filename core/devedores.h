#pragma once

#include "platform/dao/recordset.h"

#include <QString>

#include <vector>

namespace core
{

class Andamento;

/// A customer whose account is not even: the balance and the day of its last row.
struct Devedor {
    qint32 codigo;
    QString nome;
    float saldo;
    QString dia; ///< year, month and day run together, so that the order of the texts is that of the days

    QString data() const; ///< the day as "dd/mm/yyyy"
};

/// The rows of all customers' accounts, customer after customer, in the order of posting.
dao::Recordset ContasDosClientes();

/// Those whose last row is not even, in the order of their codes. A customer whose reading the user left is not among
/// them, as his last row was not read.
std::vector<Devedor> LeDevedores(dao::Recordset contas, Andamento &obra);

} // namespace core
