#pragma once

#include "core/modos.h"
#include "documents/itens.h"
#include "documents/pecas.h"

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

/// How a window takes its items. What is not told is that of orders and estimates.
struct RegrasDaEntrada {
    QString PecaItem::*valor = &PecaItem::valorVenda; ///< what a registered item's unit value begins with
    QStringView soPecas = {};                         ///< what is said of a service where only parts are taken
    bool soDecimais = true;     ///< quantity and value take digits and marks alone, and a value left becomes money
    bool descricaoFica = false; ///< for the next item
    qint16 modoProcura = core::modoProcuraPeca;
    qint16 modoInclui = core::modoIncluiPeca;
};

/// The entry row of an item (code, quantity, description, unit value), as orders, estimates and suppliers' notes share
/// it. It answers its own events. The kind of a registered item ("P", "S") is the `Tag` of the code, its unit of
/// measure the `Tag` of the quantity.
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

    explicit EntradaItem(const Controles &controles, const RegrasDaEntrada &regras = {})
        : c_(controles), regras_(regras)
    {
    }

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

    QStringView motivoDaRecusa(const std::optional<PecaItem> &peca) const;

    Controles c_;
    RegrasDaEntrada regras_;
    core::CaixaDeLista *descricao_ = nullptr;
};

/// Edits a row through five input boxes, each with the present value. A cancelled or unusable answer leaves its column
/// as it was; the total follows from quantity and unit value.
LinhaItem PedeLinha(LinhaItem linha);

} // namespace documents
