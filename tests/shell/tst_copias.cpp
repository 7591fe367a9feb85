#include "core/config.h"
#include "core/modulo.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/application.h"
#include "platform/ui/boxes.h"
#include "platform/ui/forms.h"
#include "shell/frmMDI.h"
#include "shell/lembretes.h"
#include "support/boxes.h"
#include "support/program.h"

#include <QAction>
#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

namespace
{

const QString cleanDisk = u"Insira um Disco Limpo no drive A:"_s;
const QString restart = u"Para Restaurar o banco de dados, você dererá reiniciar o programa"_s;
const QString databaseDisk = u"Insira o disco com o backup do banco de dados no drive A:"_s;
const QString picturesDisk = u"Insira o disco com o backup de figuras no drive A:"_s;

constexpr auto before = u"08/05/2024 09:00:00";
constexpr int patience = 60'000; // milliseconds for a process that does its work and ends

/// Batch files as this system has them: one that leaves a mark with the folder that it was started in, one that fails,
/// one that is not named as the program names it.
#ifdef Q_OS_WIN
const QByteArray marking = "@cd>%~nx0.novo\r\n@ren %~nx0.novo %~nx0.marca\r\n";
const QByteArray failing = "@echo.>fim.marca\r\n@exit /b 1\r\n";
const QByteArray otherwiseNamed = "@echo sim>BACKUPDA.BAT.marca\r\n";
#else
const QByteArray marking = "#!/bin/sh\npwd >\"$0.novo\" && mv \"$0.novo\" \"$0.marca\"\n";
const QByteArray failing = "#!/bin/sh\necho >fim.marca\nexit 1\n";
const QByteArray otherwiseNamed = "#!/bin/sh\necho sim >BACKUPDA.BAT.marca\n";
#endif

QAction *action(const QString &name)
{
    return shell::principal().findChild<QAction *>(name);
}

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed() : QByteArray("(none)");
}

} // namespace

/// The menu of copies over batch files of the test's own, which leave a mark. The clock stands at 15/05/2024 10:30:00.
class TestCopias : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        ui::Application::resetEnd();
        program_ = std::make_unique<support::Program>();
        program_->config(u"AvisaBackup"_s, u"N"_s);
        program_->config(u"LastBackup"_s, QString::fromUtf16(before));
        program_->config(u"Nome"_s, u"OFICINA DO ZÉ"_s);
        core::NomeEmpresa = u"OFICINA DO ZÉ"_s;
        ui::setBoxTitle(core::NomeEmpresa);
        shell::principal().MDIForm_Load();
    }

    void cleanup()
    {
        ui::Forms::instance().unloadAll();
        shell::fechaPrincipal();
        core::NomeEmpresa = u"Tarvelo"_s;
        ui::setBoxTitle(core::NomeEmpresa);
        program_.reset();
        ui::Application::resetEnd();
    }

    void eachCommandStartsItsBatchFile_data() { commandRows(); }
    void eachCommandStartsItsBatchFile()
    {
        QFETCH(const QString, item);
        QFETCH(const QString, batch);
        layBatches();
        support::Boxes boxes;
        expect(boxes, true);
        press(item);
        boxes.finish();
        QTRY_COMPARE_WITH_TIMEOUT(marks(), QStringList{batch}, patience);
        const QByteArray folder = QDir::toNativeSeparators(program_->path()).toLocal8Bit();
        QCOMPARE(contents(program_->path(batch + u".marca"_s)), folder); // started in its folder
    }

    void cancelEndsTheCommand_data() { commandRows(); }
    void cancelEndsTheCommand()
    {
        QFETCH(const QString, item);
        layBatches();
        support::Boxes boxes;
        expect(boxes, false);
        press(item);
        boxes.finish();
        QTest::qWait(300);
        QCOMPARE(marks(), QStringList());
        QCOMPARE(shell::UltimoBackup(), QString::fromUtf16(before));
        QVERIFY(!ui::Application::ended());
    }

    void onlyTheCopyOfTheDatabaseNotesItsMoment_data() { commandRows(); }
    void onlyTheCopyOfTheDatabaseNotesItsMoment()
    {
        QFETCH(const QString, item);
        layBatches();
        support::Boxes boxes;
        expect(boxes, true);
        press(item);
        boxes.finish();
        const bool notes = item == u"itmBackBackBD"_s;
        QCOMPARE(core::Config(u"LastBackup"_s), notes ? u"15/05/2024 10:30:00"_s : QString::fromUtf16(before));
        const QByteArray file = contents(program_->path(u"config.ini"_s));
        QVERIFY(file.contains("LastBackup=") && !file.contains("15/05/2024")); // scrambled
        QTRY_COMPARE_WITH_TIMEOUT(marks().size(), 1, patience);
    }

    void theMomentIsNotedWhateverBecomesOfTheCopy()
    {
        lay(u"BACKUPDA.BAT"_s, failing);
        support::Boxes boxes;
        boxes.okCancel(cleanDisk, QMessageBox::Warning, true);
        press(u"itmBackBackBD"_s);
        boxes.finish();
        QCOMPARE(shell::UltimoBackup(), u"15/05/2024 10:30:00"_s);
        QTRY_COMPARE_WITH_TIMEOUT(marks(), QStringList{u"fim"_s}, patience);
    }

    void theMenuKeepsTheDateOfTheStart()
    {
        layBatches();
        QCOMPARE(action(u"itmBackData"_s)->text(), QString::fromUtf16(before));
        support::Boxes boxes;
        boxes.okCancel(cleanDisk, QMessageBox::Warning, true);
        press(u"itmBackBackBD"_s);
        boxes.finish();
        QCOMPARE(action(u"itmBackData"_s)->text(), QString::fromUtf16(before));

        QTRY_COMPARE_WITH_TIMEOUT(marks().size(), 1, patience);

        shell::fechaPrincipal();
        shell::principal().MDIForm_Load(); // the next start
        QCOMPARE(action(u"itmBackData"_s)->text(), u"15/05/2024 10:30:00"_s);
    }

    void onlyTheRestoringOfTheDatabaseEndsTheProgram_data() { commandRows(); }
    void onlyTheRestoringOfTheDatabaseEndsTheProgram()
    {
        QFETCH(const QString, item);
        layBatches();
        support::Boxes boxes;
        expect(boxes, true);
        press(item);
        boxes.finish();
        QCOMPARE(ui::Application::ended(), item == u"itmBackRestBD"_s);
        QTRY_COMPARE_WITH_TIMEOUT(marks().size(), 1, patience); // it goes on all the same
    }

    void aMissingBatchFileIsARuntimeErrorAheadOfTheDate_data() { commandRows(); }
    void aMissingBatchFileIsARuntimeErrorAheadOfTheDate()
    {
        QFETCH(const QString, item);
        support::Boxes boxes;
        expect(boxes, true);
        boxes.critical(u"Erro em tempo de execução '53':\n\nArquivo não encontrado"_s);
        press(item);
        boxes.finish();
        QVERIFY(ui::Application::ended());
        QCOMPARE(shell::UltimoBackup(), QString::fromUtf16(before));
    }

    void aBatchFileIsFoundWhateverTheCaseOfItsName()
    {
        lay(u"BackupDa.bat"_s, otherwiseNamed);
        support::Boxes boxes;
        boxes.okCancel(cleanDisk, QMessageBox::Warning, true);
        press(u"itmBackBackBD"_s);
        boxes.finish();
        QTRY_COMPARE_WITH_TIMEOUT(marks(), QStringList{u"BACKUPDA.BAT"_s}, patience);
    }

    void aUserWithoutRightsMakesCopiesToo()
    {
        layBatches();
        program_->sql(u"UPDATE Senha SET Admin = False"_s);
        shell::fechaPrincipal();
        shell::principal().MDIForm_Load();
        support::Boxes boxes;
        boxes.okCancel(cleanDisk, QMessageBox::Warning, true);
        press(u"itmBackBackFI"_s);
        boxes.finish();
        QTRY_COMPARE_WITH_TIMEOUT(marks(), QStringList{u"BACKUPFI.BAT"_s}, patience);
    }

    void theLastCopyIsALabel()
    {
        QVERIFY(!action(u"itmBackUltimo"_s)->isEnabled());
        QVERIFY(!action(u"itmBackData"_s)->isEnabled());
    }

