#include "core/funcoes.h"
#include "platform/printer/surface.h"

using namespace Qt::StringLiterals;

namespace core
{

QString AlinhaEsquerda(const QString &texto, int largura)
{
    return texto.leftJustified(largura, u' ', true);
}

QString AlinhaDireita(const QString &texto, int largura)
{
    return texto.size() > largura ? texto.left(largura) : texto.rightJustified(largura, u' ');
}

QString CentraTexto(const QString &texto, int largura)
{
    const qsizetype falta = largura - texto.size();
    if (falta < 0) {
        return texto.left(largura);
    }
    const qsizetype atras = falta / 2;
    return QString(falta - atras, u' ') + texto + QString(atras, u' ');
}

QStringList QuebraTexto(const QString &texto, int largura)
{
    QStringList linhas;
    QString resto = texto;
    while (largura > 0 && resto.size() >= largura) {
        const qsizetype branco = resto.left(largura).lastIndexOf(u' ');
        if (branco < 0 && resto.size() == largura) {
            break; // it fills its line to the last place, and nothing follows
        }
        linhas << resto.left(branco < 0 ? largura : branco);
        resto.remove(0, branco < 0 ? largura : branco + 1);
    }
    return linhas << resto;
}

void ImprimeQuebrado(const QString &texto, int largura, printer::Surface &saida)
{
    for (const QString &linha : QuebraTexto(texto, largura)) {
        saida.Print(linha);
    }
}

} // namespace core
