#include "core/pagina.h"

#include "core/funcoes.h"
#include "core/modulo.h"
#include "core/previsualiza.h"
#include "platform/printer/printer.h"
#include "platform/ui/listview.h"

#include <algorithm>

namespace core
{

using namespace Qt::StringLiterals;

namespace
{

constexpr int colunasTamanho10Deitada = 133;
constexpr int colunasTamanho24Deitada = 56;
constexpr int larguraDosRegistros = 15;

/// A line break would push the rest of the row below its titles.
QString emUmaLinha(QString texto)
{
    return texto.replace(u'\r', u' ').replace(u'\n', u' ');
}

class Desenho
{
public:
    Desenho(printer::Surface &saida, const ui::ListView &lista, const Pagina &pagina, const TextosDaPagina &textos);

    void desenha();

private:
    void desenhaPagina(int primeira, int ultima);
    void desenhaTitulo();
    void desenhaCabecalho(int primeira, int ultima);
    void desenhaTitulosDasColunas();
    void desenhaLinha(int linha);
    QString campos(std::size_t impressa, int linha) const;

    printer::Surface &saida_;
    const ui::ListView &lista_;
    const Pagina &pagina_;
    const TextosDaPagina &textos_;
    std::vector<QList<int>> larguras_; ///< of the fields, by printed line
};

Desenho::Desenho(printer::Surface &saida, const ui::ListView &lista, const Pagina &pagina, const TextosDaPagina &textos)
    : saida_(saida), lista_(lista), pagina_(pagina), textos_(textos)
{
    for (const LinhaImpressa &impressa : pagina.linhas) {
        QList<int> &larguras = larguras_.emplace_back();
        for (const QString &titulo : impressa.titulos.toString().split(u" - "_s)) {
            larguras << int(titulo.size());
        }
    }
}

void Desenho::desenha()
{
    saida_.setOrientation(pagina_.deitada ? printer::Orientation::Landscape : printer::Orientation::Portrait);
    const int linhas = lista_.count();
    int primeira = 1;
    desenhaPagina(primeira, std::min(pagina_.porPagina, linhas));
    while (primeira + pagina_.porPagina <= linhas) {
        primeira += pagina_.porPagina;
        saida_.NewPage();
        desenhaPagina(primeira, std::min(primeira + pagina_.porPagina - 1, linhas));
    }
    ImprimeCabecalho(saida_, textos_.totais, true);
    saida_.EndDoc();
}

void Desenho::desenhaPagina(int primeira, int ultima)
{
    desenhaTitulo();
    desenhaCabecalho(primeira, ultima);
    desenhaTitulosDasColunas();
    for (int linha = primeira; linha <= ultima; ++linha) {
        desenhaLinha(linha - 1);
    }
}

void Desenho::desenhaTitulo()
{
    saida_.FontName = u"Courier New"_s;
    DefineFonte(saida_, 24);
    saida_.Print();
    DefineFonte(saida_, 24, true);
    saida_.Print(CentraTexto(pagina_.titulo.toString(), pagina_.deitada ? colunasTamanho24Deitada : colunasTamanho24));
    DefineFonte(saida_, 10, true);
    saida_.Print(CentraTexto(NomeEmpresa, pagina_.deitada ? colunasTamanho10Deitada : colunasTamanho10));
    saida_.Print();
    saida_.Print();
}

void Desenho::desenhaCabecalho(int primeira, int ultima)
{
    const QList<CampoImpresso> data{{pagina_.rotuloData.toString(), Hoje()}};
    const QString registros = AlinhaEsquerda(QString::number(lista_.count()), larguraDosRegistros);
    const QString exibindo = u"%1 à %2"_s.arg(primeira).arg(ultima);
    ImprimeCabecalho(saida_, Cabecalho{data} + textos_.linhas, true);
    ImprimeCabecalho(saida_,
                     {QList<CampoImpresso>{{u"Nº de Registros..: "_s, registros}} + textos_.juntoAosRegistros,
                      {{u"Exibindo.....: de: "_s, exibindo}}},
                     true);
    saida_.Print();
}

void Desenho::desenhaTitulosDasColunas()
{
    DefineFonte(saida_, pagina_.tamanho, true, true);
    for (const LinhaImpressa &impressa : pagina_.linhas) {
        saida_.Print(impressa.titulos.toString());
    }
    DefineFonte(saida_, pagina_.tamanho);
}

void Desenho::desenhaLinha(int linha)
{
    for (std::size_t impressa = 0; impressa < pagina_.linhas.size(); ++impressa) {
        const bool ultima = impressa + 1 == pagina_.linhas.size();
        const QString fim = ultima ? pagina_.fimDaLinha.toString() : QString();
        saida_.Print(campos(impressa, linha) + fim);
    }
}

QString Desenho::campos(std::size_t impressa, int linha) const
{
    const ui::ListItem item = lista_.item(linha);
    QStringList textos;
    for (const CampoDaLista &campo : pagina_.linhas[impressa].campos) {
        const QString texto = campo.coluna == semColuna ? QString() : emUmaLinha(item.subItem(campo.coluna));
        const int largura = larguras_[impressa].at(textos.size());
        textos << (campo.lado == Lado::Direita ? AlinhaDireita(texto, largura) : AlinhaEsquerda(texto, largura));
    }
    return textos.join(u"   "_s);
}

} // namespace

void DesenhaLista(printer::Surface &saida, const ui::ListView &lista, const Pagina &pagina,
                  const TextosDaPagina &textos)
{
    Desenho(saida, lista, pagina, textos).desenha();
}

void ImprimeLista(Acao acao, const ui::ListView &lista, const Pagina &pagina, const TextosDaPagina &textos)
{
    if (acao == Acao::PreVisualiza) {
        DesenhaLista(AbrePreVisualizacao(), lista, pagina, textos);
    } else {
        DesenhaLista(printer::printer(), lista, pagina, textos);
    }
}

} // namespace core
