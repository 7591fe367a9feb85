#include "workorders/abertura.h"

#include "core/modulo.h"
#include "documents/itens.h"
#include "documents/pecas.h"
#include "platform/runtime/runtime.h"
#include "support/program.h"

#include <memory>

using namespace Qt::StringLiterals;
using namespace documents;
using namespace workorders;

namespace
{

using Rows = std::vector<QStringList>;

NovaOrdem order()
{
    return {.codCliente = u"0001"_s,
            .codVeiculo = u"0001"_s,
            .km = u"98.500"_s,
            .observacao = u"BARULHO NA RODA"_s,
            .valor = u"1.234,50"_s,
            .servicos = u"REVISAO"_s,
            .mecanico = u"JOAO"_s,
            .itens = {}};
}

LinhaItem item(const QString &code, const QString &psa, const QString &quantity, const QString &text,
               const QString &price)
{
    return {
        .codigo = code, .tipo = psa, .quantidade = quantity, .descricao = text, .valorUnit = price, .valorTotal = {}};
}

template<class Action>
int errorOf(Action action)
{
    try {
        action();
    } catch (const runtime::RuntimeError &error) {
        return error.number();
    }
    return 0;
}

} // namespace

class TstAbertura : public QObject
{
    Q_OBJECT

private slots:
    void init() { program_ = std::make_unique<support::Program>(); }
    void cleanup() { program_.reset(); }

    void writesAnOpenOrderWithItsColumns();
    void theNumberIsTheCounterOfTheOrder();
    void emptyTextsStayNull();
    void anOrderWithoutItemsIsWritten();
    void writesItemsInTheirOrderUnderTheOrder();
    void roundsAmountsTo32Bits_data();
    void roundsAmountsTo32Bits();
    void touchesNeitherStockNorMoney();
    void keepsWhatWasWrittenBeforeAFailure();
    void writesNothingWhenTheVehicleIsNoNumber();

    void findsAVehicle_data();
    void findsAVehicle();
    void aPlateOfDigitsOnlyIsNotFound();
    void takesTheFirstVehicleOfAPlate();
    void aVehicleWithoutOwnerIsNotFound();
    void showsNullsOfAVehicleAsEmpty();
    void anApostropheInThePlateIsARunTimeError();

    void findsAnItem_data();
    void findsAnItem();
    void theFirstRowWinsBetweenCodeAndExternalCode();
    void anApostropheInTheItemCodeIsARunTimeError();

    void storesARowUnderItsLetter_data();
    void storesARowUnderItsLetter();
    void aStoredLetterGoesBackToItsList_data();
    void aStoredLetterGoesBackToItsList();
    void materialIsStoredWithoutValue();
    void theLayoutFollowsTheSetting_data();
    void theLayoutFollowsTheSetting();
    void theRowTotalIsTheProductInDoublePrecision_data();
    void theRowTotalIsTheProductInDoublePrecision();
    void formatsAStoredQuantityByThePartsUnit_data();
    void formatsAStoredQuantityByThePartsUnit();

private:
    Rows orders() const { return program_->rows(u"SELECT * FROM OrdemServico"_s); }
    Rows items() const
    {
        return program_->rows(u"SELECT CodOS, CodPeca, Quantidade, Descricao, ValorUnit, PSA FROM OSPecas"_s);
    }

    std::unique_ptr<support::Program> program_;
};

void TstAbertura::writesAnOpenOrderWithItsColumns()
{
    QCOMPARE(AbreOrdem(order()), 1);

    const Rows expected{{u"1"_s, u"1"_s, u"1"_s, u"15/05/2024 10:30:00"_s, u"<Null>"_s, u"98.500"_s,
                         u"BARULHO NA RODA"_s, u"1234.5"_s, u"True"_s, u"False"_s, u"<Null>"_s, u"<Null>"_s,
                         u"REVISAO"_s, u"JOAO"_s}};
    QCOMPARE(orders(), expected);
}

void TstAbertura::theNumberIsTheCounterOfTheOrder()
{
    AbreOrdem(order());
    program_->sql(u"DELETE * FROM OrdemServico"_s);

    QCOMPARE(AbreOrdem(order()), 2);
    QCOMPARE(program_->value(u"SELECT Codigo FROM OrdemServico"_s), runtime::Value(qint32{2}));
}

