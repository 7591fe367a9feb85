// Works the real windows off screen as a new user would, on scratch folders: demonstracao [RESULTS]
//
// A new installation first: the first operator, the registers, orders and each way of paying them, records picked on
// the way, the stock ledger. Then a workshop of some hundred customers. Each step prints a line; pictures of the
// windows and the printed PDFs land in RESULTS. The pictures of the workshop's windows are taken once for every
// surrounding that users have (a low screen, twice the scale, a larger font, a dark desktop), each in a process of its
// own: demonstracao --telas FOLDER RESULTS SURROUNDING. With the name of a platform in DEMONSTRACAO_TELA ("windows")
// the windows show themselves by that one, as it has them.
#include "estimates/estimates.h"
#include "finance/finance.h"
#include "platform/printer/printer.h"
#include "platform/ui/application.h"
#include "platform/ui/wait.h"
#include "registers/registers.h"
#include "reports/reports.h"
#include "shell/shell.h"
#include "stock/stock.h"
#include "support/palette.h"
#include "support/testmain.h"
#include "tools/demonstracao/apoio.h"
#include "tools/demonstracao/assuntos.h"
#include "tools/demonstracao/programa.h"
#include "workorders/workorders.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <array>
#include <cstdio>
#include <vector>

using namespace Qt::StringLiterals;

namespace
{

const QString onlyPictures = u"--telas"_s;

/// What a user's desktop is like. The name ends the names of its pictures.
struct Surrounding {
    QStringView name;
    QSize screen;
    int scale = 1;
    int points = 10;
    bool dark = false;
};

constexpr std::array<Surrounding, 6> surroundings{{
    {u"", QSize(1024, 768)},
    {u"_600", QSize(1024, 600)},
    {u"_2x", QSize(1024, 768), 2},
    {u"_11pt", QSize(1024, 768), 1, 11},
    {u"_11pt_600", QSize(1024, 600), 1, 11},
    {u"_escuro", QSize(1024, 768), 1, 10, true},
}};

void registerForms()
{
    shell::registerForms();
    registers::registerForms();
    workorders::registerForms();
    reports::registerForms();
    stock::registerForms();
    estimates::registerForms();
    finance::registerForms();
}

/// False where the folder can't be made.
bool prepare(const QString &results, const QString &suffix)
{
    const QDir folder(results);
    registerForms();
    shell::liga();
    printer::printer().setOutputFolder(folder);
    ui::setWaitFactor(0);
    demonstracao::setResults(folder, suffix);
    return folder.mkpath(u"."_s);
}

/// A subject builds on the ones before it: the first that fails is the last.
bool work(const std::vector<demonstracao::Assunto> &subjects)
{
    const bool good = std::ranges::all_of(subjects, [](const demonstracao::Assunto &subject) {
        return QTest::qExec(subject.get(), {u"demonstracao"_s, u"-silent"_s, u"-nocrashhandler"_s}) == 0;
    });
    shell::desmonta(); // windows must not outlive the application
    return good;
}

bool workAll(const QString &installation, const QString &workshop)
{
    std::vector<demonstracao::Assunto> subjects;
    subjects.push_back(demonstracao::inicio(installation));
    subjects.push_back(demonstracao::cadastros());
    subjects.push_back(demonstracao::ordens());
    subjects.push_back(demonstracao::escolhas());
    subjects.push_back(demonstracao::estoque());
    subjects.push_back(demonstracao::financas());
    subjects.push_back(demonstracao::orcamentos());
    subjects.push_back(demonstracao::entradas());
    subjects.push_back(demonstracao::instalacao());
    subjects.push_back(demonstracao::reabertura());
    subjects.push_back(demonstracao::oficina(workshop));
    subjects.push_back(demonstracao::relatorios(workshop));
    return work(subjects);
}

bool workPictures(const QString &workshop, const Surrounding &surrounding)
{
    auto font = QApplication::font();
    font.setPointSize(surrounding.points);
    QApplication::setFont(font);
    if (surrounding.dark) {
        QApplication::setPalette(support::darkPalette());
    }
    demonstracao::setScreen(surrounding.screen);
    std::vector<demonstracao::Assunto> subjects;
    subjects.push_back(demonstracao::telas(workshop));
    return work(subjects);
}

/// The scale is fixed when a process starts.
bool inProcess(const QString &workshop, const QString &results, const Surrounding &surrounding)
{
    auto variables = QProcessEnvironment::systemEnvironment();
    variables.insert(u"QT_SCALE_FACTOR"_s, QString::number(surrounding.scale));
    QProcess process;
    process.setProcessEnvironment(variables);
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.start(QCoreApplication::applicationFilePath(),
                  {onlyPictures, workshop, results, surrounding.name.toString()});
    constexpr int tenMinutes = 600'000; // a hundred pictures take their time on a busy machine
    return process.waitForFinished(tenMinutes) && process.exitStatus() == QProcess::NormalExit &&
           process.exitCode() == 0;
}

bool demonstrate(const QString &results)
{
    const QTemporaryDir installation;
    const QTemporaryDir workshop;
    return prepare(results, {}) && installation.isValid() && workshop.isValid() &&
           workAll(installation.path(), workshop.path()) &&
           std::ranges::all_of(surroundings, [&](const Surrounding &surrounding) {
               return inProcess(workshop.path(), results, surrounding);
           });
}

bool pictures(const QStringList &arguments)
{
    const auto surrounding = std::ranges::find(surroundings, arguments[4], &Surrounding::name);
    return surrounding != surroundings.end() && prepare(arguments[3], arguments[4]) &&
           workPictures(arguments[2], *surrounding);
}

int ended(bool good)
{
    std::puts(good ? "demonstração completa" : "a demonstração falhou");
    return good ? 0 : 1;
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", qEnvironmentVariable("DEMONSTRACAO_TELA", u"offscreen"_s).toLatin1());
    ui::Application application(argc, argv);
    support::prepareApplication();
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == onlyPictures && arguments.size() == 5) {
        return pictures(arguments) ? 0 : 1;
    }
    return ended(demonstrate(arguments.value(1, u"demonstracao"_s)));
}
