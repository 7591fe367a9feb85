#pragma once

class QWidget;

namespace core
{

/// Gives the buttons of a window their icons: by the end of their names, or by the property `icone` of the layout file,
/// which is empty for none.
void PoeIcones(const QWidget &janela);

} // namespace core
