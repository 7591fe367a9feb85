#include "finance/balanco.h"

#include "core/andamento.h"
#include "core/funcoes.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/dao/unit.h"
#include "platform/runtime/runtime.h"
#include "support/program.h"

#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using finance::Balanco;
using finance::LeBalanco;
using finance::LinhaContada;
using finance::LinhaDoBalanco;
using finance::TotalDoBalanco;

namespace
{

const QString maio = u"#05/01/2024# AND #05/31/2024#"_s;
const QString zero = u"0,00"_s;
const LinhaDoBalanco vazia{u"00"_s, zero, zero, zero};

constexpr std::size_t ordens = 0;
constexpr std::size_t cheques = 4;
constexpr std::size_t pendencias = 5;

using LinhasContadas = std::array<LinhaContada, finance::linhasDoBalanco>;

/// Six lines of different figures, all of them counting.
LinhasContadas contadas()
{
    LinhasContadas linhas;
    int numero = 1;
    for (LinhaContada &linha : linhas) {
        const QString valor = core::SomaTexto(zero, QString::number(numero * 1000));
        linha = {{QString::number(numero), valor, core::SomaTexto(zero, QString::number(numero * 10)), zero}, true};
        ++numero;
    }
    return linhas;
}

} // namespace

/// The balance without its window: what each line counts and sums, and the total of their texts.
class TestBalanco : public QObject
{
    Q_OBJECT

private slots:
    void init() { programa_ = std::make_unique<support::Program>(); }
    void cleanup() { programa_.reset(); }

    // The lines of a period
    void countsAndSumsWhatLiesInThePeriod_data();
    void countsAndSumsWhatLiesInThePeriod();
    void aPeriodWithoutDataLeavesZeros();
    void rowsWithoutValuesAreCountedAndSumToZero();
    void anOrderWithATimeOnTheLastDayLiesOutside();
    void sumsTheStoredValuesIn64Bits();
    void onlyLooseChequesCount();

    // What customers owe
    void theLastRowOfEachCustomerCounts();
    void theLastRowIsTheNewestWhateverItsDate();
    void pendenciesAreTheSameForAnyPeriod();
    void anEmptyAccountIsZeros();
    void rowsWithoutABalanceDoNotCount();
    void manyBalancesAddUpToTheCent();
    void aLongWalkShowsHowFarItIs();

    // The total
    void notesAndPayablesAreSubtracted();
    void recordsAreAllAdded();
    void onlyTheLinesThatCountAreTaken();
    void withNoLineAllTotalsAreZero();
    void emptyFiguresAreZero();
    void theTotalIsIn64BitsFromTheTexts();

private:
    /// A row of a customer's account as another writer leaves it.
    void conta(int cliente, const QString &saldo, const QString &data = u"05/10/2024"_s);
    LinhaDoBalanco linha(std::size_t qual, const QString &periodo = maio) const { return LeBalanco(periodo)[qual]; }

    std::unique_ptr<support::Program> programa_;
};

void TestBalanco::conta(int cliente, const QString &saldo, const QString &data)
{
    programa_->sql(
        u"INSERT INTO ContaFiado (CodCliente, Data, Saldo) VALUES (%1, #%2#, %3)"_s.arg(cliente).arg(data, saldo));
}

// --- the lines of a period

void TestBalanco::countsAndSumsWhatLiesInThePeriod_data()
{
    QTest::addColumn<int>("qual");
    QTest::addColumn<QString>("tabela");
    QTest::addColumn<QString>("data");
    QTest::newRow("orders by their opening") << 0 << u"OrdemServico"_s << u"DataIn"_s;
    QTest::newRow("notes by their day") << 1 << u"NotasEntradas"_s << u"Data"_s;
    QTest::newRow("receivables by their due date") << 2 << u"ContasReceber"_s << u"Vencimento"_s;
    QTest::newRow("payables by their due date") << 3 << u"ContasPagar"_s << u"Vencimento"_s;
    QTest::newRow("cheques by their due date") << 4 << u"Cheques"_s << u"Vencimento"_s;
}

