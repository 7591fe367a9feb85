#pragma once

#include <QPalette>

namespace support
{

/// What a desktop set to dark colours gives the program.
QPalette darkPalette();

/// How well a text is read on a ground, from 1 to 21: small letters need 4.5 (the formula of the web's accessibility
/// guidelines).
double contrast(const QColor &text, const QColor &ground);

} // namespace support
