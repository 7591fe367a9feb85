// Kills the program at random moments while it opens and closes orders. Whatever the moment, the file opens again,
// is whole, holds every row that a finished operation wrote, and of the one that was cut all rows or none.
#include "support/program.h"

#include "core/caminhos.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"

#include <QProcess>
#include <QRandomGenerator>
#include <QTest>
#include <QThread>

#include <array>
#include <map>

using namespace Qt::StringLiterals;

namespace
{

constexpr int kills = 200;
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

/// Everything that closing an order %1 may leave, and how many rows of it each payment form does.
struct Posting {
    QString count;
    std::array<int, allForms> rows;
};

const std::vector<Posting> &postings()
{
    static const std::vector<Posting> all = {
        {u"SELECT count(Codigo) FROM Caixa WHERE Descricao = 'O.S. %1'"_s, {1, 0, 0, 0, 0, 0}},
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
    int count(const QString &select) const;

    std::unique_ptr<support::Program> program_;
    QRandomGenerator random_{20240515};
    std::vector<int> opened_;
    std::map<int, int> closed_;
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
}

void tst_crash::cleanup()
{
    program_.reset();
}

void tst_crash::workUntilKilled()
{
    QProcess operador;
    operador.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    operador.start(QStringLiteral(OPERADOR), {program_->path()});
    QVERIFY(operador.waitForStarted());
    QVERIFY2(operador.waitForReadyRead(60000), "the program never got ready");

    QThread::usleep(random_.bounded(200'000));
    operador.kill();
    QVERIFY(operador.waitForFinished(60000));
    QCOMPARE(operador.exitStatus(), QProcess::CrashExit);
    readFinished(operador.readAllStandardOutput());
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
        const int due = open ? 0 : posting.rows.at(form);
        QVERIFY2(found == due,
                 qPrintable(u"order %1: %2 rows and not %3: %4"_s.arg(shown).arg(found).arg(due).arg(posting.count)));
    }
}

void tst_crash::checkWhole()
{
    const auto orders =
        program_->rows(u"SELECT Codigo, EmAberto, FormaPagto FROM OrdemServico WHERE Codigo > %1 ORDER BY Codigo"_s.arg(
            checkedWhole_));
    for (const auto &order : orders) {
        checkOrder(order);
        checkedWhole_ = order[0];
    }
    const int items = count(u"SELECT count(Codigo) FROM OSPecas"_s);
    QCOMPARE(items, 3 * count(u"SELECT count(Codigo) FROM OrdemServico"_s));
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
    checkWhole();
}

void tst_crash::everyFinishedOperationSurvivesAKill()
{
    for (int kill = 0; kill < kills && !QTest::currentTestFailed(); ++kill) {
        core::DBDados->Close();
        workUntilKilled();
        checkFile();
    }

    QVERIFY2(closed_.size() > kills, "too few operations were finished to prove anything");
    for (const auto &[code, form] : closed_) {
        checkClosed(code, form);
    }
    const auto rows = program_->rows(u"SELECT Codigo FROM OrdemServico ORDER BY Codigo"_s);
    for (std::size_t row = 1; row < rows.size(); ++row) {
        QVERIFY2(rows[row - 1] != rows[row], "a number was given twice");
    }
}

} // namespace

TARVELO_TEST_MAIN(tst_crash)
#include "tst_crash.moc"
