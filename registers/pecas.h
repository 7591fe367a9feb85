#pragma once

#include "registers/registro.h"

namespace registers
{

/// Adds a part or a service from the texts of the register's controls and opens its stock ledger with the row "ENTRADA
/// INICIAL", for a service too. Option buttons and cboUnidade are told as "-1" or "0" and as the entry's index. Gives
/// the new code.
qint32 IncluiPeca(const TextoDoControle &texto);

} // namespace registers
