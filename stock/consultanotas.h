#pragma once

#include <QString>

namespace ui
{
class ListView;
}

/// What the two queries of the suppliers' notes share.
namespace stock
{

/// Gives the list of a note's lines its columns.
void MontaLinhasDaNota(ui::ListView &lista);

/// Shows the lines of a note, each quantity by the unit of its part; those that stood there stay for a code that is no
/// number.
void MostraLinhasDaNota(ui::ListView &lista, const QString &codigo);

/// Asks on which day a note was paid and offers today: "" when the user cancels, and whatever else he types.
QString PerguntaDiaDoPagamento();

} // namespace stock
