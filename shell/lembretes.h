#pragma once

#include <QString>

namespace shell
{

/// Reminds of the backup when `BackupDias` midnights have passed since the last one, where `AvisaBackup` is "S".
void LembraBackup();

/// When the last backup was made, as "dd/mm/yyyy hh:mm:ss".
QString UltimoBackup();

/// Where something falls due from 15 days back to 15 days ahead, beeps and opens the notices. Needs `ExibeAviso` "S".
/// The fourth question is about pending orders, while the notices list the customers' accounts.
void AvisaVencimentos();

} // namespace shell
