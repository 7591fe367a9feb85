#include "platform/runtime/console.h"

#include <QTemporaryFile>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_console : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { std::fclose(stream_); }

    void aFileGetsTheEncodingOfTheSystem();
    void whatWasWrittenBeforeStandsBefore();
    void aFileIsNoTerminal();

private:
    QByteArray written()
    {
        QFile file(file_->fileName());
        return file.open(QIODevice::ReadOnly | QIODevice::Text) ? file.readAll() : QByteArray("(no file)");
    }

    std::unique_ptr<QTemporaryFile> file_;
    std::FILE *stream_ = nullptr;
};

void tst_console::init()
{
    file_ = std::make_unique<QTemporaryFile>();
    QVERIFY(file_->open());
    stream_ = std::fopen(QFile::encodeName(file_->fileName()).constData(), "w");
    QVERIFY(stream_ != nullptr);
}

void tst_console::aFileGetsTheEncodingOfTheSystem()
{
    const QString text = u"A cópia não foi feita: 5,00 \u20AC\n"_s;
    runtime::print(text, stream_);
    QCOMPARE(written(), text.toLocal8Bit());
    QCOMPARE(QString::fromLocal8Bit(written()), text);
}

void tst_console::whatWasWrittenBeforeStandsBefore()
{
    std::fputs("1", stream_);
    runtime::print(u"2"_s, stream_);
    QCOMPARE(written(), QByteArray("12"));
}

void tst_console::aFileIsNoTerminal()
{
    QVERIFY(!runtime::isTerminal(stream_));
}

QTEST_GUILESS_MAIN(tst_console)
#include "tst_console.moc"
