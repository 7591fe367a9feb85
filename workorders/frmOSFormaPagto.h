#pragma once

#include "core/devolucao.h"
#include "platform/ui/form.h"
#include "workorders/ordem.h"
#include "workorders/planopersonalizado.h"

#include <map>
#include <memory>
#include <vector>

class QComboBox;
class QLineEdit;
class QPushButton;
class QShowEvent;

namespace core
{
class CaixaDeLista;
}

namespace Ui
{
class frmOSFormaPagto;
}

namespace ui
{
class Label;
class ListView;
} // namespace ui

namespace workorders
{

class frmOSConsulta;
struct Fechamento;

/// Closes a work order by one of six payment forms, the tabs 0 to 5: checks, asks, posts (`FechaOrdem`) and offers to
/// print. The query fills it (`lblCodigo`, `lblValor`, `lblTotal`, `txtValor_0`, vehicle and customer, whose code is
/// the `Tag` of `lblNome`) and shows it modally. The controls of one form share its index.
class frmOSFormaPagto : public ui::Form
{
    Q_OBJECT

public:
    frmOSFormaPagto();
    ~frmOSFormaPagto() override;

    void Form_Load() override;

    /// What the query is filled with.
    static std::vector<core::Devolucoes> devolucoes();

protected:
    void showEvent(QShowEvent *event) override;

private:
    void tabPagto_Click();
    void lblValor_Change();
    void lblTotal_Change();
    void lblSaldo_Change();
    void habilitaRemocao();
    void txtDesconto_LostFocus();
    void txtValor_GotFocus(int indice);
    void txtValor_LostFocus(int indice);
    void txtParcela_GotFocus();
    void txtData_GotFocus(int indice);
    void btnParcelasAdd_Click(int indice);
    void btnParcelasMenos_Click(int indice);
    void txtCodCliente_Change();
    void btnItemAdd_Click();
    void btnItemRemove_Click();
    void btnFechar_Click(int indice);
    void btnPrint_Click();
    void btnVoltar_Click();

    void ligaBotoes();
    void ligaCampos();
    void ligaCliente();
    void ligaPersonalizado();

    void recalculaPlano(int indice);
    void mudaParcelas(int indice, int passo);
    void mostraCredito();

    bool confereRecebido(int indice);
    bool confereAVista();
    bool confereChequePre();
    bool confereFiado();
    bool conferePersonalizado();
    bool semConferencia() { return true; }
    bool confereVencimento(int indice, const QString &passou);

    PagamentoOS pagamento(int indice) const;
    Fechamento fechamento(int indice) const;
    std::vector<QString> pedeNumerosCheques() const;
    void imprime(int layout, int indice) const;
    void ofereceImpressao(int indice) const;

    /// The elements of a control array by their index.
    template<class T>
    using Array = std::map<int, T *>;

    std::unique_ptr<Ui::frmOSFormaPagto> ui_;
    PlanoPersonalizado plano_;
    Array<QPushButton> btnFechar_;
    Array<QLineEdit> txtValor_;
    Array<QLineEdit> txtData_;
    Array<QLineEdit> txtConta_;
    Array<QComboBox> txtBanco_;
    Array<core::CaixaDeLista> bancos_;
    Array<QPushButton> btnParcelasAdd_;
    Array<QPushButton> btnParcelasMenos_;
    Array<ui::Label> lblParcelas_;
    Array<ui::ListView> Lista_;
};

} // namespace workorders
