// What right use leaves, by the program's own functions: the audit finds nothing in it.
#include "tests/tools/conferido.h"
#include "tests/tools/oficina.h"

#include "core/banco.h"
#include "core/financas.h"
#include "core/funcoes.h"
#include "core/razao.h"
#include "finance/pendencia.h"
#include "finance/recebimento.h"
#include "platform/dao/unit.h"
#include "stock/lancamento.h"

#include <QProcess>
#include <QRandomGenerator>

#include <array>

using namespace Qt::StringLiterals;
using conferido::audit;
using conferido::counted;
using core::Calculo;
using core::Operacao;
using core::Precisao;
using core::SaldoAnterior;

namespace
{

constexpr std::array postings{
    Calculo{SaldoAnterior::UltimaLinha, Precisao::Single}, Calculo{SaldoAnterior::UltimaLinha, Precisao::Double},
    Calculo{SaldoAnterior::BuscaOuZero, Precisao::Single}, Calculo{SaldoAnterior::BuscaOuZero, Precisao::Double},
    Calculo{SaldoAnterior::BuscaOuZero, Precisao::DoubleDoSaldo}};

QString day(int offset)
{
    return runtime::Format(runtime::DateAdd(u"d", offset, runtime::Today()), u"dd/mm/yyyy");
}

/// Works on a ledger at random as its windows do: postings of every width and date, rows changed and deleted, each of
/// these with a recalculation behind it.
class Clerk
{
public:
    Clerk(const core::Razao &ledger, QString owner, quint32 seed)
        : ledger_(ledger), owner_(std::move(owner)), random_(seed)
    {
    }

