#include "core/limites.h"

#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/ui/application.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextCursor>

namespace core
{

namespace
{

/// A box of several lines has no limit of its own: what goes beyond the column is taken off where it was put in.
void corta(QPlainTextEdit &caixa, qsizetype maior)
{
    const int demais = static_cast<int>(caixa.toPlainText().size() - maior);
    if (demais <= 0) {
        return;
    }
    QTextCursor cursor = caixa.textCursor();
    if (cursor.position() < demais) {
        cursor.movePosition(QTextCursor::End);
    }
    cursor.movePosition(QTextCursor::Left, QTextCursor::KeepAnchor, demais);
    cursor.removeSelectedText();
}

void limita(QWidget *controle, int maior)
{
    if (auto *combo = qobject_cast<QComboBox *>(controle)) {
        controle = combo->lineEdit();
    }
    if (auto *linha = qobject_cast<QLineEdit *>(controle)) {
        linha->setMaxLength(maior);
    } else if (auto *caixa = qobject_cast<QPlainTextEdit *>(controle)) {
        QObject::connect(caixa, &QPlainTextEdit::textChanged, caixa,
                         [caixa, maior] { ui::Application::run([=] { corta(*caixa, maior); }); });
    }
}

} // namespace

void LimitaAoCampo(QWidget *controle, const dao::Recordset &tabela, QStringView coluna)
{
    const int lugar = tabela.fieldPlace(coluna);
    if (tabela.field(lugar).type == dao::FieldType::Text) {
        limita(controle, tabela.field(lugar).size);
    }
}

void LimitaAosCampos(const QWidget &janela, std::span<const CaixaDeTexto> caixas)
{
    for (const CaixaDeTexto &caixa : caixas) {
        auto *controle = janela.findChild<QWidget *>(caixa.controle.toString());
        Q_ASSERT_X(controle, "LimitaAosCampos", qPrintable(caixa.controle.toString()));
        LimitaAoCampo(controle, DBDados->OpenRecordset(caixa.tabela.toString()), caixa.coluna);
    }
}

} // namespace core
