#pragma once

#include "workorders/ordem.h"

namespace ui {
class ListView;
}

namespace workorders {

/// The item lists as opening, altering and showing an order share them: their columns, rows and sums.
void MontaColunas(ui::ListView &lista, Aba aba);

/// Appends a row and scrolls to it.
void AcrescentaItem(ui::ListView &lista, Aba aba, const LinhaOS &linha);

/// The rows of a list, as they stand.
std::vector<LinhaOS> LinhasDe(const ui::ListView &lista, Aba aba);

/// Format(quantity x unit value, "###,##0.00"), the product in double precision.
QString ValorDaLinha(const QString &quantidade, const QString &valorUnit);

/// The four running totals as texts, each addition rounded to two places.
struct Totais {
    QString total;
    QString pecas;
    QString servicos;
    QString terceiros;
};

/// Compact layout (`servicos`, `tercerizados` null): by the row's type in `pecas`. Full layout: by the list.
Totais SomaItens(const ui::ListView &pecas, const ui::ListView *servicos, const ui::ListView *tercerizados);

/// The compact layout keeps every charged item in one list; it holds for a `LayoutOS` of 2 or less.
bool LayoutCompacto();

} // namespace workorders
