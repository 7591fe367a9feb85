// The tool that copies, at work on a program folder: copies of the database are put in its place.
#include "tests/tools/copia.h"

#include "core/banco.h"
#include "core/esquema.h"
#include "core/modulo.h"
#include "platform/files/filelock.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;
using copia::contents;
using copia::Ended;
using copia::names;
using copia::Workshop;

class TestCopiaRestaura : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void theNewestCopyIsRestoredAndTold();
    void theNamedCopyIsRestored();
    void theFirstPlaceThatHasACopyIsTaken();
#ifdef Q_OS_UNIX // a shell takes the disk away
    void aCopyOnADiskThatTakesNoWriteIsRestored();
#endif
    void aRestoringFollowedByAStart();
    void anotherWorkstationSeesItAndWritesOn();
    void aMissingDatabaseIsRestored();
    void aDamagedDatabaseIsKeptAndReplaced();
    void aFileOfAnotherKindIsKeptAndReplaced();
    void aHotJournalIsTakenBackAheadOfIt();
    void aJournalWithoutItsDatabaseIsNotPlayedIntoTheCopy_data();
    void aJournalWithoutItsDatabaseIsNotPlayedIntoTheCopy();
    void aDamagedCopyRestoresNothing_data();
    void aDamagedCopyRestoresNothing();
    void aCopyOfTheOldSystemIsNotCalledDamaged();
    void noCopyIsTold();
    void theDatabaseIsNoCopyOfItself();
    void theProgramThatIsOpenIsWaitedFor();
    void aProgramThatStaysOpenIsTold();
    void theProgramDoesNotStartInTheMiddle();
#ifdef Q_OS_UNIX // a shell takes the disk away
    void aFullDiskIsToldAndChangesNothing_data();
    void aFullDiskIsToldAndChangesNothing();
#endif
    void aFolderInItsPlaceIsTold();
    void aMissingFolderIsToldAndNotMade();
    void aLockedDatabaseIsTold();
    void killsInTheMiddleLeaveTheOldOneOrTheCopy();
    void killsBesideADamagedOneLeaveItOrTheCopy();

private:
    Ended restoreFrom(const QStringList &places) const
    {
        return workshop_->run(QStringList{u"restaura-banco"_s} + places);
    }
    Ended restore() const
    {
        return restoreFrom({workshop_->copies()});
    }
    QStringList kept() const
    {
        return QDir(workshop_->path(u"DADOS"_s)).entryList({u"DADOS-antes-*.MDB"_s}, QDir::Files, QDir::Name);
    }
    QString keptPath() const
    {
        return workshop_->path(u"DADOS/"_s + kept().value(0));
    }
    void nothingChanged(const Ended &ended, const QByteArray &before) const;

    std::unique_ptr<Workshop> workshop_;
    QString copy_; ///< of 3000 rows; the database has 10 more
};

void TestCopiaRestaura::init()
{
    workshop_ = std::make_unique<Workshop>();
    QCOMPARE(workshop_->run({u"banco"_s, workshop_->copies()}).code, 0);
    copy_ = workshop_->madeCopies().value(0);
    workshop_->add(10);
}

void TestCopiaRestaura::cleanup()
{
    core::DBDados.reset();
    workshop_.reset();
}

void TestCopiaRestaura::nothingChanged(const Ended &ended, const QByteArray &before) const
{
    QCOMPARE(ended.code, 1);
    QCOMPARE(ended.output, QString());
    QCOMPARE(contents(workshop_->database()), before);
    QCOMPARE(names(workshop_->path(u"DADOS"_s)), QStringList{u"DADOS.MDB"_s});
}

