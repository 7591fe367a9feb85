// The program's dialect: what it means, and what it refuses.
#include "tests/dao/golden.h"

#include "platform/dao/rewriter.h"
#include "platform/runtime/runtime.h"

#include <QTest>

using namespace Qt::StringLiterals;
using golden::errorOf;

namespace
{

class tst_rewriter : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { golden_ = std::make_unique<golden::Golden>(); }
    void cleanupTestCase() { golden_.reset(); }

    void statementsMeanWhatTheDialectMeans_data();
    void statementsMeanWhatTheDialectMeans();
    void statementsAreRefused_data();
    void statementsAreRefused();
    void tooManyTermsAreRefused_data();
    void tooManyTermsAreRefused();
    void aNameAloneIsATable();
    void statementsThatDifferInTheirLiteralsShareOneShape();
    void literalsNeverStandInTheEnginesText();
    void theSameShapeTakesOtherLiterals();
    void errorsTellWhatIsWrong_data();
    void errorsTellWhatIsWrong();

private:
    std::unique_ptr<golden::Golden> golden_;
};

void tst_rewriter::statementsMeanWhatTheDialectMeans_data()
{
    QTest::addColumn<QString>("statement");
    QTest::addColumn<QString>("expected");
    const auto add = [](const char *name, const QString &statement, const QString &expected) {
        QTest::newRow(name) << statement << expected;
    };
    add("month comes first", u"SELECT Codigo FROM Caixa WHERE Data = #05/03/2024#"_s, u"3;5"_s);
    add("a month over 12 is the day", u"SELECT Codigo FROM Caixa WHERE Data = #13/05/2024#"_s, u"4"_s);
    add("year first", u"SELECT Codigo FROM Caixa WHERE Data = #2024-05-13#"_s, u"4"_s);
    add("time of day", u"SELECT Codigo FROM OrdemServico WHERE DataIn = #5/14/2024 11:59:59 PM#"_s, u"4"_s);
    add("a day without time ends at its midnight",
        u"SELECT Codigo FROM OrdemServico WHERE DataIn BETWEEN #05/06/2024# AND #05/14/2024#"_s, u"2;3"_s);
    add("True is -1", u"SELECT Codigo FROM Cheques WHERE Pago = True"_s, u"2"_s);
    add("True in a number", u"SELECT Codigo FROM Pecas WHERE ControlaEstoque = -1 AND Codigo < 3"_s, u"1;2"_s);
    add("a condition has a value", u"SELECT Codigo, Codigo > 1, (Codigo = 1) + 1 FROM Senha"_s,
        u"1 | False | 0;2 | True | 1"_s);
    add("AND before OR", u"SELECT Codigo FROM OSPecas WHERE CodOS = 1 AND PSA = 'P' OR PSA = 'S'"_s, u"1;2;3;4"_s);
    add("NOT", u"SELECT Codigo FROM Senha WHERE NOT Codigo = 1"_s, u"2"_s);
    add("texts without regard to case", u"SELECT Codigo FROM Clientes WHERE Nome = 'ana costa'"_s, u"2"_s);
    add("texts with regard to accents", u"SELECT Codigo FROM Clientes WHERE Nome = 'JOAO DA SILVA'"_s, u""_s);
    add("trailing blanks", u"SELECT Codigo FROM Clientes WHERE Nome = 'ANA COSTA   '"_s, u"2"_s);
    add("double quotes", u"SELECT Codigo FROM Clientes WHERE Nome = \"ANA COSTA\""_s, u"2"_s);
    add("a doubled apostrophe", u"SELECT Codigo FROM Clientes WHERE Nome = 'álvaro d''ávila'"_s, u"5"_s);
    add("texts in order", u"SELECT Nome FROM Clientes ORDER BY Nome"_s,
        u"ÁLVARO D'ÁVILA;ANA COSTA;JOÃO DA SILVA;Joao Pereira;OFICINA CO-OP LTDA"_s);
    add("texts in order, backwards", u"SELECT Codigo FROM Clientes ORDER BY Nome DESC"_s, u"4;3;1;2;5"_s);
    add("Null comes first", u"SELECT Codigo FROM Clientes ORDER BY LimiteCredito, Nome"_s, u"4;2;3;1;5"_s);
    add("equal keys keep their order", u"SELECT Codigo FROM Clientes ORDER BY Estado DESC"_s, u"1;2;3;4;5"_s);
    add("a column by its place", u"SELECT Nome, Codigo FROM Senha ORDER BY 2 DESC"_s, u"BALCÃO | 2;ADMIN | 1"_s);
    add("number with a quoted number", u"SELECT Codigo FROM Pecas WHERE Codigo = '5'"_s, u"5"_s);
    add("month with a quoted number", u"SELECT Codigo FROM Clientes WHERE month(datanascimento)='12'"_s, u"2"_s);
    add("number or text", u"SELECT Codigo FROM Pecas WHERE Codigo = 7 OR CodExterno = '7'"_s, u"5"_s);
    add("IN a list", u"SELECT Codigo FROM Clientes WHERE Codigo IN (1, '3', 9)"_s, u"1;3"_s);
    add("IN a list of texts", u"SELECT Codigo FROM Clientes WHERE Cidade IN ('valinhos', 'OURO PRETO')"_s, u"3;5"_s);
    add("NOT IN a subselect", u"SELECT Codigo FROM Clientes WHERE Codigo NOT IN (SELECT CodCliente FROM Veiculos)"_s,
        u"3;4"_s);
    add("EXISTS",
        u"SELECT Codigo FROM Clientes WHERE EXISTS (SELECT * FROM Fiados WHERE Fiados.CodCliente = Clientes.Codigo AND Pago = False)"_s,
        u"1;5"_s);
    add("last is the last stored", u"SELECT last(Saldo), first(Saldo) FROM Caixa WHERE Data = #5/3/2024#"_s,
        u"300.68 | 194.75"_s);
    add("sum of singles", u"SELECT Sum(ValorUnit * Quantidade) FROM OSPecas WHERE CodOS = 2"_s, u"45.5"_s);
    add("single times single", u"SELECT ValorUnit * Quantidade FROM OSPecas WHERE Codigo = 2"_s, u"74.725"_s);
    add("division of whole numbers", u"SELECT 1 / 4, 7 \\ 2, 7 MOD 4, -2 ^ 2 FROM Senha WHERE Codigo = 1"_s,
        u"0.25 | 3 | 3 | -4"_s);
    add("texts joined", u"SELECT Nome & '-' & Codigo & Acessos FROM Senha WHERE Codigo = 1"_s, u"ADMIN-1"_s);
    add("aggregate with condition", u"SELECT count(codigo) FROM Senha WHERE Admin = true"_s, u"1"_s);
    add("grouping",
        u"SELECT CodPeca, count(*) AS Vezes, Sum(Saida) FROM Estoque GROUP BY CodPeca HAVING count(*) > 1 ORDER BY CodPeca"_s,
        u"1 | 3 | 1;2 | 3 | 10.5"_s);
    add("DISTINCT", u"SELECT DISTINCT CodPeca FROM Estoque ORDER BY CodPeca"_s, u"1;2;5"_s);
    add("TOP", u"SELECT TOP 2 Codigo FROM Clientes ORDER BY Codigo DESC"_s, u"5;4"_s);
    add("names in brackets", u"SELECT [Codigo], [Senha].[Nome] FROM [Senha] WHERE [Codigo] = 2"_s, u"2 | BALCÃO"_s);
    add("names of tables without regard to case", u"select SENHA.nome from sEnHa where senha.CODIGO = 1;"_s,
        u"ADMIN"_s);
    add("an alias of a table", u"SELECT S.Nome FROM Senha AS S WHERE S.Codigo = 1"_s, u"ADMIN"_s);
    add("LEFT JOIN",
        u"SELECT Veiculos.Codigo, Clientes.Nome FROM Veiculos LEFT JOIN Clientes ON Clientes.Codigo = Veiculos.CodCliente WHERE Veiculos.Codigo > 3"_s,
        u"4 | ÁLVARO D'ÁVILA;5 | <Null>"_s);
    add("joins in parentheses",
        u"SELECT Clientes.Nome, OrdemServico.Codigo FROM (Veiculos INNER JOIN Clientes ON Clientes.Codigo = "
        u"Veiculos.CodCliente) INNER JOIN OrdemServico ON "
        u"OrdemServico.CodVeiculo = Veiculos.Codigo WHERE OrdemServico.Codigo = 2"_s,
        u"ANA COSTA | 2"_s);
    add("an unordered join goes by the first table",
        u"SELECT Veiculos.Codigo FROM Veiculos, Clientes WHERE Clientes.Codigo = Veiculos.CodCliente"_s, u"1;2;3;4"_s);
    add("a condition that holds always", u"SELECT Saldo FROM Caixa WHERE 1=1 ORDER BY Codigo DESC"_s,
        u"300.68;304.78;194.75;220.65;100"_s);
    add("IIf and IsNull", u"SELECT IIf(IsNull(Acessos), 'nada', Acessos) FROM Senha WHERE Codigo = 1"_s, u"nada"_s);
    add("Format",
        u"SELECT Format(Data, 'dd/mm/yyyy'), Format(Saldo, '###,##0.00'), CStr(Data) FROM Caixa WHERE Codigo = 1"_s,
        u"01/05/2024 | 100,00 | 01/05/2024"_s);
    add("no table", u"SELECT 1, 'A', Null"_s, u"1 | A | <Null>"_s);
    add("a text that looks like a comment", u"SELECT Codigo FROM Senha WHERE Codigo = 1 --1"_s, u"2"_s);
}

