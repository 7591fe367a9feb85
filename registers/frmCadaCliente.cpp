#include "registers/frmCadaCliente.h"

#include "ui_frmCadaCliente.h"

#include "registers/avisos.h"

#include "core/funcoes.h"

namespace registers
{

using namespace core;
using namespace Qt::StringLiterals;

namespace
{

constexpr int pessoaFisica = 0;

} // namespace

frmCadaCliente::frmCadaCliente() : Cadastro(registroClientes()), ui_(std::make_unique<Ui::frmCadaCliente>())
{
    ui_->setupUi(this);
    ligaCadastro(*ui_->painelCadastro);
    onLostFocus(ui_->txtNome, &frmCadaCliente::txtNome_LostFocus);
    onLostFocus(ui_->txtCEP, &frmCadaCliente::txtCEP_LostFocus);
    onLostFocus(ui_->txtCPF, &frmCadaCliente::txtCPF_LostFocus);
}

frmCadaCliente::~frmCadaCliente() = default;

void frmCadaCliente::aoAbrir()
{
    ui_->cboPessoa->setCurrentIndex(pessoaFisica);
}

void frmCadaCliente::txtNome_LostFocus()
{
    AvisaSeHa(u"SELECT Codigo FROM Clientes WHERE Nome = '"_s + ui_->txtNome->text() + u"'"_s,
              u"Nome de Cliente Já Cadastrado"_s);
}

void frmCadaCliente::txtCEP_LostFocus()
{
    PreencheEndereco(ui_->txtCEP->text(),
                     {ui_->txtEndereco, ui_->txtBairro, ui_->txtCidade, ui_->cboEstado, ui_->txtNumero});
}

void frmCadaCliente::txtCPF_LostFocus()
{
    const QString documento = ui_->txtCPF->text();
    if (documento.isEmpty()) {
        return;
    }
    AvisaDocumento(ui_->cboPessoa->currentIndex() == pessoaFisica ? ValidaCPF(documento) : ValidaCNPJ(documento));
}

bool frmCadaCliente::confere(Gravacao gravacao)
{
    if (!Cadastro::confere(gravacao)) {
        return false;
    }
    if (ui_->txtLimite->text().isEmpty()) {
        ui_->txtLimite->setText(u"0,00"_s); // no limit given is a limit of zero, not an unknown one
    }
    return true;
}

} // namespace registers
