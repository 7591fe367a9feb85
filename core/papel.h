#pragma once

#include "platform/printer/surface.h"

#include <QList>
#include <QString>

namespace core
{

/// The columns that a line has on an upright sheet, by the size of its characters: all are 20.32 cm wide.
inline constexpr int colunasTamanho8 = 120;
inline constexpr int colunasTamanho10 = 96;
inline constexpr int colunasTamanho12 = 80;
inline constexpr int colunasTamanho24 = 40;

/// A label and its value, as the header of what is printed holds them side by side.
struct CampoImpresso {
    QString rotulo;
    QString valor;
};

/// The header of what is printed: its lines, each of one field or more.
using Cabecalho = QList<QList<CampoImpresso>>;

/// Prints the header at size 10, its labels in bold if told so.
void ImprimeCabecalho(printer::Surface &saida, const Cabecalho &cabecalho, bool rotulosEmNegrito);

/// The font of the next texts; its name stays.
void DefineFonte(printer::Surface &saida, double tamanho, bool negrito = false, bool sublinhado = false);

} // namespace core
