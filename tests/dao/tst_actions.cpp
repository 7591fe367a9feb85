// What statements that change rows or tables mean for the sets that stand open, for counters and for the file.
#include "tests/dao/golden.h"

#include <QTest>

using namespace Qt::StringLiterals;
using dao::FieldType;
using golden::errorOf;
using runtime::Value;

namespace
{

class tst_actions : public QObject
{
    Q_OBJECT

private slots:
    void init() { golden_ = std::make_unique<golden::Golden>(); }
    void cleanup() { golden_.reset(); }

    void anUpdateOfTwoTablesReachesTheSetsOfBoth();
    void aSetIsWalkedThroughAnIndexThatComesAndGoes();
    void aSetIsWalkedThroughATableThatIsMade();
    void aTableThatCouldNotBeFilledIsNotThere();
    void aTableThatWasMadeStandsInTheFile();
    void anIndexStandsInTheFile();
    void theNewTypesAreReadInTheirWidths();
    void theNewTypesAreWrittenThroughASet();
    void aMemoTakesAnyLength();
    void aSetMayNameTheCounter();
    void aSetOfTheFirstRowsIsWritable();
    void aUnionIsReadOnly();
    void aDefinitionIsReadWithItsOwnLengths();

private:
    dao::Database &database() { return golden_->database(); }
    QStringList rows(const QString &statement) { return golden::rows(database(), statement); }
    QStringList walk(const QString &first, const QString &second);

