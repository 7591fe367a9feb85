// Opening, creating, tables and fields, batches.
#include "tests/dao/golden.h"

#include "platform/dao/unit.h"
#include "platform/runtime/runtime.h"

#include <QDir>
#include <QElapsedTimer>
#include <QTest>

using namespace Qt::StringLiterals;
using golden::errorOf;
using runtime::Value;

namespace
{

dao::TableDef sampleTable()
{
    dao::TableDef table(u"Amostra"_s);
    table.append({u"Codigo"_s, dao::FieldType::Long, 0, dao::counterAttributes});
    table.append({u"Nome"_s, dao::FieldType::Text, 200, 0});
    table.append({u"Pago"_s, dao::FieldType::Boolean, 0, 0});
    table.append({u"Lista"_s, dao::FieldType::Integer, 0, 0});
    table.append({u"CodOs"_s, dao::FieldType::Long, 0, 0});
    table.append({u"Valor"_s, dao::FieldType::Single, 0, 0});
    table.append({u"Total"_s, dao::FieldType::Double, 0, 0});
    table.append({u"Data"_s, dao::FieldType::Date, 0, 0});
    return table;
}

class tst_database : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void aNewFileHoldsNoTables();
    void creatingTwiceIsRefused();
    void creatingInAMissingFolderIsRefused();
    void anAbsentFileIsToldByItsNumber();
    void tablesAndFieldsReadBackAsDefined();
    void tablesStandInTheirOrderOfCreation();
    void aTableThatExistsIsRefused();
    void equalRowsKeptInOrderComeAsTheyArrived();
    void aFieldOfAKeptOrderMayGo();
    void whatIsMissingIsNotKeptInOrder();
    void fieldsAreAddedAtTheEnd();
    void typeWordsOfAlterMeanTheirTypes_data();
    void typeWordsOfAlterMeanTheirTypes();
    void aFieldIsDropped();
    void aCounterIsDroppedAndAddedAgain();
    void theDataSurvivesAReopening();
    void noSideFilesStay();
    void aPlainCopyIsTheWholeDatabase();
    void executeTellsTheRowsItTouched();
    void aSelectIsNotExecutedAndAnActionNotOpened();
    void aFailingStatementWritesNothing();
    void aBatchKeepsWhatWasWrittenBeforeAnError();
    void batchesNest();
    void aTableCanBeDroppedWhileASetIsOpen();
    void aTableMadeElsewhereIsFound();
    void theLastRowOfALargeTableIsOneLookUp();
    void aJoinWithARestrictionStopsEarly();

private:
    void fill(int count);

    std::unique_ptr<QTemporaryDir> folder_;
    std::shared_ptr<dao::Database> database_;
};

void tst_database::init()
{
    folder_ = std::make_unique<QTemporaryDir>();
    database_ = golden::createDatabase(*folder_);
}

void tst_database::cleanup()
{
    database_.reset();
    folder_.reset();
}

void tst_database::fill(int count)
{
    const dao::Unit batch;
    auto set = database_->OpenRecordset(u"Amostra"_s);
    for (int i = 0; i < count; ++i) {
        set.AddNew();
        set[u"Nome"] = QString(u"NOME "_s + QString::number(i));
        set[u"CodOs"] = qint32{i % 100};
        set.Update();
    }
}

void tst_database::aNewFileHoldsNoTables()
{
    QVERIFY(database_->TableDefs().empty());
    QCOMPARE(QDir(folder_->path()).entryList(QDir::Files), QStringList{u"dados.mdb"_s});
}

void tst_database::creatingTwiceIsRefused()
{
    database_->AppendTableDef(sampleTable());
    QCOMPARE(errorOf([&] { golden::createDatabase(*folder_); }), 3204);
    QCOMPARE(database_->TableDefs().size(), size_t{1});
}

void tst_database::creatingInAMissingFolderIsRefused()
{
    QCOMPARE(errorOf([&] { golden::createDatabase(*folder_, u"nada/dados.mdb"_s); }), 3024);
}

void tst_database::anAbsentFileIsToldByItsNumber()
{
    QCOMPARE(errorOf([&] { dao::DBEngine::OpenDatabase(folder_->filePath(u"outro.mdb"_s)); }), 3024);
    QCOMPARE(errorOf([&] { dao::DBEngine::OpenDatabase(folder_->filePath(u"nada/outro.mdb"_s)); }), 3024);
    QVERIFY(!QFile::exists(folder_->filePath(u"outro.mdb"_s)));
}

