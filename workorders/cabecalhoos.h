#pragma once

#include "workorders/alteracao.h"

#include <QWidget>

#include <memory>

namespace Ui
{
class CabecalhoOS;
}

namespace core
{
class CaixaDeLista;
}

namespace ui
{
class Form;
class Label;
} // namespace ui

namespace workorders
{

/// The header of an order as the windows that open and alter one show it: the vehicle, its owner and the texts of the
/// job. It answers its own events.
class CabecalhoOS : public QWidget
{
    Q_OBJECT

public:
    explicit CabecalhoOS(QWidget *parent = nullptr);
    ~CabecalhoOS() override;

    /// Connects the events of the panel. For the constructor of the window.
    void liga(ui::Form &janela);

    /// The list of mechanics, and what the columns hold. Once, when the window loads.
    void monta();

    void mostra(const VeiculoOS &veiculo);
    void mostraCliente(const ClienteOS &cliente);
    void mostraTextos(const TextosOS &textos);

    /// Empties what the vehicle told, and what is told about it; the codes and the job stay.
    void esqueceVeiculo();

    TextosOS textos() const;
    QString marca() const;
    QString codVeiculo() const;
    QString codCliente() const;

    /// The customer's name, for what a window does on it.
    ui::Label *nome() const;

private:
    void btnInfoVeiculo_Click();
    void btnInfoCliente_Click();
    void habilitaInformacoes();

    std::unique_ptr<Ui::CabecalhoOS> ui_;
    core::CaixaDeLista *mecanico_ = nullptr;
};

} // namespace workorders
