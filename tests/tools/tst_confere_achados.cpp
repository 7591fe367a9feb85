// Every kind of damage, planted by hand in a small workshop: what the audit finds, to the word and the number.
#include "tests/tools/conferido.h"

#include "core/financas.h"
#include "core/razao.h"
#include "platform/runtime/runtime.h"
#include "support/otherprogram.h"
#include "tools/confere/razao.h"

#include <QFile>

using namespace Qt::StringLiterals;
using conferido::findings;
using core::Operacao;

/// Each case begins with one customer, vehicle, part, closed order, estimate, note, four rows of the cash book and one
/// of every other ledger, in which nothing is to be found.
class TestConfereAchados : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { program_.reset(); }

    void balancesThatDoNotFollow_data();
    void balancesThatDoNotFollow();
    void documentsWithoutLines_data();
    void documentsWithoutLines();
    void rowsThatReferToNothing_data();
    void rowsThatReferToNothing();
    void paymentsAndTheirDays_data();
    void paymentsAndTheirDays();
    void codesAndCounters_data();
    void codesAndCounters();
    void codesThatNoProgramWrites_data();
    void codesThatNoProgramWrites();
    void aCounterBehindItsRows();
    void aBalanceIsWrongByDateAndByCode();
    void aLedgerOfTwoHundredThousandRows();
    void aDamagedPageDoesNotEndTheAudit();
    void aCheckThatStopsIsAnError();
    void aDayThatIsNoneStopsNoLedger();
    void tablesThatAreGoneAreMissed();
    void tablesOfSomebodyElseStopNoCheck();
    void whatIsNotKeptIsCounted();

private:
    void columns() const
    {
        QTest::addColumn<QStringList>("statements");
        QTest::addColumn<QStringList>("expected");
    }
    void plantAndCompare()
    {
        QFETCH(QStringList, statements);
        for (const QString &statement : statements) {
            program_->sql(statement);
        }
        QTEST(findings(), "expected");
    }
    static void row(const char *name, const QStringList &statements, const QStringList &expected)
    {
        QTest::newRow(name) << statements << expected;
    }

    std::unique_ptr<support::Program> program_;
};

void TestConfereAchados::init()
{
    program_ = std::make_unique<support::Program>();
    program_->originBook(); // empty
    program_->customer(u"MARIA"_s);
    program_->vehicle(1, u"ABC1234"_s);
    program_->part(u"FILTRO"_s, u"P"_s, u"30,00"_s, true);
    for (const QString &statement :
         {u"INSERT INTO Fornecedores (Nome) VALUES ('DISTRIBUIDORA')"_s,
          u"INSERT INTO OrdemServico (CodCliente, CodVeiculo, DataIn, DataOut, EmAberto, Pago, DataPagto) VALUES (1, "
          u"1, "
          "#05/10/2024#, #05/11/2024#, False, True, #05/11/2024#)"_s,
          u"INSERT INTO OSPecas (CodOS, CodPeca, Quantidade) VALUES (1, 1, 2)"_s,
          u"INSERT INTO Orcamento (CodCliente) VALUES (1)"_s,
          u"INSERT INTO OrcaPecas (CodOrca, CodPeca) VALUES (1, 1)"_s,
          u"INSERT INTO NotasEntradas (CodForn, Pago) VALUES (1, False)"_s,
          u"INSERT INTO NotasPecas (CodNota, CodPeca) VALUES (1, 1)"_s,
          u"INSERT INTO Fiados (CodOs, CodCliente) VALUES (1, 1)"_s, u"INSERT INTO Cheques (CodOs) VALUES (1)"_s}) {
        program_->sql(statement);
    }
    for (const auto table : {core::TabelaContas::Receber, core::TabelaContas::Pagar}) {
        core::IncluiConta(table, {.descricao = u"CONTA"_s, .valor = u"10,00"_s, .vencimento = u"20/05/2024"_s});
    }
    const auto post = [](const core::Razao &ledger, const QString &amount, Operacao operation = Operacao::Entrada) {
        core::LancaNoRazao(ledger, {.dono = u"1"_s, .descricao = u"LINHA"_s, .valor = amount, .operacao = operation});
    };
    post(core::razaoCaixa, u"100,00"_s);
    post(core::razaoCaixa, u"30,00"_s, Operacao::Saida);
    post(core::razaoCaixa, u"50,00"_s);
    post(core::razaoCaixa, u"5,00"_s);
    post(core::razaoBanco1, u"1.000,00"_s);
    post(core::razaoBanco2, u"2.000,00"_s);
    post(core::razaoContaFiado, u"40,00"_s);
    NOTHING_FOUND();
}

