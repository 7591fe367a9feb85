#include "core/modulo.h"
#include "platform/ui/form.h"
#include "platform/ui/wait.h"
#include "shell/instancia.h"
#include "shell/shell.h"
#include "support/boxes.h"
#include "support/modal.h"
#include "support/program.h"

#include <QDateTime>
#include <QDeadlineTimer>
#include <QFileInfo>
#include <QLockFile>
#include <QProcess>
#include <QTest>

using namespace Qt::StringLiterals;

namespace
{

constexpr int patience = 60000;

/// The program's name, as this system has it.
QString programName()
{
    return QFileInfo(QStringLiteral(TARVELO_PROGRAM)).fileName();
}

/// The real program, started in a folder of its own.
class Process
{
public:
    explicit Process(const QString &folder)
    {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
        process_.setProcessEnvironment(environment);
        process_.start(folder + u'/' + programName(), QStringList());
    }

    ~Process() { kill(); }

    void kill()
    {
        process_.kill();
        process_.waitForFinished(patience);
    }

#ifdef Q_OS_LINUX
    /// Kills it without asking for its end: no event runs before the test looks.
    void signalDeath() const
    {
        QProcess::execute(u"/bin/sh"_s, {u"-c"_s, u"kill -9 %1"_s.arg(id())});
    }
#endif

    qint64 id() const
    {
        return process_.processId();
    }
    bool running() const
    {
        return process_.state() == QProcess::Running;
    }

private:
    QProcess process_;
};

/// The process that holds the folder; 0 for none.
qint64 owner(const QString &folder)
{
    const QLockFile lock(folder + u"/tarvelo.lock"_s);
    qint64 id = 0;
    QString host;
    QString program;
    return lock.getLockInfo(&id, &host, &program) ? id : 0;
}

#ifdef Q_OS_LINUX

/// Waits without running events, which would take the dead process away.
bool becomesDefunct(qint64 id)
{
    QDeadlineTimer deadline(patience);
    while (!deadline.hasExpired()) {
        QFile file(u"/proc/%1/stat"_s.arg(id));
        if (file.open(QIODevice::ReadOnly) && file.readAll().contains(") Z ")) {
            return true;
        }
    }
    return false;
}

#endif

} // namespace

/// The program itself, in a scratch program folder, beside this process.
class TestInstancia : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { shell::registerForms(); }

    void init()
    {
        ui::Application::resetEnd();
        ui::setWaitFactor(0);
        folder_ = std::make_unique<QTemporaryDir>();
        QVERIFY(QFile::copy(QStringLiteral(TARVELO_PROGRAM), program()));
        QVERIFY(QDir(folder_->path()).mkdir(u"DADOS"_s));
        core::App::setPath(folder_->path());
    }

    void cleanup()
    {
        shell::desmonta();
        folder_.reset();
    }

    void secondProcessIsRefused()
    {
        const Process first(folder_->path());
        QTRY_COMPARE_WITH_TIMEOUT(owner(folder_->path()), first.id(), patience);

        support::Boxes boxes;
        boxes.title(u"Tarvelo"_s).exclamation(u"Este programa já está aberto.\nEsta instância será fechada..."_s);
        QVERIFY_EXCEPTION_THROWN(ui::Forms::instance().Load(u"frmSplash"_s), ui::ProgramEnded);
        boxes.finish();

        QVERIFY(first.running());
        QCOMPARE(owner(folder_->path()), first.id());
    }

    void programIsRefusedBesideThisProcess()
    {
        QVERIFY(!openHere());
        const qint64 here = QCoreApplication::applicationPid();
        QCOMPARE(owner(folder_->path()), here);
        QVERIFY(QFile::remove(folder_->filePath(u"config.ini"_s)));

        Process second(folder_->path());
        QVERIFY(!QTest::qWaitFor([&] { return QFile::exists(folder_->filePath(u"config.ini"_s)); }, 4000));
        QVERIFY(second.running()); // its box waits for an answer
        QCOMPARE(owner(folder_->path()), here);
    }

    void killedProcessDoesNotCount()
    {
        {
            Process first(folder_->path());
            QTRY_COMPARE_WITH_TIMEOUT(owner(folder_->path()), first.id(), patience);
            first.kill();
        }
        QVERIFY(QFile::exists(folder_->filePath(u"tarvelo.lock"_s))); // left behind

        const Process second(folder_->path());
        QTRY_COMPARE_WITH_TIMEOUT(owner(folder_->path()), second.id(), patience);
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(folder_->filePath(u"DADOS/DADOS.MDB"_s)), patience);
    }

#ifdef Q_OS_LINUX
    void killedProcessWhoseParentHasNotNoticedDoesNotCount()
    {
        const Process first(folder_->path());
        QTRY_COMPARE_WITH_TIMEOUT(owner(folder_->path()), first.id(), patience);
        first.signalDeath();
        QVERIFY(becomesDefunct(first.id()));
        // Its other threads may end behind the first one: the lock goes with the last.
        QVERIFY(QTest::qWaitFor([] { return !shell::OutraInstancia(); }, patience));
        QCOMPARE(owner(folder_->path()), QCoreApplication::applicationPid());
    }
#endif

    void leftoversDoNotCount_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty: killed before it was written") << QByteArray();
        QTest::newRow("cut off") << QByteArray("12");
        QTest::newRow("damaged") << QByteArray(5000, '\xFE');
        QTest::newRow("of a process that lives and is another program") << QByteArray("1\ntarvelo\nRECEPCAO\n");
        QTest::newRow("of this machine's process 1")
            << QByteArray("1\ntarvelo\n") + QSysInfo::machineHostName().toUtf8() + '\n';
    }

    void leftoversDoNotCount()
    {
        QFETCH(const QByteArray, bytes);
        QFile lock(folder_->filePath(u"tarvelo.lock"_s));
        QVERIFY(lock.open(QIODevice::WriteOnly));
        QCOMPARE(lock.write(bytes), bytes.size());
        QVERIFY(lock.flush());
        QVERIFY(lock.setFileTime(QDateTime::currentDateTime().addYears(-1), QFileDevice::FileModificationTime));
        lock.close();

        QVERIFY(!openHere());
        QCOMPARE(owner(folder_->path()), QCoreApplication::applicationPid());
    }

    void folderInTheLocksPlaceRefusesNobody()
    {
        QVERIFY(QDir(folder_->path()).mkdir(u"tarvelo.lock"_s));
        QVERIFY(!openHere());
    }

    void anotherFolderHasItsOwnProcess()
    {
        const QTemporaryDir other;
        QVERIFY(QFile::copy(program(), other.filePath(programName())));
        const Process first(folder_->path());
        const Process second(other.path());
        QTRY_COMPARE_WITH_TIMEOUT(owner(folder_->path()), first.id(), patience);
        QTRY_COMPARE_WITH_TIMEOUT(owner(other.path()), second.id(), patience);
    }

private:
    QString program() const
    {
        return folder_->filePath(programName());
    }

    /// Starts the program's windows in this process as far as the login; true where it was refused.
    static bool openHere()
    {
        support::whenShown(u"frmSenha"_s, [] { ui::Forms::instance().Unload(u"frmSenha"_s); });
        try {
            ui::Forms::instance().Load(u"frmSplash"_s);
        } catch (const ui::ProgramEnded &) {
            return true;
        }
        support::failNotShown();
        return false;
    }

    std::unique_ptr<QTemporaryDir> folder_;
};

TARVELO_TEST_MAIN(TestInstancia)
#include "tst_instancia.moc"
