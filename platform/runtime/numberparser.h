#pragma once

#include <QStringView>

#include <optional>

namespace runtime
{

/// Reads "&H..." and "&O..." as the bit pattern it writes down, blanks around it allowed.
std::optional<double> parseBits(QStringView text);

} // namespace runtime
