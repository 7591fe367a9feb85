#include "platform/ini/profile.h"
#include "platform/runtime/text.h"
#include "support/tsv.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

using namespace Qt::StringLiterals;
using ini::readProfile;
using ini::readProfileText;
using ini::writeProfile;

namespace
{

// "(NULL)" in the vectors is no key or no value at all.
std::optional<QString> given(const QString &cell)
{
    return cell == u"(NULL)" ? std::nullopt : std::optional(cell);
}

} // namespace

class tst_profile : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void vectors_data() { support::addTsvRows(u"ini.tsv"_s); }
    void vectors();
    void reads_data();
    void reads();
    void cutsToTheBuffer();
    void writes_data();
    void writes();
    void valueWithLineBreakReadsBackItsFirstLine();
    void lettersOfTheCodePage();
    void otherBytesStay();
    void readOnlyFileIsLeftAlone();
    void severalKeysAreWrittenInOneGo();
    void folderThatIsNotThere();
    void folderInPlaceOfTheFile();
#ifdef Q_OS_UNIX
    void pipeInPlaceOfTheFile();
#endif
    void nothingButTheFileIsLeftBehind();

private:
    QString path() const
    {
        return folder_->filePath(u"config.ini"_s);
    }
    void put(const QByteArray &contents) const;
    QByteArray stored() const;
    void checkRead(const support::TsvRow &row) const;
    void checkWrite(const support::TsvRow &row) const;

    std::unique_ptr<QTemporaryDir> folder_;
};

void tst_profile::init()
{
    folder_ = std::make_unique<QTemporaryDir>();
    QVERIFY(folder_->isValid());
}

void tst_profile::cleanup()
{
    folder_.reset();
}

void tst_profile::put(const QByteArray &contents) const
{
    QFile file(path());
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(contents), contents.size());
}

QByteArray tst_profile::stored() const
{
    QFile file(path());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
}

void tst_profile::checkRead(const support::TsvRow &row) const
{
    const auto value = readProfile(row.cell(u"section"_s), row.cell(u"key"_s), row.cell(u"default_or_value"_s),
                                   row.cell(u"size"_s).toInt(), path());
    QCOMPARE(value, row.cell(u"expected_text_or_file"_s));
    QCOMPARE(QString::number(value.size()), row.cell(u"return"_s));
}

void tst_profile::checkWrite(const support::TsvRow &row) const
{
    QVERIFY(writeProfile(row.cell(u"section"_s), given(row.cell(u"key"_s)), given(row.cell(u"default_or_value"_s)),
                         path()));
    QCOMPARE(runtime::fromWestern(stored()), row.cell(u"expected_text_or_file"_s));
}

void tst_profile::vectors()
{
    QFETCH(support::TsvRow, row);
    const auto before = row.cell(u"file_before"_s);
    if (before != u"(no file)") {
        put(runtime::toWestern(before));
    }
    const auto op = row.cell(u"op"_s);
    QVERIFY(op == u"Get" || op == u"Write");
    op == u"Get" ? checkRead(row) : checkWrite(row);
}

void tst_profile::reads_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("expected");

    QTest::newRow("empty file") << QByteArray() << u"padrao"_s;
    QTest::newRow("empty value") << QByteArray("[s]\r\nk=\r\n") << u""_s;
    QTest::newRow("blanks around") << QByteArray("[s]\r\n\t k \t = \t v w \t\r\n") << u"v w"_s;
    QTest::newRow("single quotation marks") << QByteArray("[s]\r\nk='v'\r\n") << u"v"_s;
    QTest::newRow("unequal quotation marks") << QByteArray("[s]\r\nk='v\"\r\n") << u"'v\""_s;
    QTest::newRow("one quotation mark alone") << QByteArray("[s]\r\nk=\"\r\n") << u"\""_s;
    QTest::newRow("equal sign in the value") << QByteArray("[s]\r\nk=a=b\r\n") << u"a=b"_s;
    QTest::newRow("semicolon in the value") << QByteArray("[s]\r\nk=a ; b\r\n") << u"a ; b"_s;
    QTest::newRow("no line end") << QByteArray("[s]\r\nk=v") << u"v"_s;
    QTest::newRow("key before any section") << QByteArray("k=v\r\n[s]\r\n") << u"padrao"_s;
    QTest::newRow("key without value") << QByteArray("[s]\r\nk\r\n") << u"padrao"_s;
    QTest::newRow("key of another section") << QByteArray("[s]\r\n[t]\r\nk=v\r\n") << u"padrao"_s;
    QTest::newRow("section twice") << QByteArray("[s]\r\na=1\r\n[S]\r\nk=v\r\n") << u"padrao"_s;
    QTest::newRow("key twice") << QByteArray("[s]\r\nk=1\r\nK=2\r\n") << u"1"_s;
    QTest::newRow("section without its end") << QByteArray("[s\r\nk=v\r\n") << u"v"_s;
    QTest::newRow("text behind the section") << QByteArray("[s] ; nota\r\nk=v\r\n") << u"v"_s;
    QTest::newRow("comment on a section") << QByteArray(";[s]\r\nk=v\r\n") << u"padrao"_s;
    QTest::newRow("mark of UTF-8") << QByteArray("\xEF\xBB\xBF[s]\r\nk=v\r\n") << u"v"_s;
    QTest::newRow("mark of UTF-8 alone") << QByteArray("\xEF\xBB\xBF") << u"padrao"_s;
    QTest::newRow("blank lines") << QByteArray("\r\n\r\n[s]\r\n\r\nk=v\r\n") << u"v"_s;
}

