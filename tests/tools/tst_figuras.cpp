#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

/// The pictures that the build draws, by the tool that draws them.
class TestFiguras : public QObject
{
    Q_OBJECT

private slots:
    void anIconHasItsSizesFromTheSmallestUp();
    void anIconShowsWhatThePictureShows();
    void onlyTheLargestSizeIsCompressed();
    void sizesThatNoIconHasAreRefused_data();
    void sizesThatNoIconHasAreRefused();

private:
    QString path(const QString &name) const { return folder_.filePath(name); }
    int draw(const QString &name, const QString &size) const
    {
        QProcess tool;
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
        tool.setProcessEnvironment(environment);
        tool.start(QString::fromUtf8(FERRAMENTA), {QString::fromUtf8(FIGURA), path(name), size});
        return tool.waitForFinished() && tool.exitStatus() == QProcess::NormalExit ? tool.exitCode() : -1;
    }
    QList<QImage> icons(const QString &name) const
    {
        QImageReader reader(path(name), "ico");
        QList<QImage> images;
        for (int i = 0; i < reader.imageCount() && reader.jumpToImage(i); ++i) {
            images.append(reader.read());
        }
        return images;
    }

    QTemporaryDir folder_;
};

void TestFiguras::anIconHasItsSizesFromTheSmallestUp()
{
    QCOMPARE(draw(u"a.ico"_s, u"16,20,40,256"_s), 0);
    const auto images = icons(u"a.ico"_s);
    QCOMPARE(images.size(), 4);
    QCOMPARE(images[0].size(), QSize(16, 16));
    QCOMPARE(images[1].size(), QSize(20, 20));
    QCOMPARE(images[2].size(), QSize(40, 40));
    QCOMPARE(images[3].size(), QSize(256, 256));
}

void TestFiguras::anIconShowsWhatThePictureShows()
{
    QCOMPARE(draw(u"b.ico"_s, u"20,48,256"_s), 0);
    for (const QImage &icon : icons(u"b.ico"_s)) {
        const QString picture = u"%1.png"_s.arg(icon.width());
        QCOMPARE(draw(picture, u"%1x%1"_s.arg(icon.width())), 0);
        const QImage shown = QImage(path(picture)).convertToFormat(QImage::Format_ARGB32);
        QCOMPARE(qAlpha(shown.pixel(0, 0)), 0); // so that the corner tells what is on nothing
        QCOMPARE(icon.convertToFormat(QImage::Format_ARGB32), shown);
    }
}

void TestFiguras::onlyTheLargestSizeIsCompressed()
{
    QCOMPARE(draw(u"c.ico"_s, u"64,256"_s), 0);
    QFile file(path(u"c.ico"_s));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray content = file.readAll();
    constexpr qsizetype head = 6 + 2 * 16;
    constexpr qsizetype bitmap = 40 + 64 * 64 * 4 + 64 * 8;
    QCOMPARE(content.mid(head, 4), QByteArray::fromHex("28000000"));
    QCOMPARE(content.mid(head + bitmap, 4), QByteArray("\x89PNG"));
    // What knows no transparency is told of it by a line of bits: the corner of the picture is seen through.
    QVERIFY((content[head + bitmap - 8] & 0x80) != 0);
}

void TestFiguras::sizesThatNoIconHasAreRefused_data()
{
    QTest::addColumn<QString>("size");
    QTest::newRow("none") << u"0"_s;
    QTest::newRow("too large") << u"16,257"_s;
    QTest::newRow("no number") << u"16,x"_s;
    QTest::newRow("of a picture") << u"16x16"_s;
    QTest::newRow("an end") << u"16,"_s;
}

void TestFiguras::sizesThatNoIconHasAreRefused()
{
    QFETCH(QString, size);
    QCOMPARE(draw(u"d.ico"_s, size), 1);
    QVERIFY(!QFile::exists(path(u"d.ico"_s)));
}

QTEST_MAIN(TestFiguras)
#include "tst_figuras.moc"
