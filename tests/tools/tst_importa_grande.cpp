// Two hundred thousand rows, imported by the tool: each stands where it stood with every bit of its values, and neither
// the time nor the memory grows beyond the rows.
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"
#include "support/jet4/jet4.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <map>

#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace
{

constexpr int few = 20'000;
constexpr int many = 200'000;

// A prime above all counts: its multiples give each code once, in no order.
constexpr int prime = 200'003;
constexpr qint64 step = 7'919;

qint32 codeOf(int row)
{
    return static_cast<qint32>(row * step % prime) + 1;
}

float limitOf(int row)
{
    return 0.01F * static_cast<float>(row % 100'000) - 300.F;
}

runtime::Date dayOf(int row)
{
    constexpr double minutes = 1440;
    return {30'000. + row % 15'000 + row % 1440 / minutes};
}

QString textOf(int row)
{
    return u"CLIENTE Nº %1 DE VÁRIOS"_s.arg(row);
}

jet4::File customers(int rows)
{
    jet4::Table table{.name = u"Clientes"_s,
                      .columns =
                          jet4::columns(u"Codigo.Counter,DataCadastro.Date,Nome.Text;200,LimiteCredito.Single"_s),
                      .rows = {}};
    table.rows.reserve(static_cast<std::size_t>(rows));
    for (int row = 0; row < rows; ++row) {
        table.rows.push_back({.values = {codeOf(row), dayOf(row), textOf(row), limitOf(row)}});
    }
    jet4::File file;
    file.tables.push_back(std::move(table));
    return file;
}

/// The time that ended processes of this one have worked, in milliseconds.
qint64 workOfChildren()
{
    rusage all{};
    getrusage(RUSAGE_CHILDREN, &all);
    const auto milliseconds = [](const timeval &time) { return time.tv_sec * 1000 + time.tv_usec / 1000; };
    return milliseconds(all.ru_utime) + milliseconds(all.ru_stime);
}

/// The most memory that a process and those that it started have held, in kB.
qint64 peakOf(qint64 process)
{
    const QString place = u"/proc/%1/"_s.arg(process);
    qint64 peak = 0;
    QFile status(place + u"status"_s);
    if (status.open(QIODevice::ReadOnly)) {
        for (const QByteArray &line : status.readAll().split('\n')) {
            if (line.startsWith("VmHWM:")) {
                peak = line.simplified().split(' ').at(1).toLongLong();
            }
        }
    }
    QFile children(place + u"task/%1/children"_s.arg(process));
    if (children.open(QIODevice::ReadOnly)) {
        for (const QByteArray &child : children.readAll().simplified().split(' ')) {
            peak += child.isEmpty() ? 0 : peakOf(child.toLongLong());
        }
    }
    return peak;
}

struct Ended {
    int code = -1;
    QString words;
    qint64 milliseconds = 0; ///< of work: what a busy machine gives to others does not count
    qint64 peak = 0;         ///< until the target stood there
    qint64 lastPeak = 0;     ///< and with the audit of it
};

Ended import(const QString &source, const QString &target)
{
    QProcess tool;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    // Freed memory that a sanitizer keeps is not the tool's.
    environment.insert(u"ASAN_OPTIONS"_s, u"quarantine_size_mb=1"_s);
    tool.setProcessEnvironment(environment);
    const qint64 before = workOfChildren();
    tool.start(QStringLiteral(FERRAMENTA), {source, target});
    Ended ended;
    constexpr int betweenLooks = 20;
    while (!tool.waitForFinished(betweenLooks) && tool.state() != QProcess::NotRunning) {
        ended.lastPeak = std::max(ended.lastPeak, peakOf(tool.processId()));
        if (!QFile::exists(target)) {
            ended.peak = ended.lastPeak;
        }
    }
    ended.milliseconds = workOfChildren() - before;
    ended.code = tool.exitStatus() == QProcess::NormalExit ? tool.exitCode() : -1;
    ended.words = QString::fromUtf8(tool.readAllStandardError()) + QString::fromUtf8(tool.readAllStandardOutput());
    return ended;
}

} // namespace

class TestImportaGrande : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void everyRowStandsInItsPlace();
    void theNextRowGoesBehindTheHighestCode();
    void theSumsAreThoseOfTheRows();
    void timeAndMemoryAreInProportion();

private:
    QString path(const QString &name) const { return folder_.filePath(name); }

    QTemporaryDir folder_;
    std::map<int, Ended> ended_; ///< by the number of rows
};

