#pragma once

#include "platform/ui/form.h"
#include "platform/ui/forms.h"

#include <functional>
#include <span>
#include <vector>

namespace core
{

/// What makes a window write into another one.
enum class Ocasiao {
    Escolha,      ///< a row was chosen by double click
    Inclusao,     ///< a record was added
    Botao,        ///< a command goes on in the other window
    Preenchimento ///< the other window is filled, and this one stays
};

/// A hand-back: in which mode a window writes its result into which control of the window that called it. Windows know
/// each other by name only; what they hand back stands in such rows, several for a mode that hands back more than a
/// code.
struct Devolucao {
    qint16 modo; ///< `modoNormal` stands for every mode: in it alone nobody waits for anything
    QStringView janela;
    QStringView controle;
    QStringView origem = {}; ///< the control of the handing window whose text goes there; "" for the record's code
    QStringView foco = {};   ///< the caller's control that gets the focus; "" for `controle`
    bool comTag = false;     ///< the origin's `Tag` goes along
};

/// The hand-backs of one occasion.
struct Devolucoes {
    Ocasiao ocasiao;
    std::span<const Devolucao> linhas;
};

/// Makes a window known by its name, with all its hand-backs; its buttons get their icons when it is made.
void RegistraJanela(const QString &nome, const ui::Forms::Factory &fabrica,
                    const std::vector<Devolucoes> &devolucoes = {});

/// The hand-backs that a window was made known with.
const std::vector<Devolucoes> &DevolucoesDe(const QString &janela);

/// Writes the hand-backs of the present mode into the caller, closes the window and gives the caller's control the
/// focus, its text selected: the caller's own events do the rest. A caller that does not exist is passed over. False
/// where the mode hands nothing back.
bool Devolve(ui::Form &janela, Ocasiao ocasiao, const QString &codigo);

/// Writes what a window fills another one with; `codigo` where a row names no control.
void Preenche(const ui::Form &janela, const QString &outra, const QString &codigo = {});

/// The same from what no control holds, a row of a list: each row that names none asks for the text of its `controle`.
void Preenche(const ui::Form &janela, const QString &outra, const std::function<QString(QStringView controle)> &texto);

/// Opens a window that hands back in `modo`. A field that calls it by a key is left first: its look-up may ask, move
/// the focus and put another mode back.
void Chama(const QString &janela, qint16 modo);

} // namespace core