void TestBalanco::countsAndSumsWhatLiesInThePeriod()
{
    QFETCH(const int, qual);
    QFETCH(const QString, tabela);
    QFETCH(const QString, data);
    const bool cheque = tabela == u"Cheques";
    const auto grava = [&](const QString &dia, const QString &valor, bool pago) {
        programa_->sql(u"INSERT INTO %1 (%2, Valor, Pago%3) VALUES (#%4#, %5, %6%7)"_s.arg(
            tabela, data, cheque ? u", CodOs"_s : QString(), dia, valor, pago ? u"True"_s : u"False"_s,
            cheque ? u", 0"_s : QString()));
    };
    grava(u"04/30/2024"_s, u"7000"_s, true);
    grava(u"05/01/2024"_s, u"1000"_s, true);
    grava(u"05/15/2024"_s, u"234.5"_s, false);
    grava(u"05/31/2024"_s, u"0.25"_s, true);
    grava(u"06/01/2024"_s, u"8000"_s, false);
    Balanco esperado{vazia, vazia, vazia, vazia, vazia, vazia};
    esperado[static_cast<std::size_t>(qual)] = {u"03"_s, u"1.234,75"_s, u"1.000,25"_s, u"234,50"_s};
    QCOMPARE(LeBalanco(maio), esperado);
}

void TestBalanco::aPeriodWithoutDataLeavesZeros()
{
    programa_->sql(u"INSERT INTO ContasPagar (Vencimento, Valor, Pago) VALUES (#05/10/2024#, 10, False)"_s);
    conta(1, u"30"_s);
    Balanco esperado{vazia, vazia, vazia, vazia, vazia, vazia};
    esperado[pendencias] = {u"01"_s, u"30,00"_s, zero, zero};
    QCOMPARE(LeBalanco(u"#01/01/2020# AND #01/31/2020#"_s), esperado);
}

void TestBalanco::rowsWithoutValuesAreCountedAndSumToZero()
{
    programa_->sql(u"INSERT INTO ContasPagar (Vencimento, Pago) VALUES (#05/10/2024#, False)"_s);
    QCOMPARE(linha(3), (LinhaDoBalanco{u"01"_s, zero, zero, zero}));
}

/// The period is of days without a time, and an order is opened at a time.
void TestBalanco::anOrderWithATimeOnTheLastDayLiesOutside()
{
    for (const QString &hora : {u"05/30/2024 10:30:00"_s, u"05/31/2024"_s, u"05/31/2024 10:30:00"_s}) {
        programa_->sql(u"INSERT INTO OrdemServico (DataIn, Valor, Pago) VALUES (#%1#, 10, False)"_s.arg(hora));
    }
    QCOMPARE(linha(ordens), (LinhaDoBalanco{u"02"_s, u"20,00"_s, zero, u"20,00"_s}));
}

void TestBalanco::sumsTheStoredValuesIn64Bits()
{
    constexpr int registros = 300;
    constexpr float valor = 123456.7F;
    float em32Bits = 0;
    const dao::Unit lote;
    for (int i = 0; i < registros; ++i) {
        programa_->sql(u"INSERT INTO ContasReceber (Vencimento, Valor, Pago) VALUES (#05/10/2024#, 123456.7, True)"_s);
        em32Bits += valor;
    }
    const QString somado = runtime::Format(double{valor} * registros, core::mascaraValor);
    QVERIFY(somado != runtime::Format(em32Bits, core::mascaraValor));
    QCOMPARE(linha(2), (LinhaDoBalanco{u"300"_s, somado, somado, zero}));
}

void TestBalanco::onlyLooseChequesCount()
{
    for (const QString &codOs : {u"0"_s, u"12"_s, u"Null"_s}) {
        programa_->sql(
            u"INSERT INTO Cheques (CodOs, Vencimento, Valor, Pago) VALUES (%1, #05/10/2024#, 5, 0)"_s.arg(codOs));
    }
    QCOMPARE(linha(cheques), (LinhaDoBalanco{u"01"_s, u"5,00"_s, zero, u"5,00"_s}));
}

// --- what customers owe

void TestBalanco::theLastRowOfEachCustomerCounts()
{
    conta(2, u"500"_s);
    conta(1, u"100"_s);
    conta(2, u"0"_s); // settled
    conta(3, u"-5.5"_s);
    conta(1, u"30.25"_s);
    QCOMPARE(linha(pendencias), (LinhaDoBalanco{u"02"_s, u"24,75"_s, zero, zero}));
}

void TestBalanco::theLastRowIsTheNewestWhateverItsDate()
{
    conta(1, u"100"_s, u"05/20/2024"_s);
    conta(1, u"70"_s, u"01/02/2023"_s);
    QCOMPARE(linha(pendencias), (LinhaDoBalanco{u"01"_s, u"70,00"_s, zero, zero}));
}

void TestBalanco::pendenciesAreTheSameForAnyPeriod()
{
    conta(1, u"100"_s);
    conta(2, u"20"_s, u"01/02/2019"_s);
    const LinhaDoBalanco todas{u"02"_s, u"120,00"_s, zero, zero};
    for (const QString &periodo : {maio, u"#01/01/2019# AND #01/31/2019#"_s, u"#05/31/2024# AND #05/01/2024#"_s}) {
        QCOMPARE(linha(pendencias, periodo), todas);
    }
}

