// Walks through the program at random: walker SEED STEPS. The same seed takes the same steps. Each is told on the
// standard output; what does not hold is told as "FAULT ...", with an exit code other than 0.
#include "core/config.h"
#include "core/modulo.h"
#include "estimates/estimates.h"
#include "finance/finance.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"
#include "registers/registers.h"
#include "reports/reports.h"
#include "shell/shell.h"
#include "stock/stock.h"
#include "support/program.h"
#include "tests/walk/typing.h"
#include "tests/walk/walk.h"
#include "tools/amostra/amostra.h"
#include "workorders/workorders.h"

#include <QFile>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace
{

/// What an installation may be set to; the seed chooses.
void configure(support::Program &program, quint32 seed)
{
    program.config(u"PreencheCadastroAutomatico"_s, seed % 3 != 0 ? u"S"_s : u"N"_s);
    program.config(u"LayoutOS"_s, QString::number(1 + seed % 3));
    program.config(u"Personalizacao"_s, seed % 2 != 0 ? u"1-1"_s : u"2-2"_s);
    program.config(u"Desconto"_s, u"0,1"_s);
    program.config(u"AutoComplete"_s, u"S"_s);
}

void fill(support::Program &program)
{
    amostra::Preenche({.clientes = amostra::menosClientes, .semente = 1, .relogio = runtime::Today()});
    QStringList plates;
    for (const auto &row : program.rows(u"SELECT Placas FROM Veiculos WHERE Codigo < 20"_s)) {
        plates << row.at(0);
    }
    walk::setPlates(plates);
}

/// Batch files that do nothing: what they do to the files is no affair of the windows.
void layBatchFiles(const support::Program &program)
{
    for (const QString &name : {u"BACKUPDA.BAT"_s, u"BACKUPFI.BAT"_s, u"RESTORDA.BAT"_s, u"RESTORFI.BAT"_s}) {
        QFile file(program.path(name));
        if (!file.open(QIODevice::WriteOnly)) {
            qFatal("%s can't be written", qPrintable(name));
        }
    }
}

} // namespace

int main(int argc, char **argv)
{
    ui::Application application(argc, argv);
    support::prepareApplication();
    const auto arguments = QCoreApplication::arguments();
    if (arguments.size() != 3) {
        std::fputs("walker SEED STEPS\n", stderr);
        return EXIT_FAILURE;
    }
    shell::registerForms();
    registers::registerForms();
    workorders::registerForms();
    reports::registerForms();
    stock::registerForms();
    estimates::registerForms();
    finance::registerForms();

    support::Program program;
    configure(program, arguments.at(1).toUInt());
    fill(program);
    layBatchFiles(program);
    core::DBDados->Close();
    shell::liga();
    walk::Walk walk(arguments.at(1).toUInt(), arguments.at(2).toInt());
    walk.run();
    return EXIT_SUCCESS;
}
