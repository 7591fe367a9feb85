#pragma once

#include "core/combos.h"

#include <QObject>

class QAbstractButton;

namespace ui
{
class Form;
}

namespace core
{

/// A combo with the list of texts that the user keeps for it, and the two buttons that keep it: completes what is
/// typed, adds the text to the list, removes it from the list. A combo that shares another one's list has no buttons.
/// Made in the window's constructor; it goes with the combo.
class CaixaDeLista : public QObject
{
public:
    CaixaDeLista(ui::Form &janela, QComboBox *combo, ListaCombo lista, QAbstractButton *acrescenta = nullptr,
                 QAbstractButton *remove = nullptr);

    /// Loads the entries, when the window loads.
    void carrega();

    /// Puts a text there that is shown as it is.
    void escreve(const QString &texto);

private:
    void muda();
    void acrescenta();
    void remove();

    QComboBox *combo_;
    ListaCombo lista_;
    bool escrevendo_ = false;
};

} // namespace core