void TestCopiaRestaura::theNewestCopyIsRestoredAndTold()
{
    copia::put(workshop_->copies() + u"/DADOS-2020-01-01-080000.MDB"_s, "uma antiga, com defeito");
    const QByteArray copied = contents(copy_);
    const Ended ended = restore();
    QVERIFY2(ended.code == 0, qPrintable(ended.errors));
    QCOMPARE(kept().size(), 1);
    QCOMPARE(workshop_->rows(), 3000);
    QCOMPARE(Workshop::rowsOf(keptPath()), 3010);
    QCOMPARE(contents(copy_), copied);
    QCOMPARE(names(workshop_->path(u"DADOS"_s)), (QStringList{kept().value(0), u"DADOS.MDB"_s}));
    const auto parts = QRegularExpression(u"DADOS-(\\d{4})-(\\d\\d)-(\\d\\d)-(\\d\\d)(\\d\\d)(\\d\\d)"_s).match(copy_);
    const QString moment = u"%3/%2/%1 %4:%5:%6"_s.arg(parts.captured(1), parts.captured(2), parts.captured(3),
                                                      parts.captured(4), parts.captured(5), parts.captured(6));
    QCOMPARE(ended.output, u"O banco de dados foi restaurado da cópia de %1:\n%2\n\nO que havia antes foi guardado "
                           "em:\n%3\n\nAbra o Tarvelo de novo.\n"_s.arg(moment, copy_, keptPath()));
}

void TestCopiaRestaura::theNamedCopyIsRestored()
{
    const QString named = workshop_->beside(u"banco de ontem.mdb"_s);
    QVERIFY(QFile::rename(copy_, named));
    QCOMPARE(workshop_->run({u"banco"_s, workshop_->copies()}).code, 0);
    workshop_->add(5);
    const Ended ended = restoreFrom({named});
    QVERIFY2(ended.code == 0, qPrintable(ended.errors));
    QVERIFY(ended.output.startsWith(u"O banco de dados foi restaurado da cópia:\n"_s + named + u'\n'));
    QCOMPARE(workshop_->rows(), 3000);
    QCOMPARE(Workshop::rowsOf(keptPath()), 3015);
}

/// A disk that somebody put in holds the copy that he means, though there be newer ones elsewhere.
void TestCopiaRestaura::theFirstPlaceThatHasACopyIsTaken()
{
    const QString drive = workshop_->beside(u"A"_s);
    QVERIFY(QDir().mkdir(drive));
    QVERIFY(QFile::rename(copy_, drive + u"/DADOS-2020-01-01-080000.MDB"_s));
    QCOMPARE(workshop_->run({u"banco"_s, workshop_->copies()}).code, 0);
    workshop_->add(5);
    QCOMPARE(restoreFrom({drive, workshop_->copies()}).code, 0);
    QCOMPARE(workshop_->rows(), 3000);

    QVERIFY(QFile::remove(drive + u"/DADOS-2020-01-01-080000.MDB"_s));
    QCOMPARE(restoreFrom({workshop_->beside(u"ausente"_s), drive, workshop_->copies()}).code, 0);
    QCOMPARE(workshop_->rows(), 3010);
}

#ifdef Q_OS_UNIX

void TestCopiaRestaura::aCopyOnADiskThatTakesNoWriteIsRestored()
{
    const QString protect = u"mount --bind %1 %1 && mount -o remount,bind,ro %1 && ! touch %1/x || exit 9; "_s;
    const QString line =
        u"exec unshare -rm /bin/sh -c '{ "_s + protect + u"} 2>/dev/null; exec \"$0\" \"$@\"' \"$0\" \"$@\""_s;
    const Ended ended = workshop_->start(line.arg(workshop_->copies()), {u"restaura-banco"_s, workshop_->copies()});
    if (ended.code == 9 || ended.code == 127 || ended.errors.startsWith(u"unshare:")) {
        QSKIP("this system lets a user protect no folder of his own");
    }
    QVERIFY2(ended.code == 0, qPrintable(ended.errors));
    QCOMPARE(workshop_->rows(), 3000);
    QCOMPARE(names(workshop_->copies()), QStringList{QFileInfo(copy_).fileName()});
    workshop_->add(1); // which can be written again
}

#endif

