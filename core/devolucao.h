#pragma once

#include "core/janelas.h"
#include "platform/ui/forms.h"

#include <span>

namespace core
{

/// A hand-back: in which mode a window writes its result into which control of the window that called it. Windows know
/// each other by name only; what they hand back stands in such rows.
struct Devolucao {
    qint16 modo;
    QStringView janela;
    QStringView controle;
};

/// Writes `texto` into the control and gives it the focus, its text selected: the caller's own events do the rest. A
/// window that does not exist is passed over.
inline void Devolve(const Devolucao &linha, const QString &texto)
{
    auto &janelas = ui::Forms::instance();
    const QString janela = linha.janela.toString();
    if (!janelas.exists(janela)) {
        return;
    }
    const QString controle = linha.controle.toString();
    janelas.write(janela, controle, texto);
    SelecionaTexto(janelas.control(janela, controle));
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
