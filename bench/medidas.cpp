// The speed measurements. Each line `razao NAME VALUE LIMIT` is a ratio against the bare library in this same run.
#include "bench/oficina.h"
#include "bench/relator.h"

#include "platform/ui/application.h"
#include "registers/registers.h"
#include "reports/reports.h"
#include "shell/shell.h"
#include "stock/stock.h"
#include "workorders/workorders.h"

#include <QProcess>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace
{

/// Resident memory of a process that holds a list, and what the list added to it.
struct Memory {
    double added = 0;
    double resident = 0;
};

Memory memoryOf(const QString &kind)
{
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {u"--memoria"_s, kind});
    process.waitForFinished(-1);
    const auto figures = process.readAllStandardOutput().trimmed().split(' ');
    return {figures.value(0).toDouble(), figures.value(1).toDouble()};
}

void showMemory()
{
    const auto list = memoryOf(u"lista"_s);
    medidas::mostra("memoria_lista", list.added / memoryOf(u"vetor"_s).added, 1.0);
    std::printf("memoria_com_lista_vazia %.1f MB\n", memoryOf(u"vazia"_s).resident / 1e6);
    std::printf("memoria_com_lista_de_200000 %.1f MB\n", list.resident / 1e6);
}

int measureAll(int argc, char **argv)
{
    medidas::medeBanco();
    medidas::medeLista();
    medidas::medeOrdens();
    medidas::medeCadastros();
    medidas::mostraSemLimite();

    benchmark::Initialize(&argc, argv);
    medidas::Relator reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    showMemory();
    return medidas::acimaDoLimite() ? 1 : 0;
}

} // namespace

int main(int argc, char **argv)
{
    ui::Application application(argc, argv);
    shell::registerForms();
    registers::registerForms();
    workorders::registerForms();
    stock::registerForms();
    reports::registerForms();

    const auto arguments = QCoreApplication::arguments();
    if (arguments.value(1) == u"--memoria"_s) {
        return medidas::memoriaDeLista(arguments.value(2));
    }
    if (arguments.value(1) == u"--splash"_s) {
        return medidas::partidaDoSplash();
    }
    return measureAll(argc, argv);
}
