#include "support/tsv.h"

#include <QFile>
#include <QStringList>
#include <QTest>

using namespace Qt::StringLiterals;

namespace support
{

namespace
{

QString escaped(QChar mark)
{
    switch (mark.unicode()) {
    case u't':
        return u"\t"_s;
    case u'r':
        return u"\r"_s;
    case u'n':
        return u"\n"_s;
    default:
        return mark;
    }
}

QString resolved(const QString &cell)
{
    QString text;
    for (qsizetype i = 0; i < cell.size(); ++i) {
        if (cell[i] != u'\\' || i + 1 == cell.size()) {
            text += cell[i];
        } else if (cell[++i] == u'x') {
            text += QChar(cell.mid(i + 1, 2).toUShort(nullptr, 16));
            i += 2;
        } else {
            text += escaped(cell[i]);
        }
    }
    return text;
}

QStringList linesOf(const QString &name)
{
    QFile file(QStringLiteral(TARVELO_TESTS_DIR "/vectors/") + name);
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("no vectors in %s", qUtf8Printable(file.fileName()));
    }
    auto lines = QString::fromUtf8(file.readAll()).split(u'\n');
    if (lines.last().isEmpty()) {
        lines.removeLast();
    }
    return lines;
}

TsvRow rowOf(const QStringList &columns, const QString &text, int line)
{
    const auto cells = text.split(u'\t');
    if (cells.size() > columns.size()) {
        qFatal("line %d has %d cells", line, static_cast<int>(cells.size()));
    }
    QMap<QString, QString> named;
    for (qsizetype i = 0; i < columns.size(); ++i) {
        named[columns[i]] = resolved(cells.value(i));
    }
    return {line, named};
}

} // namespace

QString TsvRow::cell(const QString &column) const
{
    if (!cells_.contains(column)) {
        qFatal("no column %s", qUtf8Printable(column));
    }
    return cells_[column];
}

std::vector<TsvRow> readTsv(const QString &name)
{
    const auto lines = linesOf(name);
    const auto columns = lines.value(0).split(u'\t');
    std::vector<TsvRow> rows;
    for (int i = 1; i < lines.size(); ++i) {
        rows.push_back(rowOf(columns, lines[i], i + 1));
    }
    if (rows.empty()) {
        qFatal("no rows in %s", qUtf8Printable(name));
    }
    return rows;
}

void addTsvRows(const QString &name)
{
    const auto lines = linesOf(name);
    QTest::addColumn<TsvRow>("row");
    for (const auto &row : readTsv(name)) {
        const auto label = lines[row.line() - 1].left(80).replace(u'\t', u' ');
        QTest::addRow("%d: %s", row.line(), qUtf8Printable(label)) << row;
    }
}

QString unquoted(const QString &cell)
{
    const bool quoted = cell.size() >= 2 && cell.startsWith(u'"') && cell.endsWith(u'"');
    return quoted ? cell.mid(1, cell.size() - 2) : cell;
}

} // namespace support
