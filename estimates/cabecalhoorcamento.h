#pragma once

#include "estimates/orcamento.h"

#include <QWidget>

#include <memory>

namespace Ui
{
class CabecalhoOrcamento;
}

namespace core
{
class CaixaDeLista;
}

namespace ui
{
class Form;
}

namespace estimates
{

/// The fields of an estimate but for its items: the customer, who need not be in the register, and the vehicle as free
/// text. It answers its own events; the windows that write an estimate and change one share it.
class CabecalhoOrcamento : public QWidget
{
    Q_OBJECT

public:
    explicit CabecalhoOrcamento(QWidget *parent = nullptr);
    ~CabecalhoOrcamento() override;

    /// Connects the events of the fields. For the constructor of the window.
    void liga(ui::Form &janela);

    /// A clerk goes from the last field to the items: the buttons come behind `ultimo`, the last stop of the window.
    void poeBotoesDepoisDe(QWidget *ultimo);

    /// Loads the stored models and limits the boxes to their columns. Once, when the window loads.
    void monta() const;

    /// The register of customers behind the code, by its buttons and keys, in these modes. Without it there are none.
    void ofereceClientes(ui::Form &janela, qint16 modoProcura, qint16 modoInclui);

    /// The fields as they stand, and fields to show. Code, date, total and items of the estimate are the window's.
    Orcamento campos() const;
    void mostra(const Orcamento &orcamento);

    /// Every printed or written estimate is for a vehicle. False with `mensagem` and the focus on it where it is empty.
    bool confereMarca(const QString &mensagem) const;

    void focaCliente() const;

private:
    void txtCodCliente_GotFocus();
    void txtCodCliente_LostFocus();
    bool mostraCliente(qint32 codigo);

    std::unique_ptr<Ui::CabecalhoOrcamento> ui_;
    core::CaixaDeLista *marca_ = nullptr;
    core::CaixaDeLista *ano_ = nullptr;
};

} // namespace estimates
