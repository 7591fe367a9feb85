#include "core/funcoes.h"
#include "platform/runtime/runtime.h"

#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace core
{

namespace
{

struct NomeUnidade {
    QStringView nome;
    bool porPeca; ///< counted in whole pieces, not measured
};

constexpr std::array<NomeUnidade, 5> unidades{{
    {u"UNIDADE", true},
    {u"QUILOS", false},
    {u"LITROS", false},
    {u"GALÃO", true},
    {u"PACOTE", true},
}};

const NomeUnidade *unidade(int codigoUM)
{
    const bool existe = codigoUM >= 0 && codigoUM < static_cast<int>(unidades.size());
    return existe ? &unidades[static_cast<size_t>(codigoUM)] : nullptr;
}

/// Month first, whatever the machine's settings: the only form that the statements read without doubt.
QString mesNaFrente(const runtime::Value &data)
{
    const QString texto = runtime::Format(data, mascaraData);
    return texto.mid(3, 2) + u'/' + texto.left(2) + u'/' + texto.mid(6);
}

QString intervalo(const QString &inicio, const QString &fim)
{
    return u'#' + inicio + u"# AND #"_s + fim + u'#';
}

bool temFracao(double valor)
{
    return runtime::Format(valor - std::trunc(valor), u"0.000") != u"0,000"_s;
}

} // namespace

QString DataSQL(const runtime::Value &data1, int modo, const runtime::Value &data2)
{
    const QString inicio = mesNaFrente(data1);
    switch (modo) {
    case 1:
        return u'#' + inicio + u'#';
    case 3:
        return intervalo(inicio + u" 00:00:00"_s, inicio + u" 23:59:59"_s);
    case 4:
        return intervalo(inicio, mesNaFrente(data2));
    case 5:
        return intervalo(inicio + u" 00:00:00"_s, mesNaFrente(data2) + u" 23:59:59"_s);
    default:
        return {};
    }
}

QString Hoje()
{
    return runtime::Format(runtime::Today(), mascaraData);
}

QString FormataQuantidade(double valor, int codigoUM)
{
    const NomeUnidade *um = unidade(codigoUM);
    if (um == nullptr) {
        return {};
    }
    const bool inteiro = um->porPeca && !temFracao(valor);
    return runtime::Format(valor, inteiro ? u"00" : u"##,##0.000");
}

QString NomeDaUnidade(int codigoUM)
{
    const NomeUnidade *um = unidade(codigoUM);
    return um == nullptr ? QString() : um->nome.toString();
}

QString Percentual(double valor, double percentual)
{
    QString digitos = runtime::Format(percentual, u"00.000");
    digitos.remove(u',');
    return runtime::Format(valor * runtime::CDbl(QString(u"0,"_s + digitos)), mascaraValor);
}

QString SomaTexto(const QString &total, const QString &parcela)
{
    return runtime::Format(runtime::CDbl(total) + runtime::CDbl(parcela), mascaraValor);
}

} // namespace core