/// The whole schema, an operator and a customer, through what the program runs at its start.
void TestCopiaRestaura::aRestoringFollowedByAStart()
{
    const auto told = [](const QString &text) { QFAIL(qPrintable(text)); };
    const auto start = [&] {
        core::App::setPath(workshop_->path());
        core::ArquivoDB = core::App::Path() + u"\\DADOS\\DADOS.MDB"_s;
        core::AbreOuCriaBanco(told);
        core::CriarDB(told);
    };
    start();
    core::DBDados->Execute(u"INSERT INTO Clientes (Nome) VALUES ('MARIA')"_s);
    QCOMPARE(workshop_->run({u"banco"_s, workshop_->copies()}).code, 0);
    core::DBDados->Execute(u"INSERT INTO Clientes (Nome) VALUES ('JOSÉ')"_s);
    core::DBDados.reset();
    QCOMPARE(restore().code, 0);

    start();
    QCOMPARE(core::LocalizaCampo(u"count(Codigo)"_s, u"Clientes"_s, u"True"_s), u"1"_s);
    QCOMPARE(core::LocalizaCampo(u"Nome"_s, u"Clientes"_s, u"Codigo = 1"_s), u"MARIA"_s);
    core::AcrescentaLinha(u"Clientes"_s, [](dao::Recordset &row) { row[u"Nome"] = u"ANA"_s; });
    QCOMPARE(core::LocalizaCampo(u"Codigo"_s, u"Clientes"_s, u"Nome = 'ANA'"_s), u"2"_s);
    QCOMPARE(core::DBDados->CheckIntegrity(), u"ok"_s);
}

void TestCopiaRestaura::anotherWorkstationSeesItAndWritesOn()
{
    const auto workstation = dao::DBEngine::OpenDatabase(workshop_->database());
    const auto count = [&] {
        return runtime::CLng(workstation->OpenRecordset(u"SELECT count(Codigo) FROM Caixa"_s).value(0));
    };
    QCOMPARE(count(), 3010);
    QCOMPARE(restore().code, 0);
    QCOMPARE(count(), 3000);
    for (const QString &table : {u"Caixa"_s, u"Banco1"_s}) {
        workstation->Execute(u"INSERT INTO %1 (Descricao) VALUES ('DEPOIS')"_s.arg(table));
    }
    workstation->Close();
    QCOMPARE(workshop_->rows(), 3001);
}

void TestCopiaRestaura::aMissingDatabaseIsRestored()
{
    QVERIFY(QFile::remove(workshop_->database()));
    const Ended ended = restore();
    QVERIFY2(ended.code == 0, qPrintable(ended.errors));
    QVERIFY(!ended.output.contains(u"guardado"));
    QCOMPARE(workshop_->rows(), 3000);
    QCOMPARE(names(workshop_->path(u"DADOS"_s)), QStringList{u"DADOS.MDB"_s});
}

void TestCopiaRestaura::aDamagedDatabaseIsKeptAndReplaced()
{
    copia::damage(workshop_->database());
    const QByteArray before = contents(workshop_->database());
    const Ended ended = restore();
    QVERIFY2(ended.code == 0, qPrintable(ended.errors));
    QCOMPARE(workshop_->rows(), 3000);
    QCOMPARE(kept().size(), 1);
    QCOMPARE(contents(keptPath()).size(), before.size());
    QVERIFY(contents(keptPath()).contains(QByteArray(8192, 'X')));
}

void TestCopiaRestaura::aFileOfAnotherKindIsKeptAndReplaced()
{
    for (const QByteArray &bytes : {QByteArray(), QByteArray("um texto"), QByteArray(9000, '\0')}) {
        copia::put(workshop_->database(), bytes);
        const Ended ended = restore();
        QVERIFY2(ended.code == 0, qPrintable(ended.errors));
        QCOMPARE(workshop_->rows(), 3000);
        QCOMPARE(contents(workshop_->path(u"DADOS/"_s + kept().last())), bytes);
    }
    QCOMPARE(kept().size(), 3);
}

