#pragma once

#include <QPalette>

namespace support
{

/// What a desktop set to dark colours gives the program.
QPalette darkPalette();

} // namespace support
