#include "documents/itensgravados.h"
#include "documents/listasitens.h"
#include "documents/pecas.h"
#include "support/errors.h"

#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"
#include "support/program.h"

#include <memory>

using namespace Qt::StringLiterals;
using namespace documents;
using support::errorOf;

namespace
{

using Rows = std::vector<QStringList>;

} // namespace

/// What stands behind the lists: the look-up of a part, the letters, the sums and the tables.
class TstRegras : public QObject
{
    Q_OBJECT

private slots:
    void init() { program_ = std::make_unique<support::Program>(); }
    void cleanup() { program_.reset(); }

    void findsAnItem_data();
    void findsAnItem();
    void theFirstRowWinsBetweenCodeAndExternalCode();
    void anApostropheInTheItemCodeIsARunTimeError();
    void tellsWhatCanBeAnAmount_data();
    void tellsWhatCanBeAnAmount();

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
    void addsUpByTheLayout_data();
    void addsUpByTheLayout();
    void theCompactLayoutStoresItsOneList();
    void estimatesKeepTheirItemsLikeOrders_data();
    void estimatesKeepTheirItemsLikeOrders();
    void whatWasNeverWrittenCountsAsZero();

private:
    std::unique_ptr<support::Program> program_;
};

void TstRegras::findsAnItem_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("name");
    QTest::newRow("code") << u"2"_s << u"LITRO DE OLEO"_s;
    QTest::newRow("code as shown") << u"0002"_s << u"LITRO DE OLEO"_s;
    QTest::newRow("external code") << u"FILTRO-A"_s << u"FILTRO"_s;
    QTest::newRow("digits as external code") << u"7891000100"_s << u"FILTRO COMUM"_s;
    QTest::newRow("point in the external code") << u"12.5"_s << u"VELA"_s;
    QTest::newRow("external code that begins as a number out of range") << u"5E0615301"_s << u"DISCO"_s;
    QTest::newRow("external code that begins as no number") << u"1.5%"_s << u"PASTILHA"_s;
    QTest::newRow("number out of range") << u"6E0615301"_s << QString();
    QTest::newRow("text that begins with a code") << u"2ABC"_s << u"LITRO DE OLEO"_s;
    QTest::newRow("text without a number") << u"NADA"_s << QString();
    QTest::newRow("unknown code") << u"99"_s << QString();
}

void TstRegras::findsAnItem()
{
    QFETCH(QString, text);
    QFETCH(QString, name);
    program_->part(u"FILTRO"_s, u"P"_s, u"45,00"_s);
    program_->part(u"LITRO DE OLEO"_s, u"P"_s, u"1.030,50"_s, false, 2);
    program_->part(u"FILTRO COMUM"_s, u"P"_s, u"40,00"_s);
    program_->part(u"VELA"_s, u"P"_s, u"12,00"_s);
    program_->part(u"DISCO"_s, u"P"_s, u"180,00"_s);
    program_->part(u"PASTILHA"_s, u"P"_s, u"90,00"_s);
    program_->sql(u"UPDATE Pecas SET CodExterno = 'FILTRO-A' WHERE Codigo = 1"_s);
    program_->sql(u"UPDATE Pecas SET CodExterno = '5E0615301' WHERE Codigo = 5"_s);
    program_->sql(u"UPDATE Pecas SET CodExterno = '1.5%' WHERE Codigo = 6"_s);
    program_->sql(u"UPDATE Pecas SET CodExterno = '7891000100' WHERE Codigo = 3"_s);
    program_->sql(u"UPDATE Pecas SET CodExterno = '12.5' WHERE Codigo = 4"_s);
    program_->sql(u"UPDATE Pecas SET ValorCusto = 1010.4 WHERE Codigo = 2"_s);

    const auto found = ProcuraPeca(text);
    QCOMPARE(found ? found->nome : QString(), name);
    if (found && found->codigo == u"0002") {
        QCOMPARE(found->valorVenda, u"1.030,50"_s);
        QCOMPARE(found->valorCusto, u"1.010,40"_s);
        QCOMPARE(found->ps, u"P"_s);
        QCOMPARE(found->um, u"2"_s);
    }
}

