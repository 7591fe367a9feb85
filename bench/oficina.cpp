#include "bench/oficina.h"

#include "bench/banco_cru.h"
#include "bench/relator.h"
#include "core/esquema.h"
#include "core/modulo.h"
#include "core/razao.h"
#include "platform/dao/database.h"
#include "platform/dao/unit.h"
#include "platform/runtime/runtime.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace medidas
{

namespace
{

const auto arquivoDados = u"DADOS/DADOS.MDB"_s;

void fillLedger(int rows)
{
    const dao::Unit batch;
    auto ledger = core::DBDados->OpenRecordset(u"Caixa"_s);
    float balance = 0;
    for (int row = 0; row < rows; ++row) {
        const auto amount = static_cast<float>(row % 100 + 1);
        balance += amount;
        ledger.AddNew();
        ledger[u"Data"] = runtime::Date{45000.0 + row / 100};
        ledger[u"Descricao"] = u"O.S. "_s + runtime::Format(row, u"0000");
        ledger[u"Entrada"] = amount;
        ledger[u"Saldo"] = balance;
        ledger.Update();
    }
}

void fillCustomers(int rows)
{
    const dao::Unit batch;
    auto customers = core::DBDados->OpenRecordset(u"Clientes"_s);
    for (int row = 0; row < rows; ++row) {
        customers.AddNew();
        customers[u"DataCadastro"] = runtime::Date{45000.0};
        customers[u"Nome"] = u"CLIENTE NÚMERO %1"_s.arg(row);
        customers[u"Endereco"] = u"RUA DAS OFICINAS"_s;
        customers[u"Numero"] = row % 3000;
        customers[u"Fone1"] = u"(11) 5555-1234"_s;
        customers.Update();
    }
}

void readByPlace(benchmark::State &state)
{
    grande().abre();
    for (auto turn : state) {
        auto ledger = core::DBDados->OpenRecordset(u"SELECT * FROM Caixa"_s);
        for (; !ledger.Eof(); ledger.MoveNext()) {
            for (int place = 0; place < 7; ++place) {
                auto value = ledger.value(place);
                benchmark::DoNotOptimize(value);
            }
        }
    }
}

void readByName(benchmark::State &state)
{
    grande().abre();
    for (auto turn : state) {
        auto ledger = core::DBDados->OpenRecordset(u"SELECT * FROM Caixa"_s);
        for (; !ledger.Eof(); ledger.MoveNext()) {
            for (const auto *name : {u"Codigo", u"Data", u"Descricao", u"Entrada", u"Saida", u"Saldo", u"CodOs"}) {
                auto value = ledger.value(name);
                benchmark::DoNotOptimize(value);
            }
        }
    }
}

/// The values that a row of a ledger makes in the program.
void makeRow(const Instrucao &row)
{
    const auto single = [&row](int column) {
        return row.null(column) ? runtime::Value(runtime::Null{}) : static_cast<float>(row.number(column));
    };
    const auto whole = [&row](int column) {
        return row.null(column) ? runtime::Value(runtime::Null{}) : static_cast<qint32>(row.integer(column));
    };
    runtime::Value values[] = {whole(0), runtime::Date{row.number(1)}, row.text(2), single(3), single(4), single(5),
                               whole(6)};
    benchmark::DoNotOptimize(values);
}

void readBare(benchmark::State &state)
{
    const BancoCru database(grande().arquivo());
    for (auto turn : state) {
        Instrucao select(database, "SELECT Codigo, Data, Descricao, Entrada, Saida, Saldo, CodOs FROM Caixa");
        while (select.step()) {
            makeRow(select);
        }
    }
}

void post(benchmark::State &state, const Oficina &workshop)
{
    workshop.abre();
    for (auto turn : state) {
        core::LancaNoRazao(core::razaoCaixa,
                           {.data = runtime::Date{45000.0}, .descricao = u"O.S. 0001"_s, .valor = 1.0F});
    }
}

void recalculate(benchmark::State &state)
{
    grande().abre();
    for (auto turn : state) {
        core::RecalculaRazao(core::razaoCaixa);
    }
}

void recalculateBare(benchmark::State &state)
{
    BancoCru database(grande().arquivo());
    for (auto turn : state) {
        database.execute("BEGIN");
        recalculaCru(database);
        database.execute("COMMIT");
    }
}

void findCustomer(benchmark::State &state)
{
    grande().abre();
    int code = 0;
    for (auto turn : state) {
        code = code % linhasGrandes + 1;
        auto found = core::DBDados->OpenRecordset(u"SELECT * FROM Clientes WHERE Codigo = "_s + QString::number(code));
        auto name = found.value(2);
        benchmark::DoNotOptimize(name);
    }
}

void findCustomerBare(benchmark::State &state)
{
    const BancoCru database(grande().arquivo());
    Instrucao select(database, "SELECT * FROM Clientes WHERE Codigo = ?");
    int code = 0;
    for (auto turn : state) {
        code = code % linhasGrandes + 1;
        select.bind(1, code);
        select.step();
        auto name = select.text(2);
        benchmark::DoNotOptimize(name);
        select.reset();
    }
}

void runCached(benchmark::State &state)
{
    grande().abre();
    for (auto turn : state) {
        auto found = core::DBDados->OpenRecordset(u"SELECT Nome FROM Clientes WHERE Codigo = 77"_s);
        auto name = found.value(0);
        benchmark::DoNotOptimize(name);
    }
}

void runCachedBare(benchmark::State &state)
{
    const BancoCru database(grande().arquivo());
    Instrucao select(database, "SELECT Nome FROM Clientes WHERE Codigo = 77");
    for (auto turn : state) {
        select.step();
        auto name = select.text(0);
        benchmark::DoNotOptimize(name);
        select.reset();
    }
}

} // namespace

Oficina::Oficina(int rows)
    : Oficina([rows] {
          fillLedger(rows);
          fillCustomers(rows);
      })
{
}

Oficina::Oficina(const std::function<void()> &preenche)
{
    const auto silent = [](const QString &) {};
    QDir(folder_.path()).mkdir(u"DADOS"_s);
    abre();
    core::CriarDB(silent);
    preenche();
}

Oficina::~Oficina()
{
    core::DBDados.reset();
}

QString Oficina::arquivo() const
{
    return folder_.filePath(arquivoDados);
}

void Oficina::abre() const
{
    abrePasta(folder_.path());
}

void abrePasta(const QString &pasta)
{
    core::App::setPath(pasta);
    core::ArquivoINI = QDir(pasta).filePath(u"config.ini"_s);
    core::ArquivoDB = QDir(pasta).filePath(arquivoDados);
    core::DBDados.reset();
    core::AbreOuCriaBanco([](const QString &) {});
}

void recalculaCru(const BancoCru &banco)
{
    Instrucao select(banco, "SELECT rowid, Entrada, Saida FROM Caixa ORDER BY Data, Codigo");
    Instrucao update(banco, "UPDATE Caixa SET Saldo = ? WHERE rowid = ?");
    float balance = 0;
    while (select.step()) {
        balance += static_cast<float>(select.null(1) ? -select.number(2) : select.number(1));
        update.bind(1, double{balance});
        update.bind(2, select.integer(0));
        update.run();
    }
}

const Oficina &grande()
{
    static const Oficina workshop(linhasGrandes);
    return workshop;
}

const Oficina &pequena()
{
    static const Oficina workshop(linhasPequenas);
    return workshop;
}

void medeBanco()
{
    compara({"leitura", 1.25, "all columns of 200,000 cash book rows by place, against the bare library"}, readByPlace,
            readBare);
    compara({"leitura_nome", 1.5, "the same by the columns' names"}, readByName, readBare);
    compara(
        {"postagem", 1.5, "a posting behind 200,000 rows of a ledger, against one behind 200"},
        [](benchmark::State &state) { post(state, grande()); },
        [](benchmark::State &state) { post(state, pequena()); });
    compara({"recalculo", 1.5, "the balances of 200,000 rows worked out anew, against the bare library"}, recalculate,
            recalculateBare);
    compara({"busca_codigo", 3.0, "one of 200,000 customers by his code, against a prepared statement"}, findCustomer,
            findCustomerBare);
    compara({"traducao", 2.0, "a statement of the program run again, against a prepared one"}, runCached,
            runCachedBare);
}

} // namespace medidas