    std::unique_ptr<golden::Golden> golden_;
};

/// The codes of Clientes from one set, in the middle of which the two statements run.
QStringList tst_actions::walk(const QString &first, const QString &second)
{
    QStringList codes;
    auto set = database().OpenRecordset(u"SELECT * FROM Clientes ORDER BY Nome"_s);
    for (; !set.Eof(); set.MoveNext()) {
        if (codes.size() == 1) {
            database().Execute(first);
        }
        if (codes.size() == 3) {
            database().Execute(second);
        }
        codes.append(golden::shown(set.value(u"Codigo")));
    }
    return codes;
}

void tst_actions::anUpdateOfTwoTablesReachesTheSetsOfBoth()
{
    auto notes = database().OpenRecordset(u"SELECT * FROM Fiados WHERE Valor < 1000"_s);
    auto customers = database().OpenRecordset(u"SELECT * FROM Clientes ORDER BY Nome"_s);
    database().Execute(u"UPDATE Fiados INNER JOIN Clientes ON Fiados.CodCliente = Clientes.Codigo "
                       u"SET Fiados.Valor = 2000, Clientes.Nome = 'Z'"_s);
    int seen = 0;
    for (; !notes.Eof(); notes.MoveNext()) {
        QCOMPARE(notes.value(u"Valor"), Value(2000.0F));
        ++seen;
    }
    QCOMPARE(seen, 3);
    QStringList codes;
    for (; !customers.Eof(); customers.MoveNext()) {
        codes.append(golden::shown(customers.value(u"Codigo")));
    }
    QCOMPARE(codes, (QStringList{u"5"_s, u"2"_s, u"1"_s, u"3"_s, u"4"_s}));
    QCOMPARE(rows(u"SELECT Codigo FROM Clientes WHERE Nome = 'Z'"_s), (QStringList{u"1"_s, u"2"_s, u"5"_s}));
}

void tst_actions::aSetIsWalkedThroughAnIndexThatComesAndGoes()
{
    QCOMPARE(walk(u"CREATE INDEX Por ON Clientes (Nome DESC)"_s, u"DROP INDEX Por ON Clientes"_s),
             (QStringList{u"5"_s, u"2"_s, u"1"_s, u"3"_s, u"4"_s}));
}

void tst_actions::aSetIsWalkedThroughATableThatIsMade()
{
    QCOMPARE(walk(u"SELECT * INTO Copia FROM Clientes"_s, u"DROP TABLE Copia"_s),
             (QStringList{u"5"_s, u"2"_s, u"1"_s, u"3"_s, u"4"_s}));
}

void tst_actions::aTableThatCouldNotBeFilledIsNotThere()
{
    const QString fails = u"SELECT Codigo, IIf(Codigo = 5, '', 'A') AS Letra INTO Nova FROM Caixa"_s;
    QCOMPARE(errorOf([&] { database().Execute(fails); }), 3315);
    QCOMPARE(errorOf([&] { database().OpenRecordset(u"Nova"_s); }), 3078);
    database().Execute(u"CREATE TABLE Nova (Codigo COUNTER, Letra TEXT(1))"_s);
    database().Execute(u"INSERT INTO Nova (Letra) VALUES ('A')"_s);
    QCOMPARE(rows(u"Nova"_s), QStringList{u"1 | A"_s});
    QCOMPARE(database().CheckIntegrity(), u"ok"_s);
}

void tst_actions::aTableThatWasMadeStandsInTheFile()
{
    database().Execute(u"SELECT Codigo, Descricao, Data INTO Copia FROM Caixa WHERE Codigo < 3"_s);
    auto other = dao::DBEngine::OpenDatabase(golden_->path());
    QCOMPARE(golden::rows(*other, u"Copia"_s),
             (QStringList{u"1 | SALDO INICIAL | 01/05/2024"_s, u"2 | O.S. 1 | 02/05/2024"_s}));
    auto set = other->OpenRecordset(u"Copia"_s);
    set.AddNew();
    QCOMPARE(set[u"Codigo"].Value(), Value(qint32{3}));
    QCOMPARE(set.field(0).attributes, dao::counterAttributes);
    QCOMPARE(set.field(1).size, 100);
    QCOMPARE(set.field(2).type, FieldType::Date);
}

void tst_actions::anIndexStandsInTheFile()
{
    database().Execute(u"CREATE INDEX PorNome ON Clientes (Nome)"_s);
    auto other = dao::DBEngine::OpenDatabase(golden_->path());
    QCOMPARE(errorOf([&] { other->Execute(u"CREATE INDEX pornome ON Clientes (Codigo)"_s); }), 3375);
    other->Execute(u"DROP INDEX PorNome ON Clientes"_s);
    QCOMPARE(errorOf([&] { database().Execute(u"DROP INDEX PorNome ON Clientes"_s); }), 3372);
}

void tst_actions::theNewTypesAreReadInTheirWidths()
{
    database().Execute(u"CREATE TABLE Tipos (B BYTE, C CURRENCY, M MEMO)"_s);
    database().Execute(u"INSERT INTO Tipos (B, C, M) VALUES (200, 0.12345, '1')"_s);
    auto other = dao::DBEngine::OpenDatabase(golden_->path());
    auto set = other->OpenRecordset(u"SELECT B, C, M, C + C AS D FROM Tipos"_s);
    QCOMPARE(set.field(0).type, FieldType::Byte);
    QCOMPARE(set.field(1).type, FieldType::Currency);
    QCOMPARE(set.field(2).type, FieldType::Memo);
    QCOMPARE(set.field(3).type, FieldType::Currency);
    QCOMPARE(set.value(0), Value(qint16{200}));
    QCOMPARE(set.value(1), Value(0.1234));
    QCOMPARE(set.value(2), Value(u"1"_s));
    QCOMPARE(set.value(3), Value(0.2468));
}

void tst_actions::theNewTypesAreWrittenThroughASet()
{
    database().Execute(u"CREATE TABLE Tipos (B BYTE, C CURRENCY, M MEMO)"_s);
    auto set = database().OpenRecordset(u"Tipos"_s);
    set.AddNew();
    set[u"B"] = u"255"_s;
    set[u"C"] = u"1.000,00005"_s;
    set[u"M"] = 7;
    QCOMPARE(set[u"B"].Value(), Value(qint16{255}));
    QCOMPARE(set[u"C"].Value(), Value(1000.0));
    QCOMPARE(errorOf([&] { set[u"B"] = 256; }), 3421);
    QCOMPARE(errorOf([&] { set[u"B"] = -1; }), 3421);
    QCOMPARE(errorOf([&] { set[u"C"] = 1e15; }), 3421);
    QCOMPARE(errorOf([&] { set[u"C"] = u"X"_s; }), 3421);
    set.Update();
    QCOMPARE(rows(u"Tipos"_s), QStringList{u"255 | 1000 | 7"_s});
}

void tst_actions::aMemoTakesAnyLength()
{
    database().Execute(u"CREATE TABLE Tipos (M MEMO)"_s);
    auto set = database().OpenRecordset(u"Tipos"_s);
    set.AddNew();
    set[u"M"] = QString(100'000, u'x');
    set.Update();
    QCOMPARE(rows(u"SELECT Len(M) FROM Tipos"_s), QStringList{u"100000"_s});
}

/// No statement changes a counter, but a set gives one by hand, as files from elsewhere are read in.
void tst_actions::aSetMayNameTheCounter()
{
    auto set = database().OpenRecordset(u"Caixa"_s);
    set.AddNew();
    set[u"Codigo"] = 50;
    set.Update();
    set.AddNew();
    QCOMPARE(set[u"Codigo"].Value(), Value(qint32{51}));
}

void tst_actions::aSetOfTheFirstRowsIsWritable()
{
    auto set = database().OpenRecordset(u"SELECT TOP 3 * FROM Caixa ORDER BY Data"_s);
    set.MoveLast();
    QCOMPARE(set.value(u"Codigo"), Value(qint32{5}));
    set.Edit();
    set[u"Descricao"] = u"CHÁ"_s;
    set.Update();
    set.MovePrevious();
    QCOMPARE(set.value(u"Codigo"), Value(qint32{3}));
    set.Delete();
    QCOMPARE(rows(u"SELECT Codigo, Descricao FROM Caixa WHERE Data = #05/03/2024#"_s), QStringList{u"5 | CHÁ"_s});
}

void tst_actions::aUnionIsReadOnly()
{
    auto set = database().OpenRecordset(u"SELECT Codigo FROM Senha UNION SELECT Codigo FROM Caixa"_s);
    QCOMPARE(errorOf([&] { set.AddNew(); }), 3027);
    QCOMPARE(errorOf([&] { set.Edit(); }), 3027);
    set.MoveLast();
    QCOMPARE(set.value(u"Codigo"), Value(qint32{5}));
}

/// Two definitions that differ in a length only are two statements.
void tst_actions::aDefinitionIsReadWithItsOwnLengths()
{
    QCOMPARE(errorOf([&] { database().Execute(u"ALTER TABLE Senha ADD Nome TEXT(3)"_s); }), 3380);
    QCOMPARE(errorOf([&] { database().Execute(u"CREATE TABLE Senha (Nome TEXT(3))"_s); }), 3010);
    auto other = dao::DBEngine::OpenDatabase(golden_->path());
    other->Execute(u"DROP TABLE Senha"_s);
    QCOMPARE(errorOf([&] { database().OpenRecordset(u"Nenhuma"_s); }), 3078);
    database().Execute(u"CREATE TABLE Senha (Nome TEXT(9))"_s);
    database().Execute(u"INSERT INTO Senha (Nome) VALUES ('123456789')"_s);
    QCOMPARE(rows(u"Senha"_s), QStringList{u"123456789"_s});
}

} // namespace

QTEST_GUILESS_MAIN(tst_actions)

#include "tst_actions.moc"
