#pragma once

#include <QByteArray>
#include <QString>

#include <compare>

namespace runtime
{

/// `Left`, `Right`, `Mid` (from 1) of the platform: lengths beyond the text are no error, negative ones are error 5.
QString Left(const QString &text, qsizetype length);
QString Right(const QString &text, qsizetype length);
QString Mid(const QString &text, qsizetype start, qsizetype length = -1);

/// Capitals of the Western code page, letter by letter; no letter becomes two.
QString UCase(const QString &text);

/// Compares byte by byte in the 8-bit code page, the platform's comparison of two texts: A < Z < a < z < accented.
std::strong_ordering compareBinary(const QString &left, const QString &right);

/// Code page 1252. A character outside it becomes "?"; the five undefined bytes stand for themselves.
QByteArray toWestern(QStringView text);
QString fromWestern(QByteArrayView bytes);

} // namespace runtime
