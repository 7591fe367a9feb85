#pragma once

#include "platform/ui/form.h"
#include "workorders/notaimpressa.h"

#include <memory>

namespace Ui
{
class frmNota;
}

namespace workorders
{

/// Prints the numbered notes of parts and of services of one or more orders of one customer, on the printer that is
/// chosen. A number is taken when its note has been printed.
class frmNota : public ui::Form
{
    Q_OBJECT

public:
    frmNota();
    ~frmNota() override;

    void Form_Load() override;

private:
    void txtOS_GotFocus();
    void txtOS_Change();
    void btnItemAdd_Click();
    void Command1_Click();
    void Command2_Click();
    void btnVoltar_Click();

    QString acrescenta();
    bool adicionada(const QString &codigo) const;
    QString outroCliente(const OrdemDaNota &ordem) const;
    void mostraCliente(const ClienteDaNota &cliente);
    void mostraItens(const ItensDaNota &itens);
    void imprime(TipoNota tipo);
    NotaImpressa nota(TipoNota tipo) const;

    std::unique_ptr<Ui::frmNota> ui_;
};

} // namespace workorders
