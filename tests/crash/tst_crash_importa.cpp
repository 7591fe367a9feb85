// Kills the tool at any moment of an import that replaces a database: afterwards the old one stands there as it was or
// the new one, whole, and the next import takes away what the killed ones left.
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"
#include "support/diskfiles.h"
#include "support/jet4/jet4.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <chrono>
#include <thread>

using namespace Qt::StringLiterals;

namespace
{

constexpr int rows = 3'000;
constexpr int kills = 40;
constexpr int patience = 120'000; // milliseconds

jet4::File oldData()
{
    jet4::Table customers{
        .name = u"Clientes"_s, .columns = jet4::columns(u"Codigo.Counter,Nome.Text;200"_s), .rows = {}};
    for (int i = 1; i <= rows; ++i) {
        customers.rows.push_back({.values = {qint32{i}, u"CLIENTE NÚMERO %1"_s.arg(i)}});
    }
    jet4::File file;
    file.tables.push_back(customers);
    file.tables.push_back({.name = u"Caixa"_s,
                           .columns = jet4::columns(u"Codigo.Counter,Entrada.Single"_s),
                           .rows = std::vector<jet4::Row>(rows, {.values = {qint32{1}, 2.5F}})});
    for (int i = 0; i < rows; ++i) {
        file.tables[1].rows[static_cast<std::size_t>(i)].values[0] = qint32{i + 1};
    }
    return file;
}

/// Copies that the tool kept of what it replaced.
bool isKept(const QString &name)
{
    return name.startsWith(u"DADOS-antes-"_s) && name.endsWith(u".MDB"_s);
}

} // namespace

class TestCrashImporta : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void killsLeaveTheOldOneOrTheNewOne();
    void killsWithoutATargetLeaveNoneOrAWholeOne();
    void theTerminalsInterruptionLeavesNothing();

private:
    QString path(const QString &name) const { return folder_->filePath(name); }
    QString target() const { return path(u"DADOS.MDB"_s); }
    void putOld() const;
    void start(QProcess &tool) const;
    void import() const;
    bool isNew() const;
    void killOnce(int number) const;
    QStringList besides() const;

    std::unique_ptr<QTemporaryDir> folder_;
    QByteArray old_; ///< the database that is replaced
    std::chrono::nanoseconds whole_{0};
};

void TestCrashImporta::init()
{
    folder_ = std::make_unique<QTemporaryDir>();
    QVERIFY(jet4::write(path(u"velho.mdb"_s), oldData()));
    const auto made = dao::DBEngine::CreateDatabase(target(), u";LANGID=0x0409;CP=1252;COUNTRY=0"_s);
    made->Execute(u"CREATE TABLE Caixa (Codigo COUNTER, Descricao TEXT(100))"_s);
    made->Execute(u"INSERT INTO Caixa (Descricao) VALUES ('ANTIGO')"_s);
    made->Close();
    old_ = support::contentsOf(target());
    QElapsedTimer clock;
    clock.start();
    import();
    whole_ = std::chrono::nanoseconds(clock.nsecsElapsed());
}

void TestCrashImporta::putOld() const
{
    QFile file(target());
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(old_), old_.size());
}

void TestCrashImporta::start(QProcess &tool) const
{
    tool.start(QStringLiteral(FERRAMENTA), {u"--substitui"_s, path(u"velho.mdb"_s), target()});
    QVERIFY(tool.waitForStarted());
}

/// To its end, which leaves nothing beside the target but what is meant to stay.
void TestCrashImporta::import() const
{
    QProcess tool;
    start(tool);
    QVERIFY(tool.waitForFinished(patience));
    QVERIFY2(tool.exitCode() == 0, tool.readAllStandardError().constData());
    QVERIFY(isNew());
    const QStringList left = besides();
    QVERIFY2(left.isEmpty() || left == QStringList{u"DADOS-importacao.txt"_s}, qPrintable(left.join(u' ')));
}

