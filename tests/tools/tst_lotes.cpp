// The batch files of this system, run by its shell in a program folder.
#include "tests/tools/copia.h"

#include <QRegularExpression>
#include <QStandardPaths>

#include <algorithm>

using namespace Qt::StringLiterals;
using copia::contents;
using copia::names;
using copia::put;
using copia::Workshop;

namespace
{

constexpr int patience = 60'000;

void putScript(const QString &path, const QByteArray &text)
{
    QFile::remove(path); // which may lead to a program of the system
    put(path, text);
    QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

} // namespace

class TestLotes : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void eachStandsThereAndStartsByItself();
    void aCopyAndItsRestoring();
    void picturesAndTheirRestoring();
    void theDiskOfTheHeadIsDriveA();
    void theFolderOfTheHeadIsMade();
    void theFolderOfDocumentsTakesThem();
    void theToolOfThePathServes();
    void aMissingToolIsTold();
    void aToolThatDiesIsToldAndNoted();
    void aFailureIsToldAndNoted();
    void theFirstProgramThatShowsABoxIsTaken_data();
    void theFirstProgramThatShowsABoxIsTaken();
    void aFailureShowsABoxOfItsKind();
    void withoutAScreenThereIsNoBox();
    void aBoxThatStandsHoldsNothingUp();
    void aTerminalShowsTheResultAndWaits();
    void theTextOfTheOtherSystemIsPlain();

private:
    QString home(const QString &name = {}) const { return workshop_->beside(u"casa/"_s + name); }
    QString bin(const QString &name = {}) const { return workshop_->beside(u"bin/"_s + name); }
    QString copies() const { return home(u"Copias do Tarvelo"_s); }
    QStringList notes() const
    {
        return QString::fromUtf8(contents(workshop_->path(u"copias.txt"_s))).split(u'\n', Qt::SkipEmptyParts);
    }
    int run(const QString &batch, bool screen = false) const;
    void change(const QString &batch, const QByteArray &before, const QByteArray &after) const;
    QProcessEnvironment environment(bool screen) const;
    QByteArray shown() const { return contents(home(u"caixa"_s)).trimmed(); }

    std::unique_ptr<Workshop> workshop_;
};

/// A program folder as it is installed, a user's folder, and a path that holds nothing but what the batch files ask
/// for.
void TestLotes::init()
{
    workshop_ = std::make_unique<Workshop>();
    for (const QString &batch : {u"BACKUPDA.BAT"_s, u"BACKUPFI.BAT"_s, u"RESTORDA.BAT"_s, u"RESTORFI.BAT"_s}) {
        putScript(workshop_->path(batch), contents(QStringLiteral(LOTES "/") + batch));
    }
    QVERIFY(QFile::link(QStringLiteral(FERRAMENTA), workshop_->path(u"tarvelo-copia"_s)));
    put(workshop_->path(u"DADOS/logo.bmp"_s), "BM logo");
    QVERIFY(QDir().mkpath(home()) && QDir().mkpath(bin()));
    for (const QString &program : {u"id"_s, u"dirname"_s, u"date"_s, u"tr"_s}) {
        QVERIFY(QFile::link(QStandardPaths::findExecutable(program), bin(program)));
    }
}

QProcessEnvironment TestLotes::environment(bool screen) const
{
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    for (const QString &name : {u"DISPLAY"_s, u"WAYLAND_DISPLAY"_s}) {
        variables.remove(name);
    }
    variables.insert(u"HOME"_s, home().chopped(1));
    variables.insert(u"USER"_s, u"ninguem-tem-este-nome"_s);
    variables.insert(u"PATH"_s, bin().chopped(1));
    if (screen) {
        variables.insert(u"DISPLAY"_s, u":99"_s);
    }
    return variables;
}

/// As the program starts it: cut off from a terminal. Returns its exit code, -1 where it does not end.
int TestLotes::run(const QString &batch, bool screen) const
{
    QProcess process;
    process.setProcessEnvironment(environment(screen));
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(workshop_->path(batch), QStringList());
    return process.waitForFinished(patience) && process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
}

