#pragma once

#include <QString>

class QComboBox;
class QLineEdit;
class QWidget;

namespace ui {
class Form;
}

namespace core {

/// Selects the control's whole text and gives it the focus; what can't take the focus is passed over.
void SelecionaTexto(QWidget *controle);

enum class TipoCampo { Data = 1, Numerico = 3, NaoVazio = 5 };

/// Checks a text box; on failure an exclamation box with `mensagem`, and the field is selected.
bool ValidaCampo(QLineEdit *controle, const QString &mensagem, TipoCampo tipo);

enum class TipoMascara { Data = 1, Fone = 2, Valor = 3, Ano = 4, CEP = 5 };

/// Puts a mask's marks in as the user types; to be called on each change. A deletion is left alone.
void MascaraTexto(QLineEdit *controle, TipoMascara tipo);

/// What `LimpaForm` empties. Lists are never touched, fixed captions (`Rotulos_n`) neither.
struct Limpeza {
    bool textos = true;
    bool rotulos = true;
    bool listaCombos = false;
    bool textoCombos = true;
    bool opcoes = false;
    bool checks = false;
};
void LimpaForm(ui::Form &form, const Limpeza &o = {});

/// An exclamation box, then the field selected: how every check answers.
void Recusa(const QString &mensagem, QWidget *controle);

} // namespace core
