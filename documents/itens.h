#pragma once

#include <QString>

#include <array>
#include <vector>

namespace documents
{

/// The four item lists of a document, in the order of their tabs.
enum Aba { abaPecas = 0, abaServicos = 1, abaTercerizados = 2, abaMaterial = 3 };
inline constexpr std::array abas{abaPecas, abaServicos, abaTercerizados, abaMaterial};

/// One row of an item list, each value as the list shows it ("0000", "###,##0.00"). Material has no type and no values.
struct LinhaItem {
    QString codigo;
    QString tipo; ///< P part, S service, A one-off; in the tables of orders also Z, X and K
    QString quantidade;
    QString descricao;
    QString valorUnit;
    QString valorTotal;
};

/// The rows of the four lists, by their tab.
using ItensPorAba = std::array<std::vector<LinhaItem>, abas.size()>;

/// Whether a text is a number that a quantity or an amount can be. A longer one is a number too, and would end the
/// program where it is written or multiplied.
bool ServeDeValor(const QString &texto);

/// Format(quantity x unit value, "###,##0.00"), the product in double precision. Error 13 for what is no number.
QString ValorDaLinha(const QString &quantidade, const QString &valorUnit);

/// The four running totals as texts, each addition rounded to two places.
struct Totais {
    QString total = QStringLiteral("0,00");
    QString pecas = QStringLiteral("0,00");
    QString servicos = QStringLiteral("0,00");
    QString terceiros = QStringLiteral("0,00");
};

/// Adds the charged items up. The compact layout, which keeps them in one list, tells the subtotals by the row's type,
/// the full one by the list.
Totais SomaItens(const ItensPorAba &itens, bool compacto);

/// The letter that a row of a list is stored under: P, S or A from the parts list as its type says, S or Z from the
/// services, X for all that is outsourced, K for material. In the compact layout the type itself.
QString PSADaLinha(Aba aba, const QString &tipo, bool compacto);

/// A row as it goes to the table: its type becomes its PSA code, and material is worth nothing.
LinhaItem ParaGravar(LinhaItem linha, Aba aba, bool compacto);

/// All rows as they go to the table. The compact layout stores its one list of charged items alone.
std::vector<LinhaItem> ParaGravar(const ItensPorAba &itens, bool compacto);

/// The list that a stored letter goes back to. What has no list of its own stands with the parts.
Aba AbaDoPSA(const QString &psa, bool compacto);

/// The type that a stored row shows: "A" for one-off and outsourced services, otherwise its letter.
QString TipoDoPSA(const QString &psa);

} // namespace documents
