#pragma once

#include "core/janelas.h"
#include "core/modulo.h"
#include "platform/ui/form.h"
#include "platform/ui/forms.h"

#include <span>

namespace core
{

/// A hand-back: in which mode a window writes its result into which control of the window that called it. Windows know
/// each other by name only; what they hand back stands in such rows, several for a mode that hands back more than a
/// code.
struct Devolucao {
    qint16 modo;
    QStringView janela;
    QStringView controle;
    QStringView origem = {}; ///< the control of the handing window whose text goes there; "" for the record's code
    QStringView foco = {};   ///< the caller's control that gets the focus; "" for `controle`
};

/// Writes `texto` into the control. A window that does not exist is passed over.
inline void EscreveDevolucao(const Devolucao &linha, const QString &texto)
{
    const QString janela = linha.janela.toString();
    if (ui::Forms::instance().exists(janela)) {
        ui::Forms::instance().write(janela, linha.controle.toString(), texto);
    }
}

/// Brings the caller to the front and gives the control of a hand-back the focus, its text selected: the caller's own
/// events do the rest.
inline void FocaDevolucao(const Devolucao &linha)
{
    const QString janela = linha.janela.toString();
    const QStringView controle = linha.foco.isEmpty() ? linha.controle : linha.foco;
    if (ui::Forms::instance().exists(janela)) {
        auto *alvo = ui::Forms::instance().control(janela, controle.toString());
        ui::Forms::instance().bringToFront(janela);
        SelecionaTexto(alvo);
    }
}

inline void Devolve(const Devolucao &linha, const QString &texto)
{
    EscreveDevolucao(linha, texto);
    FocaDevolucao(linha);
}

/// Opens a window that hands back in `modo`. A field that calls it by a key is left first: its look-up may ask, move
/// the focus and put another mode back.
inline void Chama(const QString &janela, qint16 modo)
{
    ui::leaveField();
    ModoChamada = modo;
    ui::Forms::instance().Show(janela);
}

/// The row of a mode, or nullptr.
inline const Devolucao *DevolucaoDoModo(std::span<const Devolucao> linhas, qint16 modo)
{
    for (const Devolucao &linha : linhas) {
        if (linha.modo == modo) {
            return &linha;
        }
    }
    return nullptr;
}

} // namespace core
