#include "workorders/planopersonalizado.h"

#include "core/funcoes.h"
#include "core/janelas.h"
#include "core/lista.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/controls.h"
#include "platform/ui/listview.h"
#include "platform/ui/style.h"
#include "workorders/fechamento.h"

#include <QLineEdit>
#include <QRadioButton>

#include <array>

namespace workorders
{

using namespace runtime;
using namespace core;
using namespace Qt::StringLiterals;

namespace
{

enum Coluna { colVencimento = 1, colValor = 2, colDocumento = 3 };

constexpr std::array colunas{
    ColunaLista{u"Parcela", 1200},
    ColunaLista{u"Data Vencim.", 2400},
    ColunaLista{.titulo = u"Valor Parc.", .largura = 2400, .alinhamento = Qt::AlignRight},
    ColunaLista{u"Documento", 3600},
};

struct Situacao {
    QStringView texto;
    ui::Tone tom;
};

/// How the balance of the custom plan stands, for the eye and in words.
const Situacao &situacaoDoSaldo(float saldo)
{
    static constexpr Situacao falta{u"falta distribuir", ui::Tone::Pending};
    static constexpr Situacao fecha{u"plano completo", ui::Tone::Good};
    static constexpr Situacao sobra{u"acima do valor", ui::Tone::Warning};
    if (saldo > 0) {
        return falta;
    }
    return saldo < 0 ? sobra : fecha;
}

} // namespace

void MontaColunasDoPlano(ui::ListView &lista, bool comDocumento)
{
    const std::span todas(colunas);
    MontaLista(lista, {.colunas = comDocumento ? todas : todas.first(colDocumento)});
}

void AcrescentaParcela(ui::ListView &lista, const ParcelaOS &parcela)
{
    QStringList subItens{parcela.vencimento, parcela.valor};
    if (lista.columnCount() > colDocumento) {
        subItens << parcela.documento;
    }
    lista.addItem(parcela.parcela, subItens);
}

std::vector<ParcelaOS> ParcelasDe(const ui::ListView &lista)
{
    const bool comDocumento = lista.columnCount() > colDocumento;
    std::vector<ParcelaOS> parcelas;
    for (int linha = 0; linha < lista.count(); ++linha) {
        const ui::ListItem item = lista.item(linha);
        parcelas.push_back({item.text(), item.subItem(colVencimento), item.subItem(colValor),
                            comDocumento ? item.subItem(colDocumento) : QString()});
    }
    return parcelas;
}

/// What is paid at once is due today, whatever was typed.
bool PlanoPersonalizado::confere() const
{
    if (!ValidaCampo(campos_.parcela, u"Número da parcela inválido"_s, TipoCampo::Numerico) ||
        !ValidaCampo(campos_.valor, u"Valor da parcela inválido"_s, TipoCampo::Numerico)) {
        return false;
    }
    if (campos_.aVista->isChecked()) {
        campos_.data->setText(Hoje());
        return true;
    }
    return ValidaCampo(campos_.data, u"Data de Vencimento da parcela inválida"_s, TipoCampo::Data);
}

QString PlanoPersonalizado::documento() const
{
    if (campos_.aVista->isChecked()) {
        return documentoAVista.toString();
    }
    return (campos_.aPrazo->isChecked() ? documentoAPrazo : documentoCheque).toString();
}

void PlanoPersonalizado::acrescenta() const
{
    if (!confere()) {
        return;
    }
    const QString parcela = campos_.parcela->text();
    const QString vencimento = campos_.data->text();
    const QString valor = campos_.valor->text();
    AcrescentaParcela(*campos_.lista, {Format(parcela, u"00"), Format(vencimento, mascaraData),
                                       Format(valor, mascaraValor), documento()});
    campos_.lista->ensureVisible(campos_.lista->count() - 1);
    mudaSaldo(-CSng(valor));
    campos_.parcela->setText(Format(Val(parcela) + 1, u"00"));
    campos_.data->setText(Format(DateAdd(u"m", 1, CDate(vencimento)), mascaraData));
    SelecionaTexto(campos_.parcela);
}

void PlanoPersonalizado::remove() const
{
    const int linha = campos_.lista->selectedRow();
    if (linha < 0) {
        return;
    }
    campos_.lista->removeRow(linha);
    if (IsNumeric(campos_.valor->text())) {
        mudaSaldo(CSng(campos_.valor->text()));
    }
}

void PlanoPersonalizado::mudaSaldo(float valor) const
{
    campos_.saldo->setText(Format(CSng(campos_.saldo->text()) + valor, mascaraValor));
}

void PlanoPersonalizado::mostraSituacao() const
{
    const Situacao &situacao = situacaoDoSaldo(CSng(campos_.saldo->text()));
    campos_.situacao->setText(situacao.texto.toString());
    campos_.saldo->setToolTip(situacao.texto.toString());
    for (QWidget *rotulo : {campos_.saldo, campos_.situacao}) {
        ui::setTone(*rotulo, situacao.tom);
    }
}

} // namespace workorders
