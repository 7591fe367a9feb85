#include "finance/frmMoviContasPRBaixa.h"

#include "ui_frmMoviContasPRBaixa.h"

#include "core/caixadata.h"
#include "core/config.h"
#include "core/funcoes.h"
#include "core/janelas.h"
#include "core/limites.h"
#include "core/modulo.h"
#include "core/recibo.h"
#include "finance/recebimento.h"
#include "platform/printer/printer.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/boxes.h"
#include "platform/ui/reasons.h"

#include <array>

namespace finance
{

using namespace core;
using namespace Qt::StringLiterals;

namespace
{

constexpr std::array caixas{
    CaixaDeTexto{u"txtVencimento", u"ContasReceber", u"DataPagto"},
    CaixaDeTexto{u"txtDataPagto", u"ContasReceber", u"DataPagto"},
    CaixaDeTexto{u"txtValor", u"ContasReceber", u"Valor"},
    CaixaDeTexto{u"txtNovaData", u"ContasReceber", u"Vencimento"},
};

QString emPalavras(const QString &valor)
{
    return u"Valor Extenso.: "_s + ValorPorExtenso(valor, true);
}

double numeroOuZero(const QString &texto)
{
    return runtime::IsNumeric(texto) ? runtime::CDbl(texto) : 0;
}

QString comoDia(const QString &data)
{
    return runtime::Format(data, mascaraData);
}

} // namespace

frmMoviContasPRBaixa::frmMoviContasPRBaixa()
    : ui::Form(u"frmMoviContasPRBaixa"_s), ui_(std::make_unique<Ui::frmMoviContasPRBaixa>())
{
    ui_->setupUi(this);
    setEscapeUnloads(true);
    for (auto *caixa : {ui_->txtVencimento, ui_->txtDataPagto, ui_->txtNovaData}) {
        LigaData(*this, caixa, {.saida = SaidaDaData::FormataDatas});
    }
    filterKeys(ui_->txtValor, SoDecimais);
    onLostFocus(ui_->txtValor, &frmMoviContasPRBaixa::txtValor_LostFocus);
    onClick(ui_->btnSalvar, &frmMoviContasPRBaixa::btnSalvar_Click);
    onClick(ui_->btnOSPrint, &frmMoviContasPRBaixa::btnOSPrint_Click);
    onClick(ui_->btnVoltar, &frmMoviContasPRBaixa::btnVoltar_Click);
}

frmMoviContasPRBaixa::~frmMoviContasPRBaixa() = default;

void frmMoviContasPRBaixa::Form_Load()
{
    ui::CentraForm(*this, false);
    setWindowTitle(captionOf(u" - [Baixa Contas Receber]"_s));
    LimitaAosCampos(*this, caixas);
    const bool livre = Config(u"LancarRegAutCRLivroCaixa"_s) != u"S";
    for (auto *lancar : {ui_->chkCaixa, ui_->chkCliente}) {
        ui::enableIf(livre, lancar, u"A configuração manda lançar sempre"_s);
    }
    ui_->txtVencimento->setFocus();
}

void frmMoviContasPRBaixa::txtValor_LostFocus()
{
    MascaraTexto(ui_->txtValor, TipoMascara::Valor);
    const double saldo = numeroOuZero(ui_->lblValor->text()) - numeroOuZero(ui_->txtValor->text());
    ui_->lblSaldo->setText(runtime::Format(saldo, mascaraValor));
}

void frmMoviContasPRBaixa::btnVoltar_Click()
{
    Unload();
}

// --- settling

bool frmMoviContasPRBaixa::emParte() const
{
    return ui_->tabPagto->currentIndex() == 1;
}

bool frmMoviContasPRBaixa::confere()
{
    const QString semData = u"Data de Pagamento Inválida"_s;
    if (!emParte()) {
        return ValidaCampo(ui_->txtVencimento, semData, TipoCampo::Data);
    }
    return ValidaCampo(ui_->txtDataPagto, semData, TipoCampo::Data) &&
           ValidaCampo(ui_->txtValor, u"Valor Pagamento Inválido"_s, TipoCampo::Numerico) &&
           ValidaCampo(ui_->txtNovaData, u"Novo Vencimento Inválido"_s, TipoCampo::Data);
}

const Razao &frmMoviContasPRBaixa::livro() const
{
    if (ui_->optBanco1->isChecked()) {
        return razaoBanco1;
    }
    return ui_->optBanco2->isChecked() ? razaoBanco2 : razaoCaixa;
}

Recebimento frmMoviContasPRBaixa::recebimento() const
{
    Recebimento recebimento{
        .codigo = ui::tagOf(this),
        .data = (emParte() ? ui_->txtDataPagto : ui_->txtVencimento)->text(),
        .descricao = ui_->lblDescricao->text(),
        .valor = ui_->lblValor->text(),
        .livro = ui_->chkCaixa->isChecked() ? &livro() : nullptr,
        .codCliente = ui_->chkCliente->isChecked() ? ui_->lblCodCliente->text() : QString(),
        .codOs = ui_->lblCodOS->text(),
    };
    if (emParte()) {
        recebimento.parcial =
            Recebimento::Parcial{ui_->txtValor->text(), ui_->lblSaldo->text(), ui_->txtNovaData->text()};
    }
    return recebimento;
}

void frmMoviContasPRBaixa::btnSalvar_Click()
{
    if (!confere()) {
        return;
    }
    Recebe(recebimento(), [] { ui::MsgBox(u"Registro Não Localizado"_s, ui::Icon::Exclamation, NomeEmpresa); });
    Unload();
    preencheContas();
}

/// As the user would do it: the list asks for its criterion again where it is filtered.
void frmMoviContasPRBaixa::preencheContas()
{
    auto *preenche = ui::Forms::instance().control(u"frmMoviContasPR"_s, u"btnPreenche"_s);
    preenche->setFocus();
    qobject_cast<QAbstractButton *>(preenche)->click();
}

// --- the receipt

/// Whether or not it is settled: what stands on the window.
void frmMoviContasPRBaixa::btnOSPrint_Click()
{
    if (emParte()) {
        imprimeParcial();
    } else {
        imprimeTotal();
    }
}

void frmMoviContasPRBaixa::imprimeTotal()
{
    const QString valor = ui_->lblValor->text();
    ImprimeRecibo({.valor = valor,
                   .linhas = {u"Nome..........: "_s + ui_->lblNome->text(), emPalavras(valor),
                              u"Referente.....: "_s + ui_->lblDescricao->text(),
                              u"Data..........: "_s + comoDia(ui_->txtVencimento->text())}},
                  printer::printer());
}

void frmMoviContasPRBaixa::imprimeParcial()
{
    const QString valor = ui_->txtValor->text();
    ImprimeRecibo(
        {.valor = valor,
         .linhas = {u"Nome..........: "_s + ui_->lblNome->text(), emPalavras(valor),
                    u"Valor Original: "_s + ui_->lblValor->text(), u"Referente.....: "_s + ui_->lblDescricao->text(),
                    u"Data..........: "_s + comoDia(ui_->txtDataPagto->text()) + u"      NOVA DATA PAGAMENTO....: "_s +
                        ui_->txtNovaData->text()},
         .segundoTitulo = u"    PAGAMENTO PARCIAL"_s},
        printer::printer());
}

} // namespace finance
