#include "core/andamento.h"

#include "core/banco.h"
#include "core/modulo.h"
#include "core/razao.h"
#include "platform/dao/database.h"
#include "platform/dao/unit.h"
#include "support/program.h"

#include <QElapsedTimer>
#include <QTest>

#include <stdexcept>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace
{

constexpr int linhas = 1000;

void encheCaixa()
{
    const dao::Unit lote;
    for (int linha = 0; linha < linhas; ++linha) {
        core::AcrescentaLinha(u"Caixa"_s, [&](dao::Recordset &nova) {
            nova[u"Data"] = u"15/03/2024"_s;
            nova[u"Entrada"] = 1;
        });
    }
}

} // namespace

class TestAndamento : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void showsHowFarAWorkIsAndItsEnd();
    void looksEverySoManyThings();
    void aShortWorkShowsNothing();
    void isNotShownMoreOftenThanTheEyeFollows();
    void asksForTheTotalOnlyWhereItIsShown();
    void endsWhatItShowedWhenItFails();
    void aWorkInsideAnotherIsPartOfIt();
    void isDoneUnseenWithoutAnyoneToShowIt();
    void recalculatingALedgerShows();

private:
    void mostra(std::chrono::milliseconds demora);

    QStringList visto_;
};

void TestAndamento::mostra(std::chrono::milliseconds demora)
{
    core::defineMostrador({.mostra = [this](const QString &obra, int feitos,
                                            int total) { visto_ << u"%1 %2/%3"_s.arg(obra).arg(feitos).arg(total); },
                           .termina = [this] { visto_ << u"fim"_s; },
                           .demora = demora});
}

void TestAndamento::init()
{
    visto_.clear();
    mostra(0ms);
}

void TestAndamento::cleanup()
{
    core::defineMostrador({});
}

void TestAndamento::showsHowFarAWorkIsAndItsEnd()
{
    {
        core::Andamento obra(
            u"Contando"_s, [] { return 3; }, 1);
        obra.avanca();
        QTest::qWait(150);
        obra.avanca(2);
    }
    QCOMPARE(visto_, QStringList({u"Contando 1/3"_s, u"Contando 3/3"_s, u"fim"_s}));
}

void TestAndamento::looksEverySoManyThings()
{
    core::Andamento obra(
        u"Contando"_s, [] { return 1000; }, 10);
    for (int feito = 0; feito < 9; ++feito) {
        obra.avanca();
    }
    QCOMPARE(visto_, QStringList());
    obra.avanca();
    QCOMPARE(visto_, QStringList(u"Contando 10/1000"_s));
}

void TestAndamento::aShortWorkShowsNothing()
{
    mostra(1min);
    {
        core::Andamento obra(
            u"Contando"_s, [] { return 2; }, 1);
        obra.avanca();
        obra.avanca();
    }
    QCOMPARE(visto_, QStringList());
}

void TestAndamento::isNotShownMoreOftenThanTheEyeFollows()
{
    QElapsedTimer relogio;
    relogio.start();
    core::Andamento obra(
        u"Contando"_s, [] { return 0; }, 1);
    while (visto_.size() < 5) { // at once, and then a tenth of a second each
        obra.avanca();
    }
    QVERIFY2(relogio.elapsed() >= 350, qPrintable(QString::number(relogio.elapsed())));
}

void TestAndamento::asksForTheTotalOnlyWhereItIsShown()
{
    int perguntas = 0;
    const auto total = [&] { return ++perguntas; };
    {
        mostra(1min);
        core::Andamento curta(u"Contando"_s, total, 1);
        curta.avanca();
    }
    QCOMPARE(perguntas, 0);
    mostra(0ms);
    core::Andamento longa(u"Contando"_s, total, 1);
    longa.avanca();
    QTest::qWait(150);
    longa.avanca();
    QCOMPARE(visto_, QStringList({u"Contando 1/1"_s, u"Contando 2/1"_s}));
}

void TestAndamento::endsWhatItShowedWhenItFails()
{
    const auto falha = [] {
        core::Andamento obra(
            u"Contando"_s, [] { return 2; }, 1);
        obra.avanca();
        throw std::runtime_error("on the way");
    };
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, falha());
    QCOMPARE(visto_, QStringList({u"Contando 1/2"_s, u"fim"_s}));
}

void TestAndamento::aWorkInsideAnotherIsPartOfIt()
{
    core::Andamento fora(
        u"Imprimindo"_s, [] { return 9; }, 1);
    {
        core::Andamento dentro(
            u"Contando"_s, [] { return 2; }, 1);
        dentro.avanca();
    }
    QCOMPARE(visto_, QStringList());
    fora.avanca();
    QCOMPARE(visto_, QStringList(u"Imprimindo 1/9"_s));
}

void TestAndamento::isDoneUnseenWithoutAnyoneToShowIt()
{
    core::defineMostrador({});
    {
        core::Andamento obra(
            u"Contando"_s, [] { return 1; }, 1);
        obra.avanca();
    }
    mostra(0ms);
    core::Andamento seguinte(
        u"Contando"_s, [] { return 1; }, 1);
    seguinte.avanca();
    QCOMPARE(visto_, QStringList(u"Contando 1/1"_s));
}

/// Of one owner's ledger, only his rows count.
void TestAndamento::recalculatingALedgerShows()
{
    const support::Program programa;
    encheCaixa();
    core::RecalculaRazao(core::razaoCaixa);
    QCOMPARE(visto_.first(), u"Recalculando os saldos 256/1000"_s);
    QCOMPARE(visto_.last(), u"fim"_s);

    visto_.clear();
    core::DBDados->Execute(u"INSERT INTO ContaFiado (CodCliente, Entrada) SELECT 7, Entrada FROM Caixa"_s);
    core::DBDados->Execute(u"INSERT INTO ContaFiado (CodCliente, Entrada) SELECT 8, Entrada FROM Caixa"_s);
    core::RecalculaRazao(core::razaoContaFiado, u"8"_s);
    QCOMPARE(visto_.first(), u"Recalculando os saldos 256/1000"_s);
    QCOMPARE(visto_.last(), u"fim"_s);
}

TARVELO_TEST_MAIN(TestAndamento)
#include "tst_andamento.moc"
