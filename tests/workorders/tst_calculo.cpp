#include "workorders/calculo.h"

#include "support/program.h"

#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using namespace documents;
using namespace workorders;

namespace
{

/// The fields as the window loads them, without parts.
DadosDoCalculo loaded()
{
    return {.valorHora = u"18,60"_s,
            .horas = u"1"_s,
            .custoPecas = u"0,00"_s,
            .despesas = u"18"_s,
            .lucro = u"60"_s,
            .iss = u"00"_s,
            .simples = u"00"_s};
}

QStringList texts(const Calculo &c)
{
    return {c.totalMO, c.custoPecas, c.despesas, c.lucro, c.iss, c.simples, c.custoTotal};
}

LinhaItem row(const QString &code, const QString &type, const QString &quantity)
{
    return {.codigo = code,
            .tipo = type,
            .quantidade = quantity,
            .descricao = u"ITEM"_s,
            .valorUnit = u"999,00"_s,
            .valorTotal = u"999,00"_s};
}

} // namespace

/// The price of a job, by exact texts.
class TstCalculo : public QObject
{
    Q_OBJECT

private slots:
    void init() { program_ = std::make_unique<support::Program>(); }
    void cleanup() { program_.reset(); }

    void everyStepFollowsTheOneBefore_data();
    void everyStepFollowsTheOneBefore();
    void sumsHaveSevenDigits_data();
    void sumsHaveSevenDigits();
    void productsKeepTheirCents();
    void aPercentageOfAHundredAndMoreGoesByItsDigits_data();
    void aPercentageOfAHundredAndMoreGoesByItsDigits();
    void partsCountByTheirCost_data();
    void partsCountByTheirCost();
    void aCostThatIsANumberStays();
    void aPartWithoutACostCostsNothing();

private:
    std::unique_ptr<support::Program> program_;
};

void TstCalculo::everyStepFollowsTheOneBefore_data()
{
    QTest::addColumn<QStringList>("given"); // hours, parts, expenses, profit, ISS, Simples
    QTest::addColumn<QStringList>("result");
    QTest::newRow("as loaded") << QStringList{u"1"_s, u"0,00"_s, u"18"_s, u"60"_s, u"00"_s, u"00"_s}
                               << QStringList{u"18,60"_s, u"0,00"_s, u"3,35"_s, u"13,17"_s,
                                              u"0,00"_s,  u"0,00"_s, u"35,12"_s};
    QTest::newRow("both taxes on one base")
        << QStringList{u"2,5"_s, u"100,00"_s, u"18"_s, u"60"_s, u"5"_s, u"8"_s}
        << QStringList{u"46,50"_s, u"100,00"_s, u"26,37"_s, u"103,72"_s, u"13,83"_s, u"22,13"_s, u"312,55"_s};
    QTest::newRow("no hours") << QStringList{u"0"_s, u"10"_s, u"0"_s, u"0"_s, u"0"_s, u"0"_s}
                              << QStringList{u"0,00"_s, u"10"_s,   u"0,00"_s, u"0,00"_s,
                                             u"0,00"_s, u"0,00"_s, u"10,00"_s};
    QTest::newRow("a fraction of a percent")
        << QStringList{u"0"_s, u"1.000,00"_s, u"0,125"_s, u"0"_s, u"0,65"_s, u"0"_s}
        << QStringList{u"0,00"_s, u"1.000,00"_s, u"1,25"_s, u"0,00"_s, u"6,51"_s, u"0,00"_s, u"1.007,76"_s};
}

void TstCalculo::everyStepFollowsTheOneBefore()
{
    QFETCH(QStringList, given);
    const DadosDoCalculo data{.valorHora = u"18,60"_s,
                              .horas = given.at(0),
                              .custoPecas = given.at(1),
                              .despesas = given.at(2),
                              .lucro = given.at(3),
                              .iss = given.at(4),
                              .simples = given.at(5)};
    QTEST(texts(Calcula(data, {})), "result");
}

void TstCalculo::sumsHaveSevenDigits_data()
{
    QTest::addColumn<QString>("parts");
    QTest::addColumn<QString>("total");
    QTest::newRow("seven digits are told") << u"99.981,39"_s << u"99.999,99"_s;
    QTest::newRow("of eight the last is rounded") << u"123.456,78"_s << u"123.475,40"_s;
    QTest::newRow("of nine the cents are lost") << u"1.234.567,00"_s << u"1.234.586,00"_s;
}

