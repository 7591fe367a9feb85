#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace
{

using Files = QList<std::pair<QString, QString>>;

/// A small house that keeps its order: a file, and what stands in it.
const Files house{
    {u"CMakeLists.txt"_s,
     u"add_subdirectory(platform/runtime)\nadd_subdirectory(platform/dao)\n"
     "add_subdirectory(platform/ui)\nadd_subdirectory(core)\nadd_subdirectory(stock)\n"
     "add_subdirectory(reports)\nadd_subdirectory(app)\nadd_subdirectory(support)\n  add_subdirectory(tests)\n"_s},
    {u"platform/runtime/CMakeLists.txt"_s, u"tarvelo_library(runtime SOURCES a.cpp LINK Qt6::Core)"_s},
    {u"platform/runtime/a.h"_s, {}},
    {u"platform/runtime/a.cpp"_s, u"#include \"platform/runtime/a.h\"\n#include <unistd.h>"_s},
    {u"platform/dao/CMakeLists.txt"_s,
     u"tarvelo_library(dao # reads and writes\n  SOURCES b.cpp\n  LINK runtime Qt6::Core SQLite::SQLite3)"_s},
    {u"platform/dao/b.h"_s, u"#include <sqlite3.h>"_s},
    {u"platform/dao/b.cpp"_s, u"#include \"platform/runtime/a.h\""_s},
    {u"platform/ui/CMakeLists.txt"_s, u"tarvelo_library(ui SOURCES w.cpp LINK runtime Qt6::Widgets)"_s},
    {u"platform/ui/w.h"_s, {}},
    {u"platform/ui/w.cpp"_s, u"#include \"ui_w.h\"\n#include <QWidget>\n#include <QtGui/QIcon>\n#include <vector>"_s},
    {u"core/CMakeLists.txt"_s, u"tarvelo_library(core SOURCES c.cpp LINK runtime dao)\n"
                               "tarvelo_library(core_janelas SOURCES j.cpp LINK core ui)"_s},
    {u"core/c.cpp"_s, u"#include \"core/regra.h\""_s},
    {u"core/regra.h"_s, u"#include \"platform/dao/b.h\""_s},
    {u"core/j.cpp"_s, u"#include \"core/painel.h\"\n#include \"core/regra.h\""_s},
    {u"core/painel.h"_s, u"#include \"platform/ui/w.h\""_s},
    {u"stock/CMakeLists.txt"_s, u"tarvelo_library(stock SOURCES s.cpp LINK core_janelas)"_s},
    {u"stock/s.h"_s, {}},
    {u"stock/s.cpp"_s, u"#include \"core/painel.h\""_s},
    {u"stock/s.ui"_s, u"<header>platform/ui/w.h</header>"_s},
    {u"reports/CMakeLists.txt"_s, u"tarvelo_library(reports SOURCES r.cpp LINK core_janelas)"_s},
    {u"reports/r.h"_s, {}},
    {u"reports/r.cpp"_s, {}},
    {u"app/CMakeLists.txt"_s, u"tarvelo_program(tarvelo SOURCES main.cpp LINK stock reports)"_s},
    {u"app/main.cpp"_s, u"#include \"stock/s.h\""_s},
    {u"support/CMakeLists.txt"_s, u"tarvelo_program(apoio SOURCES p.cpp LINK SQLite::SQLite3)"_s},
    {u"support/p.cpp"_s, u"#include \"stock/s.h\"\n#include <sqlite3.h>"_s},
    {u"tests/t.h"_s, {}},
};

} // namespace

/// The look at the layers, over a small house with one thing wrong.
class TestCamadas : public QObject
{
    Q_OBJECT

private slots:
    void theTreeKeepsItsLayers();
    void aHouseInOrderPasses();
    void whatBreaksTheOrderIsToldByName_data();
    void whatBreaksTheOrderIsToldByName();

private:
    static void write(const QDir &tree, const QString &name, const QString &text);
    static std::pair<int, QStringList> look(const QString &tree);
};

void TestCamadas::write(const QDir &tree, const QString &name, const QString &text)
{
    QVERIFY(tree.mkpath(QFileInfo(name).path()));
    QFile file(tree.filePath(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(text.toUtf8()), text.toUtf8().size());
}

std::pair<int, QStringList> TestCamadas::look(const QString &tree)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QStringLiteral(SOURCES) + u"/tools/camadas.py"_s, {tree});
    if (!process.waitForFinished(60000)) {
        return {-1, {process.errorString()}};
    }
    return {process.exitCode(), QString::fromUtf8(process.readAll()).split(u'\n', Qt::SkipEmptyParts)};
}

void TestCamadas::theTreeKeepsItsLayers()
{
    const auto [code, told] = look(QStringLiteral(SOURCES));
    QCOMPARE(told, QStringList{});
    QCOMPARE(code, 0);
}

