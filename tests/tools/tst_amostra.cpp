#include "tools/amostra/amostra.h"

#include "support/errors.h"
#include "tests/tools/oficina.h"

#include "core/funcoes.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"
#include "shell/operadores.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <cmath>

using namespace Qt::StringLiterals;
using amostra::Preenche;
using amostra::Resumo;
using amostra::Tamanho;
using oficina::count;
using oficina::moment;
using oficina::semente;
using oficina::single;
using oficina::size;

namespace
{

constexpr int chamadaInvalida = 5;

/// Every row of every table, in the order in which they were written.
QStringList everything(const support::Program &program)
{
    QStringList rows;
    for (const dao::TableDef &table : core::DBDados->TableDefs()) {
        for (const QStringList &row : program.rows(u"SELECT * FROM "_s + table.name())) {
            rows.append(table.name() + u": "_s + row.join(u'|'));
        }
    }
    return rows;
}

/// Walks a ledger in the order in which it was written, in 32-bit arithmetic; true when every row's balance is the
/// replayed one, within `apart`. `rows` counts what was walked.
bool replays(const QString &select, QStringView balanceColumn, int *rows, float apart = 0)
{
    float balance = 0;
    *rows = 0;
    for (auto ledger = core::DBDados->OpenRecordset(select); !ledger.Eof(); ledger.MoveNext()) {
        balance += single(ledger.value(u"Entrada"));
        balance -= single(ledger.value(u"Saida"));
        ++*rows;
        if (std::abs(balance - runtime::CSng(ledger.value(balanceColumn))) > apart) {
            return false;
        }
    }
    return true;
}

} // namespace

class TestAmostra : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void cleanupTestCase();

    void tellsWhatItWrote();
    void writesRegistersAsTheirWindowsDo();
    void documentsAreValidAndGivenOnce();
    void platesAreWellFormedAndGivenOnce();
    void everyReferenceHasItsRow();
    void everyStateOfAnOrderIsThere_data();
    void everyStateOfAnOrderIsThere();
    void documentsAreWorthTheirItems_data();
    void documentsAreWorthTheirItems();
    void estimatesAreForCustomersAndOthers();
    void moneyLedgersReplay_data();
    void moneyLedgersReplay();
    void accountsReplayForEachCustomer();
    void stockReplaysForEachPartAndNeverRunsOut();
    void closingLeavesItsRows();
    void somethingIsStillOwedAndMuchIsPaid_data();
    void somethingIsStillOwedAndMuchIsPaid();
    void datesLieInThePastYearsInOrder();
    void theAdministratorCanLogIn();
    void operatorsThatAreThereStay();
    void theClockStandsWhereItStood();
    void sameSeedGivesTheSameRows();
    void anotherSeedGivesOtherRows();
    void refusesASize_data();
    void refusesASize();
    void refusesADatabaseWithCustomers();
    void refusesAFolderInWhichTheProgramWouldNotWork_data();
    void refusesAFolderInWhichTheProgramWouldNotWork();
    void makesAFolderOnce();

private:
    void newFolder();

    std::unique_ptr<support::Program> program_;
    Resumo resumo_;
    bool changed_ = false;
};

/// Cases that only read share one sample.
void TestAmostra::init()
{
    if (!program_) {
        newFolder();
        program_->sql(u"DELETE * FROM Senha"_s);
        resumo_ = Preenche(size());
    }
}

void TestAmostra::cleanup()
{
    if (changed_) {
        program_.reset();
        changed_ = false;
    }
}

void TestAmostra::cleanupTestCase()
{
    program_.reset();
}

/// An empty database, for a case that fills one itself. The old one goes first: it holds the program's globals.
void TestAmostra::newFolder()
{
    changed_ = changed_ || program_;
    program_.reset();
    program_ = std::make_unique<support::Program>();
}

