#include "bench/banco_cru.h"
#include "bench/janela.h"
#include "bench/oficina.h"
#include "bench/relator.h"

#include "core/modulo.h"
#include "estimates/orcamento.h"
#include "platform/dao/unit.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/forms.h"

#include <QPixmap>

#include <vector>

using namespace Qt::StringLiterals;

namespace medidas
{

namespace
{

constexpr int written = 20'000;

/// A workshop that has written an estimate for every car that ever came in.
const Oficina &withEstimates()
{
    static const Oficina workshop([] {
        const dao::Unit batch;
        for (int number = 1; number <= written; ++number) {
            estimates::IncluiOrcamento({.marca = u"VOLKSWAGEN GOL 1.0 TOTAL FLEX"_s,
                                        .ano = u"2001/2002"_s,
                                        .nome = u"CLIENTE NÚMERO %1"_s.arg(number),
                                        .fone = u"(11) 5555-1234"_s,
                                        .observacoes = u"RETORNA NA SEXTA-FEIRA"_s,
                                        .valor = u"1.234,50"_s});
        }
    });
    return workshop;
}

void openQuery(benchmark::State &state)
{
    withEstimates().abre();
    for (auto turn : state) {
        core::ModoChamada = 0;
        auto *form = ui::Forms::instance().Show(u"frmOSOrcaConsulta"_s);
        auto painted = listOf(form)->grab();
        benchmark::DoNotOptimize(painted);
        if (listOf(form)->count() != written) {
            qFatal("The query shows %d estimates", listOf(form)->count());
        }
        close(form);
    }
}

void readEstimatesBare(benchmark::State &state)
{
    const BancoCru database(withEstimates().arquivo());
    for (auto turn : state) {
        Instrucao row(database, "SELECT Codigo, Data, NomeCliente, MarcaModelo FROM Orcamento ORDER BY Codigo");
        std::vector<QStringList> rows;
        while (row.step()) {
            rows.push_back({codeOf(row, 0), dateOf(row, 1), row.text(2), row.text(3)});
        }
        benchmark::DoNotOptimize(rows.data());
    }
}

} // namespace

void medeOrcamentos()
{
    compara({"orcamentos_abre", 0.6,
             "the query of 20,000 estimates opened with its list and painted, against reading the same rows and texts "
             "through the bare library"},
            openQuery, readEstimatesBare);
}

} // namespace medidas
