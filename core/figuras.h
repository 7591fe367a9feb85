#pragma once

#include <QImage>
#include <QString>

namespace core
{

/// The picture in a file, which is named as the program writes paths (`caminho`). None where the file is absent, holds
/// no picture or is no ordinary file: a pipe would be waited for without end.
QImage LeFigura(const QString &arquivo);

} // namespace core
