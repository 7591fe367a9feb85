#include "bench/oficina.h"

#include "core/modulo.h"
#include "platform/ui/form.h"
#include "platform/ui/forms.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace medidas
{

namespace
{

/// Ends the process with the first picture of the splash.
class FirstPaint : public QObject
{
public:
    bool eventFilter(QObject *object, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && object->objectName() == u"frmSplash"_s) {
            std::puts("splash");
            std::fflush(stdout);
            std::_Exit(0);
        }
        return QObject::eventFilter(object, event);
    }
};

double secondsToSplash()
{
    QElapsedTimer clock;
    clock.start();
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {u"--splash"_s});
    process.waitForReadyRead(60000);
    const auto elapsed = static_cast<double>(clock.elapsed()) / 1000.0;
    process.waitForFinished();
    return process.readAllStandardOutput().startsWith("splash") ? elapsed : -1;
}

} // namespace

int partidaDoSplash()
{
    const QTemporaryDir folder;
    QDir(folder.path()).mkdir(u"DADOS"_s);
    core::App::setPath(folder.path());
    FirstPaint filter;
    qApp->installEventFilter(&filter);
    ui::Forms::instance().Show(u"frmSplash"_s);
    return QApplication::exec();
}

void mostraSemLimite()
{
    std::printf("partida_ate_splash %.2f s\n", secondsToSplash());
    std::printf("tamanho_executavel %.2f MB\n", static_cast<double>(QFileInfo(QStringLiteral(TARVELO)).size()) / 1e6);
}

} // namespace medidas
