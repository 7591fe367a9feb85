#include "tools/demonstracao/apoio.h"

#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/ui/forms.h"
#include "support/program.h"

#include <QAction>
#include <QApplication>
#include <QMainWindow>
#include <QPointer>
#include <QTest>

#include <cstdio>

using namespace Qt::StringLiterals;
using support::Boxes;
using support::click;
using support::type;

namespace demonstracao
{

namespace
{

struct Results {
    QDir folder;
    QString suffix;
};

Results &place()
{
    static Results results;
    return results;
}

} // namespace

void setResults(const QDir &folder, const QString &suffix)
{
    place() = {folder, suffix};
}

const QDir &results()
{
    return place().folder;
}

ui::Form *form(const QString &name)
{
    auto *found = ui::Forms::instance().find(name);
    if (!found) {
        qFatal("a janela %s não está aberta", qPrintable(name));
    }
    return found;
}

QMainWindow *mainWindow()
{
    for (auto *window : QApplication::topLevelWidgets()) {
        if (auto *main = qobject_cast<QMainWindow *>(window); main && window->objectName() == u"frmMDI"_s) {
            return main;
        }
    }
    return nullptr;
}

void done(const QString &step)
{
    if (!QTest::currentTestFailed()) {
        std::printf("%s\n", qPrintable(step));
        std::fflush(stdout);
    }
}

void picture(const QString &name, const QWidget *widget)
{
    auto *subject = widget ? widget->window() : mainWindow();
    QVERIFY2(subject, qPrintable(name));
    QCoreApplication::processEvents();
    QVERIFY(subject->grab().save(results().filePath(name + place().suffix + u".png"_s)));
}

void choose(const QString &item)
{
    auto *action = mainWindow()->findChild<QAction *>(item);
    QVERIFY2(action && action->isEnabled(), qPrintable(item));
    action->trigger();
}

ui::Form *choose(const QString &item, const QString &window)
{
    choose(item);
    return form(window);
}

void close(ui::Form *window)
{
    const QPointer<ui::Form> gone = window;
    ui::Forms::instance().Show(window->objectName()); // another one may stand in front
    click(window, u"btnVoltar"_s);
    QTRY_VERIFY(!gone);
}

runtime::Value value(const QString &select)
{
    return core::DBDados->OpenRecordset(select).value(0);
}

void refused(ui::Form *window, Boxes &boxes, const QString &message, const Fields &then)
{
    boxes.exclamation(message);
    click(window, u"btnIncluir"_s);
    boxes.finish();
    cadastro::fill(window, then);
}

void confirmed(ui::Form *window, Boxes &boxes, const QString &button, const QString &question)
{
    boxes.question(question, true);
    click(window, button);
    boxes.finish();
}

void findOne(ui::Form *window, const QString &text)
{
    type(window, u"txtTexto"_s, text);
    click(window, u"btnPesquisar"_s);
    QCOMPARE(cadastro::list(window)->count(), 1);
    cadastro::clickRow(window, 0);
    QCOMPARE(support::text(window, u"lblCodigo"_s), cadastro::list(window)->item(0).text());
}

void pick(const QString &window, const QString &text, By by)
{
    auto *picker = form(window);
    type(picker, u"txtTexto"_s, text);
    click(picker, u"btnPesquisar"_s);
    QVERIFY2(cadastro::list(picker)->count() > 0, qPrintable(text));
    if (by == By::DoubleClick) {
        cadastro::doubleClickRow(picker, 0);
    } else {
        support::key(picker, u"Lista"_s, Qt::Key_Home);
        support::key(picker, u"Lista"_s, Qt::Key_Return);
    }
    QTRY_VERIFY(!cadastro::isOpen(window));
}

void include(ui::Form *window, Boxes &boxes)
{
    confirmed(window, boxes, u"btnIncluir"_s, u"Confirma a Inclusão"_s);
}

void erase(ui::Form *window, Boxes &boxes, const QString &table, const QString &text)
{
    const QString count = u"SELECT count(Codigo) FROM "_s + table;
    const auto before = std::get<qint32>(value(count));
    findOne(window, text);
    confirmed(window, boxes, u"btnExcluir"_s, u"Deseja excluir o registro atual"_s);
    QCOMPARE(value(count), runtime::Value(before - 1));
}

} // namespace demonstracao