void TstAbertura::emptyTextsStayNull()
{
    NovaOrdem empty = order();
    empty.km = empty.observacao = empty.servicos = empty.mecanico = QString();
    AbreOrdem(empty);

    const Rows expected{{u"<Null>"_s, u"<Null>"_s, u"<Null>"_s, u"<Null>"_s}};
    QCOMPARE(program_->rows(u"SELECT KM, Observacao, Descricao, Mecanico FROM OrdemServico"_s), expected);
}

void TstAbertura::anOrderWithoutItemsIsWritten()
{
    NovaOrdem empty = order();
    empty.valor = u"0,00"_s;
    AbreOrdem(empty);

    QCOMPARE(program_->value(u"SELECT Valor FROM OrdemServico"_s), runtime::Value(0.0F));
    QCOMPARE(items(), Rows());
}

void TstAbertura::writesItemsInTheirOrderUnderTheOrder()
{
    AbreOrdem(order());
    NovaOrdem second = order();
    second.itens = {item(u"0012"_s, u"P"_s, u"02"_s, u"PASTILHA"_s, u"89,90"_s),
                    item(u"0000"_s, u"Z"_s, u"0,500"_s, u"SOLDA"_s, u"1.250,35"_s),
                    item(u"0007"_s, u"K"_s, u"1,500"_s, u"GRAXA"_s, u"0,00"_s)};
    AbreOrdem(second);

    const Rows expected{{u"2"_s, u"12"_s, u"2"_s, u"PASTILHA"_s, u"89.9"_s, u"P"_s},
                        {u"2"_s, u"0"_s, u"0.5"_s, u"SOLDA"_s, u"1250.35"_s, u"Z"_s},
                        {u"2"_s, u"7"_s, u"1.5"_s, u"GRAXA"_s, u"0"_s, u"K"_s}};
    QCOMPARE(items(), expected);
}

void TstAbertura::roundsAmountsTo32Bits_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<float>("stored");
    QTest::newRow("cents") << u"0,10"_s << 0.1F;
    QTest::newRow("seven digits") << u"12.345,67"_s << 12345.67F;
    QTest::newRow("more than a Single holds") << u"1.234.567,89"_s << 1234567.875F;
    QTest::newRow("beyond 24 bits") << u"16.777.217,00"_s << 16777216.0F;
}

void TstAbertura::roundsAmountsTo32Bits()
{
    QFETCH(QString, text);
    QFETCH(float, stored);
    NovaOrdem nova = order();
    nova.valor = text;
    nova.itens = {item(u"0001"_s, u"P"_s, text, u"A"_s, text)};
    AbreOrdem(nova);

    QCOMPARE(program_->value(u"SELECT Valor FROM OrdemServico"_s), runtime::Value(stored));
    QCOMPARE(program_->value(u"SELECT Quantidade FROM OSPecas"_s), runtime::Value(stored));
    QCOMPARE(program_->value(u"SELECT ValorUnit FROM OSPecas"_s), runtime::Value(stored));
}

void TstAbertura::touchesNeitherStockNorMoney()
{
    const qint32 code = program_->part(u"OLEO"_s, u"P"_s, u"30,00"_s, true);
    const Rows stock = program_->rows(u"SELECT * FROM Estoque"_s);
    NovaOrdem nova = order();
    nova.itens = {item(QString::number(code), u"P"_s, u"01"_s, u"OLEO"_s, u"30,00"_s)};
    AbreOrdem(nova);

    QCOMPARE(program_->rows(u"SELECT * FROM Estoque"_s), stock);
    for (const auto *table : {u"Caixa", u"ContasReceber", u"Cheques", u"Fiados", u"ContaFiado"}) {
        QCOMPARE(program_->rows(u"SELECT * FROM "_s + QString::fromUtf16(table)), Rows());
    }
}

void TstAbertura::keepsWhatWasWrittenBeforeAFailure()
{
    NovaOrdem broken = order();
    broken.itens = {item(u"0001"_s, u"P"_s, u"01"_s, u"BOM"_s, u"1,00"_s),
                    item(u"0002"_s, u"P"_s, u"01"_s, QString(256, u'X'), u"1,00"_s),
                    item(u"0003"_s, u"P"_s, u"01"_s, u"NUNCA"_s, u"1,00"_s)};

    QCOMPARE(errorOf([&] { AbreOrdem(broken); }), 3163);
    QCOMPARE(orders().size(), 1U);
    const Rows expected{{u"1"_s, u"1"_s, u"1"_s, u"BOM"_s, u"1"_s, u"P"_s}};
    QCOMPARE(items(), expected);
}