/// What a user changes in a batch file.
void TestLotes::change(const QString &batch, const QByteArray &before, const QByteArray &after) const
{
    const QByteArray text = contents(workshop_->path(batch));
    QVERIFY(text.contains(before));
    putScript(workshop_->path(batch), QByteArray(text).replace(before, after));
}

void TestLotes::eachStandsThereAndStartsByItself()
{
    const QList<std::pair<QString, QByteArray>> batches{
        {u"BACKUPDA.BAT"_s, "\"$programa\" banco \"$DISCO_A\" \"$PASTA\""},
        {u"BACKUPFI.BAT"_s, "\"$programa\" figuras \"$DISCO_A\" \"$PASTA\""},
        {u"RESTORDA.BAT"_s, "\"$programa\" restaura-banco \"$DISCO_A\" \"$PASTA\""},
        {u"RESTORFI.BAT"_s, "\"$programa\" restaura-figuras \"$DISCO_A\" \"$PASTA\""}};
    for (const auto &[batch, work] : batches) {
        const QByteArray text = contents(workshop_->path(batch));
        QVERIFY2(text.startsWith("#!/bin/sh\n") && text.count(work) == 1, qPrintable(batch));
        QVERIFY(!text.contains("@O") && !text.contains('\r'));
    }
}

void TestLotes::aCopyAndItsRestoring()
{
    QCOMPARE(run(u"BACKUPDA.BAT"_s), 0);
    QCOMPARE(names(copies()).size(), 1);
    workshop_->add(10);
    QCOMPARE(run(u"RESTORDA.BAT"_s), 0);
    QCOMPARE(workshop_->rows(), 3000);
    QCOMPARE(notes().size(), 2);
    const QRegularExpression line(
        u"^\\d\\d/\\d\\d/\\d{4} \\d\\d:\\d\\d:\\d\\d A cópia do banco de dados foi feita e conferida \\(.* [kM]B\\): .*MDB$"_s);
    QVERIFY2(line.match(notes()[0]).hasMatch(), qPrintable(notes()[0]));
    QVERIFY2(notes()[1].contains(u"O banco de dados foi restaurado da cópia de "), qPrintable(notes()[1]));
    QVERIFY2(notes()[1].endsWith(u"Abra o Tarvelo de novo."), qPrintable(notes()[1]));
}

void TestLotes::picturesAndTheirRestoring()
{
    QCOMPARE(run(u"BACKUPFI.BAT"_s), 0);
    QCOMPARE(names(copies()).size(), 1);
    put(workshop_->path(u"DADOS/logo.bmp"_s), "BM outro");
    QCOMPARE(run(u"RESTORFI.BAT"_s), 0);
    QCOMPARE(contents(workshop_->path(u"DADOS/logo.bmp"_s)), QByteArray("BM logo"));
    QCOMPARE(notes().size(), 2);
}

void TestLotes::theDiskOfTheHeadIsDriveA()
{
    const QString disk = workshop_->beside(u"disco A"_s);
    for (const QString &batch : {u"BACKUPDA.BAT"_s, u"RESTORDA.BAT"_s}) {
        change(batch, "DISCO_A=\"/media/${USER:-$(id -un)}/TARVELO\"", "DISCO_A=\"" + disk.toUtf8() + '"');
    }
    QVERIFY(QDir().mkdir(disk));
    QCOMPARE(run(u"BACKUPDA.BAT"_s), 0);
    QCOMPARE(names(disk).size(), 1);
    QVERIFY(!QFileInfo::exists(copies()));
    workshop_->add(10);
    QCOMPARE(run(u"RESTORDA.BAT"_s), 0);
    QCOMPARE(workshop_->rows(), 3000);
}

void TestLotes::theFolderOfTheHeadIsMade()
{
    const QString folder = workshop_->beside(u"rede/cópias da oficina"_s);
    change(u"BACKUPDA.BAT"_s, "/Copias do Tarvelo\"", "/../rede/cópias da oficina\"");
    QCOMPARE(run(u"BACKUPDA.BAT"_s), 0);
    QCOMPARE(names(folder).size(), 1);
}

