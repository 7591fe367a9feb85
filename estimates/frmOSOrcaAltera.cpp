#include "estimates/frmOSOrcaAltera.h"

#include "ui_frmOSOrcaAltera.h"

#include "core/caixacodigo.h"
#include "core/informacoes.h"
#include "core/janelas.h"
#include "core/modos.h"
#include "core/modulo.h"
#include "documents/documento.h"
#include "documents/usoimediato.h"
#include "estimates/orcamentoimpresso.h"
#include "estimates/paineis.h"
#include "platform/printer/printer.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/boxes.h"

namespace estimates
{

using namespace runtime;
using namespace core;
using namespace documents;
using namespace Qt::StringLiterals;

namespace
{

const QString naoLocalizado = u"Código do Orçamento não localizado"_s;

} // namespace

frmOSOrcaAltera::frmOSOrcaAltera() : ui::Form(u"frmOSOrcaAltera"_s), ui_(std::make_unique<Ui::frmOSOrcaAltera>())
{
    ui_->setupUi(this);
    onGotFocus(ui_->txtCodOrcamento, &frmOSOrcaAltera::txtCodOrcamento_GotFocus);
    onLostFocus(ui_->txtCodOrcamento, &frmOSOrcaAltera::txtCodOrcamento_LostFocus);
    new CaixaDeCodigo(
        *this, ui_->txtCodOrcamento,
        {.cadastro = u"frmOSOrcaConsulta", .procura = ui_->btnOrcaFind, .modoProcura = modoProcuraOrcamento});
    ui_->cabecalho->liga(*this);
    ui_->cabecalho->poeBotoesDepoisDe(ui_->btnVoltar);
    ui_->painelItens->liga(*this, UsoDe(*ui_->painelItens, {.documento = orcamentoGravado,
                                                            .numero = [this] { return numero(); },
                                                            .semDocumento = naoLocalizado}));
    onChange(ui_->txtCodOrcamento, &frmOSOrcaAltera::travaItens);
    onChange(ui_->lblCodigo, &frmOSOrcaAltera::travaItens);
    travaItens();
    onClick(ui_->btnIncluir, &frmOSOrcaAltera::btnIncluir_Click);
    onClick(ui_->btnExcluir, &frmOSOrcaAltera::btnExcluir_Click);
    onClick(ui_->btnPrint, &frmOSOrcaAltera::btnPrint_Click);
    onClick(ui_->btnCancelar, &frmOSOrcaAltera::btnCancelar_Click);
    onClick(ui_->btnVoltar, &frmOSOrcaAltera::btnVoltar_Click);
}

frmOSOrcaAltera::~frmOSOrcaAltera() = default;

void frmOSOrcaAltera::Form_Load()
{
    ui::CentraForm(*this, false);
    setWindowTitle(captionOf(u" - [Altera Orçamento]"_s));
    ui_->cabecalho->monta();
    ui_->painelItens->monta(FormaListas::UmaLista);
}

// --- the estimate shown

/// The code box may hold another code that has not been looked up yet.
bool frmOSOrcaAltera::carregado() const
{
    const QString codigo = ui_->lblCodigo->text();
    return !codigo.isEmpty() && codigo == ui_->txtCodOrcamento->text();
}

qint32 frmOSOrcaAltera::numero() const
{
    return CLng(ui_->lblCodigo->text());
}

/// An item is written where it is added, so there must be an estimate to write it to.
void frmOSOrcaAltera::travaItens()
{
    ui_->painelItens->trava(carregado() ? QString() : u"Nenhum orçamento foi informado"_s);
}

void frmOSOrcaAltera::txtCodOrcamento_GotFocus()
{
    SelecionaTexto(ui_->txtCodOrcamento);
}

void frmOSOrcaAltera::txtCodOrcamento_LostFocus()
{
    if (!ui_->txtCodOrcamento->text().isEmpty()) {
        carrega(ui_->txtCodOrcamento->text());
    }
}

/// What stood there belongs to another code, so it goes whatever becomes of this one.
void frmOSOrcaAltera::carrega(const QString &texto)
{
    esvazia();
    if (!IsNumeric(texto)) {
        ui::MsgBox(u"Código do Orçamento Inválido"_s, ui::Icon::Exclamation, NomeEmpresa);
        return;
    }
    const auto codigo = CodigoDoTexto(texto);
    const auto orcamento = codigo ? LeOrcamento(QString::number(*codigo)) : std::nullopt;
    if (!orcamento) {
        ui::MsgBox(naoLocalizado, ui::Icon::Exclamation, NomeEmpresa);
        return;
    }
    mostra(*orcamento);
}

void frmOSOrcaAltera::esvazia()
{
    ui_->lblCodigo->setText({});
    ui_->lblData->setText({});
    ui_->cabecalho->mostra({});
    ui_->painelItens->limpa();
}

void frmOSOrcaAltera::mostra(const Orcamento &orcamento)
{
    ui_->txtCodOrcamento->setText(orcamento.codigo);
    ui_->lblCodigo->setText(orcamento.codigo);
    ui_->lblData->setText(orcamento.data);
    ui_->cabecalho->mostra(orcamento);
    PainelItens &painel = *ui_->painelItens;
    painel.listas().mostra(LeItens(u"SELECT * FROM OrcaPecas WHERE CodOrca = "_s + orcamento.codigo));
    painel.mostraTotal(orcamento.valor.isEmpty() ? u"0,00"_s : orcamento.valor);
}

// --- what is done with it

void frmOSOrcaAltera::btnIncluir_Click()
{
    if (!ui_->cabecalho->confereMarca(u"Código de Veículo Inválido"_s)) {
        return;
    }
    if (!carregado() || !ExisteDocumento(orcamentoGravado, numero())) {
        recusaCodigo();
        return;
    }
    if (!ui::Confirm(u"Confirma Alteração"_s, NomeEmpresa)) {
        return;
    }
    if (!AlteraOrcamento(numero(), OrcamentoDosPaineis(*ui_->cabecalho, *ui_->painelItens))) {
        recusaCodigo(); // deleted by somebody else while the question was open
        return;
    }
    btnCancelar_Click();
}

void frmOSOrcaAltera::recusaCodigo() const
{
    Recusa(u"Código Não Localizado"_s, ui_->txtCodOrcamento);
}

void frmOSOrcaAltera::btnExcluir_Click()
{
    const auto codigo = CodigoDoTexto(ui_->txtCodOrcamento->text());
    if (!codigo) {
        Recusa(u"Código do Orcamento Inválido"_s, ui_->txtCodOrcamento);
        return;
    }
    if (ui::Confirm(u"Excluir a Orçamento selecionado"_s, NomeEmpresa)) {
        ExcluiDocumento(orcamentoGravado, *codigo);
        btnCancelar_Click();
    }
}

void frmOSOrcaAltera::btnPrint_Click()
{
    if (!PodeImprimir(*ui_->cabecalho, *ui_->painelItens) ||
        !ui::Confirm(u"Confirma impressão do orçamento"_s, NomeEmpresa)) {
        return;
    }
    Orcamento impresso = OrcamentoDosPaineis(*ui_->cabecalho, *ui_->painelItens);
    impresso.codigo = ui_->lblCodigo->text();
    impresso.data = ui_->lblData->text();
    ImprimeOrcamento(LayoutDeImpressao(), impresso, printer::printer());
}

void frmOSOrcaAltera::btnCancelar_Click()
{
    LimpaForm(*this);
    ui_->painelItens->limpa();
    ui_->txtCodOrcamento->setFocus();
}

void frmOSOrcaAltera::btnVoltar_Click()
{
    Unload();
}

} // namespace estimates
