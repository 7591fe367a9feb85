#include "core/andamento.h"
#include "core/modos.h"
#include "core/modulo.h"
#include "papel.h"
#include "platform/dao/database.h"
#include "platform/dao/unit.h"
#include "reports/reports.h"

#include <QTest>

#include <chrono>
#include <memory>

using namespace Qt::StringLiterals;
using cadastro::columnOf;
using cadastro::rowsOf;
using papel::impresso;
using support::click;

namespace
{

/// The customer's account, as the report opens it.
class Conta : public ui::Form
{
public:
    Conta() : ui::Form(u"frmMoviFiadosConta"_s) {}

    void Form_Load() override { aberta = u"%1/%2"_s.arg(core::ModoChamada).arg(core::CodigoConsulta); }

    static QString aberta; ///< mode and code of the last opening
};
QString Conta::aberta;

} // namespace

/// The debtors: who has a balance in his account, by the last row of it.
class TestRelaDevedores : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup() { programa_.reset(); }

    void listsThoseWithABalanceByTheDayOfTheirLastRow();
    void aCreditIsListedAndLowersTheTotal();
    void aCustomerWhoIsGoneIsNamedSo();
    void rowsWithoutACustomerOrABalanceDoNoHarm();
    void sumsIn32Bits();
    void nobodyOwes_data();
    void nobodyOwes();
    void printsWhatItShows();
    void thePreviewPrintsThroughTheReportBehindAnotherWindow();
    void fiftyRowsAreASheet_data();
    void fiftyRowsAreASheet();
    void aHeaderClickMovesTheTotal();
    void aDoubleClickOpensTheAccount();
    void leftByEscItHoldsWhoWasReadToHisEnd();
    void leftByEscAheadOfTheFirstEndItHoldsNothing();

private:
    void conta(qint32 cliente, const QString &dia, const QString &saldo);
    ui::Form *abreEDeixa();
    ui::Form *tresContas();

    std::unique_ptr<support::Program> programa_;
    qint32 maria_ = 0;
    qint32 joao_ = 0;
    qint32 ana_ = 0;
};

void TestRelaDevedores::initTestCase()
{
    reports::registerForms();
    ui::Forms::instance().add(u"frmMoviFiadosConta"_s, [] { return new Conta; });
}

void TestRelaDevedores::init()
{
    programa_ = std::make_unique<support::Program>();
    maria_ = programa_->customer(u"MARIA"_s);
    joao_ = programa_->customer(u"JOÃO"_s);
    ana_ = programa_->customer(u"ANA"_s);
    Conta::aberta.clear();
}

void TestRelaDevedores::conta(qint32 cliente, const QString &dia, const QString &saldo)
{
    programa_->sql(
        u"INSERT INTO ContaFiado (CodCliente, Data, Saldo) VALUES (%1, #%2#, %3)"_s.arg(cliente).arg(dia, saldo));
}

/// Rows of three customers, mixed; that of ANA came to nothing.
ui::Form *TestRelaDevedores::tresContas()
{
    conta(maria_, u"5/2/2024"_s, u"900"_s);
    conta(ana_, u"5/1/2024"_s, u"70"_s);
    conta(joao_, u"12/30/2023"_s, u"30.25"_s);
    conta(maria_, u"5/10/2024"_s, u"1000.5"_s);
    conta(ana_, u"5/3/2024"_s, u"0"_s);
    return papel::abre(core::modoRelaDevedores);
}

void TestRelaDevedores::listsThoseWithABalanceByTheDayOfTheirLastRow()
{
    ui::Form *form = tresContas();
    QCOMPARE(form->windowTitle(), u"Tarvelo - [Lista de Devedores]"_s);
    QCOMPARE(cadastro::titlesOf(form),
             (QStringList{u"Código"_s, u"Nome Cliente"_s, u"Saldo Devedor"_s, u"Data Últ. Registro"_s}));
    QCOMPARE(rowsOf(form), (cadastro::Rows{
                               {u"0002"_s, u"JOÃO"_s, u"30,25"_s, u"30/12/2023"_s},
                               {u"0001"_s, u"MARIA"_s, u"1.000,50"_s, u"10/05/2024"_s},
                               {QString(), u"TOTAL"_s, u"1.030,75"_s, QString()},
                           }));
    QCOMPARE(cadastro::list(form)->item(0).smallIcon(), 1);
    QCOMPARE(cadastro::list(form)->item(2).smallIcon(), 0);
}

