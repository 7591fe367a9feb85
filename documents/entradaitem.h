#pragma once

#include "documents/itens.h"

class QComboBox;
class QLineEdit;

namespace documents
{

/// The entry row of an item (code, quantity, description, unit value), as orders and estimates share it. The kind of a
/// registered item ("P", "S") is the `Tag` of the code, its unit of measure the `Tag` of the quantity.
class EntradaItem
{
public:
    struct Campos {
        QLineEdit *codigo;
        QLineEdit *quantidade;
        QComboBox *descricao;
        QLineEdit *valor;
    };

    explicit EntradaItem(const Campos &campos) : campos_(campos) {}

    /// On leaving the code: fills the row from the register and goes on to the quantity. An unknown code is refused.
    void procuraPeca();

    /// On entering an empty quantity: offers "1".
    void ofereceUm() const;

    /// On leaving the quantity: formats it by the item's unit. What is no number stays for the check to tell.
    void formataQuantidade() const;

    /// On leaving the unit value: as money.
    void formataValor() const;

    /// On each change of the description: completes what the user types, never what the register filled in.
    void completaDescricao() const;

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
    void escreveDescricao(const QString &texto);

    Campos campos_;
    bool preenchendo_ = false;
};

/// Edits a row through five input boxes, each with the present value. A cancelled or unusable answer leaves its column
/// as it was; the total follows from quantity and unit value.
LinhaItem PedeLinha(LinhaItem linha);

} // namespace documents
