#pragma once

#include "documents/entradaitem.h"
#include "platform/ui/form.h"
#include "stock/entrada.h"

#include <memory>

namespace Ui
{
class frmMoviEntradaPeca;
}

namespace stock
{

/// Receives parts: a supplier's note with its lines, which sets the costs of the parts and goes into their ledgers. The
/// lines wait in the list until they are confirmed, and stay there: whoever confirms twice has two notes.
class frmMoviEntradaPeca : public ui::Form
{
    Q_OBJECT

public:
    frmMoviEntradaPeca();
    ~frmMoviEntradaPeca() override;

    void Form_Load() override;

private:
    void txtCodFornecedor_LostFocus();
    void txtCodPeca_Change();
    void btnItemAdd_Click();
    void btnItemRemove_Click();
    void btnLimpa_Click();
    void btnIncluir_Click();
    void btnCancelar_Click();
    void btnVoltar_Click();
    void Lista_DblClick(int linha);

    void ligaFornecedor();
    void ligaLinhas();
    void habilitaRemocao();
    void acrescenta(const documents::LinhaItem &linha);
    void mostraTotal(float total);
    bool confere();
    NotaDeEntrada nota() const;

    std::unique_ptr<Ui::frmMoviEntradaPeca> ui_;
    documents::EntradaItem entrada_;
};

} // namespace stock
