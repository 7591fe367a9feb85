#pragma once

#include "documents/itens.h"

class QAbstractButton;
class QComboBox;
class QLineEdit;

namespace core
{
class CaixaDeLista;
}

namespace ui
{
class Form;
}

namespace documents
{

/// The entry row of an item (code, quantity, description, unit value), as orders and estimates share it. It answers its
/// own events. The kind of a registered item ("P", "S") is the `Tag` of the code, its unit of measure the `Tag` of the
/// quantity.
class EntradaItem
{
public:
    struct Controles {
        QLineEdit *txtCodPeca;
        QLineEdit *txtQuantidade;
        QComboBox *txtDescricao;
        QLineEdit *txtValor;
        QAbstractButton *btnPecaFind;
        QAbstractButton *btnPecaAdd;
        QAbstractButton *btnMarcaAdd;
        QAbstractButton *btnMarcaRemove;
    };

    explicit EntradaItem(const Controles &controles) : c_(controles) {}

    /// Connects the events of the row. For the constructor of the window.
    void liga(ui::Form &janela);

    /// Loads the stored descriptions. Once, when the window loads.
    void monta() const;

    /// The three checks of an item, with their boxes.
    bool confere() const;

    /// True for an item that is not in the register: it has no code.
    bool avulso() const;

    /// The row as a list shows it.
    LinhaItem linha() const;

    /// An item of the job values: one piece of this description at this value.
    void preencheAvulso(const QString &descricao, const QString &valor);

    /// Empties the row and goes to the code, ready for the next item.
    void esvazia() const;

private:
    void txtCodPeca_GotFocus();
    void txtCodPeca_LostFocus();
    void txtQuantidade_GotFocus();
    void txtQuantidade_LostFocus();
    void txtValor_GotFocus();
    void txtValor_LostFocus();

    Controles c_;
    core::CaixaDeLista *descricao_ = nullptr;
};

/// Edits a row through five input boxes, each with the present value. A cancelled or unusable answer leaves its column
/// as it was; the total follows from quantity and unit value.
LinhaItem PedeLinha(LinhaItem linha);

} // namespace documents
