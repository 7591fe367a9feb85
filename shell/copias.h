#pragma once

namespace shell
{

/// The commands of the menu of copies. Each asks for the disk and starts the batch file of its name in the program
/// folder, which goes on by itself. A missing one is run-time error 53, before anything is written.
void FazBackupBanco(); ///< notes the present moment as that of the last copy, whatever becomes of it
void FazBackupFiguras();
void RestauraBanco(); ///< ends the program, so that the batch file can put the copy in place
void RestauraFiguras();

} // namespace shell
