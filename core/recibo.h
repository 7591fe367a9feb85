#pragma once

#include "platform/printer/surface.h"

#include <QString>
#include <QStringList>

namespace core
{

/// A receipt as it is printed: the amount beside the logo, what it is about, the line to sign on. The lines stand as
/// they are given, each with its label; one that is wider than the sheet goes on below.
struct Recibo {
    QString valor;
    QStringList linhas;
    QString segundoTitulo = {}; ///< below the amount; "" for none
};

/// Prints the receipt and ends the document.
void ImprimeRecibo(const Recibo &recibo, printer::Surface &saida);

} // namespace core
