#include "workorders/frmOSAltera.h"

#include "ui_frmOSAltera.h"

#include "core/caixadata.h"
#include "core/devolucao.h"
#include "core/funcoes.h"
#include "core/informacoes.h"
#include "core/janelas.h"
#include "core/limites.h"
#include "core/modos.h"
#include "core/modulo.h"
#include "documents/itensgravados.h"
#include "documents/usoimediato.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/boxes.h"
#include "platform/ui/controls.h"
#include "platform/ui/listview.h"
#include "platform/ui/reasons.h"
#include "workorders/paginacalculo.h"

#include <array>

namespace workorders
{

using namespace runtime;
using namespace core;
using namespace documents;
using namespace Qt::StringLiterals;

namespace
{

constexpr std::array caixas{CaixaDeTexto{u"txtFormaPg", u"OrdemServico", u"FormaPagto"}};

const QString naoLocalizada = u"Código da Ordem de Serviço Não Localizado"_s;

void avisa(const QString &motivo)
{
    ui::MsgBox(motivo, ui::Icon::Exclamation, NomeEmpresa);
}

} // namespace

frmOSAltera::frmOSAltera() : ui::Form(u"frmOSAltera"_s), ui_(std::make_unique<Ui::frmOSAltera>())
{
    ui_->setupUi(this);

    onGotFocus(ui_->txtCodOS, &frmOSAltera::txtCodOS_GotFocus);
    onLostFocus(ui_->txtCodOS, &frmOSAltera::txtCodOS_LostFocus);
    onKey(ui_->txtCodOS, Qt::Key_F1, &frmOSAltera::btnOSFind_Click);
    onKey(ui_->txtCodOS, Qt::Key_F2, &frmOSAltera::btnOSAdd_Click);
    onClick(ui_->btnOSFind, &frmOSAltera::btnOSFind_Click);
    onClick(ui_->btnOSAdd, &frmOSAltera::btnOSAdd_Click);
    onDoubleClick(ui_->cabecalho->nome(), &frmOSAltera::lblNome_DblClick);
    onKey(this, Qt::Key_F3, &frmOSAltera::lblNome_DblClick); // a label takes no focus
    LigaData(*this, ui_->txtDataPg);
    onClick(ui_->btnIncluir, &frmOSAltera::btnIncluir_Click);
    onClick(ui_->btnExcluir, &frmOSAltera::btnExcluir_Click);
    onClick(ui_->btnCancelar, &frmOSAltera::btnCancelar_Click);
    onClick(ui_->btnVoltar, &frmOSAltera::btnVoltar_Click);
    ui_->cabecalho->liga(*this);
    ui_->painelItens->liga(*this,
                           UsoDe(*ui_->painelItens, {.documento = ordemGravada,
                                                     .numero = [this] { return numero_; },
                                                     .semDocumento = naoLocalizada,
                                                     .abasComTeclas = {abaPecas, abaServicos, abaTercerizados}}));
    calculadora_ = new PaginaCalculo(ui_->painelItens->listas());
    calculadora_->liga(*this);
    habilita();
}

frmOSAltera::~frmOSAltera() = default;

void frmOSAltera::Form_Load()
{
    ui::CentraForm(*this, false);
    setWindowTitle(captionOf(u" - [Altera Ordem de Serviço]"_s));
    ui_->cabecalho->monta();
    ui_->cabecalho->nome()->setToolTip(u"Clique duas vezes, ou tecle F3, para mudar o cliente da O.S."_s);
    ui_->painelItens->monta(FormaDoLayout());
    calculadora_->monta();
    LimitaAosCampos(*this, caixas);
}

// --- the order shown

void frmOSAltera::txtCodOS_GotFocus()
{
    SelecionaTexto(ui_->txtCodOS);
}

/// The focus goes on whatever comes of it.
void frmOSAltera::txtCodOS_LostFocus()
{
    const QString texto = ui_->txtCodOS->text();
    if (texto.isEmpty()) {
        return;
    }
    if (!IsNumeric(texto)) {
        semOrdem(u"Código da O.S. Inválido"_s);
        return;
    }
    const auto numero = CodigoDoTexto(texto);
    const auto ordem = numero ? LeOrdem(*numero) : std::nullopt;
    if (!ordem) {
        semOrdem(u"Código da O.S. não localizado"_s);
        return;
    }
    numero_ = *numero;
    mostra(*ordem);
}

void frmOSAltera::mostra(const OrdemLida &ordem)
{
    ui_->txtCodOS->setText(Format(numero_, mascaraCodigo));
    ui_->cabecalho->mostra(ordem.veiculo);
    ui_->cabecalho->mostraTextos(ordem.cabecalho.textos);
    ui_->txtDataPg->setText(ordem.cabecalho.dataPagto);
    ui_->txtFormaPg->setText(ordem.cabecalho.formaPagto);
    (ordem.cabecalho.pago ? ui_->OptSim1 : ui_->optNao1)->setChecked(true);
    (ordem.cabecalho.emAberto ? ui_->optSim2 : ui_->optNao2)->setChecked(true);
    fechada_ = !ordem.cabecalho.emAberto;
    PainelItens &painel = *ui_->painelItens;
    painel.limpa();
    painel.listas().mostra(LeItens(u"SELECT * FROM OSPecas WHERE CodOS = "_s + QString::number(numero_)));
    painel.recalcula();
    painel.mostraTotal(ordem.valor);
    habilita();
}

/// What was shown goes: under another code it would be altered as the wrong order.
void frmOSAltera::semOrdem(const QString &motivo)
{
    numero_ = 0;
    ui_->cabecalho->mostra({});
    ui_->cabecalho->mostraTextos({});
    ui_->txtDataPg->clear();
    ui_->txtFormaPg->clear();
    ui_->painelItens->limpa();
    habilita();
    avisa(motivo);
}

void frmOSAltera::habilita()
{
    const bool fechada = numero_ != 0 && fechada_;
    const QString motivo = fechada ? u"A ordem de serviço está fechada"_s
                                   : (numero_ == 0 ? u"Informe o número da ordem de serviço"_s : QString());
    ui_->painelItens->trava(motivo);
    ui::enableIf(!fechada, ui_->btnIncluir, motivo, ui_->txtCodOS);
}

void frmOSAltera::btnOSFind_Click()
{
    Chama(u"frmOSConsulta"_s, modoProcuraOSParaAlterar);
}

void frmOSAltera::btnOSAdd_Click()
{
    Chama(u"frmOSAbre"_s, modoAbreOSParaAlterar);
}

// --- what is done with it

/// The new customer is not looked up first: an order may be given to a code that does not exist.
void frmOSAltera::lblNome_DblClick()
{
    ui::leaveField();
    const QString resposta = ui::InputBox(u"Digite o novo código do cliente"_s);
    if (!IsNumeric(resposta)) {
        return;
    }
    const auto codigo = CodigoDoTexto(resposta);
    if (!codigo) {
        avisa(u"Código do Cliente Inválido"_s);
        return;
    }
    if (!MudaCliente(numero_, *codigo)) {
        avisa(u"OS Não Localizada"_s);
        return;
    }
    ui_->cabecalho->mostraCliente(LeCliente(*codigo));
}

bool frmOSAltera::confereCodigo()
{
    if (IsNumeric(ui_->txtCodOS->text())) {
        return true;
    }
    Recusa(u"Código da Ordem de Serviço Inválida"_s, ui_->txtCodOS);
    return false;
}

bool frmOSAltera::confereData()
{
    return ui_->txtDataPg->text().isEmpty() ||
           ValidaCampo(ui_->txtDataPg, u"Data de Pagamento Inválida"_s, TipoCampo::Data);
}

CabecalhoAlterado frmOSAltera::cabecalho() const
{
    return {.textos = ui_->cabecalho->textos(),
            .pago = ui_->OptSim1->isChecked(),
            .emAberto = ui_->optSim2->isChecked(),
            .dataPagto = ui_->txtDataPg->text(),
            .formaPagto = ui_->txtFormaPg->text()};
}

/// Only an order that is shown is written: the fields of none would empty the one behind the code.
void frmOSAltera::btnIncluir_Click()
{
    if (!confereCodigo() || !confereData()) {
        return;
    }
    if (!ExisteDocumento(ordemGravada, numero_)) {
        Recusa(naoLocalizada, ui_->txtCodOS);
        return;
    }
    if (!ui::Confirm(u"Confirma Alteração"_s, NomeEmpresa)) {
        return;
    }
    if (!AlteraOrdem(numero_, cabecalho())) {
        Recusa(naoLocalizada, ui_->txtCodOS);
        return;
    }
    btnCancelar_Click();
}

void frmOSAltera::btnExcluir_Click()
{
    const auto numero = CodigoDoTexto(ui_->txtCodOS->text());
    if (!numero) {
        Recusa(u"Código da Ordem de Serviço Inválida"_s, ui_->txtCodOS);
        return;
    }
    if (ui::Confirm(u"Excluir a Ordem de Serviço selecionada"_s, NomeEmpresa)) {
        ExcluiDocumento(ordemGravada, *numero);
        btnCancelar_Click();
    }
}

/// The material stays in its list until another order is shown.
void frmOSAltera::btnCancelar_Click()
{
    LimpaForm(*this);
    for (const Aba aba : {abaPecas, abaServicos, abaTercerizados}) {
        ui_->painelItens->listas().lista(aba).clear();
    }
    numero_ = 0;
    habilita();
    ui_->txtCodOS->setFocus();
}

void frmOSAltera::btnVoltar_Click()
{
    Unload();
}

} // namespace workorders
