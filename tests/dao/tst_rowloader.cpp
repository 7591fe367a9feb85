// Rows that are taken over from another database as they stood there, and the database in the making that takes them.
#include "platform/dao/databasedraft.h"
#include "platform/dao/unit.h"
#include "support/diskfiles.h"
#include "tests/dao/golden.h"

#include <QTest>

#include <bit>
#include <limits>
#include <sqlite3.h>

using namespace Qt::StringLiterals;
using golden::errorOf;
using runtime::Null;
using runtime::Value;

namespace
{

using Row = std::vector<Value>;

/// A column of one text by the bare library, which sees what statements of the program do not.
QStringList bare(const QString &file, const char *statement)
{
    sqlite3 *handle = nullptr;
    sqlite3_stmt *rows = nullptr;
    sqlite3_open_v2(file.toUtf8().constData(), &handle, SQLITE_OPEN_READONLY, nullptr);
    sqlite3_prepare_v2(handle, statement, -1, &rows, nullptr);
    QStringList found;
    while (sqlite3_step(rows) == SQLITE_ROW) {
        found.append(QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(rows, 0))));
    }
    sqlite3_finalize(rows);
    sqlite3_close(handle);
    return found;
}

QStringList filesBeside(const QTemporaryDir &folder)
{
    return support::filesOf(folder.path());
}

class tst_rowloader : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void rowsComeInTheirOrderWithTheirCodes();
    void emptyTextsStayApartFromNull();
    void numbersKeepTheirBits();
    void datesKeepTheirMoment();
    void everyTypeIsTaken();
    void theCounterGoesOnBehindTheHighest();
    void theCounterGoesOnInTheSameUnit();
    void negativeAndNullCodesAreKept();
    void rowsStandBehindThoseOfTheTable();
    void anOpenSetKeepsItsRows();
    void aMissingTableIsRefused();
    void aValueOfAnotherWidthIsRefused_data();
    void aValueOfAnotherWidthIsRefused();
    void aRowOfAnotherLengthIsRefused();
    void whatIsNotFinishedIsNotThere_data();
    void whatIsNotFinishedIsNotThere();
    void anErrorOnItsWayTakesTheRowsBack();
    void theIndexesStandAfterwards_data();
    void theIndexesStandAfterwards();

    void aDraftHasNoNameUntilItIsPutInPlace();
    void aDraftGoesWithItsObject();
    void aDraftReplacesAFileThatKeepsItsRights();
    void aDamagedDraftIsNotTaken();
    void aDraftNeedsAFolder();

private:
    dao::RowLoader load() { return database_->LoadRows(u"contas"_s); }
    QStringList rows() { return golden::rows(*database_, u"SELECT * FROM Contas"_s); }
    void reopen();

    std::unique_ptr<QTemporaryDir> folder_;
    std::shared_ptr<dao::Database> database_;
};

void tst_rowloader::init()
{
    folder_ = std::make_unique<QTemporaryDir>();
    database_ = golden::createDatabase(*folder_);
    database_->Execute(u"CREATE TABLE Contas (Codigo COUNTER, Nome TEXT(20), CodCliente LONG)"_s);
    database_->KeepInOrder(u"Contas"_s, {u"Nome"_s});
}

void tst_rowloader::cleanup()
{
    database_.reset();
    folder_.reset();
}

void tst_rowloader::reopen()
{
    const QString path = database_->path();
    database_.reset();
    database_ = dao::DBEngine::OpenDatabase(path);
}

void tst_rowloader::rowsComeInTheirOrderWithTheirCodes()
{
    auto loader = load();
    loader.append(Row{qint32{7}, u"B"_s, qint32{1}});
    loader.append(Row{qint32{2}, u"A"_s, Null()});
    loader.append(Row{qint32{7}, u"ç Á"_s, qint32{1}});
    loader.finish();
    const QStringList expected{u"7 | B | 1"_s, u"2 | A | <Null>"_s, u"7 | ç Á | 1"_s};
    QCOMPARE(rows(), expected);
    reopen();
    QCOMPARE(rows(), expected);
    QCOMPARE(golden::rows(*database_, u"SELECT Nome FROM Contas ORDER BY Nome"_s),
             (QStringList{u"A"_s, u"B"_s, u"ç Á"_s}));
    QCOMPARE(golden::rows(*database_, u"SELECT Nome FROM Contas WHERE Codigo = 7"_s), (QStringList{u"B"_s, u"ç Á"_s}));
    QCOMPARE(database_->CheckIntegrity(), u"ok"_s);
}