    void step()
    {
        const int what = random_.bounded(10);
        if (what < 7) {
            post();
        } else {
            change(what);
            core::RecalculaRazao(ledger_, owner_);
        }
    }

private:
    QString amount()
    {
        const int size = random_.bounded(4);
        const qint64 cents = size == 0 ? random_.bounded(100'000'000) : random_.bounded(100'000);
        return runtime::Format(static_cast<double>(cents) / 100, core::mascaraValor);
    }

    void post()
    {
        core::LancaNoRazao(ledger_,
                           {.dono = owner_,
                            .data = day(random_.bounded(-40, 40)),
                            .descricao = u"LANÇAMENTO"_s,
                            .valor = amount(),
                            .operacao = random_.bounded(3) == 0 ? Operacao::Saida : Operacao::Entrada},
                           postings[static_cast<size_t>(random_.bounded(static_cast<int>(postings.size())))]);
    }

    void change(int what)
    {
        const QString where = owner_.isEmpty() ? u"1=1"_s : u"CodCliente = "_s + owner_;
        const QString found =
            core::LocalizaCampo(u"Codigo"_s, ledger_.tabela.toString(),
                                where + u" ORDER BY Codigo"_s + (random_.bounded(2) == 0 ? u" DESC"_s : u""_s));
        if (found.isEmpty()) {
            return;
        }
        const QString one = u" WHERE Codigo = "_s + found;
        if (what == 7) {
            core::DBDados->Execute(u"DELETE * FROM "_s + ledger_.tabela + one);
        } else {
            core::DBDados->Execute(u"UPDATE "_s + ledger_.tabela + u" SET Entrada = Null, Saida = 12.34, Data = "_s +
                                   core::DataSQL(day(random_.bounded(-40, 40)), 1) + one);
        }
    }

    const core::Razao &ledger_;
    QString owner_;
    QRandomGenerator random_;
};

} // namespace

class TestConfere : public QObject
{
    Q_OBJECT

private slots:
    void aNewDatabase();
    void aDatabaseBeforeTheFirstLogin();
    void aDatabaseOfAnOlderProgram();
    void theSampleWorkshop_data();
    void theSampleWorkshop();
    void everyKindOfWorkWhileItIsDone();
    void ledgersWorkedOnAtRandom_data();
    void ledgersWorkedOnAtRandom();
    void aPostingWithAnOldDate();
    void postingsBehindARowOfTheFuture();
    void balancesOfSevenDigits();
    void theStockOfAPart();
    void aPendingOrderThatWasPaid();
    void paidInPart();
};

void TestConfere::aNewDatabase()
{
    const support::Program program;
    const confere::Relatorio report = audit();
    QCOMPARE(conferido::findings(report), QStringList());
    for (const confere::Resultado &result : report.resultados) {
        QVERIFY2(result.feita, qPrintable(result.nome));
    }
    QCOMPARE(counted(report, u"Integridade do arquivo"_s), 21);
    QCOMPARE(counted(report, u"Contadores"_s), 19); // all but the lists and the operators
    QVERIFY(report.nadaAchado());
}

void TestConfere::aDatabaseBeforeTheFirstLogin()
{
    const support::Program program;
    const QString file = program.path(u"novo.mdb"_s);
    {
        const auto database = dao::DBEngine::CreateDatabase(file, {});
        database->Execute(u"CREATE TABLE Senha (Codigo INTEGER, Nome TEXT(50))"_s);
    }
    const confere::Relatorio report = confere::Confere(file);
    QCOMPARE(conferido::findings(report), QStringList());
    QCOMPARE(counted(report, u"Saldos do Livro Caixa"_s), -1);
    QVERIFY(confere::Texto(report, false)
                .contains(u"- "_s + u"    Saldos do Livro Caixa: o arquivo ainda não tem estas tabelas\n"_s));
}

/// A column that an upgrade brings at the next start is no fault.
void TestConfere::aDatabaseOfAnOlderProgram()
{
    support::Program program;
    program.sql(u"DROP TABLE ContasReceber"_s);
    program.sql(
        u"CREATE TABLE ContasReceber (Codigo COUNTER, Data DATETIME, Descricao TEXT(100), Valor SINGLE, Vencimento "
        "DATETIME, Pago YESNO, DataPagto DATETIME)"_s);
    const confere::Relatorio report = audit();
    QCOMPARE(conferido::findings(report), QStringList());
    QCOMPARE(counted(report, u"Ordens das contas a receber"_s), -1);
    QCOMPARE(counted(report, u"Contas recebidas sem dia"_s), 0);
}

void TestConfere::theSampleWorkshop_data()
{
    QTest::addColumn<int>("customers");
    QTest::addColumn<quint64>("seed");
    QTest::newRow("small") << 50 << quint64{1};
    QTest::newRow("middle") << 300 << quint64{2};
    QTest::newRow("large") << 2000 << quint64{3};
}

void TestConfere::theSampleWorkshop()
{
    QFETCH(int, customers);
    QFETCH(quint64, seed);
    const support::Program program;
    amostra::Preenche({.clientes = customers, .semente = seed, .relogio = oficina::moment()}, {});
    const confere::Relatorio report = audit();
    QCOMPARE(conferido::findings(report), QStringList());
    QCOMPARE(counted(report, u"Clientes dos veículos"_s), oficina::count(program, u"Veiculos"_s));
    QCOMPARE(counted(report, u"Saldos do estoque"_s), oficina::count(program, u"Estoque"_s));
    QCOMPARE(counted(report, u"Saldos do Livro Caixa"_s), oficina::count(program, u"Caixa"_s));
}

/// A second program opens, closes, settles, alters, deletes and converts without end, posts with old dates and
/// recalculates: at no moment anything is to be found, and the audit stands in nobody's way.
void TestConfere::everyKindOfWorkWhileItIsDone()
{
    support::Program program;
    program.customer(u"MARIA"_s);
    program.vehicle(1, u"ABC1234"_s);
    program.part(u"FILTRO"_s, u"P"_s, u"30,00"_s, true);
    program.part(u"REVISÃO"_s, u"S"_s, u"30,00"_s, false);
    program.part(u"VELA"_s, u"P"_s, u"20,00"_s, true);
    program.sql(u"INSERT INTO Fornecedores (Nome) VALUES ('DISTRIBUIDORA')"_s);
    core::LancaNoRazao(core::razaoCaixa, {.descricao = u"ABERTURA"_s, .valor = 0.1F});
    dao::DBEngine::SetLockWait(std::chrono::seconds(10)); // the other program writes without a pause
    QProcess clerk;
    clerk.start(QStringLiteral(OPERADOR), {program.path(), u"0"_s});
    QVERIFY(clerk.waitForReadyRead(60000));
    for (int audits = 0; audits < 6 || oficina::count(program, u"Caixa"_s) <= 20; ++audits) {
        NOTHING_FOUND();
        QCOMPARE(clerk.state(), QProcess::Running);
        clerk.waitForReadyRead(50);
    }
    clerk.kill();
    QVERIFY(clerk.waitForFinished(60000));
    QCOMPARE(oficina::count(program, u"Clientes"_s), 1); // reading takes an interrupted write back
    const confere::Relatorio report = audit();
    QCOMPARE(conferido::findings(report), QStringList());
    QVERIFY(counted(report, u"Saldos do Livro Caixa"_s) > 20);
    QVERIFY(counted(report, u"Saldos do estoque"_s) > 20);
    QVERIFY(counted(report, u"Ordens fechadas sem itens"_s) > 5);
}

void TestConfere::ledgersWorkedOnAtRandom_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 6; ++seed) {
        QTest::addRow("seed %u", seed) << seed;
    }
}

