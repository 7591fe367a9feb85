#pragma once

#include <QStringView>

namespace ui
{

/// The list's text order: letter by letter by their capitals, in the order of the Western code page.
bool lessAsText(QStringView left, QStringView right);

/// The beginning of a text as a number: where the numbers of two texts differ, the texts differ the same way.
quint64 textPrefix(QStringView text);

} // namespace ui
