#pragma once

#include <QString>

#include <cstdio>

namespace runtime
{

/// Writes a text at once, for a program that talks to a command line. A console of Windows shows its accents whatever
/// code page it is set to; a file or another program gets the system's own encoding.
void print(const QString &text, std::FILE *stream = stdout);

/// True where a person reads what is written, and not a file or another program.
bool isTerminal(std::FILE *stream);

} // namespace runtime
