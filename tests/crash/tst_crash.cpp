// Kills the program at random moments while it opens and closes orders, settles what they left, recalculates its
// ledgers, alters orders, turns estimates into orders and receives suppliers' notes. Whatever the moment, the file
// opens again, is whole, holds every row that a finished operation wrote, and of the one that was cut all rows or none;
// the next recalculation sets all balances right.
#include "support/program.h"
#include "tests/crash/alteradas.h"
#include "tests/crash/recebidas.h"
#include "tools/confere/relatorio.h"

#include "core/caminhos.h"
#include "core/modulo.h"
#include "core/razao.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <map>
#include <thread>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

constexpr int kills = 200;
constexpr int mostTold = 24; ///< lines that tell of finished work, until a kill
constexpr int allForms = 6;

/// What closing with a form leaves: a statement that counts its rows for the order %1, and how many there are.
struct Trace {
    QString count;
    int rows;
};

const std::array<std::vector<Trace>, allForms> &tracesOfForms()
{
    static const std::array<std::vector<Trace>, allForms> traces = {{
        {{u"SELECT count(Codigo) FROM Caixa WHERE Descricao = 'O.S. %1'"_s, 1}},
        {{u"SELECT count(Codigo) FROM Cheques WHERE CodOs = %1"_s, 1},
         {u"SELECT count(Codigo) FROM ContasReceber WHERE Descricao LIKE 'CHEQUE CÓD */%1-00'"_s, 1}},
        {{u"SELECT count(Codigo) FROM ContasReceber WHERE Descricao LIKE 'CARNÊ Nº %1-*'"_s, 2}},
        {{u"SELECT count(Codigo) FROM Cheques WHERE CodOs = %1"_s, 2},
         {u"SELECT count(Codigo) FROM ContasReceber WHERE Descricao LIKE 'CHEQUE CÓD */%1-*'"_s, 2}},
        {{u"SELECT count(Codigo) FROM Fiados WHERE CodOs = %1"_s, 1},
         {u"SELECT count(Codigo) FROM ContaFiado WHERE Descricao = 'ORDEM SERVIÇO Nº %1'"_s, 1}},
        {{u"SELECT count(Codigo) FROM Caixa WHERE Descricao LIKE 'O.S. %1 Parcela *'"_s, 1},
         {u"SELECT count(Codigo) FROM Cheques WHERE CodOs = %1"_s, 1}},
    }};
    return traces;
}

/// Everything that closing an order %1 may leave, how many rows of it each payment form does, and what counts those
/// that its settling adds.
struct Posting {
    QString count;
    std::array<int, allForms> rows;
    QString added = {};
};

const std::vector<Posting> &postings()
{
    static const std::vector<Posting> all = {
        {u"SELECT count(Codigo) FROM Caixa WHERE Descricao = 'O.S. %1'"_s,
         {1, 0, 0, 0, 0, 0},
         u"SELECT count(Codigo) FROM Fiados WHERE CodOs = %1 AND Pago = True"_s},
        {u"SELECT count(Codigo) FROM Caixa WHERE Descricao LIKE 'O.S. %1 Parcela *'"_s, {0, 0, 0, 0, 0, 1}},
        {u"SELECT count(Codigo) FROM Cheques WHERE CodOs = %1"_s, {0, 1, 0, 2, 0, 1}},
        {u"SELECT count(Codigo) FROM ContasReceber WHERE Descricao LIKE 'CHEQUE CÓD */%1-*'"_s, {0, 1, 0, 2, 0, 0}},
        {u"SELECT count(Codigo) FROM ContasReceber WHERE Descricao LIKE 'CARNÊ Nº %1-*'"_s, {0, 0, 2, 0, 0, 0}},
        {u"SELECT count(Codigo) FROM ContasReceber WHERE Descricao LIKE 'CHEQUE: *CÓD */%1-*'"_s, {0, 0, 0, 0, 0, 1}},
        {u"SELECT count(Codigo) FROM Fiados WHERE CodOs = %1"_s, {0, 0, 0, 0, 1, 0}},
        {u"SELECT count(Codigo) FROM ContaFiado WHERE Descricao = 'ORDEM SERVIÇO Nº %1'"_s, {0, 0, 0, 0, 1, 0}},
        {u"SELECT count(Codigo) FROM Estoque WHERE Descricao = 'VENDA O.S. %1'"_s, {1, 1, 1, 1, 1, 1}},
    };
    return all;
}

