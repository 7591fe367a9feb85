#pragma once

#include "core/papel.h"
#include "documents/itens.h"

#include <QStringList>

namespace documents
{

/// A line of the header, its values cut to the room on paper.
using LinhaCabecalho = core::Cabecalho::value_type;
LinhaCabecalho UmCampo(const QString &rotulo, const QString &valor);
LinhaCabecalho DoisCampos(const QString &rotulo1, const QString &valor1, const QString &rotulo2, const QString &valor2);

/// A field over as many lines as its value needs; none for an empty one.
core::Cabecalho CabecalhoEmLinhas(const QString &rotulo, const QString &valor);

/// The field "OBSERVAÇÕES" over as many lines as the text needs; none for an empty text.
core::Cabecalho CabecalhoDaObservacao(const QString &observacao);

/// A list of items as it is printed, with its total below. The third layout prints none that has no rows.
struct Secao {
    QString titulo = {}; ///< third layout
    std::vector<LinhaItem> linhas;
    QString rotuloTexto = {}; ///< third layout: what stands between the rows and the total, where there is a text
    QString texto = {};
    QString rotuloTotal;
    QString total;
};

/// Lines behind the items, which stay together on one sheet if they fit on one.
struct LinhaFinal {
    QString texto;
    double tamanho = 10;
};
using Bloco = QList<LinhaFinal>;

Bloco BlocoDe(const QStringList &linhas, double tamanho = 10);

/// A blank line and "OBS:" with the observation; nothing for an empty one.
Bloco BlocoDaObservacao(const QString &observacao);

/// An order or an estimate as it goes to paper or to the preview: texts alone.
struct Documento {
    QString titulo;
    core::Cabecalho cabecalho;
    std::vector<Secao> secoes; ///< the first two layouts print the first of them
    QString totalGeral = {};   ///< third layout, behind the sections
    QList<Bloco> blocos = {};
    bool comRodape = true; ///< third layout: whether the last sheet gets its foot
};

/// The layout that the settings name (`LayoutOS`).
int LayoutDeImpressao();

/// The first layout is plain text for the printer alone.
bool TemPreVisualizacao(int layout);

/// Prints a document with layout 1 (plain text), 2 (logo and frame, at most 45 items a sheet) or 3 (logo and frame, a
/// section for each list); any other number prints nothing.
void ImprimeDocumento(int layout, const Documento &documento, printer::Surface &saida);

/// The text word-wrapped into lines of fewer than `largura` characters; its own line breaks stay. A word that is longer
/// is broken hard.
QStringList EmLinhas(const QString &texto, int largura);

} // namespace documents
