#pragma once

#include "workorders/ordem.h"

class QLineEdit;
class QRadioButton;

namespace ui
{
class Label;
class ListView;
} // namespace ui

namespace workorders
{

/// The lists of a payment plan: their columns, with the documents for the custom plan, and their rows.
void MontaColunasDoPlano(ui::ListView &lista, bool comDocumento);
void AcrescentaParcela(ui::ListView &lista, const ParcelaOS &parcela);
std::vector<ParcelaOS> ParcelasDe(const ui::ListView &lista);

/// The custom plan of the payment window: instalments that the clerk puts together one by one, and the balance that is
/// left to share out. The plan need not add up to the order.
class PlanoPersonalizado
{
public:
    struct Campos {
        QLineEdit *parcela;
        QLineEdit *data;
        QLineEdit *valor;
        QRadioButton *aVista;
        QRadioButton *aPrazo;
        ui::ListView *lista;
        ui::Label *saldo;
        ui::Label *situacao;
    };

    explicit PlanoPersonalizado(const Campos &campos) : campos_(campos) {}

    /// Checks the entry row, adds it and offers the next instalment, a month later.
    void acrescenta() const;

    /// Removes the selected row. What goes back to the balance is the value that stands in the box, not the row's.
    void remove() const;

    /// Shows by colour and in words whether the balance is above, at or below zero.
    void mostraSituacao() const;

private:
    bool confere() const;
    QString documento() const;
    void mudaSaldo(float valor) const;

    Campos campos_;
};

} // namespace workorders
