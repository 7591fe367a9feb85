#pragma once

#include <QString>

#include <functional>

namespace core {

/// Asks OK or Cancel about a bad group of base64 text; true for OK. Installed by the program's windows; without one, OK.
using PerguntaBase64 = std::function<bool(const QString &texto, const QString &titulo)>;
void setPerguntaBase64(PerguntaBase64 pergunta);

/// Adds 3 to the 8-bit code of each character, or takes 3 away. A code without a legal result is dropped, which is
/// what removes the padding of decoded base64.
QString DeslocaTexto(const QString &texto, bool subir);

/// Standard base64 of the 8-bit text, CR LF after every 64 characters, a full last line included.
QString Base64Codifica(const QString &texto);

/// Decodes base64. A group that does not give three characters asks "Illegal Characters <...> found"; OK puts "???" there.
QString Base64Decodifica(const QString &texto);

/// How settings and passwords are stored: no key, plus 3 and base64.
QString Embaralha(const QString &texto);
QString Desembaralha(const QString &texto);

} // namespace core
