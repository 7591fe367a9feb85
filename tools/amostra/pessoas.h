#pragma once

#include "tools/amostra/nomes.h"
#include "tools/amostra/sorteio.h"

#include <QString>

/// Names and addresses as they are drawn for customers and suppliers.
namespace amostra
{

QString NomeDePessoa(Sorteio &sorteio);
QString NomeDeEmpresa(Sorteio &sorteio, QStringView ramo);

/// The address of a name, without accents and blanks.
QString Email(Sorteio &sorteio, const QString &nome);

/// Two of three live where the workshop stands.
const Cidade &CidadeDeCliente(Sorteio &sorteio);

QString FoneFixo(Sorteio &sorteio, const Cidade &cidade);
QString FoneCelular(Sorteio &sorteio, const Cidade &cidade);
QString Cep(Sorteio &sorteio, const Cidade &cidade);

/// The entry with a chance in a hundred, else nothing.
QString AsVezes(Sorteio &sorteio, int porCento, std::span<const QStringView> tabela);

} // namespace amostra