void TstRegras::theFirstRowWinsBetweenCodeAndExternalCode()
{
    program_->part(u"PRIMEIRA"_s, u"P"_s, u"1,00"_s);
    program_->part(u"SEGUNDA"_s, u"P"_s, u"1,00"_s);
    program_->sql(u"UPDATE Pecas SET CodExterno = '2' WHERE Codigo = 1"_s);
    QCOMPARE(ProcuraPeca(u"2"_s)->nome, u"PRIMEIRA"_s);
}

void TstRegras::anApostropheInTheItemCodeIsARunTimeError()
{
    QCOMPARE(errorOf([] { ProcuraPeca(u"D'AGUA"_s); }), 3075);
}

void TstRegras::tellsWhatCanBeAnAmount_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("serves");
    QTest::newRow("amount") << u"1.234,56"_s << true;
    QTest::newRow("below zero") << u"-5"_s << true;
    QTest::newRow("the greatest") << u"1E15"_s << true;
    QTest::newRow("a greater one") << u"1E16"_s << false;
    QTest::newRow("more than any number") << u"1E999"_s << false;
    QTest::newRow("nothing") << QString() << false;
    QTest::newRow("letters") << u"ABC"_s << false;
}

void TstRegras::tellsWhatCanBeAnAmount()
{
    QFETCH(QString, text);
    QTEST(ServeDeValor(text), "serves");
}

void TstRegras::storesARowUnderItsLetter_data()
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

void TstRegras::storesARowUnderItsLetter()
{
    QFETCH(int, list);
    QFETCH(QString, type);
    QTEST(PSADaLinha(Aba(list), type, false), "full");
    QTEST(PSADaLinha(Aba(list), type, true), "compact");
}

void TstRegras::aStoredLetterGoesBackToItsList_data()
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

void TstRegras::aStoredLetterGoesBackToItsList()
{
    QFETCH(QString, letter);
    QTEST(int(AbaDoPSA(letter, false)), "full");
    QTEST(int(AbaDoPSA(letter, true)), "compact");
    QTEST(TipoDoPSA(letter), "type");
}

void TstRegras::materialIsStoredWithoutValue()
{
    const LinhaItem stored = ParaGravar(LinhaItem{u"0003"_s, {}, u"01"_s, u"GRAXA"_s, {}, {}}, abaMaterial, false);
    QCOMPARE(stored.tipo, u"K"_s);
    QCOMPARE(stored.valorUnit, u"0,00"_s);
}

void TstRegras::theLayoutFollowsTheSetting_data()
{
    QTest::addColumn<QString>("setting");
    QTest::addColumn<bool>("compact");
    QTest::newRow("1") << u"1"_s << true;
    QTest::newRow("2") << u"2"_s << true;
    QTest::newRow("3") << u"3"_s << false;
    QTest::newRow("just above 2") << u"2.5"_s << false;
    QTest::newRow("no number") << u"TRES"_s << true;
}

void TstRegras::theLayoutFollowsTheSetting()
{
    QFETCH(QString, setting);
    program_->config(u"LayoutOS"_s, setting);
    QTEST(FormaDoLayout() == FormaListas::Compacta, "compact");
}

void TstRegras::theRowTotalIsTheProductInDoublePrecision_data()
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

void TstRegras::theRowTotalIsTheProductInDoublePrecision()
{
    QFETCH(QString, quantity);
    QFETCH(QString, price);
    QTEST(ValorDaLinha(quantity, price), "total");
}

void TstRegras::formatsAStoredQuantityByThePartsUnit_data()
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

void TstRegras::formatsAStoredQuantityByThePartsUnit()
{
    QFETCH(int, unit);
    QFETCH(double, quantity);
    const qint32 code = unit < 0 ? 0 : program_->part(u"ITEM"_s, u"P"_s, u"1,00"_s, false, unit);
    QTEST(QuantidadeDaPeca(quantity, code), "text");
}