void TestConfere::ledgersWorkedOnAtRandom()
{
    QFETCH(quint32, seed);
    support::Program program;
    const QString maria = QString::number(program.customer(u"MARIA"_s));
    const QString jose = QString::number(program.customer(u"JOSÉ"_s));
    std::array clerks{Clerk(core::razaoCaixa, {}, seed), Clerk(core::razaoContaFiado, maria, seed + 100),
                      Clerk(core::razaoContaFiado, jose, seed + 200)};
    for (int round = 0; round < 10; ++round) {
        {
            const dao::Unit unit;
            for (int step = 0; step < 20; ++step) {
                for (Clerk &clerk : clerks) {
                    clerk.step();
                }
            }
        }
        NOTHING_FOUND();
    }
}

void TestConfere::aPostingWithAnOldDate()
{
    const support::Program program;
    for (const int offset : {-3, -2, -10}) {
        core::LancaNoRazao(core::razaoCaixa, {.data = day(offset), .descricao = u"O.S. 0001"_s, .valor = u"10,00"_s});
        NOTHING_FOUND();
    }
    core::RecalculaRazao(core::razaoCaixa);
    NOTHING_FOUND();
    core::LancaNoRazao(core::razaoCaixa, {.data = day(-20), .descricao = u"O.S. 0002"_s, .valor = u"10,00"_s});
    NOTHING_FOUND();
}

/// After the recalculation the newest row lies before the one of the future and knows nothing of it, nor do those that
/// are posted behind it.
void TestConfere::postingsBehindARowOfTheFuture()
{
    const support::Program program;
    const auto post = [](int offset, const QString &amount) {
        core::LancaNoRazao(core::razaoCaixa, {.data = day(offset), .descricao = u"LINHA"_s, .valor = amount});
    };
    post(0, u"100,00"_s);
    post(30, u"7,00"_s);
    post(0, u"20,00"_s);
    core::RecalculaRazao(core::razaoCaixa);
    post(0, u"3,00"_s);
    post(-5, u"4,00"_s);
    QCOMPARE(core::UltimoSaldo(core::razaoCaixa), 127.0F);
    NOTHING_FOUND();
}