void TestConfereAchados::balancesThatDoNotFollow_data()
{
    columns();
    const QString cash = u"Saldos do Livro Caixa: Caixa, código "_s;
    row("a balance altered", {u"UPDATE Caixa SET Saldo = 80 WHERE Codigo = 2"_s},
        {cash + u"0002 de 15/05/2024 tem o saldo 80,00, mas 100,00 (código 0001) com a saída de 30,00 dá 70,00."_s});
    row("by a cent", {u"UPDATE Caixa SET Saldo = 120.01 WHERE Codigo = 3"_s},
        {cash + u"0003 de 15/05/2024 tem o saldo 120,01, mas 70,00 (código 0002) com a entrada de 50,00 dá 120,00."_s});
    row("by less than a cent", {u"UPDATE Caixa SET Saldo = 120.00012 WHERE Codigo = 3"_s},
        {cash +
         u"0003 de 15/05/2024 tem o saldo 120,000122, mas 70,00 (código 0002) com a entrada de 50,00 dá 120."_s});
    row("two balances altered apart", {u"UPDATE Caixa SET Saldo = 1 WHERE Codigo = 1 OR Codigo = 3"_s},
        {cash + u"0001 de 15/05/2024 tem o saldo 1,00, mas a primeira linha, com a entrada de 100,00, dá 100,00."_s,
         cash + u"0003 de 15/05/2024 tem o saldo 1,00, mas 70,00 (código 0002) com a entrada de 50,00 dá 120,00."_s});
    row("the last balance", {u"UPDATE Caixa SET Saldo = 0 WHERE Codigo = 4"_s},
        {cash + u"0004 de 15/05/2024 tem o saldo 0,00, mas 120,00 (código 0003) com a entrada de 5,00 dá 125,00."_s});
    row("an amount altered", {u"UPDATE Caixa SET Entrada = 60 WHERE Codigo = 3"_s},
        {cash + u"0003 de 15/05/2024 tem o saldo 120,00, mas 70,00 (código 0002) com a entrada de 60,00 dá 130,00."_s});
    row("a side changed", {u"UPDATE Caixa SET Entrada = Null, Saida = 5 WHERE Codigo = 4"_s},
        {cash + u"0004 de 15/05/2024 tem o saldo 125,00, mas 120,00 (código 0003) com a saída de 5,00 dá 115,00."_s});
    row("a row lost", {u"DELETE * FROM Caixa WHERE Codigo = 3"_s},
        {cash + u"0004 de 15/05/2024 tem o saldo 125,00, mas 70,00 (código 0002) com a entrada de 5,00 dá 75,00."_s});
    row("a row added", {u"INSERT INTO Caixa (Data, Entrada, Saldo) VALUES (#05/15/2024#, 10, 10)"_s},
        {cash + u"0005 de 15/05/2024 tem o saldo 10,00, mas 125,00 (código 0004) com a entrada de 10,00 dá 135,00."_s});
    row("without a balance", {u"UPDATE Caixa SET Saldo = Null WHERE Codigo = 2"_s},
        {cash + u"0002 de 15/05/2024 não tem saldo; 100,00 (código 0001) com a saída de 30,00 dá 70,00."_s});
    row("neither side", {u"UPDATE Caixa SET Entrada = Null, Saldo = 120 WHERE Codigo = 4"_s},
        {cash + u"0004 de 15/05/2024 não tem Entrada nem Saída."_s});
    row("both sides", {u"UPDATE Caixa SET Saida = 1 WHERE Codigo = 1"_s},
        {cash + u"0001 de 15/05/2024 tem Entrada (100,00) e Saída (1,00); só pode ter uma das duas."_s});
    row("without a day", {u"UPDATE Caixa SET Data = Null, Saldo = 7 WHERE Codigo = 1"_s},
        {cash + u"0001 tem o saldo 7,00, mas a primeira linha, com a entrada de 100,00, dá 100,00."_s});
    row("first bank", {u"UPDATE Banco1 SET Saldo = 10000"_s},
        {u"Saldos do Banco 01: Banco1, código 0001 de 15/05/2024 tem o saldo 10.000,00, mas a primeira linha, com a "
         "entrada de 1.000,00, dá 1.000,00."_s});
    row("second bank", {u"UPDATE Banco2 SET Saldo = -2000"_s},
        {u"Saldos do Banco 02: Banco2, código 0001 de 15/05/2024 tem o saldo -2.000,00, mas a primeira linha, com a "
         "entrada de 2.000,00, dá 2.000,00."_s});
    row("a customer's account",
        {u"INSERT INTO ContaFiado (CodCliente, Data, Saida, Saldo) VALUES (1, #05/16/2024#, 15, 20)"_s},
        {u"Saldos das contas dos clientes: ContaFiado, código 0002 de 16/05/2024, cliente 0001, tem o saldo 20,00, mas "
         "40,00 (código 0001) com a saída de 15,00 dá 25,00."_s});
    const QString stock = u"Saldos do estoque: Estoque, código 0002 de 15/05/2024, peça 0001, tem o saldo "_s;
    const QString into = u"INSERT INTO Estoque (CodPeca, Data, Entrada, Saida, Estoque) VALUES (1, #05/15/2024#, "_s;
    row("stock that came", {into + u"5, Null, 6)"_s}, {stock + u"6, mas 0 (código 0001) com a entrada de 5 dá 5."_s});
    row("stock that went", {into + u"Null, 1.125, 1.125)"_s},
        {stock + u"1,125, mas 0 (código 0001) com a saída de 1,125 dá -1,125."_s});
    row("stock that was counted", {into + u"7, 7, 8)"_s}, {stock + u"8, mas a conferência contou 7."_s});
}

