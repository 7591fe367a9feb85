#pragma once

#include "documents/documento.h"

namespace documents
{

/// The three layouts, each a whole print.
void ImprimeLayout1(const Documento &documento, printer::Surface &saida);
void ImprimeLayout2(const Documento &documento, printer::Surface &saida);
void ImprimeLayout3(const Documento &documento, printer::Surface &saida);

/// The column line of the items and a row of them, 96 columns each. What is longer than its column is cut.
QString ColunasDosItens();
QString LinhaDoItem(const LinhaItem &linha);

/// A label and an amount that ends where the last column ends. The amount is never cut.
QString LinhaDoTotal(const Secao &secao);

/// True when so many lines of the present font, or all lines of a block, fit above `limite` centimetres.
bool CabeAcima(const printer::Surface &saida, double limite, qsizetype linhas);
bool CabeAcima(const printer::Surface &saida, double limite, const Bloco &bloco);

} // namespace documents
