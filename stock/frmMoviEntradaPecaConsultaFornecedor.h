#pragma once

#include "platform/ui/form.h"

#include <memory>

namespace Ui
{
class frmMoviEntradaPecaConsultaFornecedor;
}

namespace core
{
enum class Acao;
}

namespace ui
{
class ListItem;
}

namespace stock
{

/// What the selection window asks for: it is read once, when the query opens.
struct EscolhaDeNotas {
    QString codForn; ///< "" where that window is not there
    QString fornecedor;
    QString dataInicio;
    QString dataFim;
    QString periodo; ///< as it follows BETWEEN
    QString situacao;
    int pago = 0; ///< the entry of the situation
};

/// The notes of one supplier, as the selection window tells, with their sums and their page. A check box marks a note
/// as paid, that of the row of the total marks all of them.
class frmMoviEntradaPecaConsultaFornecedor : public ui::Form
{
    Q_OBJECT

public:
    frmMoviEntradaPecaConsultaFornecedor();
    ~frmMoviEntradaPecaConsultaFornecedor() override;

    void Form_Load() override;

private:
    void btnPrint_Click();
    void btnPreVisualizar_Click();
    void btnVoltar_Click();
    void lblPrint_Change();
    void Lista_Click(int linha);
    void Lista_Check(int linha);

    void preenche();
    void marca(int linha, qint32 codigo);
    void marcaTodas(int linha);
    void mostraMarca(ui::ListItem nota, bool paga);
    void imprime(core::Acao acao);

    std::unique_ptr<Ui::frmMoviEntradaPecaConsultaFornecedor> ui_;
    EscolhaDeNotas escolha_;
};

} // namespace stock