void tst_database::tablesAndFieldsReadBackAsDefined()
{
    database_->AppendTableDef(sampleTable());
    const auto tables = database_->TableDefs();
    QCOMPARE(tables.size(), size_t{1});
    const auto defined = sampleTable();
    QCOMPARE(tables[0].fields().size(), defined.fields().size());
    for (size_t i = 0; i < defined.fields().size(); ++i) {
        const dao::Field &expected = defined.fields()[i];
        const dao::Field &found = tables[0].fields()[i];
        QCOMPARE(found.name, expected.name);
        QCOMPARE(static_cast<int>(found.type), static_cast<int>(expected.type));
        QCOMPARE(found.size, expected.size);
        QCOMPARE(found.attributes, expected.attributes);
    }
}

void tst_database::tablesStandInTheirOrderOfCreation()
{
    for (const QString &name : {u"C"_s, u"A"_s, u"B"_s}) {
        database_->Execute(u"CREATE TABLE %1 (Codigo COUNTER)"_s.arg(name));
    }
    database_->Execute(u"DROP TABLE A"_s);
    database_->Execute(u"CREATE TABLE A (Codigo COUNTER)"_s);
    QStringList names;
    for (const auto &table : database_->TableDefs()) {
        names.append(table.name());
    }
    QCOMPARE(names, (QStringList{u"C"_s, u"B"_s, u"A"_s}));
}

void tst_database::aTableThatExistsIsRefused()
{
    database_->AppendTableDef(sampleTable());
    QCOMPARE(errorOf([&] { database_->AppendTableDef(sampleTable()); }), 3010);
}

/// The counter of a row need not tell when it came.
void tst_database::equalRowsKeptInOrderComeAsTheyArrived()
{
    database_->Execute(u"CREATE TABLE Nomes (Codigo COUNTER, Nome TEXT(20), Data DATE)"_s);
    for (const auto *values : {u"9, 'ana'", u"3, 'BIA'", u"7, 'ANA'", u"1, 'Ana '", u"5, 'Ána'"}) {
        database_->Execute(u"INSERT INTO Nomes (Codigo, Nome) VALUES (%1)"_s.arg(QStringView(values)));
    }
    const auto names = u"SELECT Codigo FROM Nomes ORDER BY Nome"_s;
    const QStringList expected{u"9"_s, u"7"_s, u"1"_s, u"5"_s, u"3"_s};
    QCOMPARE(golden::rows(*database_, names), expected);
    QVERIFY(database_->KeepInOrder(u"nomes"_s, {u"Nome"_s}));
    QCOMPARE(golden::rows(*database_, names), expected);
    QVERIFY(database_->KeepInOrder(u"Nomes"_s, {u"Nome"_s}));
    QCOMPARE(golden::rows(*database_, u"SELECT Codigo FROM Nomes ORDER BY Nome DESC"_s),
             (QStringList{u"3"_s, u"5"_s, u"9"_s, u"7"_s, u"1"_s}));
    QCOMPARE(database_->CheckIntegrity(), u"ok"_s);
}

void tst_database::aFieldOfAKeptOrderMayGo()
{
    database_->Execute(u"CREATE TABLE Nomes (Codigo COUNTER, Nome TEXT(20), Data DATE)"_s);
    QVERIFY(database_->KeepInOrder(u"Nomes"_s, {u"Data"_s, u"Codigo"_s}));
    QVERIFY(database_->KeepInOrder(u"Nomes"_s, {u"Nome"_s}));
    database_->Execute(u"ALTER TABLE Nomes DROP COLUMN Data"_s);
    database_->Execute(u"INSERT INTO Nomes (Nome) VALUES ('ANA')"_s);
    QCOMPARE(golden::rows(*database_, u"SELECT * FROM Nomes ORDER BY Nome"_s), QStringList{u"1 | ANA"_s});
    database_->Execute(u"ALTER TABLE Nomes DROP COLUMN Nome"_s);
    QVERIFY(!database_->KeepInOrder(u"Nomes"_s, {u"Nome"_s}));
}

