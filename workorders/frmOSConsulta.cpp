#include "workorders/frmOSConsulta.h"

#include "ui_frmOSConsulta.h"

#include "core/banco.h"
#include "core/funcoes.h"
#include "core/informacoes.h"
#include "core/lista.h"
#include "core/modos.h"
#include "core/modulo.h"
#include "core/previsualiza.h"
#include "documents/documento.h"
#include "documents/itensgravados.h"
#include "platform/printer/printer.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/boxes.h"
#include "platform/ui/controls.h"
#include "platform/ui/listview.h"
#include "platform/ui/reasons.h"
#include "workorders/ordemimpressa.h"

#include <algorithm>
#include <array>

namespace workorders
{

using namespace runtime;
using namespace core;
using namespace documents;
using namespace Qt::StringLiterals;

namespace
{

constexpr std::array daLista{
    Devolucao{modoProcuraOSParaAlterar, u"frmOSAltera", u"txtCodOS"},
    Devolucao{modoProcuraOSDaNota, u"frmNota", u"txtOS"},
};

constexpr std::array doBotao{Devolucao{modoNormal, u"frmOSAltera", u"txtCodOS"}};

constexpr std::array aoPagamento{
    Devolucao{modoNormal, u"frmOSFormaPagto", u"lblCodigo", u"lblCodigo"},
    Devolucao{modoNormal, u"frmOSFormaPagto", u"lblValor", u"lblValor"},
    Devolucao{modoNormal, u"frmOSFormaPagto", u"lblTotal", u"lblValor"},
    Devolucao{modoNormal, u"frmOSFormaPagto", u"txtValor_0", u"lblValor"},
    Devolucao{modoNormal, u"frmOSFormaPagto", u"lblMarca", u"lblMarca"},
    Devolucao{.modo = modoNormal,
              .janela = u"frmOSFormaPagto",
              .controle = u"lblNome",
              .origem = u"lblNome",
              .comTag = true}, // the customer's code
    Devolucao{modoNormal, u"frmOSFormaPagto", u"lblPlacas", u"lblPlacas"},
    Devolucao{modoNormal, u"frmOSFormaPagto", u"lblAno", u"lblAno"},
};

/// How the details of a payment are looked up: what the payment form holds, and the mode of the report.
struct RelatorioPagto {
    QStringView forma;
    qint16 modo;
};

constexpr std::array relatoriosPagto{
    RelatorioPagto{u"CHEQUE", modoRelaChequesDaOS},
    RelatorioPagto{u"CARNÊ", modoRelaCarneDaOS},
    RelatorioPagto{u"PAGAMENTO PERSONALIZADO", modoRelaPlanoDaOS},
};

const QString colunasDaLista =
    u"SELECT OrdemServico.Codigo, Veiculos.MarcaModelo, Veiculos.Ano, Veiculos.Placas, Clientes.Nome "
    "FROM OrdemServico, Veiculos, Clientes WHERE "_s;
const QString juncao = u"(Veiculos.Codigo = OrdemServico.CodVeiculo AND Clientes.Codigo = OrdemServico.CodCliente)"_s;
const QString porCodigo = u" ORDER BY OrdemServico.Codigo"_s;

constexpr std::array colunas{
    ColunaLista{u"Código", 1000, u"Codigo", comoCodigo},
    ColunaLista{u"Marca/Modelo", 6000, u"MarcaModelo", comoEsta},
    ColunaLista{u"Ano", 1500, u"Ano", comoEsta},
    ColunaLista{u"Placas", 2000, u"Placas", comoEsta},
};

constexpr Lista ordens{.colunas = colunas};

constexpr std::array pesquisas{
    Pesquisa{u"Código O.S.", u"OrdemServico.Codigo = ", Comparacao::Codigo},
    Pesquisa{u"Nome do Cliente", u"Clientes.Nome Like '*", Comparacao::Contem},
    Pesquisa{u"Marca/Modelo", u"Veiculos.MarcaModelo Like '*", Comparacao::Contem},
    Pesquisa{u"Data Entrada", u"ORDEMServico.DataIn BETWEEN ", Comparacao::Dia},
    Pesquisa{u"Data Saída", u"ORDEMServico.DataOut BETWEEN ", Comparacao::Dia},
    Pesquisa{u"Placas", u"Veiculos.Placas Like '*", Comparacao::Contem},
    Pesquisa{u"Chassi", u"Veiculos.chassi Like '*", Comparacao::Contem},
};

/// By the entry of `cboOS`: open, closed, all.
constexpr std::array<QStringView, 3> situacoes{u" AND OrdemServico.EmAberto = True",
                                               u" AND OrdemServico.EmAberto = False", u""};

QString simOuNao(const Value &valor)
{
    return Verdadeiro(valor) ? u"SIM"_s : u"NÃO"_s;
}

} // namespace

frmOSConsulta::frmOSConsulta() : ui::Form(u"frmOSConsulta"_s), ui_(std::make_unique<Ui::frmOSConsulta>())
{
    ui_->setupUi(this);
    setEscapeUnloads(true);
    onClick(ui_->btnPesquisar, &frmOSConsulta::btnPesquisar_Click);
    onClick(ui_->btnTodos, &frmOSConsulta::btnTodos_Click);
    onChange(ui_->cboOS, &frmOSConsulta::cboOS_Change);
    onClick(ui_->btnFechar, &frmOSConsulta::btnFechar_Click);
    onClick(ui_->btnOSAdd, &frmOSConsulta::btnOSAdd_Click);
    onClick(ui_->btnOSAltera, &frmOSConsulta::btnOSAltera_Click);
    onClick(ui_->btnOSPrint, &frmOSConsulta::btnOSPrint_Click);
    onClick(ui_->btnPrevisualizar, &frmOSConsulta::btnPrevisualizar_Click);
    onClick(ui_->btnPagtoInfo, &frmOSConsulta::btnPagtoInfo_Click);
    onClick(ui_->btnClienteInfo, &frmOSConsulta::btnClienteInfo_Click);
    onClick(ui_->btnVeiculoInfo, &frmOSConsulta::btnVeiculoInfo_Click);
    onClick(ui_->btnVoltar, &frmOSConsulta::btnVoltar_Click);
    onChange(ui_->lblObs, &frmOSConsulta::lblObs_Change);
    for (QWidget *origem : std::initializer_list<QWidget *>{ui_->lblCodigo, ui_->lblFormaPg, ui_->txtTexto}) {
        onChange(origem, &frmOSConsulta::habilitaBotoes);
    }
    onItemClick(ui_->Lista, &frmOSConsulta::Lista_Click);
    onItemDoubleClick(ui_->Lista, &frmOSConsulta::Lista_DblClick);
}

frmOSConsulta::~frmOSConsulta() = default;

std::vector<Devolucoes> frmOSConsulta::devolucoes()
{
    return {{Ocasiao::Escolha, daLista}, {Ocasiao::Botao, doBotao}, {Ocasiao::Preenchimento, aoPagamento}};
}

void frmOSConsulta::Form_Load()
{
    ui::CentraForm(*this, false);
    setWindowTitle(captionOf(u" - [Consulta O.S.]"_s));
    montaListas();
    disableUnlessExists(u"frmOSAbre"_s, {ui_->btnOSAdd});
    habilitaBotoes();
    aplicaModo();
}

void frmOSConsulta::montaListas()
{
    MontaLista(*ui_->Lista, ordens);
    MontaPesquisas(*ui_->cboPesquisa, pesquisas);
    ui_->tabItems->monta(FormaDoLayout());
    if (ui_->tabItems->compacto()) {
        ui_->Rotulos_21->setText(u"T.A."_s);
    }
}

/// What the five uses differ in.
void frmOSConsulta::aplicaModo()
{
    ui_->btnFechar->setVisible(ModoChamada == modoFechaOS);
    if (ModoChamada == modoUmaOS) {
        const QString codigo = Format(CodigoConsulta, mascaraCodigo);
        setWindowTitle(captionOf(u" - [Consulta O.S. "_s + codigo + u"]"_s));
        for (QWidget *controle :
             std::initializer_list<QWidget *>{ui_->Frame1, ui_->Lista, ui_->btnOSAdd, ui_->btnOSAltera}) {
            controle->hide();
        }
        mostraOrdem(codigo);
        return;
    }
    if (ModoChamada == modoFechaOS) {
        setWindowTitle(captionOf(u" - [Fecha O.S.]"_s));
        ui_->Rotulos_2->hide();
        ui_->cboOS->hide();
    }
    btnTodos_Click();
    ui_->txtTexto->setFocus();
}

void frmOSConsulta::enche(const QString &consulta)
{
    EncheLista(*ui_->Lista, DBDados->OpenRecordset(consulta), ordens);
}

void frmOSConsulta::btnPesquisar_Click()
{
    const QString texto = ui_->txtTexto->text();
    if (texto.isEmpty()) {
        return;
    }
    const Pesquisa &escolhida = pesquisas.at(static_cast<std::size_t>(ui_->cboPesquisa->currentIndex()));
    enche(colunasDaLista + Condicao(escolhida, texto) + u" AND "_s + juncao + porCodigo);
}

void frmOSConsulta::btnTodos_Click()
{
    esvaziaOrdem();
    const QStringView situacao = situacoes.at(static_cast<std::size_t>(ui_->cboOS->currentIndex()));
    enche(colunasDaLista + juncao + situacao + porCodigo);
}

void frmOSConsulta::cboOS_Change()
{
    btnTodos_Click();
}

// --- the order shown

void frmOSConsulta::esvaziaOrdem()
{
    for (auto *rotulo : ui_->Frame2->findChildren<ui::Label *>()) {
        rotulo->setText({});
        ui::setTagOf(rotulo, {});
    }
    ui_->txtServicos->clear();
    ui_->tabItems->limpa();
    mostraTotais();
}

void frmOSConsulta::mostraOrdem(const QString &codigo)
{
    esvaziaOrdem();
    auto linha = DBDados->OpenRecordset(
        u"SELECT OrdemServico.Codigo, Veiculos.MarcaModelo, Veiculos.Placas, Veiculos.Ano, Clientes.Nome, "
        "OrdemServico.DataIn, OrdemServico.DataOut, OrdemServico.Valor, OrdemServico.KM, OrdemServico.EmAberto, "
        "OrdemServico.Pago, OrdemServico.Observacao, OrdemServico.CodCliente, OrdemServico.DataPagto, "
        "OrdemServico.FormaPagto, OrdemServico.Descricao, OrdemServico.Mecanico, Veiculos.Chassi "
        "FROM OrdemServico, Veiculos, Clientes WHERE "_s +
        juncao + u" AND OrdemServico.Codigo = "_s + codigo);
    if (linha.Eof()) {
        return;
    }
    mostraCabecalho(linha);
    ui_->tabItems->mostra(LeItens(u"SELECT OSPecas.* FROM OSPecas WHERE OSPecas.CodOS = "_s + codigo));
    mostraTotais();
}

void frmOSConsulta::mostraCabecalho(const dao::Recordset &linha)
{
    const auto texto = [&linha](QStringView campo) { return NuloParaVazio(linha.value(campo)); };
    const auto formato = [&linha](QStringView campo, QStringView mascara) {
        return Format(linha.value(campo), mascara);
    };
    ui_->lblCodigo->setText(formato(u"Codigo", mascaraCodigo));
    ui_->lblNome->setText(texto(u"Nome"));
    ui::setTagOf(ui_->lblNome, texto(u"CodCliente"));
    ui_->lblMarca->setText(texto(u"MarcaModelo"));
    ui_->lblPlacas->setText(texto(u"Placas"));
    ui::setTagOf(ui_->lblPlacas, texto(u"Chassi"));
    ui_->lblAno->setText(texto(u"Ano"));
    ui_->lblDataIn->setText(formato(u"DataIn", mascaraDataHora));
    ui_->lblDataOut->setText(formato(u"DataOut", mascaraDataHora));
    ui_->lblKm->setText(texto(u"KM"));
    ui_->lblValor->setText(formato(u"Valor", mascaraValor));
    ui_->lblOsAberta->setText(simOuNao(linha.value(u"EmAberto")));
    ui_->lblOsPaga->setText(simOuNao(linha.value(u"Pago")));
    ui_->lblDataPg->setText(formato(u"DataPagto", mascaraData));
    ui_->lblFormaPg->setText(texto(u"FormaPagto"));
    ui_->lblObs->setText(texto(u"Observacao"));
    ui_->lblMecanico->setText(texto(u"Mecanico"));
    ui_->txtServicos->setPlainText(texto(u"Descricao"));
}

void frmOSConsulta::mostraTotais()
{
    const Totais totais = ui_->tabItems->totais();
    ui_->lblTotalP->setText(totais.pecas);
    ui_->lblTotalS->setText(totais.servicos);
    ui_->lblTotalT->setText(totais.terceiros);
}

OrdemMostrada frmOSConsulta::ordemMostrada() const
{
    const ItensPorAba itens = ui_->tabItems->itens();
    return {.codigo = ui_->lblCodigo->text(),
            .codCliente = ui::tagOf(ui_->lblNome),
            .nome = ui_->lblNome->text(),
            .marca = ui_->lblMarca->text(),
            .ano = ui_->lblAno->text(),
            .placas = ui_->lblPlacas->text(),
            .chassi = ui::tagOf(ui_->lblPlacas),
            .km = ui_->lblKm->text(),
            .mecanico = ui_->lblMecanico->text(),
            .dataIn = ui_->lblDataIn->text(),
            .dataOut = ui_->lblDataOut->text(),
            .observacao = ui_->lblObs->text(),
            .servicosExecutados = ui_->txtServicos->toPlainText(),
            .total = ui_->lblValor->text(),
            .totalPecas = ui_->lblTotalP->text(),
            .totalServicos = ui_->lblTotalS->text(),
            .totalTercerizados = ui_->lblTotalT->text(),
            .pecas = itens.at(abaPecas),
            .servicos = itens.at(abaServicos),
            .tercerizados = itens.at(abaTercerizados)};
}

/// A click that would do nothing is not offered: most buttons work on the order shown.
void frmOSConsulta::habilitaBotoes()
{
    const QString semOrdem = u"Escolha uma ordem de serviço na lista"_s;
    for (QWidget *botao : {ui_->btnOSAltera, ui_->btnOSPrint, ui_->btnClienteInfo, ui_->btnVeiculoInfo}) {
        ui::enableIf(temOrdem(), botao, semOrdem, ui_->Lista);
    }
    const bool desenha = TemPreVisualizacao(LayoutDeImpressao());
    ui::enableIf(temOrdem() && desenha, ui_->btnPrevisualizar,
                 desenha ? semOrdem : u"O layout de impressão em uso não tem pré-visualização"_s, ui_->Lista);
    const QString forma = ui_->lblFormaPg->text();
    const bool temDetalhes = std::ranges::any_of(
        relatoriosPagto, [&](const RelatorioPagto &relatorio) { return forma.contains(relatorio.forma); });
    ui::enableIf(temDetalhes, ui_->btnPagtoInfo, u"O pagamento desta ordem não tem detalhes"_s, ui_->Lista);
    ui::enableIf(!ui_->txtTexto->text().isEmpty(), ui_->btnPesquisar, u"Digite o texto a pesquisar"_s, ui_->txtTexto);
    disableUnlessExists(u"frmOSAltera"_s, {ui_->btnOSAltera});
    disableUnlessExists(u"frmRelatorio"_s, {ui_->btnPagtoInfo});
}

/// The print layout may have been set in the meantime.
bool frmOSConsulta::event(QEvent *event)
{
    if (event->type() == QEvent::WindowActivate && ui_) {
        habilitaBotoes();
    }
    return ui::Form::event(event);
}

void frmOSConsulta::lblObs_Change()
{
    ui_->lblObs->setToolTip(ui_->lblObs->text());
}

void frmOSConsulta::Lista_Click(int linha)
{
    mostraOrdem(ui_->Lista->item(linha).text());
}

/// A double click has shown the order with its first click; Enter may come to a row that was never chosen.
void frmOSConsulta::Lista_DblClick(int linha)
{
    const QString codigo = ui_->Lista->item(linha).text();
    if (ui_->lblCodigo->text() != codigo) {
        mostraOrdem(codigo);
    }
    if (ModoChamada == modoFechaOS) {
        btnFechar_Click();
        return;
    }
    Devolve(*this, Ocasiao::Escolha, codigo);
}

// --- what is done with it

/// The payment window decides the rest, a closed order included: it is posted a second time.
void frmOSConsulta::btnFechar_Click()
{
    const ItensPorAba itens = ui_->tabItems->itens();
    if (itens.at(abaPecas).empty() && itens.at(abaServicos).empty() && itens.at(abaTercerizados).empty()) {
        ui::MsgBox(u"Você não pode Fechar uma Ordem de Serviço sem registros Cadastrados"_s, ui::Icon::Exclamation,
                   NomeEmpresa);
        return;
    }
    const QString pagto = u"frmOSFormaPagto"_s;
    auto &janelas = ui::Forms::instance();
    janelas.Load(pagto);
    Preenche(*this, pagto);
    janelas.ShowModal(pagto);
    // Nothing behind: a closing has unloaded this window too.
}

void frmOSConsulta::btnOSAdd_Click()
{
    ModoChamada = modoNormal;
    ui::Forms::instance().Show(u"frmOSAbre"_s);
    Unload();
}

void frmOSConsulta::btnOSAltera_Click()
{
    if (temOrdem()) {
        Devolve(*this, Ocasiao::Botao, ui_->lblCodigo->text());
    }
}

void frmOSConsulta::btnOSPrint_Click()
{
    if (temOrdem() &&
        ui::Confirm(u"Confirma impressão da Ordem de Serviço Nº "_s + ui_->lblCodigo->text(), NomeEmpresa)) {
        ImprimeOrdem(LayoutDeImpressao(), ordemMostrada(), printer::printer());
    }
}

void frmOSConsulta::btnPrevisualizar_Click()
{
    if (temOrdem() && TemPreVisualizacao(LayoutDeImpressao())) {
        ImprimeOrdem(LayoutDeImpressao(), ordemMostrada(), AbrePreVisualizacao());
    }
}

void frmOSConsulta::btnPagtoInfo_Click()
{
    const QString forma = ui_->lblFormaPg->text();
    for (const RelatorioPagto &relatorio : relatoriosPagto) {
        if (forma.contains(relatorio.forma)) {
            CodigoConsulta = CLng(ui_->lblCodigo->text());
            ModoChamada = relatorio.modo;
            ui::Forms::instance().ShowAfresh(u"frmRelatorio"_s);
            return;
        }
    }
}

void frmOSConsulta::btnClienteInfo_Click()
{
    MostraInformacoes(TipoInformacao::Cliente, ui::tagOf(ui_->lblNome));
}

void frmOSConsulta::btnVeiculoInfo_Click()
{
    if (temOrdem()) {
        MostraInformacoes(TipoInformacao::Veiculo,
                          LocalizaCampo(u"CodVeiculo"_s, u"OrdemServico"_s, u"Codigo = "_s + ui_->lblCodigo->text()));
    }
}

void frmOSConsulta::btnVoltar_Click()
{
    Unload();
}

bool frmOSConsulta::temOrdem() const
{
    return !ui_->lblCodigo->text().isEmpty();
}

} // namespace workorders