void tst_profile::reads()
{
    QFETCH(QByteArray, file);
    QTEST(readProfileText(u"s"_s, u"k"_s, u"padrao"_s, 255, file), "expected");
}

void tst_profile::cutsToTheBuffer()
{
    const QByteArray file = "[s]\r\nk=\"" + QByteArray(300, 'x') + "\"\r\n";
    QCOMPARE(readProfileText(u"s"_s, u"k"_s, {}, 255, file), QString(254, u'x'));
    QCOMPARE(readProfileText(u"s"_s, u"k"_s, {}, 301, file), QString(300, u'x'));
    QCOMPARE(readProfileText(u"s"_s, u"k"_s, {}, 0, file), QString());
    QCOMPARE(readProfileText(u"s"_s, u"x"_s, u"padrao"_s, 4, file), u"pad"_s);
}

void tst_profile::writes_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");

    QTest::newRow("empty file") << QByteArray() << QByteArray("[s]\r\nk=v\r\n");
    QTest::newRow("new section") << QByteArray("[t]\r\nk=1\r\n") << QByteArray("[t]\r\nk=1\r\n[s]\r\nk=v\r\n");
    QTest::newRow("last line unfinished") << QByteArray("[t]\r\nk=1") << QByteArray("[t]\r\nk=1\r\n[s]\r\nk=v\r\n");
    QTest::newRow("header unfinished") << QByteArray("[s]") << QByteArray("[s]\r\nk=v\r\n");
    QTest::newRow("new key before the blank lines")
        << QByteArray("[s]\r\na=1\r\n\r\n[t]\r\n") << QByteArray("[s]\r\na=1\r\nk=v\r\n\r\n[t]\r\n");
    QTest::newRow("new key behind a comment")
        << QByteArray("[s]\r\na=1\r\n;nota\r\n[t]\r\n") << QByteArray("[s]\r\na=1\r\n;nota\r\nk=v\r\n[t]\r\n");
    QTest::newRow("first of two keys") << QByteArray("[s]\r\nk=1\r\nk=2\r\n") << QByteArray("[s]\r\nk=v\r\nk=2\r\n");
    QTest::newRow("first of two sections")
        << QByteArray("[s]\r\n[s]\r\nk=2\r\n") << QByteArray("[s]\r\nk=v\r\n[s]\r\nk=2\r\n");
    QTest::newRow("spelling stays") << QByteArray("[S]\r\n  K  = 1\r\n") << QByteArray("[S]\r\nK=v\r\n");
    QTest::newRow("comment with the key's name")
        << QByteArray("[s]\r\n;k=1\r\n") << QByteArray("[s]\r\n;k=1\r\nk=v\r\n");
    QTest::newRow("mark of UTF-8 stays") << QByteArray("\xEF\xBB\xBF[s]\r\nk=1\r\n")
                                         << QByteArray("\xEF\xBB\xBF[s]\r\nk=v\r\n");
    QTest::newRow("other line ends stay") << QByteArray("[s]\na=1\nk=1\nb=2\n") << QByteArray("[s]\na=1\nk=v\r\nb=2\n");
}

void tst_profile::writes()
{
    QFETCH(QByteArray, before);
    put(before);
    QVERIFY(writeProfile(u"s"_s, u"k"_s, u"v"_s, path()));
    QTEST(stored(), "after");
}