void TestLotes::theFolderOfDocumentsTakesThem()
{
    putScript(bin(u"xdg-user-dir"_s), "#!/bin/sh\n[ \"$1\" = DOCUMENTS ] && echo \"$HOME/Documentos\"\n");
    QCOMPARE(run(u"BACKUPDA.BAT"_s), 0);
    QCOMPARE(names(home(u"Documentos/Copias do Tarvelo"_s)).size(), 1);
}

void TestLotes::theToolOfThePathServes()
{
    QVERIFY(QFile::rename(workshop_->path(u"tarvelo-copia"_s), bin(u"tarvelo-copia"_s)));
    QCOMPARE(run(u"BACKUPDA.BAT"_s), 0);
    QCOMPARE(names(copies()).size(), 1);
}

void TestLotes::aMissingToolIsTold()
{
    QVERIFY(QFile::remove(workshop_->path(u"tarvelo-copia"_s)));
    QCOMPARE(run(u"BACKUPDA.BAT"_s), 1);
    QCOMPARE(notes().size(), 1);
    QVERIFY(notes()[0].endsWith(u" O programa tarvelo-copia não foi encontrado. Nada foi feito."));
}

void TestLotes::aToolThatDiesIsToldAndNoted()
{
    putScript(workshop_->path(u"tarvelo-copia"_s), "#!/bin/sh\nkill -9 $$\n");
    putScript(bin(u"kdialog"_s), "#!/bin/sh\necho \"$*\" >\"$HOME/caixa\"\n");
    QCOMPARE(run(u"BACKUPDA.BAT"_s, true), 137);
    QCOMPARE(notes().size(), 1);
    const QByteArray told = "O programa tarvelo-copia parou no meio (código 137). Faça de novo.";
    QVERIFY2(notes()[0].contains(QString::fromUtf8(told)), qPrintable(notes()[0]));
    const QByteArray box = "--title Tarvelo --error " + told;
    QTRY_VERIFY(shown().startsWith(box));
}

void TestLotes::aFailureIsToldAndNoted()
{
    QCOMPARE(run(u"RESTORDA.BAT"_s), 1);
    QCOMPARE(notes().size(), 1);
    QVERIFY2(notes()[0].contains(u" Não há nenhuma cópia do banco de dados em: "), qPrintable(notes()[0]));
    QCOMPARE(workshop_->rows(), 3000);
}

void TestLotes::theFirstProgramThatShowsABoxIsTaken_data()
{
    QTest::addColumn<QStringList>("there");
    QTest::addColumn<QByteArray>("arguments");
    QTest::newRow("all") << QStringList{u"zenity"_s, u"kdialog"_s, u"notify-send"_s, u"xmessage"_s}
                         << QByteArray("zenity --info --title=Tarvelo --no-markup --width=480 --text=");
    QTest::newRow("of the other desktop") << QStringList{u"kdialog"_s, u"notify-send"_s, u"xmessage"_s}
                                          << QByteArray("kdialog --title Tarvelo --msgbox ");
    QTest::newRow("a notice") << QStringList{u"notify-send"_s, u"xmessage"_s} << QByteArray("notify-send Tarvelo ");
    QTest::newRow("the plain one") << QStringList{u"xmessage"_s} << QByteArray("xmessage -center ");
}

void TestLotes::theFirstProgramThatShowsABoxIsTaken()
{
    QFETCH(const QStringList, there);
    QFETCH(const QByteArray, arguments);
    for (const QString &program : there) {
        putScript(bin(program), "#!/bin/sh\necho \"${0##*/} $*\" >\"$HOME/caixa\"\n");
    }
    QCOMPARE(run(u"BACKUPDA.BAT"_s, true), 0);
    const QByteArray begin = arguments + "A cópia do banco de dados foi feita e conferida";
    QTRY_VERIFY_WITH_TIMEOUT(shown().startsWith(begin), patience);
    QCOMPARE(notes().size(), 1);
}

