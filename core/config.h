#pragma once

#include <QString>

namespace core
{

/// A key of `ArquivoINI`, "" when absent, at most 254 characters of it. `embaralhado` values are unscrambled.
QString LeINI(const QString &secao, const QString &chave, bool embaralhado);

/// Writes a key; an `embaralhado` value is scrambled first, in the caller's variable too. Errors pass silently.
void GravaINI(const QString &secao, const QString &chave, QString &valor, bool embaralhado);

/// The same for a value that the caller does not keep.
void GravaINI(const QString &secao, const QString &chave, const QString &valor, bool embaralhado);

/// The start-up pass: writes every missing key with its default, never over a value that stands.
void CarregaConfig();

/// A scrambled key of the section Config or Orcamento, which nearly all of them are.
QString Config(const QString &chave);
QString ConfigOrcamento(const QString &chave);

} // namespace core