/// What settling leaves, by the word that tells of it: all of it or nothing. %1 is the code that was told.
const std::map<QString, std::vector<Trace>> &tracesOfSettling()
{
    static const std::map<QString, std::vector<Trace>> traces = {
        {u"RECEBIDA"_s,
         {{u"SELECT count(Codigo) FROM ContasReceber WHERE Descricao = 'CARNÊ Nº %1-01' AND Pago = True"_s, 1},
          {u"SELECT count(Codigo) FROM Caixa WHERE Descricao = 'CARNÊ Nº %1-01' AND Entrada = 50 AND CodOs = %1"_s, 1},
          {u"SELECT count(Codigo) FROM ContaFiado WHERE Descricao = 'PAGAMENTO: CARNÊ Nº %1-01' AND Saida = 50"_s, 1}}},
        {u"RECEBIDA_EM_PARTE"_s,
         {{u"SELECT count(Codigo) FROM ContasReceber WHERE Descricao = 'CARNÊ Nº %1-02' AND Pago = True AND Valor < 17"_s,
           1},
          {u"SELECT count(Codigo) FROM ContasReceber WHERE Descricao = 'PAG. PARCIAL O.S.: %1' AND Pago = False"_s, 1},
          {u"SELECT count(Codigo) FROM Banco1 WHERE Descricao = 'P.P. CARNÊ Nº %1-02' AND Entrada < 17"_s, 1}}},
        {u"COMPENSADO"_s,
         {{u"SELECT count(Codigo) FROM Cheques WHERE Codigo = %1 AND Pago = True"_s, 1},
          {u"SELECT count(Codigo) FROM Caixa WHERE Descricao LIKE 'CHEQUE CÓD %1/*'"_s, 1}}},
        {u"PAGA"_s,
         {{u"SELECT count(Codigo) FROM ContasPagar WHERE Descricao = 'ALUGUEL %1' AND Pago = True"_s, 1},
          {u"SELECT count(Codigo) FROM Caixa WHERE Descricao = 'ALUGUEL %1' AND Saida > 33"_s, 1}}},
        {u"PENDENCIA_PAGA"_s,
         {{u"SELECT count(Codigo) FROM Fiados WHERE CodOs = %1 AND Pago = True"_s, 1},
          {u"SELECT count(Codigo) FROM OrdemServico WHERE Codigo = %1 AND Pago = True"_s, 1},
          {u"SELECT count(Codigo) FROM Caixa WHERE Descricao = 'O.S. %1'"_s, 1}}},
    };
    return traces;
}

/// What of an order may be settled, by the form that it was closed with; its cheques go by their own codes.
QStringList settlingsOf(int form)
{
    static const std::map<int, QStringList> settlings{
        {0, {u"PAGA"_s}}, {2, {u"RECEBIDA"_s, u"RECEBIDA_EM_PARTE"_s}}, {4, {u"PENDENCIA_PAGA"_s}}};
    const auto found = settlings.find(form);
    return found == settlings.end() ? QStringList() : found->second;
}

/// A ledger that was posted to, and the newest row that it had when it was recalculated last.
struct Ledger {
    const core::Razao *razao;
    QString owner;
    int recalculated = 0;
};

QString tableOf(const Ledger &ledger)
{
    return ledger.razao->tabela.toString();
}

/// A row of a ledger: what it moves, and the balance that it shows.
struct Movement {
    int code;
    float moved;
    float balance;
};

using Movements = std::vector<Movement>;

Movements movementsOf(const Ledger &ledger, const QString &order)
{
    const QString owner = ledger.owner.isEmpty() ? QString() : u" WHERE CodCliente = "_s + ledger.owner;
    dao::Recordset rows =
        core::DBDados->OpenRecordset(u"SELECT Codigo, Entrada, Saida, Saldo FROM "_s + tableOf(ledger) + owner + order);
    Movements all;
    for (; !rows.Eof(); rows.MoveNext()) {
        const auto in = rows.value(1);
        all.push_back({runtime::CLng(rows.value(0)),
                       runtime::IsNull(in) ? -runtime::CSng(rows.value(2)) : runtime::CSng(in),
                       runtime::CSng(rows.value(3))});
    }
    return all;
}

constexpr float oneRow = 1; ///< less than any movement, more than all roundings

