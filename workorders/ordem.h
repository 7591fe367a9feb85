#pragma once

#include "documents/itens.h"

#include <QString>

#include <vector>

namespace workorders
{

/// What is told about the job of an order.
struct TextosOS {
    QString km;
    QString observacao;
    QString servicos;
    QString mecanico;
};

/// An order as the query shows it. What is printed is what stands there, not what the tables hold.
struct OrdemMostrada {
    QString codigo;
    QString codCliente;
    QString nome;
    QString marca;
    QString ano;
    QString placas;
    QString chassi;
    QString km;
    QString mecanico;
    QString dataIn;
    QString dataOut;
    QString observacao;
    QString servicosExecutados;
    QString total;
    QString totalPecas;
    QString totalServicos;
    QString totalTercerizados;
    std::vector<documents::LinhaItem> pecas;
    std::vector<documents::LinhaItem> servicos;
    std::vector<documents::LinhaItem> tercerizados;
};

/// One row of a payment plan, as its list shows it.
struct ParcelaOS {
    QString parcela;    ///< "00"
    QString vencimento; ///< dd/mm/yyyy
    QString valor;
    QString documento; ///< custom plan only
};

/// The six payment forms: the tabs of the payment window.
enum class FormaPagamento { AVista = 0, ChequePre = 1, Carne = 2, Cheques = 3, Fiado = 4, Personalizado = 5 };

/// What stands on the payment window, for the payment text of a printed order.
struct PagamentoOS {
    FormaPagamento forma = FormaPagamento::AVista;
    QString valor;
    QString banco;
    QString conta;
    QString numeroCheque;
    QString valorCheque;
    QString vencimento;
    std::vector<ParcelaOS> parcelas;
};

} // namespace workorders
