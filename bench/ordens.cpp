#include "bench/banco_cru.h"
#include "bench/oficina.h"
#include "bench/relator.h"

#include "platform/dao/unit.h"
#include "platform/runtime/runtime.h"
#include "workorders/abertura.h"
#include "workorders/fechamento.h"

using namespace Qt::StringLiterals;
using namespace workorders;

namespace medidas
{

namespace
{

constexpr int items = 20;

NovaOrdem newOrder()
{
    NovaOrdem order;
    order.codCliente = u"1"_s;
    order.codVeiculo = u"0001"_s;
    order.valor = u"200,00"_s;
    order.itens.assign(items, {u"0000"_s, u"A"_s, u"01"_s, u"TROCA DE ÓLEO"_s, u"10,00"_s, u"10,00"_s});
    return order;
}

void openAndClose(benchmark::State &state)
{
    pequena().abre();
    const auto order = newOrder();
    Fechamento closing;
    closing.codCliente = u"1"_s;
    closing.total = u"200,00"_s;
    for (auto turn : state) {
        {
            const dao::Unit unit;
            closing.codigo = runtime::Format(AbreOrdem(order), u"0000");
        }
        const dao::Unit unit;
        FechaOrdem(closing);
    }
}

/// The same rows with prepared statements, opening and closing each one commit.
class BareOrders
{
public:
    BareOrders() : database_(pequena().arquivo()) {}

    void openAndClose()
    {
        const auto now = runtime::Now().serial;
        const auto code = nextCode_++;
        database_.execute("BEGIN");
        open(code, now);
        for (int item = 0; item < items; ++item) {
            addItem(code);
        }
        database_.execute("COMMIT");
        database_.execute("BEGIN");
        close(code, now);
        database_.execute("COMMIT");
    }

private:
    void open(qint64 code, double now)
    {
        order_.bind(1, code);
        order_.bind(2, now);
        order_.run();
    }

    void addItem(qint64 order)
    {
        item_.bind(1, nextItem_++);
        item_.bind(2, order);
        item_.bind(3, u"TROCA DE ÓLEO"_s);
        item_.run();
    }

    void close(qint64 code, double now)
    {
        lastBalance_.step();
        const auto balance = lastBalance_.number(0);
        lastBalance_.reset();
        cash_.bind(1, nextCash_++);
        cash_.bind(2, now);
        cash_.bind(3, u"O.S. 0001"_s);
        cash_.bind(4, balance + 200.0);
        cash_.run();
        closed_.bind(1, now);
        closed_.bind(2, u"À VISTA"_s);
        closed_.bind(3, code);
        closed_.run();
        stock_.bind(1, code);
        stock_.run();
    }

    BancoCru database_;
    qint64 nextCode_ = 100'000'000;
    qint64 nextItem_ = 100'000'000;
    qint64 nextCash_ = 100'000'000;
    Instrucao order_{database_, "INSERT INTO OrdemServico (Codigo, CodCliente, CodVeiculo, DataIn, Valor, EmAberto, "
                                "Pago) VALUES (?1, 1, 1, ?2, 200.0, -1, 0)"};
    Instrucao item_{database_, "INSERT INTO OSPecas (Codigo, CodOS, CodPeca, Quantidade, Descricao, ValorUnit, PSA) "
                               "VALUES (?1, ?2, 0, 1.0, ?3, 10.0, 'A')"};
    Instrucao lastBalance_{database_, "SELECT Saldo FROM Caixa ORDER BY Codigo DESC LIMIT 1"};
    Instrucao cash_{database_,
                    "INSERT INTO Caixa (Codigo, Data, Descricao, Entrada, Saldo) VALUES (?1, ?2, ?3, 200.0, ?4)"};
    Instrucao closed_{database_, "UPDATE OrdemServico SET DataOut = ?1, EmAberto = 0, Pago = -1, DataPagto = ?1, "
                                 "FormaPagto = ?2 WHERE Codigo = ?3"};
    Instrucao stock_{database_, "SELECT OSPecas.*, Pecas.ControlaEstoque FROM OSPecas, Pecas WHERE OSPecas.CodOs = ?1 "
                                "AND Pecas.Codigo = OSPecas.CodPeca"};
};

} // namespace

void medeOrdens()
{
    compara({"abre_os", 1.5, "an order of 20 items opened and closed, against the same rows by prepared statements"},
            openAndClose, [](benchmark::State &state) {
                BareOrders bare;
                for (auto turn : state) {
                    bare.openAndClose();
                }
            });
}

} // namespace medidas