void TestConfereAchados::balancesThatDoNotFollow()
{
    plantAndCompare();
    QCOMPARE(conferido::audit().achados(confere::Nivel::Aviso), 0);
}

void TestConfereAchados::documentsWithoutLines_data()
{
    columns();
    row("a closed order", {u"DELETE * FROM OSPecas"_s},
        {u"Ordens fechadas sem itens: OrdemServico, código 0001 não tem nenhuma linha em OSPecas."_s});
    row("an open order", {u"INSERT INTO OrdemServico (CodCliente, EmAberto) VALUES (1, True)"_s},
        {u"aviso Ordens sem itens: OrdemServico, código 0002 não tem nenhuma linha em OSPecas."_s});
    row("an estimate", {u"DELETE * FROM OrcaPecas"_s},
        {u"aviso Orçamentos sem itens: Orcamento, código 0001 não tem nenhuma linha em OrcaPecas."_s});
    row("a note", {u"DELETE * FROM NotasPecas"_s},
        {u"Notas de entrada sem itens: NotasEntradas, código 0001 não tem nenhuma linha em NotasPecas."_s});
}

void TestConfereAchados::documentsWithoutLines()
{
    plantAndCompare();
}

void TestConfereAchados::rowsThatReferToNothing_data()
{
    columns();
    row("lines without their order", {u"DELETE * FROM OrdemServico"_s},
        {u"Itens de ordens e as suas ordens: OSPecas, código 0001 cita a ordem de serviço 0001, que não existe em "
         "OrdemServico."_s,
         u"aviso Ordens dos fiados: Fiados, código 0001 cita a ordem de serviço 0001, que não existe em OrdemServico."_s,
         u"aviso Ordens dos cheques: Cheques, código 0001 cita a ordem de serviço 0001, que não existe em "
         "OrdemServico."_s});
    row("a line without an order's number", {u"INSERT INTO OSPecas (CodOS, CodPeca) VALUES (0, 1)"_s},
        {u"Itens de ordens e as suas ordens: OSPecas, código 0002 não diz qual é a ordem de serviço (CodOS vazio)."_s});
    row("lines without their estimate", {u"DELETE * FROM Orcamento"_s},
        {u"Itens de orçamentos e os seus orçamentos: OrcaPecas, código 0001 cita o orçamento 0001, que não existe em "
         "Orcamento."_s});
    row("lines without their note", {u"DELETE * FROM NotasEntradas"_s},
        {u"Itens de notas e as suas notas: NotasPecas, código 0001 cita a nota de entrada 0001, que não existe em "
         "NotasEntradas."_s});
    row("a part that was deleted by the program", {u"DELETE * FROM Pecas"_s, u"DELETE * FROM Estoque"_s},
        {u"aviso Peças dos itens de ordens: OSPecas, código 0001 cita a peça 0001, que não existe em Pecas."_s,
         u"aviso Peças dos itens de orçamentos: OrcaPecas, código 0001 cita a peça 0001, que não existe em Pecas."_s,
         u"aviso Peças dos itens de notas: NotasPecas, código 0001 cita a peça 0001, que não existe em Pecas."_s});
    row("stock without its part",
        {u"DELETE * FROM Pecas"_s, u"DELETE * FROM OSPecas WHERE CodOS > 1"_s, u"UPDATE OSPecas SET CodPeca = 0"_s,
         u"UPDATE OrcaPecas SET CodPeca = 0"_s, u"UPDATE NotasPecas SET CodPeca = 0"_s},
        {u"aviso Linhas do estoque e as suas peças: Estoque, código 0001 cita a peça 0001, que não existe em Pecas."_s});
    row("a customer that was deleted", {u"DELETE * FROM Clientes"_s},
        {u"aviso Clientes dos veículos: Veiculos, código 0001 cita o cliente 0001, que não existe em Clientes."_s,
         u"aviso Clientes das ordens: OrdemServico, código 0001 cita o cliente 0001, que não existe em Clientes."_s,
         u"aviso Clientes dos orçamentos: Orcamento, código 0001 cita o cliente 0001, que não existe em Clientes."_s,
         u"aviso Clientes dos fiados: Fiados, código 0001 cita o cliente 0001, que não existe em Clientes."_s,
         u"aviso Clientes das contas: ContaFiado, código 0001 cita o cliente 0001, que não existe em Clientes."_s});
    row("a vehicle that was deleted", {u"DELETE * FROM Veiculos"_s},
        {u"aviso Veículos das ordens: OrdemServico, código 0001 cita o veículo 0001, que não existe em Veiculos."_s});
    row("a supplier that was deleted", {u"DELETE * FROM Fornecedores"_s},
        {u"aviso Fornecedores das notas: NotasEntradas, código 0001 cita o fornecedor 0001, que não existe em "
         "Fornecedores."_s});
    const auto order = [](const char *table, const QString &title) {
        const QString name = QString::fromLatin1(table);
        row(table, {u"UPDATE %1 SET CodOs = 77 WHERE Codigo = 1"_s.arg(name)},
            {u"aviso %1: %2, código 0001 cita a ordem de serviço 0077, que não existe em OrdemServico."_s.arg(title,
                                                                                                              name)});
    };
    order("Cheques", u"Ordens dos cheques"_s);
    order("ContasReceber", u"Ordens das contas a receber"_s);
    order("ContasPagar", u"Ordens das contas a pagar"_s);
    order("Caixa", u"Ordens do Livro Caixa"_s);
    order("Banco1", u"Ordens do Banco 01"_s);
    order("Banco2", u"Ordens do Banco 02"_s);
    row("nothing to refer to",
        {u"UPDATE Veiculos SET CodCliente = Null"_s, u"UPDATE Orcamento SET CodCliente = 0"_s,
         u"UPDATE Cheques SET CodOs = 0"_s, u"UPDATE Fiados SET CodOs = Null"_s},
        {});
}