void TestConfere::balancesOfSevenDigits()
{
    const support::Program program;
    const auto post = [](const QString &amount, const Calculo &calculation) {
        core::LancaNoRazao(core::razaoCaixa, {.descricao = u"LINHA"_s, .valor = amount}, calculation);
    };
    post(u"1.234.567,89"_s, {});
    post(u"0,30"_s, {SaldoAnterior::Busca, Precisao::Single});
    post(u"12.345.678,90"_s, {SaldoAnterior::Busca, Precisao::Double});
    post(u"0,10"_s, {SaldoAnterior::Busca, Precisao::DoubleDoSaldo});
    NOTHING_FOUND();
}

void TestConfere::theStockOfAPart()
{
    support::Program program;
    const QString part = QString::number(program.part(u"FILTRO"_s, u"P"_s, u"30,00"_s, true));
    const auto move = [&part](const QString &amount, Operacao operation) {
        core::LancaNoRazao(
            core::razaoEstoque,
            {.dono = part, .data = day(-9), .descricao = u"AJUSTE"_s, .valor = amount, .operacao = operation},
            {SaldoAnterior::Busca});
    };
    for (int i = 0; i < 5; ++i) {
        move(u"0,1"_s, Operacao::Entrada);
    }
    move(u"7"_s, Operacao::Conferencia);
    move(u"9,125"_s, Operacao::Saida); // below nothing
    NOTHING_FOUND();
    stock::ExcluiUltimo(part);
    NOTHING_FOUND();
    move(u"1"_s, Operacao::Entrada);
    NOTHING_FOUND();
    QCOMPARE(core::UltimoSaldo(core::razaoEstoque, part), 8.0F);
}

void TestConfere::aPendingOrderThatWasPaid()
{
    support::Program program;
    program.customer(u"MARIA"_s);
    program.vehicle(1, u"ABC1234"_s);
    program.sql(u"INSERT INTO OrdemServico (CodCliente, CodVeiculo, DataIn, DataOut, EmAberto, Pago, Valor) VALUES "
                "(1, 1, #05/10/2024#, #05/11/2024#, False, False, 50)"_s);
    program.sql(
        u"INSERT INTO OSPecas (CodOS, CodPeca, Quantidade, Descricao, ValorUnit, PSA) VALUES (1, 0, 1, 'X', 50, "
        "'A')"_s);
    core::IncluiFiado({.codOs = u"1"_s, .codCliente = u"1"_s, .valor = u"50,00"_s, .vencimento = u"20/05/2024"_s});
    QCOMPARE(finance::AlternaPendencia(u"1"_s, u"1"_s), finance::Pendencia::Completa);
    QVERIFY(std::get<bool>(program.value(u"SELECT Pago FROM OrdemServico"_s)));
    QVERIFY(runtime::IsNull(program.value(u"SELECT DataPagto FROM OrdemServico"_s)));
    NOTHING_FOUND();
}

void TestConfere::paidInPart()
{
    const support::Program program;
    core::IncluiConta(core::TabelaContas::Receber,
                      {.descricao = u"AVULSA"_s, .valor = u"100,00"_s, .vencimento = u"20/05/2024"_s});
    finance::Recebe({.codigo = u"1"_s,
                     .data = u"15/05/2024"_s,
                     .descricao = u"AVULSA"_s,
                     .valor = u"100,00"_s,
                     .livro = &core::razaoBanco2,
                     .codOs = u"0000"_s,
                     .parcial = finance::Recebimento::Parcial{
                         .pago = u"33,33"_s, .resto = u"66,67"_s, .vencimento = u"20/06/2024"_s}});
    const confere::Relatorio report = audit();
    QCOMPARE(conferido::findings(report), QStringList());
    QCOMPARE(counted(report, u"Contas recebidas sem dia"_s), 1);
    QCOMPARE(counted(report, u"Contas a receber com dia"_s), 1);
    QCOMPARE(counted(report, u"Saldos do Banco 02"_s), 1);
}

TARVELO_TEST_MAIN(TestConfere)
#include "tst_confere.moc"
