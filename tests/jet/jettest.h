#pragma once

#include "platform/jet/file.h"
#include "support/jet4/jet4.h"

#include <QFile>
#include <QStringList>

#include <bit>

/// What the tests of Jet files share.
namespace jettest
{

using runtime::Null;

inline QString write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
        qFatal("the file can't be written");
    }
    return path;
}

/// A value with its type and all its bits, as a text.
struct Shown {
    QString operator()(runtime::Empty) const { return QStringLiteral("empty"); }
    QString operator()(Null) const { return QStringLiteral("null"); }
    QString operator()(bool value) const { return value ? QStringLiteral("true") : QStringLiteral("false"); }
    QString operator()(qint16 value) const { return QStringLiteral("short ") + QString::number(value); }
    QString operator()(qint32 value) const { return QStringLiteral("long ") + QString::number(value); }
    QString operator()(float value) const
    {
        return QStringLiteral("single ") + QString::number(std::bit_cast<quint32>(value), 16);
    }
    QString operator()(double value) const
    {
        return QStringLiteral("double ") + QString::number(std::bit_cast<quint64>(value), 16);
    }
    QString operator()(runtime::Date value) const
    {
        return QStringLiteral("date ") + QString::number(std::bit_cast<quint64>(value.serial), 16);
    }
    QString operator()(const QString &value) const { return u'"' + value + u'"'; }
};

inline QString shown(const runtime::Value &value)
{
    return std::visit(Shown{}, value);
}

/// The values of a row, with a question mark for those that can't be read.
inline QStringList shown(const jet::Row &row)
{
    QStringList texts;
    for (const runtime::Value &value : row.values) {
        texts.append(shown(value));
    }
    for (const int place : row.unreadable) {
        texts[place] += u'?';
    }
    return texts;
}

struct Content {
    jet::Reading reading;
    QList<QStringList> rows;

    /// The values of one column.
    QStringList column(int place) const
    {
        QStringList values;
        for (const QStringList &row : rows) {
            values.append(row.value(place));
        }
        return values;
    }
};

/// All of a table, by either end of the reader.
template<typename Source>
Content contentOf(Source &source, std::size_t table)
{
    Content content;
    content.reading = source.read(table, [&content](const jet::Row &row) {
        content.rows.append(shown(row));
        return true;
    });
    return content;
}

inline QStringList namesOf(const std::vector<jet::Table> &tables)
{
    QStringList names;
    for (const jet::Table &table : tables) {
        names.append(table.name);
    }
    return names;
}

} // namespace jettest