void TestConfereAchados::rowsThatReferToNothing()
{
    plantAndCompare();
}

void TestConfereAchados::paymentsAndTheirDays_data()
{
    columns();
    row("received without a day", {u"UPDATE ContasReceber SET Pago = True"_s},
        {u"Contas recebidas sem dia: ContasReceber, código 0001 está paga e não tem o dia do pagamento."_s});
    row("to be received with a day", {u"UPDATE ContasReceber SET DataPagto = #05/15/2024#"_s},
        {u"Contas a receber com dia: ContasReceber, código 0001 está em aberto e tem o dia de pagamento 15/05/2024."_s});
    row("paid without a day", {u"UPDATE ContasPagar SET Pago = True"_s},
        {u"Contas pagas sem dia: ContasPagar, código 0001 está paga e não tem o dia do pagamento."_s});
    row("to be paid with a day", {u"UPDATE ContasPagar SET DataPagto = #05/15/2024#"_s},
        {u"Contas a pagar com dia: ContasPagar, código 0001 está em aberto e tem o dia de pagamento 15/05/2024."_s});
    row("a note", {u"UPDATE NotasEntradas SET Pago = True"_s},
        {u"aviso Notas de entrada pagas sem dia: NotasEntradas, código 0001 está paga e não tem o dia do pagamento."_s});
    row("an order", {u"UPDATE OrdemServico SET DataPagto = Null"_s, u"DELETE * FROM Fiados"_s},
        {u"aviso Ordens pagas sem dia: OrdemServico, código 0001 está paga e não tem o dia do pagamento."_s});
    row("an order on credit", {u"UPDATE OrdemServico SET DataPagto = Null"_s}, {});
    row("all settled", {u"UPDATE ContasPagar SET Pago = True, DataPagto = #05/15/2024#"_s}, {});
}

