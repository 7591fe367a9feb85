#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

namespace files
{

/// A new file beside the one that it is to replace, which nobody clears away while it lives. It goes with this object,
/// unless it was put in place.
class Draft
{
public:
    explicit Draft(const QString &path);
    ~Draft();
    Q_DISABLE_COPY_MOVE(Draft)

    bool isOpen() const { return file_.isOpen(); } ///< false where none can be made
    QString name() const { return file_.fileName(); }

    bool write(const QByteArray &contents);

    /// Brings what was written, by whomever, to the disk and gives it the name. False where the old file stays.
    bool putInPlace();

private:
    QString path_;
    QFile file_;
};

/// Puts `contents` in place of the file, or makes it: written beside it, brought to the disk, then renamed, so that
/// whatever fails - a full disk, a quota, the disk itself, a power cut - either the old file stands there whole or the
/// new one. False where the old one stays. A link stays a link, and a file keeps its rights.
bool replaceFile(const QString &path, const QByteArray &contents);

/// Takes away what killed programs left beside the file. What one that lives is still writing stays.
void clearLeftovers(const QString &path);

} // namespace files