void tst_rowloader::emptyTextsStayApartFromNull()
{
    auto loader = load();
    loader.append(Row{qint32{1}, u""_s, Null()});
    loader.append(Row{qint32{2}, Null(), Null()});
    loader.finish();
    reopen();
    auto set = database_->OpenRecordset(u"Contas"_s);
    QCOMPARE(set.value(u"Nome"), Value(QString()));
    set.MoveNext();
    QCOMPARE(set.value(u"Nome"), Value(Null()));
}

void tst_rowloader::numbersKeepTheirBits()
{
    database_->Execute(u"CREATE TABLE Valores (Valor SINGLE, Dobro DOUBLE)"_s);
    const std::vector<float> singles{0.1F,
                                     1234567.9F,
                                     -0.01F,
                                     std::numeric_limits<float>::max(),
                                     std::numeric_limits<float>::denorm_min(),
                                     16777216.0F,
                                     std::numeric_limits<float>::infinity()};
    auto loader = database_->LoadRows(u"Valores"_s);
    for (const float single : singles) {
        loader.append(Row{single, double{single} / 3});
    }
    loader.finish();
    reopen();
    auto set = database_->OpenRecordset(u"Valores"_s);
    for (const float single : singles) {
        QCOMPARE(std::bit_cast<quint32>(std::get<float>(set.value(0))), std::bit_cast<quint32>(single));
        QCOMPARE(std::bit_cast<quint64>(std::get<double>(set.value(1))), std::bit_cast<quint64>(double{single} / 3));
        set.MoveNext();
    }
}

void tst_rowloader::datesKeepTheirMoment()
{
    database_->Execute(u"CREATE TABLE Datas (Data DATE)"_s);
    const std::vector<double> serials{-657434, -1.25, -0.25, 0, 0.25, 45427.4375, 2958465.999988426};
    auto loader = database_->LoadRows(u"Datas"_s);
    for (const double serial : serials) {
        loader.append(Row{runtime::Date{serial}});
    }
    loader.finish();
    auto set = database_->OpenRecordset(u"Datas"_s);
    for (const double serial : serials) {
        QCOMPARE(std::bit_cast<quint64>(std::get<runtime::Date>(set.value(0)).serial), std::bit_cast<quint64>(serial));
        set.MoveNext();
    }
}

void tst_rowloader::everyTypeIsTaken()
{
    database_->Execute(
        u"CREATE TABLE Tudo (A BOOLEAN, B BYTE, C SHORT, D LONG, E CURRENCY, F SINGLE, G DOUBLE, H DATE, "
        "I TEXT(3), J MEMO)"_s);
    auto loader = database_->LoadRows(u"Tudo"_s);
    loader.append(Row{true, qint16{255}, qint16{-32768}, qint32{-2147483647}, 1.5, 2.5F, 3.5, runtime::Date{1},
                      u"abc"_s, QString(5000, u'x')});
    loader.append(Row{false, Null(), Null(), Null(), Null(), Null(), Null(), Null(), Null(), Null()});
    loader.finish();
    const QString nulls = QStringList(9, u"<Null>"_s).join(u" | "_s);
    QCOMPARE(golden::rows(*database_, u"SELECT * FROM Tudo"_s),
             (QStringList{u"True | 255 | -32768 | -2147483647 | 1.5 | 2.5 | 3.5 | 31/12/1899 | abc | "_s +
                              QString(5000, u'x'),
                          u"False | "_s + nulls}));
}

