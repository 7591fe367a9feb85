#pragma once

#include <QString>

#include <optional>

namespace core
{

enum class TipoInformacao { Cliente = 0, Veiculo = 1, Peca = 2 };

/// Shows one record in an information box, a line a field; nothing where there is no such record.
void MostraInformacoes(TipoInformacao tipo, const QString &codigo);

/// Whether a piece of a text can be the code of a record.
bool PodeSerCodigo(const QString &texto);

/// The code that a text typed by the user names: a whole number, however it is written. Nothing for any other text.
std::optional<qint32> CodigoDoTexto(const QString &texto);

/// Opens the query of orders on one order, its code as a text that may hold none.
void MostraOrdem(const QString &codigo);

} // namespace core