void tst_rewriter::statementsMeanWhatTheDialectMeans()
{
    QFETCH(const QString, statement);
    QFETCH(const QString, expected);
    QCOMPARE(golden::rows(golden_->database(), statement).join(u';'), expected);
}

void tst_rewriter::statementsAreRefused_data()
{
    QTest::addColumn<QString>("statement");
    QTest::addColumn<int>("number");
    const auto add = [](const QString &statement, int number) {
        QTest::newRow(qPrintable(statement.left(60))) << statement << number;
    };
    for (const QString &statement : {u""_s,
                                     u" "_s,
                                     u";"_s,
                                     u"SELECT"_s,
                                     u"SELECT * FROM"_s,
                                     u"SELECT * FROM Caixa WHERE"_s,
                                     u"SELECT * FROM Caixa WHERE Codigo ="_s,
                                     u"SELECT * FROM Caixa WHERE Codigo = 1,5"_s,
                                     u"SELECT * FROM Caixa WHERE Nome = 'D'AVILA'"_s,
                                     u"SELECT * FROM Caixa WHERE Nome = 'D"_s,
                                     u"SELECT * FROM Caixa WHERE Data = #abc#"_s,
                                     u"SELECT * FROM Caixa WHERE Data = #02/30/2024#"_s,
                                     u"SELECT * FROM Caixa WHERE Data = #05/01/2024"_s,
                                     u"SELECT * FROM Caixa WHERE Codigo LIKE 1*"_s,
                                     u"SELECT * FROM Caixa ORDER Codigo"_s,
                                     u"SELECT * FROM Caixa ORDER BY 9"_s,
                                     u"SELECT * FROM Caixa WHERE (Codigo = 1"_s,
                                     u"SELECT * FROM Caixa LIMIT 1"_s,
                                     u"SELECT Codigo Nome FROM Senha"_s,
                                     u"VALUES (1)"_s,
                                     u"EXPLAIN SELECT 1"_s,
                                     u"PRAGMA user_version"_s,
                                     u"ATTACH 'x' AS y"_s,
                                     u"VACUUM"_s,
                                     u"BEGIN"_s,
                                     u"SELECT * FROM Caixa WHERE Codigo = ?"_s,
                                     u"SELECT * FROM Caixa WHERE Codigo = :a"_s,
                                     u"SELECT * FROM Caixa WHERE Codigo == 1"_s,
                                     u"SELECT * FROM Caixa WHERE Codigo != 1"_s,
                                     u"SELECT Nome || 'A' FROM Senha"_s,
                                     u"SELECT * FROM Caixa /* nada */"_s,
                                     u"SELECT * FROM (SELECT * FROM Caixa)"_s,
                                     u"REPLACE INTO Senha VALUES (1)"_s,
                                     u"INSERT OR REPLACE INTO Senha (Codigo) VALUES (1)"_s,
                                     u"DELETE Caixa"_s,
                                     u"UPDATE Caixa Saldo = 1"_s,
                                     u"CREATE INDEX x ON Caixa"_s,
                                     u"CREATE UNIQUE INDEX x ON Caixa (Codigo)"_s,
                                     u"CREATE TABLE x"_s,
                                     u"SELECT [Codigo FROM Caixa"_s,
                                     u"SELECT 1 FROM Caixa WHERE Codigo = 1e"_s,
                                     u"SELECT @@x"_s,
                                     u"alter table Caixa rename to x"_s}) {
        add(statement, 3075);
    }
    add(u"SELECT * FROM Caixa; DROP TABLE Caixa"_s, 3142);
    add(u"DELETE * FROM Caixa WHERE Codigo = 1; SELECT 1"_s, 3142);
    add(u"SELECT * FROM Nenhuma"_s, 3078);
    add(u"SELECT Nada.* FROM Caixa"_s, 3078);
    add(u"DELETE * FROM Nenhuma"_s, 3078);
    add(u"INSERT INTO Nenhuma (Codigo) VALUES (1)"_s, 3078);
    add(u"SELECT * FROM sqlite_schema"_s, 3078);
    add(u"SELECT * FROM [~Contadores]"_s, 3078);
    add(u"SELECT Nada FROM Caixa"_s, 3061);
    add(u"SELECT Nada, Nada, Nenhum FROM Caixa WHERE Veiculos.Codigo = 1"_s, 3061);
    add(u"SELECT _rowid_ FROM Caixa"_s, 3061);
    add(u"UPDATE Caixa SET Nada = 1"_s, 3061);
    add(u"SELECT Codigo FROM Clientes, Veiculos"_s, 3079);
    add(u"SELECT sqlite_version() FROM Senha"_s, 3085);
    add(u"SELECT load_extension('x') FROM Senha"_s, 3085);
    add(u"SELECT * FROM Caixa WHERE Codigo = 'A'"_s, 3464);
    add(u"SELECT * FROM Caixa WHERE Codigo = Descricao"_s, 3464);
    add(u"SELECT * FROM Caixa WHERE Data = 'ONTEM'"_s, 3464);
    add(u"SELECT Codigo, Sum(Saldo) FROM Caixa"_s, 3122);
    add(u"SELECT Codigo FROM Caixa WHERE Sum(Saldo) > 1"_s, 3096);
    add(u"SELECT (SELECT Codigo, Nome FROM Senha) FROM Caixa"_s, 3306);
    add(u"INSERT INTO Senha (Codigo, Nome) VALUES (1)"_s, 3346);
    add(u"INSERT INTO Senha (Nada) VALUES (1)"_s, 3127);
    add(u"CREATE TABLE x (y NADA)"_s, 3292);
    add(u"CREATE TABLE x (y TEXT(256))"_s, 3292);
    add(u"CREATE TABLE x (y LONG, Y LONG)"_s, 3380);
    add(u"CREATE TABLE caixa (y LONG)"_s, 3010);
    add(u"CREATE TABLE [~x] (y LONG)"_s, 3125);
    add(u"alter table Caixa Add codigo long"_s, 3380);
    add(u"alter table Nenhuma Add Codigo long"_s, 3371);
    add(u"drop table Nenhuma"_s, 3376);
    add(u"UPDATE Clientes SET Numero = 40000"_s, 3421);
    add(u"UPDATE Clientes SET Numero = 'A'"_s, 3421);
    add(u"SELECT * FROM Caixa WHERE "_s + u"("_s.repeated(5000), 3360);
    add(u"SELECT * FROM Caixa WHERE Codigo = 1"_s + u" OR Codigo = 1"_s.repeated(5000), 3360);
    add(u"SELECT "_s + u"NOT "_s.repeated(5000) + u"1"_s, 3360);
    add(u"SELECT "_s + u"- "_s.repeated(5000) + u"1"_s, 3360);
}

