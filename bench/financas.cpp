#include "bench/banco_cru.h"
#include "bench/janela.h"
#include "bench/oficina.h"
#include "bench/relator.h"

#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/dao/unit.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/controls.h"
#include "platform/ui/forms.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QLocale>
#include <QPixmap>

#include <vector>

using namespace Qt::StringLiterals;

namespace medidas
{

namespace
{

constexpr int allRows = 100'000;
constexpr int shownRows = 50'000;
constexpr int rowsADay = 100;
constexpr int firstDay = 45'000;
constexpr int firstShown = firstDay + (allRows - shownRows) / rowsADay; ///< the later half
constexpr int lastDay = firstDay + allRows / rowsADay - 1;
constexpr int totalRows = 3;

const auto cashBook = u"frmMoviCaixa"_s;
const auto accounts = u"frmMoviContasPR"_s;

runtime::Date dayOf(int row)
{
    return {double(firstDay) + row / rowsADay}; // NOLINT(bugprone-integer-division): whole days
}

float amountOf(int row)
{
    return static_cast<float>(row % 1000) * 12.37F + 0.1F;
}

void addMovements()
{
    auto rows = core::DBDados->OpenRecordset(u"Caixa"_s);
    float balance = 0;
    for (int row = 0; row < allRows; ++row) {
        const bool in = row % 3 != 0;
        balance += in ? amountOf(row) : -amountOf(row);
        rows.AddNew();
        rows[u"Data"] = dayOf(row);
        rows[u"Descricao"] = u"O.S. "_s + runtime::Format(row, u"0000");
        rows[in ? u"Entrada" : u"Saida"] = amountOf(row);
        rows[u"Saldo"] = balance;
        rows[u"CodOs"] = row;
        rows.Update();
    }
}

void addAccounts()
{
    auto rows = core::DBDados->OpenRecordset(u"ContasReceber"_s);
    for (int row = 0; row < allRows; ++row) {
        const bool paid = row % 3 != 0;
        rows.AddNew();
        rows[u"Data"] = dayOf(row);
        rows[u"Descricao"] = u"CARNÊ Nº %1-01"_s.arg(row % 10'000, 4, 10, QChar(u'0'));
        rows[u"Valor"] = amountOf(row);
        rows[u"Vencimento"] = dayOf(row);
        rows[u"Pago"] = paid;
        if (paid) {
            rows[u"DataPagto"] = dayOf(row);
        }
        rows.Update();
    }
}

/// A workshop with two tables of finance, 100 rows a day, and an administrator, as only he changes rows.
const Oficina &withFinances()
{
    static const Oficina workshop([] {
        const dao::Unit batch;
        core::CodOperador = 1;
        core::DBDados->Execute(u"INSERT INTO Senha (Codigo, Nome, Senha, Admin) VALUES (1, 'ADMIN', 'X', True)"_s);
        addMovements();
        addAccounts();
    });
    return workshop;
}

// --- the windows

void press(const ui::Form *form, const QString &button)
{
    form->findChild<QAbstractButton *>(button)->click();
}

/// A window on a period of its own, not filled yet.
ui::Form *open(const QString &window, int from, int to)
{
    withFinances().abre();
    core::ModoChamada = 0;
    auto *form = ui::Forms::instance().Show(window);
    for (const auto &[picker, day] : {std::pair{u"txtDataInicio"_s, from}, {u"txtDataFim"_s, to}}) {
        form->findChild<ui::DTPicker *>(picker)->setDate(runtime::toDateTime(runtime::Date{double(day)}).date());
    }
    return form;
}

/// Fills the list of the later half and paints it.
void fill(benchmark::State &state, const QString &window, const QString &name, int rows)
{
    auto *form = open(window, firstShown, lastDay);
    for (auto turn : state) {
        press(form, u"btnPreenche"_s);
        auto painted = listOf(form, name)->grab();
        benchmark::DoNotOptimize(painted);
    }
    if (listOf(form, name)->count() != rows) {
        qFatal("%s shows %d rows", qPrintable(window), listOf(form, name)->count());
    }
    close(form);
}

/// Changes the value of a row of the first day, as a clerk does.
void changeARow(benchmark::State &state)
{
    auto *form = open(cashBook, firstDay, firstDay);
    press(form, u"btnPreenche"_s);
    listOf(form, u"Lista"_s)->itemClick(1);
    float value = 0;
    for (auto turn : state) {
        press(form, u"btnAlterar"_s);
        form->findChild<QLineEdit *>(u"txtValor"_s)->setText(QString::number(++value));
        press(form, u"btnAlterar"_s);
    }
    const auto changed = core::DBDados->OpenRecordset(u"SELECT Entrada FROM Caixa WHERE Codigo = 2"_s);
    if (runtime::CSng(changed.value(0)) != value) {
        qFatal("The row was not changed");
    }
    close(form);
}

// --- the bare library

QString money(const Instrucao &row, int column)
{
    static const QLocale brazil(QLocale::Portuguese, QLocale::Brazil);
    return row.null(column) ? u" "_s : brazil.toString(row.number(column), 'f', 2);
}

void bindPeriod(Instrucao &select)
{
    select.bind(1, double{firstShown});
    select.bind(2, double{lastDay});
}

void readMovementsBare(benchmark::State &state)
{
    const BancoCru database(withFinances().arquivo());
    for (auto turn : state) {
        Instrucao row(database, "SELECT Codigo, Data, Descricao, Entrada, Saida, Saldo, CodOs FROM Caixa WHERE Data "
                                "BETWEEN ?1 AND ?2 ORDER BY Data, Codigo");
        bindPeriod(row);
        std::vector<QStringList> rows;
        while (row.step()) {
            rows.push_back({codeOf(row, 0), dateOf(row, 1), row.text(2), money(row, 3), money(row, 4), money(row, 5),
                            row.text(6)});
        }
        benchmark::DoNotOptimize(rows.data());
    }
}

void changeARowBare(benchmark::State &state)
{
    BancoCru database(withFinances().arquivo());
    double value = 0;
    for (auto turn : state) {
        database.execute("BEGIN");
        Instrucao update(database, "UPDATE Caixa SET Entrada = ?1, Saida = NULL WHERE Codigo = 2");
        update.bind(1, ++value);
        update.run();
        recalculaCru(database);
        database.execute("COMMIT");
    }
}

/// The rows with their texts, and three sums of them.
void readAccountsBare(benchmark::State &state)
{
    const BancoCru database(withFinances().arquivo());
    for (auto turn : state) {
        Instrucao row(database, "SELECT Codigo, Data, Descricao, Valor, Vencimento, Pago, DataPagto FROM ContasReceber "
                                "WHERE Vencimento BETWEEN ?1 AND ?2 ORDER BY Vencimento, Codigo");
        bindPeriod(row);
        std::vector<QStringList> rows;
        float all = 0;
        float paid = 0;
        float open = 0;
        while (row.step()) {
            const auto value = static_cast<float>(row.number(3));
            const bool isPaid = row.integer(5) != 0;
            all += value;
            (isPaid ? paid : open) += value;
            rows.push_back({codeOf(row, 0), dateOf(row, 1), row.text(2), money(row, 3), dateOf(row, 4),
                            isPaid ? u"Sim"_s : u"Não"_s, dateOf(row, 6)});
        }
        benchmark::DoNotOptimize(rows.data());
        benchmark::DoNotOptimize(all + paid + open);
    }
}

} // namespace

void medeFinancas()
{
    compara(
        {"caixa_preenche", 0.6,
         "the cash book's list filled for a period of 50,000 rows and painted, against reading the same rows and texts "
         "through the bare library"},
        [](benchmark::State &state) { fill(state, cashBook, u"Lista"_s, shownRows); }, readMovementsBare);
    compara({"caixa_altera", 1.5,
             "a row changed in the cash book of 100,000 rows, its balances worked out anew, against the bare library"},
            changeARow, changeARowBare);
    compara(
        {"contas_preenche", 1.5,
         "the accounts of a period of 50,000 rows listed with their three sums and painted, against the same rows, "
         "texts and sums through the bare library"},
        [](benchmark::State &state) { fill(state, accounts, u"Lista_0"_s, shownRows + totalRows); }, readAccountsBare);
}

} // namespace medidas
