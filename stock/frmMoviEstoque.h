#pragma once

#include "platform/ui/form.h"

#include "core/campos.h"

#include <memory>

namespace Ui
{
class frmMoviEstoque;
}

namespace core
{
class CaixaDeCodigo;
}

namespace dao
{
class Recordset;
}

namespace core
{
enum class Operacao;
}

namespace stock
{

/// The stock ledger of one part: its rows over a period, movements posted by hand, and the last row taken back, which
/// only an administrator may do. Opened from the report of stocks it shows the report's part alone, to anyone.
class frmMoviEstoque : public ui::Form
{
    Q_OBJECT

public:
    frmMoviEstoque();
    ~frmMoviEstoque() override;

    void Form_Load() override;

private:
    void Form_Unload();
    void txtValor_LostFocus();
    void txtDataInicio_LostFocus();
    void txtDataFim_LostFocus();
    void btnPreenche_Click();
    void btnIncluir_Click();
    void btnExcluir_Click();
    void btnVoltar_Click();
    void Lista_DblClick(int linha);

    void ligaEventos();
    void montaLista();
    void ligaPeca();
    void mostraSoAPeca();
    void mostraPeca(const dao::Recordset &peca);
    void esvazia();
    bool temPeca();
    int codigoUM() const;
    core::Operacao operacao() const;

    std::unique_ptr<Ui::frmMoviEstoque> ui_;
    core::Campos movimento_;
    core::CaixaDeCodigo *peca_ = nullptr; ///< goes with txtCodPeca
};

} // namespace stock
