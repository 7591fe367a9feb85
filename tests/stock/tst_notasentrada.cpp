#include "stock/notasentrada.h"

#include "support/program.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace
{

const QString nulo = u"<Null>"_s;
const QString sim = u"True"_s;
const QString nao = u"False"_s;

using Linhas = std::vector<QStringList>;

} // namespace

/// What is done with a supplier's note once it stands, table by table.
class TestNotasEntrada : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { programa_.reset(); }

    void tellsTheMark();
    void paysWithADate();
    void paysWithATime();
    void whatReadsAsADateIsOne();
    void paysWithoutADate_data();
    void paysWithoutADate();
    void takesAPaymentBack();
    void theCheckBoxPaysWithADay();
    void theCheckBoxPaysWithoutADate_data();
    void theCheckBoxPaysWithoutADate();
    void theCheckBoxTakesAPaymentBack();
    void allTogetherLeaveTheDays();
    void tellsTheDayOfPayment();
    void writesObservationsInCapitals();
    void writesNoMoreThanTheColumnHolds();
    void deletesANoteAndItsLinesAlone();
    void aNoteThatIsGoneIsLeftAlone();

private:
    void marca(const QString &pago, const QString &dia);
    Linhas marcas() { return programa_->rows(u"SELECT Pago, DataPagto FROM NotasEntradas ORDER BY Codigo"_s); }

    std::unique_ptr<support::Program> programa_;
};

/// Two unpaid notes with a line each.
void TestNotasEntrada::init()
{
    programa_ = std::make_unique<support::Program>();
    for (const QString &numero : {u"1"_s, u"2"_s}) {
        programa_->sql(u"INSERT INTO NotasEntradas (CodForn, Data, Valor, Pago) VALUES (1, #05/01/2024#, 10, False)"_s);
        programa_->sql(u"INSERT INTO NotasPecas (CodNota, CodPeca, Quantidade, Descricao, ValorUnit, PSA) VALUES ("_s +
                       numero + u", 1, 2, 'FILTRO', 5, 'P')"_s);
    }
}

void TestNotasEntrada::marca(const QString &pago, const QString &dia)
{
    programa_->sql(u"UPDATE NotasEntradas SET Pago = "_s + pago + u", DataPagto = "_s + dia + u" WHERE Codigo = 2"_s);
}

void TestNotasEntrada::tellsTheMark()
{
    QCOMPARE(stock::NotaPaga(2), std::optional(false));
    marca(u"True"_s, u"Null"_s);
    QCOMPARE(stock::NotaPaga(2), std::optional(true));
    programa_->sql(u"UPDATE NotasEntradas SET Pago = Null WHERE Codigo = 2"_s);
    QCOMPARE(stock::NotaPaga(2), std::optional(false));
}

void TestNotasEntrada::paysWithADate()
{
    QVERIFY(stock::PagaNota(2, u"03/04/2024"_s));
    QCOMPARE(marcas(), (Linhas{{nao, nulo}, {sim, u"03/04/2024 00:00:00"_s}}));
    QVERIFY(programa_->rows(u"SELECT * FROM Caixa"_s).empty());
    QVERIFY(programa_->rows(u"SELECT * FROM ContasPagar"_s).empty());
}

void TestNotasEntrada::paysWithATime()
{
    stock::PagaNota(2, u"03/04/2024 10:30"_s);
    QCOMPARE(marcas().at(1), (QStringList{sim, u"03/04/2024 10:30:00"_s}));
}

void TestNotasEntrada::whatReadsAsADateIsOne()
{
    stock::PagaNota(1, u"1/2"_s);
    stock::MarcaPaga(2, u"1,2"_s);
    const QString dia = u"01/02/2024 00:00:00"_s;
    QCOMPARE(marcas(), (Linhas{{sim, dia}, {sim, dia}}));
}

void TestNotasEntrada::paysWithoutADate_data()
{
    QTest::addColumn<QString>("resposta");
    QTest::newRow("cancelled") << QString();
    QTest::newRow("a word") << u"AMANHÃ"_s;
    QTest::newRow("a bare number") << u"12"_s;
    QTest::newRow("1e3") << u"1e3"_s;
    QTest::newRow("no such day") << u"31/02/2024x"_s;
    QTest::newRow("an apostrophe") << u"03/04/2024'"_s;
}

void TestNotasEntrada::paysWithoutADate()
{
    QFETCH(const QString, resposta);
    QVERIFY(stock::PagaNota(1, resposta));
    marca(u"False"_s, u"#01/15/2024#"_s);
    QVERIFY(stock::PagaNota(2, resposta));
    QCOMPARE(marcas(), (Linhas{{sim, nulo}, {sim, u"15/01/2024 00:00:00"_s}}));
}

void TestNotasEntrada::takesAPaymentBack()
{
    marca(u"True"_s, u"#01/15/2024#"_s);
    QVERIFY(stock::DesfazPagamento(2));
    QCOMPARE(marcas(), (Linhas{{nao, nulo}, {nao, nulo}}));
}

