#pragma once

#include "platform/dao/recordset.h"

#include <QString>

#include <optional>

/// The operators: table `Senha`, passwords scrambled. Codes are texts as the windows hold them, digits only.
namespace shell
{

struct Operador {
    QString codigo; ///< "00"
    QString nome;
    QString senha; ///< in clear
    bool admin = false;
};

/// The highest code, and the longest password: what their columns hold, the password scrambled.
inline constexpr int maiorCodigo = 32767;
inline constexpr int maiorSenha = 9;

bool haOperadores();

/// The operator of a code, or none.
std::optional<Operador> leOperador(const QString &codigo);

/// All operators in the order of their codes.
dao::Recordset operadores();

/// The password of an operator's row, in clear.
QString senhaDe(const dao::Recordset &linha);

/// The name of a code; "" where there is no such operator.
QString nomeDoOperador(const QString &codigo);

/// True for the one administrator that is left.
bool unicoAdministrador(const QString &codigo);

void incluiOperador(const Operador &novo);

/// Writes code, name and password of an operator, never the level; false where there is no such code.
bool alteraOperador(const Operador &operador);

void excluiOperador(const QString &codigo);

} // namespace shell
