// The tool that copies, at work on a program folder: copies of the database.
#include "tests/tools/copia.h"

#include <QDateTime>
#include <QRegularExpression>

using namespace Qt::StringLiterals;
using copia::Ended;
using copia::names;
using copia::Workshop;

class TestCopia : public QObject
{
    Q_OBJECT

private slots:
    void init() { workshop_ = std::make_unique<Workshop>(); }

    void aCopyIsMadeAndTold();
    void aCopyIsNotOneOfTheProgramsWorries();
    void aCopyWhileAnotherProcessWrites();
    void theDatabaseOfTheSettingsIsCopied();
    void theFirstFolderThatIsThereTakesIt();
    void theLastFolderIsMade();
    void theLastTenStay();
    void onlyCopiesAreEverTakenAway();
    void aClockThatWentBackTakesNoCopyThatWasJustMade();
    void twoCopiesOfOneSecondAreTwo();
#ifdef Q_OS_UNIX // a shell takes the disk away
    void aFullTargetIsToldAndLosesNothing_data();
    void aFullTargetIsToldAndLosesNothing();
    void aFullDiskIsToldAndLosesNothing();
    void aDiskThatIsTakenOutIsTold();
    void aTargetThatCanNotBeWrittenIsTold();
#endif
    void aFileInThePlaceOfTheFolderIsTold();
    void aDamagedDatabaseIsToldAndTakesNoCopyAway();
    void aMissingDatabaseIsTold();
    void aDatabaseOfAnotherKindIsTold();
    void aDatabaseOfTheOldSystemIsNotCalledDamaged();
    void killsInTheMiddleLeaveNothingThatLooksLikeACopy();
    void wrongCallsAreTold_data();
    void wrongCallsAreTold();
    void theHelpIsNoError();

private:
    Ended copyTo(const QStringList &places) const
    {
        return workshop_->run(QStringList{u"banco"_s} + places);
    }
    Ended copy() const
    {
        return copyTo({workshop_->copies()});
    }

    std::unique_ptr<Workshop> workshop_;
};

void TestCopia::aCopyIsMadeAndTold()
{
    const auto before = QDateTime::currentDateTime().addSecs(-1);
    const Ended ended = copy();
    QCOMPARE(ended.code, 0);
    QCOMPARE(ended.errors, QString());
    QCOMPARE(names(workshop_->copies()).size(), 1);
    const QString made = workshop_->madeCopies().value(0);
    const QRegularExpression told(
        u"^A cópia do banco de dados foi feita e conferida \\(\\d+,\\d [kM]B\\):\n%1\n$"_s.arg(
            QRegularExpression::escape(made)));
    QVERIFY2(told.match(ended.output).hasMatch(), qPrintable(ended.output));
    const auto moment = QDateTime::fromString(QFileInfo(made).fileName(), u"'DADOS-'yyyy-MM-dd-HHmmss'.MDB'"_s);
    QVERIFY(moment >= before && moment <= QDateTime::currentDateTime());
    QCOMPARE(Workshop::rowsOf(made), 3000);
    QCOMPARE(workshop_->rows(), 3000);
}

/// No journal beside the database, no lock, nothing in the program folder.
void TestCopia::aCopyIsNotOneOfTheProgramsWorries()
{
    const auto program = dao::DBEngine::OpenDatabase(workshop_->database());
    auto row = program->OpenRecordset(u"Caixa"_s);
    const QByteArray before = copia::contents(workshop_->database());
    QCOMPARE(copy().code, 0);
    QCOMPARE(copia::contents(workshop_->database()), before);
    QCOMPARE(names(workshop_->path()), QStringList{u"DADOS"_s});
    QCOMPARE(names(workshop_->path(u"DADOS"_s)), QStringList{u"DADOS.MDB"_s});
    row.MoveLast();
    QCOMPARE(runtime::CLng(row.value(u"Codigo")), 3000);
    program->Execute(u"INSERT INTO Caixa (Descricao) VALUES ('A')"_s);
}

