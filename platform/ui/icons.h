#pragma once

class QApplication;

namespace ui
{

/// Makes the program's own icons those of the whole program, boxes and menus of the toolkit included, in the set for a
/// light or for a dark palette; the pictures on the screen change with the palette.
void installIcons(QApplication &application);

} // namespace ui
