#pragma once

#include "core/movimento.h"

#include <memory>

namespace Ui
{
class frmMoviCaixa;
}

namespace core
{
enum class Acao;
}

namespace finance
{

/// The cash book and the two bank books: three ledgers of one layout, chosen by an option. Each row added, changed or
/// deleted here recalculates the whole chosen ledger; a new one can't lie in the past. Opened in the mode of the report
/// it shows and prints the rows and nothing else.
class frmMoviCaixa : public core::JanelaMovimento
{
    Q_OBJECT

public:
    frmMoviCaixa();
    ~frmMoviCaixa() override;

    void Form_Load() override;

protected:
    const core::TabelaMovimento &tabela() const override;
    QString ordemDaLinha(const ui::ListItem &linha) const override;

private:
    void conta_Click();
    void btnLocalizar_Click();
    void btnOSPrint_Click();
    void btnPrint_Click();
    void btnPrevisualizar_Click();
    void btnBack_Click();
    void lblPrint_Change();

    void imprime(core::Acao acao);

    std::unique_ptr<Ui::frmMoviCaixa> ui_;
};

} // namespace finance
