#include "reports/selecionado.h"

#include "core/funcoes.h"
#include "platform/ui/form.h"

#include <QAbstractButton>
#include <QComboBox>

namespace reports
{

using namespace Qt::StringLiterals;

namespace
{

constexpr int intervalo = 4; ///< of `DataSQL`

} // namespace

Selecionado::Valor Selecionado::valorDe(const QWidget &controle)
{
    if (const auto *combo = qobject_cast<const QComboBox *>(&controle)) {
        return {combo->currentText(), combo->currentIndex()};
    }
    const auto *botao = qobject_cast<const QAbstractButton *>(&controle);
    return {ui::textOf(&controle), botao != nullptr && botao->isChecked() ? 1 : 0};
}

Selecionado::Valores Selecionado::valoresDe(const QWidget &janela)
{
    Valores valores;
    for (const QWidget *controle : janela.findChildren<QWidget *>()) {
        if (!controle->objectName().isEmpty()) {
            valores.insert(controle->objectName(), valorDe(*controle));
        }
    }
    return valores;
}

Selecionado::Selecionado(QStringView janela)
{
    static QHash<QString, Valores> lidas;
    auto &janelas = ui::Forms::instance();
    const QString nome = janela.toString();
    if (janelas.find(nome) != nullptr || !lidas.contains(nome)) {
        lidas[nome] = valoresDe(*janelas.Load(nome));
    }
    valores_ = lidas[nome];
}

Selecionado::Valor Selecionado::valor(QStringView controle) const
{
    const auto achado = valores_.constFind(controle.toString());
    Q_ASSERT_X(achado != valores_.constEnd(), "Selecionado", qPrintable(controle.toString()));
    return *achado;
}

QString Selecionado::texto(QStringView controle) const
{
    return valor(controle).texto;
}

qsizetype Selecionado::indice(QStringView combo) const
{
    return valor(combo).indice;
}

bool Selecionado::marcado(QStringView caixa) const
{
    return valor(caixa).indice == 1;
}

QString Selecionado::periodoSQL() const
{
    return core::DataSQL(inicio(), intervalo, fim());
}

QString Selecionado::periodo(QStringView entre) const
{
    return inicio() + entre + fim();
}

} // namespace reports
