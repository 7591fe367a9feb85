#include "platform/ini/profile.h"

#include "platform/files/files.h"
#include "platform/files/replacefile.h"
#include "platform/runtime/text.h"

#include <QFile>
#include <QFileInfo>

#include <vector>

using runtime::fromWestern;
using runtime::toWestern;

namespace ini
{

namespace
{

// A line with its line end, and the same without it, without the blanks around and without an editor's mark.
struct Line {
    QByteArrayView whole;
    QByteArrayView content;
};

bool isBreak(char c)
{
    return c == '\r' || c == '\n';
}

// Some editors put this ahead of the first section, which would not be found behind it: all its keys would be missing.
constexpr QByteArrayView markOfUtf8("\xEF\xBB\xBF");

QByteArrayView withoutMark(QByteArrayView line)
{
    return line.startsWith(markOfUtf8) ? line.sliced(markOfUtf8.size()) : line;
}

// A line ends with CR LF, or with one of them alone.
Line takeLine(QByteArrayView &rest)
{
    qsizetype length = 0;
    while (length < rest.size() && !isBreak(rest[length])) {
        ++length;
    }
    const auto content = withoutMark(rest.first(length)).trimmed();
    const bool pair = length + 1 < rest.size() && rest[length] == '\r' && rest[length + 1] == '\n';
    const auto end = std::min(length + (pair ? 2 : 1), rest.size());
    const Line line{.whole = rest.first(end), .content = content};
    rest = rest.sliced(end);
    return line;
}

bool isHeader(const Line &line)
{
    return line.content.startsWith('[');
}

bool sameName(QByteArrayView written, const QString &name)
{
    return fromWestern(written.trimmed()).compare(QStringView(name).trimmed(), Qt::CaseInsensitive) == 0;
}

bool isHeaderOf(const Line &line, const QString &section)
{
    if (!isHeader(line)) {
        return false;
    }
    const auto end = line.content.indexOf(']');
    return sameName(line.content.sliced(1, (end < 0 ? line.content.size() : end) - 1), section);
}

// Where the key's value begins in the line; -1 in a line that is not that key's.
qsizetype valueStart(const Line &line, const QString &key)
{
    const auto mark = line.content.indexOf('=');
    if (mark < 0 || line.content.startsWith(';') || isHeader(line) || !sameName(line.content.first(mark), key)) {
        return -1;
    }
    return mark + 1;
}

QByteArrayView withoutQuotes(QByteArrayView value)
{
    const bool quoted = value.size() >= 2 && value.front() == value.back() && (value[0] == '"' || value[0] == '\'');
    return quoted ? value.sliced(1, value.size() - 2) : value;
}

QString withoutBlanksBehind(QString text)
{
    while (text.endsWith(u' ')) {
        text.chop(1);
    }
    return text;
}

std::optional<QByteArrayView> findValue(const QString &section, const QString &key, QByteArrayView contents)
{
    bool inside = false;
    while (!contents.isEmpty()) {
        const auto line = takeLine(contents);
        if (inside && isHeader(line)) {
            return std::nullopt;
        }
        inside = inside || isHeaderOf(line, section);
        if (const auto start = inside ? valueStart(line, key) : -1; start >= 0) {
            return withoutQuotes(line.content.sliced(start).trimmed());
        }
    }
    return std::nullopt;
}

std::vector<Line> linesOf(QByteArrayView contents)
{
    std::vector<Line> lines;
    while (!contents.isEmpty()) {
        lines.push_back(takeLine(contents));
    }
    return lines;
}

// The lines of a section without its header, as positions in the file; `found` tells whether it is there.
struct Section {
    std::size_t begin = 0;
    std::size_t end = 0;
    bool found = false;
};

Section findSection(const std::vector<Line> &lines, const QString &name)
{
    Section section;
    while (section.begin < lines.size() && !section.found) {
        section.found = isHeaderOf(lines[section.begin++], name);
    }
    section.end = section.begin;
    while (section.end < lines.size() && !isHeader(lines[section.end])) {
        ++section.end;
    }
    return section;
}

std::size_t findKey(const std::vector<Line> &lines, const Section &section, const QString &key)
{
    auto at = section.begin;
    while (at < section.end && valueStart(lines[at], key) < 0) {
        ++at;
    }
    return at;
}

// A new key stands behind the section's last line; blank lines set the next section off and stay there.
std::size_t placeForKey(const std::vector<Line> &lines, const Section &section)
{
    auto at = section.end;
    while (at > section.begin && lines[at - 1].content.isEmpty()) {
        --at;
    }
    return at;
}

// The file with the lines from `from` to `to` given up for `text`.
QByteArray withLines(const std::vector<Line> &lines, std::size_t from, std::size_t to, const QByteArray &text)
{
    QByteArray result;
    for (std::size_t i = 0; i < from; ++i) {
        result += lines[i].whole;
    }
    if (!text.isEmpty() && !result.isEmpty() && !isBreak(result.back())) {
        result += "\r\n";
    }
    result += text;
    for (auto i = to; i < lines.size(); ++i) {
        result += lines[i].whole;
    }
    return result;
}

QByteArray keyLine(QByteArrayView key, const QString &value)
{
    return key.trimmed().toByteArray() + '=' + toWestern(value) + "\r\n";
}

QByteArray withoutKey(const std::vector<Line> &lines, const Section &section, const QString &key)
{
    const auto at = findKey(lines, section, key);
    return withLines(lines, at, at < section.end ? at + 1 : at, {});
}

// An old key keeps its place and its spelling.
QByteArray withKey(const std::vector<Line> &lines, const Section &section, const QString &key, const QString &value)
{
    const auto at = findKey(lines, section, key);
    if (at == section.end) {
        const auto place = placeForKey(lines, section);
        return withLines(lines, place, place, keyLine(toWestern(key), value));
    }
    const auto written = lines[at].content.first(valueStart(lines[at], key) - 1);
    return withLines(lines, at, at + 1, keyLine(written, value));
}

QByteArray withSection(const std::vector<Line> &lines, const QString &section, const QString &key, const QString &value)
{
    const QByteArray header = '[' + toWestern(QStringView(section).trimmed()) + "]\r\n";
    return withLines(lines, lines.size(), lines.size(), header + keyLine(toWestern(key), value));
}

// A link that leads to no file is none, where QFile would take it for one.
std::optional<QByteArray> fileContents(const QString &path)
{
    if (!QFileInfo::exists(path)) {
        return QByteArray();
    }
    QFile file(path);
    if (!files::isOrdinary(path) || !file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    const auto contents = file.readAll();
    return file.error() == QFile::NoError ? std::optional(contents) : std::nullopt;
}

// Puts what `change` makes of the file's bytes in their place.
template<class Change>
bool rewrite(const QString &path, Change change)
{
    const auto before = fileContents(path);
    if (!before || files::isReadOnly(path)) {
        return false;
    }
    files::clearLeftovers(path);
    return files::replaceFile(path, change(*before));
}

} // namespace

QString readProfileText(const QString &section, const QString &key, const QString &defaultText, int size,
                        QByteArrayView contents)
{
    const auto value = findValue(section, key, contents);
    return (value ? fromWestern(*value) : withoutBlanksBehind(defaultText)).left(std::max(size - 1, 0));
}

QString readProfile(const QString &section, const QString &key, const QString &defaultText, int size,
                    const QString &path)
{
    return readProfileText(section, key, defaultText, size, fileContents(path).value_or(QByteArray()));
}

QByteArray writeProfileText(const QString &section, const std::optional<QString> &key,
                            const std::optional<QString> &value, QByteArrayView contents)
{
    const auto lines = linesOf(contents);
    const auto found = findSection(lines, section);
    if (!found.found) {
        return key && value ? withSection(lines, section, *key, *value) : contents.toByteArray();
    }
    if (!key) {
        return withLines(lines, found.begin - 1, found.end, {});
    }
    return value ? withKey(lines, found, *key, *value) : withoutKey(lines, found, *key);
}

bool writeProfile(const QString &section, const std::optional<QString> &key, const std::optional<QString> &value,
                  const QString &path)
{
    return rewrite(path, [&](const QByteArray &before) { return writeProfileText(section, key, value, before); });
}

bool writeProfileKeys(const QString &section, const std::vector<std::pair<QString, QString>> &keys, const QString &path)
{
    return rewrite(path, [&](QByteArray contents) {
        for (const auto &[key, value] : keys) {
            contents = writeProfileText(section, key, value, contents);
        }
        return contents;
    });
}

} // namespace ini
