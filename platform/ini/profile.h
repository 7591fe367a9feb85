#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <utility>
#include <vector>

namespace ini
{

/// Reads a key as GetPrivateProfileString does: section and key without regard to case, blanks and one
/// outer pair of quotation marks taken off, the first section and key of a name win. At most `size` - 1
/// characters come back. A missing file, section or key gives `defaultText` without its trailing blanks. The file is in
/// code page 1252; an editor's mark of UTF-8 ahead of it is passed over.
QString readProfile(const QString &section, const QString &key, const QString &defaultText, int size,
                    const QString &path);

/// Reads a key out of the bytes of such a file, by the same rules.
QString readProfileText(const QString &section, const QString &key, const QString &defaultText, int size,
                        QByteArrayView contents);

/// Writes a key as WritePrivateProfileString does: replaces the first such key in place, else adds it at
/// the end of its section, else adds the section. No value deletes the key, no key the section. Other
/// lines stay. Returns false where the file can't be written; the old file then stays whole.
bool writeProfile(const QString &section, const std::optional<QString> &key, const std::optional<QString> &value,
                  const QString &path);

/// Writes several keys of a section by the same rules, in one go: a kill or a full disk leaves all of them or none.
bool writeProfileKeys(const QString &section, const std::vector<std::pair<QString, QString>> &keys,
                      const QString &path);

/// The bytes that such a file holds after the write; a line that is written ends in CR LF, all others
/// keep their bytes.
QByteArray writeProfileText(const QString &section, const std::optional<QString> &key,
                            const std::optional<QString> &value, QByteArrayView contents);

} // namespace ini