void TestConfereAchados::paymentsAndTheirDays()
{
    plantAndCompare();
}

void TestConfereAchados::codesAndCounters_data()
{
    columns();
    row("a code twice", {u"INSERT INTO Fornecedores (Codigo, Nome) VALUES (1, 'OUTRA')"_s},
        {u"Códigos: Fornecedores, código 0001 aparece em 2 linhas."_s});
    row("lines of a document to come", {u"INSERT INTO OrcaPecas (CodOrca) VALUES (9)"_s},
        {u"Itens de orçamentos e os seus orçamentos: OrcaPecas, código 0002 cita o orçamento 0009, que não existe em "
         "Orcamento."_s,
         u"Contadores: O próximo código de Orcamento é 0002, mas OrcaPecas já tem linhas até o código 0009, que "
         "passariam aos novos."_s});
    row("the debt of a customer to come",
        {u"INSERT INTO ContaFiado (CodCliente, Data, Entrada, Saldo) VALUES (2, #05/15/2024#, 5, 5)"_s},
        {u"aviso Clientes das contas: ContaFiado, código 0002 cita o cliente 0002, que não existe em Clientes."_s,
         u"Contadores: O próximo código de Clientes é 0002, mas ContaFiado já tem linhas até o código 0002, que "
         u"passariam "
         "aos novos."_s});
    row("numbers that were given and taken back",
        {u"INSERT INTO Orcamento (CodCliente) VALUES (1)"_s, u"INSERT INTO OrcaPecas (CodOrca) VALUES (2)"_s,
         u"DELETE * FROM Orcamento WHERE Codigo = 2"_s, u"DELETE * FROM OrcaPecas WHERE CodOrca = 2"_s},
        {});
}

void TestConfereAchados::codesAndCounters()
{
    plantAndCompare();
}

/// The program's own statements can't write these.
void TestConfereAchados::codesThatNoProgramWrites_data()
{
    QTest::addColumn<QByteArray>("statement");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const QByteArray &statement, const QString &expected) {
        QTest::newRow(name) << statement << expected;
    };
    const QString without = u"Códigos: Cheques tem linhas sem código, ou com um código que não é de 1 em diante: 1."_s;
    row("no code", "UPDATE Cheques SET Codigo = NULL", without);
    row("below one", "UPDATE Cheques SET Codigo = -5", without);
    row("text", "UPDATE Cheques SET Codigo = 'A1'", without);
    row("the last of all numbers", "UPDATE Cheques SET Codigo = 2147483647",
        u"Contadores: O contador de Cheques chegou ao fim (2147483647): não há próximo código."_s);
    row("beyond all numbers", "UPDATE Cheques SET Codigo = 1e300",
        u"Contadores: O contador de Cheques chegou ao fim (9223372036854780000): não há próximo código."_s);
    row("a number remembered that is the last", "INSERT INTO \"~Contadores\" VALUES ('Cheques', 2147483647)",
        u"Contadores: O contador de Cheques chegou ao fim (2147483647): não há próximo código."_s);
    row("no memory of numbers", "DROP TABLE \"~Contadores\"",
        u"Contadores: A conferência parou no meio: Erro de sintaxe na expressão ''."_s);
}

void TestConfereAchados::codesThatNoProgramWrites()
{
    QFETCH(QByteArray, statement);
    QVERIFY(support::OtherProgram(core::DBDados->path()).run(statement.constData()));
    QTEST(findings().join(u'\n'), "expected");
}

