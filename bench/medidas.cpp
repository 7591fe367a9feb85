// The speed measurements. Each line `razao NAME VALUE LIMIT` is a ratio against the bare library in this same run; what
// it is stands below.
#include "bench/oficina.h"
#include "bench/relator.h"

#include "estimates/estimates.h"
#include "finance/finance.h"
#include "platform/jet/stream.h"
#include "platform/ui/application.h"
#include "registers/registers.h"
#include "reports/reports.h"
#include "shell/shell.h"
#include "stock/stock.h"
#include "workorders/workorders.h"

#include <QProcess>

#include <cstdio>
#include <cstring>

using namespace Qt::StringLiterals;

namespace
{

/// Resident memory of a process that holds a list, and what the list added to it.
struct Memory {
    double added = 0;
    double resident = 0;
};

Memory memoryOf(const QString &kind, const QString &folder = {})
{
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {u"--memoria"_s, kind, folder});
    process.waitForFinished(-1);
    const auto figures = process.readAllStandardOutput().trimmed().split(' ');
    return {figures.value(0).toDouble(), figures.value(1).toDouble()};
}

void showMemory()
{
    const auto list = memoryOf(u"lista"_s);
    medidas::mostra(
        {"memoria_lista", 1.0, "memory of a list of 200,000 rows by hand, against the vector of the same texts"},
        list.added / memoryOf(u"vetor"_s).added);
    const auto folder = medidas::comClientes().pasta();
    medidas::mostra({"memoria_cadastro", 0.12,
                     "memory that the filled register of 200,000 customers adds, against the vector of its texts"},
                    memoryOf(u"cadastro"_s, folder).added / memoryOf(u"clientes"_s, folder).added);
    const auto previa = memoryOf(u"previa"_s, medidas::pastaDaPrevia());
    medidas::mostra(
        {"memoria_previa", 1.0, "resident memory behind all pages of a preview of 20,000 rows, against 100 MB"},
        previa.resident / 100e6);
    std::printf("memoria_com_lista_vazia %.1f MB\n", memoryOf(u"vazia"_s).resident / 1e6);
    std::printf("memoria_com_lista_de_200000 %.1f MB\n", list.resident / 1e6);
}

/// What the process that is asked for its memory does.
int memory(const QString &kind, const QString &folder)
{
    if (folder.isEmpty()) {
        return medidas::memoriaDeLista(kind);
    }
    return kind == u"previa"_s ? medidas::memoriaDePrevia(folder) : medidas::memoriaDeCadastro(kind, folder);
}

/// The platform without a screen tells what it can't do: no news among the figures.
void dropNoise(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    const bool noise = message.startsWith(u"This plugin does not support") || message.contains(u"XDG_RUNTIME_DIR");
    if (!noise) {
        std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, message)));
    }
}

int measureAll(int argc, char **argv)
{
    medidas::medeBanco();
    medidas::medeLista();
    medidas::medeOrdens();
    medidas::medeOrcamentos();
    medidas::medeAlteracao();
    medidas::medeCadastros();
    medidas::medeFinancas();
    medidas::medePrevia();
    medidas::medeImportacao();
    medidas::medeRelatorios();
    medidas::medeRelatoriosDeClientes();
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
    if (argc == 3 && std::strcmp(argv[1], "--le") == 0) { // the process that reads the file of an import
        return jet::serve(QString::fromLocal8Bit(argv[2]));
    }
    qInstallMessageHandler(dropNoise);
    ui::Application application(argc, argv);
    shell::registerForms();
    registers::registerForms();
    workorders::registerForms();
    stock::registerForms();
    estimates::registerForms();
    finance::registerForms();
    reports::registerForms();

    const auto arguments = QCoreApplication::arguments();
    if (arguments.value(1) == u"--memoria"_s) {
        return memory(arguments.value(2), arguments.value(3));
    }
    if (arguments.value(1) == u"--splash"_s) {
        return medidas::partidaDoSplash();
    }
    return measureAll(argc, argv);
}
