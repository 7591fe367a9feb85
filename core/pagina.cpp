#include "core/pagina.h"

#include "core/andamento.h"
#include "core/funcoes.h"
#include "core/modulo.h"
#include "core/previsualiza.h"
#include "platform/printer/printer.h"
#include "platform/ui/listrows.h"
#include "platform/ui/listview.h"

#include <QScopeGuard>

#include <algorithm>
#include <memory>

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

/// A list on its pages, as it stands when this is made: whatever becomes of the list, of its rows and of the boxes
/// above it changes nothing. A page is drawn when it is asked for, from the rows that it shows.
class Desenho
{
public:
    Desenho(const ui::ListView &lista, const Pagina &pagina, TextosDaPagina textos);

    int paginas() const;
    void desenhaPagina(printer::Surface &saida, int pagina) const; ///< counted from 1

private:
    void desenhaTitulo(printer::Surface &saida) const;
    void desenhaCabecalho(printer::Surface &saida, int primeira, int ultima) const;
    void desenhaTitulosDasColunas(printer::Surface &saida) const;
    void desenhaLinha(printer::Surface &saida, int linha) const;
    QString campos(std::size_t impressa, int linha) const;
    QString textoDe(int coluna, int linha) const;

    ui::ListRows linhas_;
    Pagina pagina_;
    TextosDaPagina textos_;
    QString empresa_ = NomeEmpresa;
    QString hoje_ = Hoje();
    std::vector<QList<int>> larguras_; ///< of the fields, by printed line
};

Desenho::Desenho(const ui::ListView &lista, const Pagina &pagina, TextosDaPagina textos)
    : linhas_(lista.rows()), pagina_(pagina), textos_(std::move(textos))
{
    for (const LinhaImpressa &impressa : pagina.linhas) {
        QList<int> &larguras = larguras_.emplace_back();
        for (const QString &titulo : impressa.titulos.toString().split(u" - "_s)) {
            larguras << int(titulo.size());
        }
    }
}

int Desenho::paginas() const
{
    return std::max(1, (linhas_.count() + pagina_.porPagina - 1) / pagina_.porPagina);
}

void Desenho::desenhaPagina(printer::Surface &saida, int pagina) const
{
    const int ultima = std::min(pagina * pagina_.porPagina, linhas_.count());
    const int primeira = (pagina - 1) * pagina_.porPagina + 1;
    saida.setOrientation(pagina_.deitada ? printer::Orientation::Landscape : printer::Orientation::Portrait);
    desenhaTitulo(saida);
    desenhaCabecalho(saida, primeira, ultima);
    desenhaTitulosDasColunas(saida);
    for (int linha = primeira; linha <= ultima; ++linha) {
        desenhaLinha(saida, linha - 1);
    }
    if (pagina == paginas()) {
        ImprimeCabecalho(saida, textos_.totais, true);
    }
}

void Desenho::desenhaTitulo(printer::Surface &saida) const
{
    saida.FontName = u"Courier New"_s;
    DefineFonte(saida, 24);
    saida.Print();
    DefineFonte(saida, 24, true);
    saida.Print(CentraTexto(pagina_.titulo.toString(), pagina_.deitada ? colunasTamanho24Deitada : colunasTamanho24));
    DefineFonte(saida, 10, true);
    saida.Print(CentraTexto(empresa_, pagina_.deitada ? colunasTamanho10Deitada : colunasTamanho10));
    saida.Print();
    saida.Print();
}

void Desenho::desenhaCabecalho(printer::Surface &saida, int primeira, int ultima) const
{
    const QList<CampoImpresso> data{{pagina_.rotuloData.toString(), hoje_}};
    const QString registros = AlinhaEsquerda(QString::number(linhas_.count()), larguraDosRegistros);
    const QString exibindo = u"%1 à %2"_s.arg(primeira).arg(ultima);
    ImprimeCabecalho(saida, Cabecalho{data} + textos_.linhas, true);
    ImprimeCabecalho(saida,
                     {QList<CampoImpresso>{{u"Nº de Registros..: "_s, registros}} + textos_.juntoAosRegistros,
                      {{u"Exibindo.....: de: "_s, exibindo}}},
                     true);
    saida.Print();
}

void Desenho::desenhaTitulosDasColunas(printer::Surface &saida) const
{
    DefineFonte(saida, pagina_.tamanho, true, true);
    for (const LinhaImpressa &impressa : pagina_.linhas) {
        saida.Print(impressa.titulos.toString());
    }
    DefineFonte(saida, pagina_.tamanho);
}

