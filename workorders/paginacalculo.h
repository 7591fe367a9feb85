#pragma once

#include <QWidget>

#include <memory>

namespace Ui
{
class PaginaCalculo;
}

namespace documents
{
class ListasItens;
}

namespace ui
{
class Form;
}

namespace workorders
{

/// The calculator of the price of a job, a page behind the item lists of an order. It writes to no table.
class PaginaCalculo : public QWidget
{
    Q_OBJECT

public:
    explicit PaginaCalculo(documents::ListasItens &listas);
    ~PaginaCalculo() override;

    /// Connects the events of the page. For the constructor of the window.
    void liga(ui::Form &janela);

    /// Its tab stops follow those of the lists. Once, when the window loads.
    void monta();

private:
    void btnCalcular_Click();
    bool confere();

    std::unique_ptr<Ui::PaginaCalculo> ui_;
    documents::ListasItens &listas_;
};

} // namespace workorders