void TestLotes::aFailureShowsABoxOfItsKind()
{
    putScript(bin(u"kdialog"_s), "#!/bin/sh\necho \"$*\" >\"$HOME/caixa\"\n");
    QCOMPARE(run(u"RESTORDA.BAT"_s, true), 1);
    QTRY_VERIFY_WITH_TIMEOUT(shown().startsWith("--title Tarvelo --error Não há nenhuma cópia"), patience);
    putScript(bin(u"zenity"_s), "#!/bin/sh\necho \"$*\" >\"$HOME/caixa\"\n");
    QCOMPARE(run(u"RESTORFI.BAT"_s, true), 1);
    QTRY_VERIFY_WITH_TIMEOUT(
        shown().startsWith("--error --title=Tarvelo --no-markup --width=480 --text=Não há nenhuma cópia"), patience);
}

void TestLotes::withoutAScreenThereIsNoBox()
{
    putScript(bin(u"zenity"_s), "#!/bin/sh\necho \"$*\" >\"$HOME/caixa\"\n");
    QCOMPARE(run(u"BACKUPDA.BAT"_s), 0);
    QTest::qWait(300);
    QVERIFY(!QFile::exists(home(u"caixa"_s)));
    QCOMPARE(notes().size(), 1);
}

void TestLotes::aBoxThatStandsHoldsNothingUp()
{
    QVERIFY(QFile::link(QStandardPaths::findExecutable(u"sleep"_s), bin(u"sleep"_s)));
    putScript(bin(u"zenity"_s), "#!/bin/sh\n: >\"$HOME/aberta\"\n"
                                "while [ ! -e \"$HOME/ok\" ]; do sleep 0.05; done\n: >\"$HOME/caixa\"\n");
    QCOMPARE(run(u"BACKUPDA.BAT"_s, true), 0);
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(home(u"aberta"_s)), patience);
    QCOMPARE(names(copies()).size(), 1);
    QCOMPARE(run(u"BACKUPDA.BAT"_s, true), 0); // another one meanwhile
    QCOMPARE(names(copies()).size(), 2);
    QVERIFY(!QFile::exists(home(u"caixa"_s)));
    put(home(u"ok"_s), "");
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(home(u"caixa"_s)), patience);
}

void TestLotes::aTerminalShowsTheResultAndWaits()
{
    QProcess terminal;
    terminal.setProcessEnvironment(environment(false));
    terminal.setProcessChannelMode(QProcess::MergedChannels);
    terminal.start(QStandardPaths::findExecutable(u"script"_s),
                   {u"-qec"_s, u"'%1'"_s.arg(workshop_->path(u"BACKUPDA.BAT"_s)), u"/dev/null"_s});
    QVERIFY(terminal.waitForStarted());
    QByteArray shown;
    QTRY_VERIFY_WITH_TIMEOUT((shown += terminal.readAll()).contains("Pressione Enter para fechar."), patience);
    QVERIFY2(shown.contains("A cópia do banco de dados foi feita e conferida"), shown.constData());
    QCOMPARE(terminal.state(), QProcess::Running);
    terminal.write("\n");
    QVERIFY(terminal.waitForFinished(patience));
    QCOMPARE(terminal.exitCode(), 0);
    QCOMPARE(names(copies()).size(), 1);
    QVERIFY(!QFile::exists(workshop_->path(u"copias.txt"_s)));
}

/// Its console has another code page: nothing but plain letters comes out as it was meant.
void TestLotes::theTextOfTheOtherSystemIsPlain()
{
    const QByteArray text = contents(QStringLiteral(LOTE_WINDOWS));
    QVERIFY(text.startsWith("@echo off\n"));
    QVERIFY(std::all_of(text.begin(), text.end(), [](char letter) { return letter > 0; }));
    QVERIFY(text.contains("\"%COPIA%\" --pasta \"%~dp0.\" @OPERACAO@ \"%DISCO_A%\" \"%PASTA%\"\n"));
}

QTEST_GUILESS_MAIN(TestLotes)
#include "tst_lotes.moc"
