#pragma once

#include "platform/printer/surface.h"

#include <QDir>

#include <functional>

namespace printer {

/// The system's default printer. Where the system has none, the device "PDF" stands in: each document becomes
/// one numbered file in the folder `impressos`. A failure is run-time error 482.
class Printer : public Surface
{
public:
    Printer();

    QString DeviceName() const;
    double Width() const override;
    double Height() const override;
    void setOrientation(Orientation orientation) override;
    void NewPage() override;
    void EndDoc() override;

    /// Drops what has not been sent, as an error in the middle of a document does.
    void KillDoc();

    /// Where the device "PDF" writes; the program sets it to `impressos` of its folder.
    void setOutputFolder(const QDir &folder);

    /// Told of each file that the device "PDF" has written.
    std::function<void(const QString &path)> written;

    /// The pages of the document that was ended last, and of all since the start. For tests.
    const std::vector<Page> &lastDocument() const { return lastDocument_; }

protected:
    Page &page() override;

private:
    void send();

    std::vector<Page> pages_;
    std::vector<Page> lastDocument_;
    Orientation orientation_ = Orientation::Portrait;
    QDir folder_;
};

/// The one printer of the program.
Printer &printer();

} // namespace printer