/// True where the rows up to a code have the balances of the order of their dates, and those behind it follow each
/// other: a ledger that was recalculated then and only posted to since.
bool recalculatedUpTo(int code, const Movements &byDate, const Movements &byCode)
{
    float balance = 0;
    for (const auto &row : byDate) {
        if (row.code <= code) {
            balance += row.moved;
            if (std::abs(row.balance - balance) >= oneRow) {
                return false;
            }
        }
    }
    balance = 0;
    for (const auto &row : byCode) {
        if (row.code > code && std::abs(row.balance - (balance + row.moved)) >= oneRow) {
            return false;
        }
        balance = row.balance;
    }
    return true;
}

/// The plain sum in 32-bit floats.
bool balancesAreRight(const Movements &byDate)
{
    float balance = 0;
    return std::ranges::all_of(byDate, [&balance](const Movement &row) {
        balance += row.moved;
        return row.balance == balance;
    });
}

/// Which form an order was closed with, by what the order says of it: nothing is store credit.
int formOf(const QString &name)
{
    static const QStringList names{u"À VISTA"_s,          u"CHEQUE-PRÉ"_s, u"PARCELADO CARNÊ"_s,
                                   u"PARCELADO CHEQUE"_s, u"<Null>"_s,     u"PAGAMENTO PERSONALIZADO"_s};
    return static_cast<int>(names.indexOf(name));
}

class tst_crash : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void everyFinishedOperationSurvivesAKill();

private:
    void workUntilKilled();
    void readFinished(const QByteArray &output);
    void checkFile();
    void checkWhole();
    void checkOrder(const QStringList &order);
    void checkOpened(int code);
    void checkClosed(int code, int form);
    void checkSettled(const QString &word, const QString &code);
    void checkAllOrNothing(const QString &word, const QString &code);
    void checkSettlingsOf(const QString &order, int form);
    void checkLedger(Ledger &ledger);
    int count(const QString &select) const;

    std::unique_ptr<support::Program> program_;
    QRandomGenerator random_{20240515};
    std::vector<int> opened_;
    std::map<int, int> closed_;
    std::map<QString, QStringList> settled_; ///< by the word that told of it, the codes
    std::vector<std::pair<QString, QString>> toCheck_;
    crash::Altered altered_;
    crash::Received received_;
    std::array<Ledger, 3> ledgers_{
        {{&core::razaoCaixa, {}}, {&core::razaoBanco1, {}}, {&core::razaoContaFiado, u"1"_s}}};
    int mended_ = 0; ///< how often a recalculation had something to set right
    int firstForm_ = 0;
    std::chrono::nanoseconds workedFor_{0}; ///< all runs together
    qint64 told_ = 0;                       ///< and the lines of it
    std::size_t checkedOpened_ = 0;
    QString checkedWhole_ = u"0"_s; ///< up to which order
};

void tst_crash::init()
{
    program_ = std::make_unique<support::Program>();
    program_->customer(u"MARIA"_s);
    program_->vehicle(1, u"ABC1234"_s);
    program_->part(u"FILTRO"_s, u"P"_s, u"30,00"_s, true);
    program_->part(u"REVISÃO"_s, u"S"_s, u"30,00"_s, false);
    program_->part(u"VELA"_s, u"P"_s, u"20,00"_s, true);
    core::LancaNoRazao(core::razaoCaixa, {.descricao = u"ABERTURA"_s, .valor = 0.1F}); // nothing is cleared without
}

void tst_crash::cleanup()
{
    program_.reset();
}

void tst_crash::workUntilKilled()
{
    QProcess operador;
    operador.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    operador.start(QStringLiteral(OPERADOR), {program_->path(), QString::number(firstForm_++ % allForms)});
    QVERIFY(operador.waitForStarted());
    QVERIFY2(operador.waitForReadyRead(60000), "the program never got ready");

    QElapsedTimer clock;
    clock.start();
    QByteArray told = operador.readAllStandardOutput();
    for (const auto enough = told.count('\n') + random_.bounded(mostTold); told.count('\n') < enough;) {
        QVERIFY2(operador.waitForReadyRead(60000), "the program ended by itself");
        told += operador.readAllStandardOutput();
    }
    // Somewhere in the work that comes next, however long this machine takes for one.
    workedFor_ += std::chrono::nanoseconds(clock.nsecsElapsed());
    told_ += told.count('\n');
    std::this_thread::sleep_for(random_.bounded(2.0) * workedFor_ / told_);
    operador.kill();
    QVERIFY(operador.waitForFinished(60000));
    QCOMPARE(operador.exitStatus(), QProcess::CrashExit);
    readFinished(told + operador.readAllStandardOutput());
}

