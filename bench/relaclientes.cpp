// The reports that read all customers: their visits, and what they owe.
#include "bench/banco_cru.h"
#include "bench/janela.h"
#include "bench/oficina.h"
#include "bench/relator.h"

#include "core/modos.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/dao/unit.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/forms.h"

#include <QLocale>
#include <QPixmap>

#include <vector>

using namespace Qt::StringLiterals;

namespace medidas
{

namespace
{

constexpr double firstDay = 45'000;

void addCustomers(int count)
{
    auto customers = core::DBDados->OpenRecordset(u"Clientes"_s);
    for (int number = 1; number <= count; ++number) {
        customers.AddNew();
        customers[u"DataCadastro"] = runtime::Date{firstDay};
        customers[u"Nome"] = u"CLIENTE NÚMERO %1"_s.arg(number * 7919 % count); // not in the order of their codes
        customers.Update();
    }
}

/// Opens the report of a mode as often as asked for, filled and painted.
void openReport(benchmark::State &state, const Oficina &workshop, qint16 mode, int rows)
{
    workshop.abre();
    for (auto turn : state) {
        core::ModoChamada = mode;
        auto *form = ui::Forms::instance().Show(u"frmRelatorio"_s);
        auto painted = listOf(form)->grab();
        benchmark::DoNotOptimize(painted);
        if (listOf(form)->count() != rows) {
            qFatal("The report of mode %d shows %d rows", mode, listOf(form)->count());
        }
        close(form);
    }
}

// --- visits

constexpr int visitors = 50'000;
constexpr int visits = 100'000;
constexpr int visitsADay = 100;
constexpr int oneOfFour = 4; ///< customers who never came
constexpr int whoCame = visitors - visitors / oneOfFour;

/// The orders of a day are those of customers from all over the register; every fourth one never came.
void addVisits()
{
    auto orders = core::DBDados->OpenRecordset(u"OrdemServico"_s);
    for (int visit = 0; visit < visits; ++visit) {
        const int which = visit * 31 % whoCame;
        orders.AddNew();
        orders[u"CodCliente"] = which + which / (oneOfFour - 1) + 1;
        orders[u"CodVeiculo"] = 1;
        orders[u"DataIn"] = runtime::Date{firstDay + visit / visitsADay}; // NOLINT(bugprone-integer-division)
        orders[u"Valor"] = 100.0F;
        orders.Update();
    }
}

const Oficina &withVisits()
{
    static const Oficina workshop([] {
        const dao::Unit batch;
        addCustomers(visitors);
        addVisits();
    });
    return workshop;
}

void readVisitsBare(benchmark::State &state)
{
    const BancoCru database(withVisits().arquivo());
    for (auto turn : state) {
        Instrucao row(database, "SELECT Clientes.Codigo, Clientes.Nome, count(OrdemServico.CodCliente), "
                                "max(OrdemServico.DataIn) FROM Clientes JOIN OrdemServico ON OrdemServico.CodCliente = "
                                "Clientes.Codigo GROUP BY Clientes.Codigo ORDER BY Clientes.Nome");
        std::vector<QStringList> rows;
        while (row.step()) {
            rows.push_back(
                {codeOf(row, 0), row.text(1), u"%1"_s.arg(row.integer(2), 2, 10, QChar(u'0')), dateOf(row, 3)});
        }
        if (int(rows.size()) != whoCame) {
            qFatal("%d customers came", int(rows.size()));
        }
        benchmark::DoNotOptimize(rows.data());
    }
}

// --- debtors

constexpr int debtors = 5'000;
constexpr int accountRows = 200'000;
constexpr int rowsEach = accountRows / debtors;
constexpr int oneOfTwo = 2; ///< customers who have paid

/// Customers buy and pay by turns, all in the same days; every second one is even in the end.
void addAccounts()
{
    auto rows = core::DBDados->OpenRecordset(u"ContaFiado"_s);
    for (int row = 0; row < accountRows; ++row) {
        const int customer = row % debtors + 1;
        const int turn = row / debtors;
        const bool even = turn == rowsEach - 1 && customer % oneOfTwo == 0;
        rows.AddNew();
        rows[u"CodCliente"] = customer;
        rows[u"Data"] = runtime::Date{firstDay + turn};
        rows[u"Descricao"] = u"O.S. PENDENTE CÓD "_s + runtime::Format(row, u"0000");
        rows[turn % 2 == 0 ? u"Entrada" : u"Saida"] = 10.0F;
        rows[u"Saldo"] = even ? 0.0F : float(customer % 100 + turn + 1);
        rows.Update();
    }
}

const Oficina &withDebtors()
{
    static const Oficina workshop([] {
        const dao::Unit batch;
        addCustomers(debtors);
        addAccounts();
    });
    return workshop;
}

/// The last row of each account that is not even, with the customer's name.
class BareDebtors
{
public:
    explicit BareDebtors(const BancoCru &database)
        : row_(database, "SELECT * FROM ContaFiado ORDER BY CodCliente, Codigo"),
          name_(database, "SELECT Nome FROM Clientes WHERE Codigo = ?1")
    {
    }

    std::vector<QStringList> read()
    {
        while (row_.step()) {
            if (row_.integer(customerColumn) != customer_) {
                finish();
            }
            customer_ = row_.integer(customerColumn);
            balance_ = static_cast<float>(row_.number(balanceColumn));
            day_ = row_.number(dayColumn);
        }
        finish();
        return std::move(rows_);
    }

private:
    static constexpr int customerColumn = 1;
    static constexpr int dayColumn = 2;
    static constexpr int balanceColumn = 6;

    void finish()
    {
        if (customer_ == 0 || balance_ == 0) {
            return;
        }
        name_.bind(1, customer_);
        name_.step();
        static const QLocale brazil(QLocale::Portuguese, QLocale::Brazil);
        static const QDate dayZero(1899, 12, 30);
        rows_.push_back({u"%1"_s.arg(customer_, 4, 10, QChar(u'0')), name_.text(0),
                         brazil.toString(double{balance_}, 'f', 2),
                         dayZero.addDays(qint64(day_)).toString(u"dd/MM/yyyy"_s)});
        name_.reset();
    }

    Instrucao row_;
    Instrucao name_;
    qint64 customer_ = 0;
    float balance_ = 0;
    double day_ = 0;
    std::vector<QStringList> rows_;
};

void readDebtorsBare(benchmark::State &state)
{
    const BancoCru database(withDebtors().arquivo());
    for (auto turn : state) {
        const auto rows = BareDebtors(database).read();
        if (int(rows.size()) != debtors / oneOfTwo) {
            qFatal("%d customers owe", int(rows.size()));
        }
        benchmark::DoNotOptimize(rows.data());
    }
}

} // namespace

void medeRelatoriosDeClientes()
{
    compara(
        {"visitas", 2.0,
         "the report of visits of 50,000 customers with 100,000 orders opened and painted, against the same rows "
         "and texts by an indexed join of the bare library"},
        [](benchmark::State &state) { openReport(state, withVisits(), core::modoRelaVisitas, whoCame); },
        readVisitsBare);
    constexpr int totalRow = 1;
    compara(
        {"devedores", 1.5,
         "the list of debtors of 200,000 rows of account opened and painted, against the bare scan by the same "
         "statement with the debtors' names"},
        [](benchmark::State &state) {
            openReport(state, withDebtors(), core::modoRelaDevedores, debtors / oneOfTwo + totalRow);
        },
        readDebtorsBare);
}

} // namespace medidas
