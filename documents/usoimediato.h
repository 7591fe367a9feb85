#pragma once

#include "documents/documentogravado.h"
#include "documents/painelitens.h"

namespace documents
{

/// A window that writes each item at once: which document it alters, and what it says when that is gone.
struct UsoImediato {
    DocumentoGravado documento;
    std::function<qint32()> numero; ///< of the document that is shown
    QString semDocumento;
    std::vector<Aba> abasComTeclas{abaPecas};
};

/// How such a window uses its panel. A row whose item or document somebody has deleted meanwhile goes out of its list,
/// and a box says so.
UsoDoPainel UsoDe(PainelItens &painel, const UsoImediato &uso);

} // namespace documents