void tst_crash::readFinished(const QByteArray &output)
{
    auto lines = QString::fromUtf8(output).split(u'\n');
    lines.removeLast(); // behind the last line end stands nothing, or a line that was cut
    for (const auto &line : lines) {
        const auto words = line.split(u' ');
        if (words[0] == u"ABERTA"_s) {
            opened_.push_back(words[1].toInt());
        } else if (words[0] == u"FECHADA"_s) {
            closed_[words[1].toInt()] = words[2].toInt();
        } else if (words[0] == u"RECALCULADO"_s) {
            std::ranges::find(ledgers_, words[1], tableOf)->recalculated = words[2].toInt();
        } else if (altered_.read(words) || received_.read(words)) {
            continue;
        } else if (tracesOfSettling().contains(words[0])) {
            settled_[words[0]].append(words[1]);
            toCheck_.emplace_back(words[0], words[1]);
        }
    }
}

int tst_crash::count(const QString &select) const
{
    return program_->rows(select).at(0).at(0).toInt();
}

void tst_crash::checkOpened(int code)
{
    QCOMPARE(count(u"SELECT count(Codigo) FROM OrdemServico WHERE Codigo = %1"_s.arg(code)), 1);
    QCOMPARE(count(u"SELECT count(Codigo) FROM OSPecas WHERE CodOS = %1"_s.arg(code)), 3);
}

void tst_crash::checkClosed(int code, int form)
{
    QCOMPARE(count(u"SELECT count(Codigo) FROM OrdemServico WHERE EmAberto = False AND Codigo = %1"_s.arg(code)), 1);
    const auto shown = runtime::Format(code, u"0000");
    for (const auto &trace : tracesOfForms().at(static_cast<std::size_t>(form))) {
        QCOMPARE(count(trace.count.arg(shown)), trace.rows);
    }
    QCOMPARE(count(u"SELECT count(Codigo) FROM Estoque WHERE Descricao = 'VENDA O.S. %1'"_s.arg(shown)), 1);
}

void tst_crash::checkSettled(const QString &word, const QString &code)
{
    for (const auto &trace : tracesOfSettling().at(word)) {
        const int found = count(trace.count.arg(code));
        QVERIFY2(found == trace.rows, qPrintable(u"%1 %2: %3 rows: %4"_s.arg(word, code).arg(found).arg(trace.count)));
    }
}

void tst_crash::checkAllOrNothing(const QString &word, const QString &code)
{
    const auto &traces = tracesOfSettling().at(word);
    const bool done = count(traces.front().count.arg(code)) != 0;
    for (const auto &trace : traces) {
        const int found = count(trace.count.arg(code));
        QVERIFY2(found == (done ? trace.rows : 0),
                 qPrintable(u"%1 %2 was cut: %3 rows: %4"_s.arg(word, code).arg(found).arg(trace.count)));
    }
}

void tst_crash::checkSettlingsOf(const QString &order, int form)
{
    for (const auto &word : settlingsOf(form)) {
        checkAllOrNothing(word, order);
    }
    for (const auto &cheque : program_->rows(u"SELECT Codigo FROM Cheques WHERE CodOs = "_s + order)) {
        checkAllOrNothing(u"COMPENSADO"_s, runtime::Format(cheque[0].toInt(), u"0000"));
    }
}

/// The one that was cut, if it was one, is not to be seen; the next one sets everything right.
void tst_crash::checkLedger(Ledger &ledger)
{
    const auto inOrderOfDates = u" ORDER BY Data, Codigo"_s;
    const auto byCode = movementsOf(ledger, u" ORDER BY Codigo"_s);
    const auto byDate = movementsOf(ledger, inOrderOfDates);
    if (byCode.empty()) {
        return;
    }
    const int newest = byCode.back().code;
    const bool whole =
        recalculatedUpTo(ledger.recalculated, byDate, byCode) || recalculatedUpTo(newest, byDate, byCode);
    QVERIFY2(
        whole,
        qPrintable(
            u"%1 is neither as it was at row %2 nor recalculated"_s.arg(tableOf(ledger)).arg(ledger.recalculated)));
    mended_ += balancesAreRight(byDate) ? 0 : 1;

    core::RecalculaRazao(*ledger.razao, ledger.owner);
    QVERIFY2(balancesAreRight(movementsOf(ledger, inOrderOfDates)), qPrintable(tableOf(ledger)));
    ledger.recalculated = newest;
}

