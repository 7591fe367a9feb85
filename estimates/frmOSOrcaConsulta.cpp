#include "estimates/frmOSOrcaConsulta.h"

#include "ui_frmOSOrcaConsulta.h"

#include "core/banco.h"
#include "core/lista.h"
#include "core/modos.h"
#include "core/modulo.h"
#include "core/previsualiza.h"
#include "documents/documento.h"
#include "documents/itensgravados.h"
#include "estimates/orcamentoimpresso.h"
#include "platform/printer/printer.h"
#include "platform/ui/boxes.h"
#include "platform/ui/listview.h"
#include "platform/ui/reasons.h"

#include <array>

namespace estimates
{

using namespace core;
using namespace documents;
using namespace Qt::StringLiterals;

namespace
{

constexpr std::array daLista{Devolucao{modoProcuraOrcamento, u"frmOSOrcaAltera", u"txtCodOrcamento"}};
constexpr std::array doBotao{Devolucao{modoNormal, u"frmOSOrcaAltera", u"txtCodOrcamento"}};
constexpr std::array aOrdem{Devolucao{modoNormal, u"frmOSAbre", u"lblTotal", u"lblValor"}};

constexpr std::array colunas{
    ColunaLista{u"Código", 1000, u"Codigo", comoCodigo},
    ColunaLista{u"Data", 1300, u"Data", comoData},
    ColunaLista{u"Nome Cliente", 4500, u"NomeCliente", comoEsta},
    ColunaLista{u"Marca/Modelo", 3700, u"MarcaModelo", comoEsta},
};

constexpr Lista orcamentos{.colunas = colunas};

constexpr std::array pesquisas{
    Pesquisa{u"Código Orçamento", u"Codigo = ", Comparacao::Codigo},
    Pesquisa{u"Nome do Cliente", u"NomeCliente Like '*", Comparacao::Contem},
    Pesquisa{u"Marca/Modelo", u"MarcaModelo Like '*", Comparacao::Contem},
    Pesquisa{u"Fone", u"Fone Like '*", Comparacao::Contem},
};

} // namespace

frmOSOrcaConsulta::frmOSOrcaConsulta()
    : ui::Form(u"frmOSOrcaConsulta"_s), ui_(std::make_unique<Ui::frmOSOrcaConsulta>())
{
    ui_->setupUi(this);
    setEscapeUnloads(true);
    onClick(ui_->btnPesquisar, &frmOSOrcaConsulta::btnPesquisar_Click);
    onClick(ui_->btnTodos, &frmOSOrcaConsulta::btnTodos_Click);
    onClick(ui_->btnOSAdd, &frmOSOrcaConsulta::btnOSAdd_Click);
    onClick(ui_->btnOSAltera, &frmOSOrcaConsulta::btnOSAltera_Click);
    onClick(ui_->btnOSPrint, &frmOSOrcaConsulta::btnOSPrint_Click);
    onClick(ui_->btnPrevisualizar, &frmOSOrcaConsulta::btnPrevisualizar_Click);
    onClick(ui_->btnOSNovo, &frmOSOrcaConsulta::btnOSNovo_Click);
    onClick(ui_->btnVoltar, &frmOSOrcaConsulta::btnVoltar_Click);
    onChange(ui_->lblCodigo, &frmOSOrcaConsulta::habilitaBotoes);
    onChange(ui_->txtTexto, &frmOSOrcaConsulta::habilitaBotoes);
    onItemClick(ui_->Lista, &frmOSOrcaConsulta::Lista_Click);
    onItemDoubleClick(ui_->Lista, &frmOSOrcaConsulta::Lista_DblClick);
}

frmOSOrcaConsulta::~frmOSOrcaConsulta() = default;

std::vector<Devolucoes> frmOSOrcaConsulta::devolucoes()
{
    return {{Ocasiao::Escolha, daLista}, {Ocasiao::Botao, doBotao}, {Ocasiao::Preenchimento, aOrdem}};
}

void frmOSOrcaConsulta::Form_Load()
{
    ui::CentraForm(*this, false);
    setWindowTitle(captionOf(u" - [Consulta Orçamento]"_s));
    MontaLista(*ui_->Lista, orcamentos);
    MontaPesquisas(*ui_->cboPesquisa, pesquisas);
    ui_->tabItems->monta(FormaListas::UmaLista);
    disableUnlessExists(u"frmOSOrcaNovo"_s, {ui_->btnOSAdd});
    habilitaBotoes();
    btnTodos_Click();
    ui_->txtTexto->setFocus();
}

void frmOSOrcaConsulta::enche(const QString &consulta)
{
    EncheLista(*ui_->Lista, DBDados->OpenRecordset(consulta), orcamentos);
}

void frmOSOrcaConsulta::btnPesquisar_Click()
{
    const QString texto = ui_->txtTexto->text();
    if (texto.isEmpty()) {
        return;
    }
    const Pesquisa &escolhida = pesquisas.at(static_cast<std::size_t>(ui_->cboPesquisa->currentIndex()));
    enche(u"SELECT * FROM Orcamento WHERE "_s + Condicao(escolhida, texto));
}

void frmOSOrcaConsulta::btnTodos_Click()
{
    mostra({});
    enche(u"SELECT * FROM Orcamento ORDER By Codigo"_s);
}

// --- the estimate shown

/// One that was deleted since the list was filled is shown no more.
void frmOSOrcaConsulta::mostraOrcamento(const QString &codigo)
{
    mostra(LeOrcamento(codigo).value_or(Orcamento{}));
    if (temOrcamento()) {
        ui_->tabItems->mostra(LeItens(u"SELECT * FROM OrcaPecas WHERE CodOrca = "_s + codigo));
    }
}

void frmOSOrcaConsulta::mostra(const Orcamento &orcamento)
{
    ui_->lblCodigo->setText(orcamento.codigo);
    ui_->lblData->setText(orcamento.data);
    ui_->lblNome->setText(orcamento.nome);
    ui_->lblCodCliente->setText(orcamento.codCliente);
    ui_->lblFone->setText(orcamento.fone);
    ui_->lblMarca->setText(orcamento.marca);
    ui_->lblAno->setText(orcamento.ano);
    ui_->lblObs->setText(orcamento.observacoes);
    ui_->lblValor->setText(orcamento.valor);
    ui_->tabItems->limpa();
}

Orcamento frmOSOrcaConsulta::orcamentoMostrado() const
{
    return {.codigo = ui_->lblCodigo->text(),
            .data = ui_->lblData->text(),
            .marca = ui_->lblMarca->text(),
            .ano = ui_->lblAno->text(),
            .codCliente = ui_->lblCodCliente->text(),
            .nome = ui_->lblNome->text(),
            .fone = ui_->lblFone->text(),
            .observacoes = ui_->lblObs->text(),
            .valor = ui_->lblValor->text(),
            .itens = ui_->tabItems->itens().at(abaPecas)};
}

bool frmOSOrcaConsulta::temOrcamento() const
{
    return !ui_->lblCodigo->text().isEmpty();
}

/// Without an estimate printing says so itself; the other commands are not offered.
void frmOSOrcaConsulta::habilitaBotoes()
{
    const QString semOrcamento = u"Escolha um orçamento na lista"_s;
    for (QWidget *botao : {ui_->btnOSAltera, ui_->btnOSNovo}) {
        ui::enableIf(temOrcamento(), botao, semOrcamento, ui_->Lista);
    }
    ui::enableIf(TemPreVisualizacao(LayoutDeImpressao()), ui_->btnPrevisualizar,
                 u"O layout de impressão em uso não tem pré-visualização"_s, ui_->Lista);
    ui::enableIf(!ui_->txtTexto->text().isEmpty(), ui_->btnPesquisar, u"Digite o texto a pesquisar"_s, ui_->txtTexto);
    disableUnlessExists(u"frmOSOrcaAltera"_s, {ui_->btnOSAltera});
    disableUnlessExists(u"frmOSAbre"_s, {ui_->btnOSNovo});
}

/// The print layout may have been set in the meantime.
bool frmOSOrcaConsulta::event(QEvent *event)
{
    if (event->type() == QEvent::WindowActivate && ui_) {
        habilitaBotoes();
    }
    return ui::Form::event(event);
}

void frmOSOrcaConsulta::Lista_Click(int linha)
{
    mostraOrcamento(ui_->Lista->item(linha).text());
}

/// A double click has shown the estimate with its first click; Enter may come to a row that was never chosen.
void frmOSOrcaConsulta::Lista_DblClick(int linha)
{
    const QString codigo = ui_->Lista->item(linha).text();
    if (ui_->lblCodigo->text() != codigo) {
        mostraOrcamento(codigo);
    }
    Devolve(*this, Ocasiao::Escolha, codigo);
}

// --- what is done with it

void frmOSOrcaConsulta::btnOSAdd_Click()
{
    ModoChamada = modoNormal;
    ui::Forms::instance().Show(u"frmOSOrcaNovo"_s);
    Unload();
}

void frmOSOrcaConsulta::btnOSAltera_Click()
{
    if (temOrcamento()) {
        Devolve(*this, Ocasiao::Botao, ui_->lblCodigo->text());
    }
}

/// The vehicle tells whether an estimate is shown: none is written without one.
bool frmOSOrcaConsulta::conferePapel() const
{
    if (!ui_->lblMarca->text().isEmpty()) {
        return true;
    }
    ui::MsgBox(u"Marca Inválida"_s, ui::Icon::Exclamation, NomeEmpresa);
    return false;
}

void frmOSOrcaConsulta::btnOSPrint_Click()
{
    if (conferePapel() && ui::Confirm(u"Confirma impressão do orçamento"_s, NomeEmpresa)) {
        ImprimeOrcamento(LayoutDeImpressao(), orcamentoMostrado(), printer::printer());
    }
}

/// What is only looked at is not asked about.
void frmOSOrcaConsulta::btnPrevisualizar_Click()
{
    if (TemPreVisualizacao(LayoutDeImpressao()) && conferePapel()) {
        ImprimeOrcamento(LayoutDeImpressao(), orcamentoMostrado(), AbrePreVisualizacao());
    }
}

/// The items go to the window that opens an order, all into its first list, and nothing is written: an estimate names
/// no vehicle of the register, so the user goes on there.
void frmOSOrcaConsulta::btnOSNovo_Click()
{
    if (!temOrcamento()) {
        return;
    }
    const QString ordem = u"frmOSAbre"_s;
    const Orcamento orcamento = orcamentoMostrado();
    ModoChamada = modoNormal;
    ui::Forms::instance().Show(ordem);
    ListasItens &destino = ListasDe(ordem);
    for (const LinhaItem &linha : orcamento.itens) {
        destino.acrescenta(abaPecas, linha);
    }
    Preenche(*this, ordem);
    Unload();
}

void frmOSOrcaConsulta::btnVoltar_Click()
{
    Unload();
}

} // namespace estimates