void TestAmostra::tellsWhatItWrote()
{
    QCOMPARE(resumo_.clientes, 50);
    QCOMPARE(resumo_.veiculos, 62);
    QCOMPARE(resumo_.ordens, 24);
    QVERIFY(resumo_.pecas >= 200);
    QCOMPARE(count(*program_, u"Clientes"_s), resumo_.clientes);
    QCOMPARE(count(*program_, u"Veiculos"_s), resumo_.veiculos);
    QCOMPARE(count(*program_, u"Fornecedores"_s), resumo_.fornecedores);
    QCOMPARE(count(*program_, u"Pecas WHERE PS = 'P'"_s), resumo_.pecas);
    QCOMPARE(count(*program_, u"Pecas WHERE PS = 'S'"_s), resumo_.servicos);
    QCOMPARE(count(*program_, u"OrdemServico"_s), resumo_.ordens);
    QCOMPARE(count(*program_, u"OrdemServico WHERE EmAberto = True"_s), resumo_.ordensAbertas);
    QCOMPARE(count(*program_, u"Senha"_s), resumo_.operadores);
    QCOMPARE(count(*program_, u"NotasEntradas"_s), resumo_.notas);
    QCOMPARE(count(*program_, u"LivroOrigem"_s), resumo_.origens);
}

void TestAmostra::writesRegistersAsTheirWindowsDo()
{
    static const QRegularExpression phone(u"^\\(\\d\\d\\) \\d{4}-\\d{4}$"_s);
    static const QRegularExpression postalCode(u"^\\d\\d\\.\\d{3}-\\d{3}$"_s);
    for (const QStringList &row :
         program_->rows(u"SELECT Nome, Endereco, Fone1, CEP, Estado, LimiteCredito, Numero FROM Clientes"_s)) {
        QCOMPARE(row[0], row[0].toUpper());
        QVERIFY(!row[0].contains(u'\''));
        QVERIFY(row[1] != u"<Null>");
        QVERIFY2(phone.match(row[2]).hasMatch(), qPrintable(row[2]));
        QVERIFY2(postalCode.match(row[3]).hasMatch(), qPrintable(row[3]));
        QCOMPARE(row[4].size(), 2);
        QVERIFY(row[5] != u"<Null>");
        QVERIFY(row[6].toInt() > 0);
    }
    QCOMPARE(count(*program_, u"Pecas WHERE ValorVenda <= 0"_s), 0);
    QCOMPARE(count(*program_, u"Pecas WHERE PS = 'S' AND ControlaEstoque = True"_s), 0);
    QCOMPARE(count(*program_, u"Estoque WHERE Descricao = 'ENTRADA INICIAL'"_s), resumo_.pecas + resumo_.servicos);
}

void TestAmostra::documentsAreValidAndGivenOnce()
{
    QSet<QString> given;
    int companies = 0;
    for (const QStringList &row : program_->rows(u"SELECT CPF FROM Clientes"_s)) {
        const bool company = row[0].size() == 14;
        companies += company ? 1 : 0;
        QCOMPARE(company ? core::ValidaCNPJ(row[0]) : core::ValidaCPF(row[0]),
                 company ? u"CNPJ válido"_s : u"CPF Válido"_s);
        QVERIFY(!given.contains(row[0]));
        given.insert(row[0]);
    }
    QVERIFY(companies > 0);
    QVERIFY(companies < 25);
    for (const QStringList &row : program_->rows(u"SELECT CNPJ FROM Fornecedores"_s)) {
        QCOMPARE(core::ValidaCNPJ(row[0]), u"CNPJ válido"_s);
    }
}

void TestAmostra::platesAreWellFormedAndGivenOnce()
{
    static const QRegularExpression plate(u"^[A-Z]{3}\\d{4}$"_s);
    static const QRegularExpression year(u"^(19|20)\\d\\d/(19|20)\\d\\d$"_s);
    QSet<QString> given;
    for (const QStringList &row : program_->rows(u"SELECT Placas, Ano FROM Veiculos"_s)) {
        QVERIFY2(plate.match(row[0]).hasMatch(), qPrintable(row[0]));
        QVERIFY2(year.match(row[1]).hasMatch(), qPrintable(row[1]));
        QVERIFY(row[1].left(4) <= u"2024");
        QVERIFY(!given.contains(row[0]));
        given.insert(row[0]);
    }
}

