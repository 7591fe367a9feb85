#pragma once

#include "platform/printer/surface.h"

#include <QDir>
#include <QMarginsF>
#include <QStringList>
#include <QTransform>

#include <functional>

namespace printer
{

/// The device that stands in where the system has no printer.
inline constexpr QStringView devicePdf = u"PDF";

/// The system's default printer. Where the system has none, the device "PDF" stands in: each document becomes
/// one numbered file in the folder `impressos`. A failure is run-time error 482, and the document is dropped.
class Printer : public PagedSurface
{
public:
    QString DeviceName() const;

    /// The printer to use from here on: a name of `devices()`, or "" for the system's default. Gives what was set
    /// before, for whoever prints one document elsewhere.
    QString setDevice(const QString &name);

    void EndDoc() override;

    /// Drops what has not been sent, as an error in the middle of a document does.
    void KillDoc();

    /// Where the device "PDF" writes; the program sets it to `impressos` of its folder.
    void setOutputFolder(const QDir &folder);

    /// Told of each page that is painted, behind it: a long document takes its time.
    std::function<void()> pagePainted;

    /// Told of each file that the device "PDF" has written.
    std::function<void(const QString &path)> written;

    /// The pages of the document that was ended last. For tests.
    const std::vector<Page> &lastDocument() const { return lastDocument_; }

private:
    void send(const std::vector<Page> &document);

    std::vector<Page> lastDocument_;
    QString device_;
    QDir folder_{QStringLiteral("impressos")};
};

/// How a page goes on the sheet of a printer, both in twips: as it stands, or, where the printer reaches less of the
/// sheet than a page uses, shrunk into what it reaches.
QTransform fitToPrinter(const QSizeF &sheet, const QMarginsF &unreachable);

/// The names of the system's printers, and the device "PDF" behind them.
QStringList devices();

/// The one printer of the program.
Printer &printer();

} // namespace printer