void TestRelaDevedores::aCreditIsListedAndLowersTheTotal()
{
    conta(joao_, u"5/11/2024"_s, u"-100"_s);
    ui::Form *form = tresContas();
    // The credit is not JOÃO's last row any more: his next one came behind it.
    QCOMPARE(columnOf(form, 2), (QStringList{u"30,25"_s, u"1.000,50"_s, u"1.030,75"_s}));
    conta(joao_, u"5/12/2024"_s, u"-100"_s);
    form->Unload();
    form = papel::abre(core::modoRelaDevedores);
    QCOMPARE(columnOf(form, 1), (QStringList{u"MARIA"_s, u"JOÃO"_s, u"TOTAL"_s}));
    QCOMPARE(columnOf(form, 2), (QStringList{u"1.000,50"_s, u"-100,00"_s, u"900,50"_s}));
}

void TestRelaDevedores::aCustomerWhoIsGoneIsNamedSo()
{
    conta(99, u"5/2/2024"_s, u"5"_s);
    QCOMPARE(rowsOf(papel::abre(core::modoRelaDevedores)).front(),
             (QStringList{u"0099"_s, u"REGISTRO NÃO LOCALIZADO"_s, u"5,00"_s, u"02/05/2024"_s}));
}

void TestRelaDevedores::rowsWithoutACustomerOrABalanceDoNoHarm()
{
    programa_->sql(u"INSERT INTO ContaFiado (Data, Saldo) VALUES (#5/2/2024#, 8)"_s);
    programa_->sql(u"INSERT INTO ContaFiado (CodCliente, Descricao) VALUES (1, 'SEM SALDO')"_s);
    programa_->sql(u"INSERT INTO ContaFiado (CodCliente, Saldo) VALUES (2, 7)"_s);
    QCOMPARE(rowsOf(papel::abre(core::modoRelaDevedores)),
             (cadastro::Rows{
                 {u"0002"_s, u"JOÃO"_s, u"7,00"_s, QString()},
                 {u"0000"_s, u"REGISTRO NÃO LOCALIZADO"_s, u"8,00"_s, u"02/05/2024"_s},
                 {QString(), u"TOTAL"_s, u"15,00"_s, QString()},
             }));
}

/// 16.777.216 is where a 32-bit float stops to count by ones.
void TestRelaDevedores::sumsIn32Bits()
{
    conta(maria_, u"5/2/2024"_s, u"16777216"_s);
    conta(joao_, u"5/3/2024"_s, u"1"_s);
    conta(ana_, u"5/4/2024"_s, u"-16777216"_s);
    QCOMPARE(columnOf(papel::abre(core::modoRelaDevedores), 2).last(), u"0,00"_s);
}

void TestRelaDevedores::nobodyOwes_data()
{
    QTest::addColumn<bool>("comLinhas");
    QTest::newRow("no rows") << false;
    QTest::newRow("all even") << true;
}

void TestRelaDevedores::nobodyOwes()
{
    QFETCH(bool, comLinhas);
    if (comLinhas) {
        conta(maria_, u"5/2/2024"_s, u"0"_s);
    }
    ui::Form *form = papel::abre(core::modoRelaDevedores);
    QCOMPARE(rowsOf(form), (cadastro::Rows{{QString(), u"Registro não Localizado"_s, QString(), QString()}}));
    papel::clicaDuasVezes(form, 0);
    QCoreApplication::processEvents();
    QCOMPARE(Conta::aberta, QString());
}

void TestRelaDevedores::printsWhatItShows()
{
    click(tresContas(), u"btnPrint"_s);
    QCOMPARE(impresso(),
             (std::vector<QStringList>{{
                 u"           LISTA DE DEVEDORES"_s,
                 u"                                             Tarvelo"_s,
                 u"Data.............: 15/05/2024"_s,
                 u"Nº de Registros..: 3"_s,
                 u"Exibindo.....: de: 1 à 3"_s,
                 u"COD.CLI - NOME CLIENTE                                                 - SALDO DEV. - DATA U.LAN"_s,
                 u"0002      JOÃO                                                                30,25   30/12/2023"_s,
                 u"0001      MARIA                                                            1.000,50   10/05/2024"_s,
                 u"          TOTAL                                                            1.030,75"_s,
             }}));
}

/// The origin book, previewed meanwhile, leaves its own mode.
void TestRelaDevedores::thePreviewPrintsThroughTheReportBehindAnotherWindow()
{
    ui::Form *form = tresContas();
    core::ModoChamada = core::modoRelaOrigem;
    click(form, u"btnPrevisualizar"_s);
    click(support::show(u"frmRelaPreVisualiza"_s), u"btnPrint"_s);
    QCOMPARE(support::text(form, u"lblPrint"_s), u"1"_s);
    QCOMPARE(impresso(), papel::previsto());
}

