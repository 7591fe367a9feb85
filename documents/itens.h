#pragma once

#include <QString>

#include <vector>

namespace ui
{
class ListView;
}

namespace documents
{

/// The four item lists of a document, in the order of their tabs.
enum Aba { abaPecas = 0, abaServicos = 1, abaTercerizados = 2, abaMaterial = 3 };

/// One row of an item list, each value as the list shows it ("0000", "###,##0.00").
struct LinhaItem {
    QString codigo;
    QString tipo; ///< P part, S service, A one-off; in the tables of orders also Z, X and K
    QString quantidade;
    QString descricao;
    QString valorUnit;
    QString valorTotal;
};

/// The columns of the lists of charged items; `lstMaterial` has only a code, a quantity and a description.
enum ColunaItem {
    colCodigo = 0,
    colTipo = 1,
    colQuantidade = 2,
    colDescricao = 3,
    colValorUnit = 4,
    colValorTotal = 5
};
enum ColunaMaterial { colMaterialCodigo = 0, colMaterialQuantidade = 1, colMaterialDescricao = 2 };

/// The item lists as opening, altering and showing an order share them: their columns, rows and sums.
void MontaColunas(ui::ListView &lista, Aba aba);

/// Appends a row and scrolls to it. The row's number is returned.
int AcrescentaItem(ui::ListView &lista, Aba aba, const LinhaItem &linha);

/// One row of a list as it stands. Material has no type and no values: they are empty.
LinhaItem LinhaDe(const ui::ListView &lista, Aba aba, int linha);

/// The rows of a list, as they stand.
std::vector<LinhaItem> LinhasDe(const ui::ListView &lista, Aba aba);

/// Writes a charged item over the row that it was read from; the row keeps its key.
void EscreveLinha(ui::ListView &lista, int linha, const LinhaItem &item);

/// Format(quantity x unit value, "###,##0.00"), the product in double precision. Error 13 for what is no number.
QString ValorDaLinha(const QString &quantidade, const QString &valorUnit);

/// The four running totals as texts, each addition rounded to two places.
struct Totais {
    QString total = QStringLiteral("0,00");
    QString pecas = QStringLiteral("0,00");
    QString servicos = QStringLiteral("0,00");
    QString terceiros = QStringLiteral("0,00");
};

/// Compact layout (`servicos`, `tercerizados` null): by the row's type in `pecas`. Full layout: by the list.
Totais SomaItens(const ui::ListView &pecas, const ui::ListView *servicos, const ui::ListView *tercerizados);

/// The compact layout keeps every charged item in one list; it holds for a `LayoutOS` of 2 or less.
bool LayoutCompacto();

/// The letter that a row of a list is stored under: P, S or A from the parts list as its type says, S or Z from the
/// services, X for all that is outsourced, K for material. In the compact layout the type itself.
QString PSADaLinha(Aba aba, const QString &tipo, bool compacto);

/// A row as it goes to the table: its type becomes its PSA code, and material is worth nothing.
LinhaItem ParaGravar(LinhaItem linha, Aba aba, bool compacto);

/// The list that a stored letter goes back to. What has no list of its own stands with the parts.
Aba AbaDoPSA(const QString &psa, bool compacto);

/// The type that a stored row shows: "A" for one-off and outsourced services, otherwise its letter.
QString TipoDoPSA(const QString &psa);

/// A quantity as the lists show it, by the `UM` of the part with this code; a line without a part counts in units.
QString QuantidadeDaPeca(double quantidade, qint32 codPeca);

} // namespace documents