void tst_database::whatIsMissingIsNotKeptInOrder()
{
    QVERIFY(!database_->KeepInOrder(u"Nomes"_s, {u"Nome"_s}));
    database_->Execute(u"CREATE TABLE Nomes (Codigo COUNTER)"_s);
    QVERIFY(!database_->KeepInOrder(u"Nomes"_s, {u"Codigo"_s, u"Nome"_s}));
}

void tst_database::fieldsAreAddedAtTheEnd()
{
    database_->AppendTableDef(sampleTable());
    fill(1);
    database_->Execute(u"alter table AMOSTRA Add Chassi varchar(50)"_s);
    QCOMPARE(errorOf([&] { database_->Execute(u"alter table Amostra Add chassi varchar(50)"_s); }), 3380);
    const auto table = database_->TableDefs()[0];
    QCOMPARE(table.fields().back().name, u"Chassi"_s);
    QCOMPARE(table.fields().back().size, 50);
    auto set = database_->OpenRecordset(u"SELECT * FROM Amostra"_s);
    QCOMPARE(set.value(8), Value(runtime::Null{}));
    set.Edit();
    set[u"Chassi"] = u"9BW"_s;
    set.Update();
    QCOMPARE(set.value(8), Value(u"9BW"_s));
}

void tst_database::typeWordsOfAlterMeanTheirTypes_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("size");
    QTest::newRow("varchar") << u"varchar(20)"_s << 10 << 20;
    QTest::newRow("text") << u"TEXT(5)"_s << 10 << 5;
    QTest::newRow("long") << u"long"_s << 4 << 0;
    QTest::newRow("integer") << u"Integer"_s << 4 << 0;
    QTest::newRow("int") << u"int"_s << 4 << 0;
    QTest::newRow("short") << u"short"_s << 3 << 0;
    QTest::newRow("single") << u"single"_s << 6 << 0;
    QTest::newRow("double") << u"double"_s << 7 << 0;
    QTest::newRow("date") << u"datetime"_s << 8 << 0;
    QTest::newRow("boolean") << u"bit"_s << 1 << 0;
}

void tst_database::typeWordsOfAlterMeanTheirTypes()
{
    QFETCH(const QString, word);
    QFETCH(const int, type);
    QFETCH(const int, size);
    database_->AppendTableDef(sampleTable());
    database_->Execute(u"ALTER TABLE Amostra ADD COLUMN Novo "_s + word);
    const dao::Field field = database_->TableDefs()[0].fields().back();
    QCOMPARE(static_cast<int>(field.type), type);
    QCOMPARE(field.size, size);
}

void tst_database::aFieldIsDropped()
{
    database_->AppendTableDef(sampleTable());
    database_->Execute(u"ALTER TABLE Amostra DROP COLUMN CodOs"_s);
    QCOMPARE(errorOf([&] { database_->OpenRecordset(u"SELECT CodOs FROM Amostra"_s); }), 3061);
    QCOMPARE(errorOf([&] { database_->Execute(u"ALTER TABLE Amostra DROP COLUMN CodOs"_s); }), 3381);
}

/// The counter stands in the indexes of the columns that are searched.
void tst_database::aCounterIsDroppedAndAddedAgain()
{
    database_->Execute(u"CREATE TABLE Razao (Codigo COUNTER, CodPeca LONG, Saldo SINGLE)"_s);
    for (const auto *values : {u"7, 1", u"8, 2", u"7, 3"}) {
        database_->Execute(u"INSERT INTO Razao (CodPeca, Saldo) VALUES ("_s + QString::fromUtf16(values) + u')');
    }
    const QString newest = u"SELECT Saldo FROM Razao WHERE CodPeca = 7 ORDER BY Codigo DESC"_s;
    QCOMPARE(golden::rows(*database_, newest), (QStringList{u"3"_s, u"1"_s}));

    database_->Execute(u"ALTER TABLE Razao DROP COLUMN Codigo"_s);
    QCOMPARE(golden::rows(*database_, u"SELECT Saldo FROM Razao WHERE CodPeca = 7"_s), (QStringList{u"1"_s, u"3"_s}));
    database_->Execute(u"ALTER TABLE Razao ADD COLUMN Codigo COUNTER"_s);
    QCOMPARE(golden::rows(*database_, newest), (QStringList{u"3"_s, u"1"_s}));
    QCOMPARE(database_->CheckIntegrity(), u"ok"_s);
}