void TestAmostra::everyReferenceHasItsRow()
{
    QCOMPARE(count(*program_, u"Veiculos WHERE CodCliente NOT IN (SELECT Codigo FROM Clientes)"_s), 0);
    QCOMPARE(count(*program_, u"OrdemServico WHERE CodVeiculo NOT IN (SELECT Codigo FROM Veiculos)"_s), 0);
    QCOMPARE(count(*program_, u"OSPecas WHERE CodOS NOT IN (SELECT Codigo FROM OrdemServico)"_s), 0);
    QCOMPARE(count(*program_, u"OrcaPecas WHERE CodOrca NOT IN (SELECT Codigo FROM Orcamento)"_s), 0);
    QCOMPARE(count(*program_, u"Orcamento WHERE Codigo NOT IN (SELECT CodOrca FROM OrcaPecas)"_s), 0);
    QCOMPARE(count(*program_, u"OSPecas WHERE CodPeca <> 0 AND CodPeca NOT IN (SELECT Codigo FROM Pecas)"_s), 0);
    QCOMPARE(count(*program_, u"OSPecas WHERE CodPeca = 0 AND PSA <> 'A'"_s), 0);
    QCOMPARE(count(*program_, u"NotasEntradas WHERE CodForn NOT IN (SELECT Codigo FROM Fornecedores)"_s), 0);
    QCOMPARE(count(*program_, u"NotasEntradas WHERE Codigo NOT IN (SELECT CodNota FROM NotasPecas)"_s), 0);
    QCOMPARE(count(*program_, u"NotasPecas WHERE CodNota NOT IN (SELECT Codigo FROM NotasEntradas)"_s), 0);
    QCOMPARE(count(*program_, u"NotasPecas WHERE CodPeca <> 0 AND CodPeca NOT IN (SELECT Codigo FROM Pecas)"_s), 0);
    QCOMPARE(count(*program_, u"OrdemServico WHERE Codigo NOT IN (SELECT CodOS FROM OSPecas)"_s), 0);
    const auto owners =
        program_->rows(u"SELECT OrdemServico.Codigo FROM OrdemServico, Veiculos WHERE Veiculos.Codigo = "
                       "OrdemServico.CodVeiculo AND Veiculos.CodCliente = OrdemServico.CodCliente"_s);
    QCOMPARE(static_cast<int>(owners.size()), resumo_.ordens);
}

void TestAmostra::everyStateOfAnOrderIsThere_data()
{
    QTest::addColumn<QString>("condition");
    QTest::newRow("open") << u"EmAberto = True AND Pago = False AND DataOut IS NULL AND FormaPagto IS NULL"_s;
    QTest::newRow("cash") << u"EmAberto = False AND Pago = True AND FormaPagto = 'À VISTA'"_s;
    QTest::newRow("post-dated cheque") << u"EmAberto = False AND Pago = True AND FormaPagto = 'CHEQUE-PRÉ'"_s;
    QTest::newRow("payment book") << u"EmAberto = False AND Pago = True AND FormaPagto = 'PARCELADO CARNÊ'"_s;
    QTest::newRow("cheques") << u"EmAberto = False AND Pago = True AND FormaPagto = 'PARCELADO CHEQUE'"_s;
    QTest::newRow("store credit") << u"EmAberto = False AND FormaPagto IS NULL AND DataPagto IS NULL"_s;
    QTest::newRow("custom plan") << u"EmAberto = False AND Pago = True AND FormaPagto = 'PAGAMENTO PERSONALIZADO'"_s;
    QTest::newRow("finished long ago") << u"EmAberto = False AND DataOut < #11/15/2023#"_s;
    QTest::newRow("finished of late") << u"EmAberto = False AND DataOut > #11/15/2023#"_s;
}

void TestAmostra::everyStateOfAnOrderIsThere()
{
    QFETCH(const QString, condition);
    QVERIFY(count(*program_, u"OrdemServico WHERE "_s + condition) > 0);
}

void TestAmostra::documentsAreWorthTheirItems_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("items");
    QTest::newRow("orders") << u"OrdemServico"_s << u"OSPecas WHERE CodOS = "_s;
    QTest::newRow("estimates") << u"Orcamento"_s << u"OrcaPecas WHERE CodOrca = "_s;
    QTest::newRow("notes of suppliers") << u"NotasEntradas"_s << u"NotasPecas WHERE CodNota = "_s;
}

