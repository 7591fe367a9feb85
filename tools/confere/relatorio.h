#pragma once

#include "platform/runtime/value.h"
#include "tools/confere/conferencia.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace confere
{

/// What one check came to.
struct Resultado {
    QString nome;
    Nivel nivel = Nivel::Erro;
    bool feita = false; ///< false where the file does not have its tables
    qint64 contadas = 0;
    QStringView oQueConta = u"linha";
    qint64 achados = 0;
    QStringList frases = {}; ///< the first of what was found, up to `frasesGuardadas`
};

/// How many findings of a check a report keeps; the others it counts.
constexpr qsizetype frasesGuardadas = 1000;

struct Relatorio {
    QString arquivo;
    qint64 tamanho = 0;
    runtime::Date gravado;
    std::vector<Resultado> resultados;

    qint64 achados(Nivel nivel) const;
    bool nadaAchado() const { return achados(Nivel::Erro) + achados(Nivel::Aviso) == 0; }
};

/// Runs all checks over a file, which stays as it is. A check that a damaged file stops in the middle counts as an
/// error of its own, and the next one runs. Raises what opening the file raises, and 3343 for a file that has none of
/// the program's own tables.
Relatorio Confere(const QString &arquivo);

/// The report for people: a line a check, its findings below it, up to `maisFrases` of each unless all that it keeps
/// are wanted; `asOutras` says where the others are.
constexpr int maisFrases = 10;
constexpr QStringView tudoMostra = u"--tudo mostra todos";
QString Texto(const Relatorio &relatorio, bool todas, QStringView asOutras = tudoMostra);

using Escreve = std::function<void(const QString &texto)>;

/// Runs all checks as `Confere` does and writes the report as it comes, which must not wait for its reader: the file is
/// held still meanwhile. Where really all findings are wanted, a check that has more than a report keeps is made once
/// more and tells them on the way.
Relatorio ConfereEEscreve(const QString &arquivo, bool todas, const Escreve &escreve);

} // namespace confere
