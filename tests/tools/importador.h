#pragma once

#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"
#include "support/diskfiles.h"
#include "support/jet4/jet4.h"

#include <QFile>
#include <QProcess>
#include <QTest>

#include <algorithm>
#include <utility>

/// The tool that imports, as a user starts it, and what it is given.
namespace importador
{

using namespace Qt::StringLiterals;
using runtime::Null;

inline constexpr qsizetype pageSize = 4096;

struct Ended {
    int code = -1;
    QString output;
    QString errors;
};

inline Ended run(const QStringList &arguments, const QString &folder)
{
    QProcess tool;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
    environment.insert(u"XDG_DATA_HOME"_s, u"/nenhuma"_s);
    tool.setProcessEnvironment(environment);
    tool.setWorkingDirectory(folder);
    tool.start(QStringLiteral(FERRAMENTA), arguments);
    tool.waitForFinished(120'000);
    return {.code = tool.exitStatus() == QProcess::NormalExit ? tool.exitCode() : -1,
            .output = QString::fromUtf8(tool.readAllStandardOutput()),
            .errors = QString::fromUtf8(tool.readAllStandardError())};
}

/// Old data with what a workshop has, and a table and a column that the program does not know.
inline jet4::File oldData()
{
    jet4::File file;
    file.tables.push_back(
        {.name = u"Clientes"_s,
         .columns = jet4::columns(u"Codigo.Counter,Nome.Text;200,Apelido.Text;30"_s),
         .rows = {{.values = {qint32{1}, u"JOSÉ DA SILVA"_s, u"ZÉ"_s}}, {.values = {qint32{7}, u"ÂNGELA"_s, Null()}}}});
    file.tables.push_back({.name = u"Caixa"_s,
                           .columns = jet4::columns(u"Codigo.Counter,Data.Date,Entrada.Single,Saldo.Single"_s),
                           .rows = {{.values = {qint32{1}, runtime::Date{45000}, 10.5F, 10.5F}},
                                    {.values = {qint32{2}, runtime::Date{45001}, 1.25F, 11.75F}}}});
    file.tables.push_back({.name = u"Agenda"_s,
                           .columns = jet4::columns(u"Texto.Text;50"_s),
                           .rows = {{.values = {u"LIGAR"_s}}, {.values = {u"COBRAR"_s}}}});
    return file;
}

/// The same without what the program does not know.
inline jet4::File cleanData()
{
    jet4::File file = oldData();
    file.tables.pop_back();
    file.tables[0].columns.pop_back();
    for (jet4::Row &row : file.tables[0].rows) {
        row.values.pop_back();
    }
    return file;
}

inline jet4::File manyCustomers(int rows)
{
    jet4::File file;
    file.tables.push_back(
        {.name = u"Clientes"_s, .columns = jet4::columns(u"Codigo.Counter,Nome.Text;200"_s), .rows = {}});
    for (int i = 1; i <= rows; ++i) {
        file.tables[0].rows.push_back({.values = {qint32{i}, u"CLIENTE NUMERO %1 DA OFICINA"_s.arg(i)}});
    }
    return file;
}

/// Jet 4 by its first page, and nothing behind it.
inline QByteArray emptyPages()
{
    return jet4::bytes({}).first(pageSize) + QByteArray(7 * pageSize, '\0');
}

inline void put(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

/// Whether a line of the report says this, whatever the room between its columns.
inline bool hasLine(const QString &report, const QString &line)
{
    const QStringList lines = report.split(u'\n');
    return std::any_of(lines.begin(), lines.end(), [&line](const QString &one) { return one.simplified() == line; });
}

inline QString firstValue(const QString &file, const QString &select)
{
    return runtime::CStr(dao::DBEngine::OpenDatabase(file, true)->OpenRecordset(select).value(0));
}

/// Every file below a folder with what it holds.
inline QList<std::pair<QString, QByteArray>> everythingIn(const QString &folder)
{
    QList<std::pair<QString, QByteArray>> all;
    for (const QString &file : support::filesOf(folder)) {
        all.append({file, support::contentsOf(QDir(folder).filePath(file))});
    }
    return all;
}
} // namespace importador