void tst_rowloader::theCounterGoesOnBehindTheHighest()
{
    auto loader = load();
    loader.append(Row{qint32{40}, u"A"_s, Null()});
    loader.append(Row{qint32{3}, u"B"_s, Null()});
    loader.finish();
    database_->Execute(u"INSERT INTO Contas (Nome) VALUES ('C')"_s);
    database_->Execute(u"DELETE * FROM Contas WHERE Codigo = 41"_s);
    reopen();
    database_->Execute(u"INSERT INTO Contas (Nome) VALUES ('D')"_s);
    QCOMPARE(golden::rows(*database_, u"SELECT Codigo FROM Contas"_s), (QStringList{u"40"_s, u"3"_s, u"42"_s}));
}

void tst_rowloader::theCounterGoesOnInTheSameUnit()
{
    const dao::Unit unit;
    auto set = database_->OpenRecordset(u"Contas"_s);
    set.AddNew();
    set[u"Nome"] = u"A"_s;
    set.Update();
    auto loader = load();
    loader.append(Row{qint32{9}, u"B"_s, Null()});
    loader.finish();
    set.AddNew();
    QCOMPARE(set[u"Codigo"].Value(), Value(qint32{10}));
}

void tst_rowloader::negativeAndNullCodesAreKept()
{
    auto loader = load();
    loader.append(Row{qint32{-5}, Null(), Null()});
    loader.append(Row{Null(), Null(), Null()});
    loader.finish();
    database_->Execute(u"INSERT INTO Contas (Nome) VALUES ('A')"_s);
    QCOMPARE(golden::rows(*database_, u"SELECT Codigo FROM Contas"_s), (QStringList{u"-5"_s, u"<Null>"_s, u"1"_s}));
}

void tst_rowloader::rowsStandBehindThoseOfTheTable()
{
    database_->Execute(u"INSERT INTO Contas (Nome) VALUES ('Z')"_s);
    for (const QString &name : {u"B"_s, u"A"_s}) {
        auto loader = load();
        loader.append(Row{qint32{8}, name, Null()});
        loader.finish();
    }
    QCOMPARE(golden::rows(*database_, u"SELECT Nome FROM Contas"_s), (QStringList{u"Z"_s, u"B"_s, u"A"_s}));
    QCOMPARE(golden::rows(*database_, u"SELECT Nome FROM Contas ORDER BY Nome"_s),
             (QStringList{u"A"_s, u"B"_s, u"Z"_s}));
    QCOMPARE(database_->CheckIntegrity(), u"ok"_s);
}

void tst_rowloader::anOpenSetKeepsItsRows()
{
    database_->Execute(u"INSERT INTO Contas (Nome) VALUES ('Z')"_s);
    auto table = database_->OpenRecordset(u"Contas"_s);
    auto ordered = database_->OpenRecordset(u"SELECT * FROM Contas ORDER BY Nome"_s);
    auto loader = load();
    loader.append(Row{qint32{8}, u"B"_s, Null()});
    loader.finish();
    for (auto *const set : {&table, &ordered}) {
        QCOMPARE(set->value(u"Nome"), Value(u"Z"_s));
        set->MoveNext();
        QVERIFY(set->Eof());
    }
}

void tst_rowloader::aMissingTableIsRefused()
{
    QCOMPARE(errorOf([&] { database_->LoadRows(u"Nenhuma"_s); }), 3078);
    database_->Close();
    QCOMPARE(errorOf([&] { load(); }), 91);
}

void tst_rowloader::aValueOfAnotherWidthIsRefused_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("which");
    QTest::addColumn<int>("error");
    QTest::newRow("Null in a Boolean") << u"BOOLEAN"_s << 0 << 3421;
    QTest::newRow("nothing in a Long") << u"LONG"_s << 1 << 3421;
    QTest::newRow("an Integer in a Long") << u"LONG"_s << 2 << 3421;
    QTest::newRow("a Double in a Single") << u"SINGLE"_s << 3 << 3421;
    QTest::newRow("no number in a Single") << u"SINGLE"_s << 4 << 3421;
    QTest::newRow("no number in a Double") << u"DOUBLE"_s << 5 << 3421;
    QTest::newRow("no day in a Date") << u"DATE"_s << 6 << 3421;
    QTest::newRow("a text in a Date") << u"DATE"_s << 7 << 3421;
    QTest::newRow("a number in a Text") << u"TEXT(2)"_s << 2 << 3421;
    QTest::newRow("a longer text") << u"TEXT(2)"_s << 7 << 3163;
}