void tst_rewriter::statementsAreRefused()
{
    QFETCH(const QString, statement);
    QFETCH(const int, number);
    dao::Database &database = golden_->database();
    const int executed = errorOf([&] { database.Execute(statement); });
    QCOMPARE(executed == 3065 ? errorOf([&] { database.OpenRecordset(statement); }) : executed, number);
}

void tst_rewriter::tooManyTermsAreRefused_data()
{
    QTest::addColumn<QString>("statement");
    const QString select = u"SELECT Codigo FROM Caixa"_s;
    const QString where = select + u" WHERE "_s;
    QTest::newRow("OR") << where + u"Codigo = 1"_s + u" OR Codigo = 2"_s.repeated(5000);
    QTest::newRow("AND") << where + u"Codigo = 1"_s + u" AND Codigo = 2"_s.repeated(5000);
    QTest::newRow("AND NOT") << where + u"Codigo = 1"_s + u" AND NOT Codigo = 2"_s.repeated(899);
    QTest::newRow("LIKE") << where + u"Codigo"_s + u" LIKE 1"_s.repeated(5000);
    QTest::newRow("IN") << where + u"Codigo IN (1"_s + u", 2"_s.repeated(300'000) + u')';
    QTest::newRow("sums") << u"SELECT 1"_s + u" + 1"_s.repeated(5000) + u" FROM Caixa"_s;
    QTest::newRow("texts") << u"DELETE FROM Caixa WHERE 'A'"_s + u" & 'B'"_s.repeated(5000) + u" = 'C'"_s;
    QTest::newRow("calls") << u"SELECT "_s + u"Left("_s.repeated(5000) + u"1"_s;
    QTest::newRow("brackets") << u"UPDATE Caixa SET Saldo = "_s + u"("_s.repeated(5000) + u"1"_s;
    QTest::newRow("sub-selects") << where + u"Codigo IN (SELECT Codigo FROM Caixa WHERE "_s.repeated(200) + u"1"_s;
    QTest::newRow("unions") << select + QString(u" UNION "_s + select).repeated(5000);
    QTest::newRow("columns") << u"SELECT Codigo"_s + u", Codigo"_s.repeated(5000) + u" FROM Caixa"_s;
    QTest::newRow("order") << select + u" ORDER BY Codigo"_s + u", Saldo"_s.repeated(5000);
    QTest::newRow("groups") << u"SELECT Count(*) FROM Caixa GROUP BY Codigo"_s + u", Saldo"_s.repeated(5000);
    QTest::newRow("joins in brackets") << u"SELECT 1 FROM "_s + u"(Caixa LEFT JOIN "_s.repeated(5000);
    QString tables = u"SELECT 1 FROM Caixa"_s;
    for (int i = 0; i < 500; ++i) {
        tables += u", Caixa AS C"_s + QString::number(i);
    }
    QTest::newRow("tables") << tables;
    QString choices = u"SELECT IIf(Codigo = 0, 0, 0)"_s;
    for (int i = 0; i < 300; ++i) {
        choices.replace(choices.lastIndexOf(u"0)"_s), 1, u"IIf(Codigo = %1, 0, 0)"_s.arg(i));
    }
    QTest::newRow("choices") << choices + u" FROM Caixa"_s;
}