void TstAbertura::writesNothingWhenTheVehicleIsNoNumber()
{
    NovaOrdem broken = order();
    broken.codVeiculo = u"ABC1234"_s;

    QCOMPARE(errorOf([&] { AbreOrdem(broken); }), 3421);
    QCOMPARE(orders(), Rows());
}

void TstAbertura::findsAVehicle_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("code") << u"2"_s;
    QTest::newRow("code as shown") << u"0002"_s;
    QTest::newRow("plate") << u"ABC1D23"_s;
    QTest::newRow("plate in small letters") << u"abc1d23"_s;
    QTest::newRow("chassis") << u"9BWZZZ377VT004251"_s;
}

void TstAbertura::findsAVehicle()
{
    QFETCH(QString, text);
    const qint32 other = program_->customer(u"OUTRO"_s);
    program_->vehicle(other, u"XYZ0000"_s, u"FUSCA"_s);
    const qint32 owner = program_->customer(u"MARIA"_s);
    program_->sql(u"UPDATE Clientes SET Fone1 = '(11) 1234-5678', Celular = '(11) 9999-8888' WHERE Codigo = 2"_s);
    program_->vehicle(owner, u"ABC1D23"_s, u"GOL 1.6"_s);
    program_->sql(u"UPDATE Veiculos SET Chassi = '9BWZZZ377VT004251', Ano = '2019/2020', Cor = 'PRATA', "
                  "Combustivel = 'FLEX' WHERE Codigo = 2"_s);

    const auto found = ProcuraVeiculo(text);
    QVERIFY(found);
    QCOMPARE(found->codigo, u"0002"_s);
    QCOMPARE(found->marca, u"GOL 1.6"_s);
    QCOMPARE(found->placas, u"ABC1D23"_s);
    QCOMPARE(found->combustivel, u"FLEX"_s);
    QCOMPARE(found->cor, u"PRATA"_s);
    QCOMPARE(found->ano, u"2019/2020"_s);
    QCOMPARE(found->codCliente, u"2"_s);
    QCOMPARE(found->nome, u"MARIA"_s);
    QCOMPARE(found->fone1, u"(11) 1234-5678"_s);
    QCOMPARE(found->celular, u"(11) 9999-8888"_s);
}

void TstAbertura::aPlateOfDigitsOnlyIsNotFound()
{
    const qint32 owner = program_->customer(u"MARIA"_s);
    program_->vehicle(owner, u"1234"_s);
    QVERIFY(!ProcuraVeiculo(u"1234"_s));

    program_->sql(u"UPDATE Veiculos SET Chassi = '1234' WHERE Codigo = 1"_s);
    const auto byChassis = ProcuraVeiculo(u"1234"_s);
    QVERIFY(byChassis);
    QCOMPARE(byChassis->codigo, u"0001"_s);
}

void TstAbertura::takesTheFirstVehicleOfAPlate()
{
    const qint32 owner = program_->customer(u"MARIA"_s);
    program_->vehicle(owner, u"AAA0000"_s, u"PRIMEIRO"_s);
    program_->vehicle(owner, u"AAA0000"_s, u"SEGUNDO"_s);
    QCOMPARE(ProcuraVeiculo(u"AAA0000"_s)->marca, u"PRIMEIRO"_s);
}

void TstAbertura::aVehicleWithoutOwnerIsNotFound()
{
    program_->vehicle(77, u"AAA0000"_s);
    QVERIFY(!ProcuraVeiculo(u"AAA0000"_s));
    QVERIFY(!ProcuraVeiculo(u"1"_s));
}

void TstAbertura::showsNullsOfAVehicleAsEmpty()
{
    program_->vehicle(program_->customer(u"MARIA"_s), u"AAA0000"_s);
    const auto found = ProcuraVeiculo(u"AAA0000"_s);
    QVERIFY(found);
    QCOMPARE(found->combustivel + found->cor + found->ano + found->fone1 + found->celular, QString());
}

void TstAbertura::anApostropheInThePlateIsARunTimeError()
{
    QCOMPARE(errorOf([] { ProcuraVeiculo(u"D'AGUA"_s); }), 3075);
}

