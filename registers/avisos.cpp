#include "registers/avisos.h"

#include "core/cep.h"
#include "core/janelas.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/ui/boxes.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>

namespace registers
{

using namespace core;

void AvisaSeHa(const QString &consulta, const QString &mensagem)
{
    if (!DBDados->OpenRecordset(consulta).Eof()) {
        ui::MsgBox(mensagem, ui::Icon::Exclamation, NomeEmpresa);
    }
}

void AvisaDocumento(const QString &resposta)
{
    if (resposta != u"CPF Válido" && resposta != u"CNPJ válido") {
        ui::MsgBox(resposta, ui::Icon::Exclamation, NomeEmpresa);
    }
}

void PreencheEndereco(const QString &cep, const CamposEndereco &campos)
{
    const BuscaCEP busca = ProcuraCEP(cep);
    if (!busca.procurou) {
        return;
    }
    if (!busca.endereco) {
        QApplication::beep();
        return;
    }
    campos.endereco->setText(busca.endereco->endereco);
    campos.bairro->setText(busca.endereco->bairro);
    campos.cidade->setText(busca.endereco->cidade);
    campos.estado->setEditText(busca.endereco->estado);
    SelecionaTexto(campos.numero);
}

} // namespace registers
