#include "core/modos.h"
#include "core/modulo.h"
#include "papel.h"
#include "platform/runtime/runtime.h"
#include "reports/reports.h"

#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using cadastro::rowsOf;
using papel::impresso;
using support::click;

/// The customers whose birthday is in the month. The clock stands in May 2024.
class TestRelaAniversarios : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { reports::registerForms(); }
    void init();
    void cleanup() { programa_.reset(); }

    void listsTheBirthdaysOfTheMonth();
    void theMonthIsThatOfTheClock_data();
    void theMonthIsThatOfTheClock();
    void nobodyHasABirthday();
    void printsThem();
    void sheetsAndPreview();
    void aHeaderClickSorts();
    void aRowOpensNothing();

private:
    void cliente(const QString &nome, const QString &nascimento);

    std::unique_ptr<support::Program> programa_;
};

void TestRelaAniversarios::init()
{
    programa_ = std::make_unique<support::Program>();
    cliente(u"ZECA"_s, u"5/31/1980"_s);
    cliente(u"ANA"_s, u"5/1/2024"_s);
    cliente(u"DEZEMBRO"_s, u"12/5/1990"_s);
    programa_->customer(u"SEM DATA"_s);
}

void TestRelaAniversarios::cliente(const QString &nome, const QString &nascimento)
{
    const qint32 codigo = programa_->customer(nome);
    programa_->sql(u"UPDATE Clientes SET DataNascimento = #%1# WHERE Codigo = %2"_s.arg(nascimento).arg(codigo));
}

void TestRelaAniversarios::listsTheBirthdaysOfTheMonth()
{
    ui::Form *form = papel::abre(core::modoRelaAniversarios);
    QCOMPARE(form->windowTitle(), u"Tarvelo - [Aniversariantes de maio]"_s);
    QCOMPARE(cadastro::titlesOf(form), (QStringList{u"Código"_s, u"Nome Cliente"_s, u"Data Nasc."_s, u"Idade"_s}));
    QCOMPARE(rowsOf(form), (cadastro::Rows{
                               {u"0001"_s, u"ZECA"_s, u"31/05/1980"_s, u"44"_s},
                               {u"0002"_s, u"ANA"_s, u"01/05/2024"_s, u"0"_s},
                           }));
}

void TestRelaAniversarios::theMonthIsThatOfTheClock_data()
{
    QTest::addColumn<QDate>("hoje");
    QTest::addColumn<QString>("mes");
    QTest::addColumn<QStringList>("linha");
    QTest::newRow("two digits") << QDate(2025, 12, 31) << u"dezembro"_s
                                << QStringList{u"0003"_s, u"DEZEMBRO"_s, u"05/12/1990"_s, u"35"_s};
    QTest::newRow("nobody, though its digit stands in another month")
        << QDate(2025, 1, 1) << u"janeiro"_s
        << QStringList{QString(), u"Registro não Localizado"_s, QString(), QString()};
}

void TestRelaAniversarios::theMonthIsThatOfTheClock()
{
    QFETCH(QDate, hoje);
    QFETCH(QString, mes);
    QFETCH(QStringList, linha);
    runtime::setClock(runtime::fromDateTime(QDateTime(hoje, QTime(8, 0))));
    ui::Form *form = papel::abre(core::modoRelaAniversarios);
    QCOMPARE(form->windowTitle(), u"Tarvelo - [Aniversariantes de %1]"_s.arg(mes));
    QCOMPARE(rowsOf(form), cadastro::Rows{linha});
}

void TestRelaAniversarios::nobodyHasABirthday()
{
    programa_->sql(u"DELETE * FROM Clientes"_s);
    ui::Form *form = papel::abre(core::modoRelaAniversarios);
    QCOMPARE(rowsOf(form), (cadastro::Rows{{QString(), u"Registro não Localizado"_s, QString(), QString()}}));
}

void TestRelaAniversarios::printsThem()
{
    click(papel::abre(core::modoRelaAniversarios), u"btnPrint"_s);
    QCOMPARE(impresso(), (std::vector<QStringList>{{
                             u"         ANIVERSARIANTES DO MÊS"_s,
                             u"                                             Tarvelo"_s,
                             u"Data.............: 15/05/2024"_s,
                             u"Aniv. do mês de..: maio"_s,
                             u"Nº de Registros..: 2"_s,
                             u"Exibindo.....: de: 1 à 2"_s,
                             u"COD.CLI - NOME CLIENTE                                       - DATA NASC. - IDADE"_s,
                             u"0001      ZECA                                                 31/05/1980   44"_s,
                             u"0002      ANA                                                  01/05/2024   0"_s,
                         }}));
}

void TestRelaAniversarios::sheetsAndPreview()
{
    for (int numero = 3; numero <= 101; ++numero) {
        cliente(u"CLIENTE %1"_s.arg(numero), u"5/%1/1990"_s.arg(numero % 31 + 1));
    }
    ui::Form *form = papel::abre(core::modoRelaAniversarios);
    click(form, u"btnPrint"_s);
    const auto folhas = impresso();
    QCOMPARE(folhas.size(), 3U);
    QVERIFY(folhas[1].at(7).contains(u"CLIENTE 51 "_s));
    QCOMPARE(folhas[2].at(5), u"Exibindo.....: de: 101 à 101"_s);
    QCOMPARE(folhas[2].size(), 8);
    click(form, u"btnPrevisualizar"_s);
    QCOMPARE(papel::previsto(), folhas);
}

void TestRelaAniversarios::aHeaderClickSorts()
{
    ui::Form *form = papel::abre(core::modoRelaAniversarios);
    cadastro::clickHeader(form, 1);
    QCOMPARE(cadastro::columnOf(form, 1), (QStringList{u"ANA"_s, u"ZECA"_s}));
}

void TestRelaAniversarios::aRowOpensNothing()
{
    ui::Form *form = papel::abre(core::modoRelaAniversarios);
    papel::clicaDuasVezes(form, 0);
    QCoreApplication::processEvents();
    QCOMPARE(core::ModoChamada, qint16{core::modoRelaAniversarios});
}

TARVELO_TEST_MAIN(TestRelaAniversarios)
#include "tst_relaaniversarios.moc"
