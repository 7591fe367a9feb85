#pragma once

#include "workorders/ordem.h"

#include <functional>

namespace workorders
{

/// Everything that closing an order takes from the payment window, texts as they stand in its fields.
struct Fechamento {
    QString codigo; ///< "0000"
    QString nomeCliente;
    QString codCliente; ///< the account that store credit is booked to
    QString total;      ///< lblTotal
    QString desconto;   ///< "" for none
    PagamentoOS pagamento;
    std::vector<QString> numerosCheques; ///< form 3, one a row of the plan
    /// Form 5, for each cheque of the plan when its turn comes: bank, account and number.
    struct DadosCheque {
        QString banco;
        QString conta;
        QString numero;
    };
    std::function<DadosCheque(const ParcelaOS &parcela)> pedeCheque;
};

/// Posts the payment by its form, marks the order and takes its parts out of stock, in the order of the window's rules.
/// Gives the order's new `DataOut` as "dd/mm/yyyy hh:mm:ss", "" for an order that is not in the table. Checks are the
/// window's; nothing here asks or warns, and an order that is closed already is posted again.
QString FechaOrdem(const Fechamento &fechamento);

/// `OSPecas` of the order whose part keeps stock: one row of `Estoque` each, "VENDA O.S. ".
void BaixaEstoque(const QString &codigo);

/// What a customer may still buy on credit, as "###,##0.00": the limit less the balance of the account. A limit that
/// was never given counts as 0.
QString CreditoDisponivel(const QString &codCliente);

/// The documents of a custom plan, as its list shows them.
inline constexpr QStringView documentoAVista = u"DINHEIRO À VISTA";
inline constexpr QStringView documentoAPrazo = u"DINHEIRO À PRAZO";
inline constexpr QStringView documentoCheque = u"CHEQUE PRÉ";

} // namespace workorders