void TestAmostra::documentsAreWorthTheirItems()
{
    QFETCH(const QString, table);
    QFETCH(const QString, items);
    for (const QStringList &document : program_->rows(u"SELECT Codigo FROM "_s + table)) {
        QString total = u"0,00"_s;
        auto item = core::DBDados->OpenRecordset(u"SELECT * FROM "_s + items + document[0]);
        for (; !item.Eof(); item.MoveNext()) {
            const double value =
                runtime::CDbl(item.value(u"Quantidade")) * runtime::CDbl(runtime::CStr(item.value(u"ValorUnit")));
            total = core::SomaTexto(total, runtime::Format(value, core::mascaraValor));
        }
        const auto value = program_->value(u"SELECT Valor FROM %1 WHERE Codigo = %2"_s.arg(table, document[0]));
        QCOMPARE(runtime::Format(value, core::mascaraValor), total);
        QVERIFY(runtime::CSng(value) > 0);
    }
}

void TestAmostra::estimatesAreForCustomersAndOthers()
{
    QCOMPARE(count(*program_, u"Orcamento"_s), resumo_.orcamentos);
    QCOMPARE(resumo_.orcamentos, 16);
    const auto named = program_->rows(u"SELECT Orcamento.Codigo FROM Orcamento, Clientes WHERE Clientes.Codigo = "
                                      "Orcamento.CodCliente AND Clientes.Nome = Orcamento.NomeCliente AND "
                                      "Clientes.Fone1 = Orcamento.Fone"_s);
    const int others = count(*program_, u"Orcamento WHERE CodCliente IS NULL AND NomeCliente <> '' AND Fone <> ''"_s);
    QVERIFY(!named.empty());
    QVERIFY(others > 0);
    QCOMPARE(static_cast<int>(named.size()) + others, resumo_.orcamentos);
}

void TestAmostra::moneyLedgersReplay_data()
{
    QTest::addColumn<QString>("ledger");
    QTest::newRow("cash book") << u"Caixa"_s;
    QTest::newRow("first bank") << u"Banco1"_s;
    QTest::newRow("second bank") << u"Banco2"_s;
}

void TestAmostra::moneyLedgersReplay()
{
    QFETCH(const QString, ledger);
    int rows = 0;
    QVERIFY(replays(u"SELECT * FROM "_s + ledger + u" ORDER BY Codigo"_s, u"Saldo", &rows));
    QCOMPARE(rows, count(*program_, ledger));
    QCOMPARE(count(*program_, ledger + u" WHERE Saldo < -1"_s), 0);
    QVERIFY(rows > 1);
}

/// A settled account is posted in 64 bits, behind a balance of seven digits: cents are right, the last bits may differ.
void TestAmostra::accountsReplayForEachCustomer()
{
    constexpr float belowACent = 0.005F;
    int all = 0;
    for (const QStringList &customer : program_->rows(u"SELECT DISTINCT CodCliente FROM ContaFiado"_s)) {
        int rows = 0;
        const QString account = u"SELECT * FROM ContaFiado WHERE CodCliente = "_s + customer[0];
        QVERIFY(replays(account + u" ORDER BY Codigo"_s, u"Saldo", &rows, belowACent));
        all += rows;
    }
    QVERIFY(all > 1);
    QCOMPARE(all, count(*program_, u"ContaFiado"_s));
}

void TestAmostra::stockReplaysForEachPartAndNeverRunsOut()
{
    int all = 0;
    for (const QStringList &part : program_->rows(u"SELECT Codigo FROM Pecas"_s)) {
        int rows = 0;
        const QString ledger = u"SELECT * FROM Estoque WHERE CodPeca = "_s + part[0] + u" ORDER BY Codigo"_s;
        QVERIFY2(replays(ledger, u"Estoque", &rows), qPrintable(part[0]));
        QVERIFY(rows > 0);
        all += rows;
    }
    QCOMPARE(all, count(*program_, u"Estoque"_s));
    QVERIFY(count(*program_, u"Estoque WHERE Descricao LIKE 'VENDA O.S. *'"_s) > 0);
    QCOMPARE(count(*program_, u"Estoque WHERE Estoque < 0"_s), 0);
}