/// Left by a program that was killed while it wrote: what it had not ended is in neither file.
void TestCopiaRestaura::aHotJournalIsTakenBackAheadOfIt()
{
    for (int i = 0; i < 4; ++i) {
        QProcess writer;
        writer.start(QStringLiteral(ESCRITOR), {workshop_->database()});
        QVERIFY(writer.waitForReadyRead(60'000));
        writer.kill();
        QVERIFY(writer.waitForFinished());
        QCOMPARE(restore().code, 0);
        QCOMPARE(workshop_->rows(), 3000);
        QVERIFY(Workshop::rowsOf(workshop_->path(u"DADOS/"_s + kept().last())) > 3000 - (i == 0 ? 0 : 1));
        QVERIFY(!QFile::exists(workshop_->database() + u"-journal"_s));
    }
}

void TestCopiaRestaura::aJournalWithoutItsDatabaseIsNotPlayedIntoTheCopy_data()
{
    QTest::addColumn<bool>("missing");
    QTest::newRow("no database") << true;
    QTest::newRow("no database of ours") << false;
}

/// A real one, which the engine would play: taken from the middle of a write of all pages.
void TestCopiaRestaura::aJournalWithoutItsDatabaseIsNotPlayedIntoTheCopy()
{
    QFETCH(const bool, missing);
    const QString journal = workshop_->database() + u"-journal"_s;
    QByteArray hot;
    {
        const auto database = dao::DBEngine::OpenDatabase(workshop_->database());
        const dao::Unit unit;
        database->Execute(u"UPDATE Caixa SET Descricao = 'OUTRA'"_s);
        hot = contents(journal);
        QVERIFY(hot.size() > 4096);
    }
    QVERIFY(QFile::remove(workshop_->database()));
    if (!missing) {
        copia::put(workshop_->database(), "nenhum banco");
    }
    hot.replace(0, 12, QByteArray::fromHex("d9d505f920a163d7ffffffff")); // as one that was on the disk
    copia::put(journal, hot);
    const Ended ended = restore();
    QVERIFY2(ended.code == 0, qPrintable(ended.errors));
    QCOMPARE(workshop_->rows(), 3000);
    const auto database = dao::DBEngine::OpenDatabase(workshop_->database());
    QVERIFY(database->OpenRecordset(u"SELECT Codigo FROM Caixa WHERE Descricao = 'OUTRA'"_s).Eof());
    QVERIFY(!QFile::exists(journal));
    const QStringList keptJournals = QDir(workshop_->path(u"DADOS"_s)).entryList({u"DADOS-antes-*-journal"_s});
    QCOMPARE(keptJournals.size(), 1);
    QCOMPARE(contents(workshop_->path(u"DADOS/"_s + keptJournals[0])), hot);
}

void TestCopiaRestaura::aDamagedCopyRestoresNothing_data()
{
    QTest::addColumn<int>("damage");
    QTest::newRow("a page") << 0;
    QTest::newRow("cut off") << 1;
    QTest::newRow("empty") << 2;
    QTest::newRow("a text") << 3;
}

void TestCopiaRestaura::aDamagedCopyRestoresNothing()
{
    QFETCH(const int, damage);
    if (damage == 0) {
        copia::damage(copy_);
    } else if (damage == 1) {
        QVERIFY(QFile::resize(copy_, QFileInfo(copy_).size() / 3));
    } else {
        copia::put(copy_, damage == 2 ? QByteArray() : QByteArray("um texto"));
    }
    const QByteArray before = contents(workshop_->database());
    const Ended ended = restore();
    nothingChanged(ended, before);
    QCOMPARE(ended.errors, u"A cópia está danificada ou não pode ser lida:\n%1\n\nO banco de dados não foi mudado. Use "
                           "outra cópia.\n"_s.arg(copy_));
}

void TestCopiaRestaura::aCopyOfTheOldSystemIsNotCalledDamaged()
{
    copia::put(copy_, copia::oldDatabase());
    const QByteArray before = contents(workshop_->database());
    const Ended ended = restore();
    nothingChanged(ended, before);
    const QString command = u"\n\ntarvelo-importa ANTIGO.MDB \"%1\"\n"_s.arg(QFileInfo(copy_).fileName());
    QVERIFY2(ended.errors.contains(u"É um banco de dados Jet (.MDB) genuíno"), qPrintable(ended.errors));
    QVERIFY2(ended.errors.contains(command), qPrintable(ended.errors));
    QVERIFY2(ended.errors.endsWith(u"\n\nO banco de dados não foi mudado.\n"), qPrintable(ended.errors));
    QVERIFY(!ended.errors.contains(u"danificada"));
}

void TestCopiaRestaura::noCopyIsTold()
{
    QVERIFY(QFile::rename(copy_, workshop_->copies() + u"/DADOS.MDB"_s));
    const QByteArray before = contents(workshop_->database());
    const QString drive = workshop_->beside(u"A"_s);
    const Ended ended = restoreFrom({drive, workshop_->copies()});
    nothingChanged(ended, before);
    QCOMPARE(ended.errors, u"Não há nenhuma cópia do banco de dados em:\n%1\n%2\n\nNada foi mudado.\n"_s.arg(
                               drive, workshop_->copies()));
}

void TestCopiaRestaura::theDatabaseIsNoCopyOfItself()
{
    const QByteArray before = contents(workshop_->database());
    const Ended ended = restoreFrom({workshop_->database()});
    nothingChanged(ended, before);
    QVERIFY(ended.errors.startsWith(u"A cópia é o próprio banco de dados:\n"));
}

void TestCopiaRestaura::theProgramThatIsOpenIsWaitedFor()
{
    auto program = std::make_unique<files::FileLock>(workshop_->path(u"tarvelo.lock"_s));
    QCOMPARE(program->take(), files::FileLock::Result::Taken);
    QProcess tool;
    tool.start(QStringLiteral(FERRAMENTA), {u"--pasta"_s, workshop_->path(), u"restaura-banco"_s, workshop_->copies()});
    QVERIFY(!tool.waitForFinished(1500));
    QCOMPARE(workshop_->rows(), 3010);
    program.reset();
    QVERIFY(tool.waitForFinished(60'000));
    QCOMPARE(tool.exitCode(), 0);
    QCOMPARE(workshop_->rows(), 3000);
}

void TestCopiaRestaura::aProgramThatStaysOpenIsTold()
{
    files::FileLock program(workshop_->path(u"tarvelo.lock"_s));
    QCOMPARE(program.take(), files::FileLock::Result::Taken);
    const QByteArray before = contents(workshop_->database());
    const Ended ended = restore();
    nothingChanged(ended, before);
    QCOMPARE(ended.errors, u"O Tarvelo ainda está aberto neste computador.\n\nO banco de dados não foi mudado. Feche o "
                           "programa e restaure de novo.\n"_s);
}

/// While it waits for another workstation's write it holds the folder already.
void TestCopiaRestaura::theProgramDoesNotStartInTheMiddle()
{
    QProcess tool;
    {
        const auto workstation = dao::DBEngine::OpenDatabase(workshop_->database());
        const dao::Unit write;
        workstation->Execute(u"DELETE * FROM Caixa WHERE Codigo > 3009"_s);
        workstation->Execute(u"DELETE * FROM Banco1 WHERE Codigo > 3009"_s);
        tool.start(QStringLiteral(FERRAMENTA),
                   {u"--pasta"_s, workshop_->path(), u"restaura-banco"_s, workshop_->copies()});
        const auto mayStart = [&] {
            return files::FileLock(workshop_->path(u"tarvelo.lock"_s)).take() != files::FileLock::Result::Busy;
        };
        QTRY_VERIFY_WITH_TIMEOUT(!mayStart(), 20'000);
        QVERIFY(!tool.waitForFinished(500));
    }
    QVERIFY(tool.waitForFinished(60'000));
    QCOMPARE(tool.exitCode(), 0);
    QCOMPARE(workshop_->rows(), 3000);
    QCOMPARE(Workshop::rowsOf(keptPath()), 3009); // with the last that the other wrote
}

#ifdef Q_OS_UNIX

void TestCopiaRestaura::aFullDiskIsToldAndChangesNothing_data()
{
    QTest::addColumn<int>("blocks");
    QTest::newRow("no byte") << 0;
    QTest::newRow("half of what is kept") << 600;
}

void TestCopiaRestaura::aFullDiskIsToldAndChangesNothing()
{
    QFETCH(const int, blocks);
    const QByteArray before = contents(workshop_->database());
    const Ended ended = workshop_->start(u"trap '' XFSZ; ulimit -f %1; exec \"$0\" \"$@\""_s.arg(blocks),
                                         {u"restaura-banco"_s, workshop_->copies()});
    nothingChanged(ended, before);
    QCOMPARE(ended.errors, u"Não há espaço suficiente em:\n%1\n\nO banco de dados não foi mudado.\n"_s.arg(
                               workshop_->path(u"DADOS"_s)));
}

#endif

void TestCopiaRestaura::aFolderInItsPlaceIsTold()
{
    QVERIFY(QFile::remove(workshop_->database()) && QDir().mkdir(workshop_->database()));
    const Ended ended = restore();
    QCOMPARE(ended.code, 1);
    QVERIFY2(ended.errors.startsWith(u"Não foi possível gravar em:\n"), qPrintable(ended.errors));
    QCOMPARE(names(workshop_->path(u"DADOS"_s)), QStringList{u"DADOS.MDB"_s});
}

/// It may be on a drive of another machine that is off.
void TestCopiaRestaura::aMissingFolderIsToldAndNotMade()
{
    const QString folder = workshop_->path(u"DADOS"_s);
    QVERIFY(QDir(folder).removeRecursively());
    const Ended ended = restore();
    QCOMPARE(ended.code, 1);
    QCOMPARE(ended.errors,
             u"O disco ou a pasta não está no lugar:\n%1\n\nO banco de dados não foi mudado. Ligue o disco ou o "
             "computador em que ele está, ou abra o Tarvelo uma vez.\n"_s.arg(folder));
    QCOMPARE(names(workshop_->path()), QStringList());
}

/// For longer than it waits.
void TestCopiaRestaura::aLockedDatabaseIsTold()
{
    const auto workstation = dao::DBEngine::OpenDatabase(workshop_->database());
    Ended ended;
    {
        const dao::Unit write;
        workstation->Execute(u"DELETE * FROM Caixa WHERE Codigo > 3009"_s);
        workstation->Execute(u"DELETE * FROM Banco1 WHERE Codigo > 3009"_s);
        ended = restore();
    }
    QCOMPARE(ended.code, 1);
    QVERIFY2(ended.errors.endsWith(u"outro programa está usando o arquivo.\n\nO banco de dados não foi mudado.\n"),
             qPrintable(ended.errors));
    QCOMPARE(names(workshop_->path(u"DADOS"_s)), QStringList{u"DADOS.MDB"_s});
    QCOMPARE(workshop_->rows(), 3009);
}

/// Killed at every moment, and again in the next restoring: what opens afterwards is one or the other, whole.
void TestCopiaRestaura::killsInTheMiddleLeaveTheOldOneOrTheCopy()
{
    const copia::Kills kills(*workshop_, {u"restaura-banco"_s, workshop_->copies()}, 30);
    workshop_->add(10);
    int old = 0;
    int restored = 0;
    for (int i = 0; i < kills.times(); ++i) {
        kills.kill(i);
        const int rows = workshop_->rows();
        QVERIFY2(rows == 3000 || rows == 3010, qPrintable(QString::number(rows)));
        (rows == 3000 ? restored : old) += 1;
        workshop_->add(3010 - rows);
    }
    QVERIFY2(old > 0 && restored > 0, "the kills met one half of the work only");
    QCOMPARE(restore().code, 0);
    QCOMPARE(workshop_->rows(), 3000);
    for (const QString &name : names(workshop_->path(u"DADOS"_s))) {
        QVERIFY2(name.endsWith(u".MDB"), qPrintable(name));
        QVERIFY(Workshop::rowsOf(workshop_->path(u"DADOS/"_s + name)) >= 3000);
    }
}

void TestCopiaRestaura::killsBesideADamagedOneLeaveItOrTheCopy()
{
    copia::put(workshop_->database(), "nenhum banco");
    const copia::Kills kills(*workshop_, {u"restaura-banco"_s, workshop_->copies()}, 15);
    int replaced = 0;
    for (int i = 0; i < kills.times(); ++i) {
        copia::put(workshop_->database(), "nenhum banco");
        kills.kill(i);
        if (contents(workshop_->database()) != "nenhum banco") {
            QCOMPARE(workshop_->rows(), 3000);
            ++replaced;
        }
    }
    QVERIFY2(replaced > 0 && replaced < kills.times(), qPrintable(QString::number(replaced)));
    QCOMPARE(restore().code, 0);
    QCOMPARE(workshop_->rows(), 3000);
}

QTEST_GUILESS_MAIN(TestCopiaRestaura)
#include "tst_copia_restaura.moc"
