#pragma once

#include "platform/jet/page.h"

#include <QString>

namespace jet
{

/// A text as it is stored: two bytes a character, or compressed behind a mark. Nothing where the bytes are no text.
std::optional<QString> decodeText(Bytes bytes);

} // namespace jet
