#include "tools/demonstracao/programa.h"

#include "core/modulo.h"
#include "platform/ui/form.h"
#include "platform/ui/forms.h"
#include "shell/shell.h"
#include "support/modal.h"
#include "support/program.h"
#include "tools/amostra/amostra.h"
#include "tools/demonstracao/apoio.h"

#include <QMainWindow>
#include <QPointer>
#include <QTest>

using namespace Qt::StringLiterals;
using support::type;

namespace demonstracao
{

namespace
{

QSize &screen()
{
    static QSize size(1024, 768);
    return size;
}

void copy(const QString &source, const QString &target)
{
    QVERIFY2(QFile::exists(target) || QFile::copy(source, target), qPrintable(target));
}

void logIn(const Operador &who)
{
    auto *window = form(u"frmSenha"_s);
    type(window, u"txtCodigo"_s, who.code);
    QCOMPARE(support::text(window, u"lblOperador"_s), who.name);
    picture(u"frmSenha"_s, window);
    type(window, u"txtSenha"_s, who.password, false);
}

} // namespace

void install(const QString &folder)
{
    const QDir program(folder);
    const QDir shipped(QStringLiteral(INSTALACAO));
    QVERIFY(program.mkpath(u"DADOS"_s));
    for (const auto &file : shipped.entryList({u"*.bmp"_s})) {
        copy(shipped.filePath(file), program.filePath(u"DADOS/"_s + file));
    }
    copy(shipped.filePath(u"CEP.MDB"_s), program.filePath(u"CEP.MDB"_s));
    for (const auto &script : shipped.entryList({u"*.BAT"_s})) {
        copy(shipped.filePath(script), program.filePath(script));
    }
    copy(QStringLiteral(COPIA), program.filePath(QFileInfo(QStringLiteral(COPIA)).fileName()));
    useFolder(folder);
}

void useFolder(const QString &folder)
{
    core::App::setPath(folder);
}

void setScreen(QSize size)
{
    screen() = size;
}

void start(const Operador &who, const std::function<void()> &before, Avisos avisos)
{
    support::whenShown(u"frmSenha"_s, [&] {
        if (before) {
            before();
        }
        logIn(who);
    });
    shell::comeca();
    QTRY_VERIFY(mainWindow() && mainWindow()->isVisible());
    support::failNotShown();
    mainWindow()->resize(screen());
    QVERIFY(QTest::qWaitForWindowActive(mainWindow()));
    if (auto *notices = ui::Forms::instance().find(u"frmInfoAviso"_s); notices && avisos == Avisos::Fecham) {
        const QPointer<ui::Form> gone = notices;
        notices->Unload();
        QTRY_VERIFY(!gone); // until then the area keeps the bars that scrolled to it
    }
}

void stop()
{
    shell::desmonta();
}

Operador primeiroOperador()
{
    return {.code = u"1"_s, .name = u"MARINA"_s, .password = u"chave1"_s};
}

Operador operadorDaOficina()
{
    const auto &who = amostra::Operadores().front();
    return {.code = who.codigo.toString(), .name = who.nome.toString(), .password = who.senha.toString()};
}

} // namespace demonstracao
