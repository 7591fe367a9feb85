#pragma once

#include <QString>

class QComboBox;
class QLineEdit;

/// What the registers say and fetch when a field is left. Nothing here refuses: the focus stays free.
namespace registers
{

/// Tells of a row that is there already.
void AvisaSeHa(const QString &consulta, const QString &mensagem);

/// Shows what a document's check answers, unless it is one of the two good answers. An invalid document may be stored.
void AvisaDocumento(const QString &resposta);

/// The fields of an address that a postal code fills, and the one where the user goes on.
struct CamposEndereco {
    QLineEdit *endereco;
    QLineEdit *bairro;
    QLineEdit *cidade;
    QComboBox *estado;
    QLineEdit *numero;
};

/// Fills the address of a postal code and goes on to the number, selected; beeps where there is no address.
void PreencheEndereco(const QString &cep, const CamposEndereco &campos);

} // namespace registers
