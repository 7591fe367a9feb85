// What becomes of each key when the program is killed while it writes settings, or the disk is full.
#include "core/chavesjuntas.h"
#include "core/config.h"
#include "core/embaralha.h"
#include "core/modulo.h"

#include <QDir>
#include <QFile>
#include <QMap>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include <chrono>
#include <memory>
#include <thread>

using namespace Qt::StringLiterals;

namespace
{

using Keys = QMap<QString, QString>;

const QString alone = u"Config/Telefone"_s;
const QStringList together{u"Orcamento/P4"_s, u"Orcamento/P5"_s, u"Orcamento/Texto1"_s};

QString writerPath()
{
    return QCoreApplication::applicationDirPath() + u"/tst_core_config_writer"_s;
}

/// The names that stand in the file, section by section.
QStringList namesIn(const QString &path)
{
    QFile file(path);
    QStringList names;
    if (!file.open(QIODevice::ReadOnly)) {
        return names;
    }
    QString section;
    for (const QByteArray &line : file.readAll().split('\n')) {
        const QString text = QString::fromLatin1(line.trimmed());
        if (text.startsWith(u'[')) {
            section = text.mid(1, text.size() - 2);
        } else if (text.contains(u'=')) {
            names << section + u'/' + text.section(u'=', 0, 0);
        }
    }
    return names;
}

/// Each key as the program reads it.
Keys read(const QStringList &names)
{
    Keys keys;
    for (const QString &name : names) {
        const QString key = name.section(u'/', 1);
        keys.insert(name, core::LeINI(name.section(u'/', 0, 0), key, !key.startsWith(u"File"_s)));
    }
    return keys;
}

} // namespace

class TstConfigGravacao : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { folder_.reset(); }

    void keysThatBelongTogetherAreWrittenScrambledInOneGo();
    void keysThatBelongTogetherMakeTheirSection();
    void aKillNeverLosesAKey();
#ifdef Q_OS_UNIX // a shell takes the disk away
    void aFullDiskNeverLosesAKey_data();
    void aFullDiskNeverLosesAKey();
#endif

private:
    QByteArray stored() const;

    std::unique_ptr<QTemporaryDir> folder_;
};

void TstConfigGravacao::init()
{
    folder_ = std::make_unique<QTemporaryDir>();
    QVERIFY(folder_->isValid());
    core::App::setPath(folder_->path());
    core::ArquivoINI = folder_->path() + u"\\config.ini"_s;
}

QByteArray TstConfigGravacao::stored() const
{
    QFile file(folder_->filePath(u"config.ini"_s));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
}

void TstConfigGravacao::keysThatBelongTogetherAreWrittenScrambledInOneGo()
{
    core::CarregaConfig();
    Keys expected = read(namesIn(folder_->filePath(u"config.ini"_s)));
    core::GravaJuntas(u"Orcamento"_s, {{u"P4"_s, u"1"_s}, {u"P5"_s, u"1"_s}, {u"Texto1"_s, u"À VISTA"_s}});
    expected[u"Orcamento/P4"_s] = expected[u"Orcamento/P5"_s] = u"1"_s;
    expected[u"Orcamento/Texto1"_s] = u"À VISTA"_s;
    QCOMPARE(read(namesIn(folder_->filePath(u"config.ini"_s))), expected);
    QCOMPARE(core::LeINI(u"Orcamento"_s, u"P4"_s, false), core::Embaralha(u"1"_s));
}

void TstConfigGravacao::keysThatBelongTogetherMakeTheirSection()
{
    core::GravaJuntas(u"Orcamento"_s, {{u"P4"_s, u"1"_s}, {u"P5"_s, u"0"_s}});
    QCOMPARE(stored(), QByteArray("[Orcamento]\r\nP4=NA==\r\nP5=Mw==\r\n"));
}

/// Those that are not being written stand as before; those that are hold a number that was told, or the next.
void TstConfigGravacao::aKillNeverLosesAKey()
{
    constexpr int kills = 60;
    core::CarregaConfig();
    const QStringList names = namesIn(folder_->filePath(u"config.ini"_s));
    QCOMPARE(names.size(), 31);
    const Keys before = read(names);
    for (int kill = 0; kill < kills; ++kill) {
        QProcess process;
        process.start(writerPath(), {core::ArquivoINI, u"forever"_s});
        QVERIFY(process.waitForReadyRead(30'000));
        std::this_thread::sleep_for(std::chrono::microseconds(QRandomGenerator::global()->bounded(20'000)));
        process.kill();
        QVERIFY(process.waitForFinished(30'000));
        const int told = process.readAllStandardOutput().trimmed().split('\n').last().toInt();

        QCOMPARE(namesIn(folder_->filePath(u"config.ini"_s)), names);
        const Keys after = read(names);
        for (const QString &name : names) {
            if (name != alone && !together.contains(name)) {
                QCOMPARE(after.value(name), before.value(name));
            }
        }
        const int number = after.value(alone).toInt();
        QVERIFY2(number == told || number == told + 1, qPrintable(u"%1 after %2"_s.arg(number).arg(told)));
        const int group = after.value(together.first()).toInt();
        QVERIFY2(group == told || group == told + 1, qPrintable(u"%1 after %2"_s.arg(group).arg(told)));
        for (const QString &name : together) {
            QCOMPARE(after.value(name).toInt(), group);
        }
    }
    core::CarregaConfig(); // the next start clears what the last kill left
    QCOMPARE(QDir(folder_->path()).entryList(QDir::Files | QDir::Hidden), QStringList{u"config.ini"_s});
}

#ifdef Q_OS_UNIX

void TstConfigGravacao::aFullDiskNeverLosesAKey_data()
{
    QTest::addColumn<int>("blocks");
    QTest::newRow("no byte") << 0;
    QTest::newRow("the first block") << 1;
}

/// A limit on the size of files fails each write where a full disk does.
void TstConfigGravacao::aFullDiskNeverLosesAKey()
{
    QFETCH(const int, blocks);
    core::CarregaConfig();
    const QByteArray before = stored();
    QVERIFY(before.size() > 512);
    const QString run = u"exec \"$0\" \"$1\" once"_s;
    const auto write = [&](const QString &command) {
        QProcess process;
        process.start(u"/bin/sh"_s, {u"-c"_s, command, writerPath(), core::ArquivoINI});
        return process.waitForFinished(60'000) && process.exitCode() == 0;
    };
    QVERIFY(write(u"ulimit -f %1 && "_s.arg(blocks) + run));
    QCOMPARE(stored(), before);
    QCOMPARE(QDir(folder_->path()).entryList(QDir::Files | QDir::Hidden), QStringList{u"config.ini"_s});

    QVERIFY(write(run)); // with the room back the same writes arrive
    QCOMPARE(core::Config(u"Telefone"_s), u"1"_s);
    QCOMPARE(core::ConfigOrcamento(u"P5"_s), u"1"_s);
    QCOMPARE(core::LeINI(u"Config"_s, u"FileDB"_s, false), u"C:\\DADOS.MDB"_s);
}

#endif

QTEST_GUILESS_MAIN(TstConfigGravacao)
#include "tst_config_gravacao.moc"