/// A counter reads its number from the index of the codes: rows that this does not show are given out again.
void TestConfereAchados::aCounterBehindItsRows()
{
    {
        support::OtherProgram other(core::DBDados->path());
        QVERIFY(other.run("PRAGMA writable_schema = 1"));
        QVERIFY(other.run("UPDATE sqlite_schema SET rootpage = (SELECT rootpage FROM sqlite_schema WHERE name = "
                          "'LivroOrigem~Codigo') WHERE name = 'Fornecedores~Codigo'"));
    }
    const QStringList found = findings();
    QCOMPARE(found.filter(u"Contadores"_s),
             QStringList{u"Contadores: O próximo código de Fornecedores é 0001, mas já há o código 0001."_s});
    QVERIFY(found.filter(u"Integridade do arquivo"_s).size() > 0);
}

/// A ledger that was recalculated and posted to since is right in neither order as a whole; a wrong balance is found in
/// both its halves.
void TestConfereAchados::aBalanceIsWrongByDateAndByCode()
{
    program_->sql(u"UPDATE Caixa SET Data = #05/01/2024# WHERE Codigo = 3"_s);
    core::RecalculaRazao(core::razaoCaixa); // by date 3, 1, 2, 4: 50, 150, 120, 125
    core::LancaNoRazao(core::razaoCaixa, {.data = u"02/05/2024"_s, .descricao = u"X"_s, .valor = u"1,00"_s});
    core::LancaNoRazao(core::razaoCaixa, {.data = u"03/05/2024"_s, .descricao = u"Y"_s, .valor = u"2,00"_s});
    NOTHING_FOUND();
    program_->sql(u"UPDATE Caixa SET Saldo = 151 WHERE Codigo = 1"_s);
    program_->sql(u"UPDATE Caixa SET Saldo = 129 WHERE Codigo = 6"_s);
    const QString cash = u"Saldos do Livro Caixa: Caixa, código "_s;
    QCOMPARE(findings(),
             (QStringList{
                 cash + u"0001 de 15/05/2024 tem o saldo 151,00, mas 50,00 (código 0003) com a entrada de 100,00 dá "
                        "150,00."_s,
                 cash + u"0006 de 03/05/2024 tem o saldo 129,00, mas 126,00 (código 0005) com a entrada de 2,00 dá "
                        "128,00."_s}));
}

/// In one walk: a fault at each end of it is found, however the rows are dated.
void TestConfereAchados::aLedgerOfTwoHundredThousandRows()
{
    constexpr int rows = 200'000;
    std::vector<confere::LinhaDoRazao> ledger(rows);
    for (int i = 0; i < rows; ++i) {
        // by date in the order of a shuffle, recalculated: the row that is dated k-th has the balance k
        const int place = static_cast<int>(i * 7919LL % rows);
        ledger[static_cast<size_t>(i)] = {.codigo = i + 1,
                                          .data = 40000.0 + place,
                                          .entrada = 1.0F,
                                          .saida = {},
                                          .saldo = static_cast<float>(place + 1)};
    }
    QCOMPARE(confere::Desacordos(ledger, confere::TipoDeRazao::Recalculado).size(), 0U);
    ledger.front().saldo = 5.0F;
    ledger.back().saldo = 7.0F;
    const auto found = confere::Desacordos(ledger, confere::TipoDeRazao::Recalculado);
    QCOMPARE(found.size(), 2U);
    QCOMPARE(found[0].linha, 0U);
    QCOMPARE(found[1].linha, size_t{rows - 1});
}

void TestConfereAchados::aDamagedPageDoesNotEndTheAudit()
{
    const QString path = core::DBDados->path();
    int page = 0;
    int size = 0;
    {
        support::OtherProgram other(path);
        page = other.count("SELECT rootpage FROM sqlite_schema WHERE name = 'Banco1'");
        size = other.count("PRAGMA page_size");
    }
    core::DBDados->Close();
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite) && file.seek((page - 1) * qint64{size}));
    QCOMPARE(file.write(QByteArray(size, '\x7f')), size);
    file.close();
    const confere::Relatorio report = confere::Confere(path);
    const QStringList found = findings(report);
    QVERIFY2(found.filter(u"Integridade do arquivo: O arquivo está danificado ("_s).size() > 0,
             qPrintable(found.join(u'\n')));
    QVERIFY2(found.filter(u"Saldos do Banco 01: A conferência parou no meio: esta parte do arquivo está danificada."_s)
                     .size() == 1,
             qPrintable(found.join(u'\n')));
    QCOMPARE(conferido::counted(report, u"Saldos do Livro Caixa"_s), 4);
    QCOMPARE(found.filter(u"Saldos do Livro Caixa"_s), QStringList());
}

