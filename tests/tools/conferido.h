#pragma once

#include "core/modulo.h"
#include "platform/dao/database.h"
#include "support/program.h"
#include "tools/confere/relatorio.h"

#include <QTest>

/// What the tests of the audit share: the program's open database audited as it stands.
namespace conferido
{

inline confere::Relatorio audit()
{
    return confere::Confere(core::DBDados->path());
}

/// "título: frase" of all findings, in the order of the report; warnings begin with "aviso ".
inline QStringList findings(const confere::Relatorio &report)
{
    QStringList found;
    for (const confere::Resultado &result : report.resultados) {
        const QString kind = result.nivel == confere::Nivel::Aviso ? QStringLiteral("aviso ") : QString();
        for (const QString &sentence : result.frases) {
            found.append(kind + result.nome + QStringLiteral(": ") + sentence);
        }
    }
    return found;
}

inline QStringList findings()
{
    return findings(audit());
}

/// How many rows the check of this title went through; -1 where it could not be made.
inline qint64 counted(const confere::Relatorio &report, const QString &title)
{
    for (const confere::Resultado &result : report.resultados) {
        if (result.nome == title) {
            return result.feita ? result.contadas : -1;
        }
    }
    qFatal("no check of the title %s", qPrintable(title));
}

} // namespace conferido

#define NOTHING_FOUND() QCOMPARE(conferido::findings().join(u'\n'), QString())