void TestCopia::aCopyWhileAnotherProcessWrites()
{
    QProcess writer;
    writer.start(QStringLiteral(ESCRITOR), {workshop_->database(), u"2"_s});
    QVERIFY(writer.waitForReadyRead(60'000));
    int before = 3000;
    for (int i = 0; i < 8; ++i) {
        const Ended ended = copy();
        QVERIFY2(ended.code == 0, qPrintable(ended.errors));
        const int rows = Workshop::rowsOf(workshop_->madeCopies().value(0));
        QVERIFY2(rows > before, qPrintable(u"%1 behind %2"_s.arg(rows).arg(before)));
        before = rows;
        QCOMPARE(writer.state(), QProcess::Running);
    }
    writer.kill();
    QVERIFY(writer.waitForFinished());
    QVERIFY(workshop_->rows() >= before);
}

void TestCopia::theDatabaseOfTheSettingsIsCopied()
{
    QVERIFY(QDir().mkdir(workshop_->beside(u"Outra"_s)));
    QVERIFY(QFile::rename(workshop_->database(), workshop_->beside(u"Outra/banco.mdb"_s)));
    QString named = workshop_->beside(u"OUTRA/Banco.MDB"_s); // as a user writes it
    named.replace(u'/', u'\\');
    copia::put(workshop_->path(u"config.ini"_s), runtime::toWestern(u"[Config]\r\nFileDB=%1\r\n"_s.arg(named)));
    const Ended ended = copy();
    QVERIFY2(ended.code == 0, qPrintable(ended.errors));
    QCOMPARE(Workshop::rowsOf(workshop_->madeCopies().value(0)), 3000);
}

void TestCopia::theFirstFolderThatIsThereTakesIt()
{
    const QString drive = workshop_->beside(u"A"_s);
    QCOMPARE(copyTo({drive, workshop_->copies()}).code, 0);
    QCOMPARE(names(workshop_->copies()).size(), 1);
    QVERIFY(!QFileInfo::exists(drive));
    QVERIFY(QDir().mkdir(drive));
    QCOMPARE(copyTo({drive, workshop_->copies()}).code, 0);
    QCOMPARE(names(workshop_->copies()).size(), 1);
    QCOMPARE(names(drive).size(), 1);
}

void TestCopia::theLastFolderIsMade()
{
    const QString made = workshop_->beside(u"Documentos/Copias do Tarvelo"_s);
    QCOMPARE(copyTo({workshop_->beside(u"A"_s), made}).code, 0);
    QCOMPARE(names(made).size(), 1);
}

void TestCopia::theLastTenStay()
{
    QStringList made;
    for (int i = 0; i < 11; ++i) {
        workshop_->add(1);
        QCOMPARE(copy().code, 0);
        made.prepend(workshop_->madeCopies().value(0));
        QCOMPARE(workshop_->madeCopies(), made.mid(0, 10));
    }
    QCOMPARE(Workshop::rowsOf(made[0]), 3011);
    QCOMPARE(Workshop::rowsOf(made[9]), 3002);
}

void TestCopia::onlyCopiesAreEverTakenAway()
{
    const QStringList others{u"DADOS.MDB"_s,
                             u"DADOS-2020-01-01-080000.MDB.txt"_s,
                             u"DADOS-2020-01-01-08000.MDB"_s,
                             u"DADOS-2020-01-01.MDB"_s,
                             u"minha DADOS-2020-01-01-080000.MDB"_s,
                             u"DADOS-2020-01-01-080000.mdb-journal"_s,
                             u"DADOS-2020-01-01-080000.MDB.gravando-"_s,
                             u"FIGURAS-2020-01-01-080000"_s};
    for (const QString &other : others) {
        copia::put(workshop_->copies() + u'/' + other, "do usuário");
    }
    QVERIFY(QDir(workshop_->copies()).mkdir(u"DADOS-2020-01-01-080001.MDB"_s));
    for (int i = 0; i < 12; ++i) {
        copia::put(workshop_->copies() + u"/DADOS-2021-01-%1-080000.MDB"_s.arg(i + 10), "antiga");
    }
    QCOMPARE(copy().code, 0);
    for (const QString &other : others) {
        QVERIFY2(QFile::exists(workshop_->copies() + u'/' + other), qPrintable(other));
    }
    QVERIFY(QFileInfo(workshop_->copies() + u"/DADOS-2020-01-01-080001.MDB"_s).isDir());
    QCOMPARE(workshop_->madeCopies(u"DADOS-2021-*.MDB"_s).size(), 9);
    QVERIFY(!QFile::exists(workshop_->copies() + u"/DADOS-2021-01-12-080000.MDB"_s));
    QVERIFY(QFile::exists(workshop_->copies() + u"/DADOS-2021-01-13-080000.MDB"_s));
}

void TestCopia::aClockThatWentBackTakesNoCopyThatWasJustMade()
{
    for (int i = 0; i < 10; ++i) {
        copia::put(workshop_->copies() + u"/DADOS-2999-01-%1-080000.MDB"_s.arg(i + 10), "do futuro");
    }
    QCOMPARE(copy().code, 0);
    QCOMPARE(workshop_->madeCopies().size(), 10);
    QCOMPARE(Workshop::rowsOf(workshop_->madeCopies().last()), 3000);
}

void TestCopia::twoCopiesOfOneSecondAreTwo()
{
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(copy().code, 0);
    }
    QCOMPARE(workshop_->madeCopies().size(), 4);
}

#ifdef Q_OS_UNIX

void TestCopia::aFullTargetIsToldAndLosesNothing_data()
{
    QTest::addColumn<int>("blocks");
    QTest::newRow("no byte") << 0;
    QTest::newRow("the first page") << 8;
    QTest::newRow("half of it") << 600;
}

void TestCopia::aFullTargetIsToldAndLosesNothing()
{
    QFETCH(const int, blocks);
    QCOMPARE(copy().code, 0);
    const QStringList before = names(workshop_->copies());
    const Ended ended = workshop_->start(u"trap '' XFSZ; ulimit -f %1; exec \"$0\" \"$@\""_s.arg(blocks),
                                         {u"banco"_s, workshop_->copies()});
    QCOMPARE(ended.code, 1);
    QCOMPARE(ended.output, QString());
    QCOMPARE(ended.errors, u"Não há espaço suficiente em:\n%1\n\nA cópia não foi feita. As cópias anteriores continuam "
                           "onde estão.\n"_s.arg(workshop_->copies()));
    QCOMPARE(names(workshop_->copies()), before);
}

/// A file system of its own, in memory, that lives as long as the shell.
void TestCopia::aFullDiskIsToldAndLosesNothing()
{
    const QString mount = u"mount -t tmpfs -o size=400k none \"$D\" 2>/dev/null || { echo no disk; exit 9; }; "_s;
    const QString work =
        u"echo antiga >\"$D/DADOS-2020-01-01-080000.MDB\"; \"$0\" \"$@\"; code=$?; ls -A \"$D\"; exit $code"_s;
    const QString line = u"D=%1 exec unshare -rm /bin/sh -c '%2' \"$0\" \"$@\""_s;
    const QString disk = workshop_->beside(u"disco"_s);
    QVERIFY(QDir().mkdir(disk));
    const Ended ended = workshop_->start(line.arg(disk, mount + work), {u"banco"_s, disk});
    if (ended.code == 9 || ended.output.isEmpty()) {
        QSKIP("this system lets a user mount no disk of his own; the limits on files are tried all the same");
    }
    QCOMPARE(ended.code, 1);
    QVERIFY2(ended.errors.startsWith(u"Não há espaço suficiente em:\n"), qPrintable(ended.errors));
    QCOMPARE(ended.output, u"DADOS-2020-01-01-080000.MDB\n"_s);
}

/// As the desktop takes a stick away whose plug was pulled, while the tool writes: it is stopped when its file is
/// there.
void TestCopia::aDiskThatIsTakenOutIsTold()
{
    const QString disk = workshop_->beside(u"disco"_s);
    const QString script =
        u"D=$1; shift\n"
        "there() { for f in \"$D\"/*.gravando-*; do [ -e \"$f\" ] && return 0; done; return 1; }\n"
        "ended() { { read -r _ _ state _ </proc/$tool/stat; } 2>/dev/null || return 0; [ \"$state\" = Z ]; }\n"
        "tries=50; while [ $((tries -= 1)) -gt 0 ]; do\n"
        "mkdir -p \"$D\" && mount -t tmpfs none \"$D\" 2>/dev/null || exit 9\n"
        "\"$@\" & tool=$!\n"
        "until there || ended; do :; done\n"
        "kill -STOP $tool 2>/dev/null\n"
        "there && umount -l \"$D\" && rmdir \"$D\" && kill -CONT $tool && { wait $tool; exit $?; }\n"
        "kill -CONT $tool 2>/dev/null; wait $tool; umount \"$D\"\n"
        "done; exit 8\n"_s;
    copia::put(workshop_->beside(u"tira.sh"_s), script.toUtf8());
    const QString line = u"exec unshare -rm /bin/sh %1 %2 \"$0\" \"$@\""_s.arg(workshop_->beside(u"tira.sh"_s), disk);
    const Ended ended = workshop_->start(line, {u"banco"_s, disk});
    if (ended.code == 9 || ended.errors.startsWith(u"unshare:")) {
        QSKIP("this system lets a user mount no disk of his own");
    }
    QCOMPARE(ended.code, 1);
    QCOMPARE(ended.errors, u"O disco ou a pasta não está no lugar:\n%1\n\nA cópia não foi feita. As cópias "
                           "anteriores continuam onde estão.\n"_s.arg(disk));
}

void TestCopia::aTargetThatCanNotBeWrittenIsTold()
{
    const QString text =
        u"Não foi possível gravar em:\n%1\nO disco está protegido, não há permissão ou outro programa "
        "está usando o arquivo.\n\nA cópia não foi feita. As cópias anteriores continuam onde estão.\n"_s;
    const Ended ended = copyTo({u"/proc"_s});
    QCOMPARE(ended.code, 1);
    QCOMPARE(ended.errors, text.arg(u"/proc"_s));
    const Ended notMade = copyTo({u"/proc/copias"_s});
    QCOMPARE(notMade.code, 1);
    QCOMPARE(notMade.errors, u"Não foi possível criar a pasta das cópias:\n/proc/copias\n"_s);
}

#endif

void TestCopia::aFileInThePlaceOfTheFolderIsTold()
{
    const QString place = workshop_->beside(u"A"_s);
    copia::put(place, "do usuário");
    const Ended ended = copyTo({place});
    QCOMPARE(ended.code, 1);
    QCOMPARE(ended.errors, u"Não foi possível criar a pasta das cópias:\n%1\n"_s.arg(place));
    QCOMPARE(copia::contents(place), QByteArray("do usuário"));
}

void TestCopia::aDamagedDatabaseIsToldAndTakesNoCopyAway()
{
    for (int i = 0; i < 10; ++i) {
        QCOMPARE(copy().code, 0);
    }
    const QStringList before = names(workshop_->copies());
    copia::damage(workshop_->database());
    const Ended ended = copy();
    QCOMPARE(ended.code, 1);
    QCOMPARE(ended.errors,
             u"O banco de dados está danificado:\n%1\n\nA cópia não foi feita. As cópias anteriores continuam onde "
             "estão: restaure a última.\n"_s.arg(workshop_->database()));
    QCOMPARE(names(workshop_->copies()), before);
}

void TestCopia::aMissingDatabaseIsTold()
{
    QVERIFY(QFile::remove(workshop_->database()));
    const Ended ended = copy();
    QCOMPARE(ended.code, 1);
    QCOMPARE(ended.errors,
             u"Não foi possível encontrar o arquivo '%1'.\n\nA cópia não foi feita.\n"_s.arg(workshop_->database()));
    QCOMPARE(names(workshop_->copies()), QStringList());
    QCOMPARE(names(workshop_->path(u"DADOS"_s)), QStringList());
}

void TestCopia::aDatabaseOfAnotherKindIsTold()
{
    copia::put(workshop_->database(), QByteArray("um texto qualquer").repeated(100));
    const Ended ended = copy();
    QCOMPARE(ended.code, 1);
    QVERIFY2(ended.errors.startsWith(u"O banco de dados está danificado:\n"), qPrintable(ended.errors));
    QCOMPARE(names(workshop_->copies()), QStringList());
}

void TestCopia::aDatabaseOfTheOldSystemIsNotCalledDamaged()
{
    copia::put(workshop_->database(), copia::oldDatabase());
    const Ended ended = copy();
    QCOMPARE(ended.code, 1);
    QVERIFY2(ended.errors.contains(u"É um banco de dados Jet (.MDB) genuíno"), qPrintable(ended.errors));
    QVERIFY2(ended.errors.contains(u"\n\ntarvelo-importa ANTIGO.MDB \"DADOS.MDB\"\n"), qPrintable(ended.errors));
    QVERIFY2(ended.errors.endsWith(u"\n\nA cópia não foi feita.\n"), qPrintable(ended.errors));
    QVERIFY(!ended.errors.contains(u"danificado"));
    QCOMPARE(names(workshop_->copies()), QStringList());
}

/// Killed at every moment of its work, and again in the next one. What has the name of a copy is one.
void TestCopia::killsInTheMiddleLeaveNothingThatLooksLikeACopy()
{
    workshop_->add(20'000);
    const copia::Kills kills(*workshop_, {u"banco"_s, workshop_->copies()}, 24);
    int leftovers = 0;
    for (int i = 0; i < kills.times(); ++i) {
        kills.kill(i);
        for (const QString &made : workshop_->madeCopies()) {
            QCOMPARE(Workshop::rowsOf(made), 23'000);
        }
        const auto beside = names(workshop_->copies()).size() - workshop_->madeCopies().size();
        QVERIFY2(beside <= 1, "what the one before left was not cleared");
        leftovers += static_cast<int>(beside);
        QCOMPARE(workshop_->rows(), 23'000);
    }
    QVERIFY2(leftovers > 0, "no kill met the writing");
    QCOMPARE(copy().code, 0);
    QCOMPARE(names(workshop_->copies()).size(), workshop_->madeCopies().size());
}

void TestCopia::wrongCallsAreTold_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("nothing") << QStringList();
    QTest::newRow("no place") << QStringList{u"banco"_s};
    QTest::newRow("an empty place") << QStringList{u"banco"_s, u""_s};
    QTest::newRow("an unknown work") << QStringList{u"apaga"_s, u"A"_s};
    QTest::newRow("an unknown option") << QStringList{u"banco"_s, u"A"_s, u"--tudo"_s};
    QTest::newRow("a wait that is no number") << QStringList{u"banco"_s, u"A"_s, u"--espera"_s, u"1,5"_s};
    QTest::newRow("a folder that is missing") << QStringList{u"banco"_s, u"A"_s, u"--pasta"_s};
}

void TestCopia::wrongCallsAreTold()
{
    QFETCH(const QStringList, arguments);
    QProcess tool;
    tool.start(QStringLiteral(FERRAMENTA), arguments);
    QVERIFY(tool.waitForFinished());
    QCOMPARE(tool.exitCode(), 2);
    QVERIFY(QString::fromUtf8(tool.readAllStandardError()).startsWith(u"uso: tarvelo-copia "));
}

void TestCopia::theHelpIsNoError()
{
    QProcess tool;
    tool.start(QStringLiteral(FERRAMENTA), {u"--ajuda"_s});
    QVERIFY(tool.waitForFinished());
    QCOMPARE(tool.exitCode(), 0);
    QVERIFY(QString::fromUtf8(tool.readAllStandardOutput()).contains(u"restaura-figuras LUGAR..."));
}

QTEST_GUILESS_MAIN(TestCopia)
#include "tst_copia.moc"