void TestConfereAchados::aCheckThatStopsIsAnError()
{
    program_->sql(u"DROP TABLE NotasEntradas"_s);
    program_->sql(u"CREATE TABLE NotasEntradas (Codigo COUNTER, CodForn TEXT(20), Pago YESNO, DataPagto DATETIME)"_s);
    program_->sql(u"INSERT INTO NotasEntradas (CodForn) VALUES ('DISTRIBUIDORA')"_s);
    const QStringList found = findings();
    QCOMPARE(found, QStringList{u"Fornecedores das notas: A conferência parou no meio: Tipos incompatíveis"_s});
}

void TestConfereAchados::aDayThatIsNoneStopsNoLedger()
{
    QVERIFY(support::OtherProgram(core::DBDados->path()).run("UPDATE Caixa SET Data = 1e9 WHERE Codigo = 1"));
    program_->sql(u"UPDATE Caixa SET Saldo = 9 WHERE Codigo = 3"_s);
    const confere::Relatorio report = conferido::audit();
    const QString cash = u"Saldos do Livro Caixa: Caixa, código "_s;
    QCOMPARE(findings(report),
             (QStringList{cash + u"0001 tem uma data que não existe."_s,
                          cash + u"0003 de 15/05/2024 tem o saldo 9,00, mas 70,00 (código 0002) com a entrada de 50,00 "
                                 "dá 120,00."_s}));
    QCOMPARE(conferido::counted(report, u"Saldos do Livro Caixa"_s), 4);
}

/// The program makes them anew, and empty, without a word.
void TestConfereAchados::tablesThatAreGoneAreMissed()
{
    program_->sql(u"DROP TABLE LivroOrigem"_s); // which not every workshop has
    NOTHING_FOUND();
    program_->sql(u"DROP TABLE Banco2"_s);
    program_->sql(u"DROP TABLE Combos"_s);
    const QString missing =
        u"aviso Tabelas do programa: O arquivo não tem a tabela %1, que o Tarvelo cria vazia quando "
        "o abre."_s;
    QCOMPARE(findings(), (QStringList{missing.arg(u"Combos"_s), missing.arg(u"Banco2"_s)}));
}

void TestConfereAchados::tablesOfSomebodyElseStopNoCheck()
{
    {
        support::OtherProgram other(core::DBDados->path());
        QVERIFY(other.run("CREATE TABLE \"a]b\" (Codigo COUNTER)"));
        QVERIFY(other.run("INSERT INTO \"a]b\" VALUES (7), (7)"));
        QVERIFY(other.run("UPDATE Cheques SET Codigo = -5"));
    }
    QCOMPARE(findings(),
             QStringList{u"Códigos: Cheques tem linhas sem código, ou com um código que não é de 1 em diante: 1."_s});
}

/// A ledger that is wrong from end to end has as many findings as rows.
void TestConfereAchados::whatIsNotKeptIsCounted()
{
    constexpr int rows = 3000;
    QVERIFY(support::OtherProgram(core::DBDados->path())
                .run("INSERT INTO Banco1 (Codigo, Data, Entrada, Saldo) WITH RECURSIVE n (i) AS (SELECT 2 UNION ALL "
                     "SELECT i + 1 FROM n WHERE i < 3001) SELECT i, 45427, 1, i * 10 FROM n"));
    const confere::Relatorio report = conferido::audit();
    QCOMPARE(findings(report).size(), confere::frasesGuardadas);
    QCOMPARE(report.achados(confere::Nivel::Erro), rows);
    const QString text = confere::Texto(report, true);
    QVERIFY(text.contains(u"\nERRO  Saldos do Banco 01: 3.001 linhas, 3.000 erros\n"_s));
    QCOMPARE(text.count(u"        Banco1, código "_s), confere::frasesGuardadas);
    QVERIFY(text.contains(u"\n        ... e mais 2.000 (--tudo mostra todos)\n"_s));
    QVERIFY(text.endsWith(u"\nResultado: 3.000 erros e 0 avisos.\n"_s));
}

TARVELO_TEST_MAIN(TestConfereAchados)
#include "tst_confere_achados.moc"
