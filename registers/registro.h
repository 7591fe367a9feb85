#pragma once

#include "core/devolucao.h"
#include "core/janelas.h"
#include "core/lista.h"
#include "platform/runtime/value.h"

#include <QString>

#include <functional>
#include <optional>
#include <span>

/// A register told as data: its fields, list, searches, checks, statements and hand-backs. `Cadastro` is the window
/// that works by it.
namespace registers
{

enum class Gravacao { Inclusao, Alteracao };

using core::ColunaLista;
using core::Comparacao;
using core::Mostra;
using core::Pesquisa;

/// What a control's text is written as; none where the column is not written.
using Converte = std::optional<runtime::Value> (*)(const QString &texto, Gravacao gravacao);

/// A control and its column. The table's order is the order of showing and of writing. A column that the statement
/// does not bring leaves the control as it is.
struct Campo {
    QStringView controle;
    QStringView coluna;
    Mostra mostra;
    Converte grava = nullptr;                      ///< nullptr: never written
    QChar (*tecla)(QChar) = nullptr;               ///< what may be typed
    std::optional<core::TipoMascara> mascara = {}; ///< money on leaving, the others on each change
    bool aceitaMaior = false;                      ///< a check of the window speaks of longer texts than the column's
};

/// A field that "Localizar" shows otherwise than a click on the row does; nullptr leaves it as it is.
struct ExcecaoLocaliza {
    QStringView controle;
    Mostra mostra;
};

/// A check before writing. A refused one shows its message and gives `foco` the focus, or the control itself.
struct Verificacao {
    QStringView controle;
    bool (*aceita)(const QString &texto);
    QStringView mensagem;
    QStringView foco = {};
};

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
    QStringView consultaLinha;         ///< of the row clicked, without its code
    QStringView consultaLinhaFim = {}; ///< behind the code
    QStringView consultaSegunda = {};  ///< tried where that gives no row; a field it lacks is emptied
    QStringView consultaLocaliza = {}; ///< of the row found in the list; "" for the same statement
    std::span<const ExcecaoLocaliza> excecoesLocaliza = {};
    int colunaLocaliza = 2; ///< from 1: the name

    std::span<const QStringView> exclusoes; ///< the statements of btnExcluir, in front of the code
    bool localizaAntesDeConferir = true;    ///< btnAlterar looks for the row first, and only then checks
    QStringView naoLocalizado = u"Código não localizado";

    std::span<const core::Devolucao> devolucoes = {};         ///< of a row chosen by double click
    std::span<const core::Devolucao> devolucoesInclusao = {}; ///< of a new record's code
};

/// The text of a control, by the control's name.
using TextoDoControle = std::function<QString(QStringView controle)>;

/// Adds a record made of the controls' texts and gives its code, the fields written in the table's order.
qint32 IncluiRegistro(const Registro &registro, const TextoDoControle &texto);

/// Writes the fields into the row being added or edited.
void GravaCampos(dao::Recordset &linha, std::span<const Campo> campos, Gravacao gravacao, const TextoDoControle &texto);

const Registro &registroClientes();
const Registro &registroVeiculos();
const Registro &registroPecas();
const Registro &registroFornecedores();

} // namespace registers
