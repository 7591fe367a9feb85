#include "core/caixadata.h"

#include "core/funcoes.h"
#include "core/janelas.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/form.h"

#include <QLineEdit>

namespace core
{

namespace
{

/// The mask puts the bars in; what is pasted with them must not get them twice.
QChar semBarra(QChar tecla)
{
    return tecla == u'/' ? QChar() : tecla;
}

QChar soDigitosSemBarra(QChar tecla)
{
    return tecla == u'/' ? QChar() : SoInteiros(tecla);
}

/// The events of one date box; it goes with the box.
class CaixaDeData : public QObject
{
public:
    CaixaDeData(QLineEdit *caixa, const RegrasDaData &regras) : QObject(caixa), caixa_(caixa), regras_(regras) {}

    void muda() { MascaraTexto(caixa_, TipoMascara::Data); }

    /// The bar ends a day or month of one digit; the mask puts it in. Where one stands already it is not doubled.
    void termina()
    {
        const QString texto = caixa_->text();
        const qsizetype numero = texto.lastIndexOf(u'/') + 1;
        const bool umAlgarismo = texto.size() == numero + 1 && texto[numero] >= u'1' && texto[numero] <= u'9';
        const bool noFim = caixa_->cursorPosition() == texto.size() && !caixa_->hasSelectedText();
        if (umAlgarismo && noFim && texto.count(u'/') < 2) {
            caixa_->setText(texto.left(numero) + u'0' + texto.mid(numero));
        }
    }

    void preenche()
    {
        const auto dia = runtime::DateAdd(u"m", regras_.mesesDoF1, runtime::Today());
        caixa_->setText(runtime::Format(dia, mascaraData));
    }

    void formata()
    {
        if (regras_.saida == SaidaDaData::Formata || runtime::IsDate(caixa_->text())) {
            caixa_->setText(runtime::Format(caixa_->text(), mascaraData));
        }
    }

private:
    QLineEdit *caixa_;
    RegrasDaData regras_;
};

} // namespace

void LigaData(ui::Form &janela, QLineEdit *caixa, const RegrasDaData &regras)
{
    auto *data = new CaixaDeData(caixa, regras);
    janela.onChange(caixa, data, &CaixaDeData::muda);
    janela.onKey(caixa, Qt::Key_F1, data, &CaixaDeData::preenche);
    janela.onKey(caixa, Qt::Key_Slash, data, &CaixaDeData::termina);
    if (regras.saida != SaidaDaData::Deixa) {
        janela.onLostFocus(caixa, data, &CaixaDeData::formata);
    }
    janela.filterKeys(caixa, regras.soDigitos ? soDigitosSemBarra : semBarra);
    janela.tidyPaste(caixa, DataColada);
}

} // namespace core
