#pragma once

namespace shell
{

/// Makes the windows of this folder known to the directory of windows.
void registerForms();

/// Joins the lower layers to the windows: boxes for bad stored values, the folder of printed files. Before the first
/// window.
void liga();

/// Starts the program's first window with the next turn of the event loop.
void comeca();

/// Takes all windows and connections down after the event loop; the database files are closed.
void desmonta();

} // namespace shell
