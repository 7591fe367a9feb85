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

/// The mask puts the bars in; who types them too must not get them twice.
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
    if (regras.saida != SaidaDaData::Deixa) {
        janela.onLostFocus(caixa, data, &CaixaDeData::formata);
    }
    janela.filterKeys(caixa, regras.soDigitos ? soDigitosSemBarra : semBarra);
    janela.tidyPaste(caixa, DataColada);
}

} // namespace core
