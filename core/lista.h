#pragma once

#include "core/mostra.h"
#include "platform/dao/recordset.h"

#include <QString>

#include <functional>
#include <span>
#include <vector>

class QComboBox;

namespace ui
{
class ListView;
}

/// Lists told as data: columns, marks, sums, the row for nothing found, and the searches above them. A list that is
/// filled from a statement reads and formats a row when it is shown, as it stood at the filling.
namespace core
{

class Andamento;

/// A column of a list; its width in the window's own units gives the proportions.
struct ColunaLista {
    QStringView titulo;
    int largura;
    QStringView coluna = {}; ///< of the statement; "" for a text that `mostra` makes of the whole row
    Mostra mostra = nullptr; ///< nullptr: what only the window knows when it fills the list, or rows made by hand
    Qt::Alignment alinhamento = Qt::AlignLeft;
};

/// A sum over the rows that count; a column never written counts as 0.
struct Soma {
    QStringView coluna;
    bool (*conta)(const dao::Recordset &linha) = nullptr; ///< nullptr: every row
};

/// The sums in their table's order, in 32-bit floats, each addition in the order of the rows.
using Somas = std::vector<float>;

struct Lista {
    std::span<const ColunaLista> colunas;
    int (*icone)(const dao::Recordset &linha) = nullptr;   ///< a row's small picture, 0 for none
    QString (*tag)(const dao::Recordset &linha) = nullptr; ///< what a row keeps for the window besides its texts
    std::span<const Soma> somas = {};
    std::span<const QStringView> vazia = {}; ///< the texts of the row that stands for no result; none: an empty list
};

/// What a window shows in the columns that have no `mostra` of their own.
using MostraDaJanela = std::function<QString(const dao::Recordset &linha, int lugar)>;

/// Gives an empty list its columns.
void MontaLista(ui::ListView &lista, const Lista &descricao);

/// Fills a list with the rows of a statement instead of what stood there. Rows added by hand stand behind them. The
/// rows are summed as part of `obra`, where one is given; when the user leaves that, the list and the sums hold the
/// rows read so far.
Somas EncheLista(ui::ListView &lista, dao::Recordset linhas, const Lista &descricao,
                 const MostraDaJanela &daJanela = {}, Andamento *obra = nullptr);

/// Sets the row selection on every row whose cell begins with `texto`, without regard to case; with `parar` the first
/// match ends the search and is scrolled to. `coluna` counts from 1. True for an empty text or a match.
bool LocalizaLista(ui::ListView *lista, const QString &texto, int coluna, bool selecionar, bool parar);

/// How the searched text enters the statement: as typed, as typed in front of "*'", as the day's literal, as the
/// literals around a whole day, as a code. What can be no code stands for 0, which no row has.
enum class Comparacao { Igual, Contem, Data, Dia, Codigo };

/// A search by one column: its entry in the combo and the condition up to the searched text. A table of searches may go
/// on behind the combo's last entry, with rows that have none.
struct Pesquisa {
    QStringView item;
    QStringView condicao;
    Comparacao comparacao;
};

void MontaPesquisas(QComboBox &combo, std::span<const Pesquisa> pesquisas);
QString Condicao(const Pesquisa &pesquisa, const QString &procurado);

} // namespace core