/// The statement's literal has the day alone.
void TestNotasEntrada::theCheckBoxPaysWithADay()
{
    QVERIFY(stock::MarcaPaga(2, u"03/04/2024 10:30"_s));
    QCOMPARE(marcas(), (Linhas{{nao, nulo}, {sim, u"03/04/2024 00:00:00"_s}}));
}

void TestNotasEntrada::theCheckBoxPaysWithoutADate_data()
{
    paysWithoutADate_data();
}

void TestNotasEntrada::theCheckBoxPaysWithoutADate()
{
    QFETCH(const QString, resposta);
    QVERIFY(stock::MarcaPaga(1, resposta));
    marca(u"False"_s, u"#01/15/2024#"_s);
    QVERIFY(stock::MarcaPaga(2, resposta));
    QCOMPARE(marcas(), (Linhas{{sim, nulo}, {sim, u"15/01/2024 00:00:00"_s}}));
}

void TestNotasEntrada::theCheckBoxTakesAPaymentBack()
{
    marca(u"True"_s, u"#01/15/2024#"_s);
    QVERIFY(stock::MarcaNaoPaga(2));
    QCOMPARE(marcas(), (Linhas{{nao, nulo}, {nao, nulo}}));
}

void TestNotasEntrada::allTogetherLeaveTheDays()
{
    marca(u"False"_s, u"#01/15/2024#"_s);
    QVERIFY(stock::MarcaSemData(1, true));
    QVERIFY(stock::MarcaSemData(2, true));
    QCOMPARE(marcas(), (Linhas{{sim, nulo}, {sim, u"15/01/2024 00:00:00"_s}}));
    QVERIFY(stock::MarcaSemData(2, false));
    QCOMPARE(marcas(), (Linhas{{sim, nulo}, {nao, u"15/01/2024 00:00:00"_s}}));
}

void TestNotasEntrada::tellsTheDayOfPayment()
{
    marca(u"True"_s, u"#01/15/2024#"_s);
    QCOMPARE(stock::DiaDoPagamento(1), QString());
    QCOMPARE(stock::DiaDoPagamento(2), u"15/01/2024"_s);
}

void TestNotasEntrada::writesObservationsInCapitals()
{
    QCOMPARE(stock::GravaObservacoes(2, u"caixa d'água, ação"_s), std::optional(u"CAIXA D'ÁGUA, AÇÃO"_s));
    QCOMPARE(programa_->rows(u"SELECT Observacoes FROM NotasEntradas ORDER BY Codigo"_s),
             (Linhas{{nulo}, {u"CAIXA D'ÁGUA, AÇÃO"_s}}));
}

void TestNotasEntrada::writesNoMoreThanTheColumnHolds()
{
    QCOMPARE(stock::GravaObservacoes(1, QString(200, u'a') + u"b"_s), std::optional(QString(200, u'A')));
    QCOMPARE(programa_->rows(u"SELECT Observacoes FROM NotasEntradas WHERE Codigo = 1"_s),
             (Linhas{{QString(200, u'A')}}));
}

void TestNotasEntrada::deletesANoteAndItsLinesAlone()
{
    programa_->sql(u"INSERT INTO Estoque (CodPeca, Data, Descricao, Entrada, Estoque) VALUES (1, #05/01/2024#, "
                   "'ENTRADA NOTA: 0002', 2, 2)"_s);
    const Linhas estoque = programa_->rows(u"SELECT * FROM Estoque"_s);
    stock::ExcluiNota(2);
    QCOMPARE(programa_->rows(u"SELECT Codigo FROM NotasEntradas"_s), (Linhas{{u"1"_s}}));
    QCOMPARE(programa_->rows(u"SELECT CodNota FROM NotasPecas"_s), (Linhas{{u"1"_s}}));
    QCOMPARE(programa_->rows(u"SELECT * FROM Estoque"_s), estoque);
    QCOMPARE(estoque.size(), 1U);
}

void TestNotasEntrada::aNoteThatIsGoneIsLeftAlone()
{
    stock::ExcluiNota(2);
    const Linhas notas = programa_->rows(u"SELECT * FROM NotasEntradas"_s);
    QVERIFY(!stock::NotaPaga(2));
    QVERIFY(!stock::PagaNota(2, u"03/04/2024"_s));
    QVERIFY(!stock::DesfazPagamento(2));
    QVERIFY(!stock::MarcaPaga(2, u"03/04/2024"_s));
    QVERIFY(!stock::MarcaPaga(2, QString()));
    QVERIFY(!stock::MarcaNaoPaga(2));
    QVERIFY(!stock::MarcaSemData(2, true));
    QVERIFY(!stock::GravaObservacoes(2, u"A"_s));
    QCOMPARE(stock::DiaDoPagamento(2), QString());
    stock::ExcluiNota(2);
    QCOMPARE(programa_->rows(u"SELECT * FROM NotasEntradas"_s), notas);
    QCOMPARE(programa_->rows(u"SELECT CodNota FROM NotasPecas"_s), (Linhas{{u"1"_s}}));
}

TARVELO_TEST_MAIN(TestNotasEntrada)
#include "tst_notasentrada.moc"
