#pragma once

#include "core/campos.h"
#include "core/devolucao.h"
#include "core/lista.h"

#include <QString>

#include <span>

/// A register told as data: its fields, list, searches, checks, statements and hand-backs. `Cadastro` is the window
/// that works by it.
namespace registers
{

using core::Campo;
using core::ColunaLista;
using core::Comparacao;
using core::Gravacao;
using core::OutraMostra;
using core::Pesquisa;
using core::TextoDoControle;
using core::Verificacao;

/// The caption and the first focus in a mode.
struct Abertura {
    qint16 modo;
    QStringView titulo;
    QStringView foco;
};

/// What btnPesquisar does around its statement.
struct RegraPesquisa {
    QStringView antes;               ///< the statement in front of the condition
    QStringView depois = {};         ///< and behind it
    bool textoVazioPesquisa = false; ///< an empty text searches too, and the list stands until there is a result
    QStringView mensagemErro = u"Tipo de Dados Inválido para Pesquisa";
    QStringView mensagemVazia = {}; ///< for no result; "" says nothing
};

/// A whole register. What has a value here is the usual way, and only what is done otherwise is told.
struct Registro {
    QStringView janela;
    QStringView tabela;
    QStringView titulo;                       ///< tail of the plain caption
    std::span<const Abertura> aberturas = {}; ///< the modes that open otherwise
    std::span<const Campo> campos;
    std::span<const Verificacao> verificacoes = {};

    core::Lista lista;
    std::span<const Pesquisa> pesquisas;
    int pesquisaInicial = 0;
    RegraPesquisa pesquisa;
    QStringView consultaTodos;
    QStringView consultaLinha;                          ///< of the row clicked, without its code
    QStringView consultaLinhaFim = {};                  ///< behind the code
    QStringView consultaSegunda = {};                   ///< tried where that gives no row; a field it lacks is emptied
    QStringView consultaLocaliza = {};                  ///< of the row found in the list; "" for the same statement
    std::span<const OutraMostra> excecoesLocaliza = {}; ///< the fields that it shows otherwise than a click
    int colunaLocaliza = 2;                             ///< from 1: the name

    std::span<const QStringView> exclusoes; ///< the statements of btnExcluir, in front of the code
    bool localizaAntesDeConferir = true;    ///< btnAlterar looks for the row first, and only then checks
    QStringView naoLocalizado = u"Código não localizado";

    std::span<const core::Devolucao> devolucoes = {};         ///< of a row chosen by double click
    std::span<const core::Devolucao> devolucoesInclusao = {}; ///< of a new record's code
};

/// Adds a record made of the controls' texts and gives its code, the fields written in the table's order.
qint32 IncluiRegistro(const Registro &registro, const TextoDoControle &texto);

const Registro &registroClientes();
const Registro &registroVeiculos();
const Registro &registroPecas();
const Registro &registroFornecedores();

} // namespace registers
