#include "platform/printer/printer.h"

#include "platform/runtime/error.h"

#include <QBuffer>
#include <QFile>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QRegularExpression>

#include <algorithm>
#include <utility>

namespace printer
{

using namespace Qt::StringLiterals;

namespace
{

constexpr int errorPrinter = 482;
constexpr int resolution = static_cast<int>(twipsPerInch);
constexpr double twipsPerPoint = 20;

/// The document's first words: an order's or a report's title.
QString titleOf(const std::vector<Page> &document)
{
    const QStringList lines = document.front().lines();
    const auto isText = [](const QString &line) { return !line.trimmed().isEmpty(); };
    const auto found = std::find_if(lines.begin(), lines.end(), isText);
    return found == lines.end() ? QString() : found->simplified();
}

void turn(QPagedPaintDevice &device, const Page &page)
{
    const bool landscape = page.size().width() > page.size().height();
    device.setPageOrientation(landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
}

QMarginsF unreachable(const QPagedPaintDevice &device)
{
    QPageLayout layout = device.pageLayout();
    layout.setUnits(QPageLayout::Point);
    return layout.minimumMargins() * twipsPerPoint;
}

using PagePainted = std::function<void()>;

void paintPage(QPainter &painter, const QPagedPaintDevice &device, const Page &page, const PagePainted &painted)
{
    painter.save();
    painter.scale(device.logicalDpiX() / twipsPerInch, device.logicalDpiY() / twipsPerInch);
    painter.setTransform(fitToPrinter(page.size(), unreachable(device)), true);
    page.paint(painter);
    painter.restore();
    if (painted) {
        painted();
    }
}

/// Draws the document; false where the device takes no pages.
bool paintDocument(QPagedPaintDevice &device, const std::vector<Page> &document, const PagePainted &painted)
{
    device.setPageSize(QPageSize(QPageSize::A4));
    turn(device, document.front());
    QPainter painter;
    if (!painter.begin(&device)) {
        return false;
    }
    paintPage(painter, device, document.front(), painted);
    for (auto page = document.begin() + 1; page != document.end(); ++page) {
        turn(device, *page);
        if (!device.newPage()) {
            return false;
        }
        paintPage(painter, device, *page, painted);
    }
    return painter.end();
}

bool sendToPrinter(const QString &name, const std::vector<Page> &document, const PagePainted &painted)
{
    const QPrinterInfo info = QPrinterInfo::printerInfo(name);
    if (info.isNull()) {
        return false;
    }
    QPrinter device(info, QPrinter::HighResolution);
    device.setFullPage(true);
    device.setDocName(titleOf(document));
    return device.isValid() && paintDocument(device, document, painted);
}

QByteArray toPdf(const std::vector<Page> &document, const PagePainted &painted)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(resolution);
    writer.setPageMargins({});
    writer.setTitle(titleOf(document));
    return paintDocument(writer, document, painted) ? bytes : QByteArray();
}

/// The number of a file of ours, 0 for any other name.
int numberOf(const QString &fileName)
{
    static const QRegularExpression ours(u"^\\d{4,8}\\.pdf$"_s);
    return ours.match(fileName).hasMatch() ? fileName.chopped(4).toInt() : 0;
}

int highestNumber(const QDir &folder)
{
    int highest = 0;
    for (const QString &name : folder.entryList({u"*.pdf"_s}, QDir::Files | QDir::Hidden)) {
        highest = std::max(highest, numberOf(name));
    }
    return highest;
}

/// Takes the next free number. The file is made here, so that nobody else's is ever written over.
bool openNext(QFile &file, const QDir &folder)
{
    for (int number = highestNumber(folder) + 1;; ++number) {
        file.setFileName(folder.filePath(u"%1.pdf"_s.arg(number, 4, 10, QChar(u'0'))));
        if (file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
            return true;
        }
        if (!file.exists()) {
            return false;
        }
    }
}

/// Gives the path of the file, or "" where it can't be written whole.
QString writeNumbered(const QDir &folder, const QByteArray &bytes)
{
    QFile file;
    if (bytes.isEmpty() || !folder.mkpath(u"."_s) || !openNext(file, folder)) {
        return {};
    }
    if (file.write(bytes) != bytes.size() || !file.flush()) {
        file.close();
        QFile::remove(file.fileName());
        return {};
    }
    return file.fileName();
}

} // namespace

QTransform fitToPrinter(const QSizeF &sheet, const QMarginsF &unreachable)
{
    const QRectF paper({}, sheet);
    const QRectF used = paper.marginsRemoved({margin, margin, margin, margin});
    const QRectF reached = paper.marginsRemoved(unreachable);
    QTransform transform;
    if (reached.contains(used)) {
        return transform;
    }
    const double scale = std::min({1.0, reached.width() / used.width(), reached.height() / used.height()});
    transform.translate(reached.left(), reached.top());
    transform.scale(scale, scale);
    transform.translate(-used.left(), -used.top());
    return transform;
}

QStringList devices()
{
    return QPrinterInfo::availablePrinterNames() << devicePdf.toString();
}

QString Printer::DeviceName() const
{
    if (!device_.isEmpty()) {
        return device_;
    }
    const QString name = QPrinterInfo::defaultPrinterName();
    return name.isEmpty() ? devicePdf.toString() : name;
}

QString Printer::setDevice(const QString &name)
{
    return std::exchange(device_, name);
}

void Printer::setOutputFolder(const QDir &folder)
{
    folder_ = folder;
}

void Printer::KillDoc()
{
    takePages();
}

void Printer::EndDoc()
{
    std::vector<Page> document = takePages();
    if (document.empty()) {
        return;
    }
    send(document);
    lastDocument_ = std::move(document);
}

void Printer::send(const std::vector<Page> &document)
{
    const QString device = DeviceName();
    if (device != devicePdf) {
        if (!sendToPrinter(device, document, pagePainted)) {
            runtime::raise(errorPrinter);
        }
        return;
    }
    const QString path = writeNumbered(folder_, toPdf(document, pagePainted));
    if (path.isEmpty()) {
        runtime::raise(errorPrinter);
    }
    if (written) {
        written(path);
    }
}

Printer &printer()
{
    static Printer instance;
    return instance;
}

} // namespace printer
