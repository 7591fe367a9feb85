#pragma once

#include <QString>

#include <functional>

namespace core
{

/// Asks OK or Cancel about a bad group of base64 text; true for OK. Without one, OK.
using PerguntaBase64 = std::function<bool(const QString &texto, const QString &titulo)>;

/// Tells of an equal sign that stands before the end of its group. Without one, nobody is told.
using AvisoBase64 = std::function<void(const QString &texto, const QString &titulo)>;

/// Installed by the program's windows (`LigaPerguntas`): the rules themselves open no box.
void setPerguntaBase64(PerguntaBase64 pergunta, AvisoBase64 aviso = {});

/// Adds 3 to the 8-bit code of each character, or takes 3 away. A code without a legal result is dropped, which is
/// what removes the padding of decoded base64.
QString DeslocaTexto(const QString &texto, bool subir);

/// Standard base64 of the 8-bit text, CR LF after every 64 characters, a full last line included.
QString Base64Codifica(const QString &texto);

/// Decodes base64; padding comes out as the code 0. A group that does not give three characters asks "Illegal
/// Characters <...> found"; OK puts "???" there, Cancel gives what was decoded so far.
QString Base64Decodifica(const QString &texto);

/// How settings and passwords are stored: no key, plus 3 and base64. A setting reads back cut to its first 48
/// characters, since the settings file ends a value at the line break that base64 has after 64.
QString Embaralha(const QString &texto);
QString Desembaralha(const QString &texto);

} // namespace core
