#pragma once

#include "platform/ui/form.h"
#include "workorders/alteracao.h"

#include <memory>

namespace Ui
{
class frmOSAltera;
}

namespace workorders
{

class PaginaCalculo;

/// Alters or deletes an order, and works out what a job should cost. Each item is written at once, only the header
/// waits for the confirmation. A closed order can be deleted and given to another customer, nothing else.
class frmOSAltera : public ui::Form
{
    Q_OBJECT

public:
    frmOSAltera();
    ~frmOSAltera() override;

    void Form_Load() override;

private:
    void txtCodOS_GotFocus();
    void txtCodOS_LostFocus();
    void lblNome_DblClick();
    void btnOSFind_Click();
    void btnOSAdd_Click();
    void btnIncluir_Click();
    void btnExcluir_Click();
    void btnCancelar_Click();
    void btnVoltar_Click();

    void mostra(const OrdemLida &ordem);
    void semOrdem(const QString &motivo);
    void habilita();
    bool confereCodigo();
    bool confereData();
    CabecalhoAlterado cabecalho() const;

    std::unique_ptr<Ui::frmOSAltera> ui_;
    PaginaCalculo *calculadora_ = nullptr;
    qint32 numero_ = 0; ///< of the order that is shown, 0 for none
    bool fechada_ = false;
};

} // namespace workorders
