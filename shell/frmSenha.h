#pragma once

#include "platform/ui/form.h"

#include <QTimer>

#include <memory>

namespace Ui
{
class frmSenha;
}

namespace shell
{

/// The login. The third wrong password ends the program, wherever it was given. Where there are no operators a blinking
/// notice offers their maintenance.
class frmSenha : public ui::Form
{
    Q_OBJECT

public:
    frmSenha();
    ~frmSenha() override;

    void Form_Load() override;

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void mostraAviso(bool visivel);
    void atualizaAviso();
    void esqueceOperador();
    bool senhaConfere();
    void abreManutencao();
    void entra();

    void txtCodigo_Change();
    void txtCodigo_LostFocus();
    void txtSenha_Change();
    void btnOk_Click();
    void btnCancelar_Click();
    void btnManutencao_Click();
    void tmrAnima_Timer();

    std::unique_ptr<Ui::frmSenha> ui_;
    QTimer *tmrAnima_;
    bool avisoVisivel_ = false;
    bool temOperador_ = false;
    int falhas_ = 0;
};

} // namespace shell