void TestImportaGrande::initTestCase()
{
    for (const int rows : {few, many}) {
        const QString source = path(u"velho%1.mdb"_s.arg(rows));
        QVERIFY(jet4::write(source, customers(rows)));
        ended_[rows] = import(source, path(u"DADOS%1.MDB"_s.arg(rows)));
        QVERIFY2(ended_[rows].code == 0, qPrintable(ended_[rows].words));
    }
}

void TestImportaGrande::everyRowStandsInItsPlace()
{
    const auto database = dao::DBEngine::OpenDatabase(path(u"DADOS%1.MDB"_s.arg(many)));
    auto customers =
        database->OpenRecordset(u"SELECT Codigo, DataCadastro, Nome, LimiteCredito, Email FROM Clientes"_s);
    int row = 0;
    for (; !customers.Eof(); customers.MoveNext(), ++row) {
        const bool same = customers.value(0) == runtime::Value(codeOf(row)) &&
                          customers.value(1) == runtime::Value(dayOf(row)) &&
                          customers.value(2) == runtime::Value(textOf(row)) &&
                          customers.value(3) == runtime::Value(limitOf(row)) && runtime::IsNull(customers.value(4));
        QVERIFY2(same, qPrintable(u"row %1: code %2"_s.arg(row).arg(runtime::CStr(customers.value(0)))));
    }
    QCOMPARE(row, many);
}

void TestImportaGrande::theNextRowGoesBehindTheHighestCode()
{
    qint32 highest = 0;
    for (int row = 0; row < many; ++row) {
        highest = std::max(highest, codeOf(row));
    }
    const auto database = dao::DBEngine::OpenDatabase(path(u"DADOS%1.MDB"_s.arg(many)));
    database->Execute(u"INSERT INTO Clientes (Nome) VALUES ('NOVO')"_s);
    const auto added = database->OpenRecordset(u"SELECT Codigo FROM Clientes WHERE Nome = 'NOVO'"_s);
    QCOMPARE(runtime::CLng(added.value(0)), highest + 1);
    database->Execute(u"DELETE * FROM Clientes WHERE Nome = 'NOVO'"_s);
}

void TestImportaGrande::theSumsAreThoseOfTheRows()
{
    double sum = 0;
    for (int row = 0; row < many; ++row) {
        sum += double{limitOf(row)};
    }
    // Told twice, of the source and of the target, in a line of their own.
    const QString shown = runtime::Format(sum, u"#,##0.00");
    const QStringList lines = ended_[many].words.split(u'\n');
    const bool told = std::any_of(lines.begin(), lines.end(), [&shown](const QString &line) {
        return line.contains(u"LimiteCredito"_s) && line.count(shown) == 2;
    });
    QVERIFY2(told, qPrintable(shown + u'\n' + ended_[many].words));
    QVERIFY(ended_[many].words.contains(u"200.000"_s));
}

/// Ten times the rows: about ten times the time, and hardly any memory more, until the audit, which knows all codes.
void TestImportaGrande::timeAndMemoryAreInProportion()
{
    constexpr int mostTimes = 25;
    constexpr qint64 mostMore = 64 * 1024;
    constexpr qint64 mostMoreOfTheAudit = 256 * 1024;
    const Ended &small = ended_[few];
    const Ended &large = ended_[many];
    qInfo("%d rows: %lld ms, %lld kB, %lld kB with the audit", few, small.milliseconds, small.peak, small.lastPeak);
    qInfo("%d rows: %lld ms, %lld kB, %lld kB with the audit", many, large.milliseconds, large.peak, large.lastPeak);
    QVERIFY(small.peak > 0);
    QVERIFY(large.milliseconds < mostTimes * small.milliseconds);
    QVERIFY(large.peak < small.peak + mostMore);
    QVERIFY(large.lastPeak < small.lastPeak + mostMoreOfTheAudit);
}

QTEST_GUILESS_MAIN(TestImportaGrande)
#include "tst_importa_grande.moc"
