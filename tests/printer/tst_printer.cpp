#include "platform/printer/printer.h"
#include "support/errors.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#endif

using namespace Qt::StringLiterals;
using namespace printer;
using support::errorOf;

namespace
{

/// A printer that writes into a folder of its own.
struct Office {
    Office()
    {
        device.setDevice(devicePdf.toString());
        device.setOutputFolder(QDir(folder.filePath(u"impressos"_s)));
        device.written = [this](const QString &path) { files << QFileInfo(path).fileName(); };
    }

    QString path(const QString &name) const { return folder.filePath(u"impressos/"_s + name); }
    QStringList printed() const { return QDir(folder.filePath(u"impressos"_s)).entryList(QDir::Files); }
    void print(const QString &text)
    {
        device.Print(text);
        device.EndDoc();
    }

    QTemporaryDir folder;
    Printer device;
    QStringList files;
};

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void put(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

#ifdef Q_OS_UNIX

QString outputOf(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished();
    return QString::fromUtf8(process.readAllStandardOutput());
}

/// Lets files grow to 100 bytes only, as on a disk that is nearly full.
class FullDisk
{
public:
    FullDisk()
    {
        getrlimit(RLIMIT_FSIZE, &before_);
        rlimit small = before_;
        small.rlim_cur = 100;
        setrlimit(RLIMIT_FSIZE, &small);
        handler_ = std::signal(SIGXFSZ, SIG_IGN);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }
    FullDisk(const FullDisk &) = delete;
    FullDisk &operator=(const FullDisk &) = delete;

private:
    rlimit before_{};
    void (*handler_)(int) = SIG_DFL;
};

#endif

} // namespace

class tst_Printer : public QObject
{
    Q_OBJECT

private slots:
    void theStandInIsAlwaysAmongTheDevices();
    void aDeviceIsChosenByName();
    void eachDocumentIsTheNextNumberedFile();
    void aFileIsNeverWrittenOver();
    void otherFilesDoNotCount();
#ifdef Q_OS_UNIX // the system's tools read the PDF
    void theFileHoldsRealText();
    void theTitleIsTheDocumentsFirstText();
    void everyPageHasItsOwnOrientation();
#endif
    void theLastDocumentIsKept();
    void everyPaintedPageIsTold();
    void anEmptyDocumentWritesNothing();
    void aDroppedDocumentWritesNothing();
    void aFolderThatCannotBeMadeIsError482();
#ifdef Q_OS_UNIX // a limit on files stands for the disk
    void aFullDiskIsError482AndLeavesNoFile();
#endif
    void aPrinterThatDoesNotExistIsError482();
    void aPageIsShrunkOnlyWhereThePrinterReachesLess_data();
    void aPageIsShrunkOnlyWhereThePrinterReachesLess();
};

void tst_Printer::theStandInIsAlwaysAmongTheDevices()
{
    QCOMPARE(devices().last(), devicePdf.toString());
}

void tst_Printer::aDeviceIsChosenByName()
{
    Printer device;
    QCOMPARE(device.setDevice(u"PDF"_s), QString());
    QCOMPARE(device.DeviceName(), u"PDF"_s);
    QCOMPARE(device.setDevice({}), u"PDF"_s);
    QVERIFY(devices().contains(device.DeviceName()));
}

void tst_Printer::eachDocumentIsTheNextNumberedFile()
{
    Office office;
    office.print(u"A"_s);
    office.print(u"B"_s);
    QCOMPARE(office.printed(), (QStringList{u"0001.pdf"_s, u"0002.pdf"_s}));
    QCOMPARE(office.files, office.printed());
}

void tst_Printer::aFileIsNeverWrittenOver()
{
    Office office;
    put(office.path(u"0003.pdf"_s), "kept");
    put(office.path(u"9999.pdf"_s), "kept too");
    office.print(u"A"_s);
    QCOMPARE(office.files, QStringList{u"10000.pdf"_s});
    office.print(u"B"_s);
    QCOMPARE(office.files.last(), u"10001.pdf"_s);
    QCOMPARE(contents(office.path(u"0003.pdf"_s)), QByteArray("kept"));
    QCOMPARE(contents(office.path(u"9999.pdf"_s)), QByteArray("kept too"));
}

void tst_Printer::otherFilesDoNotCount()
{
    Office office;
    put(office.path(u"20240515.txt"_s), "");
    put(office.path(u"0007 copy.pdf"_s), "");
    put(office.path(u"99999999999.pdf"_s), "");
    office.print(u"A"_s);
    QCOMPARE(office.files, QStringList{u"0001.pdf"_s});
}

#ifdef Q_OS_UNIX

void tst_Printer::theFileHoldsRealText()
{
    const QString reader = QStandardPaths::findExecutable(u"pdftotext"_s);
    QVERIFY2(!reader.isEmpty(), "pdftotext is needed to read what was printed");
    Office office;
    office.device.FontSize = 10;
    office.device.Print(u"SERVIÇO Nº 1"_s + QString(70, u'.') + u"12.345,67"_s);
    office.print(u"PEÇAS"_s);
    const QString text = outputOf(reader, {u"-layout"_s, office.path(u"0001.pdf"_s), u"-"_s});
    QVERIFY2(text.contains(u"SERVIÇO Nº 1"_s), qPrintable(text));
    QVERIFY(text.contains(u"12.345,67"_s));
    QVERIFY(text.contains(u"PEÇAS"_s));
}

void tst_Printer::theTitleIsTheDocumentsFirstText()
{
    const QString reader = QStandardPaths::findExecutable(u"pdfinfo"_s);
    QVERIFY2(!reader.isEmpty(), "pdfinfo is needed to read what was printed");
    Office office;
    office.device.Print();
    office.device.Print(u"   ORDEM DE SERVIÇO Nº 0001   "_s);
    office.print(u"B"_s);
    const QString info = outputOf(reader, {office.path(u"0001.pdf"_s)});
    QVERIFY2(info.contains(u"ORDEM DE SERVIÇO Nº 0001\n"_s), qPrintable(info));
}

void tst_Printer::everyPageHasItsOwnOrientation()
{
    const QString reader = QStandardPaths::findExecutable(u"pdfinfo"_s);
    QVERIFY2(!reader.isEmpty(), "pdfinfo is needed to read what was printed");
    Office office;
    office.device.Print(u"A"_s);
    office.device.setOrientation(Orientation::Landscape);
    office.device.NewPage();
    office.print(u"B"_s);
    const QString info = outputOf(reader, {u"-l"_s, u"2"_s, office.path(u"0001.pdf"_s)}).simplified();
    QVERIFY2(info.contains(u"Page 1 size: 595 x 842 pts"_s), qPrintable(info));
    QVERIFY2(info.contains(u"Page 2 size: 842 x 595 pts"_s), qPrintable(info));
}

#endif

void tst_Printer::theLastDocumentIsKept()
{
    Office office;
    office.print(u"A"_s);
    office.device.Print(u"B"_s);
    office.device.NewPage();
    office.print(u"C"_s);
    QCOMPARE(office.device.lastDocument().size(), std::size_t{2});
    QCOMPARE(office.device.lastDocument().back().lines(), QStringList{u"C"_s});
}

/// While the document is on its way, not behind it.
void tst_Printer::everyPaintedPageIsTold()
{
    Office office;
    QStringList told;
    office.device.pagePainted = [&] { told << u"page"_s; };
    office.device.written = [&](const QString & /*path*/) { told << u"file"_s; };
    office.device.Print(u"A"_s);
    office.device.NewPage();
    office.device.Print(u"B"_s);
    QCOMPARE(told, QStringList());
    office.device.EndDoc();
    QCOMPARE(told, (QStringList{u"page"_s, u"page"_s, u"file"_s}));
}

void tst_Printer::anEmptyDocumentWritesNothing()
{
    Office office;
    office.device.EndDoc();
    QVERIFY(office.printed().isEmpty());
    QVERIFY(office.files.isEmpty());
}

void tst_Printer::aDroppedDocumentWritesNothing()
{
    Office office;
    office.device.Print(u"A"_s);
    office.device.KillDoc();
    office.device.EndDoc();
    QVERIFY(office.printed().isEmpty());
    office.print(u"B"_s);
    QCOMPARE(office.device.lastDocument().front().lines(), QStringList{u"B"_s});
}

void tst_Printer::aFolderThatCannotBeMadeIsError482()
{
    Office office;
    put(office.folder.filePath(u"file"_s), "");
    office.device.setOutputFolder(QDir(office.folder.filePath(u"file/impressos"_s)));
    QCOMPARE(errorOf([&office] { office.print(u"A"_s); }), 482);
    QVERIFY(office.device.lastDocument().empty());
    QVERIFY(office.device.pages().empty());
}

#ifdef Q_OS_UNIX

void tst_Printer::aFullDiskIsError482AndLeavesNoFile()
{
    Office office;
    const FullDisk full;
    QCOMPARE(errorOf([&office] { office.print(u"A"_s); }), 482);
    QVERIFY(office.printed().isEmpty());
    QVERIFY(office.files.isEmpty());
}

#endif

void tst_Printer::aPrinterThatDoesNotExistIsError482()
{
    Office office;
    office.device.setDevice(u"No such printer"_s);
    QCOMPARE(errorOf([&office] { office.print(u"A"_s); }), 482);
}

void tst_Printer::aPageIsShrunkOnlyWhereThePrinterReachesLess_data()
{
    QTest::addColumn<QMarginsF>("unreachable");
    QTest::addColumn<bool>("asItStands");
    QTest::newRow("the whole sheet") << QMarginsF() << true;
    QTest::newRow("a usual printer") << QMarginsF(margin, margin, margin, margin) << true;
    QTest::newRow("wide edges") << QMarginsF(240, 240, 240, 240) << false;
    QTest::newRow("a wide foot") << QMarginsF(100, 100, 100, 720) << false;
}

void tst_Printer::aPageIsShrunkOnlyWhereThePrinterReachesLess()
{
    QFETCH(QMarginsF, unreachable);
    QFETCH(bool, asItStands);
    const QSizeF sheet(11906, 16838);
    const QTransform transform = fitToPrinter(sheet, unreachable);
    QCOMPARE(transform.isIdentity(), asItStands);
    QCOMPARE(transform.m11(), transform.m22());
    const QRectF used = QRectF({}, sheet).marginsRemoved({margin, margin, margin, margin});
    const QRectF printed = transform.mapRect(used);
    const QRectF reached = QRectF({}, sheet).marginsRemoved(unreachable).adjusted(-0.01, -0.01, 0.01, 0.01);
    QVERIFY(reached.contains(printed));
    QVERIFY(printed.width() > 0.9 * used.width());
}

QTEST_MAIN(tst_Printer)
#include "tst_printer.moc"
