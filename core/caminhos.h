#pragma once

#include <QString>

namespace core {

/// Turns a path as the program and its settings write it (backslashes, any case) into one of this system. Each
/// part that exists under another case is taken as it stands on disk, so `\DADOS` and `\dados` are one folder.
QString caminho(const QString &texto);

} // namespace core
