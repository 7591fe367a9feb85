#pragma once

#include <QByteArrayView>
#include <QStringView>

namespace dao
{

/// The order of texts in the database: case never counts, accents break ties only, hyphen and apostrophe count last of
/// all, trailing blanks don't count; blank, punctuation, symbols, digits, letters. Negative, zero or positive.
int compareText(QStringView left, QStringView right);

/// The same on UTF-8, the form in which texts are stored.
int compareUtf8(QByteArrayView left, QByteArrayView right);

} // namespace dao
