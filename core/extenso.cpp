#include "core/funcoes.h"
#include "platform/runtime/runtime.h"

#include <array>

using namespace Qt::StringLiterals;

namespace core
{

namespace
{

constexpr double maiorValor = 9999999.99;

constexpr std::array<QStringView, 20> ateDezenove{u"",        u"Um ",        u"Dois ",      u"Tres ",    u"Quatro ",
                                                  u"Cinco ",  u"Seis ",      u"Sete ",      u"Oito ",    u"Nove ",
                                                  u"Dez ",    u"Onze ",      u"Doze ",      u"Treze ",   u"Quatorze ",
                                                  u"Quinze ", u"Dezesseis ", u"Dezessete ", u"Dezoito ", u"Dezenove "};

constexpr std::array<QStringView, 10> dezenas{u"",           u"Dez ",      u"Vinte ",   u"Trinta ",  u"Quarenta ",
                                              u"Cinquenta ", u"Sessenta ", u"Setenta ", u"Oitenta ", u"Noventa "};

constexpr std::array<QStringView, 10> centenas{u"",
                                               u"Cento ",
                                               u"Duzentos ",
                                               u"Trezentos ",
                                               u"Quatrocentos ",
                                               u"Quinhentos ",
                                               u"Seiscentos ",
                                               u"Setecentos ",
                                               u"Oitocentos ",
                                               u"Novecentos "};

QString doisDigitos(size_t numero)
{
    if (numero < ateDezenove.size()) {
        return ateDezenove[numero].toString();
    }
    const QString dezena = dezenas[numero / 10].toString();
    return numero % 10 == 0 ? dezena : dezena + u"e "_s + ateDezenove[numero % 10].toString();
}

QString tresDigitos(size_t numero)
{
    if (numero == 100) {
        return u"Cem "_s;
    }
    const QString centena = centenas[numero / 100].toString();
    const size_t resto = numero % 100;
    if (centena.isEmpty() || resto == 0) {
        return centena + doisDigitos(resto);
    }
    return centena + u"e "_s + doisDigitos(resto);
}

/// The value in groups of three digits, as the words go.
struct Grupos {
    size_t milhoes;
    size_t milhares;
    size_t unidades;
    size_t centavos;

    bool semInteiro() const { return milhoes == 0 && milhares == 0 && unidades == 0; }
    bool exatamenteUm() const { return milhoes == 0 && milhares == 0 && unidades == 1 && centavos == 0; }
};

Grupos separa(const runtime::Value &valor)
{
    const QString digitos = runtime::Format(valor, u"0000000000.00");
    const auto numero = [&](qsizetype inicio, qsizetype tamanho) -> size_t {
        return digitos.mid(inicio, tamanho).toUInt();
    };
    return {numero(1, 3), numero(4, 3), numero(7, 3), numero(11, 2)};
}

QString centavosPorExtenso(size_t centavos)
{
    return tresDigitos(centavos) + (centavos == 1 ? u"centavo"_s : u"centavos"_s);
}

QString inteiroPorExtenso(const Grupos &g)
{
    QString texto;
    if (g.milhoes > 0) {
        texto += tresDigitos(g.milhoes) + (g.milhoes == 1 ? u"milhão "_s : u"milhões "_s);
        texto += g.milhares == 0 && g.unidades == 0 ? u"de "_s : QString();
    }
    if (g.milhares > 0) {
        texto += tresDigitos(g.milhares) + u"Mil "_s;
    }
    return texto + tresDigitos(g.unidades);
}

QString porExtenso(const Grupos &g, bool moeda)
{
    if (g.semInteiro()) {
        return centavosPorExtenso(g.centavos);
    }
    QString texto = inteiroPorExtenso(g);
    if (moeda) {
        texto += g.exatamenteUm() ? u"real "_s : u"reais "_s;
    }
    if (g.centavos == 0) {
        return texto;
    }
    return moeda ? texto + u"e "_s + centavosPorExtenso(g.centavos) : texto + u"Virgula "_s + tresDigitos(g.centavos);
}

} // namespace

QString ValorPorExtenso(const runtime::Value &valor, bool moeda)
{
    if (runtime::IsNull(valor) || !runtime::IsNumeric(valor)) {
        return {};
    }
    const double numero = runtime::CDbl(valor);
    if (numero <= 0 || numero > maiorValor) {
        return {};
    }
    // A text goes on as the number it was read as: "10.50" is 1050 here as everywhere.
    const bool texto = std::holds_alternative<QString>(valor);
    return porExtenso(separa(texto ? runtime::Value(numero) : valor), moeda);
}

} // namespace core
