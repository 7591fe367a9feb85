// The tool that copies, at work on a program folder: its pictures, to a copy and back.
#include "tests/tools/copia.h"

using namespace Qt::StringLiterals;
using copia::contents;
using copia::Ended;
using copia::names;
using copia::put;
using copia::Workshop;

namespace
{

const QByteArray logo = "BM" + QByteArray(300'000, 'l');
const QByteArray splash = "BM" + QByteArray(200'000, 's');

} // namespace

class TestCopiaFiguras : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void aCopyHoldsThePicturesAlone();
    void theLastTenStay();
    void withoutPicturesThereIsNoCopy();
#ifdef Q_OS_UNIX // a shell takes the disk away
    void aFullTargetIsToldAndLosesNothing_data();
    void aFullTargetIsToldAndLosesNothing();
#endif
    void killsInTheMiddleLeaveNothingThatLooksLikeACopy();
    void aRestoringPutsThePicturesBackAndKeepsTheOthers();
    void aRestoringDoesNotWaitForTheProgram();
    void picturesThatAreAsTheCopyAreNotKept();
    void theCaseOfANameMakesNoSecondPicture();
    void theNamedCopyIsRestored();
    void aDamagedCopyRestoresNothing_data();
    void aDamagedCopyRestoresNothing();
    void noCopyIsTold();
    void aMissingFolderIsTold();
#ifdef Q_OS_UNIX // a shell takes the disk away
    void aFullDiskIsToldAndChangesNothing();
#endif

private:
    Ended copy() const
    {
        return workshop_->run({u"figuras"_s, workshop_->copies()});
    }
    Ended restore() const
    {
        return workshop_->run({u"restaura-figuras"_s, workshop_->copies()});
    }
    QStringList made() const
    {
        return workshop_->madeCopies(u"FIGURAS-*"_s);
    }
    QString picture(const QString &name) const
    {
        return workshop_->path(u"DADOS/"_s + name);
    }
    QStringList data() const
    {
        return names(workshop_->path(u"DADOS"_s));
    }
    QString kept() const
    {
        return picture(QDir(workshop_->path(u"DADOS"_s)).entryList({u"FIGURAS-antes-*"_s}, QDir::Dirs).value(0));
    }

    std::unique_ptr<Workshop> workshop_;
};

void TestCopiaFiguras::init()
{
    workshop_ = std::make_unique<Workshop>();
    put(picture(u"logo.bmp"_s), logo);
    put(picture(u"SPLASH.BMP"_s), splash);
    put(picture(u"leia-me.txt"_s), "do usuário");
}

void TestCopiaFiguras::aCopyHoldsThePicturesAlone()
{
    const Ended ended = copy();
    QCOMPARE(ended.code, 0);
    QCOMPARE(made().size(), 1);
    QCOMPARE(ended.output, u"A cópia das figuras foi feita e conferida (2 figuras):\n%1\n"_s.arg(made()[0]));
    QCOMPARE(names(made()[0]), (QStringList{u"CONFERE.TXT"_s, u"SPLASH.BMP"_s, u"logo.bmp"_s}));
    QCOMPARE(contents(made()[0] + u"/logo.bmp"_s), logo);
    QCOMPARE(contents(made()[0] + u"/SPLASH.BMP"_s), splash);
    QCOMPARE(names(workshop_->copies()).size(), 1);
}

void TestCopiaFiguras::theLastTenStay()
{
    put(workshop_->copies() + u"/FIGURAS-2020-01-01-080000"_s, "um arquivo do usuário");
    QVERIFY(QDir(workshop_->copies()).mkdir(u"FIGURAS-2020"_s));
    put(workshop_->copies() + u"/DADOS-2020-01-01-080000.MDB"_s, "um banco");
    QStringList all;
    for (int i = 0; i < 11; ++i) {
        QCOMPARE(copy().code, 0);
        const QStringList folders = QDir(workshop_->copies()).entryList({u"FIGURAS-*-*-*-*"_s}, QDir::Dirs, QDir::Name);
        all.append(folders.last());
        QCOMPARE(folders, all.mid(qMax(0, i - 9)));
    }
    for (const QString &other : {u"FIGURAS-2020-01-01-080000"_s, u"FIGURAS-2020"_s, u"DADOS-2020-01-01-080000.MDB"_s}) {
        QVERIFY2(QFileInfo::exists(workshop_->copies() + u'/' + other), qPrintable(other));
    }
}

void TestCopiaFiguras::withoutPicturesThereIsNoCopy()
{
    QVERIFY(QFile::remove(picture(u"logo.bmp"_s)) && QFile::remove(picture(u"SPLASH.BMP"_s)));
    const Ended ended = copy();
    QCOMPARE(ended.code, 1);
    QVERIFY(ended.errors.startsWith(u"Não há figuras em:\n"));
    QCOMPARE(names(workshop_->copies()), QStringList());
}

#ifdef Q_OS_UNIX

void TestCopiaFiguras::aFullTargetIsToldAndLosesNothing_data()
{
    QTest::addColumn<int>("blocks");
    QTest::newRow("no byte") << 0;
    QTest::newRow("the smaller picture") << 450;
}

void TestCopiaFiguras::aFullTargetIsToldAndLosesNothing()
{
    QFETCH(const int, blocks);
    QCOMPARE(copy().code, 0);
    const QStringList before = names(workshop_->copies());
    const Ended ended = workshop_->start(u"trap '' XFSZ; ulimit -f %1; exec \"$0\" \"$@\""_s.arg(blocks),
                                         {u"figuras"_s, workshop_->copies()});
    QCOMPARE(ended.code, 1);
    QVERIFY2(ended.errors.startsWith(u"Não foi possível gravar em:\n"), qPrintable(ended.errors));
    QCOMPARE(names(workshop_->copies()), before);
}

#endif

void TestCopiaFiguras::killsInTheMiddleLeaveNothingThatLooksLikeACopy()
{
    for (int i = 0; i < 40; ++i) {
        put(picture(u"%1.bmp"_s.arg(i)), logo);
    }
    const copia::Kills kills(*workshop_, {u"figuras"_s, workshop_->copies()}, 20);
    int leftovers = 0;
    for (int i = 0; i < kills.times(); ++i) {
        kills.kill(i);
        int beside = 0;
        for (const QString &name : names(workshop_->copies())) {
            if (name.contains(u".gravando-")) {
                ++beside;
            } else {
                QCOMPARE(names(workshop_->copies() + u'/' + name).size(), 43);
            }
        }
        QVERIFY2(beside <= 2, "what the one before left was not cleared");
        leftovers += beside;
    }
    QVERIFY2(leftovers > 0, "no kill met the writing");
    QCOMPARE(copy().code, 0);
    QVERIFY(names(workshop_->copies()).filter(u".gravando-"_s).isEmpty());
}

void TestCopiaFiguras::aRestoringPutsThePicturesBackAndKeepsTheOthers()
{
    QCOMPARE(copy().code, 0);
    put(picture(u"logo.bmp"_s), "BM de agora");
    put(picture(u"fachada.bmp"_s), "BM nova");
    QVERIFY(QFile::remove(picture(u"SPLASH.BMP"_s)));
    const Ended ended = restore();
    QVERIFY2(ended.code == 0, qPrintable(ended.errors));
    QVERIFY2(ended.output.contains(u"\n\nAs que havia antes foram guardadas em:\n%1\n"_s.arg(kept())),
             qPrintable(ended.output));
    QCOMPARE(contents(picture(u"logo.bmp"_s)), logo);
    QCOMPARE(contents(picture(u"SPLASH.BMP"_s)), splash);
    QCOMPARE(contents(picture(u"fachada.bmp"_s)), QByteArray("BM nova"));
    QCOMPARE(names(kept()), (QStringList{u"CONFERE.TXT"_s, u"logo.bmp"_s}));
    QCOMPARE(contents(kept() + u"/logo.bmp"_s), QByteArray("BM de agora"));
    QCOMPARE(workshop_->rows(), 3000);
}

void TestCopiaFiguras::aRestoringDoesNotWaitForTheProgram()
{
    QCOMPARE(copy().code, 0);
    put(picture(u"logo.bmp"_s), "BM de agora");
    const auto program = dao::DBEngine::OpenDatabase(workshop_->database());
    QFile lock(workshop_->path(u"tarvelo.lock"_s));
    QVERIFY(lock.open(QIODevice::WriteOnly));
    QCOMPARE(restore().code, 0);
    QCOMPARE(contents(picture(u"logo.bmp"_s)), logo);
}

void TestCopiaFiguras::picturesThatAreAsTheCopyAreNotKept()
{
    QCOMPARE(copy().code, 0);
    const QStringList before = data();
    const Ended ended = restore();
    QCOMPARE(ended.code, 0);
    QVERIFY(!ended.output.contains(u"guardadas"));
    QCOMPARE(data(), before);
}

void TestCopiaFiguras::theCaseOfANameMakesNoSecondPicture()
{
    QCOMPARE(copy().code, 0);
    QVERIFY(QFile::remove(picture(u"logo.bmp"_s)));
    put(picture(u"Logo.BMP"_s), "BM de agora");
    QCOMPARE(restore().code, 0);
    QCOMPARE(contents(picture(u"Logo.BMP"_s)), logo);
    QVERIFY(!QFile::exists(picture(u"logo.bmp"_s)));
    QCOMPARE(contents(kept() + u"/Logo.BMP"_s), QByteArray("BM de agora"));
}

void TestCopiaFiguras::theNamedCopyIsRestored()
{
    QCOMPARE(copy().code, 0);
    const QString first = made()[0];
    put(picture(u"logo.bmp"_s), "BM segunda");
    QCOMPARE(copy().code, 0);
    QCOMPARE(workshop_->run({u"restaura-figuras"_s, first}).code, 0);
    QCOMPARE(contents(picture(u"logo.bmp"_s)), logo);
    QCOMPARE(restore().code, 0);
    QCOMPARE(contents(picture(u"logo.bmp"_s)), QByteArray("BM segunda"));
}

void TestCopiaFiguras::aDamagedCopyRestoresNothing_data()
{
    QTest::addColumn<QString>("damage");
    QTest::newRow("a byte") << u"logo.bmp"_s;
    QTest::newRow("a picture that is missing") << u"-SPLASH.BMP"_s;
    QTest::newRow("a picture more") << u"outra.bmp"_s;
    QTest::newRow("no list") << u"-CONFERE.TXT"_s;
    QTest::newRow("another list") << u"CONFERE.TXT"_s;
}

void TestCopiaFiguras::aDamagedCopyRestoresNothing()
{
    QFETCH(const QString, damage);
    QCOMPARE(copy().code, 0);
    const QString copied = made()[0];
    if (damage.startsWith(u'-')) {
        QVERIFY(QFile::remove(copied + u'/' + damage.mid(1)));
    } else {
        put(copied + u'/' + damage, "BM" + QByteArray(299'999, 'l') + 'x');
    }
    put(picture(u"logo.bmp"_s), "BM de agora");
    const QStringList before = data();
    const Ended ended = restore();
    QCOMPARE(ended.code, 1);
    QCOMPARE(
        ended.errors,
        u"A cópia está danificada ou não pode ser lida:\n%1\n\nNenhuma figura foi mudada. Use outra cópia.\n"_s.arg(
            copied));
    QCOMPARE(contents(picture(u"logo.bmp"_s)), QByteArray("BM de agora"));
    QCOMPARE(data(), before);
}

void TestCopiaFiguras::aMissingFolderIsTold()
{
    QCOMPARE(copy().code, 0);
    const QString folder = workshop_->path(u"DADOS"_s);
    QVERIFY(QDir(folder).removeRecursively());
    const Ended ended = restore();
    QCOMPARE(ended.code, 1);
    QCOMPARE(ended.errors, u"O disco ou a pasta não está no lugar:\n%1\n\nNenhuma figura foi mudada.\n"_s.arg(folder));
    QVERIFY(!QFileInfo::exists(folder));
}

void TestCopiaFiguras::noCopyIsTold()
{
    const Ended ended = restore();
    QCOMPARE(ended.code, 1);
    QCOMPARE(ended.errors,
             u"Não há nenhuma cópia das figuras em:\n%1\n\nNada foi mudado.\n"_s.arg(workshop_->copies()));
}

#ifdef Q_OS_UNIX

void TestCopiaFiguras::aFullDiskIsToldAndChangesNothing()
{
    QCOMPARE(copy().code, 0);
    put(picture(u"logo.bmp"_s), "BM" + QByteArray(299'000, 'n'));
    const QStringList before = data();
    const Ended ended = workshop_->start(u"trap '' XFSZ; ulimit -f 100; exec \"$0\" \"$@\""_s,
                                         {u"restaura-figuras"_s, workshop_->copies()});
    QCOMPARE(ended.code, 1);
    QVERIFY2(ended.errors.endsWith(u"\n\nNenhuma figura foi mudada.\n"), qPrintable(ended.errors));
    QCOMPARE(contents(picture(u"logo.bmp"_s)).size(), 299'002);
    QCOMPARE(data(), before);
}

#endif

QTEST_GUILESS_MAIN(TestCopiaFiguras)
#include "tst_copia_figuras.moc"