void TstAbertura::findsAnItem_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("name");
    QTest::newRow("code") << u"2"_s << u"LITRO DE OLEO"_s;
    QTest::newRow("code as shown") << u"0002"_s << u"LITRO DE OLEO"_s;
    QTest::newRow("external code") << u"FILTRO-A"_s << u"FILTRO"_s;
    QTest::newRow("digits as external code") << u"7891000100"_s << u"FILTRO COMUM"_s;
    QTest::newRow("point in the external code") << u"12.5"_s << u"VELA"_s;
    QTest::newRow("text that begins with a code") << u"2ABC"_s << u"LITRO DE OLEO"_s;
    QTest::newRow("text without a number") << u"NADA"_s << QString();
    QTest::newRow("unknown code") << u"99"_s << QString();
}

void TstAbertura::findsAnItem()
{
    QFETCH(QString, text);
    QFETCH(QString, name);
    program_->part(u"FILTRO"_s, u"P"_s, u"45,00"_s);
    program_->part(u"LITRO DE OLEO"_s, u"P"_s, u"1.030,50"_s, false, 2);
    program_->part(u"FILTRO COMUM"_s, u"P"_s, u"40,00"_s);
    program_->part(u"VELA"_s, u"P"_s, u"12,00"_s);
    program_->sql(u"UPDATE Pecas SET CodExterno = 'FILTRO-A' WHERE Codigo = 1"_s);
    program_->sql(u"UPDATE Pecas SET CodExterno = '7891000100' WHERE Codigo = 3"_s);
    program_->sql(u"UPDATE Pecas SET CodExterno = '12.5' WHERE Codigo = 4"_s);

    const auto found = ProcuraPeca(text);
    QCOMPARE(found ? found->nome : QString(), name);
    if (found && found->codigo == u"0002") {
        QCOMPARE(found->valorVenda, u"1.030,50"_s);
        QCOMPARE(found->ps, u"P"_s);
        QCOMPARE(found->um, u"2"_s);
    }
}

void TstAbertura::theFirstRowWinsBetweenCodeAndExternalCode()
{
    program_->part(u"PRIMEIRA"_s, u"P"_s, u"1,00"_s);
    program_->part(u"SEGUNDA"_s, u"P"_s, u"1,00"_s);
    program_->sql(u"UPDATE Pecas SET CodExterno = '2' WHERE Codigo = 1"_s);
    QCOMPARE(ProcuraPeca(u"2"_s)->nome, u"PRIMEIRA"_s);
}

void TstAbertura::anApostropheInTheItemCodeIsARunTimeError()
{
    QCOMPARE(errorOf([] { ProcuraPeca(u"D'AGUA"_s); }), 3075);
}

void TstAbertura::storesARowUnderItsLetter_data()
{
    QTest::addColumn<int>("list");
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("full");
    QTest::addColumn<QString>("compact");
    QTest::newRow("part") << int(abaPecas) << u"P"_s << u"P"_s << u"P"_s;
    QTest::newRow("one-off part") << int(abaPecas) << u"A"_s << u"A"_s << u"A"_s;
    QTest::newRow("type edited among the parts") << int(abaPecas) << u"S"_s << u"S"_s << u"S"_s;
    QTest::newRow("service") << int(abaServicos) << u"S"_s << u"S"_s << u"S"_s;
    QTest::newRow("one-off service") << int(abaServicos) << u"A"_s << u"Z"_s << u"A"_s;
    QTest::newRow("part among the services") << int(abaServicos) << u"P"_s << u"Z"_s << u"P"_s;
    QTest::newRow("outsourced") << int(abaTercerizados) << u"A"_s << u"X"_s << u"A"_s;
    QTest::newRow("outsourced whatever its type") << int(abaTercerizados) << u"S"_s << u"X"_s << u"S"_s;
    QTest::newRow("material") << int(abaMaterial) << QString() << u"K"_s << u"K"_s;
}

void TstAbertura::storesARowUnderItsLetter()
{
    QFETCH(int, list);
    QFETCH(QString, type);
    QTEST(PSADaLinha(Aba(list), type, false), "full");
    QTEST(PSADaLinha(Aba(list), type, true), "compact");
}

