#include "support/errors.h"
#include "workorders/abertura.h"

#include "core/modulo.h"
#include "platform/runtime/runtime.h"
#include "support/program.h"

#include <memory>

using namespace Qt::StringLiterals;
using namespace documents;
using namespace workorders;
using support::errorOf;

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
    void aNumberThatCanBeNoCodeIsTriedAsAChassis_data();
    void aNumberThatCanBeNoCodeIsTriedAsAChassis();
    void takesTheFirstVehicleOfAPlate();
    void aVehicleWithoutOwnerIsNotFound();
    void showsNullsOfAVehicleAsEmpty();
    void anApostropheInThePlateIsARunTimeError();

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

void TstAbertura::aNumberThatCanBeNoCodeIsTriedAsAChassis_data()
{
    QTest::addColumn<QString>("text");
    for (const char *text : {"344D12345", "5E0615301", "2,5", "12345678901234567"}) {
        QTest::newRow(text) << QString::fromUtf8(text);
    }
}

void TstAbertura::aNumberThatCanBeNoCodeIsTriedAsAChassis()
{
    QFETCH(QString, text);
    program_->vehicle(program_->customer(u"MARIA"_s), u"ABC1D23"_s);
    QVERIFY(!ProcuraVeiculo(text));
    program_->sql(u"UPDATE Veiculos SET Chassi = '%1'"_s.arg(text));
    const auto found = ProcuraVeiculo(text);
    QVERIFY(found);
    QCOMPARE(found->codigo, u"0001"_s);
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

TARVELO_TEST_MAIN(TstAbertura)
#include "tst_abertura.moc"
