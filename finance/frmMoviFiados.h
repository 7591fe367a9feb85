#pragma once

#include "core/movimento.h"

#include <memory>

namespace Ui
{
class frmMoviFiados;
}

namespace finance
{

/// The orders whose customers pay later, by their situation or by a search. The key P settles one, or takes that back,
/// and offers to post its value to the cash book; the account of its customer opens from here.
class frmMoviFiados : public core::JanelaMovimento
{
    Q_OBJECT

public:
    frmMoviFiados();
    ~frmMoviFiados() override;

    void Form_Load() override;

protected:
    QString consulta() const override { return consulta_; }
    void teclaP(const ui::ListItem &linha) override;

private:
    void cboOS_Change();
    void btnTodos_Click();
    void btnPesquisar_Click();
    void btnLocalizar_Click();
    void btnConta_Click();

    QString escolhida() const;
    void habilitaConta();

    std::unique_ptr<Ui::frmMoviFiados> ui_;
    QString consulta_; ///< of the situation or of the search, whichever was asked for last
};

} // namespace finance
