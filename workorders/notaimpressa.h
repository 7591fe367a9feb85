#pragma once

#include "platform/printer/surface.h"
#include "workorders/nota.h"

#include <QStringList>

namespace workorders
{

/// A note as the window shows it.
struct NotaImpressa {
    TipoNota tipo = TipoNota::Pecas;
    QString numero;
    ClienteDaNota cliente;
    QStringList ordens; ///< each with the plate of its vehicle
    std::vector<ItemDaNota> itens;
    QString total;
};

/// Prints a note and ends the document. As many items as a note may have stand on one sheet.
void ImprimeNota(const NotaImpressa &nota, printer::Surface &saida);

} // namespace workorders
