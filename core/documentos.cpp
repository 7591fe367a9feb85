#include "core/funcoes.h"
#include "platform/runtime/runtime.h"

using namespace Qt::StringLiterals;

namespace core
{

namespace
{

constexpr qsizetype digitosDoCPF = 11;
constexpr qsizetype digitosDoCNPJ = 14;

QString soDigitos(const QString &texto)
{
    QString digitos = texto;
    digitos.removeIf([](QChar c) { return c < u'0' || c > u'9'; });
    return digitos;
}

bool soZeros(const QString &digitos)
{
    return digitos.count(u'0') == digitos.size();
}

/// The check digit over `digitos`: weights 2, 3, ... from the right, beginning again at 2 behind `maiorPeso`.
QChar digitoVerificador(QStringView digitos, int maiorPeso)
{
    int soma = 0;
    int peso = 2;
    for (qsizetype i = digitos.size() - 1; i >= 0; --i) {
        soma += digitos[i].digitValue() * peso;
        peso = peso == maiorPeso ? 2 : peso + 1;
    }
    const int resto = soma % 11;
    return QChar(u'0' + (resto < 2 ? 0 : 11 - resto));
}

/// Both check digits, the last two, over those in front of each.
bool digitosConferem(const QString &digitos, int maiorPeso)
{
    const QStringView todos(digitos);
    const qsizetype base = digitos.size() - 2;
    return todos[base] == digitoVerificador(todos.left(base), maiorPeso) &&
           todos[base + 1] == digitoVerificador(todos.left(base + 1), maiorPeso);
}

QString semPontuacao(const QString &texto)
{
    QString limpo = texto;
    return limpo.remove(u'.').remove(u'-').remove(u'/');
}

} // namespace

QString ValidaCPF(const QString &texto)
{
    const QString digitos = soDigitos(texto);
    if (digitos.size() != digitosDoCPF) {
        return u"É Necessário um CPF com 11 Dígitos"_s;
    }
    constexpr int maiorPeso = 11;
    return !soZeros(digitos) && digitosConferem(digitos, maiorPeso) ? u"CPF Válido"_s : u"CPF Inválido"_s;
}

QString ValidaCNPJ(const QString &texto)
{
    const QString digitos = soDigitos(texto);
    if (digitos.size() != digitosDoCNPJ) {
        return u"É obrigatório o CNPJ com 14 dígitos"_s;
    }
    if (soZeros(digitos)) {
        return u"CNPJ Inválido"_s;
    }
    constexpr int maiorPeso = 9;
    return digitosConferem(digitos, maiorPeso) ? u"CNPJ válido"_s : u"CNPJ inválido"_s;
}

runtime::Value FormataDocumento(const QString &texto, bool tirar)
{
    if (texto.isEmpty()) {
        return runtime::Null{};
    }
    const QString limpo = semPontuacao(texto);
    if (tirar) {
        return limpo;
    }
    if (limpo.size() == digitosDoCPF) {
        return QString(limpo.mid(0, 3) + u'.' + limpo.mid(3, 3) + u'.' + limpo.mid(6, 3) + u'-' + limpo.mid(9));
    }
    if (limpo.size() == digitosDoCNPJ) {
        return QString(limpo.mid(0, 2) + u'.' + limpo.mid(2, 3) + u'.' + limpo.mid(5, 3) + u'/' + limpo.mid(8, 4) +
                       u'-' + limpo.mid(12));
    }
    return runtime::Empty{};
}

} // namespace core