void tst_rewriter::tooManyTermsAreRefused()
{
    QFETCH(const QString, statement);
    dao::Database &database = golden_->database();
    const bool rows = statement.startsWith(u"SELECT");
    QCOMPARE(errorOf([&] { rows ? void(database.OpenRecordset(statement)) : void(database.Execute(statement)); }),
             3360);
}

void tst_rewriter::aNameAloneIsATable()
{
    QCOMPARE(errorOf([&] { golden_->database().OpenRecordset(u"Nenhuma"_s); }), 3078);
    QCOMPARE(errorOf([&] { golden_->database().Execute(u"Caixa"_s); }), 3075);
    QCOMPARE(golden_->database().OpenRecordset(u"[senha]"_s).fieldCount(), 5);
}

void tst_rewriter::statementsThatDifferInTheirLiteralsShareOneShape()
{
    const auto key = [](const QString &statement) { return dao::tokenize(statement).key; };
    QCOMPARE(key(u"SELECT * FROM Caixa WHERE Codigo = 1"_s), key(u"SELECT * FROM  Caixa WHERE Codigo =  23"_s));
    QCOMPARE(key(u"SELECT * FROM Caixa WHERE Descricao = 'A'"_s),
             key(u"SELECT * FROM Caixa WHERE Descricao = 'B '' C'"_s));
    QVERIFY(key(u"SELECT * FROM Caixa WHERE Codigo = 1"_s) != key(u"SELECT * FROM Caixa WHERE Codigo = '1'"_s));
    QVERIFY(key(u"SELECT * FROM Caixa WHERE Codigo = 1"_s) != key(u"SELECT * FROM Caixa WHERE Codigo = 1.5"_s));
    QVERIFY(key(u"SELECT * FROM Caixa ORDER BY 1"_s) != key(u"SELECT * FROM Caixa ORDER BY 2"_s));
    QVERIFY(key(u"CREATE TABLE x (y TEXT(1))"_s) != key(u"CREATE TABLE x (y TEXT(2))"_s));
    QVERIFY(key(u"alter table x Add y TEXT(1)"_s) != key(u"alter table x Add y TEXT(2)"_s));
    QVERIFY(key(u"SELECT Left(Nome, 1) FROM Senha GROUP BY Left(Nome, 1)"_s) !=
            key(u"SELECT Left(Nome, 2) FROM Senha GROUP BY Left(Nome, 1)"_s));
    QVERIFY(key(u"SELECT TOP 1 * FROM Caixa"_s) != key(u"SELECT [TOP] 1 * FROM Caixa"_s));
    QVERIFY(key(u"SELECT [FROM] FROM Caixa"_s) != key(u"SELECT FROM FROM Caixa"_s));
}

