#include "platform/jet/frames.h"
#include "platform/jet/stream.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <bit>
#include <optional>
#include <stdexcept>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace
{

constexpr auto limit = 1000ms;
constexpr auto patience = 60s; ///< with a process that does something: a busy machine may be slow to start it

/// The damage that `work` meets; none where it meets none.
template<typename Work>
std::optional<jet::Damage> damageOf(Work work)
{
    try {
        work();
        return std::nullopt;
    } catch (const jet::Damaged &damaged) {
        return damaged.damage();
    }
}

std::vector<jet::Row> unpacked(const QByteArray &bytes, std::size_t columns)
{
    std::vector<jet::Row> rows;
    jet::unpackRows(bytes, columns, [&rows](const jet::Row &row) {
        rows.push_back(row);
        return true;
    });
    return rows;
}

bool takeAll(const jet::Row & /*row*/)
{
    return true;
}

} // namespace

/// The pipe between the process that reads a file and the one that wants its rows, and what can go wrong with it. The
/// reading process is played here.
class tst_stream : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void everyValueComesOverAsItIs();
    void aRowNamesWhatCouldNotBeRead();
    void tablesComeOverWithTheirColumns();
    void bytesThatAreNoFrameAreRefused_data();
    void bytesThatAreNoFrameAreRefused();
    void onlyTheFileIsToldDamaged();

    void tablesAreReadOverAndOver();
    void aReadingCanBeLeft();
    void anErrorOfTheTakerIsNotSwallowed();
    void theProcessGoesWithItsReader();
    void whatGoesWrongAtTheStartIsTold_data();
    void whatGoesWrongAtTheStartIsTold();
    void whatGoesWrongAmongTheRowsIsTold_data();
    void whatGoesWrongAmongTheRowsIsTold();
    void aProcessThatIsNotThereIsTold();
    void theNextReadingStartsAnotherProcess();

private:
    jet::Reader reader(const QString &what) const
    {
        const auto longest = what == u"is silent at the start"     ? limit
                             : what == u"is silent among the rows" ? 5 * limit
                                                                   : patience;
        return {path_, {QStringLiteral(BAD_SERVER), {what}}, longest};
    }
    QList<int> children() const;

    QTemporaryDir folder_;
    QString path_;
};

// Three pages: room for 768 rows.
void tst_stream::initTestCase()
{
    path_ = folder_.filePath(u"DADOS ANTIGOS Ç.MDB"_s);
    QFile file(path_);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(QByteArray(3 * 4096, '\0')), 3 * 4096);
}

QList<int> tst_stream::children() const
{
    const auto self = QString::number(QCoreApplication::applicationPid());
    QFile list(u"/proc/%1/task/%1/children"_s.arg(self));
    if (!list.open(QIODevice::ReadOnly)) {
        return {-1};
    }
    QList<int> pids;
    for (const QByteArray &pid : list.readAll().simplified().split(' ')) {
        if (!pid.isEmpty()) {
            pids.append(pid.toInt());
        }
    }
    return pids;
}

