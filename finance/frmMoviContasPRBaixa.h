#pragma once

#include "platform/ui/form.h"

#include <memory>

namespace Ui
{
class frmMoviContasPRBaixa;
}

namespace core
{
struct Razao;
}

namespace finance
{

struct Recebimento;

/// Settles an account receivable, by a tab the whole or a part of it, and prints its receipt. The accounts fill it from
/// the chosen row, whose code is its `Tag`, and show it modally; behind a settlement it has them filled anew.
class frmMoviContasPRBaixa : public ui::Form
{
    Q_OBJECT

public:
    frmMoviContasPRBaixa();
    ~frmMoviContasPRBaixa() override;

    void Form_Load() override;

private:
    void txtValor_LostFocus();
    void btnSalvar_Click();
    void btnOSPrint_Click();
    void btnVoltar_Click();

    bool emParte() const;
    bool confere();
    const core::Razao &livro() const;
    Recebimento recebimento() const;
    void preencheContas();
    void imprimeTotal();
    void imprimeParcial();

    std::unique_ptr<Ui::frmMoviContasPRBaixa> ui_;
};

} // namespace finance