void TestCamadas::aHouseInOrderPasses()
{
    const QTemporaryDir folder;
    for (const auto &[name, text] : house) {
        write(folder.path(), name, text);
    }
    const auto [code, told] = look(folder.path());
    QCOMPARE(told, QStringList{});
    QCOMPARE(code, 0);
}

void TestCamadas::whatBreaksTheOrderIsToldByName_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("told");
    const auto row = [](const char *name, const QString &file, const QString &text, const QString &told) {
        QTest::newRow(name) << file << text << told;
    };
    row("a link that points up", u"platform/dao/CMakeLists.txt"_s,
        u"tarvelo_library(dao SOURCES b.cpp LINK runtime core SQLite::SQLite3)"_s,
        u"platform/dao: dao links core, which is not below it"_s);
    row("a link between windows", u"stock/CMakeLists.txt"_s,
        u"tarvelo_library(stock SOURCES s.cpp LINK core_janelas reports)"_s,
        u"stock: stock links reports, which is not below it"_s);
    row("the database library in the rules", u"core/CMakeLists.txt"_s,
        u"tarvelo_library(core SOURCES c.cpp LINK runtime dao SQLite::SQLite3)\n"
        "tarvelo_library(core_janelas SOURCES j.cpp LINK core ui)"_s,
        u"core: core links SQLite::SQLite3; only dao knows the database library"_s);
    row("the library of old files beside its folder", u"stock/CMakeLists.txt"_s,
        u"tarvelo_library(stock SOURCES s.cpp LINK core_janelas PkgConfig::LIBMDB)"_s,
        u"stock: stock links PkgConfig::LIBMDB; only jet knows the library of Jet files"_s);
    row("windows below the rules", u"platform/dao/CMakeLists.txt"_s,
        u"tarvelo_library(dao SOURCES b.cpp LINK runtime Qt6::Widgets PRIVATE SQLite::SQLite3)"_s,
        u"core: core reaches Qt6::Widgets and has to do without windows"_s);
    row("a library that nobody placed", u"stock/CMakeLists.txt"_s,
        u"tarvelo_library(estoque SOURCES s.cpp LINK core_janelas)"_s,
        u"stock: estoque stands in no layer of tools/camadas.py"_s);
    row("an include that points up", u"platform/runtime/a.cpp"_s, u"#include \"platform/ui/w.h\""_s,
        u"platform/runtime/a.cpp: includes platform/ui/w.h, which runtime does not link"_s);
    row("an include between windows", u"stock/s.cpp"_s, u"  #  include \"reports/r.h\""_s,
        u"stock/s.cpp: includes reports/r.h, which stock does not link"_s);
    row("a window in the rules", u"core/c.cpp"_s, u"#include \"core/painel.h\""_s,
        u"core/c.cpp: includes core/painel.h, which core does not link"_s);
    row("a header of its own that points up", u"platform/runtime/so.h"_s, u"#include \"core/regra.h\""_s,
        u"platform/runtime/so.h: includes core/regra.h, which runtime does not link"_s);
    row("a control of another folder", u"stock/s.ui"_s, u"<header>reports/r.h</header>"_s,
        u"stock/s.ui: includes reports/r.h, which stock does not link"_s);
    row("a header of the tests", u"stock/s.cpp"_s, u"#include \"tests/t.h\""_s,
        u"stock/s.cpp: includes tests/t.h, which stock does not link"_s);
    row("the database library's header", u"core/c.cpp"_s, u"#include <sqlite3.h>"_s,
        u"core/c.cpp: includes sqlite3.h; only dao knows the database library"_s);
    row("the header of the library of old files", u"core/c.cpp"_s, u"#include <mdbtools.h>"_s,
        u"core/c.cpp: includes mdbtools.h; only jet knows the library of Jet files"_s);
    row("a system header", u"app/main.cpp"_s, u"#include <sys/stat.h>"_s,
        u"app/main.cpp: includes the system header sys/stat.h; such stand below platform/ only"_s);
    row("a source that is not built", u"stock/velho.cpp"_s, {}, u"stock/velho.cpp: belongs to no library"_s);
}

void TestCamadas::whatBreaksTheOrderIsToldByName()
{
    QFETCH(const QString, file);
    QFETCH(const QString, text);
    QFETCH(const QString, told);
    const QTemporaryDir folder;
    for (const auto &[name, kept] : house) {
        write(folder.path(), name, kept);
    }
    write(folder.path(), file, text);
    const auto [code, lines] = look(folder.path());
    QVERIFY2(lines.contains(told), qPrintable(lines.join(u'\n')));
    QCOMPARE(code, 1);
}

QTEST_GUILESS_MAIN(TestCamadas)
#include "tst_camadas.moc"
