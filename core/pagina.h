#pragma once

#include "core/papel.h"

#include <QStringView>

#include <span>

namespace ui
{
class ListView;
}

namespace core
{

/// Where the pages go, by the numbers that the whole system uses.
enum class Acao { Imprime = 4, PreVisualiza = 5 };

enum class Lado { Esquerda, Direita };

/// A field of a printed row: the column of the list that it shows, or nothing, or what the row keeps besides its texts.
struct CampoDaLista {
    int coluna;
    Lado lado = Lado::Esquerda;
};
inline constexpr int semColuna = -1;
inline constexpr int tagDaLinha = -2;

/// A printed line of a row: the titles that stand above it, parted by " - ", and its fields. A field is as wide as its
/// title and is cut or padded to it.
struct LinhaImpressa {
    QStringView titulos;
    std::span<const CampoDaLista> campos;
};

/// How a list goes on paper: fixed-pitch texts, so many rows a page, no foot. A row takes one printed line or more. The
/// texts and fields are constants of the program, as a preview goes on reading them.
struct Pagina {
    QStringView titulo;
    std::span<const LinhaImpressa> linhas;
    QStringView rotuloData = u"Data.............: "; ///< of the header's first line, today's date
    QStringView fimDaLinha = {};                     ///< behind the fields of each row
    int porPagina = 50;
    int tamanho = 10; ///< of the titles and rows
    bool deitada = false;
};

/// What stands on the pages besides the list, as it is when they are drawn.
struct TextosDaPagina {
    Cabecalho linhas = {};                       ///< the header's own lines, below the date
    QList<CampoImpresso> juntoAosRegistros = {}; ///< on the line that tells the number of rows
    Cabecalho totais = {};                       ///< below the last row
};

/// Draws the list's rows as they stand, all of them, and ends the document. A list without rows is one page of headers.
void DesenhaLista(printer::Surface &saida, const ui::ListView &lista, const Pagina &pagina,
                  const TextosDaPagina &textos = {});

/// The same on the printer or, with the preview window shown and not waited for, in the preview. There a page is drawn
/// when it is shown, whatever has become of the list meanwhile, so a list of any length is previewed at once.
void ImprimeLista(Acao acao, const ui::ListView &lista, const Pagina &pagina, const TextosDaPagina &textos = {});

} // namespace core