void TestRelaDevedores::fiftyRowsAreASheet_data()
{
    QTest::addColumn<int>("devedores");
    QTest::addColumn<QStringList>("exibindo");
    QTest::newRow("fifty with the total") << 49 << QStringList{u"Exibindo.....: de: 1 à 50"_s};
    QTest::newRow("fifty-one") << 50 << QStringList{u"Exibindo.....: de: 1 à 50"_s, u"Exibindo.....: de: 51 à 51"_s};
    QTest::newRow("three sheets") << 120
                                  << QStringList{u"Exibindo.....: de: 1 à 50"_s, u"Exibindo.....: de: 51 à 100"_s,
                                                 u"Exibindo.....: de: 101 à 121"_s};
}

void TestRelaDevedores::fiftyRowsAreASheet()
{
    QFETCH(int, devedores);
    QFETCH(QStringList, exibindo);
    for (int codigo = 1; codigo <= devedores; ++codigo) {
        conta(1000 + codigo, u"5/2/2024"_s, QString::number(codigo));
    }
    ui::Form *form = papel::abre(core::modoRelaDevedores);
    click(form, u"btnPrint"_s);
    const auto folhas = impresso();
    QCOMPARE(qsizetype(folhas.size()), exibindo.size());
    for (std::size_t folha = 0; folha < folhas.size(); ++folha) {
        QCOMPARE(folhas[folha].at(4), exibindo.at(qsizetype(folha)));
        const QString primeira =
            folha == 1 && devedores == 50 ? u"          TOTAL"_s : u"%1      REGISTRO"_s.arg(1001 + 50 * folha);
        QVERIFY2(folhas[folha].at(6).startsWith(primeira), qPrintable(folhas[folha].at(6)));
    }
    QVERIFY(folhas.back().last().startsWith(u"          TOTAL"_s));
    click(form, u"btnPrevisualizar"_s);
    QCOMPARE(papel::previsto(), folhas);
}

void TestRelaDevedores::aHeaderClickMovesTheTotal()
{
    ui::Form *form = tresContas();
    cadastro::clickHeader(form, 0);
    QCOMPARE(columnOf(form, 1), (QStringList{u"TOTAL"_s, u"MARIA"_s, u"JOÃO"_s}));
    cadastro::clickHeader(form, 0);
    QCOMPARE(columnOf(form, 1), (QStringList{u"JOÃO"_s, u"MARIA"_s, u"TOTAL"_s}));
}

void TestRelaDevedores::aDoubleClickOpensTheAccount()
{
    ui::Form *form = tresContas();
    papel::clicaDuasVezes(form, 2); // the total has no code
    papel::clicaDuasVezes(form, 0);
    QTRY_COMPARE(Conta::aberta, u"28/2"_s);
    QCOMPARE(core::ModoChamada, qint16{core::modoRelaDevedores});
}

/// Left by Esc as soon as the clock is looked at.
ui::Form *TestRelaDevedores::abreEDeixa()
{
    core::defineMostrador({.mostra = [](const QString &, int, int) {},
                           .termina = [] {},
                           .deixa = [] { return true; },
                           .demora = std::chrono::milliseconds(0)});
    ui::Form *form = papel::abre(core::modoRelaDevedores);
    core::defineMostrador({});
    return form;
}

/// The customer in the middle of whose rows it was left is not listed: his balance is that of a row not read.
void TestRelaDevedores::leftByEscItHoldsWhoWasReadToHisEnd()
{
    {
        const dao::Unit lote;
        for (int codigo = 1001; codigo <= 1100; ++codigo) {
            for (const QString &saldo : {u"1"_s, u"2"_s, u"3"_s}) {
                conta(codigo, u"5/2/2024"_s, saldo);
            }
        }
    }
    ui::Form *form = abreEDeixa();
    QCOMPARE(columnOf(form), (QStringList{u"1001"_s, u"1002"_s, u"1003"_s, u"1004"_s, u"1005"_s, QString()}));
    QCOMPARE(columnOf(form, 2).mid(4), (QStringList{u"3,00"_s, u"15,00"_s}));
}

/// Nothing says that nobody owes: his rows were not read to their end.
void TestRelaDevedores::leftByEscAheadOfTheFirstEndItHoldsNothing()
{
    for (int linha = 1; linha <= 40; ++linha) {
        conta(maria_, u"5/2/2024"_s, QString::number(linha));
    }
    ui::Form *form = abreEDeixa();
    QCOMPARE(form->windowTitle(), u"Tarvelo - [Lista de Devedores] - Leitura interrompida"_s);
    QCOMPARE(rowsOf(form), cadastro::Rows{});
}

TARVELO_TEST_MAIN(TestRelaDevedores)
#include "tst_reladevedores.moc"
