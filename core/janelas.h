#pragma once

#include <QString>

#include <initializer_list>

class QLineEdit;
class QWidget;

namespace ui
{
class Form;
}

namespace core
{

/// The property of a control that holds its text before the last change, by which a deletion is told.
inline constexpr auto propTextoAnterior = "textoAnterior";

/// Joins the rules to the screen: the questions of `Base64Decodifica` become boxes. Called once, before the settings
/// are read.
void LigaPerguntas();

/// Joins the databases to the windows: what one answer of the user sets off is one unit in the file, and while another
/// program holds the file the pointer says that the program waits. Called once.
void LigaBanco();

/// Selects the control's whole text and gives it the focus; what can't take the focus is passed over.
void SelecionaTexto(QWidget *controle);

enum class TipoCampo { Data = 1, Numerico = 3, NaoVazio = 5 };

/// Checks a text box; on failure an exclamation box with `mensagem`, and the field is selected.
bool ValidaCampo(QLineEdit *controle, const QString &mensagem, TipoCampo tipo);

/// The same by a rule of the caller's own.
bool ValidaCampo(QLineEdit *controle, const QString &mensagem, bool (*serve)(const QString &texto));

enum class TipoMascara { Data = 1, Fone = 2, Valor = 3, Ano = 4, CEP = 5 };

/// Puts a mask's marks in as the user types; to be called on each change, and for `Valor` on leaving. A deletion is
/// left alone, so that a mark can be taken back; what is typed or pasted later brings the missing ones again.
void MascaraTexto(QLineEdit *controle, TipoMascara tipo);

/// A date as it is pasted, with two digits for day and month: without its bars "1/2/1980" would become another day. A
/// text that is no whole date stays.
QString DataColada(const QString &texto);

/// To be called instead of `MascaraTexto` and `AutoCompletaCombo` where the program changes the text: what is stored is
/// shown as it is, and the user's next deletion is told by it.
void AnotaTexto(QWidget *controle);

/// What `LimpaForm` empties. Lists are never touched, fixed captions (`Rotulos_n`) neither. A label with the dynamic
/// property `dinheiro` (a bool, set in the .ui) holds money and comes back as "0,00".
struct Limpeza {
    bool textos = true;
    bool rotulos = true;
    bool listaCombos = false;
    bool textoCombos = true; ///< of combos that can be typed into; the others keep their choice
    bool opcoes = false;
    bool checks = false;
};
void LimpaForm(ui::Form &form, const Limpeza &o = {});

/// Disables buttons for an operator who is no administrator, and says why.
void SoAdministrador(const QString &motivo, std::initializer_list<QWidget *> botoes);

/// An exclamation box, then the field selected: how every check answers.
void Recusa(const QString &mensagem, QWidget *controle);

} // namespace core
