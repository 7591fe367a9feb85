#pragma once

#include "platform/ui/form.h"

#include <memory>

namespace Ui
{
class frmSenhaManut;
}

namespace shell
{

struct Operador;

/// The register of operators. The caption of `btnAlterar` is the window's mode: "Alterar", then "Cancelar" while the
/// present password is asked for, then "Salvar" while the new data is typed.
class frmSenhaManut : public ui::Form
{
    Q_OBJECT

public:
    frmSenhaManut();
    ~frmSenhaManut() override;

    void Form_Load() override;

private:
    void travaAdmin();
    bool codigoValido();
    bool camposValidos();
    bool senhasConferem(const QString &mensagem);
    Operador digitado() const;
    void limpa();
    void permiteComandos(bool permite);
    void permiteDados(bool permite);
    void pedeSenhaAtual();
    void salva();
    void voltaAoInicio();

    void btnIncluir_Click();
    void btnAlterar_Click();
    void btnExcluir_Click();
    void btnAtualiza_Click();
    void btnLimpar_Click();
    void btnOk_Click();
    void btnCancelar_Click();
    void Lista_ItemClick(int linha);
    void txtCodigo_LostFocus();
    void txtConfirma_Change();

    std::unique_ptr<Ui::frmSenhaManut> ui_;
};

} // namespace shell
