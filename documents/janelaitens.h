#pragma once

#include "platform/ui/form.h"

namespace documents
{

class PainelItens;

/// The base of the windows that build up item lists. It brings the events of the item panel; a window that writes its
/// items at once, instead of at the confirmation, gives its own `btnItemAdd_Click`, `btnItemRemove_Click` and
/// `Lista_Insert`.
class JanelaItens : public ui::Form
{
    Q_OBJECT

protected:
    /// The values of `ModoChamada` that tell the register of parts which window it works for.
    struct ModosPeca {
        qint16 procura;
        qint16 inclui;
    };

    explicit JanelaItens(const QString &nome, ModosPeca modos) : Form(nome), modos_(modos) {}

    /// Connects the events of the panel. For the constructor of the window.
    void ligaItens(PainelItens &painel);

    /// Delete and Insert remove and edit the selected row of a list.
    void ligaTeclas(QWidget *lista);

    PainelItens &itens() const { return *painel_; }

    virtual void btnItemAdd_Click();
    virtual void btnItemRemove_Click();
    virtual void Lista_Insert();
    void btnLimpa_Click();
    void btnAdicionar_Click();

private:
    void txtCodPeca_GotFocus();
    void txtCodPeca_LostFocus();
    void txtQuantidade_GotFocus();
    void txtQuantidade_LostFocus();
    void txtDescricao_Change();
    void txtValor_GotFocus();
    void txtValor_LostFocus();
    void btnPecaFind_Click();
    void btnPecaAdd_Click();
    void btnMarcaAdd_Click();
    void btnMarcaRemove_Click();

    PainelItens *painel_ = nullptr;
    ModosPeca modos_;
};

} // namespace documents
