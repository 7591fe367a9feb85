#pragma once

#include "platform/runtime/runtime.h"
#include "support/program.h"
#include "workorders/abertura.h"

#include <QString>

#include <vector>

/// What the cases on notes share: a customer with all that a note shows of him, parts with their tax columns, orders.
namespace notas
{

inline documents::LinhaItem line(qint32 part, const QString &psa, const QString &quantity, const QString &name,
                                 const QString &price)
{
    return {runtime::Format(part, u"0000"), psa, quantity, name, price, {}};
}

/// MARIA DA SILVA, with every column filled.
inline qint32 fullCustomer(support::Program &program)
{
    const qint32 code = program.customer(QStringLiteral("MARIA DA SILVA"));
    program.sql(QStringLiteral("UPDATE Clientes SET CPF = '12345678909', RG = '12.345.678-9', "
                               "Endereco = 'RUA DAS PALMEIRAS', Numero = 120, Bairro = 'CENTRO', CEP = '15080-130', "
                               "Cidade = 'RIO PRETO', Estado = 'SÃO PAULO', Fone1 = '(17)3232-1010' WHERE Codigo = %1")
                    .arg(code));
    return code;
}

/// An order as the opening window writes it; gives its number.
inline qint32 order(qint32 customer, qint32 vehicle, const std::vector<documents::LinhaItem> &items)
{
    workorders::NovaOrdem order;
    order.codCliente = QString::number(customer);
    order.codVeiculo = QString::number(vehicle);
    order.valor = QStringLiteral("0,00");
    order.itens = items;
    return workorders::AbreOrdem(order);
}

/// So many one-off items of one letter, 1,50 each.
inline std::vector<documents::LinhaItem> many(int count, const QString &psa)
{
    std::vector<documents::LinhaItem> items;
    for (int number = 1; number <= count; ++number) {
        items.push_back(
            line(0, psa, QStringLiteral("01"), QStringLiteral("ITEM %1").arg(number), QStringLiteral("1,50")));
    }
    return items;
}

} // namespace notas