void TestAmostra::closingLeavesItsRows()
{
    const auto closed = [&](const QString &form) {
        return count(*program_, u"OrdemServico WHERE FormaPagto = '"_s + form + u"'"_s);
    };
    const int custom = closed(u"PAGAMENTO PERSONALIZADO"_s);
    const int credit = count(*program_, u"OrdemServico WHERE EmAberto = False AND FormaPagto IS NULL"_s);
    QCOMPARE(count(*program_, u"Fiados"_s), credit + custom);
    QCOMPARE(count(*program_, u"ContasReceber WHERE Descricao LIKE 'O.S. PENDENTE: *'"_s), custom);
    QVERIFY(count(*program_, u"Cheques"_s) >= 2 * closed(u"PARCELADO CHEQUE"_s) + closed(u"CHEQUE-PRÉ"_s) + custom);
    QCOMPARE(count(*program_, u"ContasReceber WHERE Descricao LIKE 'CHEQUE*'"_s), count(*program_, u"Cheques"_s));
    QVERIFY(count(*program_, u"ContasReceber WHERE Descricao LIKE 'CARNÊ Nº *'"_s) >= closed(u"PARCELADO CARNÊ"_s));
    QVERIFY(count(*program_, u"Caixa WHERE Descricao LIKE 'O.S. *'"_s) >= closed(u"À VISTA"_s) + custom);
}

void TestAmostra::somethingIsStillOwedAndMuchIsPaid_data()
{
    QTest::addColumn<QString>("table");
    QTest::newRow("receivables") << u"ContasReceber"_s;
    QTest::newRow("payables") << u"ContasPagar"_s;
    QTest::newRow("cheques") << u"Cheques"_s;
    QTest::newRow("store credit") << u"Fiados"_s;
}

void TestAmostra::somethingIsStillOwedAndMuchIsPaid()
{
    QFETCH(const QString, table);
    QVERIFY(count(*program_, table + u" WHERE Pago = False"_s) > 0);
    QVERIFY(count(*program_, table + u" WHERE Pago = True"_s) > 0);
    QCOMPARE(count(*program_, table + u" WHERE Pago = True AND Vencimento > #05/15/2024#"_s), 0);
}

void TestAmostra::datesLieInThePastYearsInOrder()
{
    const auto today = runtime::CDate(u"15/05/2024"_s);
    const runtime::Date first{today.serial - 728};
    double last = first.serial;
    for (auto order = core::DBDados->OpenRecordset(u"SELECT * FROM OrdemServico ORDER BY Codigo"_s); !order.Eof();
         order.MoveNext()) {
        const double opened = runtime::CDate(order.value(u"DataIn")).serial;
        QVERIFY(opened >= last);
        QVERIFY(opened < today.serial);
        last = opened;
        if (!runtime::IsNull(order.value(u"DataOut"))) {
            const double closed = runtime::CDate(order.value(u"DataOut")).serial;
            QVERIFY(closed > opened);
            QVERIFY(closed < today.serial);
        }
    }
    QVERIFY(last > today.serial - 30);
    QCOMPARE(count(*program_, u"Caixa WHERE Data >= #05/15/2024#"_s), 0);
    QCOMPARE(count(*program_, u"Orcamento WHERE Data >= #05/15/2024#"_s), 0);
    QCOMPARE(program_->rows(u"SELECT Codigo FROM Orcamento ORDER BY Data, Codigo"_s),
             program_->rows(u"SELECT Codigo FROM Orcamento ORDER BY Codigo"_s));
    QCOMPARE(count(*program_, u"Clientes WHERE DataCadastro >= #05/15/2024#"_s), 0);
    const auto late = program_->rows(u"SELECT OrdemServico.Codigo FROM OrdemServico, Clientes WHERE Clientes.Codigo = "
                                     "OrdemServico.CodCliente AND Clientes.DataCadastro > OrdemServico.DataIn"_s);
    QVERIFY(late.empty());
}

void TestAmostra::theAdministratorCanLogIn()
{
    const auto operador = shell::leOperador(u"1"_s);
    QVERIFY(operador.has_value());
    QVERIFY(operador->admin);
    QCOMPARE(operador->senha, amostra::Operadores().front().senha.toString());
    QVERIFY(shell::unicoAdministrador(u"1"_s));
}

