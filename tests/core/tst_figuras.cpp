#include "core/figuras.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

using namespace Qt::StringLiterals;

class TestFiguras : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        pasta_ = std::make_unique<QTemporaryDir>();
        QVERIFY(QDir(pasta_->path()).mkdir(u"DADOS"_s));
    }

    void readsAPictureByTheProgramsName()
    {
        QImage vermelha(4, 3, QImage::Format_RGB32);
        vermelha.fill(Qt::red);
        QVERIFY(vermelha.save(arquivo()));
        const QImage lida = core::LeFigura(pasta_->path() + u"\\dados\\LOGO.BMP"_s);
        QCOMPARE(lida.size(), QSize(4, 3));
        QCOMPARE(lida.pixelColor(1, 1), QColor(Qt::red));
    }

    void whatIsNoPictureIsNone_data()
    {
        QTest::addColumn<QByteArray>("conteudo");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("a text") << QByteArray("LOGO\r\n").repeated(50);
        QTest::newRow("cut off") << QByteArray("BM\x46\x00\x00\x00", 6);
    }
    void whatIsNoPictureIsNone()
    {
        QFETCH(const QByteArray, conteudo);
        QFile novo(arquivo());
        QVERIFY(novo.open(QIODevice::WriteOnly));
        QCOMPARE(novo.write(conteudo), conteudo.size());
        novo.close();
        QVERIFY(core::LeFigura(arquivo()).isNull());
        QVERIFY(core::LeFigura(arquivo() + u"x"_s).isNull());
        QVERIFY(core::LeFigura(pasta_->path()).isNull());
    }

#ifdef Q_OS_UNIX
    /// Nobody writes into it: to read it would be to wait for ever.
    void aPipeIsNotRead()
    {
        QCOMPARE(::mkfifo(QFile::encodeName(arquivo()).constData(), 0600), 0);
        QVERIFY(core::LeFigura(arquivo()).isNull());
    }
#endif

private:
    QString arquivo() const
    {
        return pasta_->filePath(u"DADOS/logo.bmp"_s);
    }

    std::unique_ptr<QTemporaryDir> pasta_;
};

QTEST_GUILESS_MAIN(TestFiguras)
#include "tst_figuras.moc"