/// An order that stands is there with all its items; one that is closed with all its postings, one that is open with
/// none. Whether its operation was told to be finished makes no difference.
void tst_crash::checkOrder(const QStringList &order)
{
    const auto &code = order[0];
    const bool open = order[1] == u"True";
    checkOpened(code.toInt());
    const auto shown = runtime::Format(code.toInt(), u"0000");
    const auto form = static_cast<std::size_t>(formOf(order[2]));
    for (const auto &posting : postings()) {
        const int found = count(posting.count.arg(shown));
        const int added = posting.added.isEmpty() ? 0 : count(posting.added.arg(shown));
        const int due = open ? 0 : posting.rows.at(form) + added;
        QVERIFY2(found == due,
                 qPrintable(u"order %1: %2 rows and not %3: %4"_s.arg(shown).arg(found).arg(due).arg(posting.count)));
    }
    if (!open) {
        checkSettlingsOf(shown, formOf(order[2]));
    }
}

void tst_crash::checkWhole()
{
    const auto orders =
        program_->rows(u"SELECT Codigo, EmAberto, FormaPagto FROM OrdemServico WHERE Codigo > %1 AND Mecanico IS NULL "
                       "ORDER BY Codigo"_s.arg(checkedWhole_));
    for (const auto &order : orders) {
        checkOrder(order);
        checkedWhole_ = order[0];
    }
    const int items = count(u"SELECT count(OSPecas.Codigo) FROM OSPecas, OrdemServico WHERE OSPecas.CodOS = "
                            "OrdemServico.Codigo AND OrdemServico.Mecanico IS NULL"_s);
    QCOMPARE(items, 3 * count(u"SELECT count(Codigo) FROM OrdemServico WHERE Mecanico IS NULL"_s));
}

void tst_crash::checkFile()
{
    core::DBDados = dao::DBEngine::OpenDatabase(core::caminho(core::ArquivoDB));
    QCOMPARE(core::DBDados->CheckIntegrity(), u"ok"_s);
    for (; checkedOpened_ < opened_.size(); ++checkedOpened_) {
        checkOpened(opened_[checkedOpened_]);
        const auto closed = closed_.find(opened_[checkedOpened_]);
        if (closed != closed_.end()) {
            checkClosed(closed->first, closed->second);
        }
    }
    for (const auto &[word, code] : std::exchange(toCheck_, {})) {
        checkSettled(word, runtime::Format(code.toInt(), u"0000"));
    }
    checkWhole();
    altered_.check(*program_);
    received_.check(*program_);
    for (Ledger &ledger : ledgers_) {
        checkLedger(ledger);
    }
}

void tst_crash::everyFinishedOperationSurvivesAKill()
{
    for (int kill = 0; kill < kills && !QTest::currentTestFailed(); ++kill) {
        core::DBDados->Close();
        workUntilKilled();
        checkFile();
    }

    QVERIFY2(closed_.size() > kills, "too few operations were finished to prove anything");
    QVERIFY2(mended_ > 0, "no recalculation had anything to set right");
    for (const auto &[word, traces] : tracesOfSettling()) {
        QVERIFY2(settled_[word].size() > kills / 10, qPrintable(u"too few were told: "_s + word));
    }
    for (const auto &[code, form] : closed_) {
        checkClosed(code, form);
    }
    altered_.checkAll(*program_, kills / 10);
    received_.checkAll(*program_, kills / 10);
    for (const auto &[word, codes] : settled_) {
        for (const auto &code : codes) {
            checkSettled(word, runtime::Format(code.toInt(), u"0000"));
        }
    }
    const auto rows = program_->rows(u"SELECT Codigo FROM OrdemServico ORDER BY Codigo"_s);
    for (std::size_t row = 1; row < rows.size(); ++row) {
        QVERIFY2(rows[row - 1] != rows[row], "a number was given twice");
    }
    const auto audit = confere::Confere(core::caminho(core::ArquivoDB));
    QVERIFY2(audit.achados(confere::Nivel::Erro) == 0, qPrintable(confere::Texto(audit, true)));
}

} // namespace

TARVELO_TEST_MAIN(tst_crash)
#include "tst_crash.moc"