void TstCalculo::sumsHaveSevenDigits()
{
    QFETCH(QString, parts);
    DadosDoCalculo data = loaded();
    data.custoPecas = parts;
    data.despesas = data.lucro = u"0"_s;
    QTEST(Calcula(data, {}).custoTotal, "total");
}

void TstCalculo::productsKeepTheirCents()
{
    DadosDoCalculo data = loaded();
    data.horas = u"12345,67"_s;
    data.despesas = u"10"_s;
    data.lucro = u"0"_s;
    const Calculo result = Calcula(data, {});
    QCOMPARE(result.totalMO, u"229.629,46"_s);
    QCOMPARE(result.despesas, u"22.962,95"_s); // of 229.629,50
    QCOMPARE(result.custoTotal, u"252.592,50"_s);
}

void TstCalculo::aPercentageOfAHundredAndMoreGoesByItsDigits_data()
{
    QTest::addColumn<QString>("rate");
    QTest::addColumn<QString>("profit");
    QTest::newRow("99,999") << u"99,999"_s << u"999,99"_s;
    QTest::newRow("100") << u"100"_s << u"100,00"_s;
    QTest::newRow("120") << u"120"_s << u"120,00"_s;
    QTest::newRow("250,5") << u"250,5"_s << u"250,50"_s;
    QTest::newRow("1000") << u"1000"_s << u"100,00"_s;
}

void TstCalculo::aPercentageOfAHundredAndMoreGoesByItsDigits()
{
    QFETCH(QString, rate);
    DadosDoCalculo data = loaded();
    data.horas = data.despesas = u"0"_s;
    data.custoPecas = u"1.000,00"_s;
    data.lucro = rate;
    QTEST(Calcula(data, {}).lucro, "profit");
}

void TstCalculo::partsCountByTheirCost_data()
{
    QTest::addColumn<QString>("written");
    QTest::newRow("empty") << QString();
    QTest::newRow("no number") << u",,"_s;
    QTest::newRow("more than an amount") << u"1e60"_s;
}

void TstCalculo::partsCountByTheirCost()
{
    QFETCH(QString, written);
    program_->part(u"OLEO"_s, u"P"_s, u"50,00"_s);
    program_->part(u"FILTRO"_s, u"P"_s, u"50,00"_s);
    program_->part(u"TROCA"_s, u"S"_s, u"50,00"_s);
    program_->sql(u"UPDATE Pecas SET ValorCusto = 27.55 WHERE Codigo = 1"_s);
    program_->sql(u"UPDATE Pecas SET ValorCusto = 0.1 WHERE Codigo = 2"_s);
    program_->sql(u"UPDATE Pecas SET ValorCusto = 900 WHERE Codigo = 3"_s);
    DadosDoCalculo data = loaded();
    data.custoPecas = written;
    const Calculo result = Calcula(data, {row(u"0001"_s, u"P"_s, u"2,500"_s), row(u"0002"_s, u"P"_s, u"03"_s),
                                          row(u"0003"_s, u"S"_s, u"01"_s), row(u"0000"_s, u"A"_s, u"01"_s),
                                          row(u"0099"_s, u"P"_s, u"01"_s)});
    // 68,875 is shown as 68,88, and 0,30 goes on it
    QCOMPARE(result.custoPecas, u"69,18"_s);
    QCOMPARE(result.despesas, u"15,80"_s);
}

void TstCalculo::aCostThatIsANumberStays()
{
    program_->part(u"OLEO"_s, u"P"_s, u"50,00"_s);
    program_->sql(u"UPDATE Pecas SET ValorCusto = 27.55"_s);
    DadosDoCalculo data = loaded();
    data.custoPecas = u"5"_s;
    QCOMPARE(Calcula(data, {row(u"0001"_s, u"P"_s, u"02"_s)}).custoPecas, u"5"_s);
}

void TstCalculo::aPartWithoutACostCostsNothing()
{
    program_->part(u"OLEO"_s, u"P"_s, u"50,00"_s);
    program_->sql(u"UPDATE Pecas SET ValorCusto = Null"_s);
    DadosDoCalculo data = loaded();
    data.custoPecas.clear();
    QCOMPARE(Calcula(data, {row(u"0001"_s, u"P"_s, u"02"_s)}).custoPecas, u"0,00"_s);
}

TARVELO_TEST_MAIN(TstCalculo)
#include "tst_calculo.moc"
