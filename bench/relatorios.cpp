#include "bench/banco_cru.h"
#include "bench/janela.h"
#include "bench/oficina.h"
#include "bench/relator.h"

#include "core/funcoes.h"
#include "core/modos.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/dao/unit.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/forms.h"
#include "reports/pecasvendidas.h"

#include <QPixmap>

#include <vector>

using namespace Qt::StringLiterals;

namespace medidas
{

namespace
{

constexpr int firstDay = 45'000;

// --- the shopping list

constexpr int parts = 20'000;
constexpr int movements = 200'000;
constexpr int below = parts / 2;

void addParts()
{
    auto rows = core::DBDados->OpenRecordset(u"Pecas"_s);
    for (int part = 1; part <= parts; ++part) {
        rows.AddNew();
        rows[u"Nome"] = u"PEÇA NÚMERO %1"_s.arg(part);
        rows[u"PS"] = u"P"_s;
        rows[u"UM"] = part % 3;
        rows[u"EstoqueMinimo"] = 5.0F;
        rows[u"ControlaEstoque"] = -1;
        rows.Update();
    }
}

/// The movements of all parts mixed, as days bring them; every other part ends below its minimum.
void addMovements()
{
    auto rows = core::DBDados->OpenRecordset(u"Estoque"_s);
    for (int row = 0; row < movements; ++row) {
        const int part = row % parts + 1;
        rows.AddNew();
        rows[u"CodPeca"] = part;
        rows[u"Data"] = runtime::Date{double{firstDay} + row / 1000}; // NOLINT(bugprone-integer-division): whole days
        rows[u"Descricao"] = u"VENDA O.S. 0001"_s;
        rows[u"Saida"] = 1.0F;
        rows[u"Estoque"] = part % 2 == 0 ? 3.0F : 8.0F;
        rows.Update();
    }
}

const Oficina &withStock()
{
    static const Oficina workshop([] {
        const dao::Unit batch;
        addParts();
        addMovements();
    });
    return workshop;
}

void openShoppingList(benchmark::State &state)
{
    withStock().abre();
    for (auto turn : state) {
        core::ModoChamada = core::modoRelaCompras;
        auto *form = ui::Forms::instance().Show(u"frmRelatorio"_s);
        auto painted = listOf(form)->grab();
        benchmark::DoNotOptimize(painted);
        if (listOf(form)->count() != below) {
            qFatal("The shopping list has %d rows", listOf(form)->count());
        }
        close(form);
    }
}

void readShoppingListBare(benchmark::State &state)
{
    const BancoCru database(withStock().arquivo());
    const auto quantity = [](const Instrucao &row, int column) {
        return core::FormataQuantidade(row.number(column), static_cast<int>(row.integer(4)));
    };
    for (auto turn : state) {
        Instrucao row(database,
                      "SELECT Codigo, Nome, EstoqueMinimo, (SELECT Estoque FROM Estoque WHERE CodPeca = Pecas.Codigo "
                      "ORDER BY Codigo DESC LIMIT 1), UM FROM Pecas WHERE ControlaEstoque = -1 AND (SELECT Estoque "
                      "FROM Estoque WHERE CodPeca = Pecas.Codigo ORDER BY Codigo DESC LIMIT 1) < EstoqueMinimo");
        std::vector<QStringList> rows;
        while (row.step()) {
            rows.push_back({codeOf(row, 0), row.text(1), quantity(row, 2), quantity(row, 3)});
        }
        if (rows.size() != below) {
            qFatal("The bare list has %zu rows", rows.size());
        }
    }
}

// --- parts sold

constexpr int manyOrders = 5'000;
constexpr int fewOrders = 500;
constexpr int linesAnOrder = 3;
constexpr int salesOfAPart = 10;

/// Orders of a year, each with two parts and a service; every part is sold ten times.
void addOrders(int orders)
{
    auto rows = core::DBDados->OpenRecordset(u"OrdemServico"_s);
    auto lines = core::DBDados->OpenRecordset(u"OSPecas"_s);
    const int codes = orders * linesAnOrder / salesOfAPart;
    for (int order = 0; order < orders; ++order) {
        rows.AddNew();
        rows[u"DataIn"] = runtime::Date{double{firstDay} + order % 365};
        const auto number = rows[u"Codigo"].Value();
        rows.Update();
        for (int line = 0; line < linesAnOrder; ++line) {
            lines.AddNew();
            lines[u"CodOS"] = number;
            lines[u"CodPeca"] = (order * linesAnOrder + line) % codes + 1;
            lines[u"Quantidade"] = 1.5F;
            lines[u"ValorUnit"] = 12.37F;
            lines[u"Descricao"] = u"PASTILHA DE FREIO DIANTEIRA"_s;
            lines[u"PSA"] = line == 0 ? u"S"_s : u"P"_s;
            lines.Update();
        }
    }
}

const Oficina &withOrders(int orders)
{
    static const Oficina many([] {
        const dao::Unit batch;
        addOrders(manyOrders);
    });
    static const Oficina few([] {
        const dao::Unit batch;
        addOrders(fewOrders);
    });
    return orders == manyOrders ? many : few;
}

/// One write to the disk a turn on either side, as that costs the same however many orders there are, and the file
/// locked from its beginning: ten reports in one unit would read without locks of their own from the second on.
void addSalesUp(benchmark::State &state, int orders, reports::ItensContados which)
{
    withOrders(orders).abre();
    const QString year = core::DataSQL(runtime::Date{firstDay}, 4, runtime::Date{double{firstDay} + 365});
    for (auto turn : state) {
        const dao::Unit batch;
        core::DBDados->Execute(u"DELETE * FROM OSPecas WHERE Codigo = 0"_s);
        for (int done = 0; done < manyOrders; done += orders) {
            core::Andamento work(u"Somando"_s, [] { return 0; });
            const auto sold = reports::ItensVendidos(year, which, work, [](const QString &) {});
            if (sold.empty()) {
                qFatal("Nothing was sold");
            }
        }
    }
}

} // namespace

void medeRelatorios()
{
    compara(
        {"compras", 2.0,
         "the shopping list of 20,000 parts with 200,000 rows in their ledgers opened and painted, against the same "
         "rows and texts by look-ups of the bare library"},
        openShoppingList, readShoppingListBare);
    compara(
        {"vendidos", 1.5,
         "the parts sold in 5,000 orders added up (without the services), against those of 500 orders, per order"},
        [](benchmark::State &state) { addSalesUp(state, manyOrders, reports::ItensContados::Pecas); },
        [](benchmark::State &state) { addSalesUp(state, fewOrders, reports::ItensContados::Pecas); });
}

} // namespace medidas
