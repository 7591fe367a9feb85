#include "platform/runtime/shell.h"

#include "platform/runtime/error.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

using namespace Qt::StringLiterals;

namespace runtime
{

namespace
{

#ifdef Q_OS_WIN

/// A console of its own; the quotation marks around the whole line are those that the interpreter takes off.
void prepare(QProcess &process, const QString &path)
{
    process.setProgram(qEnvironmentVariable("ComSpec", u"cmd.exe"_s));
    process.setNativeArguments(u"/c \"\""_s + QDir::toNativeSeparators(path) + u"\"\""_s);
    process.setCreateProcessArgumentsModifier([](QProcess::CreateProcessArguments *arguments) {
        arguments->flags &= ~static_cast<unsigned long>(CREATE_NO_WINDOW);
        arguments->flags |= CREATE_NEW_CONSOLE;
        arguments->startupInfo->dwFlags |= STARTF_USESHOWWINDOW;
        arguments->startupInfo->dwFlags &= ~static_cast<unsigned long>(STARTF_USESTDHANDLES);
        arguments->startupInfo->wShowWindow = SW_SHOWMAXIMIZED;
    });
}

#else

/// A text without a line that names its interpreter, or on a file system without the right to start files, is the
/// shell's.
bool startsByItself(const QString &path)
{
    QFile file(path);
    return QFileInfo(path).isExecutable() && file.open(QIODevice::ReadOnly) && file.read(2) == "#!";
}

/// Cut off from a terminal that the program may have been started in: it would wait there for keys that never come.
void prepare(QProcess &process, const QString &path)
{
    const bool itself = startsByItself(path);
    process.setProgram(itself ? path : u"/bin/sh"_s);
    process.setArguments(itself ? QStringList() : QStringList{path});
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
}

#endif

/// Batch files that lie in another folder than the program find what was installed with it, unless they have their own.
QProcessEnvironment withTheProgram()
{
    const QString searched = u"PATH"_s;
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    if (const QString folders = variables.value(searched); !folders.isEmpty()) {
        const QString own = QDir::toNativeSeparators(QCoreApplication::applicationDirPath());
        variables.insert(searched, folders + QDir::listSeparator() + own);
    }
    return variables;
}

} // namespace

void Shell(const QString &path)
{
    const QFileInfo file(path);
    if (!file.isFile()) {
        raise(53);
    }
    QProcess process;
    prepare(process, file.absoluteFilePath());
    process.setProcessEnvironment(withTheProgram());
    process.setWorkingDirectory(file.absolutePath());
    if (!process.startDetached()) {
        raise(5);
    }
}

} // namespace runtime