void TestBalanco::anEmptyAccountIsZeros()
{
    QCOMPARE(linha(pendencias), vazia);
}

void TestBalanco::rowsWithoutABalanceDoNotCount()
{
    conta(1, u"100"_s);
    conta(1, u"Null"_s);
    conta(2, u"7"_s);
    QCOMPARE(linha(pendencias), (LinhaDoBalanco{u"01"_s, u"7,00"_s, zero, zero}));
}

/// A balance of six digits is off by less than a cent in its 32 bits; many of them would be off by reais.
void TestBalanco::manyBalancesAddUpToTheCent()
{
    constexpr int clientes = 200;
    constexpr float saldo = 100'000.1F;
    const dao::Unit lote;
    for (int cliente = 1; cliente <= clientes; ++cliente) {
        conta(cliente, u"100000.1"_s);
    }
    QVERIFY(runtime::Format(double{saldo} * clientes, core::mascaraValor) != u"20.000.020,00");
    QCOMPARE(linha(pendencias), (LinhaDoBalanco{u"200"_s, u"20.000.020,00"_s, zero, zero}));
}

void TestBalanco::aLongWalkShowsHowFarItIs()
{
    constexpr int linhas = 600;
    QStringList visto;
    {
        const dao::Unit lote;
        for (int i = 0; i < linhas; ++i) {
            conta(1 + i / 2, u"1"_s);
        }
    }
    core::defineMostrador({.mostra = [&](const QString &obra, int feitos,
                                         int total) { visto << u"%1 %2/%3"_s.arg(obra).arg(feitos).arg(total); },
                           .termina = [&] { visto << u"fim"_s; },
                           .demora = 0ms});
    LeBalanco(maio);
    core::defineMostrador({});
    QVERIFY(visto.size() >= 2);
    QCOMPARE(visto.first(), u"Somando as pendências dos clientes 256/600"_s);
    QCOMPARE(visto.last(), u"fim"_s);
}

// --- the total

void TestBalanco::notesAndPayablesAreSubtracted()
{
    QCOMPARE(TotalDoBalanco(contadas())[1], u"9.000,00"_s); // 1 - 2 + 3 - 4 + 5 + 6
    QCOMPARE(TotalDoBalanco(contadas())[2], u"90,00"_s);
    LinhasContadas soGastos = contadas();
    for (const std::size_t entra : {0, 2, 4, 5}) {
        soGastos[entra].conta = false;
    }
    QCOMPARE(TotalDoBalanco(soGastos), (LinhaDoBalanco{u"06"_s, u"-6.000,00"_s, u"-60,00"_s, zero}));
}

void TestBalanco::recordsAreAllAdded()
{
    QCOMPARE(TotalDoBalanco(contadas())[0], u"21"_s);
}

void TestBalanco::onlyTheLinesThatCountAreTaken()
{
    for (std::size_t so = 0; so < finance::linhasDoBalanco; ++so) {
        LinhasContadas linhas = contadas();
        for (std::size_t i = 0; i < linhas.size(); ++i) {
            linhas[i].conta = i == so;
        }
        QCOMPARE(TotalDoBalanco(linhas)[0], u"0%1"_s.arg(so + 1));
        const QString valor = u"%1.000,00"_s.arg(so + 1);
        QCOMPARE(TotalDoBalanco(linhas)[1], so == 1 || so == 3 ? u'-' + valor : valor);
    }
}

void TestBalanco::withNoLineAllTotalsAreZero()
{
    LinhasContadas linhas = contadas();
    for (LinhaContada &linha : linhas) {
        linha.conta = false;
    }
    QCOMPARE(TotalDoBalanco(linhas), vazia);
}

void TestBalanco::emptyFiguresAreZero()
{
    LinhasContadas linhas;
    for (LinhaContada &linha : linhas) {
        linha = {{QString(), QString(), zero, zero}, true};
    }
    QCOMPARE(TotalDoBalanco(linhas), vazia);
}

void TestBalanco::theTotalIsIn64BitsFromTheTexts()
{
    LinhasContadas linhas = contadas();
    linhas[0].figuras[1] = u"98.765.432,10"_s;
    linhas[1].figuras[1] = u"0,01"_s;
    linhas[2].figuras[1] = u"0,02"_s;
    for (std::size_t i = 3; i < linhas.size(); ++i) {
        linhas[i].conta = false;
    }
    QCOMPARE(TotalDoBalanco(linhas)[1], u"98.765.432,11"_s);
}

TARVELO_TEST_MAIN(TestBalanco)
#include "tst_balanco.moc"