void tst_profile::valueWithLineBreakReadsBackItsFirstLine()
{
    QVERIFY(writeProfile(u"s"_s, u"k"_s, u"linha1\r\nx=linha2\r\n[t]"_s, path()));
    QCOMPARE(stored(), QByteArray("[s]\r\nk=linha1\r\nx=linha2\r\n[t]\r\n"));
    QCOMPARE(readProfile(u"s"_s, u"k"_s, {}, 255, path()), u"linha1"_s);
    QCOMPARE(readProfile(u"s"_s, u"x"_s, {}, 255, path()), u"linha2"_s);
    QVERIFY(writeProfile(u"s"_s, u"y"_s, u"depois"_s, path()));
    QCOMPARE(stored(), QByteArray("[s]\r\nk=linha1\r\nx=linha2\r\ny=depois\r\n[t]\r\n"));
}

void tst_profile::lettersOfTheCodePage()
{
    QVERIFY(writeProfile(u"Seção"_s, u"Razão"_s, u"Oficina São João – €"_s, path()));
    QCOMPARE(stored(), QByteArray("[Se\xE7\xE3o]\r\nRaz\xE3o=Oficina S\xE3o Jo\xE3o \x96 \x80\r\n"));
    QCOMPARE(readProfile(u"SEÇÃO"_s, u"RAZÃO"_s, {}, 255, path()), u"Oficina São João – €"_s);
}

void tst_profile::otherBytesStay()
{
    QByteArray junk(";");
    for (int byte = 0; byte < 256; ++byte) {
        if (byte != '\r' && byte != '\n') {
            junk.append(static_cast<char>(byte));
        }
    }
    put("[t]\n" + junk + "\n[s]\rk=1\r\n" + junk);
    QVERIFY(writeProfile(u"s"_s, u"k"_s, u"2"_s, path()));
    QCOMPARE(stored(), "[t]\n" + junk + "\n[s]\rk=2\r\n" + junk);
}

void tst_profile::readOnlyFileIsLeftAlone()
{
    put("[s]\r\nk=1\r\n");
    QVERIFY(QFile::setPermissions(path(), QFile::ReadOwner));
    QVERIFY(!writeProfile(u"s"_s, u"k"_s, u"2"_s, path()));
    QCOMPARE(stored(), QByteArray("[s]\r\nk=1\r\n"));
}

void tst_profile::severalKeysAreWrittenInOneGo()
{
    QVERIFY(writeProfile(u"s"_s, u"b"_s, u"1"_s, path()));
    QVERIFY(ini::writeProfileKeys(u"S"_s, {{u"a"_s, u"2"_s}, {u"B"_s, u"3"_s}, {u"a"_s, u"4"_s}}, path()));
    QCOMPARE(stored(), QByteArray("[s]\r\nb=3\r\na=4\r\n"));
    QVERIFY(ini::writeProfileKeys(u"t"_s, {}, path()));
    QCOMPARE(stored(), QByteArray("[s]\r\nb=3\r\na=4\r\n"));
    QVERIFY(QFile::setPermissions(path(), QFile::ReadOwner));
    QVERIFY(!ini::writeProfileKeys(u"s"_s, {{u"a"_s, u"5"_s}}, path()));
    QCOMPARE(stored(), QByteArray("[s]\r\nb=3\r\na=4\r\n"));
}

void tst_profile::folderThatIsNotThere()
{
    const auto path = folder_->filePath(u"nenhuma/config.ini"_s);
    QVERIFY(!writeProfile(u"s"_s, u"k"_s, u"2"_s, path));
    QCOMPARE(readProfile(u"s"_s, u"k"_s, u"padrao"_s, 255, path), u"padrao"_s);
}

void tst_profile::folderInPlaceOfTheFile()
{
    QVERIFY(!writeProfile(u"s"_s, u"k"_s, u"2"_s, folder_->path()));
    QVERIFY(QDir(folder_->path()).exists());
}

#ifdef Q_OS_UNIX

/// Nobody is at its other end: to open it would be to wait for ever.
void tst_profile::pipeInPlaceOfTheFile()
{
    QCOMPARE(::mkfifo(QFile::encodeName(path()).constData(), 0600), 0);
    QCOMPARE(readProfile(u"s"_s, u"k"_s, u"padrao"_s, 255, path()), u"padrao"_s);
    QVERIFY(!writeProfile(u"s"_s, u"k"_s, u"2"_s, path()));
    QVERIFY(QFileInfo::exists(path()) && !QFileInfo(path()).isFile());
}

#endif

void tst_profile::nothingButTheFileIsLeftBehind()
{
    QVERIFY(writeProfile(u"s"_s, u"k"_s, u"1"_s, path()));
    QVERIFY(writeProfile(u"s"_s, u"k"_s, u"2"_s, path()));
    QCOMPARE(QDir(folder_->path()).entryList(QDir::Files | QDir::Hidden), QStringList{u"config.ini"_s});
}

QTEST_APPLESS_MAIN(tst_profile)

#include "tst_profile.moc"
