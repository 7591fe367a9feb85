#pragma once

#include "tools/confere/relatorio.h"
#include "tools/importa/importa.h"

#include <optional>

namespace importa
{

/// All that the report of an import tells.
struct Relatorio {
    QString origem;
    QString destino;
    Resultado resultado;
    std::optional<confere::Relatorio> conferencia = {}; ///< none where the file could not be audited
    QString semConferencia = {};                        ///< why it could not; "" where there is nothing to audit
};

/// Audits the finished target and puts all together.
Relatorio RelatorioDe(const Pedido &pedido, Resultado resultado);

/// "DADOS-importacao.txt" beside "DADOS.MDB".
QString ArquivoDoRelatorio(const QString &destino);

/// The report for people. On a screen the first findings of each check of the audit are enough.
enum class Achados { Todos, OsPrimeiros };
QString Texto(const Relatorio &relatorio, Achados achados);

/// Puts the whole text into its file beside the target, as the editors of all systems show it; false where it can't be
/// written.
bool GravaRelatorio(const Relatorio &relatorio);

} // namespace importa
