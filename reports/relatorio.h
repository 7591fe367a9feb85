#pragma once

#include "core/andamento.h"
#include "core/lista.h"
#include "core/pagina.h"

#include <optional>
#include <utility>

namespace reports
{

/// What a double click on a row opens: the record whose code is the row's text.
struct Abertura {
    QStringView janela;
    qint16 modo;
    bool soMarcada = false;                ///< only from a row with the small icon
    std::optional<qint16> modoDepois = {}; ///< what the mode goes back to
};

/// A report: an entry of the catalogue, found by `ModoChamada`. Its rows are those of a statement, read when they are
/// shown, or texts made by hand, where a row takes more than one statement. One without a page is a list that is not
/// printed.
struct Relatorio {
    qint16 modo;
    QStringView titulo; ///< tail of the caption; "%1" stands for `detalhe`
    QString (*detalhe)() = nullptr;
    const core::Lista &lista;
    QString (*consulta)() = nullptr;
    void (*linhas)(ui::ListView &lista, core::Andamento &obra) = nullptr;      ///< rows or texts made by hand
    void (*completa)(ui::ListView &lista, const core::Somas &somas) = nullptr; ///< totals, where there are rows
    QStringView aviso = {}; ///< told where the statement has no rows; "" leaves it to the list's own row
    const core::Pagina *(*pagina)() = nullptr;  ///< asked ahead of every print, as it may depend on an answer
    core::TextosDaPagina (*textos)() = nullptr; ///< read again for every print
    std::optional<Abertura> abertura = {};
};

/// Walks the rows of a statement to its end, or until the user leaves the reading.
template<class Visita>
void ParaCada(dao::Recordset linhas, core::Andamento &obra, Visita visita)
{
    for (; !linhas.Eof() && !obra.deixado(); linhas.MoveNext()) {
        visita(std::as_const(linhas));
        obra.avanca();
    }
}

/// The page of a report that has but one.
template<const core::Pagina &pagina>
const core::Pagina *unica()
{
    return &pagina;
}

} // namespace reports
