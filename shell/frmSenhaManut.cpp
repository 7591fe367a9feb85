#include "shell/frmSenhaManut.h"

#include "core/banco.h"
#include "core/funcoes.h"
#include "core/janelas.h"
#include "core/lista.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/boxes.h"
#include "platform/ui/controls.h"
#include "shell/operadores.h"
#include "ui_frmSenhaManut.h"

#include <QRegularExpressionValidator>

#include <array>

using namespace Qt::StringLiterals;
using core::Recusa;
using core::TipoCampo;
using core::ValidaCampo;

namespace shell
{
namespace
{

constexpr int letrasDaSenha = 6;

const auto alterar = u"Alterar"_s;
const auto cancelar = u"Cancelar"_s;
const auto salvar = u"Salvar"_s;

const auto codigoInvalido = u"Código do Operador Inválido"_s;
const auto codigoNaoLocalizado = u"Código Não Localizado"_s;

const auto usuario = u"Usuário"_s;
const auto administrador = u"Administrador"_s;

enum Coluna { Codigo, Nome, Nivel };

QString codigoDoOperador(const dao::Recordset &linha, int lugar)
{
    return runtime::Format(linha.value(lugar), u"00");
}

QString nivelDoOperador(const dao::Recordset &linha, int lugar)
{
    return core::Verdadeiro(linha.value(lugar)) ? administrador : usuario;
}

constexpr std::array colunas{
    core::ColunaLista{u"Código", 900, u"Codigo", codigoDoOperador},
    core::ColunaLista{u"Nome Operador", 4000, u"Nome", core::comoEsta},
    core::ColunaLista{u"Nível", 1600, u"Admin", nivelDoOperador},
};

constexpr core::Lista lista{.colunas = colunas, .tag = senhaDe};

} // namespace

frmSenhaManut::frmSenhaManut() : Form(u"frmSenhaManut"_s), ui_(std::make_unique<Ui::frmSenhaManut>())
{
    ui_->setupUi(this);
    ui_->txtSenha->setMaxLength(maiorSenha);
    ui_->txtConfirma->setMaxLength(maiorSenha);
    ui_->txtCodigo->setValidator(new QRegularExpressionValidator(QRegularExpression(u"\\d*"_s), this));

    filterKeys(ui_->txtCodigo, core::SoInteiros);
    onLostFocus(ui_->txtCodigo, &frmSenhaManut::txtCodigo_LostFocus);
    onChange(ui_->txtConfirma, &frmSenhaManut::txtConfirma_Change);
    onClick(ui_->btnIncluir, &frmSenhaManut::btnIncluir_Click);
    onClick(ui_->btnAlterar, &frmSenhaManut::btnAlterar_Click);
    onClick(ui_->btnExcluir, &frmSenhaManut::btnExcluir_Click);
    onClick(ui_->btnAtualiza, &frmSenhaManut::btnAtualiza_Click);
    onClick(ui_->btnLimpar, &frmSenhaManut::btnLimpar_Click);
    onClick(ui_->btnOk, &frmSenhaManut::btnOk_Click);
    onClick(ui_->btnCancelar, &frmSenhaManut::btnCancelar_Click);
    onItemClick(ui_->Lista, &frmSenhaManut::Lista_ItemClick);
}

frmSenhaManut::~frmSenhaManut() = default;

void frmSenhaManut::Form_Load()
{
    core::MontaLista(*ui_->Lista, lista);
    ui_->btnOk->hide();
    travaAdmin();
    ui::CentraForm(*this, true);
}

/// The first operator is always an administrator.
void frmSenhaManut::travaAdmin()
{
    const bool primeiro = !haOperadores();
    if (primeiro) {
        ui_->chkAdmin->setChecked(true);
    }
    ui_->chkAdmin->setEnabled(!primeiro);
}

void frmSenhaManut::btnAtualiza_Click()
{
    core::EncheLista(*ui_->Lista, operadores(), lista);
}

void frmSenhaManut::btnLimpar_Click()
{
    limpa();
}

/// With the fields goes the operator who was chosen.
void frmSenhaManut::limpa()
{
    core::LimpaForm(*this);
    ui::setTagOf(ui_->txtSenha, {});
}

bool frmSenhaManut::codigoValido()
{
    if (!ValidaCampo(ui_->txtCodigo, codigoInvalido, TipoCampo::NaoVazio)) {
        return false;
    }
    if (ui_->txtCodigo->text().toInt() > maiorCodigo) {
        Recusa(codigoInvalido, ui_->txtCodigo);
        return false;
    }
    return true;
}

bool frmSenhaManut::camposValidos()
{
    return codigoValido() && ValidaCampo(ui_->txtNome, u"Nome do Operador Inválido"_s, TipoCampo::NaoVazio) &&
           ValidaCampo(ui_->txtSenha, u"Senha do Operador Inválida"_s, TipoCampo::NaoVazio);
}

bool frmSenhaManut::senhasConferem(const QString &mensagem)
{
    if (ui_->txtSenha->text() == ui_->txtConfirma->text()) {
        return true;
    }
    Recusa(mensagem, ui_->txtSenha);
    return false;
}

Operador frmSenhaManut::digitado() const
{
    return {.codigo = ui_->txtCodigo->text(),
            .nome = ui_->txtNome->text(),
            .senha = ui_->txtSenha->text(),
            .admin = ui_->chkAdmin->isChecked()};
}

void frmSenhaManut::btnIncluir_Click()
{
    if (!camposValidos()) {
        return;
    }
    if (!nomeDoOperador(ui_->txtCodigo->text()).isEmpty()) {
        Recusa(u"Código de Operador já cadastrado"_s, ui_->txtCodigo);
        return;
    }
    if (!senhasConferem(u"As senhas não conferem, por favor, redigite os campos de senha"_s)) {
        return;
    }
    incluiOperador(digitado());
    btnAtualiza_Click();
    limpa();
    travaAdmin();
}

void frmSenhaManut::btnAlterar_Click()
{
    const QString modo = ui_->btnAlterar->text();
    if (modo == alterar) {
        pedeSenhaAtual();
    } else if (modo == salvar) {
        salva();
    } else {
        voltaAoInicio();
        ui_->chkAdmin->hide();
    }
}

void frmSenhaManut::pedeSenhaAtual()
{
    if (!codigoValido()) {
        return;
    }
    if (ui::tagOf(ui_->txtSenha).isEmpty()) {
        Recusa(u"Selecione um operador na lista"_s, ui_->Lista);
        return;
    }
    permiteDados(false);
    permiteComandos(false);
    ui_->btnOk->setEnabled(true);
    ui_->btnOk->show();
    ui_->chkAdmin->show();
    ui_->btnAlterar->setText(cancelar);
    ui_->txtSenha->clear();
    ui::MsgBox(u"Digite a senha atual"_s, ui::Icon::Information);
    core::SelecionaTexto(ui_->txtSenha);
}

void frmSenhaManut::btnOk_Click()
{
    if (ui_->txtSenha->text() != ui::tagOf(ui_->txtSenha)) {
        Recusa(u"Senha incorreta"_s, ui_->txtSenha);
        return;
    }
    ui_->btnAlterar->setText(salvar);
    permiteDados(true);
    ui_->btnOk->setEnabled(false);
    ui_->txtSenha->clear();
    ui_->txtConfirma->clear();
    core::SelecionaTexto(ui_->txtNome);
}

void frmSenhaManut::salva()
{
    if (!codigoValido() || !senhasConferem(u"Senhas não conferem"_s)) {
        return;
    }
    if (!alteraOperador(digitado())) {
        Recusa(codigoNaoLocalizado, ui_->txtCodigo);
        return;
    }
    btnAtualiza_Click();
    limpa();
    voltaAoInicio();
}

void frmSenhaManut::voltaAoInicio()
{
    permiteDados(true);
    permiteComandos(true);
    ui_->btnOk->hide();
    ui_->btnAlterar->setText(alterar);
}

/// The password field stays open: the present password is typed into it.
void frmSenhaManut::permiteDados(bool permite)
{
    for (QLineEdit *campo : {ui_->txtCodigo, ui_->txtNome, ui_->txtConfirma}) {
        campo->setEnabled(permite);
    }
}

void frmSenhaManut::permiteComandos(bool permite)
{
    for (QPushButton *botao : {ui_->btnIncluir, ui_->btnExcluir, ui_->btnAtualiza, ui_->btnLimpar}) {
        botao->setEnabled(permite);
    }
    ui_->Lista->setEnabled(permite);
}

void frmSenhaManut::btnExcluir_Click()
{
    if (!codigoValido()) {
        return;
    }
    const QString codigo = ui_->txtCodigo->text();
    const QString nome = nomeDoOperador(codigo);
    if (nome.isEmpty()) {
        Recusa(codigoNaoLocalizado, ui_->txtCodigo);
        return;
    }
    if (!ui::Confirm(u"Excluir o operador "_s + nome)) {
        return;
    }
    if (unicoAdministrador(codigo)) {
        Recusa(u"Você não pode excluir o único administrador do sistema"_s, ui_->txtCodigo);
        return;
    }
    excluiOperador(codigo);
    btnAtualiza_Click();
    limpa();
}

void frmSenhaManut::btnCancelar_Click()
{
    Unload();
}

void frmSenhaManut::Lista_ItemClick(int linha)
{
    const ui::ListItem item = ui_->Lista->item(linha);
    ui_->txtCodigo->setText(item.subItem(Codigo));
    ui_->txtNome->setText(item.subItem(Nome));
    ui::setTagOf(ui_->txtSenha, item.tag());
    ui_->chkAdmin->setChecked(item.subItem(Nivel) != usuario);
}

void frmSenhaManut::txtCodigo_LostFocus()
{
    ui_->txtCodigo->setText(runtime::Format(ui_->txtCodigo->text(), u"00"));
}

void frmSenhaManut::txtConfirma_Change()
{
    if (ui_->txtConfirma->text().size() == letrasDaSenha && ui_->chkAdmin->isVisible() && ui_->chkAdmin->isEnabled()) {
        ui_->chkAdmin->setFocus();
    }
}

} // namespace shell
