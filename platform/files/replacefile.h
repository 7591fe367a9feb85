#pragma once

#include <QByteArray>
#include <QString>

namespace files
{

/// Puts `contents` in place of the file, or makes it: written beside it, brought to the disk, then renamed, so that
/// whatever fails - a full disk, a quota, the disk itself, a power cut - either the old file stands there whole or the
/// new one. False where the old one stays. A link stays a link, and a file keeps its rights.
bool replaceFile(const QString &path, const QByteArray &contents);

/// Takes away what killed programs left beside the file. What one that lives is still writing stays.
void clearLeftovers(const QString &path);

} // namespace files
