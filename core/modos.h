#pragma once

#include <QtGlobal>

namespace core
{

/// Every value of `ModoChamada`, by the window that reads it. A number may stand for several things, each in its own
/// window: such names say so, and a window asks for its own one only.
enum Modo : qint16 {
    modoNormal = 0, ///< nobody waits for anything; in a row of hand-backs: in every mode

    // The register of customers: "procura" picks a record for the caller, "inclui" adds one for it.
    modoProcuraClienteDoVeiculo = 1,
    modoIncluiClienteDoVeiculo = 2,
    modoProcuraClienteDoOrcamento = 12,
    modoIncluiClienteDoOrcamento = 13,
    modoProcuraClienteDaConta = 19,          // modoIncluiPecaDaNota too
    modoProcuraClienteDoCadastroRapido = 38, // modoRelaPecasVendidas too
    modoProcuraClienteDoPagamento = 39,

    // The register of vehicles.
    modoProcuraVeiculo = 3,
    modoIncluiVeiculo = 4, ///< the vehicles keep it for a customer who is added on the way

    // The register of parts.
    modoIncluiPecaDeixado = 2, ///< what the vehicles leave behind: the part goes to the order that is being opened
    modoProcuraPeca = 5,       ///< for orders and estimates
    modoIncluiPeca = 6,
    modoProcuraPecaDaNota = 18,
    modoIncluiPecaDaNota = 19,
    modoIncluiPecaDoEstoque = 22, // modoRelaEstoqueGeral too
    modoProcuraPecaDoEstoque = 23,

    // The register of suppliers.
    modoProcuraFornecedorDaNota = 16,
    modoIncluiFornecedorDaNota = 17,
    modoProcuraFornecedorDeixado = 20,     ///< left behind by a caller
    modoProcuraFornecedorDoRelatorio = 21, // modoRelaNotasFornecedor too
    modoProcuraFornecedorDaConsulta = 34,  // modoConsultaNotasFornecedor too

    // Orders and estimates.
    modoProcuraOSParaAlterar = 7,
    modoAbreOSParaAlterar = 8,
    modoFechaOS = 9,
    modoUmaOS = 10, ///< the order in `CodigoConsulta` alone
    modoProcuraOSDaNota = 40,
    modoOrcamentoGravado = 13, ///< an estimate that has just been written is printed with its number
    modoProcuraOrcamento = 14,

    // Finance and stock.
    modoClientesPendentes = 11, ///< the accounts of all customers who have one, one after the other
    modoEstoqueDeUmaPeca = 23,  ///< the part in `CodigoConsulta` alone; the window opens its picker in it, too
    modoConsultaNotasFornecedor = 34,

    // The reports.
    modoRelaNotasFornecedor = 21,
    modoRelaEstoqueGeral = 22,
    modoRelaChequesDaOS = 24,
    modoRelaCarneDaOS = 25,
    modoRelaPlanoDaOS = 36,
    modoRelaOrdens = 26,
    modoRelaContas = 27,
    modoRelaDevedores = 28, ///< and the account of a customer that is opened from it
    modoRelaCheques = 29,
    modoRelaCaixa = 30,   ///< of the cash book
    modoRelaVisitas = 30, ///< of the report window; its preview prints as the cash book's
    modoRelaVisitasVeiculos = 31,
    modoRelaCompras = 32,
    modoRelaAniversarios = 33,
    modoRelaOrigem = 35,
    modoRelaPecas = 37,
    modoRelaPecasVendidas = 38,
};

} // namespace core