void TestAmostra::operatorsThatAreThereStay()
{
    newFolder();
    QCOMPARE(Preenche(size()).operadores, 0);
    QCOMPARE(count(*program_, u"Senha"_s), 1);
}

void TestAmostra::theClockStandsWhereItStood()
{
    QCOMPARE(runtime::Now().serial, moment().serial);
    QVERIFY(support::errorOf([] { Preenche(size()); }) != 0);
    QCOMPARE(runtime::Now().serial, moment().serial);
}

void TestAmostra::sameSeedGivesTheSameRows()
{
    const QStringList first = everything(*program_);
    newFolder();
    program_->sql(u"DELETE * FROM Senha"_s);
    Preenche(size());
    QVERIFY(first.size() > 1000);
    QCOMPARE(everything(*program_), first);
}

void TestAmostra::anotherSeedGivesOtherRows()
{
    const auto names = [&] { return program_->rows(u"SELECT Nome FROM Clientes"_s); };
    const auto values = [&] { return program_->rows(u"SELECT Valor FROM OrdemServico"_s); };
    const auto firstNames = names();
    const auto firstValues = values();
    newFolder();
    Preenche(size(semente + 1));
    QVERIFY(names() != firstNames);
    QVERIFY(values() != firstValues);
    QCOMPARE(names().size(), firstNames.size());
}

void TestAmostra::refusesASize_data()
{
    QTest::addColumn<int>("customers");
    QTest::newRow("none") << 0;
    QTest::newRow("negative") << -1;
    QTest::newRow("one too few") << amostra::menosClientes - 1;
    QTest::newRow("one too many") << amostra::maisClientes + 1;
}

void TestAmostra::refusesASize()
{
    QFETCH(const int, customers);
    newFolder();
    const auto before = everything(*program_);
    const Tamanho wrong{.clientes = customers, .semente = semente, .relogio = moment()};
    QCOMPARE(support::errorOf([&] { amostra::ConfereTamanho(wrong); }), chamadaInvalida);
    QCOMPARE(support::errorOf([&] { Preenche(wrong); }), chamadaInvalida);
    QCOMPARE(everything(*program_), before);
}

void TestAmostra::refusesADatabaseWithCustomers()
{
    changed_ = true;
    const auto before = everything(*program_);
    QCOMPARE(support::errorOf([] { Preenche(size()); }), chamadaInvalida);
    QCOMPARE(support::errorOf([&] { amostra::AbrePasta(program_->path()); }), chamadaInvalida);
    QCOMPARE(everything(*program_), before);
}

void TestAmostra::refusesAFolderInWhichTheProgramWouldNotWork_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("none") << QString();
    QTest::newRow("in a file") << u"arquivo/oficina"_s;
    QTest::newRow("a path that is too long") << QString(QString(80, u'a') + u'/').repeated(4);
    QTest::newRow("letters that the settings do not keep") << u"日本"_s;
}

/// No program would open it later.
void TestAmostra::refusesAFolderInWhichTheProgramWouldNotWork()
{
    QFETCH(const QString, name);
    const QTemporaryDir here;
    QFile file(here.filePath(u"arquivo"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    const QString folder = name.isEmpty() ? QString() : here.filePath(name);
    const QString before = core::App::Path();
    QCOMPARE(support::errorOf([&] { amostra::AbrePasta(folder); }), chamadaInvalida);
    QCOMPARE(core::App::Path(), before);
    QVERIFY(!QFileInfo::exists(folder + u"/DADOS/DADOS.MDB"_s));
    QVERIFY(!name.isEmpty() || !QFileInfo::exists(u"/DADOS"_s));
}

void TestAmostra::makesAFolderOnce()
{
    changed_ = true;
    const QTemporaryDir folder;
    const QString sample = folder.filePath(u"oficina/nova"_s);
    amostra::AbrePasta(sample);
    QVERIFY(QFileInfo::exists(sample + u"/DADOS/DADOS.MDB"_s));
    QCOMPARE(Preenche(size()).clientes, 50);
    QCOMPARE(support::errorOf([&] { amostra::AbrePasta(sample); }), chamadaInvalida);
}

TARVELO_TEST_MAIN(TestAmostra)

#include "tst_amostra.moc"