/// Whether the whole import stands there; fails where it is neither that nor anything that opens.
bool TestCrashImporta::isNew() const
{
    const auto database = dao::DBEngine::OpenDatabase(target(), true);
    const auto count = [&database](const QString &table) {
        return runtime::CLng(database->OpenRecordset(u"SELECT count(Codigo) FROM "_s + table).value(0));
    };
    return database->CheckIntegrity() == u"ok"_s && count(u"Clientes"_s) == rows && count(u"Caixa"_s) == rows;
}

/// What stands beside the source and the target, without the copies kept of the latter.
QStringList TestCrashImporta::besides() const
{
    QStringList left = support::filesOf(folder_->path());
    left.removeOne(u"velho.mdb"_s);
    left.removeOne(u"DADOS.MDB"_s);
    left.removeIf([](const QString &name) { return isKept(name); });
    return left;
}

/// The first one at the start, the last one behind the end, however quick the machine is and whatever else it does.
void TestCrashImporta::killOnce(int number) const
{
    QProcess tool;
    start(tool);
    if (number < kills - 1) {
        std::this_thread::sleep_for(whole_ * 3 * number / (2 * (kills - 1)));
        tool.kill();
    }
    QVERIFY(tool.waitForFinished(patience));
}

void TestCrashImporta::killsLeaveTheOldOneOrTheNewOne()
{
    int replaced = 0;
    for (int i = 0; i < kills; ++i) {
        putOld();
        killOnce(i);
        if (support::contentsOf(target()) == old_) {
            continue;
        }
        QVERIFY2(isNew(), qPrintable(u"kill %1"_s.arg(i)));
        ++replaced;
        // What gave way is kept as it was, and each copy is a whole one.
        const QStringList kept = support::filesOf(folder_->path()).filter(u"DADOS-antes-"_s);
        QVERIFY(std::any_of(kept.begin(), kept.end(), isKept));
    }
    QVERIFY2(replaced > 0 && replaced < kills, qPrintable(QString::number(replaced)));
    for (const QString &name : support::filesOf(folder_->path())) {
        if (isKept(name)) {
            QCOMPARE(dao::DBEngine::OpenDatabase(path(name), true)->CheckIntegrity(), u"ok"_s);
        }
    }
    import();
}

void TestCrashImporta::killsWithoutATargetLeaveNoneOrAWholeOne()
{
    int made = 0;
    for (int i = 0; i < kills; ++i) {
        QFile::remove(target());
        killOnce(i);
        if (QFile::exists(target())) {
            QVERIFY2(isNew(), qPrintable(u"kill %1"_s.arg(i)));
            ++made;
        }
    }
    QVERIFY2(made > 0 && made < kills, qPrintable(QString::number(made)));
    import();
}

void TestCrashImporta::theTerminalsInterruptionLeavesNothing()
{
    int interrupted = 0;
    for (int i = 0; i < kills / 2; ++i) {
        putOld();
        QFile::remove(path(u"DADOS-importacao.txt"_s));
        QProcess tool;
        start(tool);
        // Spread over the work; the first as soon as something is written.
        if (i == 0) {
            QVERIFY(
                QTest::qWaitFor([&] { return tool.state() != QProcess::Running || !besides().isEmpty(); }, patience));
        } else {
            std::this_thread::sleep_for(whole_ / 4 + whole_ * i / kills);
        }
        QProcess::execute(u"kill"_s, {u"-INT"_s, QString::number(tool.processId())});
        QVERIFY(tool.waitForFinished(patience));
        if (tool.exitCode() != 2) {
            QVERIFY(isNew());
            continue;
        }
        ++interrupted;
        QCOMPARE(support::contentsOf(target()), old_);
        QVERIFY2(besides().isEmpty(), qPrintable(besides().join(u' ')));
    }
    QVERIFY(interrupted > 0);
}

QTEST_GUILESS_MAIN(TestCrashImporta)
#include "tst_crash_importa.moc"
