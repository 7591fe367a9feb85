#pragma once

#include "platform/printer/surface.h"
#include "workorders/ordem.h"

#include <QList>
#include <QStringList>

namespace workorders
{

/// The columns that a line has on paper, by the size of its characters: all three are 20.32 cm wide.
inline constexpr int colunasTamanho8 = 120;
inline constexpr int colunasTamanho10 = 96;
inline constexpr int colunasTamanho12 = 80;

/// A label and its value, as the header of a printed order holds them side by side.
struct CampoImpresso {
    QString rotulo;
    QString valor;
};

/// The header of a printed order: its lines, each of one field or two.
using Cabecalho = QList<QList<CampoImpresso>>;

/// Customer, vehicle, dates and mileage. `completo` adds the chassis, where there is one, and the mechanic.
/// Phones come from the customer's row; values are cut to the room on paper.
Cabecalho CabecalhoDaOrdem(const OrdemMostrada &ordem, bool completo);

/// The field "OBSERVAÇÕES" over as many lines as the text needs; none for an empty text.
Cabecalho CabecalhoDaObservacao(const QString &observacao);

/// Prints the header at size 10, its labels in bold if told so.
void ImprimeCabecalho(printer::Surface &saida, const Cabecalho &cabecalho, bool rotulosEmNegrito);

/// The column line of the items and a row of them, 96 columns each. What is longer than its column is cut.
QString ColunasDosItens();
QString LinhaDoItem(const documents::LinhaItem &linha);

/// A label and an amount that ends where the last column ends. The amount is never cut.
QString LinhaDoTotal(const QString &rotulo, const QString &total);

/// The text word-wrapped into lines of fewer than `largura` characters; its own line breaks stay. A word that is longer
/// is broken hard.
QStringList EmLinhas(const QString &texto, int largura);

/// The number of an order as it is printed: "0000".
QString NumeroImpresso(const QString &codigo);

void DefineFonte(printer::Surface &saida, double tamanho, bool negrito = false, bool sublinhado = false);

/// True when so many lines of the present font fit above `limite` centimetres.
bool CabeAcima(const printer::Surface &saida, double limite, qsizetype linhas);

} // namespace workorders
