#pragma once

class QComboBox;

namespace registers
{

/// The place of "SP" in the list, where a new record begins.
inline constexpr int estadoInicial = 24;

/// Fills a combo with the codes of the 26 states that the registers offer. It can be typed into: the code of a state
/// that the list lacks is kept as it stands.
void PreencheEstados(QComboBox *combo);

} // namespace registers
