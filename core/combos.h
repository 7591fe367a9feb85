#pragma once

#include <QString>

class QComboBox;
class QWidget;

namespace core
{

/// The lists of free texts that the user keeps, by their number in the table Combos.
enum class ListaCombo { MarcaModelo = 1, Bancos = 2, DescricaoItens = 3, DescricaoContas = 4, Mecanicos = 5 };
enum class ModoCombo { Carrega = 1, Acrescenta = 2, Exclui = 3 };

/// Loads a combo from its list, after adding the combo's text to it or deleting it from it. A load empties the
/// text, but for an added one, and selects it in a window that is visible. An empty text, one over 200 characters (a
/// box tells) and one that is in the list already are not added. An apostrophe is the statement's run-time error.
void AtualizaCombo(QComboBox *combo, ListaCombo lista, ModoCombo modo);

/// Completes the typed text by the first entry that begins with it, the added part selected; to be called on each
/// change of the text. A deletion is left alone, or the completed part could never be taken off. Does nothing with
/// `AutoCompletar` off.
void AutoCompletaCombo(QComboBox *combo);

/// The buttons beside a combo that keep its list do nothing while it is empty: they are enabled by its text.
void LigaBotoesDaLista(QComboBox *combo, QWidget *acrescenta, QWidget *remove);

} // namespace core