void TstAbertura::aStoredLetterGoesBackToItsList_data()
{
    QTest::addColumn<QString>("letter");
    QTest::addColumn<int>("full");
    QTest::addColumn<int>("compact");
    QTest::addColumn<QString>("type");
    QTest::newRow("P") << u"P"_s << int(abaPecas) << int(abaPecas) << u"P"_s;
    QTest::newRow("A") << u"A"_s << int(abaPecas) << int(abaPecas) << u"A"_s;
    QTest::newRow("S") << u"S"_s << int(abaServicos) << int(abaPecas) << u"S"_s;
    QTest::newRow("Z") << u"Z"_s << int(abaServicos) << int(abaPecas) << u"A"_s;
    QTest::newRow("X") << u"X"_s << int(abaTercerizados) << int(abaPecas) << u"A"_s;
    QTest::newRow("K") << u"K"_s << int(abaMaterial) << int(abaMaterial) << u"K"_s;
    QTest::newRow("none") << QString() << int(abaPecas) << int(abaPecas) << QString();
}

void TstAbertura::aStoredLetterGoesBackToItsList()
{
    QFETCH(QString, letter);
    QTEST(int(AbaDoPSA(letter, false)), "full");
    QTEST(int(AbaDoPSA(letter, true)), "compact");
    QTEST(TipoDoPSA(letter), "type");
}

void TstAbertura::materialIsStoredWithoutValue()
{
    const LinhaItem stored = ParaGravar(item(u"0003"_s, {}, u"01"_s, u"GRAXA"_s, {}), abaMaterial, false);
    QCOMPARE(stored.tipo, u"K"_s);
    QCOMPARE(stored.valorUnit, u"0,00"_s);
}

void TstAbertura::theLayoutFollowsTheSetting_data()
{
    QTest::addColumn<QString>("setting");
    QTest::addColumn<bool>("compact");
    QTest::newRow("1") << u"1"_s << true;
    QTest::newRow("2") << u"2"_s << true;
    QTest::newRow("3") << u"3"_s << false;
    QTest::newRow("just above 2") << u"2.5"_s << false;
    QTest::newRow("no number") << u"TRES"_s << true;
}

void TstAbertura::theLayoutFollowsTheSetting()
{
    QFETCH(QString, setting);
    program_->config(u"LayoutOS"_s, setting);
    QTEST(LayoutCompacto(), "compact");
}

void TstAbertura::theRowTotalIsTheProductInDoublePrecision_data()
{
    QTest::addColumn<QString>("quantity");
    QTest::addColumn<QString>("price");
    QTest::addColumn<QString>("total");
    QTest::newRow("pieces") << u"02"_s << u"89,90"_s << u"179,80"_s;
    QTest::newRow("litres") << u"3,500"_s << u"27,55"_s << u"96,43"_s;
    QTest::newRow("half a cent goes up") << u"0,500"_s << u"0,01"_s << u"0,01"_s;
    QTest::newRow("no 32-bit rounding") << u"01"_s << u"123.456,78"_s << u"123.456,78"_s;
    QTest::newRow("thousands") << u"1.000,000"_s << u"1.234,56"_s << u"1.234.560,00"_s;
}

void TstAbertura::theRowTotalIsTheProductInDoublePrecision()
{
    QFETCH(QString, quantity);
    QFETCH(QString, price);
    QTEST(ValorDaLinha(quantity, price), "total");
}

void TstAbertura::formatsAStoredQuantityByThePartsUnit_data()
{
    QTest::addColumn<int>("unit");
    QTest::addColumn<double>("quantity");
    QTest::addColumn<QString>("text");
    QTest::newRow("pieces") << 0 << 2.0 << u"02"_s;
    QTest::newRow("pieces with a fraction") << 0 << 2.5 << u"2,500"_s;
    QTest::newRow("kilos") << 1 << 2.0 << u"2,000"_s;
    QTest::newRow("litres") << 2 << 1000.25 << u"1.000,250"_s;
    QTest::newRow("gallons") << 3 << 12.0 << u"12"_s;
    QTest::newRow("no part") << -1 << 3.0 << u"03"_s;
}

void TstAbertura::formatsAStoredQuantityByThePartsUnit()
{
    QFETCH(int, unit);
    QFETCH(double, quantity);
    const qint32 code = unit < 0 ? 0 : program_->part(u"ITEM"_s, u"P"_s, u"1,00"_s, false, unit);
    QTEST(QuantidadeDaPeca(quantity, code), "text");
}

TARVELO_TEST_MAIN(TstAbertura)
#include "tst_abertura.moc"
