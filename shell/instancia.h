#pragma once

namespace shell
{

/// True where another process of the program runs in this program folder on this machine. The first call that finds
/// none holds the folder until the program ends. Whatever an earlier process left behind does not count, and a folder
/// that takes no lock refuses nobody.
bool OutraInstancia();

/// Gives the program folder back.
void liberaInstancia();

} // namespace shell
