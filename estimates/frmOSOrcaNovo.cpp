#include "estimates/frmOSOrcaNovo.h"

#include "ui_frmOSOrcaNovo.h"

#include "core/config.h"
#include "core/funcoes.h"
#include "core/janelas.h"
#include "core/modos.h"
#include "core/modulo.h"
#include "documents/documento.h"
#include "estimates/orcamentoimpresso.h"
#include "estimates/paineis.h"
#include "platform/printer/printer.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/boxes.h"
#include "platform/ui/form.h"

namespace estimates
{

using namespace runtime;
using namespace core;
using namespace documents;
using namespace Qt::StringLiterals;

frmOSOrcaNovo::frmOSOrcaNovo() : ui::Form(u"frmOSOrcaNovo"_s), ui_(std::make_unique<Ui::frmOSOrcaNovo>())
{
    ui_->setupUi(this);
    ui_->cabecalho->liga(*this);
    ui_->cabecalho->ofereceClientes(*this, modoProcuraClienteDoOrcamento, modoIncluiClienteDoOrcamento);
    ui_->cabecalho->poeBotoesDepoisDe(ui_->btnVoltar);
    ui_->painelItens->liga(*this);
    onClick(ui_->btnIncluir, &frmOSOrcaNovo::btnIncluir_Click);
    onClick(ui_->btnPrint, &frmOSOrcaNovo::btnPrint_Click);
    onClick(ui_->btnCancelar, &frmOSOrcaNovo::btnCancelar_Click);
    onClick(ui_->btnVoltar, &frmOSOrcaNovo::btnVoltar_Click);
}

frmOSOrcaNovo::~frmOSOrcaNovo() = default;

void frmOSOrcaNovo::Form_Load()
{
    ui::CentraForm(*this, false);
    setWindowTitle(captionOf(u" - [Abrir Novo Orçamento]"_s));
    ui_->cabecalho->monta();
    ui_->painelItens->monta(FormaListas::UmaLista);
    ui_->painelItens->ofereceTrabalhos(Config(u"Personalizacao"_s) == u"1-1");
}

Orcamento frmOSOrcaNovo::orcamento() const
{
    Orcamento orcamento = OrcamentoDosPaineis(*ui_->cabecalho, *ui_->painelItens);
    orcamento.data = Hoje();
    return orcamento;
}

void frmOSOrcaNovo::btnIncluir_Click()
{
    if (ui_->cabecalho->confereMarca(u"Marca/Modelo do Veículo Inválido"_s) &&
        ui::Confirm(u"Confirma Inclusão"_s, NomeEmpresa)) {
        ofereceImpressao(IncluiOrcamento(orcamento()));
        ui_->painelItens->limpa();
        btnCancelar_Click();
    }
}

/// While the question is open the mode and the number stand for the estimate that has just been written.
void frmOSOrcaNovo::ofereceImpressao(qint32 numero)
{
    ModoChamada = modoOrcamentoGravado;
    CodigoConsulta = numero;
    const QString codigo = Format(numero, mascaraCodigo);
    if (ui::Confirm(u"Imprimir Orçamento Nº "_s + codigo, NomeEmpresa) &&
        PodeImprimir(*ui_->cabecalho, *ui_->painelItens)) {
        imprime(codigo);
    }
    ModoChamada = modoNormal;
    CodigoConsulta = 0;
}

/// What stands in the window may never have been written: it prints without a number. The mode does not tell, as the
/// register that adds a customer leaves the same one behind.
void frmOSOrcaNovo::btnPrint_Click()
{
    if (PodeImprimir(*ui_->cabecalho, *ui_->painelItens) &&
        ui::Confirm(u"Confirma impressão do orçamento"_s, NomeEmpresa)) {
        imprime({});
    }
}

void frmOSOrcaNovo::imprime(const QString &codigo) const
{
    Orcamento impresso = orcamento();
    impresso.codigo = codigo;
    ImprimeOrcamento(LayoutDeImpressao(), impresso, printer::printer());
}

void frmOSOrcaNovo::btnCancelar_Click()
{
    LimpaForm(*this);
    ui_->cabecalho->focaCliente();
}

void frmOSOrcaNovo::btnVoltar_Click()
{
    Unload();
}

} // namespace estimates
