#include "tools/amostra/pessoas.h"

#include "tools/amostra/documentos.h"

#include <QStringList>

#include <array>

using namespace Qt::StringLiterals;

namespace amostra
{

namespace
{

/// Each stands before what it ends in.
constexpr auto formasDeEmpresa = std::to_array<QStringView>({u"E FILHOS LTDA", u"LTDA ME", u"LTDA", u"S/A"});

QString semAcentos(const QString &texto)
{
    QString simples;
    for (const QChar letra : texto.normalized(QString::NormalizationForm_D)) {
        if (letra.category() != QChar::Mark_NonSpacing) {
            simples += letra;
        }
    }
    return simples;
}

/// "PADARIA SILVA LTDA" is known as "PADARIA SILVA".
QString semForma(const QString &nome)
{
    for (const QStringView forma : formasDeEmpresa) {
        if (nome.endsWith(u' ' + forma.toString())) {
            return nome.chopped(forma.size() + 1);
        }
    }
    return nome;
}

} // namespace

QString NomeDePessoa(Sorteio &sorteio)
{
    const QString prenome = sorteio.um(prenomes()).toString();
    const QString segundo = AsVezes(sorteio, 45, sobrenomes());
    const QString ultimo = sorteio.um(sobrenomes()).toString();
    if (segundo.isEmpty() || segundo == ultimo) {
        return prenome + u' ' + ultimo;
    }
    return prenome + u' ' + segundo + u' ' + ultimo;
}

QString NomeDeEmpresa(Sorteio &sorteio, QStringView ramo)
{
    const QString sobrenome = sorteio.um(sobrenomes()).toString();
    return ramo.toString() + u' ' + sobrenome + u' ' + sorteio.um(formasDeEmpresa).toString();
}

QString Email(Sorteio &sorteio, const QString &nome)
{
    const QStringList partes = semAcentos(semForma(nome)).toLower().split(u' ');
    const QString numero = QString::number(sorteio.entre(1, 999));
    return partes.first() + u'.' + partes.last() + numero + u'@' + sorteio.um(provedores()).toString();
}

const Cidade &CidadeDeCliente(Sorteio &sorteio)
{
    return sorteio.chance(66) ? cidades().front() : sorteio.um(cidades());
}

QString FoneFixo(Sorteio &sorteio, const Cidade &cidade)
{
    const int prefixo = sorteio.entre(3301, 3419);
    return Telefone(cidade.ddd, prefixo, sorteio.entre(0, 9999));
}

QString FoneCelular(Sorteio &sorteio, const Cidade &cidade)
{
    const int prefixo = sorteio.entre(8100, 9999);
    return Telefone(cidade.ddd, prefixo, sorteio.entre(0, 9999));
}

QString Cep(Sorteio &sorteio, const Cidade &cidade)
{
    const int primeiros = cidade.cep + sorteio.entre(0, cidade.faixa - 1);
    return MascaraCep(primeiros, sorteio.entre(0, 99) * 10);
}

QString AsVezes(Sorteio &sorteio, int porCento, std::span<const QStringView> tabela)
{
    return sorteio.chance(porCento) ? sorteio.um(tabela).toString() : QString();
}

} // namespace amostra
