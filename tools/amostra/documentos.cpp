#include "tools/amostra/documentos.h"

using namespace Qt::StringLiterals;

namespace amostra
{

namespace
{

/// The check digit of what stands so far: weights from 2 upwards beginning at the right, up to `maiorPeso` and then
/// from 2 again; a remainder of 0 or 1 gives 0.
QChar digitoVerificador(const QString &digitos, int maiorPeso)
{
    int soma = 0;
    int peso = 2;
    for (qsizetype i = digitos.size(); i > 0; --i) {
        soma += digitos.at(i - 1).digitValue() * peso;
        peso = peso == maiorPeso ? 2 : peso + 1;
    }
    const int resto = soma % 11;
    return QChar(u'0' + (resto < 2 ? 0 : 11 - resto));
}

QString comDigitos(QString digitos, int maiorPeso)
{
    digitos += digitoVerificador(digitos, maiorPeso);
    digitos += digitoVerificador(digitos, maiorPeso);
    return digitos;
}

constexpr int pesosCpf = 11;
constexpr int pesosCnpj = 9;
constexpr quint64 letras = 26;

QChar letra(quint64 numero)
{
    return {static_cast<char16_t>(u'A' + numero % letras)};
}

} // namespace

QString Digitos(quint64 numero, int casas)
{
    return QString::number(numero).rightJustified(casas, u'0');
}

QString Cpf(quint64 base)
{
    return comDigitos(Digitos(base, 9), pesosCpf);
}

QString Cnpj(quint64 base)
{
    return comDigitos(Digitos(base, 8) + u"0001"_s, pesosCnpj);
}

QString Placa(quint64 numero)
{
    const quint64 serie = numero / 10'000;
    return QString(letra(serie / letras / letras)) + letra(serie / letras) + letra(serie) + Digitos(numero % 10'000, 4);
}

QString Telefone(int ddd, int prefixo, int numero)
{
    return u"(%1) %2-%3"_s.arg(ddd).arg(prefixo).arg(numero, 4, 10, QChar(u'0'));
}

QString MascaraCep(int cincoPrimeiros, int tresUltimos)
{
    const QString digitos = Digitos(static_cast<quint64>(cincoPrimeiros), 5);
    return digitos.left(2) + u'.' + digitos.mid(2) + u'-' + Digitos(static_cast<quint64>(tresUltimos), 3);
}

} // namespace amostra
