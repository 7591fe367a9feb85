#include "registers/frmCadaPecas.h"

#include "ui_frmCadaPecas.h"
#include "ui_painelcadastro.h"

#include "registers/painelcadastro.h"
#include "registers/pecas.h"

#include "core/config.h"
#include "core/funcoes.h"
#include "core/modos.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/boxes.h"

#include <array>

namespace registers
{

using namespace core;
using namespace Qt::StringLiterals;

namespace
{

/// What is emptied, as far as the occasion goes: a new or deleted part leaves the last three texts for the next one.
constexpr std::array<QStringView, 10> limpos{u"lblCodigo", u"txtNome",    u"cboMarca",        u"txtCusto",
                                             u"txtVenda",  u"txtEstoque", u"txtEstoqueAtual", u"txtCodExterno",
                                             u"txtICMS",   u"txtClass"};
constexpr std::size_t ateEstoqueAtual = 7;

} // namespace

frmCadaPecas::frmCadaPecas() : Cadastro(registroPecas()), ui_(std::make_unique<Ui::frmCadaPecas>())
{
    ui_->setupUi(this);
    ligaCadastro(*ui_->painelCadastro);
    onClick(ui_->optSim, &frmCadaPecas::optSim_Click);
    onClick(ui_->optNao, &frmCadaPecas::optNao_Click);
    onLostFocus(ui_->txtEstoque, &frmCadaPecas::txtEstoque_LostFocus);
    onLostFocus(ui_->txtEstoqueAtual, &frmCadaPecas::txtEstoqueAtual_LostFocus);
}

frmCadaPecas::~frmCadaPecas() = default;

void frmCadaPecas::aoAbrir()
{
    const bool fiscal = Config(u"Personalizacao"_s) == u"2-2";
    for (QWidget *controle :
         std::initializer_list<QWidget *>{ui_->Rotulos_11, ui_->txtICMS, ui_->Rotulos_12, ui_->txtClass}) {
        controle->setVisible(fiscal);
    }
    ui_->optPeca->setChecked(true);
    ui_->optSim->setChecked(true);
}

bool frmCadaPecas::confere(Gravacao gravacao)
{
    if (!Cadastro::confere(gravacao)) {
        return false;
    }
    if (!ui_->optSim->isChecked()) {
        return true;
    }
    if (!ValidaCampo(ui_->txtEstoque, u"Estoque Mínimo Inválido"_s, TipoCampo::Numerico)) {
        return false;
    }
    return gravacao == Gravacao::Alteracao ||
           ValidaCampo(ui_->txtEstoqueAtual, u"Estoque Atual Inválido"_s, TipoCampo::Numerico);
}

qint32 frmCadaPecas::inclui()
{
    return IncluiPeca(textosGravados());
}

/// "Localizar" shows a least stock without looking whether stock is kept.
QString frmCadaPecas::textoGravado(QStringView nome) const
{
    return nome == u"txtEstoque" && !ui_->optSim->isChecked() ? QString() : Cadastro::textoGravado(nome);
}

void frmCadaPecas::depoisDeIncluir(qint32 codigo)
{
    btnTodos_Click();
    limpaAte(ateEstoqueAtual);
    Devolve(*this, Ocasiao::Inclusao, QString::number(codigo));
    ModoChamada = modoNormal;
}

void frmCadaPecas::antesDeAlterar()
{
    ui::MsgBox(u"O Campo Estoque Atual Não Pode ser Alterado Pelo Cadastro de Peças/Serviços"_s, ui::Icon::Information,
               NomeEmpresa);
}

void frmCadaPecas::depoisDeExcluir()
{
    limpaAte(ateEstoqueAtual);
}

/// A part without stock control is shown as a click on "Não" leaves it.
void frmCadaPecas::depoisDeCarregar()
{
    ligaEstoque(ui_->optSim->isChecked());
}

void frmCadaPecas::depoisDeDevolver()
{
    ModoChamada = modoNormal;
}

void frmCadaPecas::limpa()
{
    limpaAte(limpos.size());
}

void frmCadaPecas::limpaAte(std::size_t quantos)
{
    campos().esvazia(std::span(limpos).first(quantos));
    ui_->cboUnidade->setCurrentIndex(0);
}

void frmCadaPecas::btnCancelar_Click()
{
    if (ui::Confirm(u"Limpar Campos"_s, NomeEmpresa)) {
        limpa();
        ui_->txtNome->setFocus();
    }
}

/// A caller that can't take the code leaves everything as it is.
void frmCadaPecas::Lista_DblClick()
{
    try {
        Cadastro::Lista_DblClick();
    } catch (const runtime::RuntimeError &) {
        return;
    }
}

void frmCadaPecas::optSim_Click()
{
    ligaEstoque(true);
}

void frmCadaPecas::optNao_Click()
{
    ligaEstoque(false);
}

void frmCadaPecas::ligaEstoque(bool ligado)
{
    for (QWidget *controle :
         std::initializer_list<QWidget *>{ui_->Rotulos_8, ui_->txtEstoque, ui_->Rotulos_9, ui_->txtEstoqueAtual}) {
        controle->setEnabled(ligado);
    }
    if (!ligado) {
        ui_->txtEstoque->clear();
        ui_->txtEstoqueAtual->clear();
    }
}

void frmCadaPecas::txtEstoque_LostFocus()
{
    formataQuantidade(ui_->txtEstoque);
}

void frmCadaPecas::txtEstoqueAtual_LostFocus()
{
    formataQuantidade(ui_->txtEstoqueAtual);
}

void frmCadaPecas::formataQuantidade(QLineEdit *caixa)
{
    if (runtime::IsNumeric(caixa->text())) {
        caixa->setText(FormataQuantidade(runtime::CDbl(caixa->text()), ui_->cboUnidade->currentIndex()));
    }
}

} // namespace registers
