#pragma once

#include "core/esquema.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/dao/unit.h"
#include "platform/runtime/runtime.h"
#include "support/diskfiles.h"
#include "support/jet4/jet4.h"
#include "tests/dao/golden.h"
#include "tools/importa/importa.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

/// A genuine Jet file with the tables of a test, its import, and what is told of it.
Q_DECLARE_METATYPE(importa::Falha)
Q_DECLARE_METATYPE(std::optional<importa::Falha>)

namespace QTest
{

/// As a number; no failure is -1.
template<>
char *toString(const std::optional<importa::Falha> &failure)
{
    return toString(failure ? static_cast<int>(*failure) : -1);
}

} // namespace QTest

namespace importado
{

using namespace Qt::StringLiterals;

/// A folder of the test that others may look into, and only its owner may write.
inline constexpr QFile::Permissions forAll = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ReadGroup |
                                             QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther;

inline void put(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

class Import
{
public:
    Import()
    {
        QDir(folder_.path()).mkdir(u"novo"_s);
        request.origem = source();
        request.destino = target();
        request.leitor = QStringLiteral(LEITOR);
    }

    QString beside(const QString &name) const { return folder_.filePath(name); }
    QString source() const { return beside(u"velho.mdb"_s); }
    QString target() const { return beside(u"novo/DADOS.MDB"_s); }

    /// All files of the test, sorted.
    QStringList files() const { return support::filesOf(folder_.path()); }

    jet4::Table &table(const QString &name, const QString &columns, const std::vector<jet4::Row> &rows)
    {
        return tables.emplace_back(jet4::Table{.name = name, .columns = jet4::columns(columns), .rows = rows});
    }

    void write() const { QVERIFY(jet4::write(source(), {.tables = tables})); }

    importa::Resultado import(const importa::Andamento &progress = [](const importa::Passo &) { return true; }) const
    {
        return importa::Importa(request, progress);
    }

    /// Writes the source and imports it.
    importa::Resultado run(const importa::Andamento &progress = [](const importa::Passo &) { return true; }) const
    {
        write();
        return import(progress);
    }

    /// The rows of a statement over the finished target.
    QStringList rows(const QString &statement) const
    {
        const auto database = dao::DBEngine::OpenDatabase(target());
        return golden::rows(*database, statement);
    }

    std::vector<jet4::Table> tables;
    importa::Pedido request;

private:
    QTemporaryDir folder_;
};

/// A database as the program makes it at its first start.
inline std::shared_ptr<dao::Database> emptyWorkshop(const QString &path)
{
    core::DBDados = dao::DBEngine::CreateDatabase(path, {});
    const dao::Unit together;
    const auto warning = [](const QString &text) { qFatal("%s", qPrintable(text)); };
    QString fields = core::camposSenha;
    core::CriaTabela(u"Senha"_s, fields, warning);
    core::CriarDB(warning);
    return std::exchange(core::DBDados, nullptr);
}

inline jet4::Table like(const dao::TableDef &table)
{
    jet4::Table made{.name = table.name(), .columns = {}, .rows = {}};
    for (const dao::Field &field : table.fields()) {
        made.columns.push_back({.name = field.name,
                                .type = static_cast<int>(field.type),
                                .size = field.size,
                                .counter = field.isCounter()});
    }
    return made;
}

/// A value that a column of the program's may hold, another one in each.
inline runtime::Value sample(const dao::Field &field, int place)
{
    switch (field.type) {
    case dao::FieldType::Boolean:
        return place % 2 == 0;
    case dao::FieldType::Integer:
        return static_cast<qint16>(-1 - place);
    case dao::FieldType::Long:
        return qint32{100'000} + place;
    case dao::FieldType::Single:
        return 0.1F + static_cast<float>(place);
    case dao::FieldType::Date:
        return runtime::Date{45000.5 + place};
    default:
        return u"ÇÃO %1"_s.arg(place).repeated(60).left(field.size);
    }
}

inline const importa::Tabela &tableOf(const importa::Resultado &result, const QString &name)
{
    static const importa::Tabela none;
    const auto found = std::find_if(result.tabelas.begin(), result.tabelas.end(),
                                    [&name](const importa::Tabela &table) { return table.nome == name; });
    return found != result.tabelas.end() ? *found : none;
}

inline const importa::Soma &sumOf(const importa::Resultado &result, const QString &table, const QString &column)
{
    static const importa::Soma none;
    const auto &sums = tableOf(result, table).somas;
    const auto found =
        std::find_if(sums.begin(), sums.end(), [&column](const importa::Soma &sum) { return sum.coluna == column; });
    return found != sums.end() ? *found : none;
}

/// "Tabela.Coluna Cortado 2: linha 1 código 8, linha 3", a line a kind.
inline QStringList told(const importa::Resultado &result)
{
    static const QStringList words{u"Cortado"_s,  u"Caractere"_s,  u"Arredondado"_s,
                                   u"SemLugar"_s, u"SemSentido"_s, u"Ilegivel"_s};
    QStringList lines;
    for (const importa::Ocorrencia &one : result.ocorrencias) {
        QStringList places;
        for (const importa::Lugar &place : one.lugares) {
            places.append(u"linha %1"_s.arg(place.linha) +
                          (place.codigo ? u" código %1"_s.arg(*place.codigo) : QString()));
        }
        lines.append(u"%1.%2 %3 %4: %5"_s.arg(one.tabela, one.coluna, words[static_cast<int>(one.mudanca)])
                         .arg(one.quantas)
                         .arg(places.join(u", "_s)));
    }
    return lines;
}

/// "Caixa 1: 90 90 (0)": accounts, the source's balance, the target's, how many differ.
inline QStringList balances(const importa::Resultado &result)
{
    QStringList lines;
    for (const importa::Saldo &one : result.saldos) {
        lines.append(u"%1%2 %3: %4 %5 (%6)"_s.arg(one.tabela, one.porDono ? u" por dono"_s : QString())
                         .arg(one.contas)
                         .arg(one.origem)
                         .arg(one.destino)
                         .arg(one.diferentes));
    }
    return lines;
}

/// The failure of what should fail; none where it did not.
template<class Work>
std::optional<importa::Falha> failureOf(Work &&work)
{
    try {
        work();
    } catch (const importa::Erro &error) {
        return error.falha();
    }
    return std::nullopt;
}

} // namespace importado