void TstRegras::addsUpByTheLayout_data()
{
    QTest::addColumn<bool>("compact");
    QTest::addColumn<QStringList>("totals");
    QTest::newRow("full") << false << QStringList{u"111,11"_s, u"1,11"_s, u"10,00"_s, u"100,00"_s};
    QTest::newRow("compact") << true << QStringList{u"1,11"_s, u"1,00"_s, u"0,10"_s, u"0,01"_s};
}

void TstRegras::addsUpByTheLayout()
{
    QFETCH(bool, compact);
    const auto row = [](const QString &type, const QString &total) {
        return LinhaItem{u"0001"_s, type, u"01"_s, u"X"_s, total, total};
    };
    const ItensPorAba items{{{row(u"P"_s, u"1,00"_s), row(u"S"_s, u"0,10"_s), row(u"A"_s, u"0,01"_s)},
                             {row(u"S"_s, u"10,00"_s)},
                             {row(u"A"_s, u"100,00"_s)},
                             {row({}, {})}}};
    const Totais sums = SomaItens(items, compact);
    QTEST((QStringList{sums.total, sums.pecas, sums.servicos, sums.terceiros}), "totals");
}

void TstRegras::theCompactLayoutStoresItsOneList()
{
    const LinhaItem row{u"0001"_s, u"A"_s, u"01"_s, u"X"_s, u"1,00"_s, u"1,00"_s};
    const ItensPorAba items{{{row}, {row}, {row}, {row}}};
    const auto letters = [&](bool compact) {
        QString all;
        for (const LinhaItem &stored : ParaGravar(items, compact)) {
            all += stored.tipo;
        }
        return all;
    };
    QCOMPARE(letters(true), u"A"_s);
    QCOMPARE(letters(false), u"AZXK"_s);
}

void TstRegras::estimatesKeepTheirItemsLikeOrders_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("column");
    QTest::newRow("order") << u"OSPecas"_s << u"CodOS"_s;
    QTest::newRow("estimate") << u"OrcaPecas"_s << u"CodOrca"_s;
}

void TstRegras::estimatesKeepTheirItemsLikeOrders()
{
    QFETCH(QString, table);
    QFETCH(QString, column);
    const qint32 oil = program_->part(u"OLEO"_s, u"P"_s, u"30,50"_s, false, 2);
    auto items = core::DBDados->OpenRecordset(table);
    GravaItem(items, column, 6, {u"0000"_s, u"A"_s, u"01"_s, u"OUTRO"_s, u"1,00"_s, {}});
    const QString key =
        GravaItem(items, column, 7, {QString::number(oil), u"P"_s, u"1,500"_s, u"OLEO"_s, u"30,50"_s, {}});
    QCOMPARE(key, u"2"_s);

    const auto stored = LeItens(u"SELECT * FROM %1 WHERE %2 = 7"_s.arg(table, column));
    QCOMPARE(stored.size(), 1U);
    QCOMPARE(stored.front().chave, key);
    QCOMPARE(stored.front().psa, u"P"_s);
    const LinhaItem &row = stored.front().linha;
    QCOMPARE((QStringList{row.codigo, row.tipo, row.quantidade, row.descricao, row.valorUnit, row.valorTotal}),
             (QStringList{u"0001"_s, u"P"_s, u"1,500"_s, u"OLEO"_s, u"30,50"_s, u"45,75"_s}));
}

void TstRegras::whatWasNeverWrittenCountsAsZero()
{
    program_->sql(u"INSERT INTO OSPecas (CodOS, PSA) VALUES (3, 'X')"_s);
    const auto stored = LeItens(u"SELECT * FROM OSPecas WHERE CodOS = 3"_s);
    QCOMPARE(stored.size(), 1U);
    QCOMPARE(stored.front().psa, u"X"_s);
    const LinhaItem &row = stored.front().linha;
    QCOMPARE((QStringList{row.codigo, row.tipo, row.quantidade, row.descricao, row.valorUnit, row.valorTotal}),
             (QStringList{u"0000"_s, u"A"_s, u"00"_s, QString(), u"0,00"_s, u"0,00"_s}));
}

TARVELO_TEST_MAIN(TstRegras)
#include "tst_regras.moc"