void Desenho::desenhaLinha(printer::Surface &saida, int linha) const
{
    for (std::size_t impressa = 0; impressa < pagina_.linhas.size(); ++impressa) {
        const bool ultima = impressa + 1 == pagina_.linhas.size();
        const QString fim = ultima ? pagina_.fimDaLinha.toString() : QString();
        saida.Print(campos(impressa, linha) + fim);
    }
}

QString Desenho::campos(std::size_t impressa, int linha) const
{
    QStringList textos;
    for (const CampoDaLista &campo : pagina_.linhas[impressa].campos) {
        const QString texto = emUmaLinha(textoDe(campo.coluna, linha));
        const int largura = larguras_[impressa].at(textos.size());
        textos << (campo.lado == Lado::Direita ? AlinhaDireita(texto, largura) : AlinhaEsquerda(texto, largura));
    }
    return textos.join(u"   "_s);
}

QString Desenho::textoDe(int coluna, int linha) const
{
    switch (coluna) {
    case semColuna:
        return {};
    case tagDaLinha:
        return linhas_.tag(linha);
    default:
        return linhas_.text(linha, coluna);
    }
}

// What a page costs, of the work of printing it.
constexpr int passosPorDesenho = 1;
constexpr int passosPorPintura = 4;

void desenhaTudo(printer::Surface &saida, const Desenho &desenho, Andamento &andamento)
{
    for (int pagina = 1; pagina <= desenho.paginas(); ++pagina) {
        if (pagina > 1) {
            saida.NewPage();
        }
        desenho.desenhaPagina(saida, pagina);
        andamento.avanca(passosPorDesenho);
    }
    saida.EndDoc();
}

Andamento imprimindo(const Desenho &desenho)
{
    return {u"Imprimindo"_s, [&] { return desenho.paginas() * (passosPorDesenho + passosPorPintura); }, 1};
}

void imprime(const Desenho &desenho)
{
    printer::Printer &papel = printer::printer();
    Andamento andamento = imprimindo(desenho);
    papel.pagePainted = [&] { andamento.avanca(passosPorPintura); };
    const auto desliga = qScopeGuard([&] { papel.pagePainted = nullptr; });
    desenhaTudo(papel, desenho, andamento);
}

/// The sheets of a list for the preview. A page whose header or totals are too long for it goes on on a further sheet,
/// as on paper. But for the last one all pages are of one height, so two of them tell how many sheets there are.
class FolhasDaLista
{
public:
    explicit FolhasDaLista(Desenho desenho)
        : desenho_(std::move(desenho)), porPagina_(static_cast<int>(daPagina(1).size())),
          total_((desenho_.paginas() - 1) * porPagina_ + static_cast<int>(daPagina(desenho_.paginas()).size()))
    {
    }

    int total() const { return total_; }

    printer::Page folha(int numero) const
    {
        const int pagina = std::min(numero / porPagina_ + 1, desenho_.paginas());
        return daPagina(pagina).at(static_cast<std::size_t>(numero - (pagina - 1) * porPagina_));
    }

private:
    class Bloco : public printer::PagedSurface
    {
    public:
        void EndDoc() override {}
        std::vector<printer::Page> folhas() { return takePages(); }
    };

    std::vector<printer::Page> daPagina(int pagina) const
    {
        Bloco bloco;
        desenho_.desenhaPagina(bloco, pagina);
        return bloco.folhas();
    }

    Desenho desenho_;
    int porPagina_;
    int total_;
};

} // namespace

void DesenhaLista(printer::Surface &saida, const ui::ListView &lista, const Pagina &pagina,
                  const TextosDaPagina &textos)
{
    const Desenho desenho(lista, pagina, textos);
    Andamento andamento = imprimindo(desenho);
    desenhaTudo(saida, desenho, andamento);
}

void ImprimeLista(Acao acao, const ui::ListView &lista, const Pagina &pagina, const TextosDaPagina &textos)
{
    Desenho desenho(lista, pagina, textos);
    if (acao == Acao::Imprime) {
        imprime(desenho);
        return;
    }
    const auto folhas = std::make_shared<const FolhasDaLista>(std::move(desenho));
    PreVisualiza(folhas->total(), [folhas](int numero) { return folhas->folha(numero); });
}

} // namespace core
