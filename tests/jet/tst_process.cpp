#include "platform/jet/stream.h"
#include "tests/jet/jettest.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace
{

jet4::Table clients(int rows)
{
    jet4::Table table{
        .name = u"Peças"_s, .columns = jet4::columns(u"Codigo.Counter,Nome.Text;50,Obs.Memo"_s), .rows = {}};
    for (qint32 i = 1; i <= rows; ++i) {
        table.rows.push_back({{i, u"JOÃO %1"_s.arg(i), i % 2 == 0 ? runtime::Value(runtime::Null{}) : u""_s}});
    }
    return table;
}

const jet::Server server{QStringLiteral(SERVER), {}};

} // namespace

/// Files read through the process that does it: what comes over, and how the two live and end together.
class tst_process : public QObject
{
    Q_OBJECT

private slots:
    void aFileIsReadAsInOneProcess();
    void moreRowsThanThePipeHoldsComeOver();
    void aFileWithoutCatalogueIsDamaged();
    void aMissingFileIsDamaged();
    void aKeyThatStopsTheProgramIsNotForTheProcess();
    void theProcessEndsWithAKilledProgram();

private:
    QString write(const std::vector<jet4::Table> &tables) const
    {
        return jettest::write(folder_.filePath(u"Dados Ção.mdb"_s), jet4::bytes({tables}));
    }
    static QList<int> childrenOf(qint64 pid);
    static QByteArray stateOf(int pid);

    QTemporaryDir folder_;
};

QList<int> tst_process::childrenOf(qint64 pid)
{
    QFile list(u"/proc/%1/task/%1/children"_s.arg(pid));
    if (!list.open(QIODevice::ReadOnly)) {
        return {};
    }
    QList<int> pids;
    for (const QByteArray &child : list.readAll().simplified().split(' ')) {
        if (!child.isEmpty()) {
            pids.append(child.toInt());
        }
    }
    return pids;
}

/// The letter of what a process does; "" where it is gone. Nobody may have fetched the status of one that has ended.
QByteArray tst_process::stateOf(int pid)
{
    QFile status(u"/proc/%1/stat"_s.arg(pid));
    if (!status.open(QIODevice::ReadOnly)) {
        return {};
    }
    const QByteArray text = status.readAll();
    const QByteArray state = text.mid(text.lastIndexOf(')') + 2, 1);
    return state == "Z" || state == "X" ? QByteArray() : state;
}

void tst_process::aFileIsReadAsInOneProcess()
{
    auto other = clients(2);
    other.name = u"Outras"_s;
    const QString path = write({clients(500), other});
    jet::File file(path);
    jet::Reader reader(path, server);
    QCOMPARE(jettest::namesOf(reader.tables()), QStringList({u"Peças"_s, u"Outras"_s}));
    for (const std::size_t table : {1, 0, 1}) {
        QCOMPARE(reader.tables()[table].promisedRows, file.tables()[table].promisedRows);
        const auto here = jettest::contentOf(file, table);
        const auto there = jettest::contentOf(reader, table);
        QCOMPARE(there.rows, here.rows);
        QCOMPARE(there.reading.rows, here.reading.rows);
        QCOMPARE(there.rows[0], QStringList({u"long 1"_s, u"\"JOÃO 1\""_s, u"\"\""_s}));
        QCOMPARE(there.rows[1], QStringList({u"long 2"_s, u"\"JOÃO 2\""_s, u"null"_s}));
    }
}

void tst_process::moreRowsThanThePipeHoldsComeOver()
{
    constexpr int rows = 50'000;
    jet::Reader reader(write({clients(rows)}), server);
    qint32 last = 0;
    const jet::Reading reading = reader.read(0, [&last](const jet::Row &row) {
        const auto number = std::get<qint32>(row.values[0]);
        const bool next = number == last + 1;
        last = number;
        return next;
    });
    QVERIFY(!reading.ended);
    QCOMPARE(last, rows);
    QCOMPARE(reading.rows, rows);
}

void tst_process::aFileWithoutCatalogueIsDamaged()
{
    auto file = jet4::layOut({{clients(3)}});
    file.put(file.catalogue.definition, 0, "\1");
    const QString path = jettest::write(folder_.filePath(u"a.mdb"_s), file.bytes);
    try {
        const jet::Reader reader(path, server);
        QFAIL("read all the same");
    } catch (const jet::Damaged &damaged) {
        QCOMPARE(damaged.damage(), jet::Damage::Catalogue);
    }
}

void tst_process::aMissingFileIsDamaged()
{
    QVERIFY_THROWS_EXCEPTION(jet::Damaged, jet::Reader(folder_.filePath(u"nada.mdb"_s), server));
}

// Ctrl+C reaches both; the program finds out by itself, and wants no rows to be missing for it.
void tst_process::aKeyThatStopsTheProgramIsNotForTheProcess()
{
    constexpr int rows = 20'000;
    jet::Reader reader(write({clients(rows)}), server);
    const auto pids = childrenOf(QCoreApplication::applicationPid());
    QCOMPARE(pids.size(), 1);
    const jet::Reading reading = reader.read(0, [&pids](const jet::Row &row) {
        if (std::get<qint32>(row.values[0]) == 1) {
            for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
                kill(pids[0], signal);
            }
        }
        return true;
    });
    QCOMPARE(reading.rows, rows);
}

// Even one that hears nothing any more, as in an endless loop: it is held up here.
void tst_process::theProcessEndsWithAKilledProgram()
{
    const QString path = write({clients(20'000)});
    QProcess program;
    program.start(QStringLiteral(HOLDER), {QStringLiteral(SERVER), path});
    QVERIFY(program.waitForReadyRead(30'000));
    QCOMPARE(program.readLine(), "first row\n");
    const auto pids = childrenOf(program.processId());
    QCOMPARE(pids.size(), 1);
    kill(pids[0], SIGSTOP);
    QTRY_COMPARE(stateOf(pids[0]), "T");
    program.kill();
    QVERIFY(program.waitForFinished());
    QTRY_COMPARE(stateOf(pids[0]), QByteArray());
}

QTEST_GUILESS_MAIN(tst_process)
#include "tst_process.moc"
