#include "estimates/cabecalhoorcamento.h"

#include "ui_cabecalhoorcamento.h"

#include "core/banco.h"
#include "core/caixacodigo.h"
#include "core/caixalista.h"
#include "core/funcoes.h"
#include "core/informacoes.h"
#include "core/janelas.h"
#include "core/limites.h"
#include "core/modos.h"
#include "core/modulo.h"
#include "core/textolongo.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/boxes.h"
#include "platform/ui/form.h"

#include <array>

namespace estimates
{

using namespace runtime;
using namespace core;
using namespace Qt::StringLiterals;

namespace
{

constexpr std::array caixas{
    CaixaDeTexto{u"txtNome", u"Orcamento", u"NomeCliente"},  CaixaDeTexto{u"txtFone1", u"Orcamento", u"Fone"},
    CaixaDeTexto{u"cboMarca", u"Orcamento", u"MarcaModelo"}, CaixaDeTexto{u"cboAno", u"Orcamento", u"Ano"},
    CaixaDeTexto{u"txtObs", u"Orcamento", u"Observacoes"},
};

} // namespace

CabecalhoOrcamento::CabecalhoOrcamento(QWidget *parent)
    : QWidget(parent), ui_(std::make_unique<Ui::CabecalhoOrcamento>())
{
    ui_->setupUi(this);
    // The tab stops of the window move the fields as one piece, as those of the item panel.
    setFocusPolicy(Qt::TabFocus);
    setFocusProxy(ui_->txtCodCliente);
}

CabecalhoOrcamento::~CabecalhoOrcamento() = default;

void CabecalhoOrcamento::liga(ui::Form &janela)
{
    janela.onGotFocus(ui_->txtCodCliente, this, &CabecalhoOrcamento::txtCodCliente_GotFocus);
    janela.onLostFocus(ui_->txtCodCliente, this, &CabecalhoOrcamento::txtCodCliente_LostFocus);
    marca_ = new CaixaDeLista(janela, ui_->cboMarca, ListaCombo::MarcaModelo, ui_->btnMarcaAdd, ui_->btnMarcaRemove);
    ano_ = new CaixaDeLista(janela, ui_->cboAno, ListaCombo::MarcaModelo);
    ui_->btnClienteFind->hide();
    ui_->btnClienteAdd->hide();
}

void CabecalhoOrcamento::ofereceClientes(ui::Form &janela, qint16 modoProcura, qint16 modoInclui)
{
    ui_->btnClienteFind->show();
    ui_->btnClienteAdd->show();
    new CaixaDeCodigo(janela, ui_->txtCodCliente,
                      {.cadastro = u"frmCadaCliente",
                       .procura = ui_->btnClienteFind,
                       .modoProcura = modoProcura,
                       .inclui = ui_->btnClienteAdd,
                       .modoInclui = modoInclui});
}

void CabecalhoOrcamento::poeBotoesDepoisDe(QWidget *ultimo)
{
    for (QWidget *botao : {ui_->btnClienteFind, ui_->btnClienteAdd, ui_->btnMarcaAdd, ui_->btnMarcaRemove}) {
        setTabOrder(ultimo, botao);
        ultimo = botao;
    }
}

void CabecalhoOrcamento::monta() const
{
    LimitaAosCampos(*this, caixas);
    marca_->carrega();
    ano_->carrega();
}

void CabecalhoOrcamento::txtCodCliente_GotFocus()
{
    focaCliente();
}

/// Brings name and phone of a registered customer. An unknown code is told and the name stays, as the estimate may be
/// for somebody else; what can be no code is taken out, as it could not be written.
void CabecalhoOrcamento::txtCodCliente_LostFocus()
{
    const QString texto = ui_->txtCodCliente->text();
    if (texto.isEmpty()) {
        return;
    }
    const auto codigo = CodigoDoTexto(texto);
    if (codigo && mostraCliente(*codigo)) {
        return;
    }
    ui::MsgBox(u"Código do Cliente não localizado"_s, ui::Icon::Exclamation, NomeEmpresa);
    if (!codigo) {
        ui_->txtCodCliente->clear();
    }
}

bool CabecalhoOrcamento::mostraCliente(qint32 codigo)
{
    const auto cliente =
        DBDados->OpenRecordset(u"SELECT Codigo, Nome, Fone1 FROM Clientes WHERE Codigo = "_s + QString::number(codigo));
    if (cliente.Eof()) {
        return false;
    }
    ui_->txtCodCliente->setText(Format(cliente.value(u"Codigo"), mascaraCodigo));
    EscreveTexto(ui_->txtNome, NuloParaVazio(cliente.value(u"Nome")));
    ui_->txtFone1->setText(NuloParaVazio(cliente.value(u"Fone1")));
    return true;
}

Orcamento CabecalhoOrcamento::campos() const
{
    return {.marca = ui_->cboMarca->currentText(),
            .ano = ui_->cboAno->currentText(),
            .codCliente = ui_->txtCodCliente->text(),
            .nome = ui_->txtNome->text(),
            .fone = ui_->txtFone1->text(),
            .observacoes = ui_->txtObs->text()};
}

void CabecalhoOrcamento::mostra(const Orcamento &orcamento)
{
    marca_->escreve(orcamento.marca);
    ano_->escreve(orcamento.ano);
    ui_->txtCodCliente->setText(orcamento.codCliente);
    EscreveTexto(ui_->txtNome, orcamento.nome);
    ui_->txtFone1->setText(orcamento.fone);
    EscreveTexto(ui_->txtObs, orcamento.observacoes);
}

bool CabecalhoOrcamento::confereMarca(const QString &mensagem) const
{
    if (!ui_->cboMarca->currentText().isEmpty()) {
        return true;
    }
    Recusa(mensagem, ui_->cboMarca);
    return false;
}

void CabecalhoOrcamento::focaCliente() const
{
    SelecionaTexto(ui_->txtCodCliente);
}

} // namespace estimates
