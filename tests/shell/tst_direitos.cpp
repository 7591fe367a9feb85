#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/dao/unit.h"
#include "platform/files/files.h"
#include "platform/printer/printer.h"
#include "support/program.h"

#include <QDirIterator>
#include <QProcess>
#include <QTest>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace
{

constexpr int patience = 60000;
constexpr mode_t allRights = 07777;

mode_t rightsOf(const QString &path)
{
    struct stat what {
    };
    return ::stat(QFile::encodeName(path).constData(), &what) == 0 ? what.st_mode & allRights : 0;
}

/// Everything in the folder with the rights that it should not have.
QStringList wrongRights(const QString &folder)
{
    QStringList wrong;
    QDirIterator each(folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                      QDirIterator::Subdirectories);
    while (each.hasNext()) {
        const QString path = each.next();
        const mode_t wanted = each.fileInfo().isDir() ? 0770 : 0660;
        if (rightsOf(path) != wanted) {
            wrong << u"%1 has 0%2"_s.arg(QDir(folder).relativeFilePath(path), QString::number(rightsOf(path), 8));
        }
    }
    return wrong;
}

void userRows()
{
    QTest::addColumn<int>("users");
    QTest::newRow("open") << 0;
    QTest::newRow("usual") << 022;
    QTest::newRow("closed") << 077;
}

} // namespace

/// What the program creates, under three settings of the user's own.
class TestDireitos : public QObject
{
    Q_OBJECT

private slots:
    void filesOfTheProgramAreForUserAndGroup_data() { userRows(); }
    void filesOfTheProgramAreForUserAndGroup();
    void startCreatesForUserAndGroup_data() { userRows(); }
    void startCreatesForUserAndGroup();
};

/// Database, its journal in the middle of a write, settings, a printed page.
void TestDireitos::filesOfTheProgramAreForUserAndGroup()
{
    QFETCH(const int, users);
    const mode_t before = ::umask(mode_t(users));
    files::keepToGroup();
    QStringList wrong;
    QStringList made;
    const QDir::SortFlags byName = QDir::Name | QDir::IgnoreCase;
    {
        support::Program program;
        printer::printer().Print(u"ORDEM DE SERVIÇO"_s);
        printer::printer().EndDoc();
        const dao::Unit unit;
        program.customer(u"MARIA"_s);
        made = QDir(program.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot, byName) +
               QDir(program.path(u"DADOS"_s)).entryList(QDir::Files, byName) +
               QDir(program.path(u"impressos"_s)).entryList(QDir::Files, byName);
        wrong = wrongRights(program.path());
    }
    ::umask(before);
    QCOMPARE(made, (QStringList{u"config.ini"_s, u"DADOS"_s, u"impressos"_s, u"DADOS.MDB"_s, u"DADOS.MDB-journal"_s,
                                u"0001.pdf"_s}));
    QCOMPARE(wrong, QStringList());
}

/// The program itself, as a user with such a setting starts it.
void TestDireitos::startCreatesForUserAndGroup()
{
    QFETCH(const int, users);
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir(u"DADOS"_s));
    QCOMPARE(::chmod(QFile::encodeName(folder.filePath(u"DADOS"_s)).constData(), 0770), 0);
    const QString program = folder.filePath(u"tarvelo"_s);
    QVERIFY(QFile::copy(QStringLiteral(TARVELO_PROGRAM), program));
    QProcess process;
    process.start(u"/bin/sh"_s, {u"-c"_s, u"umask %1; exec \"$0\""_s.arg(users, 3, 8, QChar(u'0')), program});
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(folder.filePath(u"DADOS/DADOS.MDB"_s)), patience);
    process.kill();
    QVERIFY(process.waitForFinished(patience));
    QVERIFY(QFile::exists(folder.filePath(u"config.ini"_s)));
    QVERIFY(QFile::exists(folder.filePath(u"tarvelo.lock"_s)));
    QVERIFY(QFile::remove(program));
    QCOMPARE(wrongRights(folder.path()), QStringList());
}

TARVELO_TEST_MAIN(TestDireitos)
#include "tst_direitos.moc"
