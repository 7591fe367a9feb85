#pragma once

#include <QByteArray>
#include <QImage>

#include <vector>

/// The largest edge that an icon of Windows can have.
constexpr int largestIcon = 256;

/// The content of an ICO file with these square pictures. Those of the largest size are stored as PNG; what reads icons
/// without knowing that form finds bitmaps in all other sizes.
QByteArray ico(const std::vector<QImage> &images);
