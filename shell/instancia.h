#pragma once

namespace shell
{

/// True where another process of the program runs in this program folder. The first call that finds none holds the
/// folder until the program ends; what a killed program left behind does not count. A folder that takes no file refuses
/// nobody.
bool OutraInstancia();

/// Gives the program folder back.
void liberaInstancia();

} // namespace shell