void tst_rowloader::aValueOfAnotherWidthIsRefused()
{
    QFETCH(const QString, type);
    QFETCH(const int, which);
    QFETCH(const int, error);
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    const std::vector<Value> values{
        Null(), runtime::Empty(),    qint16{1}, 1.0, std::numeric_limits<float>::quiet_NaN(),
        none,   runtime::Date{none}, u"abc"_s};
    database_->Execute(u"CREATE TABLE Um (A %1)"_s.arg(type));
    auto loader = database_->LoadRows(u"Um"_s);
    QCOMPARE(errorOf([&] { loader.append(Row{values[static_cast<size_t>(which)]}); }), error);
    loader.finish();
    QCOMPARE(golden::rows(*database_, u"SELECT * FROM Um"_s), QStringList());
}

void tst_rowloader::aRowOfAnotherLengthIsRefused()
{
    auto loader = load();
    QCOMPARE(errorOf([&] { loader.append(Row{qint32{1}, u"A"_s}); }), 3421);
    loader.finish();
    QCOMPARE(errorOf([&] { loader.append(Row{qint32{1}, u"A"_s, Null()}); }), 3421);
    QCOMPARE(rows(), QStringList());
}

void tst_rowloader::whatIsNotFinishedIsNotThere_data()
{
    QTest::addColumn<bool>("unit");
    QTest::addColumn<bool>("empty");
    QTest::newRow("alone, into an empty table") << false << true;
    QTest::newRow("alone, behind a row") << false << false;
    QTest::newRow("in a unit, into an empty table") << true << true;
    QTest::newRow("in a unit, behind a row") << true << false;
}

void tst_rowloader::whatIsNotFinishedIsNotThere()
{
    QFETCH(const bool, unit);
    QFETCH(const bool, empty);
    if (!empty) {
        database_->Execute(u"INSERT INTO Contas (Nome) VALUES ('Z')"_s);
    }
    const QStringList before = rows();
    const auto *const schema = "SELECT sql FROM sqlite_schema ORDER BY 1";
    const QStringList definitions = bare(database_->path(), schema);
    const auto around = unit ? std::make_unique<dao::Unit>() : nullptr;
    {
        auto loader = load();
        loader.append(Row{qint32{1}, u"A"_s, Null()});
    }
    QCOMPARE(rows(), before);
    database_->Execute(u"INSERT INTO Contas (Nome) VALUES ('Y')"_s);
    QCOMPARE(golden::rows(*database_, u"SELECT Nome FROM Contas ORDER BY Nome"_s).value(0), u"Y"_s);
    database_->Close();
    QCOMPARE(bare(database_->path(), schema), definitions);
}

void tst_rowloader::anErrorOnItsWayTakesTheRowsBack()
{
    const int error = errorOf([&] {
        const dao::Unit unit;
        database_->Execute(u"INSERT INTO Contas (Nome) VALUES ('Z')"_s);
        auto loader = load();
        loader.append(Row{qint32{5}, u"A"_s, Null()});
        runtime::raise(6);
    });
    QCOMPARE(error, 6);
    QCOMPARE(rows(), QStringList{u"1 | Z | <Null>"_s});
    reopen();
    QCOMPARE(rows(), QStringList{u"1 | Z | <Null>"_s});
}

void tst_rowloader::theIndexesStandAfterwards_data()
{
    QTest::addColumn<bool>("empty");
    QTest::newRow("into an empty table") << true;
    QTest::newRow("behind a row") << false;
}

void tst_rowloader::theIndexesStandAfterwards()
{
    QFETCH(const bool, empty);
    database_->Execute(u"CREATE INDEX Meu ON Contas (CodCliente)"_s);
    if (!empty) {
        database_->Execute(u"INSERT INTO Contas (Nome) VALUES ('Z')"_s);
    }
    const auto *const indexes = "SELECT sql FROM sqlite_schema WHERE type = 'index' AND sql IS NOT NULL ORDER BY rowid";
    const QStringList before = bare(database_->path(), indexes);
    QCOMPARE(before.size(), 4);
    auto loader = load();
    loader.append(Row{qint32{1}, u"A"_s, Null()});
    loader.finish();
    QCOMPARE(bare(database_->path(), indexes), before);
}

