#include "bench/banco_cru.h"
#include "bench/oficina.h"
#include "bench/relator.h"

#include "core/modulo.h"
#include "documents/itensgravados.h"
#include "documents/usoimediato.h"
#include "platform/dao/database.h"
#include "platform/dao/unit.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/form.h"
#include "platform/ui/forms.h"
#include "platform/ui/listview.h"
#include "workorders/abertura.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;
using namespace documents;

namespace medidas
{

namespace
{

constexpr int items = 200;
constexpr int changed = 100; ///< the row in the middle
constexpr qint32 order = 1;

const Oficina &withOrder()
{
    static const Oficina workshop([] {
        const dao::Unit batch;
        workorders::NovaOrdem opened{.codCliente = u"1"_s,
                                     .codVeiculo = u"1"_s,
                                     .km = {},
                                     .observacao = {},
                                     .valor = u"2.000,00"_s,
                                     .servicos = {},
                                     .mecanico = {},
                                     .itens = {}};
        opened.itens.assign(items, {u"0000"_s, u"A"_s, u"01"_s, u"TROCA DE ÓLEO"_s, u"10,00"_s, {}});
        workorders::AbreOrdem(opened);
    });
    return workshop;
}

/// What stands behind the boxes that ask for the new texts of a line: the list and its totals, then the two rows.
void changeALine(benchmark::State &state)
{
    withOrder().abre();
    auto *form = ui::Forms::instance().Show(u"frmOSAltera"_s);
    auto *panel = form->findChild<PainelItens *>();
    panel->listas().mostra(LeItens(u"SELECT OSPecas.* FROM OSPecas WHERE OSPecas.CodOS = %1"_s.arg(order)));
    const UsoDoPainel use = UsoDe(*panel, {ordemGravada, [] { return order; }, {}});
    const PosicaoItem place{abaPecas, changed};
    int price = 0;
    for (auto turn : state) {
        LinhaItem line = panel->listas().linha(place);
        line.valorUnit = runtime::Format(++price % 1000, u"###,##0.00");
        line.valorTotal = ValorDaLinha(line.quantidade, line.valorUnit);
        const dao::Unit unit;
        panel->listas().escreve(place, line);
        panel->recalcula();
        use.editado(place);
    }
    const auto row =
        core::DBDados->OpenRecordset(u"SELECT ValorUnit FROM OSPecas WHERE Codigo = %1"_s.arg(changed + 1));
    const auto total = core::DBDados->OpenRecordset(u"SELECT Valor FROM OrdemServico"_s);
    if (panel->listas().lista(abaPecas).count() != items || runtime::CLng(row.value(0)) != price % 1000 ||
        runtime::CLng(total.value(0)) != 10 * (items - 1) + price % 1000) {
        qFatal("The line was not changed");
    }
    form->Unload();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void changeALineBare(benchmark::State &state)
{
    BancoCru database(withOrder().arquivo());
    Instrucao item(database, "UPDATE OSPecas SET CodPeca = 0, Quantidade = 1.0, Descricao = ?1, ValorUnit = ?2, "
                             "PSA = 'A' WHERE Codigo = ?3");
    Instrucao total(database, "UPDATE OrdemServico SET Valor = ?1 WHERE Codigo = ?2");
    int price = 0;
    for (auto turn : state) {
        ++price;
        database.execute("BEGIN");
        item.bind(1, u"TROCA DE ÓLEO"_s);
        item.bind(2, double(price % 1000));
        item.bind(3, changed + 1);
        item.run();
        total.bind(1, 10.0 * (items - 1) + price % 1000);
        total.bind(2, order);
        total.run();
        database.execute("COMMIT");
    }
}

} // namespace

void medeAlteracao()
{
    compara(
        {"altera_linha", 1.5,
         "a line of an order of 200 items changed, its list added up and both rows written, against the two rows by "
         "bare statements"},
        changeALine, changeALineBare);
}

} // namespace medidas
