#pragma once

#include "platform/runtime/dates.h"

#include <QString>

namespace literals
{

/// A moment written as "2024-05-31" or "2024-05-31 07:05:09".
inline runtime::Date iso(const QString &text)
{
    const auto time = text.size() > 10 ? QTime::fromString(text.mid(11), Qt::ISODate) : QTime(0, 0);
    return runtime::fromDateTime({QDate::fromString(text.left(10), Qt::ISODate), time});
}

// By its two parts: the moment itself may be one that summer time skipped.
inline QString isoText(runtime::Date date)
{
    const auto moment = runtime::toDateTime(date);
    return moment.date().toString(Qt::ISODate) + QStringLiteral(" ") + moment.time().toString(Qt::ISODate);
}

/// A moment written as "#5/31/2024 07:05:09#", "#5/31/2024#" or "#17:04:23#": month first.
inline runtime::Date marked(const QString &text)
{
    const auto parts = text.mid(1, text.size() - 2).split(QChar(u' '));
    const bool dated = parts.first().contains(QChar(u'/'));
    const bool timed = parts.last().contains(QChar(u':'));
    const auto day = dated ? QDate::fromString(parts.first(), QStringLiteral("M/d/yyyy")) : QDate(1899, 12, 30);
    const auto time = timed ? QTime::fromString(parts.last(), QStringLiteral("hh:mm:ss")) : QTime(0, 0);
    return runtime::fromDateTime({day, time});
}

/// The value of a type and a text: "Single" and "1.5", "Date" and "#5/31/2024#", "String" and "\"abc\"", ...
inline runtime::Value value(const QString &type, const QString &text)
{
    using namespace runtime;
    if (type == QStringLiteral("Null")) {
        return Null();
    }
    if (type == QStringLiteral("Empty")) {
        return Empty();
    }
    if (type == QStringLiteral("Boolean")) {
        return text == QStringLiteral("True");
    }
    if (type == QStringLiteral("Integer")) {
        return static_cast<qint16>(text.toShort());
    }
    if (type == QStringLiteral("Long")) {
        return static_cast<qint32>(text.toInt());
    }
    if (type == QStringLiteral("Single")) {
        return text.toFloat();
    }
    if (type == QStringLiteral("Double")) {
        return text.toDouble();
    }
    if (type == QStringLiteral("Date")) {
        return marked(text);
    }
    Q_ASSERT(type == QStringLiteral("String"));
    return text.mid(1, text.size() - 2);
}

} // namespace literals