void tst_rowloader::aDraftHasNoNameUntilItIsPutInPlace()
{
    const QString path = folder_->filePath(u"ção.mdb"_s);
    dao::DatabaseDraft draft(path);
    draft.database()->Execute(u"CREATE TABLE Contas (Codigo COUNTER, Nome TEXT(20))"_s);
    draft.database()->Execute(u"INSERT INTO Contas (Nome) VALUES ('A')"_s);
    QVERIFY(!QFileInfo::exists(path));
    QCOMPARE(filesBeside(*folder_), (QStringList{u"dados.mdb"_s, QFileInfo(draft.name()).fileName()}));
    draft.examine();
    QVERIFY(!QFileInfo::exists(path));
    draft.putInPlace();
    QCOMPARE(filesBeside(*folder_), (QStringList{u"dados.mdb"_s, u"ção.mdb"_s}));
    const auto made = dao::DBEngine::OpenDatabase(path);
    QCOMPARE(golden::rows(*made, u"SELECT * FROM Contas"_s), QStringList{u"1 | A"_s});
    QCOMPARE(QFileInfo(path).permissions() & (QFile::ReadOther | QFile::WriteOther), QFile::Permissions());
}

void tst_rowloader::aDraftGoesWithItsObject()
{
    const QString path = folder_->filePath(u"novo.mdb"_s);
    for (const bool examined : {false, true}) {
        dao::DatabaseDraft draft(path);
        draft.database()->Execute(u"CREATE TABLE Contas (Codigo COUNTER)"_s);
        if (examined) {
            draft.examine();
        }
    }
    QCOMPARE(filesBeside(*folder_), QStringList{u"dados.mdb"_s});
}

void tst_rowloader::aDraftReplacesAFileThatKeepsItsRights()
{
    const QString path = database_->path();
    database_->Close();
    QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther));
    const auto rights = QFile::permissions(path);
    const QByteArray before = support::contentsOf(path);
    dao::DatabaseDraft draft(path);
    draft.database()->Execute(u"CREATE TABLE Outra (Codigo COUNTER)"_s);
    draft.examine();
    QCOMPARE(support::contentsOf(path), before);
    draft.putInPlace();
    QCOMPARE(QFile::permissions(path), rights);
    QCOMPARE(dao::DBEngine::OpenDatabase(path)->TableDefs().front().name(), u"Outra"_s);
}

void tst_rowloader::aDamagedDraftIsNotTaken()
{
    dao::DatabaseDraft draft(folder_->filePath(u"novo.mdb"_s));
    draft.database()->Execute(u"CREATE TABLE Contas (Codigo COUNTER, Nome TEXT(20))"_s);
    {
        const dao::Unit unit;
        for (int i = 0; i < 1000; ++i) {
            draft.database()->Execute(u"INSERT INTO Contas (Nome) VALUES ('ABCDEFGHIJ')"_s);
        }
    }
    QFile file(draft.name());
    QVERIFY(file.open(QIODevice::ReadWrite) && file.seek(file.size() / 2));
    QCOMPARE(file.write(QByteArray(4096, 'X')), 4096);
    file.close();
    QCOMPARE(errorOf([&] { draft.examine(); }), 3343);
}

void tst_rowloader::aDraftNeedsAFolder()
{
    QCOMPARE(errorOf([&] { dao::DatabaseDraft(folder_->filePath(u"nenhuma/novo.mdb"_s)); }), 3051);
    QCOMPARE(errorOf([&] { dao::DatabaseDraft(folder_->path()); }), 3051);
    QCOMPARE(filesBeside(*folder_), QStringList{u"dados.mdb"_s});
}

} // namespace

QTEST_GUILESS_MAIN(tst_rowloader)

#include "tst_rowloader.moc"
