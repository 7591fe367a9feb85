#include "estimates/condicoes.h"

#include "core/config.h"
#include "core/funcoes.h"
#include "documents/parcelas.h"
#include "platform/runtime/runtime.h"

namespace estimates
{

using namespace runtime;
using namespace core;
using namespace documents;
using namespace Qt::StringLiterals;

namespace
{

constexpr double tamanhoDoTitulo = 12;

/// The yes/no settings of estimates hold the index of the chosen option, of which "Sim" is the first.
bool ligado(const QString &chave)
{
    return ConfigOrcamento(chave) == u"0"_s;
}

/// What is worked out is a single, whose text has seven digits.
QString emDinheiro(float valor)
{
    return Format(valor, mascaraValor);
}

QString aVista(const QString &valor)
{
    const QString rotulo = u"À VISTA...........: R$ "_s;
    if (!ligado(u"P1"_s)) {
        return rotulo + Format(valor, mascaraValor);
    }
    return rotulo + emDinheiro(CSng(valor) - DescontoMaximo(valor, Config(u"Desconto"_s)));
}

QString em30Dias(const QString &valor)
{
    const QString rotulo = u"30 DIAS...........: R$ "_s;
    if (!ligado(u"P3"_s)) {
        return rotulo + Format(valor, mascaraValor);
    }
    return rotulo + emDinheiro(ValorComJuros(valor, 1, Config(u"Juros"_s)));
}

/// A first payment and so many more.
QString emParcelas(const QString &valor, int outras, const QString &juros)
{
    return u"01 + "_s + Format(outras, u"00") + u"...........: R$ "_s +
           emDinheiro(ValorDaParcela(valor, outras + 1, juros));
}

} // namespace

Bloco CondicoesDePagamento(const QString &valor)
{
    if (ConfigOrcamento(u"P5"_s) == u"1"_s) {
        return {};
    }
    QStringList linhas{aVista(valor)};
    if (ligado(u"P2"_s)) {
        linhas << em30Dias(valor);
    }
    const QString juros = ligado(u"P4"_s) ? Config(u"Juros"_s) : QString();
    const int parcelas = static_cast<int>(Val(ConfigOrcamento(u"Parcelas"_s)));
    for (int outras = 1; outras < parcelas; ++outras) {
        linhas << emParcelas(valor, outras, juros);
    }
    linhas << ConfigOrcamento(u"Texto1"_s) << ConfigOrcamento(u"Texto2"_s);
    return Bloco{{}, {u"FORMAS DE PAGAMENTO"_s, tamanhoDoTitulo}} + BlocoDe(linhas);
}

} // namespace estimates