void tst_database::theDataSurvivesAReopening()
{
    database_->AppendTableDef(sampleTable());
    auto set = database_->OpenRecordset(u"Amostra"_s);
    set.AddNew();
    set[u"Nome"] = u"ÇÃO ' \" €"_s;
    set[u"Pago"] = true;
    set[u"Lista"] = qint16{-32768};
    set[u"CodOs"] = qint32{2147483647};
    set[u"Valor"] = 0.1F;
    set[u"Total"] = 0.1;
    set[u"Data"] = runtime::Date{-1.75};
    set.Update();
    database_.reset();
    database_ = dao::DBEngine::OpenDatabase(folder_->filePath(u"dados.mdb"_s));
    auto read = database_->OpenRecordset(u"Amostra"_s);
    QCOMPARE(read[u"Nome"].Value(), Value(u"ÇÃO ' \" €"_s));
    QCOMPARE(read[u"Pago"].Value(), Value(true));
    QCOMPARE(read[u"Lista"].Value(), Value(qint16{-32768}));
    QCOMPARE(read[u"CodOs"].Value(), Value(qint32{2147483647}));
    QCOMPARE(read[u"Valor"].Value(), Value(0.1F));
    QCOMPARE(read[u"Total"].Value(), Value(0.1));
    QCOMPARE(read[u"Data"].Value(), Value(runtime::Date{-1.75}));
}

void tst_database::noSideFilesStay()
{
    database_->AppendTableDef(sampleTable());
    auto set = database_->OpenRecordset(u"Amostra"_s);
    fill(10);
    QCOMPARE(QDir(folder_->path()).entryList(QDir::Files), QStringList{u"dados.mdb"_s});
}

void tst_database::aPlainCopyIsTheWholeDatabase()
{
    database_->AppendTableDef(sampleTable());
    fill(10);
    auto standing = database_->OpenRecordset(u"SELECT * FROM Amostra ORDER BY Nome"_s);
    standing.MoveNext();
    QVERIFY(QFile::copy(database_->path(), folder_->filePath(u"copia.mdb"_s)));
    auto copy = dao::DBEngine::OpenDatabase(folder_->filePath(u"copia.mdb"_s), true);
    QCOMPARE(golden::rows(*copy, u"SELECT count(*) FROM Amostra"_s), QStringList{u"10"_s});
}

void tst_database::executeTellsTheRowsItTouched()
{
    database_->AppendTableDef(sampleTable());
    fill(10);
    QCOMPARE(database_->Execute(u"UPDATE Amostra SET Valor = 1 WHERE CodOs > 6"_s), 3);
    QCOMPARE(database_->Execute(u"DELETE * FROM Amostra WHERE Valor = 1"_s), 3);
    QCOMPARE(database_->Execute(u"DELETE FROM Amostra WHERE Codigo = 0"_s), 0);
    QCOMPARE(database_->Execute(u"INSERT INTO Amostra (Nome) SELECT Nome FROM Amostra"_s), 7);
}

void tst_database::aSelectIsNotExecutedAndAnActionNotOpened()
{
    database_->AppendTableDef(sampleTable());
    QCOMPARE(errorOf([&] { database_->Execute(u"SELECT * FROM Amostra"_s); }), 3065);
    QCOMPARE(errorOf([&] { database_->OpenRecordset(u"DELETE * FROM Amostra"_s); }), 3219);
}

void tst_database::aFailingStatementWritesNothing()
{
    database_->AppendTableDef(sampleTable());
    fill(5);
    QCOMPARE(errorOf([&] { database_->Execute(u"UPDATE Amostra SET Nome = Left(Nome, 5 - Codigo)"_s); }), 3315);
    QCOMPARE(golden::rows(*database_, u"SELECT Nome FROM Amostra WHERE Codigo = 1"_s), QStringList{u"NOME 0"_s});
    QCOMPARE(errorOf([&] {
                 const dao::Unit batch;
                 database_->Execute(u"UPDATE Amostra SET Valor = 7 WHERE Codigo = 2"_s);
                 database_->Execute(u"UPDATE Amostra SET Nome = Left(Nome, 5 - Codigo)"_s);
             }),
             3315);
    QCOMPARE(golden::rows(*database_, u"SELECT Nome, Valor FROM Amostra WHERE Codigo < 3"_s),
             (QStringList{u"NOME 0 | <Null>"_s, u"NOME 1 | 7"_s}));
}

