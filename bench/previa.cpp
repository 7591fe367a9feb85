#include "bench/janela.h"
#include "bench/oficina.h"
#include "bench/relator.h"

#include "core/modos.h"
#include "core/modulo.h"
#include "core/razao.h"
#include "platform/dao/unit.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/forms.h"

#include <QAbstractButton>
#include <QPixmap>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace medidas
{

namespace
{

constexpr int longReport = 20'000;
constexpr int oneSheet = 50;

/// Movements of today, which the cash book shows when it opens.
void postMovements(int rows)
{
    const dao::Unit batch;
    for (int row = 0; row < rows; ++row) {
        core::LancaNoRazao(core::razaoCaixa, {.descricao = u"O.S. Nº "_s + runtime::Format(row, u"0000"),
                                              .valor = static_cast<float>(row % 100 + 1)});
    }
}

const Oficina &ofRows(int rows)
{
    static const Oficina many([] { postMovements(longReport); });
    static const Oficina few([] { postMovements(oneSheet); });
    return rows == longReport ? many : few;
}

/// The cash book as a report.
ui::Form *openReport(int rows)
{
    core::ModoChamada = core::modoRelaCaixa;
    auto *form = ui::Forms::instance().Show(u"frmMoviCaixa"_s);
    const int shown = listOf(form)->count();
    if (shown != rows) {
        qFatal("The cash book shows %d rows", shown);
    }
    return form;
}

ui::Form *openPreview(const ui::Form *report)
{
    report->findChild<QAbstractButton *>(u"btnPrevisualizar"_s)->click();
    return ui::Forms::instance().find(u"frmRelaPreVisualiza"_s);
}

void preview(benchmark::State &state, int rows)
{
    ofRows(rows).abre();
    auto *report = openReport(rows);
    for (auto turn : state) {
        auto *opened = openPreview(report);
        auto painted = opened->window()->grab();
        benchmark::DoNotOptimize(painted);
        state.PauseTiming();
        close(opened);
        state.ResumeTiming();
    }
    close(report);
}

} // namespace

QString pastaDaPrevia()
{
    return ofRows(longReport).pasta();
}

int memoriaDePrevia(const QString &pasta)
{
    abrePasta(pasta);
    const auto before = memoriaAssentada();
    auto *opened = openPreview(openReport(longReport));
    opened->window()->grab();
    auto *next = opened->findChild<QAbstractButton *>(u"btnNext"_s);
    for (int page = 1; page < longReport / oneSheet; ++page) {
        next->click();
        opened->window()->grab();
    }
    const auto after = memoriaResidente();
    std::printf("%lld %lld\n", after - before, after);
    return 0;
}

void medePrevia()
{
    compara(
        {"previa", 2.0,
         "the first page of a report of 20,000 rows on the preview, shown and painted, against that of one of 50"},
        [](auto &state) { preview(state, longReport); }, [](auto &state) { preview(state, oneSheet); });
}

} // namespace medidas
