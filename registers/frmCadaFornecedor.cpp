#include "registers/frmCadaFornecedor.h"

#include "ui_frmCadaFornecedor.h"

#include "registers/avisos.h"

#include "core/funcoes.h"
#include "core/modos.h"
#include "core/modulo.h"

namespace registers
{

using namespace core;

namespace
{

constexpr qsizetype digitosDoCNPJ = 14;

} // namespace

frmCadaFornecedor::frmCadaFornecedor()
    : Cadastro(registroFornecedores()), ui_(std::make_unique<Ui::frmCadaFornecedor>())
{
    ui_->setupUi(this);
    ligaCadastro(*ui_->painelCadastro);
    onLostFocus(ui_->txtCEP, &frmCadaFornecedor::txtCEP_LostFocus);
    onLostFocus(ui_->txtCPF, &frmCadaFornecedor::txtCPF_LostFocus);
}

frmCadaFornecedor::~frmCadaFornecedor() = default;

void frmCadaFornecedor::txtCEP_LostFocus()
{
    PreencheEndereco(ui_->txtCEP->text(),
                     {ui_->txtEndereco, ui_->txtBairro, ui_->txtCidade, ui_->cboEstado, ui_->txtNumero});
}

/// A supplier has no kind: the length alone tells which document is meant.
void frmCadaFornecedor::txtCPF_LostFocus()
{
    const QString documento = ui_->txtCPF->text();
    if (documento.isEmpty()) {
        return;
    }
    AvisaDocumento(documento.size() == digitosDoCNPJ ? ValidaCNPJ(documento) : ValidaCPF(documento));
}

/// The receipt of parts has modes of its own; the queries go on in theirs.
void frmCadaFornecedor::depoisDeDevolver()
{
    if (ModoChamada == modoProcuraFornecedorDaNota) {
        ModoChamada = modoNormal;
    }
}

} // namespace registers