void tst_rewriter::literalsNeverStandInTheEnginesText()
{
    auto table = std::make_shared<dao::Table>();
    table->name = u"T\"x"_s;
    table->fields = {{u"Codigo"_s, dao::FieldType::Long, 0, dao::counterAttributes},
                     {u"Nome"_s, dao::FieldType::Text, 50, 0}};
    dao::Schema schema;
    schema.append(table);
    const QString sql = dao::toSqlite(schema, u"SELECT * FROM [T\"x] WHERE Nome = '; DROP TABLE x' AND Codigo > 77"_s);
    QVERIFY(!sql.contains(u"DROP"_s) && !sql.contains(u"77"_s));
    QVERIFY(sql.contains(u"\"T\"\"x\""_s));
}

void tst_rewriter::theSameShapeTakesOtherLiterals()
{
    for (int code = 1; code <= 5; ++code) {
        const QStringList found =
            golden::rows(golden_->database(), u"SELECT Codigo FROM Caixa WHERE Codigo = "_s + QString::number(code));
        QCOMPARE(found, QStringList{QString::number(code)});
    }
}

void tst_rewriter::errorsTellWhatIsWrong_data()
{
    QTest::addColumn<QString>("statement");
    QTest::addColumn<QString>("description");
    QTest::newRow("one unknown name") << u"SELECT Nada FROM Caixa WHERE Nada = 1"_s
                                      << u"Parâmetros insuficientes. Eram esperados 1."_s;
    QTest::newRow("two unknown names") << u"SELECT Nada FROM Caixa WHERE Nem = 1"_s
                                       << u"Parâmetros insuficientes. Eram esperados 2."_s;
    QTest::newRow("unknown table")
        << u"SELECT * FROM Nenhuma"_s
        << u"A tabela ou consulta 'Nenhuma' não foi encontrada. Verifique se o nome está correto."_s;
    QTest::newRow("clause") << u"SELECT * FROM Caixa WHERE Codigo = ORDER BY Nome"_s
                            << u"Erro de sintaxe na expressão 'Codigo = ORDER BY Nome'."_s;
    QTest::newRow("end") << u"SELECT * FROM Caixa WHERE Codigo = "_s
                         << u"Erro de sintaxe (operador faltando) na expressão 'Codigo ='."_s;
}

void tst_rewriter::errorsTellWhatIsWrong()
{
    QFETCH(const QString, statement);
    QFETCH(const QString, description);
    try {
        golden_->database().OpenRecordset(statement);
        QFAIL("no error");
    } catch (const runtime::RuntimeError &error) {
        QCOMPARE(error.description(), description);
    }
}

} // namespace

QTEST_GUILESS_MAIN(tst_rewriter)

#include "tst_rewriter.moc"
