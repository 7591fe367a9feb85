#pragma once

#include <QByteArray>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QStringList>

/// What stands on the disk, for comparisons.
namespace support
{

/// Empty for a file that can't be read.
inline QByteArray contentsOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The names of all files below a folder, from there on.
inline QStringList filesOf(const QString &folder)
{
    QStringList files;
    QDirIterator all(folder, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    while (all.hasNext()) {
        files << QDir(folder).relativeFilePath(all.next());
    }
    files.sort();
    return files;
}

} // namespace support
