#include "documents/folhas.h"

#include "core/config.h"
#include "core/figuras.h"
#include "core/funcoes.h"
#include "core/modulo.h"

namespace documents
{

using namespace Qt::StringLiterals;
using namespace core;

namespace
{

constexpr double alturaRodape = 26;

} // namespace

Folhas::Folhas(printer::Surface &saida, const Documento &documento, int linhasNecessarias)
    : saida_(saida), documento_(documento), linhasNecessarias_(linhasNecessarias)
{
}

void Folhas::imprimeLogo()
{
    saida_.PaintPicture(LeFigura(ArquivoLogo), 0, 0, 12, 3.5);
}

void Folhas::imprimeTitulo()
{
    DefineFonte(saida_, 14, true);
    saida_.setCurrentY(2);
    saida_.setCurrentX(12);
    saida_.Print(documento_.titulo);
}

void Folhas::abre()
{
    saida_.ColorMode = printer::ColorMode::Color;
    saida_.FontName = u"Courier New"_s;
    saida_.setScaleMode(printer::ScaleMode::Centimetres);
    imprimeLogo();
    imprimeTitulo();
    saida_.setCurrentY(4);
    ImprimeCabecalho(saida_, documento_.cabecalho, true);
    if (cabe(linhasNecessarias_ + 1)) {
        saida_.Print();
    }
}

void Folhas::fecha()
{
    saida_.setCurrentX(0);
    saida_.setCurrentY(alturaRodape);
    DefineFonte(saida_, 10, false, true);
    saida_.Print(QString(colunasTamanho10, u' '));
    DefineFonte(saida_, 8);
    const QString endereco = Config(u"Endereco"_s) + u" - "_s + Config(u"Bairro"_s) + u" - "_s + Config(u"Telefone"_s);
    saida_.Print(CentraTexto(endereco, colunasTamanho8));
}

void Folhas::vira()
{
    fecha();
    saida_.NewPage();
    abre();
}

bool Folhas::cabe(qsizetype linhas) const
{
    return CabeAcima(saida_, alturaRodape, linhas);
}

void Folhas::imprime(const QList<Bloco> &blocos)
{
    for (const Bloco &bloco : blocos) {
        if (!CabeAcima(saida_, alturaRodape, bloco)) {
            vira();
        }
        for (const LinhaFinal &linha : bloco) {
            DefineFonte(saida_, linha.tamanho);
            if (!cabe()) {
                vira();
                DefineFonte(saida_, linha.tamanho);
            }
            saida_.Print(linha.texto);
        }
    }
}

} // namespace documents
