#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace core
{

/// Shows a critical box with this text; the schema code itself opens no window.
using AvisoCritico = std::function<void(const QString &texto)>;

/// The tables that the program makes, by their names.
QStringList TabelasDoPrograma();

/// Field list of the operators' table, made together with the file.
extern const QString camposSenha;

/// Creates `nome` in DBDados from the field-list text "Name.Type,Name.Text;size", which is consumed: the caller's
/// string is empty on return. A type word that is unknown leaves the type of the field before in force. False after an
/// error, which is told through `aviso` as "Erro na Criação da Tabela " and its cause.
bool CriaTabela(const QString &nome, QString &campos, const AvisoCritico &aviso);

/// Brings DBDados up to the current schema: creates what is missing, then runs the upgrades, each failure passed over.
/// A table counts as present when any table's name begins with its name.
void CriarDB(const AvisoCritico &aviso);

/// Creates the table of the origin book where it is missing: `CriarDB` asks for it only where the installation's code
/// does.
void CriaLivroOrigem(const AvisoCritico &aviso);

/// Opens `ArquivoDB` as DBDados; an absent file is created with the table `Senha` alone. Any other failure is raised.
void AbreOuCriaBanco(const AvisoCritico &aviso);

} // namespace core