private:
    static void commandRows()
    {
        QTest::addColumn<QString>("item");
        QTest::addColumn<QString>("batch");
        QTest::addColumn<QString>("first");
        QTest::addColumn<QString>("prompt");
        const auto row = [](const char *item, const QString &batch, const QString &first, const QString &prompt) {
            QTest::newRow(item) << QString::fromLatin1(item) << batch << first << prompt;
        };
        row("itmBackBackBD", u"BACKUPDA.BAT"_s, {}, cleanDisk);
        row("itmBackBackFI", u"BACKUPFI.BAT"_s, {}, cleanDisk);
        row("itmBackRestBD", u"RESTORDA.BAT"_s, restart, databaseDisk);
        row("itmBackRestFI", u"RESTORFI.BAT"_s, {}, picturesDisk);
    }

    static void expect(support::Boxes &boxes, bool ok)
    {
        QFETCH(const QString, first);
        QFETCH(const QString, prompt);
        boxes.title(u"OFICINA DO ZÉ"_s);
        if (!first.isEmpty()) {
            boxes.information(first);
        }
        boxes.okCancel(prompt, QMessageBox::Warning, ok);
    }

    static void press(const QString &item)
    {
        QVERIFY(action(item)->isEnabled());
        action(item)->trigger();
    }

    void lay(const QString &name, const QByteArray &text) const
    {
        QFile file(program_->path(name));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
        QVERIFY(file.setPermissions(file.permissions() | QFile::ExeOwner));
    }

    void layBatches() const
    {
        for (const QString &name : {u"BACKUPDA.BAT"_s, u"BACKUPFI.BAT"_s, u"RESTORDA.BAT"_s, u"RESTORFI.BAT"_s}) {
            lay(name, marking);
        }
    }

    QStringList marks() const
    {
        QStringList names = QDir(program_->path()).entryList({u"*.marca"_s}, QDir::Files);
        return names.replaceInStrings(u".marca"_s, QString());
    }

    std::unique_ptr<support::Program> program_;
};

TARVELO_TEST_MAIN(TestCopias)
#include "tst_copias.moc"
