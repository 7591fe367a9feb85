#include "reports/pecasvendidas.h"

#include "core/andamento.h"
#include "core/banco.h"
#include "core/funcoes.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/dao/unit.h"
#include "platform/runtime/runtime.h"
#include "support/cputime.h"
#include "support/errors.h"
#include "support/otherprogram.h"
#include "support/program.h"

#include <QRandomGenerator>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace core;
using namespace runtime;
using reports::ItemVendido;
using reports::ItensContados;
using reports::ItensVendidos;

namespace
{

const QString maio = DataSQL(u"01/05/2024"_s, 4, u"31/05/2024"_s);

struct Linha {
    int codPeca;
    float quantidade;
    float unit;
    QString psa = u"P"_s;
    QString descricao = {};
};

QString descricaoDe(const Linha &linha)
{
    return linha.descricao.isEmpty() ? u"ITEM %1"_s.arg(linha.codPeca) : linha.descricao;
}

qint32 ordem(const QString &data, const std::vector<Linha> &linhas)
{
    const qint32 codigo = AcrescentaLinha(u"OrdemServico"_s, [&](dao::Recordset &nova) { nova[u"DataIn"] = data; });
    for (const Linha &linha : linhas) {
        AcrescentaLinha(u"OSPecas"_s, [&](dao::Recordset &nova) {
            nova[u"CodOS"] = codigo;
            nova[u"CodPeca"] = linha.codPeca;
            nova[u"Quantidade"] = linha.quantidade;
            nova[u"ValorUnit"] = linha.unit;
            nova[u"Descricao"] = descricaoDe(linha);
            nova[u"PSA"] = linha.psa;
        });
    }
    return codigo;
}

QStringList avisos;

std::vector<ItemVendido> itens(ItensContados quais, const QString &periodo = maio, int linhasPorOlhada = 1)
{
    Andamento obra(
        u"Somando"_s, [] { return 0; }, linhasPorOlhada, Esc::Deixa);
    return ItensVendidos(periodo, quais, obra, [](const QString &texto) { avisos << texto; });
}

/// An item as a text, with all digits of its floats.
QString texto(const ItemVendido &item)
{
    return u"%1 %2 | %3 x %4 = %5"_s.arg(item.codPeca)
        .arg(item.descricao, support::exact(item.quantidade), support::exact(item.unit), support::exact(item.total));
}

QStringList textos(const std::vector<ItemVendido> &itens)
{
    QStringList todos;
    std::ranges::transform(itens, std::back_inserter(todos), texto);
    return todos;
}

bool temTabela()
{
    return std::ranges::any_of(DBDados->TableDefs(), [](const dao::TableDef &tabela) {
        return tabela.name().compare(u"RelaPecas", Qt::CaseInsensitive) == 0;
    });
}

// --- the same report by its statements alone

void somaNaTabela(const dao::Recordset &linha)
{
    auto presente = DBDados->OpenRecordset(u"SELECT * FROM Conferencia WHERE CodPeca = "_s + CStr(linha.value(0)));
    const bool nova = presente.Eof();
    if (nova) {
        presente.AddNew();
        presente[u"CodPeca"] = linha.value(0);
        presente[u"Descricao"] = linha.value(1);
        presente[u"Quantidade"] = linha.value(2);
        presente[u"Unit"] = linha.value(3);
        presente[u"Total"] = linha.value(4);
    } else {
        presente.Edit();
        presente[u"Quantidade"] = CSng(presente.value(u"Quantidade")) + CSng(linha.value(2));
        presente[u"Total"] = CSng(presente.value(u"Total")) + CSng(linha.value(4));
    }
    presente.Update();
}

QStringList porComandos(const QString &condicao)
{
    const dao::Unit umaVez;
    DBDados->Execute(u"CREATE TABLE Conferencia (CodPeca LONG, Descricao TEXT(200), Quantidade SINGLE, Unit SINGLE, "
                     "Total SINGLE)"_s);
    auto ordens = DBDados->OpenRecordset(u"select codigo FROM OrdemServico WHERE DataIN BETWEEN "_s + maio);
    for (; !ordens.Eof(); ordens.MoveNext()) {
        auto linha = DBDados->OpenRecordset(
            u"SELECT CodPeca, descricao, quantidade, ValorUnit, ValorUnit * Quantidade as Total FROM OsPecas "
            "WHERE CodOS = "_s +
            CStr(ordens.value(0)) + condicao);
        for (; !linha.Eof(); linha.MoveNext()) {
            somaNaTabela(linha);
        }
    }
    QStringList todos;
    auto linha = DBDados->OpenRecordset(u"select * from Conferencia order by quantidade desc"_s);
    for (; !linha.Eof(); linha.MoveNext()) {
        todos << texto({.codPeca = CLng(linha.value(0)),
                        .descricao = CStr(linha.value(1)),
                        .quantidade = CSng(linha.value(2)),
                        .unit = CSng(linha.value(3)),
                        .total = CSng(linha.value(4))});
    }
    DBDados->Execute(u"DROP TABLE Conferencia"_s);
    return todos;
}

void ordensAoAcaso(quint32 semente)
{
    const dao::Unit umaVez;
    QRandomGenerator acaso(semente);
    const QStringList letras{u"P"_s, u"P"_s, u"S"_s, u"s"_s, u"A"_s, u"K"_s, u"Z"_s};
    for (int numero = 0; numero < 40; ++numero) {
        std::vector<Linha> linhas;
        for (quint32 linha = acaso.bounded(5U); linha > 0; --linha) {
            linhas.push_back({.codPeca = acaso.bounded(1, 9),
                              .quantidade = static_cast<float>(acaso.bounded(1, 90'000)) / 1000,
                              .unit = static_cast<float>(acaso.bounded(1, 900'000)) / 100,
                              .psa = letras.at(acaso.bounded(letras.size()))});
        }
        ordem(u"%1/05/2024"_s.arg(acaso.bounded(1, 40) % 31 + 1, 2, 10, QChar(u'0')), linhas);
        ordem(u"10/04/2024"_s, linhas); // outside the period
    }
}

} // namespace

class TestPecasVendidas : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void addsTheLinesOfEachCodeUp();
    void countsPartsOrServicesOrBoth();
    void todosCountsEveryServiceOnceForEachOrder();
    void isTheStatementsToTheLastBit_data();
    void isTheStatementsToTheLastBit();
    void addsInSinglePrecision();
    void whatSoldAlikeStaysAsItCameUp();
    void takesThePeriodAsItsLiteralsSay();
    void aValueNeverWrittenCountsAsNothing();
    void aLongDescriptionIsCut();
    void nothingSoldIsNoItem();
    void theScratchTableGoes();
    void oneThatAKilledProgramLeftIsMadeAnew();
    void theScratchTableGoesWhenASumFails();
    void isLeftInTheSum();
    void tellsWhereTheTableCantBeMade();
    void manyOrdersAreReadOnce();

private:
    std::unique_ptr<support::Program> programa_;
};

void TestPecasVendidas::init()
{
    avisos.clear();
    programa_ = std::make_unique<support::Program>();
}

void TestPecasVendidas::cleanup()
{
    QVERIFY(!temTabela());
    programa_.reset();
}

void TestPecasVendidas::addsTheLinesOfEachCodeUp()
{
    ordem(u"02/05/2024"_s, {{7, 1, 10.5F, u"P"_s, u"FILTRO"_s}, {8, 4, 2}});
    ordem(u"03/05/2024"_s, {{7, 2, 12, u"P"_s, u"FILTRO DE ÓLEO"_s}, {7, 2.5F, 10}});
    QCOMPARE(textos(itens(ItensContados::Pecas)),
             (QStringList{u"7 FILTRO | 5.5 x 10.5 = 59.5"_s, u"8 ITEM 8 | 4 x 2 = 8"_s}));
}

void TestPecasVendidas::countsPartsOrServicesOrBoth()
{
    ordem(u"02/05/2024"_s, {{1, 1, 10}, {2, 1, 20, u"S"_s}, {3, 5, 1, u"A"_s}, {4, 5, 1, u"K"_s}, {5, 5, 1, u"Z"_s}});
    QCOMPARE(textos(itens(ItensContados::Pecas)), QStringList{u"1 ITEM 1 | 1 x 10 = 10"_s});
    QCOMPARE(textos(itens(ItensContados::Servicos)), QStringList{u"2 ITEM 2 | 1 x 20 = 20"_s});
    QCOMPARE(textos(itens(ItensContados::Todos)),
             (QStringList{u"1 ITEM 1 | 1 x 10 = 10"_s, u"2 ITEM 2 | 1 x 20 = 20"_s}));
}

/// Of all orders there are, those outside the period as well.
void TestPecasVendidas::todosCountsEveryServiceOnceForEachOrder()
{
    ordem(u"02/05/2024"_s, {{1, 1, 10}, {2, 1, 20, u"S"_s}});
    ordem(u"03/05/2024"_s, {{1, 1, 10}});
    ordem(u"04/05/2024"_s, {});
    ordem(u"01/03/2024"_s, {{1, 7, 10}, {2, 2, 20, u"S"_s}, {3, 1, 5, u"S"_s}});
    QCOMPARE(textos(itens(ItensContados::Todos)), (QStringList{
                                                      u"2 ITEM 2 | 9 x 20 = 180"_s,
                                                      u"3 ITEM 3 | 3 x 5 = 15"_s,
                                                      u"1 ITEM 1 | 2 x 10 = 20"_s,
                                                  }));
    QCOMPARE(textos(itens(ItensContados::Servicos)), QStringList{u"2 ITEM 2 | 1 x 20 = 20"_s});
}

void TestPecasVendidas::isTheStatementsToTheLastBit_data()
{
    QTest::addColumn<quint32>("semente");
    for (quint32 semente = 1; semente <= 4; ++semente) {
        QTest::newRow(qPrintable(QString::number(semente))) << semente;
    }
}

void TestPecasVendidas::isTheStatementsToTheLastBit()
{
    QFETCH(quint32, semente);
    ordensAoAcaso(semente);
    const auto pecas = textos(itens(ItensContados::Pecas));
    QVERIFY(pecas.size() > 3);
    QCOMPARE(pecas, porComandos(u" AND PSA = 'P'"_s));
    QCOMPARE(textos(itens(ItensContados::Servicos)), porComandos(u" AND PSA = 'S'"_s));
    QCOMPARE(textos(itens(ItensContados::Todos)), porComandos(u" AND PSA = 'P' OR PSA = 'S'"_s));
}

void TestPecasVendidas::addsInSinglePrecision()
{
    ordem(u"02/05/2024"_s, {{1, 16'777'216, 0.1F}, {1, 1, 0.1F}, {1, 1, 0.1F}});
    const auto vendidos = itens(ItensContados::Pecas);
    QCOMPARE(support::exact(vendidos.front().quantidade), u"16777216"_s);
    float total = 16'777'216.0F * 0.1F;
    total += 0.1F;
    total += 0.1F;
    QCOMPARE(support::exact(vendidos.front().total), support::exact(total));
}

void TestPecasVendidas::whatSoldAlikeStaysAsItCameUp()
{
    ordem(u"02/05/2024"_s, {{9, 1, 1}, {3, 1, 1}, {5, 2, 1}});
    ordem(u"03/05/2024"_s, {{4, 1, 1}, {9, 1, 1}, {3, 1, 1}});
    QCOMPARE(textos(itens(ItensContados::Pecas)), (QStringList{
                                                      u"9 ITEM 9 | 2 x 1 = 2"_s,
                                                      u"3 ITEM 3 | 2 x 1 = 2"_s,
                                                      u"5 ITEM 5 | 2 x 1 = 2"_s,
                                                      u"4 ITEM 4 | 1 x 1 = 1"_s,
                                                  }));
}

/// The last day ends with its first moment.
void TestPecasVendidas::takesThePeriodAsItsLiteralsSay()
{
    ordem(u"30/04/2024 23:59:59"_s, {{1, 1, 1}});
    ordem(u"01/05/2024"_s, {{2, 1, 1}});
    ordem(u"31/05/2024"_s, {{3, 1, 1}});
    ordem(u"31/05/2024 08:00:00"_s, {{4, 1, 1}});
    QCOMPARE(textos(itens(ItensContados::Pecas)), (QStringList{u"2 ITEM 2 | 1 x 1 = 1"_s, u"3 ITEM 3 | 1 x 1 = 1"_s}));
}

void TestPecasVendidas::aValueNeverWrittenCountsAsNothing()
{
    const qint32 codigo = ordem(u"02/05/2024"_s, {{1, 2, 3}});
    programa_->sql(u"INSERT INTO OSPecas (CodOS, CodPeca, PSA) VALUES (%1, 1, 'P')"_s.arg(codigo));
    programa_->sql(u"INSERT INTO OSPecas (CodOS, Quantidade, PSA) VALUES (%1, 1, 'S')"_s.arg(codigo));
    QCOMPARE(textos(itens(ItensContados::Todos)), (QStringList{u"1 ITEM 1 | 2 x 3 = 6"_s, u"0  | 1 x 0 = 0"_s}));
}

void TestPecasVendidas::aLongDescriptionIsCut()
{
    ordem(u"02/05/2024"_s, {{1, 1, 1, u"P"_s, QString(255, u'X')}});
    QCOMPARE(itens(ItensContados::Pecas).front().descricao, QString(200, u'X'));
}

void TestPecasVendidas::nothingSoldIsNoItem()
{
    ordem(u"02/04/2024"_s, {{1, 1, 1}, {2, 1, 1, u"S"_s}});
    QVERIFY(itens(ItensContados::Pecas).empty());
    QVERIFY(itens(ItensContados::Todos).empty()); // no order asks for the services either
}

void TestPecasVendidas::theScratchTableGoes()
{
    ordem(u"02/05/2024"_s, {{1, 1, 1}});
    for (int vez = 0; vez < 2; ++vez) {
        QCOMPARE(itens(ItensContados::Todos).size(), 1U);
        QVERIFY(!temTabela());
    }
    QVERIFY(itens(ItensContados::Servicos).empty());
    QVERIFY(!temTabela());
    QCOMPARE(avisos, QStringList());
}

void TestPecasVendidas::oneThatAKilledProgramLeftIsMadeAnew()
{
    programa_->sql(u"CREATE TABLE RelaPecas (CodPeca LONG, Descricao TEXT(10))"_s);
    programa_->sql(u"INSERT INTO RelaPecas (CodPeca, Descricao) VALUES (1, 'RESTO')"_s);
    ordem(u"02/05/2024"_s, {{1, 1, 1, u"P"_s, u"PASTILHA DE FREIO"_s}});
    QCOMPARE(textos(itens(ItensContados::Pecas)), QStringList{u"1 PASTILHA DE FREIO | 1 x 1 = 1"_s});
    QCOMPARE(avisos, QStringList());
}

void TestPecasVendidas::theScratchTableGoesWhenASumFails()
{
    ordem(u"02/05/2024"_s, {{1, 3e38F, 1}, {1, 3e38F, 1}});
    for (const ItensContados quais : {ItensContados::Pecas, ItensContados::Todos}) {
        QCOMPARE(support::errorOf([&] { itens(quais); }), 6);
        QVERIFY(!temTabela());
    }
}

/// What it holds then is what the orders so far come to.
void TestPecasVendidas::isLeftInTheSum()
{
    constexpr int ordens = 50;
    for (int numero = 0; numero < ordens; ++numero) {
        ordem(u"02/05/2024"_s, {{1, 1, 2}, {2, 1, 1, u"S"_s}});
    }
    const MostradorDeAndamento impaciente{.mostra = [](const QString &, int, int) {},
                                          .termina = [] {},
                                          .deixa = [] { return true; },
                                          .demora = std::chrono::milliseconds(0)};
    defineMostrador(impaciente);
    const auto todos = textos(itens(ItensContados::Todos, maio, 2 * ordens + 3)); // behind three orders
    defineMostrador(impaciente);
    const auto pecas = textos(itens(ItensContados::Pecas, maio, 7));
    defineMostrador({});
    QCOMPARE(todos, (QStringList{u"2 ITEM 2 | 150 x 1 = 150"_s, u"1 ITEM 1 | 3 x 2 = 6"_s}));
    QCOMPARE(pecas, QStringList{u"1 ITEM 1 | 7 x 2 = 14"_s});
}

void TestPecasVendidas::tellsWhereTheTableCantBeMade()
{
    ordem(u"02/05/2024"_s, {{1, 1, 1}});
    dao::DBEngine::SetLockWait(std::chrono::milliseconds(50));
    {
        support::OtherProgram outro(DBDados->path());
        QVERIFY(outro.reserve());
        QVERIFY(support::errorOf([] { itens(ItensContados::Pecas); }) != 0);
    }
    dao::DBEngine::SetLockWait(dao::DBEngine::longestLockWait);
    QCOMPARE(avisos.size(), 1);
    QVERIFY2(avisos.front().startsWith(u"Erro na Criação da Tabela RelaPecas\r\n"_s), qPrintable(avisos.front()));
}

/// "Todos" adds every service once for every order; the lines are read once all the same.
void TestPecasVendidas::manyOrdersAreReadOnce()
{
    constexpr int muitas = 1500;
    {
        const dao::Unit umaVez;
        for (int numero = 0; numero < muitas; ++numero) {
            ordem(u"02/05/2024"_s, {{1, 1, 1}, {2, 1, 1, u"S"_s}});
        }
    }
    const support::CpuTime relogio;
    const auto vendidos = itens(ItensContados::Todos);
    const qint64 demorou = relogio.milliseconds();
    QVERIFY2(demorou < 5000, qPrintable(QString::number(demorou))); // 2.25 million lines
    QCOMPARE(textos(vendidos), (QStringList{u"2 ITEM 2 | 2250000 x 1 = 2250000"_s, u"1 ITEM 1 | 1500 x 1 = 1500"_s}));
}

TARVELO_TEST_MAIN(TestPecasVendidas)
#include "tst_pecasvendidas.moc"
