#pragma once

#include "platform/runtime/value.h"
#include "tools/confere/conferencia.h"

namespace confere
{

/// What one check came to.
struct Resultado {
    QString nome;
    Nivel nivel = Nivel::Erro;
    bool feita = false; ///< false where the file does not have its tables
    qint64 contadas = 0;
    QStringView oQueConta = u"linha";
    QStringList frases = {};
};

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

/// The report for people: a line a check, its findings below it, up to `maisFrases` of each unless all are wanted;
/// `asOutras` says where the others are.
constexpr int maisFrases = 10;
QString Texto(const Relatorio &relatorio, bool todas, const QString &asOutras = QStringLiteral("--tudo mostra todos"));

} // namespace confere
