#include "core/caixacodigo.h"

#include "core/devolucao.h"
#include "core/funcoes.h"
#include "core/janelas.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/boxes.h"
#include "platform/ui/form.h"

#include <QLineEdit>

#include <utility>

namespace core
{

CaixaDeCodigo::CaixaDeCodigo(ui::Form &janela, QLineEdit *caixa, RegrasDoCodigo regras)
    : QObject(caixa), caixa_(caixa), regras_(std::move(regras))
{
    if (regras_.consulta != nullptr) {
        janela.onLostFocus(caixa, this, &CaixaDeCodigo::procura);
    }
    if (regras_.procura != nullptr) {
        janela.onKey(caixa, Qt::Key_F1, this, &CaixaDeCodigo::abreProcura);
        janela.onClick(regras_.procura, this, &CaixaDeCodigo::abreProcura);
    }
    if (regras_.inclui != nullptr) {
        janela.onKey(caixa, Qt::Key_F2, this, &CaixaDeCodigo::abreInclusao);
        janela.onClick(regras_.inclui, this, &CaixaDeCodigo::abreInclusao);
    }
}

void CaixaDeCodigo::procura()
{
    if (caixa_->text().isEmpty()) {
        if (regras_.vazioEsvazia) {
            regras_.esvazia();
        }
        return;
    }
    if (const QStringView motivo = mostraLinha(); !motivo.isEmpty()) {
        recusa(motivo);
    }
}

/// Shows the row of the code; the message instead where it is not taken.
QStringView CaixaDeCodigo::mostraLinha()
{
    const dao::Recordset linha = DBDados->OpenRecordset(regras_.consulta(caixa_->text()));
    if (linha.Eof()) {
        return regras_.naoLocalizado;
    }
    const QStringView motivo = regras_.recusa != nullptr ? regras_.recusa(linha) : QStringView();
    if (motivo.isEmpty()) {
        regras_.mostra(linha);
        caixa_->setText(runtime::Format(caixa_->text(), mascaraCodigo));
    }
    return motivo;
}

void CaixaDeCodigo::recusa(QStringView mensagem)
{
    ui::MsgBox(mensagem.toString(), ui::Icon::Exclamation, NomeEmpresa);
    regras_.esvazia();
    if (regras_.voltaOFoco) {
        SelecionaTexto(caixa_);
    }
}

void CaixaDeCodigo::abreProcura()
{
    Chama(regras_.cadastro.toString(), regras_.modoProcura);
}

void CaixaDeCodigo::abreInclusao()
{
    Chama(regras_.cadastro.toString(), regras_.modoInclui);
}

} // namespace core