void tst_database::aBatchKeepsWhatWasWrittenBeforeAnError()
{
    database_->AppendTableDef(sampleTable());
    fill(5);
    QCOMPARE(errorOf([&] {
                 const dao::Unit batch;
                 auto set = database_->OpenRecordset(u"SELECT * FROM Amostra ORDER BY Codigo"_s);
                 for (;; set.MoveNext()) {
                     set.Edit();
                     set[u"Valor"] = 1.5F;
                     set.Update();
                 }
             }),
             3021);
    QCOMPARE(golden::rows(*database_, u"SELECT count(*) FROM Amostra WHERE Valor = 1.5"_s), QStringList{u"5"_s});
}

void tst_database::batchesNest()
{
    database_->AppendTableDef(sampleTable());
    {
        const dao::Unit outer;
        {
            const dao::Unit inner;
            fill(2);
        }
        fill(3);
    }
    auto other = dao::DBEngine::OpenDatabase(database_->path(), true);
    QCOMPARE(golden::rows(*other, u"SELECT count(*) FROM Amostra"_s), QStringList{u"5"_s});
}

void tst_database::aTableCanBeDroppedWhileASetIsOpen()
{
    database_->AppendTableDef(sampleTable());
    fill(5);
    auto set = database_->OpenRecordset(u"SELECT * FROM Amostra ORDER BY Nome"_s);
    auto streaming = database_->OpenRecordset(u"Amostra"_s);
    database_->Execute(u"DROP TABLE Amostra"_s);
    QVERIFY(errorOf([&] { set.value(0); }) != 0);
    QVERIFY(errorOf([&] { streaming.value(0); }) != 0);
}

void tst_database::aTableMadeElsewhereIsFound()
{
    auto other = dao::DBEngine::OpenDatabase(database_->path());
    QCOMPARE(errorOf([&] { database_->OpenRecordset(u"Amostra"_s); }), 3078);
    other->AppendTableDef(sampleTable());
    QVERIFY(database_->OpenRecordset(u"Amostra"_s).Eof());
}

/// The least time of a few tries, so that a busy machine does not count.
template<class Action>
qint64 leastTime(Action &&action)
{
    qint64 least = std::numeric_limits<qint64>::max();
    for (int i = 0; i < 20; ++i) {
        QElapsedTimer timer;
        timer.start();
        action();
        least = std::min(least, timer.nsecsElapsed());
    }
    return least;
}

void tst_database::theLastRowOfALargeTableIsOneLookUp()
{
    database_->AppendTableDef(sampleTable());
    fill(50'000);
    for (const QString &source : {u"Amostra"_s, u"SELECT * FROM Amostra ORDER BY Codigo"_s,
                                  u"SELECT * FROM Amostra WHERE CodOs = 5 ORDER BY Codigo"_s}) {
        const qint64 last = leastTime([&] {
            auto set = database_->OpenRecordset(source);
            set.MoveLast();
            set.value(1);
        });
        const qint64 all = leastTime([&] {
            auto set = database_->OpenRecordset(u"SELECT * FROM Amostra"_s);
            for (int i = 0; i < 5000; ++i) {
                set.MoveNext();
            }
        });
        QVERIFY2(last < all, qPrintable(source));
    }
}

void tst_database::aJoinWithARestrictionStopsEarly()
{
    database_->AppendTableDef(sampleTable());
    fill(50'000);
    database_->Execute(u"CREATE TABLE Linhas (Codigo COUNTER, CodOs LONG)"_s);
    for (int i = 1; i <= 3; ++i) {
        database_->Execute(u"INSERT INTO Linhas (CodOs) VALUES (%1)"_s.arg(i * 1000));
    }
    const qint64 join = leastTime([&] {
        auto set = database_->OpenRecordset(
            u"SELECT Linhas.*, Amostra.Nome FROM Linhas, Amostra WHERE Amostra.Codigo = Linhas.CodOs AND Linhas.Codigo = 2"_s);
        QCOMPARE(set[u"Nome"].Value(), Value(u"NOME 1999"_s));
    });
    const qint64 scan = leastTime([&] { golden::rows(*database_, u"SELECT Sum(CodOs) FROM Amostra"_s); });
    QVERIFY(join < scan);
}

} // namespace

QTEST_GUILESS_MAIN(tst_database)

#include "tst_database.moc"