void tst_stream::everyValueComesOverAsItIs()
{
    // A NaN that signals, and a payload: whatever the file has goes on.
    const auto single = std::bit_cast<float>(0x7FA0'1234U);
    const auto number = std::bit_cast<double>(0xFFF4'0000'DEAD'BEEFULL);
    const QString strange = QString(QChar(0)) + QChar(0xD83D) + QChar(0xFEFF) + u"Ç"_s;
    const jet::Row row{{runtime::Null{}, false, true, qint16{-32768}, qint32{-2147483647 - 1}, single, number,
                        runtime::Date{-657434.25}, QString(), strange},
                       {}};
    QByteArray bytes;
    jet::packRow(row, bytes);
    jet::packRow(row, bytes);

    const auto rows = unpacked(bytes, row.values.size());
    QCOMPARE(rows.size(), 2);
    for (const jet::Row &got : rows) {
        for (const std::size_t place : {0, 1, 2, 3, 4, 7, 8, 9}) {
            QVERIFY(got.values[place] == row.values[place]);
        }
        QCOMPARE(std::bit_cast<quint32>(std::get<float>(got.values[5])), 0x7FA0'1234U);
        QCOMPARE(std::bit_cast<quint64>(std::get<double>(got.values[6])), 0xFFF4'0000'DEAD'BEEFULL);
        QVERIFY(got.unreadable.empty());
    }
}

void tst_stream::aRowNamesWhatCouldNotBeRead()
{
    QByteArray bytes;
    jet::packRow({{qint32{7}, runtime::Null{}, runtime::Null{}, u"ANA"_s}, {1}}, bytes);
    jet::packRow({{qint32{8}, u"BIA"_s, u"A"_s, runtime::Null{}}, {}}, bytes);
    jet::packRow({{runtime::Null{}, u"B"_s, u"B"_s, runtime::Null{}}, {0, 3}}, bytes);

    const auto rows = unpacked(bytes, 4);
    QCOMPARE(rows.size(), 3);
    QCOMPARE(rows[0].unreadable, std::vector{1});
    QVERIFY(rows[0].values[1] == runtime::Value(runtime::Null{}));
    QVERIFY(rows[0].values[3] == runtime::Value(u"ANA"_s));
    QCOMPARE(rows[1].unreadable, std::vector<int>{});
    QCOMPARE(rows[2].unreadable, (std::vector{0, 3}));
}

void tst_stream::tablesComeOverWithTheirColumns()
{
    const std::vector<jet::Table> tables{
        {u"PEÇAS"_s, {{u"Código"_s, jet::Long, 4, true}, {u"Descrição"_s, jet::Text, 60, false}}, 200'000, true},
        {u"Torta"_s, {}, 0, false}};
    const auto got = jet::unpackTables(jet::packTables(tables));
    QCOMPARE(got.size(), 2);
    QCOMPARE(got[0].name, u"PEÇAS"_s);
    QCOMPARE(got[0].promisedRows, 200'000);
    QVERIFY(got[0].readable);
    QCOMPARE(got[0].columns.size(), 2);
    QCOMPARE(got[0].columns[0].name, u"Código"_s);
    QVERIFY(got[0].columns[0].counter);
    QCOMPARE(got[0].columns[1].type, int{jet::Text});
    QCOMPARE(got[0].columns[1].size, 60);
    QVERIFY(!got[0].columns[1].counter);
    QCOMPARE(got[1].name, u"Torta"_s);
    QVERIFY(!got[1].readable);
    QVERIFY(got[1].columns.empty());
}

void tst_stream::bytesThatAreNoFrameAreRefused_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QByteArray row;
    jet::packRow({{qint32{1}, u"ANA"_s}, {}}, row);
    for (qsizetype size = 1; size < row.size(); ++size) {
        QTest::addRow("the first %d bytes of a row", static_cast<int>(size)) << row.first(size);
    }
    QTest::newRow("a value of no type") << QByteArray("\0\xFF", 2);
    QTest::newRow("a text shorter than nothing") << QByteArray("\0\x9\xFF\xFF\xFF\xFF", 6);
    QTest::newRow("a text as long as can be") << QByteArray("\0\x9\xFF\xFF\xFF\x7F", 6);
}

void tst_stream::bytesThatAreNoFrameAreRefused()
{
    QFETCH(const QByteArray, bytes);
    QCOMPARE(damageOf([&bytes] { jet::unpackRows(bytes, 2, takeAll); }), jet::Damage::Garbled);
    QCOMPARE(damageOf([&bytes] { jet::unpackTables(bytes); }), jet::Damage::Garbled);
    QCOMPARE(damageOf([&bytes] { jet::unpackReading(bytes); }), jet::Damage::Garbled);
}

// The other end finds out by itself what becomes of the process.
void tst_stream::onlyTheFileIsToldDamaged()
{
    QCOMPARE(jet::unpackDamage(jet::packDamage(jet::Damage::Catalogue)), jet::Damage::Catalogue);
    QCOMPARE(jet::unpackDamage(jet::packDamage(jet::Damage::NotStarted)), jet::Damage::Garbled);
    QCOMPARE(damageOf([] { jet::unpackDamage("\0\0\0"); }), jet::Damage::Garbled);
}

void tst_stream::tablesAreReadOverAndOver()
{
    jet::Reader reader = this->reader(u"answers"_s);
    QCOMPARE(reader.tables().size(), 1);
    QCOMPARE(reader.tables()[0].promisedRows, 3);
    const auto pids = children();
    for (int i = 0; i < 3; ++i) {
        QStringList names;
        const jet::Reading reading = reader.read(0, [&names](const jet::Row &row) {
            names.append(QString::number(std::get<qint32>(row.values[0])) + std::get<QString>(row.values[1]));
            return true;
        });
        QCOMPARE(names, QStringList({u"1JOÃO"_s, u"2JOÃO"_s, u"3JOÃO"_s}));
        QCOMPARE(reading.rows, 3);
        QCOMPARE(reading.lost, 0);
        QVERIFY(!reading.ended);
    }
    QCOMPARE(children(), pids);
}

void tst_stream::aReadingCanBeLeft()
{
    jet::Reader reader = this->reader(u"answers"_s);
    const auto leave = [](const jet::Row &row) { return std::get<qint32>(row.values[0]) < 2; };
    const jet::Table &table = reader.tables()[0];
    const jet::Reading left = reader.read(0, leave);
    QVERIFY(left.ended);
    QCOMPARE(left.rows, 2);
    QCOMPARE(children(), QList<int>{});
    QCOMPARE(reader.read(0, takeAll).rows, 3);
    QCOMPARE(&reader.tables()[0], &table);
    QCOMPARE(table.name, u"CLIENTES"_s);
}

void tst_stream::anErrorOfTheTakerIsNotSwallowed()
{
    jet::Reader reader = this->reader(u"answers"_s);
    QVERIFY_THROWS_EXCEPTION(std::runtime_error,
                             reader.read(0, [](const jet::Row &) -> bool { throw std::runtime_error("full"); }));
    QCOMPARE(children(), QList<int>{});
    QCOMPARE(reader.read(0, takeAll).rows, 3);
}

void tst_stream::theProcessGoesWithItsReader()
{
    {
        const jet::Reader reader = this->reader(u"answers"_s);
        QCOMPARE(children().size(), 1);
    }
    QCOMPARE(children(), QList<int>{});
}

void tst_stream::whatGoesWrongAtTheStartIsTold_data()
{
    QTest::addColumn<QString>("what");
    QTest::addColumn<jet::Damage>("damage");
    const auto row = [](const char *what, jet::Damage damage) {
        QTest::newRow(what) << QString::fromLatin1(what) << damage;
    };
    row("crashes at the start", jet::Damage::Crashed);
    row("ends at the start", jet::Damage::Crashed);
    row("is silent at the start", jet::Damage::Silent);
    row("writes no frames", jet::Damage::Garbled);
    row("begins with rows", jet::Damage::Garbled);
    row("tells of a frame without end", jet::Damage::Garbled);
    row("tells of half a table", jet::Damage::Garbled);
    row("finds no catalogue", jet::Damage::Catalogue);
}

void tst_stream::whatGoesWrongAtTheStartIsTold()
{
    QFETCH(const QString, what);
    QFETCH(const jet::Damage, damage);
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(damageOf([this, &what] { reader(what); }), damage);
    QVERIFY(clock.elapsed() >= limit.count() || damage != jet::Damage::Silent);
    QCOMPARE(children(), QList<int>{});
}

void tst_stream::whatGoesWrongAmongTheRowsIsTold_data()
{
    QTest::addColumn<QString>("what");
    QTest::addColumn<jet::Damage>("damage");
    QTest::addColumn<int>("rows");
    const auto row = [](const char *what, jet::Damage damage, int rows) {
        QTest::newRow(what) << QString::fromLatin1(what) << damage << rows;
    };
    row("crashes among the rows", jet::Damage::Crashed, 2);
    row("ends among the rows", jet::Damage::Crashed, 2);
    row("is silent among the rows", jet::Damage::Silent, 2);
    row("breaks off in a frame", jet::Damage::Crashed, 0);
    row("writes rows without end", jet::Damage::Flooded, 768);
    row("writes empty frames", jet::Damage::Garbled, 0);
    row("writes unknown values", jet::Damage::Garbled, 0);
    row("breaks off in a row", jet::Damage::Garbled, 0);
    row("miscounts its rows", jet::Damage::Garbled, 3);
    row("tells of the tables again", jet::Damage::Garbled, 0);
}

void tst_stream::whatGoesWrongAmongTheRowsIsTold()
{
    QFETCH(const QString, what);
    QFETCH(const jet::Damage, damage);
    QFETCH(const int, rows);
    jet::Reader reader = this->reader(what);
    int taken = 0;
    const auto count = [&taken](const jet::Row &) { return ++taken > 0; };
    QCOMPARE(damageOf([&] { reader.read(0, count); }), damage);
    QCOMPARE(taken, rows);
    QCOMPARE(children(), QList<int>{});
}

void tst_stream::aProcessThatIsNotThereIsTold()
{
    const jet::Server nobody{folder_.filePath(u"nobody"_s), {}};
    QCOMPARE(damageOf([&] { const jet::Reader reader(path_, nobody, limit); }), jet::Damage::NotStarted);
}

void tst_stream::theNextReadingStartsAnotherProcess()
{
    jet::Reader reader = this->reader(u"crashes among the rows"_s);
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(damageOf([&reader] { reader.read(0, takeAll); }), jet::Damage::Crashed);
    }
}

QTEST_GUILESS_MAIN(tst_stream)
#include "tst_stream.moc"
